#include "ui/websearch/result_page.h"

#include <QUrl>

#include "ui/base/color_button.h"
#include "ui/base/message_box.h"

namespace brovanta {
namespace {

bool IsWebPage(const QString& address) {
  const QUrl url(address);
  const bool web = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
  return web && !url.host().isEmpty();
}

}  // namespace

void OpenResultPage(const QString& address, QWidget* parent) {
  const QString trimmed = address.trimmed();
  if (IsWebPage(trimmed) && OpenWebAddress(trimmed)) return;
  ShowMessage(parent, QStringLiteral("There was an error while opening the selected search result "
                                     "in Internet Explorer."));
}

}  // namespace brovanta
