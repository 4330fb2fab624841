#include "tests/ui/reach/cut_text.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QDateEdit>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <algorithm>

#include "tests/support/painted_texts.h"
#include "tests/ui/reach/screens.h"
#include "tests/ui/reach/sentences.h"

namespace brovanta::test {
namespace {

constexpr int kLeastPrint = 13;          // of what is beside the main text of a row
constexpr int kLeastCalendarPrint = 11;  // its columns are as narrow as a seventh of the screen
constexpr qreal kTouch = 2;              // pixels in which no letter has its ink
const QChar kDots(0x2026);

/// What people have typed, in the data of the screens.
bool IsTyped(const QString& cut) {
  static const QStringList kTyped{QLatin1String(kLongName),
                                  QLatin1String(kLongTitle),
                                  QStringLiteral("Mediterranean Delicatessen & Wine"),
                                  QStringLiteral("Oil, vinegar and spices"),
                                  QStringLiteral("Two for the price of one on everything"),
                                  QStringLiteral("Two for the price.."),
                                  QStringLiteral("Spring offer"),
                                  QStringLiteral("Corner Shop"),
                                  QStringLiteral("Corner.."),
                                  QStringLiteral("coffee machine")};
  const QString start = cut.section(kDots, 0, 0);
  const QString end = cut.section(kDots, -1);
  return std::any_of(kTyped.cbegin(), kTyped.cend(), [&](const QString& typed) {
    return typed.startsWith(start) && typed.endsWith(end);
  });
}

/// Sentences that end in dots of their own, and so the last line of one that is wrapped.
bool IsEndOfASentence(const QString& text) {
  static const QStringList kWithDots = GermanTexts().filter(kDots);
  return std::any_of(kWithDots.cbegin(), kWithDots.cend(),
                     [&text](const QString& sentence) { return sentence.endsWith(text); });
}

template <typename Owner>
Owner* OwnerOf(const QWidget& widget) {
  QWidget* parent = widget.parentWidget();
  while (parent != nullptr && qobject_cast<Owner*>(parent) == nullptr) {
    parent = parent->parentWidget();
  }
  return static_cast<Owner*>(parent);
}

bool MovesItsText(const QWidget& widget) {
  if (qobject_cast<const QLineEdit*>(&widget) != nullptr) {
    return OwnerOf<QDateEdit>(widget) == nullptr;
  }
  return qobject_cast<QPlainTextEdit*>(widget.parentWidget()) != nullptr;
}

/// Rows are scrolled to, as the entries of a long menu; the words of an empty list are not.
bool ScrollsUpAndDown(const QWidget& widget) {
  const auto* const menu = qobject_cast<const QMenu*>(&widget);
  if (menu != nullptr) return menu->sizeHint().height() > menu->height();
  const auto* const list = qobject_cast<QAbstractItemView*>(widget.parentWidget());
  return list != nullptr && list->model()->rowCount() > 0;
}

class TextsOfAWidget {
 public:
  TextsOfAWidget(QWidget& widget, QStringList& complaints)
      : widget_(widget), complaints_(complaints), texts_(PaintedTexts(widget, false)) {}

  void Judge() {
    const bool calendar = OwnerOf<QCalendarWidget>(widget_) != nullptr;
    for (qsizetype i = 0; i < texts_.size(); ++i) {
      const PaintedText& text = texts_[i];
      const bool dots = text.text.contains(kDots);
      if (dots && !IsTyped(text.text) && !IsEndOfASentence(text.text)) {
        Say(text, QStringLiteral("is cut"));
      }
      if (text.pixel_size < (calendar ? kLeastCalendarPrint : kLeastPrint)) {
        Say(text, QStringLiteral("is only %1 high").arg(text.pixel_size));
      }
      JudgePlace(text);
      for (qsizetype j = 0; j < i; ++j) {
        const QRectF both = text.whole & texts_[j].whole;
        if (both.width() > kTouch && both.height() > 2 * kTouch) {
          Say(text, QStringLiteral("is over \"%1\"").arg(texts_[j].text));
        }
      }
    }
  }

 private:
  void JudgePlace(const PaintedText& text) {
    const QRectF room(widget_.rect());
    const bool beside = text.whole.left() < -kTouch || text.whole.right() > room.right() + kTouch;
    const bool beyond = text.whole.top() < -kTouch || text.whole.bottom() > room.bottom() + kTouch;
    if (beside || (beyond && !ScrollsUpAndDown(widget_))) {
      Say(text, QStringLiteral("takes %1,%2 %3x%4 of %5x%6")
                    .arg(text.whole.x())
                    .arg(text.whole.y())
                    .arg(text.whole.width())
                    .arg(text.whole.height())
                    .arg(room.width())
                    .arg(room.height()));
    } else if (text.shown.width() < text.whole.width() - kTouch) {
      Say(text, QStringLiteral("is shown in %1 of %2 pixels")
                    .arg(text.shown.width())
                    .arg(text.whole.width()));
    }
  }

  void Say(const PaintedText& text, const QString& what) {
    QString name = widget_.objectName();
    if (name.isEmpty()) name = QLatin1String(widget_.metaObject()->className());
    complaints_ << QStringLiteral("%1: \"%2\" %3").arg(name, text.text, what);
  }

  QWidget& widget_;
  QStringList& complaints_;
  QList<PaintedText> texts_;
};

}  // namespace

QStringList CutTexts(QWidget& screen) {
  QStringList complaints;
  QList<QWidget*> widgets = screen.findChildren<QWidget*>();
  widgets << &screen;
  for (QWidget* widget : widgets) {
    if (!widget->isVisible() || MovesItsText(*widget)) continue;
    TextsOfAWidget(*widget, complaints).Judge();
  }
  return complaints;
}

}  // namespace brovanta::test
