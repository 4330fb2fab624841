#include "net/http/body_pieces.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace brovanta {
namespace {

using std::string_literals::operator""s;

// The two bytes of each character as a unit.
std::string Units(std::string_view text) {
  std::string units;
  for (const char character : text) units += {character, '\0'};
  return units;
}

template <typename Body>
std::string Whole(std::string_view bytes) {
  const std::atomic<std::int32_t> flag{0};
  Body body(flag);
  if (body.Take(bytes) == PieceResult::kGoOn) {
    EXPECT_EQ(body.Finish(), PieceResult::kGoOn) << "full in the last piece";
  }
  return body.TakeBytes();
}

// The result of the last piece taken.
template <typename Body>
PieceResult ResultOf(std::string_view bytes) {
  const std::atomic<std::int32_t> flag{0};
  Body body(flag);
  const PieceResult result = body.Take(bytes);
  return result == PieceResult::kGoOn ? body.Finish() : result;
}

TEST(ByteBodyTest, KeepsATextAsItCame) {
  EXPECT_EQ(Whole<ByteBody>(""), "");
  EXPECT_EQ(Whole<ByteBody>("<html>\r\n\xE9</html>"), "<html>\r\n\xE9</html>");
  const std::string two_and_a_half(2560, 'x');
  EXPECT_EQ(Whole<ByteBody>(two_and_a_half), two_and_a_half);
}

TEST(ByteBodyTest, ZeroShortensItsPieceOnly) {
  const std::string first = std::string(1000, 'a') + '\0' + std::string(23, 'b');
  const std::string second(1024, 'c');
  EXPECT_EQ(Whole<ByteBody>(first + second + "d"), std::string(1000, 'a') + second + "d");
}

TEST(ByteBodyTest, PieceThatBeginsWithZeroAddsNothingAndDoesNotEndTheBody) {
  const std::string empty = '\0' + std::string(1023, 'a');
  EXPECT_EQ(Whole<ByteBody>(empty + "rest"), "rest");
  EXPECT_EQ(Whole<ByteBody>(std::string(4096, '\0')), "");
}

TEST(ByteBodyTest, LongestBodyIsKeptWhole) {
  const std::string longest(319'999, 'x');
  EXPECT_EQ(Whole<ByteBody>(longest), longest);
  EXPECT_EQ(ResultOf<ByteBody>(longest), PieceResult::kGoOn);
}

TEST(ByteBodyTest, PieceThatGoesOverIsDroppedWholeWithAllBehindIt) {
  // 312 pieces of 1,024 are 319,488.
  const std::atomic<std::int32_t> flag{0};
  ByteBody body(flag);
  ASSERT_EQ(body.Take(std::string(320'000, 'x')), PieceResult::kGoOn);
  EXPECT_EQ(body.Finish(), PieceResult::kFull);
  EXPECT_EQ(body.bytes(), std::string(319'488, 'x'));
  EXPECT_EQ(ResultOf<ByteBody>(std::string(5'000'000, 'x')), PieceResult::kFull);
  EXPECT_EQ(Whole<ByteBody>(std::string(5'000'000, 'x')).size(), 319'488U);
}

TEST(ByteBodyTest, WhatAZeroCutsOffDoesNotCountTowardsTheLimit) {
  // Each of these pieces counts 1,000, so 319 of them leave room for 999 bytes.
  std::string bytes;
  for (int i = 0; i < 319; ++i) bytes += std::string(1000, 'a') + std::string(24, '\0');
  EXPECT_EQ(Whole<ByteBody>(bytes + std::string(999, 'b')),
            std::string(319'000, 'a') + std::string(999, 'b'));
  EXPECT_EQ(ResultOf<ByteBody>(bytes + std::string(1000, 'b')), PieceResult::kFull);
}

TEST(UnitBodyTest, OrdinaryTextPassesByteForByte) {
  const std::string text = "<IT><ID>1</ID>\r\n<NM>Caf\xE9</NM></IT>\r\n\n\r";
  ASSERT_EQ(text.size() % 2, 0U);
  EXPECT_EQ(Whole<UnitBody>(text), text);
  EXPECT_EQ(Whole<UnitBody>("x" + text + "y"), "x" + text + "y");
}

TEST(UnitBodyTest, CarriageReturnUnitIsDropped) {
  EXPECT_EQ(Whole<UnitBody>(Units("a\r\nb\r")), Units("a\nb"));
  // The same two bytes across two units are none.
  EXPECT_EQ(Whole<UnitBody>("a\r\0b"s), "a\r\0b"s);
}

TEST(UnitBodyTest, ZeroUnitCutsItsLineOnly) {
  EXPECT_EQ(Whole<UnitBody>(Units("ab\0cd\nef\n"s)), Units("abef\n"));
  EXPECT_EQ(Whole<UnitBody>(Units("\0gone\nkept"s)), Units("kept"));
}

TEST(UnitBodyTest, ZeroUnitCutsItsPieceOf1024) {
  const std::string bytes = Units("a\0"s + std::string(1022, 'b') + "next");
  EXPECT_EQ(Whole<UnitBody>(bytes), Units("anext"));
}

TEST(UnitBodyTest, DroppedUnitsDoNotCountInAPiece) {
  // Behind the dropped unit the piece still takes 1,024; only then comes the next.
  const std::string bytes = Units("a\r\0"s + std::string(1022, 'b') + "next");
  EXPECT_EQ(Whole<UnitBody>(bytes), Units("anext"));
}

TEST(UnitBodyTest, ZeroBytesInTwoUnitsAreNoZeroUnit) {
  EXPECT_EQ(Whole<UnitBody>("a\0\0b"s), "a\0\0b"s);
}

TEST(UnitBodyTest, OddLastByteIsKept) {
  EXPECT_EQ(Whole<UnitBody>("abc"), "abc");
  EXPECT_EQ(Whole<UnitBody>("x"), "x");
  EXPECT_EQ(Whole<UnitBody>("ab\r"), "ab\r");
  EXPECT_EQ(Whole<UnitBody>("ab\0"s), "ab\0"s);
  EXPECT_EQ(Whole<UnitBody>(std::string(2049, 'x')), std::string(2049, 'x'));
}

TEST(UnitBodyTest, OddLastByteBehindAZeroUnitGoesWithThePiece) {
  EXPECT_EQ(Whole<UnitBody>("ab\0\0c"s), "ab");
}

TEST(UnitBodyTest, LongestBodyIsKeptWhole) {
  const std::string longest(639'998, 'x');
  EXPECT_EQ(Whole<UnitBody>(longest), longest);
  EXPECT_EQ(ResultOf<UnitBody>(longest), PieceResult::kGoOn);
}

TEST(UnitBodyTest, PieceThatGoesOverIsDroppedWholeWithAllBehindIt) {
  for (const std::size_t size : {639'999U, 640'000U, 640'001U, 5'000'000U}) {
    EXPECT_EQ(ResultOf<UnitBody>(std::string(size, 'x')), PieceResult::kFull) << size;
  }
  const std::atomic<std::int32_t> flag{0};
  UnitBody body(flag);
  ASSERT_EQ(body.Take(std::string(640'000, 'x')), PieceResult::kGoOn);
  EXPECT_EQ(body.Finish(), PieceResult::kFull);
  EXPECT_EQ(body.bytes(), std::string(638'976, 'x'));  // 312 x 1,024 units
}

TEST(UnitBodyTest, LinesAreDroppedWholeToo) {
  // Lines of 100 units: 3,199 of them are 319,900; the next would make 320,000.
  std::string lines;
  for (int i = 0; i < 3200; ++i) lines += Units(std::string(99, 'x') + "\n");
  EXPECT_EQ(ResultOf<UnitBody>(lines), PieceResult::kFull);
  EXPECT_EQ(Whole<UnitBody>(lines), lines.substr(0, 639'800));
}

template <typename Body>
class EachBody : public testing::Test {};
using Bodies = testing::Types<ByteBody, UnitBody>;
TYPED_TEST_SUITE(EachBody, Bodies);

TYPED_TEST(EachBody, FlagIsLookedAtBeforeEveryPiece) {
  std::atomic<std::int32_t> flag{0};
  TypeParam body(flag);
  ASSERT_EQ(body.Take(std::string(2048, 'x')), PieceResult::kGoOn);
  flag = -1;
  EXPECT_EQ(body.Take("y"), PieceResult::kGoOn);  // no whole piece yet
  EXPECT_EQ(body.Finish(), PieceResult::kCancelled);
  EXPECT_EQ(body.bytes(), std::string(2048, 'x'));
}

TYPED_TEST(EachBody, FlagIsLookedAtBeforeTheLimit) {
  std::atomic<std::int32_t> flag{1};
  TypeParam body(flag);
  EXPECT_EQ(body.Take(std::string(5'000'000, 'x')), PieceResult::kCancelled);
  EXPECT_EQ(body.bytes(), "");
}

TYPED_TEST(EachBody, ResultDoesNotDependOnTheCuts) {
  std::mt19937 random(1);
  const std::string alphabet("\0\0\n\r\0ab\xFF", 8);
  const std::atomic<std::int32_t> flag{0};
  for (const std::size_t size : {1U, 2U, 1023U, 1024U, 1025U, 2047U, 2049U, 40'001U, 700'000U}) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) {
      // Long runs without a zero as well, so that the limit is reached.
      bytes += i % 8192 < 64 ? alphabet[random() % alphabet.size()] : 'x';
    }
    TypeParam whole(flag);
    PieceResult expected = whole.Take(bytes);
    if (expected == PieceResult::kGoOn) expected = whole.Finish();

    TypeParam cut(flag);
    PieceResult result = PieceResult::kGoOn;
    for (std::size_t at = 0; at < size && result == PieceResult::kGoOn;) {
      const std::size_t count = 1 + random() % 3000;
      result = cut.Take(std::string_view(bytes).substr(at, count));
      at += count;
    }
    if (result == PieceResult::kGoOn) result = cut.Finish();
    EXPECT_EQ(result, expected) << size;
    EXPECT_EQ(cut.bytes(), whole.bytes()) << size;
  }
}

// The reading of units, written down once more as plainly as possible.
std::string PlainlyReadUnits(const std::string& bytes) {
  std::string kept;
  std::size_t total = 0;
  std::size_t at = 0;
  while (at < bytes.size()) {
    std::vector<std::string> piece;
    while (at < bytes.size() && piece.size() < 1024) {
      const std::string unit = bytes.substr(at, 2);
      at += 2;
      if (unit == "\r\0"s) continue;
      piece.push_back(unit);
      if (unit == "\n\0"s) break;
    }
    std::string text;
    for (const std::string& unit : piece) {
      if (unit == "\0\0"s) break;
      text += unit;
      ++total;
    }
    if (total > 319'999) break;
    kept += text;
  }
  return kept;
}

TEST(UnitBodyTest, AgreesWithAPlainReading) {
  std::mt19937 random(2);
  const std::string alphabet("\0\0\0\n\rab", 7);
  for (int round = 0; round < 200; ++round) {
    std::string bytes;
    const std::size_t size = random() % 5000;
    while (bytes.size() < size) bytes += alphabet[random() % alphabet.size()];
    EXPECT_EQ(Whole<UnitBody>(bytes), PlainlyReadUnits(bytes)) << "round " << round;
  }
}

}  // namespace
}  // namespace brovanta
