#include "search/marker.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <ostream>
#include <random>
#include <string>

#include "tests/search/marker_model.h"

namespace brovanta {

std::ostream& operator<<(std::ostream& out, const MarkerMatch& match) {
  return out << "[" << match.start << ", " << match.length << "]";
}

namespace {

using test::ModelMatch;
using Match = std::optional<MarkerMatch>;

std::string Repeat(std::string_view piece, std::size_t times) {
  std::string text;
  for (std::size_t i = 0; i < times; ++i) text += piece;
  return text;
}

TEST(MarkerTest, PlainTextMatchesAtItsFirstPlace) {
  EXPECT_EQ(MatchMarker("<p><b>Soap</b><b>", "<b>"), (MarkerMatch{3, 3}));
  EXPECT_EQ(MatchMarker("<p>", "<b>"), Match());
}

TEST(MarkerTest, LetterCaseCounts) { EXPECT_EQ(MatchMarker("<B>", "<b>"), Match()); }

TEST(MarkerTest, EmptyMarkerMatchesAtTheStart) {
  EXPECT_EQ(MatchMarker("abc", ""), (MarkerMatch{0, 0}));
}

TEST(MarkerTest, EmptyTextMatchesOnlyTheEmptyMarker) {
  EXPECT_EQ(MatchMarker("", ""), (MarkerMatch{0, 0}));
  for (const char* marker : {"a", "*", "?", "**", "*a"}) {
    EXPECT_EQ(MatchMarker("", marker), Match()) << marker;
  }
}

TEST(MarkerTest, QuestionMarkIsAnyOneCharacter) {
  EXPECT_EQ(MatchMarker("<h1><h2>", "<h?>"), (MarkerMatch{0, 4}));
  EXPECT_EQ(MatchMarker("<h><h2>", "<h?>"), (MarkerMatch{3, 4}));
  EXPECT_EQ(MatchMarker("x", "?"), (MarkerMatch{0, 1}));
}

TEST(MarkerTest, StarSwallowsAttributesUpToTheFirstFollowingCharacter) {
  EXPECT_EQ(MatchMarker("<td><tr class=\"odd\"><b>", "<tr*>"), (MarkerMatch{4, 16}));
}

// The count of a "*" that swallows nothing is -1: the length is that of the text matched.
TEST(MarkerTest, StarOverNothingMakesTheLengthOneLess) {
  EXPECT_EQ(MatchMarker("<tr>", "<tr*>"), (MarkerMatch{0, 4}));
}

TEST(MarkerTest, SeveralStarsAddUp) {
  EXPECT_EQ(MatchMarker("<a href=\"/p\" class=x>", "<a*href=\"*\"*>"), (MarkerMatch{0, 21}));
}

// "*" takes the first following character and does not come back for another one.
TEST(MarkerTest, StarDoesNotTryALaterPlace) {
  EXPECT_EQ(MatchMarker("<a b=1 bc", "<a*bc"), Match());
  EXPECT_EQ(MatchMarker("<a b=1 <a bc", "<a*bc"), (MarkerMatch{7, 5}));
}

TEST(MarkerTest, StarAtTheEndCountsForOneCharacterWhichMustBeThere) {
  EXPECT_EQ(MatchMarker("<tr class", "<tr*"), (MarkerMatch{0, 4}));
  EXPECT_EQ(MatchMarker("<tr>", "<tr*"), (MarkerMatch{0, 4}));
  EXPECT_EQ(MatchMarker("<tr", "<tr*"), Match());
  EXPECT_EQ(MatchMarker("x", "*"), (MarkerMatch{0, 1}));
}

TEST(MarkerTest, TwoStarsLookForAStar) {
  EXPECT_EQ(MatchMarker("ab cd*e", "a**e"), (MarkerMatch{0, 7}));
  EXPECT_EQ(MatchMarker("ab cde", "a**e"), Match());
  EXPECT_EQ(MatchMarker("ab*", "a**"), (MarkerMatch{0, 3}));
  EXPECT_EQ(MatchMarker("ab", "**"), Match());
}

TEST(MarkerTest, StarAndQuestionMarkLookForAQuestionMark) {
  EXPECT_EQ(MatchMarker("find?q=", "f*?q"), (MarkerMatch{0, 6}));
  EXPECT_EQ(MatchMarker("find!q=", "f*?q"), Match());
}

// A text that ends within a match ends the search, whatever the marker's rest.
TEST(MarkerTest, TextThatEndsWithinTheMarkerHasNoMatch) {
  EXPECT_EQ(MatchMarker("aab", "ab?"), Match());
  EXPECT_EQ(MatchMarker("<a x", "<a*>"), Match());
}

TEST(MarkerTest, BytesAbove127AndControlCharactersMatchThemselves) {
  EXPECT_EQ(MatchMarker("a\xE9\x01\xFFz", "\xE9*\xFF"), (MarkerMatch{1, 3}));
}

TEST(MarkerTest, LaterSearchesGoOnFromWhereTheyAreTold) {
  const Marker marker("<*>");
  MarkerSearch search(marker);
  search.Reset("<b><i>x</i>");
  EXPECT_EQ(search.Find(0), (MarkerMatch{0, 3}));
  EXPECT_EQ(search.Find(0), (MarkerMatch{0, 3}));
  EXPECT_EQ(search.Find(1), (MarkerMatch{3, 3}));
  EXPECT_EQ(search.Find(6), (MarkerMatch{7, 4}));
  EXPECT_EQ(search.Find(11), Match());
  search.Reset("<u>");
  EXPECT_EQ(search.Find(0), (MarkerMatch{0, 3}));
}

// Every short text against every short marker of a small alphabet.
TEST(MarkerTest, AgreesWithTheDocumentedStepsOnAllShortOnes) {
  const auto words = [](const std::string& alphabet, std::size_t longest) {
    std::vector<std::string> all{""};
    for (std::size_t i = 0; i < all.size() && all[i].size() < longest; ++i) {
      for (const char character : alphabet) all.push_back(all[i] + character);
    }
    return all;
  };
  const auto texts = words("ab*", 6);
  for (const std::string& marker : words("ab*?", 5)) {
    for (const std::string& text : texts) {
      ASSERT_EQ(MatchMarker(text, marker), ModelMatch(text, marker)) << text << " / " << marker;
    }
  }
}

TEST(MarkerTest, AgreesWithTheDocumentedStepsOnWalksOverATextMadeByChance) {
  std::mt19937 chance(7);
  const auto word = [&chance](const char* alphabet, std::size_t length) {
    std::string text;
    while (text.size() < length) text += alphabet[chance() % std::string_view(alphabet).size()];
    return text;
  };
  for (int round = 0; round < 4000; ++round) {
    const std::string text = word("aab?<", 60 + chance() % 40);
    const std::string written = word("aab*?<", 1 + chance() % 9);
    const Marker marker(written);
    MarkerSearch search(marker);
    search.Reset(text);
    for (std::size_t from = 0; from <= text.size();) {
      const auto match = search.Find(from);
      ASSERT_EQ(match, ModelMatch(text, written, from)) << text << " / " << written << " " << from;
      from = match ? match->start + chance() % 3 : from + 1;
    }
  }
}

// Rows of "*" of every length, where the text has some as well.
TEST(MarkerTest, AgreesWithTheDocumentedStepsOnManyStars) {
  std::mt19937 chance(23);
  const auto word = [&chance](std::string_view alphabet, std::size_t length) {
    std::string text;
    while (text.size() < length) text += alphabet[chance() % alphabet.size()];
    return text;
  };
  int matches = 0;
  for (int round = 0; round < 60'000; ++round) {
    const std::string text = word(round % 2 == 0 ? "ab*?" : "aab**", chance() % 24);
    const std::string marker = word(round % 3 == 0 ? "*****a?" : "**ab", chance() % 14);
    const std::size_t from = chance() % 4;
    const Marker prepared(marker);
    MarkerSearch search(prepared);
    search.Reset(text);
    const auto match = search.Find(from);
    ASSERT_EQ(match, ModelMatch(text, marker, from)) << text << " / " << marker << " " << from;
    matches += match ? 1 : 0;
  }
  EXPECT_GT(matches, 10'000) << "both outcomes were looked at";
  EXPECT_LT(matches, 50'000);
}

TEST(MarkerTest, RowOfStarsCountsAsTwo) {
  const std::string stars(160'000, '*');
  EXPECT_EQ(MatchMarker("ab*cde", stars + "e"), (MarkerMatch{0, 6}));
  EXPECT_EQ(MatchMarker("abcde", stars + "e"), Match());
  EXPECT_EQ(MatchMarker("ab*", stars), (MarkerMatch{0, 3}));
  EXPECT_EQ(Marker(stars).size(), 160'000U) << "as written";
}

TEST(MarkerTest, TextAsLongAsTheMarkersLeastIsLongEnough) {
  EXPECT_EQ(MatchMarker("ab", "*a*b"), (MarkerMatch{0, 2}));
  EXPECT_EQ(MatchMarker("*b", "**b"), (MarkerMatch{0, 2}));
  EXPECT_EQ(MatchMarker("*", "**"), (MarkerMatch{0, 1}));
  EXPECT_EQ(MatchMarker("a", "*a*"), Match());
  EXPECT_EQ(MatchMarker("ab", "*a*"), (MarkerMatch{0, 2}));
}

TEST(MarkerTest, SetFlagEndsTheSearch) {
  std::atomic<std::int32_t> flag{0};
  const Marker marker("b");
  MarkerSearch search(marker, &flag);
  search.Reset("abab");
  EXPECT_EQ(search.Find(0), (MarkerMatch{1, 1}));
  flag = 1;
  EXPECT_EQ(search.Find(2), Match());
}

// Markers so long that they are searched for in another way.
TEST(MarkerTest, AgreesWithTheDocumentedStepsOnHugeMarkers) {
  std::mt19937 chance(11);
  const std::string near = Repeat("ab", 600) + "a";
  for (const std::string& marker :
       {near + "c", near + "?" + near, "x*" + near + "c", near + "*" + near, "*" + near,
        near + "c*", std::string(1100, '?'), std::string("x").append(1100, '?') + "*z"}) {
    for (int round = 0; round < 20; ++round) {
      std::string text = Repeat("ab", chance() % 3000);
      for (int i = 0; i < 3; ++i) text.insert(chance() % (text.size() + 1), 1, "cxz"[i]);
      EXPECT_EQ(MatchMarker(text, marker), ModelMatch(text, marker)) << text.size();
    }
  }
}

TEST(MarkerTest, HugeMarkerIsFoundAtEveryPlaceInTurn) {
  const Marker marker(std::string(2000, 'a'));
  MarkerSearch search(marker);
  const std::string text(2003, 'a');
  search.Reset(text);
  for (std::size_t from = 0; from < 4; ++from) {
    EXPECT_EQ(search.Find(from), (MarkerMatch{from, 2000}));
  }
  EXPECT_EQ(search.Find(4), Match());
}

// Each of these looks at the page's bytes billions of times when it is done step by step.
TEST(MarkerTest, PagesMadeToBeSlowAreNot) {
  const std::size_t page = 64'000;
  const std::string all(page, 'a');
  EXPECT_EQ(MatchMarker(all, "a*x"), Match());
  EXPECT_EQ(MatchMarker(all, "*a*a*x"), Match());
  EXPECT_EQ(MatchMarker(all, std::string(page / 2, 'a') + "b"), Match());
  EXPECT_EQ(MatchMarker(all, std::string(page / 2, 'a') + "?b"), Match());
  EXPECT_EQ(MatchMarker(all + "b", "a*" + std::string(page / 2, 'a') + "c"), Match());
  EXPECT_EQ(MatchMarker(Repeat("az", page / 2), Repeat("az", page / 4) + "*zy"), Match());
  EXPECT_EQ(MatchMarker(Repeat("<", page / 2) + Repeat(">x", page / 4), "<*>y"), Match());
  EXPECT_EQ(MatchMarker(all, Repeat("*a", 500) + "b"), Match());
  EXPECT_EQ(MatchMarker(all, std::string(160'000, '*') + "b"), Match());
  EXPECT_EQ(MatchMarker(all + "*", std::string(160'000, '*') + "b"), Match());
  EXPECT_EQ(MatchMarker(all, Repeat("*a", page) + "*ab"), Match());  // longer than the page
}

}  // namespace
}  // namespace brovanta
