#include "util/little_endian.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::Hex;

template <typename T>
Bytes Stored(T value) {
  Bytes bytes(sizeof(T));
  StoreLittle(bytes.data(), value);
  return bytes;
}

TEST(LittleEndianTest, TheLowestByteStandsFirst) {
  EXPECT_EQ(Stored<std::uint32_t>(0x01020304), Hex("04 03 02 01"));
  EXPECT_EQ(Stored<std::int16_t>(-2), Hex("FE FF"));
  EXPECT_EQ(Stored<std::uint8_t>(7), Hex("07"));
  EXPECT_EQ(Stored(1.0), Hex("00 00 00 00 00 00 F0 3F"));
}

TEST(LittleEndianTest, LoadsFromAnyAddress) {
  const Bytes bytes = Hex("EE 04 03 02 81 00 00 00 00 00 00 F0 3F");
  EXPECT_EQ(LoadLittle<std::uint32_t>(bytes.data() + 1), 0x81020304u);
  EXPECT_EQ(LoadLittle<std::int32_t>(bytes.data() + 1), -0x7EFDFCFC);
  EXPECT_EQ(LoadLittle<double>(bytes.data() + 5), 1.0);
}

}  // namespace
}  // namespace brovanta
