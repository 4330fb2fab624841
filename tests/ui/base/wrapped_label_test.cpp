#include "ui/base/wrapped_label.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QVBoxLayout>

namespace brovanta {
namespace {

/// The columns of the picture from the first to the last that has ink; empty = nothing painted.
QRect Ink(QWidget& widget) {
  const QImage image = widget.grab().toImage();
  QRect ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y).lightness() < 128) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

class WrappedLabelTest : public testing::Test {
 protected:
  int LineHeight() const { return label_.fontMetrics().height(); }
  int Lines(int width) const {
    return (label_.heightForWidth(width) + LineHeight() / 2) / LineHeight();
  }

  WrappedLabel label_;
};

TEST_F(WrappedLabelTest, AWordWiderThanTheLabelIsBroken) {
  label_.setText(QString(2048, QLatin1Char('W')));
  EXPECT_LE(label_.minimumSizeHint().width(), 40);
  EXPECT_GT(Lines(300), 40);
  EXPECT_GT(Lines(150), Lines(300) * 3 / 2);
}

TEST_F(WrappedLabelTest, AShortTextTakesOneLineAndItsOwnWidth) {
  label_.setText(QStringLiteral("A cake of soap"));
  EXPECT_EQ(Lines(300), 1);
  EXPECT_EQ(label_.sizeHint().width(), label_.fontMetrics().size(0, label_.text()).width() + 1);
}

TEST_F(WrappedLabelTest, WordsStayWholeWhereTheyFit) {
  label_.setText(QStringLiteral("wide wide"));
  const int word = label_.fontMetrics().horizontalAdvance(QStringLiteral("wide"));
  EXPECT_EQ(Lines(word + 4), 2);  // and not as many letters as would go onto the first
}

TEST_F(WrappedLabelTest, EachKindOfLineBreakIsKept) {
  for (const char* text : {"a\nb\nc", "a\r\nb\r\nc", "a\rb\rc"}) {
    label_.setText(QString::fromLatin1(text));
    EXPECT_EQ(Lines(300), 3) << text;
  }
}

TEST_F(WrappedLabelTest, MarkupIsShownAsItStands) {
  label_.setText(QStringLiteral("<b>bold</b><br><img src=x>"));
  EXPECT_EQ(Lines(400), 1);
  label_.resize(400, 40);
  EXPECT_GT(Ink(label_).width(), label_.fontMetrics().horizontalAdvance(QStringLiteral("<b>bold")));
}

TEST_F(WrappedLabelTest, PaintsWithinItsWidthWhateverComes) {
  label_.setText(QString(200, QLatin1Char('W')));
  label_.resize(101, label_.heightForWidth(101));
  const QRect ink = Ink(label_);
  EXPECT_FALSE(ink.isEmpty());
  EXPECT_GT(ink.bottom(), label_.height() - LineHeight());
}

TEST_F(WrappedLabelTest, AChangedTextIsLaidOutAnew) {
  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  auto* label = new WrappedLabel(&window);
  layout->addWidget(label);
  layout->addStretch();
  window.resize(200, 600);
  window.show();
  label->setText(QStringLiteral("short"));
  QCoreApplication::processEvents();
  const int low = label->height();
  label->setText(QString(300, QLatin1Char('W')));
  QCoreApplication::processEvents();
  EXPECT_GT(label->height(), 5 * low);
  EXPECT_EQ(window.width(), 200);
  QFont large = label->font();
  large.setPixelSize(40);
  const int before = label->heightForWidth(180);
  label->setFont(large);
  EXPECT_GT(label->heightForWidth(180), 2 * before);
}

TEST_F(WrappedLabelTest, NoTextIsNoTrouble) {
  EXPECT_LE(Lines(100), 1);
  label_.resize(100, 20);
  EXPECT_TRUE(Ink(label_).isEmpty());
  label_.setText(QStringLiteral("x"));
  EXPECT_EQ(Lines(0), 1);
}

}  // namespace
}  // namespace brovanta
