// The Update command of the main screen.
#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "tests/support/loopback_server.h"
#include "tests/support/working_folder.h"
#include "tests/ui/shell/main_screen.h"
#include "tests/ui/shell/update_screen.h"
#include "ui/shell/day_watch.h"

namespace brovanta::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kMilkCoupon =
    "<CP><ID>12</ID><SR>1</SR><NM>Milk coupon</NM>"
    "<SI>7</SI><CI>3</CI></CP>";
constexpr const char* kShoeCoupon =
    "<CP><ID>13</ID><SR>1</SR><NM>Shoe coupon</NM>"
    "<SI>8</SI><CI>3</CI></CP>";

class MainCommandsUpdateTest : public MainScreenTest {
 protected:
  /// Opens the screen on the coupons with a server that answers, except for pages in held_.
  void OpenWithServer() {
    server_ =
        std::make_unique<LoopbackServer>([this](LoopbackPeer& peer, const std::string& asked) {
          std::string page = RequestedObject(asked);
          page.resize(std::min(page.size(), page.find('?')));
          if (page == held_) {
            peer.WaitUntilClosed();
          } else if (const auto answer = answers_.find(page); answer != answers_.end()) {
            peer.Send(HttpReply("200 OK", answer->second));
          }
        });
    Open();
    screen().SetUpdateServer(server_->Url());
    ChooseTab(1);
  }
  std::vector<std::string> Objects() {
    std::vector<std::string> objects;
    for (const std::string& request : server_->requests()) {
      objects.push_back(RequestedObject(request));
    }
    return objects;
  }
  /// Runs `meanwhile` in the next update dialog once a state passes the test.
  void WatchNext(const StateWatch::Test& test, const std::function<void(QDialog&)>& meanwhile) {
    InNextDialog([this, test, meanwhile](QWidget& window) {
      auto* dialog = qobject_cast<QDialog*>(&window);
      ASSERT_NE(dialog, nullptr);
      watch_ = std::make_unique<StateWatch>(*dialog);
      watch_->When(test, [meanwhile, dialog] { meanwhile(*dialog); });
    });
  }
  /// Chooses "Update" and runs `meanwhile` in the dialog once a state passes the test.
  void UpdateAnd(const StateWatch::Test& test, const std::function<void(QDialog&)>& meanwhile) {
    WatchNext(test, meanwhile);
    ToolsMenu("Update");
  }
  void Update() {
    InNextDialog([](QWidget&) {});
    ToolsMenu("Update");
  }

  WorkingFolder working_folder_{folder_.path()};
  std::map<std::string, std::string> answers_{
      {"/webspider.xml", GoodConfiguration()},
      {"/stores.aspx", "<IT><ID>7</ID><NM>Corner Shop</NM></IT><IT><ID>8</ID><NM>Shoes</NM></IT>"},
      {"/categories.aspx", "<IT><ID>3</ID><NM>Dairy</NM></IT>"},
      {"/coupons.aspx", std::string(kMilkCoupon) + kShoeCoupon},
  };
  std::string held_;
  std::unique_ptr<LoopbackServer> server_;
  std::unique_ptr<StateWatch> watch_;  // of the last watched dialog
};

TEST_F(MainCommandsUpdateTest, MenuButtonAndKeyOpenTheDialogOnEveryTab) {
  held_ = "/webspider.xml";
  OpenWithServer();
  for (int tab = 0; tab < 4; ++tab) {
    ChooseTab(tab);
    EXPECT_TRUE(CommandEnabled(kMenuUpdate)) << tab;
    const std::function<void()> ways[] = {
        [&] { ToolsMenu("Update"); },
        [&] { QTest::mouseClick(&button("updateButton"), Qt::LeftButton); },
        [&] { Press(Qt::Key_F5); }};
    for (const auto& way : ways) {
      std::string caption;
      WatchNext(Line("Updating search agents..."), [&caption](QDialog& dialog) {
        caption = dialog.windowTitle().toStdString();
        QTest::keyClick(&dialog, Qt::Key_Escape);
      });
      way();
      EXPECT_EQ(caption, "Brovanta") << tab;
    }
  }
}

