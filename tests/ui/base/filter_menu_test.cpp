#include "ui/base/filter_menu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QSignalSpy>
#include <QTest>

#include "ui/base/color_button.h"

namespace brovanta {
namespace {

using testing::ElementsAre;
using testing::Pair;

NameList Names(const std::vector<std::pair<std::int32_t, std::string>>& entries) {
  NameList names;
  for (const auto& [id, name] : entries) names.Insert({.Id = id, .Name = FixedText<50>(name)});
  return names;
}

std::vector<std::pair<int, std::string>> Entries(const QMenu& menu) {
  std::vector<std::pair<int, std::string>> entries;
  for (const QAction* action : menu.actions()) {
    entries.emplace_back(action->data().toInt(), action->text().toStdString());
  }
  return entries;
}

class FilterMenuTest : public testing::Test {
 protected:
  static std::vector<std::pair<int, std::string>> Built(const NameList& names,
                                                        Nameless nameless = Nameless::kEnd) {
    return Entries(*BuildFilterMenu(kStoreCommands, QStringLiteral("All Stores"), names, nameless));
  }

  ColorButton button_;
  NameFilter filter_{button_, kStoreCommands, QStringLiteral("All Stores"),
                     ColorButton::kPictureLeft};
};

TEST_F(FilterMenuTest, NameOf14CharactersIsShownWholeAndOneOf15Shortened) {
  EXPECT_EQ(ShortenedName(QStringLiteral("ABCDEFGHIJKLMN")).toStdString(), "ABCDEFGHIJKLMN");
  EXPECT_EQ(ShortenedName(QStringLiteral("ABCDEFGHIJKLMNO")).toStdString(), "ABCDEFGHIJK...");
  EXPECT_EQ(ShortenedName(QString()).toStdString(), "");
}

TEST_F(FilterMenuTest, ASearchOf24CharactersIsShownWholeAndOneOf25Shortened) {
  EXPECT_EQ(ShortenedSearch(QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWX")).toStdString(),
            "ABCDEFGHIJKLMNOPQRSTUVWX");
  EXPECT_EQ(ShortenedSearch(QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXY")).toStdString(),
            "ABCDEFGHIJKLMNOPQRSTU...");
}

TEST_F(FilterMenuTest, MenuListsAllAndThenTheNamesByAscendingId) {
  EXPECT_THAT(Built(Names({{5001, "Zoo"}, {12, "Fresh"}})),
              ElementsAre(Pair(10000, "All Stores"), Pair(10012, "Fresh"), Pair(15001, "Zoo")));
}

TEST_F(FilterMenuTest, NoNamesLeaveOnlyAll) {
  EXPECT_THAT(Built(NameList()), ElementsAre(Pair(10000, "All Stores")));
}

TEST_F(FilterMenuTest, MenuStopsAtAnEntryWithoutAName) {
  EXPECT_THAT(Built(Names({{1, "Fresh"}, {2, ""}, {3, "Zoo"}})),
              ElementsAre(Pair(10000, "All Stores"), Pair(10001, "Fresh")));
}

TEST_F(FilterMenuTest, OrPassesByAnEntryWithoutAName) {
  EXPECT_THAT(Built(Names({{1, "Fresh"}, {2, ""}, {3, "Zoo"}}), Nameless::kPassedBy),
              ElementsAre(Pair(10000, "All Stores"), Pair(10001, "Fresh"), Pair(10003, "Zoo")));
}

TEST_F(FilterMenuTest, IdsThatWouldReachTheNextMenuAreLeftOut) {
  EXPECT_THAT(Built(Names({{9999, "Last"}, {10000, "Beyond"}})),
              ElementsAre(Pair(10000, "All Stores"), Pair(19999, "Last")));
}

TEST_F(FilterMenuTest, AmpersandInANameIsShownAsOne) {
  EXPECT_THAT(Built(Names({{1, "Fresh & Co"}})),
              ElementsAre(Pair(10000, "All Stores"), Pair(10001, "Fresh && Co")));
}

TEST_F(FilterMenuTest, TabsAndLineBreaksInANameArePlainBlanks) {
  EXPECT_THAT(Built(Names({{1, "x\ty\nz"}})),
              ElementsAre(Pair(10000, "All Stores"), Pair(10001, "x y z")));
}

TEST_F(FilterMenuTest, AccentedNamesAreWidened) {
  const auto menu = BuildFilterMenu(kCategoryCommands, QStringLiteral("All Categories"),
                                    Names({{1, "R\xF6stwerk"}}), Nameless::kEnd);
  EXPECT_EQ(menu->actions().at(1)->text(), QStringLiteral(u"R\u00F6stwerk"));
  EXPECT_EQ(menu->actions().at(1)->data().toInt(), 20001);
}

TEST_F(FilterMenuTest, ButtonStartsWithAll) {
  EXPECT_EQ(button_.text().toStdString(), "All Stores");
  EXPECT_EQ(button_.first_picture(), 134);
}

TEST_F(FilterMenuTest, ChoosingInTheMenuSendsTheCommand) {
  filter_.BuildMenu(Names({{7, "Fresh"}}));
  const QSignalSpy chosen(&filter_, &NameFilter::Chosen);
  button_.show();
  QTest::mouseClick(&button_, Qt::LeftButton);
  ASSERT_TRUE(button_.menu()->isVisible());
  QTest::mouseClick(button_.menu(), Qt::LeftButton, {},
                    button_.menu()->actionGeometry(button_.menu()->actions().at(1)).center());
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(chosen.at(0).at(0).toInt(), 10007);
  EXPECT_FALSE(button_.menu()->isVisible());
}

TEST_F(FilterMenuTest, NewMenuTakesThePlaceOfTheOldOne) {
  filter_.BuildMenu(Names({{7, "Fresh"}}));
  filter_.BuildMenu(Names({{8, "Zoo"}}));
  EXPECT_THAT(Entries(*button_.menu()), ElementsAre(Pair(10000, "All Stores"), Pair(10008, "Zoo")));
}

TEST_F(FilterMenuTest, ChoiceIsShownByItsName) {
  const NameList all = Names({{7, "Fresh & Company"}, {8, "Zoo"}});
  filter_.ShowChoice(10008, all);
  EXPECT_EQ(button_.text().toStdString(), "Zoo");
  filter_.ShowChoice(10007, all);
  EXPECT_EQ(button_.text().toStdString(), "Fresh & Com...");
  EXPECT_TRUE(button_.shortcut().isEmpty());
  filter_.ShowChoice(10000, all);
  EXPECT_EQ(button_.text().toStdString(), "All Stores");
}

TEST_F(FilterMenuTest, UnknownIdLeavesTheTextAsItIs) {
  const NameList all = Names({{8, "Zoo"}});
  filter_.ShowChoice(10008, all);
  filter_.ShowChoice(10009, all);
  EXPECT_EQ(button_.text().toStdString(), "Zoo");
  filter_.Reset();
  EXPECT_EQ(button_.text().toStdString(), "All Stores");
}

}  // namespace
}  // namespace brovanta
