#include "ui/base/record_delegate.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QTest>

#include "db/schedule.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/painted_texts.h"
#include "tests/support/zone_guard.h"
#include "ui/base/date_headings.h"
#include "ui/base/record_tree.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

constexpr DateStamp kNoon = 1795262400;  // Saturday 2026-11-21 12:00:00 UTC
constexpr int kWidth = 360;

class RecordDelegateTest : public testing::Test {
 protected:
  RecordDelegateTest() {
    tree_.resize(kWidth, 200);
    tree_.show();
  }

  /// Shows one record and returns its picture.
  QImage Row(RecordContent content, RowDetail detail) {
    DateHeadings headings;
    headings.Add(kNoon, std::move(content), std::move(detail));
    tree_.SetRows(headings.Take());
    return PictureOf(tree_.RecordIndex(0, 0));
  }

  QImage PictureOf(const QModelIndex& row) {
    return tree_.viewport()->grab(tree_.visualRect(row)).toImage();
  }

  /// Leftmost and rightmost column in the rows from `top` to `bottom` that are not ground.
  static std::pair<int, int> Extent(const QImage& image, int top, int bottom) {
    std::pair extent{image.width(), -1};
    for (int y = top; y < bottom; ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == theme::kGround) continue;
        extent = {std::min(extent.first, x), std::max(extent.second, x)};
      }
    }
    return extent;
  }

  /// Whether a pixel near the colour occurs in the lower half.
  static bool LowerHalfHas(const QImage& image, const QColor& color) {
    for (int y = image.height() / 2; y < image.height() - 2; ++y) {
      for (int x = kRowIndent; x < image.width(); ++x) {
        const QColor found = image.pixelColor(x, y);
        const int distance = std::abs(found.red() - color.red()) +
                             std::abs(found.green() - color.green()) +
                             std::abs(found.blue() - color.blue());
        if (distance < 40) return true;
      }
    }
    return false;
  }

  /// Double print on a screen of this width.
  void EnlargePrint(int width) {
    QFont large = tree_.font();
    large.setPixelSize(28);
    tree_.setFont(large);
    tree_.resize(width, 200);
  }

  /// The text that is painted with this beginning.
  test::PaintedText Painted(const std::string& beginning) {
    for (const test::PaintedText& text : test::PaintedTexts(*tree_.viewport(), false)) {
      if (text.text.startsWith(QString::fromStdString(beginning))) return text;
    }
    ADD_FAILURE() << "nothing is painted that begins with " << beginning;
    return {};
  }
  int SizeOf(const std::string& beginning) { return Painted(beginning).pixel_size; }

  test::ZoneGuard zone_{"UTC"};
  test::FixedClock clock_{kNoon};
  RecordTree tree_;
};

TEST_F(RecordDelegateTest, NameStandsLeftAndStoreRight) {
  const QImage name = Row({.name = "Milk"}, {});
  const auto [name_left, name_right] = Extent(name, 0, name.height() / 2);
  EXPECT_GE(name_left, kRowIndent);
  EXPECT_LT(name_right, kWidth / 2);
  const QImage store = Row({.storeName = QStringLiteral("Corner Shop")}, {});
  const auto [store_left, store_right] = Extent(store, 0, store.height() / 2);
  EXPECT_GT(store_left, kWidth / 2);
  EXPECT_LT(store_right, kWidth - 5);
}

TEST_F(RecordDelegateTest, LongStoreTakesAtMost45PercentAndLeavesTheNameItsRoom) {
  const QImage row = Row({.storeName = QString(50, QLatin1Char('M'))}, {});
  const auto [left, right] = Extent(row, 0, row.height() / 2);
  EXPECT_GE(left, kWidth - kWidth * 45 / 100 - 12);
  EXPECT_LT(right, kWidth);
}

TEST_F(RecordDelegateTest, LongNameIsCutBeforeTheStore) {
  const std::string name(50, 'M');
  const QImage alone = Row({.name = name}, {});
  EXPECT_GT(Extent(alone, 0, alone.height() / 2).second, kWidth - 40);
  const QImage both = Row({.name = name, .storeName = QStringLiteral("Corner")}, {});
  const QImage store = Row({.storeName = QStringLiteral("Corner")}, {});
  const int store_left = Extent(store, 0, store.height() / 2).first;
  EXPECT_EQ(both.copy(store_left, 0, 200, 24), store.copy(store_left, 0, 200, 24));
  for (int y = 0; y < 24; ++y) EXPECT_EQ(both.pixelColor(store_left - 2, y), theme::kGround);
}

TEST_F(RecordDelegateTest, ANameWithoutASecondLineStandsInTheMiddle) {
  const QImage row = Row({.id = 1, .name = "HHHH"}, {});
  int top = row.height();
  int bottom = 0;
  for (int y = 0; y < row.height() - 1; ++y) {
    if (Extent(row, y, y + 1).second < 0) continue;
    top = std::min(top, y);
    bottom = y;
  }
  EXPECT_NEAR(top, row.height() - 1 - bottom, 4);
}

TEST_F(RecordDelegateTest, OverdueWordsAreWarmAndOthersQuiet) {
  const QImage overdue = Row({}, {.shows_due = true, .due = kNoon - 2 * 86400});
  EXPECT_TRUE(LowerHalfHas(overdue, theme::kWarm));
  const QImage today = Row({}, {.shows_due = true, .due = kNoon});
  EXPECT_FALSE(LowerHalfHas(today, theme::kWarm));
  EXPECT_TRUE(LowerHalfHas(today, theme::kQuietText));
}

