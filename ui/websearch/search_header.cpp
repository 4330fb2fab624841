#include "ui/websearch/search_header.h"

#include <QHBoxLayout>

#include "ui/base/icons.h"
#include "ui/base/row_painting.h"
#include "ui/base/theme.h"
#include "ui/base/wrapped_label.h"

namespace brovanta {
namespace {
constexpr QSize kPictureSize{24, 24};
}  // namespace

SearchHeader::SearchHeader(QWidget* parent)
    : LinedFrame(parent, Lines::kBelow), label_(new WrappedLabel(this)) {
  auto* picture = new QLabel(this);
  ShowIcon(*picture, NamedIcon(QStringLiteral("toolbar_129_2785"), theme::kNavy), kPictureSize);
  picture->setAccessibleName(tr("Web search"));
  label_->setObjectName(QStringLiteral("headerLabel"));
  label_->setFont(BoldFont(font()));
  InkWithAccent(*label_);
  QSizePolicy wide(QSizePolicy::Expanding, QSizePolicy::Preferred);
  wide.setHeightForWidth(true);
  label_->setSizePolicy(wide);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(theme::kMargin, 8, theme::kMargin, 9);
  layout->setSpacing(8);
  layout->addWidget(picture, 0, Qt::AlignTop);
  layout->addWidget(label_, 1, Qt::AlignVCenter);
}

void SearchHeader::SetText(const QString& text) {
  label_->setText(text);
  FitWords();
}

void SearchHeader::resizeEvent(QResizeEvent* event) {
  LinedFrame::resizeEvent(event);
  FitWords();
}

// The label breaks a word that is too long for it anywhere.
void SearchHeader::FitWords() {
  const int room = width() - 2 * theme::kMargin - kPictureSize.width() - layout()->spacing();
  const QFont fitting = FontForWords(BoldFont(font()), label_->text(), room);
  if (label_->font() != fitting) label_->setFont(fitting);
}

}  // namespace brovanta
