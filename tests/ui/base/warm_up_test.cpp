#include "ui/base/warm_up.h"

#include <fontconfig/fontconfig.h>
#include <gtest/gtest.h>

namespace brovanta {
namespace {

TEST(WarmUpTest, FontsAreInMemoryAfterTheWait) {
  WarmUp warm_up;
  warm_up.Wait();
  FcConfig* const current = FcConfigGetCurrent();
  ASSERT_NE(current, nullptr);
  const FcFontSet* const fonts = FcConfigGetFonts(current, FcSetSystem);
  ASSERT_NE(fonts, nullptr);
  EXPECT_GT(fonts->nfont, 0);
}

TEST(WarmUpTest, CanBeWaitedForTwice) {
  WarmUp warm_up;
  warm_up.Wait();
  FcConfig* const current = FcConfigGetCurrent();
  warm_up.Wait();
  EXPECT_EQ(FcConfigGetCurrent(), current);
}

}  // namespace
}  // namespace brovanta
