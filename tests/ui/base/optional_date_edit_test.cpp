#include "ui/base/optional_date_edit.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDateEdit>
#include <QTest>

#include "tests/support/fixed_clock.h"
#include "tests/support/zone_guard.h"
#include "ui/base/input_panel.h"

namespace brovanta {
namespace {

constexpr std::int64_t kNow = 1795257000;  // 2026-11-21 10:30 UTC
constexpr DateStamp kToday = 20778 * 86400 + 3600;
constexpr DateStamp kYesterdayEvening = 20777 * 86400 + 20 * 3600;

QList<bool> panel_calls;

void RecordPanel(bool show) { panel_calls.append(show); }

class OptionalDateEditTest : public testing::Test {
 protected:
  OptionalDateEditTest() {
    field_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&field_));
  }

  void Tick() {
    field_.check_box().setFocus();
    QTest::keyClick(&field_.check_box(), Qt::Key_Space);
  }

  test::ZoneGuard zone_{"UTC"};
  test::FixedClock clock_{kNow};
  OptionalDateEdit field_;
};

TEST_F(OptionalDateEditTest, StartsEmpty) {
  EXPECT_EQ(field_.Stamp(), kNoDate);
  EXPECT_FALSE(field_.check_box().isChecked());
  EXPECT_FALSE(field_.date_edit().isEnabled());
  EXPECT_EQ(field_.date_edit().text(), QStringLiteral("none"));
}

TEST_F(OptionalDateEditTest, TickingOffersToday) {
  Tick();
  EXPECT_EQ(field_.date_edit().text(), QStringLiteral("11/21/2026"));
  EXPECT_EQ(field_.Stamp(), kToday);
}

TEST_F(OptionalDateEditTest, PressingTheEmptyPickerTicksTheBox) {
  QTest::mouseClick(&field_, Qt::LeftButton, Qt::NoModifier,
                    field_.date_edit().geometry().center());
  EXPECT_EQ(field_.Stamp(), kToday);
  EXPECT_TRUE(field_.date_edit().hasFocus());
}

TEST_F(OptionalDateEditTest, ADateOfOneOrMoreIsShownAndGivenBackAtOneOClock) {
  field_.ShowStamp(kYesterdayEvening);
  EXPECT_TRUE(field_.check_box().isChecked());
  EXPECT_EQ(field_.date_edit().text(), QStringLiteral("11/20/2026"));
  EXPECT_EQ(field_.Stamp(), kToday - 86400);
  field_.ShowStamp(86400 + 5);  // the first day that can be picked is no "none"
  EXPECT_EQ(field_.date_edit().text(), QStringLiteral("01/02/1970"));
  EXPECT_EQ(field_.Stamp(), 86400 + 3600);
}

TEST_F(OptionalDateEditTest, OtherStampsLeaveItEmpty) {
  for (const DateStamp stamp : {0, -1, -86400}) {
    field_.ShowStamp(stamp);
    EXPECT_EQ(field_.Stamp(), kNoDate) << stamp;
  }
}

TEST_F(OptionalDateEditTest, TakingTheMarkAwayAndSettingItAgainKeepsTheDate) {
  field_.ShowStamp(kYesterdayEvening);
  Tick();
  EXPECT_EQ(field_.Stamp(), kNoDate);
  EXPECT_EQ(field_.date_edit().text(), QStringLiteral("none"));
  Tick();
  EXPECT_EQ(field_.Stamp(), kToday - 86400);
}

TEST_F(OptionalDateEditTest, FocusPutsTheInputPanelAway) {
  Tick();
  const InputPanelHandler before = SetInputPanelHandler(&RecordPanel);
  panel_calls.clear();
  field_.date_edit().setFocus();
  field_.check_box().setFocus();
  EXPECT_EQ(panel_calls, (QList<bool>{false, false}));
  SetInputPanelHandler(before);
}

TEST_F(OptionalDateEditTest, BothPartsHaveNamesForAScreenReader) {
  field_.SetName(QStringLiteral("Start date"), QStringLiteral("Has a start date"));
  EXPECT_EQ(field_.check_box().accessibleName(), QStringLiteral("Has a start date"));
  EXPECT_EQ(field_.date_edit().accessibleName(), QStringLiteral("Start date"));
}

TEST_F(OptionalDateEditTest, ADateFollowsPrintThatGrowsWhileItIsShown) {
  field_.ShowStamp(kToday);
  field_.resize(176, field_.height());
  QFont large = field_.font();
  large.setPixelSize(28);
  field_.setFont(large);
  QCoreApplication::processEvents();
  const QFont font = field_.date_edit().font();
  EXPECT_LT(font.pixelSize(), 28);
  EXPECT_LE(QFontMetrics(font).horizontalAdvance(QStringLiteral("00/00/0000")),
            field_.date_edit().width());
}

}  // namespace
}  // namespace brovanta
