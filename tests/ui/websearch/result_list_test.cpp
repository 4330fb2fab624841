#include "ui/websearch/result_list.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QHeaderView>
#include <QTest>
#include <limits>

namespace brovanta {
namespace {

SearchResultItem Item(std::int32_t id, double price, const char* title) {
  return {.Id = id,
          .Title = title,
          .Text = "Fine",
          .Url = "http://a.example/1",
          .SiteName = "Corner",
          .Price = price,
          .Status = 3};
}

class ResultListTest : public testing::Test {
 protected:
  ResultListTest() {
    list_.resize(360, 300);
    list_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&list_));
  }

  void Show(int count) {
    SearchResultList results;
    for (int i = 1; i <= count; ++i) results.Append({Item(i, i, "Soap")});
    list_.SetResults(results);
  }
  void Show(SearchResultItem item) {
    SearchResultList results;
    results.Append({std::move(item)});
    list_.SetResults(results);
  }
  const ResultRow& Row(int index) {
    return *static_cast<const ResultRow*>(list_.topLevelItem(index));
  }
  QRect RectOf(int index) { return list_.visualItemRect(list_.topLevelItem(index)); }

  ResultList list_;
};

TEST_F(ResultListTest, ThreeResultsGiveAnItemColumn228WideAndFourGive214) {
  Show(3);
  EXPECT_EQ(list_.columnWidth(0), 228);
  Show(4);
  EXPECT_EQ(list_.columnWidth(0), 214);
  Show(0);
  EXPECT_EQ(list_.columnWidth(0), 228);
}

TEST_F(ResultListTest, TheFiveColumnsHaveTheirTitlesAlignmentsAndWidths) {
  Show(1);
  ASSERT_EQ(list_.columnCount(), 5);
  const QStringList titles = {QStringLiteral("Item"), QStringLiteral("Price"),
                              QStringLiteral("Descr"), QStringLiteral("Url"),
                              QStringLiteral("Status")};
  for (int column = 0; column < 5; ++column) {
    EXPECT_EQ(list_.headerItem()->text(column), titles[column]);
    const Qt::Alignment alignment = column == 1 ? Qt::AlignRight : Qt::AlignLeft;
    EXPECT_TRUE(Qt::Alignment(list_.headerItem()->textAlignment(column)) & alignment) << column;
    EXPECT_TRUE(Qt::Alignment(Row(0).data(column, Qt::TextAlignmentRole).toInt()) & alignment);
    EXPECT_EQ(list_.columnWidth(column), column == 0 ? 228 : 0) << column;
  }
  EXPECT_TRUE(list_.header()->isHidden());
  EXPECT_EQ(list_.selectionMode(), QAbstractItemView::SingleSelection);
}

// The price itself is in no column.
TEST_F(ResultListTest, TheColumnsShowSubitems0And2To5) {
  Show(Item(9, 12.5, "Soap"));
  EXPECT_EQ(Row(0).text(0), QStringLiteral("Soap"));
  EXPECT_EQ(Row(0).text(1), QStringLiteral("Corner"));
  EXPECT_EQ(Row(0).text(2), QStringLiteral("Fine"));
  EXPECT_EQ(Row(0).text(3), QStringLiteral("http://a.example/1"));
  EXPECT_EQ(Row(0).text(4), QStringLiteral("3"));
  EXPECT_EQ(Row(0).text(5), QString());
  EXPECT_EQ(Row(0).subitem(kPriceSubitem), QStringLiteral("$12.50"));
  EXPECT_EQ(Row(0).id(), 9);
}

TEST_F(ResultListTest, APriceNotAboveZeroIsOneBlank) {
  EXPECT_EQ(PriceText(0.0), QStringLiteral(" "));
  EXPECT_EQ(PriceText(-3.0), QStringLiteral(" "));
  EXPECT_EQ(PriceText(std::numeric_limits<double>::quiet_NaN()), QStringLiteral(" "));
  EXPECT_EQ(PriceText(0.004), QStringLiteral("$0.00"));
  EXPECT_EQ(PriceText(1299.999), QStringLiteral("$1300.00"));
  Show(Item(1, 0.0, "Soap"));
  EXPECT_EQ(Row(0).subitem(kPriceSubitem), QStringLiteral(" "));
}

