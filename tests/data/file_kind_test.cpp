#include "data/file_kind.h"

#include <gmock/gmock.h>

#include "data/data_files.h"

namespace brovanta::data_tool {
namespace {

TEST(FileKindTest, EveryDataFileHasOne) {
  for (const std::string_view name : kDataFiles) {
    EXPECT_TRUE(KindOfFile(std::string(name))) << name;
  }
  EXPECT_EQ(KindOfFile("purchase.dat"), FileKind::kProducts);
  EXPECT_EQ(KindOfFile("WebSearch/12.dat"), FileKind::kResults);
}

TEST(FileKindTest, NoOtherNameHas) {
  for (const char* const name : {"",
                                 "../x",
                                 "../product.dat",
                                 "/product.dat",
                                 "./product.dat",
                                 "product.dat/",
                                 "Product.dat",
                                 "backup.dat",
                                 "registry.reg",
                                 "WebSearch",
                                 "WebSearch/",
                                 "WebSearch/0.dat",
                                 "WebSearch/02.dat",
                                 "WebSearch/-2.dat",
                                 "WebSearch/../2.dat",
                                 "WebSearch//2.dat",
                                 "WebSearch\\2.dat",
                                 "websearch/2.dat",
                                 "WebSearch/2.dat.bad",
                                 "WebSearch/2147483648.dat"}) {
    EXPECT_FALSE(KindOfFile(name)) << name;
  }
}

TEST(FileKindTest, OnlyTheAgentsAreWithoutAFrame) {
  EXPECT_EQ(FrameOf(FileKind::kList)->record_size, 64U);
  EXPECT_EQ(FrameOf(FileKind::kDiscounts)->record_size, 400U);
  EXPECT_EQ(FrameOf(FileKind::kProducts)->record_size, 456U);
  EXPECT_EQ(FrameOf(FileKind::kSearches)->record_size, 68U);
  EXPECT_EQ(FrameOf(FileKind::kResults)->record_size, 0U);
  EXPECT_FALSE(FrameOf(FileKind::kAgents));
}

}  // namespace
}  // namespace brovanta::data_tool