TEST_F(RecordDelegateTest, RecurringRowHasAMarkAtTheRight) {
  const QImage plain = Row({}, {});
  const QImage marked = Row({}, {.recurrence_kind = kDaily, .day_value = 1});
  EXPECT_EQ(Extent(plain, plain.height() / 2, plain.height() - 2).second, -1);
  EXPECT_GT(Extent(marked, marked.height() / 2, marked.height() - 2).first, kWidth - 40);
}

TEST_F(RecordDelegateTest, SelectedRowHasABandWithANavyBar) {
  Row({.name = "Milk"}, {});
  const QModelIndex index = tree_.RecordIndex(0, 0);
  QTest::mouseClick(tree_.viewport(), Qt::LeftButton, {}, tree_.visualRect(index).center());
  const QImage row = PictureOf(index);
  EXPECT_EQ(row.pixelColor(1, 20), theme::kNavy);
  EXPECT_EQ(row.pixelColor(12, 20), theme::kSelection);
}

TEST_F(RecordDelegateTest, HeadingIsABandWithAChevronThatTurns) {
  Row({}, {});
  const QModelIndex heading = tree_.HeadingIndex(0);
  const QImage open = PictureOf(heading);
  EXPECT_EQ(open.pixelColor(2, 2), theme::kBar);
  EXPECT_TRUE(LowerHalfHas(open, theme::kNavy));
  tree_.collapse(heading);
  EXPECT_NE(PictureOf(heading).copy(0, 0, kRowIndent, 28), open.copy(0, 0, kRowIndent, 28));
}

TEST_F(RecordDelegateTest, LargePrintOnANarrowScreenCutsNoWordOfTheRows) {
  EnlargePrint(230);
  Row({.name = "Milk", .storeName = QStringLiteral("Corner Shop")},
      {.shows_due = true, .due = kNoon - 12 * 86400});
  QStringList said;
  for (const test::PaintedText& text : test::PaintedTexts(*tree_.viewport(), false)) {
    said << text.text;
    EXPECT_GE(text.pixel_size, 13) << text.text.toStdString();
  }
  EXPECT_TRUE(said.contains(QStringLiteral("12 days overdue"))) << said.join(u'|').toStdString();
  EXPECT_TRUE(said.contains(QStringLiteral("Corner Shop"))) << said.join(u'|').toStdString();
}

TEST_F(RecordDelegateTest, LargePrintOnANarrowScreenKeepsTheNameTheLargest) {
  EnlargePrint(230);
  Row({.name = "Extra virgin olive oil", .storeName = QStringLiteral("Corner Shop")},
      {.note = QStringLiteral("due")});
  EXPECT_GE(SizeOf("Extra"), SizeOf("due"));
  EXPECT_GT(SizeOf("due"), 14);
}

// It gets smaller so that more of it is read; nothing else of the row stays behind.
TEST_F(RecordDelegateTest, NoWordsOfARowAreLargerThanANameThatGotSmaller) {
  for (const int width : {kWidth, 240}) {
    EnlargePrint(width);
    for (const char* name : {"Two for the price of one", "Extra virgin olive oil, cold pressed"}) {
      Row({.name = name, .storeName = QStringLiteral("Corner Shop")},
          {.shows_due = true, .due = kNoon - 2 * 86400});
      EXPECT_GE(SizeOf(std::string(name, 5)), 20) << name << width;
      EXPECT_GE(SizeOf(std::string(name, 5)), SizeOf("2 days overdue")) << name << width;
      EXPECT_GE(SizeOf(std::string(name, 5)), SizeOf("Corner Shop")) << name << width;
      EXPECT_GE(SizeOf("2 days overdue"), 14) << name << width;
      EXPECT_GE(SizeOf("Corner Shop"), 14) << name << width;
    }
  }
}

// What the smaller store leaves is the name's.
TEST_F(RecordDelegateTest, ANameTakesTheRoomThatASmallerStoreLeaves) {
  EnlargePrint(kWidth);
  Row({.name = "Two for the price of one", .storeName = QStringLiteral("Corner Shop")}, {});
  EXPECT_TRUE(Painted("Two f").text.startsWith(QLatin1String("Two for the price")))
      << Painted("Two f").text.toStdString();
  EXPECT_LE(Painted("Two f").whole.right(), Painted("Corner Shop").whole.left());
}

TEST_F(RecordDelegateTest, AShortNameLeavesTheOthersAsLargeAsTheyAre) {
  EnlargePrint(kWidth);
  Row({.name = "Milk", .storeName = QStringLiteral("Aldi")}, {.note = QStringLiteral("due")});
  EXPECT_EQ(SizeOf("due"), 28);
  EXPECT_EQ(SizeOf("Aldi"), 28);
  EXPECT_GT(SizeOf("Milk"), 28);
}

TEST_F(RecordDelegateTest, ANarrowRowSaysTheBriefForm) {
  tree_.resize(230, 200);
  const auto said = [this](const char* note) {
    Row({.name = "Milk"},
        {.note = QString::fromLatin1(note), .brief = QStringLiteral("-1234.50 until 12/21/2026")});
    QStringList texts;
    for (const test::PaintedText& text : test::PaintedTexts(*tree_.viewport(), false)) {
      texts << text.text;
    }
    return texts;
  };
  EXPECT_TRUE(said("1234.50 off, until the last day")
                  .contains(QStringLiteral("-1234.50 until 12/21/2026")));
  EXPECT_TRUE(said("1.50 off").contains(QStringLiteral("1.50 off")));
}

}  // namespace
}  // namespace brovanta