// As "%.2f" does: of two that are equally near, the one whose last digit is even.
TEST_F(ResultListTest, APriceBetweenTwoCentsIsRoundedToTheEvenOne) {
  EXPECT_EQ(PriceText(0.125), QStringLiteral("$0.12"));
  EXPECT_EQ(PriceText(2.625), QStringLiteral("$2.62"));
  EXPECT_EQ(PriceText(0.375), QStringLiteral("$0.38"));
}

TEST_F(ResultListTest, RowsStandInTheOrderOfTheList) {
  SearchResultList results;
  results.Append({Item(4, 9, "b"), Item(5, 3, "a"), Item(6, 7, "c")});
  list_.SetResults(results);
  EXPECT_EQ(Row(0).id(), 4);
  EXPECT_EQ(Row(1).id(), 5);
  EXPECT_EQ(Row(2).id(), 6);
}

TEST_F(ResultListTest, TextsAreUtf8WhereTheyCanBe) {
  SearchResultItem item = Item(1, 1, "Caf\xC3\xA9 \xE2\x82\xAC");
  item.SiteName = "Caf\xE9";
  Show(item);
  EXPECT_EQ(Row(0).subitem(kTitleSubitem), QStringLiteral("Caf\u00E9 \u20AC"));
  EXPECT_EQ(Row(0).subitem(kWebSiteSubitem), QStringLiteral("Caf\u00E9"));
}

TEST_F(ResultListTest, MissingTextsAreEmpty) {
  Show(SearchResultItem());
  for (int column = 0; column < 4; ++column) EXPECT_EQ(Row(0).text(column), QString()) << column;
}

TEST_F(ResultListTest, ARowIsTappedAcrossTheWholeList) {
  Show(2);
  const QRect row = RectOf(1);
  EXPECT_EQ(row.left(), 0);
  EXPECT_EQ(row.width(), list_.viewport()->width());
  EXPECT_GE(row.height(), 40);
  QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, row.center() + QPoint(175, 0));
  ASSERT_NE(list_.Selected(), nullptr);
  EXPECT_EQ(list_.Selected()->id(), 2);
  EXPECT_FALSE(list_.indexAt({5, 250}).isValid());
  EXPECT_FALSE(list_.indexAt({-1, 5}).isValid());
}

TEST_F(ResultListTest, AllRowsAreEquallyHighWhateverTheyHold) {
  SearchResultList results;
  results.Append({Item(1, 1, "short"), Item(2, 2, "two\nlines"), SearchResultItem()});
  list_.SetResults(results);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(RectOf(i).height(), 48) << i;
}

TEST_F(ResultListTest, RemovingARowSelectsNoOtherAndKeepsTheWidth) {
  Show(4);
  QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, RectOf(1).center());
  list_.RemoveSelected();
  ASSERT_EQ(list_.topLevelItemCount(), 3);
  EXPECT_EQ(Row(0).id(), 1);
  EXPECT_EQ(Row(1).id(), 3);
  EXPECT_EQ(list_.Selected(), nullptr);
  EXPECT_EQ(list_.columnWidth(0), 214);
  list_.RemoveSelected();
  EXPECT_EQ(list_.topLevelItemCount(), 3);
}

TEST_F(ResultListTest, AScreenReaderHearsTitlePriceAndShop) {
  Show(2);
  EXPECT_EQ(Row(1).data(0, Qt::AccessibleTextRole).toString(),
            QStringLiteral("Soap, $2.00, Corner"));
  Show(Item(1, 0, "Soap\r\n cake"));
  EXPECT_EQ(Row(0).data(0, Qt::AccessibleTextRole).toString(), QStringLiteral("Soap cake, Corner"));
}

TEST_F(ResultListTest, AScreenReaderHearsARowOnce) {
  Show(1);
  EXPECT_EQ(RectOf(0).top(), 0) << "laid out";
  QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(&list_);
  ASSERT_NE(list, nullptr);
  for (int column = 0; column < 5; ++column) {
    QAccessibleInterface* const cell = list->tableInterface()->cellAt(0, column);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->state().invisible, column > 0) << column;
    EXPECT_EQ(cell->text(QAccessible::Name).trimmed().isEmpty(), column > 0) << column;
  }
}

}  // namespace
}  // namespace brovanta
