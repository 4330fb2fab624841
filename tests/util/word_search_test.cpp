#include "util/word_search.h"

#include <gtest/gtest.h>

#include <random>

namespace brovanta {
namespace {

TEST(UpperCaseTest, AsciiLettersFoldAndNothingElseBelow128) {
  for (unsigned character = 0; character < 128; ++character) {
    const bool lower = character >= 'a' && character <= 'z';
    EXPECT_EQ(UpperCase(static_cast<unsigned char>(character)), lower ? character - 32 : character);
  }
}

TEST(UpperCaseTest, AccentedLettersFold) {
  EXPECT_EQ(UpperCase(0xE0), 0xC0);  // a grave
  EXPECT_EQ(UpperCase(0xE9), 0xC9);  // e acute
  EXPECT_EQ(UpperCase(0xF6), 0xD6);  // o diaeresis
  EXPECT_EQ(UpperCase(0xF8), 0xD8);  // o with stroke
  EXPECT_EQ(UpperCase(0xFE), 0xDE);  // thorn
  EXPECT_EQ(UpperCase(0x9A), 0x8A);  // s caron
  EXPECT_EQ(UpperCase(0x9C), 0x8C);  // oe
  EXPECT_EQ(UpperCase(0x9E), 0x8E);  // z caron
  EXPECT_EQ(UpperCase(0xFF), 0x9F);  // y diaeresis
}

TEST(UpperCaseTest, WhatIsNoLowerCaseLetterStays) {
  for (const unsigned character : {0xF7u, 0xDFu, 0xD7u, 0xAAu, 0xBAu, 0xB5u, 0x83u, 0x80u, 0xC9u}) {
    EXPECT_EQ(UpperCase(static_cast<unsigned char>(character)), character);
  }
}

TEST(WordSearchTest, EveryWordMustOccurInAnyOrder) {
  const WordSearch search("milk fresh");
  EXPECT_TRUE(search.AllIn("FRESH MILK 1 GAL"));
  EXPECT_FALSE(search.AllIn("FRESH CREAM"));
  EXPECT_FALSE(search.AllIn(""));
}

TEST(WordSearchTest, OneWordIsEnoughForAny) {
  const WordSearch search("eggs milk");
  EXPECT_TRUE(search.AnyIn("Fresh Milk"));
  EXPECT_FALSE(search.AnyIn("Fresh Cream"));
}

TEST(WordSearchTest, NoWordMatchesAllAndNotAny) {
  for (const char* words : {"", " ", "     "}) {
    const WordSearch search(words);
    EXPECT_TRUE(search.empty());
    EXPECT_TRUE(search.AllIn("anything"));
    EXPECT_TRUE(search.AllIn(""));
    EXPECT_FALSE(search.AnyIn("anything"));
  }
}

TEST(WordSearchTest, WordsAreSubstrings) {
  EXPECT_TRUE(WordSearch("MILK").AllIn("buttermilk"));
  EXPECT_TRUE(WordSearch("utter").AllIn("ButterMilk"));
}

TEST(WordSearchTest, BlanksAtTheEndsAndBetweenAreDropped) {
  const WordSearch search("  milk   egg ");
  EXPECT_FALSE(search.empty());
  EXPECT_TRUE(search.AllIn("eggmilk"));
  EXPECT_FALSE(search.AllIn("egg"));
}

TEST(WordSearchTest, ATabIsPartOfAWord) {
  const WordSearch search("milk\tegg");
  EXPECT_FALSE(search.AllIn("milk egg"));
  EXPECT_TRUE(search.AllIn("MILK\tEGG"));
}

TEST(WordSearchTest, AccentedLettersMatchInEitherCase) {
  EXPECT_TRUE(WordSearch("CAF\xC9").AllIn("caf\xE9 cr\xE8me"));
  EXPECT_TRUE(WordSearch("\xFF\x9C").AllIn("\x9F\x8C"));
  EXPECT_FALSE(WordSearch("cafe").AllIn("caf\xE9"));
  EXPECT_FALSE(WordSearch("\xD7").AllIn("\xF7"));
}

TEST(WordSearchTest, AFalseStartDoesNotHideALaterMatch) {
  EXPECT_TRUE(WordSearch("aab").AllIn("aaaaaaaaaaab"));
  EXPECT_TRUE(WordSearch("milk").AllIn("mi mil milmilk"));
  EXPECT_FALSE(WordSearch("milk").AllIn("mi mil milmil"));
}

TEST(WordSearchTest, AWordLongerThanTheTextDoesNotOccur) {
  EXPECT_FALSE(WordSearch("milky").AllIn("milk"));
  EXPECT_TRUE(WordSearch("milk").AllIn("milk"));
}

// Fold, then search: what the fast search must agree with.
bool SlowOccurs(std::string text, std::string word) {
  for (char& character : text) {
    character = static_cast<char>(UpperCase(static_cast<unsigned char>(character)));
  }
  for (char& character : word) {
    character = static_cast<char>(UpperCase(static_cast<unsigned char>(character)));
  }
  return text.find(word) != std::string::npos;
}

TEST(WordSearchTest, AgreesWithAPlainSearchOnRandomTexts) {
  std::mt19937 random(20240101);
  const std::string letters = "aAbB\xE9\xC9\x9A\x8A\xFF\x9F";
  const auto make = [&](std::size_t longest) {
    std::string text(random() % (longest + 1), ' ');
    for (char& character : text) character = letters[random() % letters.size()];
    return text;
  };
  int matches = 0;
  for (int round = 0; round < 20000; ++round) {
    const std::string text = make(40);
    const std::string word = make(4) + "a";
    const bool expected = SlowOccurs(text, word);
    matches += expected ? 1 : 0;
    ASSERT_EQ(WordSearch(word).AllIn(text), expected) << text << " / " << word;
    ASSERT_EQ(WordSearch(word).AnyIn(text), expected) << text << " / " << word;
  }
  EXPECT_GT(matches, 2000);
  EXPECT_LT(matches, 18000);
}

}  // namespace
}  // namespace brovanta
