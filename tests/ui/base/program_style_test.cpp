#include "ui/base/program_style.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOptionMenuItem>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

#include "tests/support/painted_texts.h"
#include "tests/support/text_contrast.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

class PaletteGuard {
 public:
  ~PaletteGuard() { UseDarkPalette(false); }
};

TEST(ProgramStyleTest, ColorsStandOutFromEveryGroundTheyAreShownOn) {
  const PaletteGuard guard;
  for (const bool dark : {false, true}) {
    UseDarkPalette(dark);
    for (const QColor text : {theme::kText, theme::kNavy, theme::kQuietText, theme::kWarm}) {
      for (const QColor ground : {theme::kGround, theme::kBar, theme::kSelection}) {
        EXPECT_GE(test::Contrast(text, ground), 4.5)
            << text.name().toStdString() << " on " << ground.name().toStdString();
      }
    }
    EXPECT_GE(test::Contrast(theme::kFieldLine, theme::kGround), 3.0);
  }
}

TEST(ProgramStyleTest, FieldsAndButtonsAreAFingerHigh) {
  QComboBox combo;
  QComboBox editable;
  editable.setEditable(true);
  QDateEdit date;
  date.setCalendarPopup(true);
  const QList<QWidget*> widgets = {new QLineEdit, new QPushButton(QStringLiteral("OK")),
                                   new QCheckBox(QStringLiteral("Apply")), new QToolButton};
  for (QWidget* widget : QList<QWidget*>{&combo, &editable, &date} + widgets) {
    EXPECT_GE(widget->sizeHint().height(), theme::kFingerHeight)
        << widget->metaObject()->className();
  }
  qDeleteAll(widgets);
}

TEST(ProgramStyleTest, ATextOfTwiceTheSizeMakesFieldsHigher) {
  QLineEdit edit;
  QFont font = edit.font();
  font.setPixelSize(48);
  edit.setFont(font);
  EXPECT_GE(edit.sizeHint().height(), QFontMetrics(font).height());
}

TEST(ProgramStyleTest, RowsOfADropDownListAreAFingerHigh) {
  QComboBox combo;
  combo.addItems({QStringLiteral("one"), QStringLiteral("two")});
  combo.show();
  combo.showPopup();
  EXPECT_GE(combo.view()->sizeHintForRow(0), theme::kFingerHeight);
  combo.hidePopup();
}

TEST(ProgramStyleTest, RowsOfAnOrdinaryListKeepTheirHeight) {
  QListWidget list;
  list.addItem(QStringLiteral("one"));
  EXPECT_LT(list.sizeHintForRow(0), theme::kFingerHeight);
}

TEST(ProgramStyleTest, MenuCommandsAreAFingerHighAndSeparatorsAreNot) {
  QMenu menu;
  const QAction* command = menu.addAction(QStringLiteral("Add"));
  QAction* separator = menu.addSeparator();
  menu.addAction(QStringLiteral("Options"));
  menu.ensurePolished();
  EXPECT_GE(menu.actionGeometry(const_cast<QAction*>(command)).height(), theme::kFingerHeight);
  EXPECT_LT(menu.actionGeometry(separator).height(), theme::kFingerHeight / 2);
}

TEST(ProgramStyleTest, ScrollBarIsSlimAndItsSliderFollowsTheValue) {
  QScrollBar bar(Qt::Vertical);
  bar.resize(bar.sizeHint().width(), 200);
  EXPECT_LE(bar.sizeHint().width(), 12);
  bar.setRange(0, 100);
  bar.setPageStep(100);
  QStyleOptionSlider option;
  const auto slider = [&] {
    option.initFrom(&bar);
    option.orientation = Qt::Vertical;
    option.maximum = 100;
    option.pageStep = 100;
    option.sliderPosition = bar.value();
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider,
                                       &bar);
  };
  EXPECT_EQ(slider(), QRect(0, 0, bar.width(), 100));
  bar.setValue(100);
  EXPECT_EQ(slider(), QRect(0, 100, bar.width(), 100));
}

TEST(ProgramStyleTest, TheSliderOfAVeryLongListCanStillBeSeen) {
  QScrollBar bar(Qt::Horizontal);
  QStyleOptionSlider option;
  option.rect = QRect(0, 0, 200, 10);
  option.orientation = Qt::Horizontal;
  option.maximum = 1000000;
  option.pageStep = 10;
  option.sliderPosition = 1000000;
  const QRect slider =
      bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar);
  EXPECT_EQ(slider, QRect(168, 0, 32, 10));
}

TEST(ProgramStyleTest, TabsWithATextAreAFingerHighAndThoseWithAPictureAreNot) {
  QTabBar pictures;
  pictures.addTab(QIcon(), QString());
  EXPECT_LT(pictures.sizeHint().height(), theme::kFingerHeight);
  QTabBar texts;
  texts.addTab(QStringLiteral("Notes"));
  EXPECT_GE(texts.sizeHint().height(), theme::kFingerHeight);
}

/// A menu's entry as the style paints it.
class EntryPainter : public QWidget {
 public:
  QStyleOptionMenuItem option;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    style()->drawControl(QStyle::CE_MenuItem, &option, &painter, this);
  }
};

TEST(ProgramStyleTest, AMenusEntryInLargePrintGetsSmallerWithItsKey) {
  EntryPainter entry;
  entry.resize(236, 41);
  entry.addAction(QStringLiteral("Purchase"));  // the widest one sets the size of all
  entry.option.rect = entry.rect();
  entry.option.font = entry.font();
  entry.option.font.setPixelSize(28);
  entry.option.text = QStringLiteral("Add\tCtrl+P");
  entry.option.reservedShortcutWidth =
      QFontMetrics(entry.option.font).horizontalAdvance(QStringLiteral("Ctrl+P"));
  const QList<test::PaintedText> texts = test::PaintedTexts(entry);
  ASSERT_EQ(texts.size(), 2);
  for (const test::PaintedText& text : texts) {
    EXPECT_LT(text.pixel_size, 28) << text.text.toStdString();
    EXPECT_GE(text.pixel_size, theme::kLeastTextPixels) << text.text.toStdString();
    EXPECT_LE(text.whole.right(), entry.width()) << text.text.toStdString();
    EXPECT_FALSE(text.text.contains(QChar(0x2026))) << text.text.toStdString();
  }
}

TEST(ProgramStyleTest, RowsThatOneChoosesFromAreWrittenInOneSize) {
  QComboBox combo;
  QFont large = combo.font();
  large.setPixelSize(28);
  combo.setFont(large);
  combo.addItems({QStringLiteral("Once"), QStringLiteral("Every few weeks")});
  combo.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo.resize(180, combo.sizeHint().height());
  combo.show();
  combo.showPopup();
  const QList<test::PaintedText> texts = test::PaintedTexts(*combo.view()->viewport(), false);
  ASSERT_EQ(texts.size(), 2);
  EXPECT_EQ(texts[0].pixel_size, texts[1].pixel_size);
  EXPECT_LT(texts[0].pixel_size, 28);
  EXPECT_EQ(texts[1].text.toStdString(), "Every few weeks");
  combo.hidePopup();
}

}  // namespace
}  // namespace brovanta