TEST_F(MainCommandsUpdateTest, NewCouponsAreShownAndTheFiltersStay) {
  AddCoupon("Old bread", 0, 0, "Corner Shop");
  AddCoupon("Old milk", 0, 0, "Corner Shop");
  // The feed's own number for the store that the user has named already.
  answers_["/coupons.aspx"] =
      "<CP><ID>12</ID><SR>1</SR><NM>New milk</NM>"
      "<SI>5000</SI><CI>3</CI></CP>" +
      std::string(kShoeCoupon);
  OpenWithServer();
  ChooseFilter("storeFilterButton", "Corner Shop");
  ASSERT_THAT(Rows(), Contains("Old milk@Corner Shop"));
  Update();
  EXPECT_THAT(Rows(), Contains("New milk@Corner Shop"));
  EXPECT_THAT(Rows(), Not(Contains("Shoe coupon@Shoes"))) << "the filter stays";
  EXPECT_EQ(Text("storeFilterButton"), "Corner Shop");
  EXPECT_THAT(MenuTexts("storeFilterButton"), Not(Contains("Shoes"))) << "so does its menu";
  ChooseTab(0);
  ChooseTab(1);
  EXPECT_THAT(Rows(), Contains("Shoe coupon@Shoes"));
  EXPECT_THAT(MenuTexts("storeFilterButton"), Contains("Shoes"));
}

TEST_F(MainCommandsUpdateTest, FindTextStays) {
  OpenWithServer();
  InNextDialog([](QWidget& dialog) {
    QTest::keyClicks(dialog.focusWidget(), QStringLiteral("milk"));
    Click(dialog, "findButton");
  });
  Tool(kToolFind);
  Update();
  EXPECT_EQ(screen().filter().find_text, "milk");
  EXPECT_THAT(Rows(), ElementsAre(testing::_, "Milk coupon@Corner Shop"));
}

TEST_F(MainCommandsUpdateTest, CancelledOrFailedItLeavesTheTreeAsItIs) {
  AddCoupon("Old milk", 0, 0);
  held_ = "/coupons.aspx";
  OpenWithServer();
  Select("Old milk");
  UpdateAnd(Line("Updating coupons..."), [](QDialog& dialog) { Click(dialog, "cancelButton"); });
  EXPECT_TRUE(tree().CaretInfo()) << "not rebuilt";
  screen().SetUpdateServer("http://127.0.0.1:" + std::to_string(UnusedPort()));
  UpdateAnd(HasFailed, [](QDialog& dialog) { Click(dialog, "okButton"); });
  EXPECT_TRUE(tree().CaretInfo());
}

TEST_F(MainCommandsUpdateTest, TellsTheServerTheLocationAndWhatIsHeldOnly) {
  options_.set_country("United States");
  options_.set_zip_code("90210");
  AddCoupon("Own", 0, 0);
  OpenWithServer();
  Update();
  EXPECT_THAT(Objects(),
              ElementsAre("/webspider.xml", "/stores.aspx?idx=0&user=United+States-90210",
                          "/categories.aspx?idx=0&user=United+States-90210",
                          "/coupons.aspx?idx=0&edx=0&user=United+States-90210"));
  Update();
  EXPECT_EQ(Objects().size(), 8U);
  EXPECT_EQ(Objects()[5], "/stores.aspx?idx=8&user=United+States-90210");
  EXPECT_EQ(Objects()[7], "/coupons.aspx?idx=13&edx=0&user=United+States-90210");
}

TEST_F(MainCommandsUpdateTest, FilesLandWhereTheyBelong) {
  OpenWithServer();
  Update();
  EXPECT_EQ(folder_.ReadText("webspider.xml"), GoodConfiguration());
  EXPECT_EQ(folder_.ReadText("update.dat"), answers_["/coupons.aspx"]) << "in the working folder";
  ASSERT_EQ(screen().searches()->LoadAgentConfiguration(screen().searches()->configuration_path()),
            0);
  EXPECT_EQ(screen().searches()->CategoryCount(), 1U);
}

TEST_F(MainCommandsUpdateTest, MidnightWaitsUntilTheUpdateIsOver) {
  held_ = "/coupons.aspx";
  OpenWithServer();
  UpdateAnd(Line("Updating coupons..."), [&](QDialog& dialog) {
    clock_.Set(kNow + kOneDay);
    auto* watch = dialog_->findChild<DayWatch*>();
    QTimerEvent minute(watch->timer_id());
    QApplication::sendEvent(watch, &minute);
    EXPECT_EQ(Text("periodHeadingButton"), "Nov 21, 2026") << "the database is in other hands";
    Click(dialog, "cancelButton");
  });
  auto* watch = dialog_->findChild<DayWatch*>();
  QTimerEvent minute(watch->timer_id());
  QApplication::sendEvent(watch, &minute);
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 22, 2026");
}

TEST_F(MainCommandsUpdateTest, ClosedWindowEndsTheUpdate) {
  held_ = "/categories.aspx";
  OpenWithServer();
  QElapsedTimer closing;
  UpdateAnd(Line("Updating categories..."), [&](QDialog& dialog) {
    closing.start();
    screen().close();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(screen().database(), nullptr);
  });
  EXPECT_LT(closing.elapsed(), 5'000);
  EXPECT_FALSE(screen().isVisible());
  EXPECT_THAT(*folder_.ReadText("category.lst"), testing::SizeIs(8));
}

}  // namespace
}  // namespace brovanta::test
