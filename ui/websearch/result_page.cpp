#include "ui/websearch/result_page.h"

#include <QCoreApplication>
#include <QUrl>

#include "ui/base/color_button.h"
#include "ui/base/message_box.h"

namespace brovanta {
namespace {

// The toolkit would make a web address of anything else.
bool LeadsSomewhere(const QString& address) {
  const QUrl url(address);
  return url.scheme() == QLatin1String("mailto") ? !url.path().isEmpty() : !url.host().isEmpty();
}

}  // namespace

void OpenResultPage(const QString& address, QWidget* parent) {
  const QString trimmed = address.trimmed();
  if (LeadsSomewhere(trimmed) && OpenWebAddress(trimmed)) return;
  ShowMessage(parent, QCoreApplication::translate(
                          "ResultPage",
                          "There was an error while opening the selected search result "
                          "in Internet Explorer."));
}

}  // namespace brovanta
