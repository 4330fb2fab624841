// The update chapter: a real server beside the program, asked, added to, held up and gone.
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTest>
#include <atomic>
#include <ctime>

#include "net/http/http_client.h"
#include "tests/support/browser_stand_in.h"
#include "tests/support/framed_file.h"
#include "tests/tour/chapters.h"
#include "tests/tour/demo_server.h"
#include "ui/base/color_button.h"

namespace brovanta::tour {
namespace {

using test::ReadFramedFile;
using test::TextAt;
using test::WordAt;

constexpr int kAtMost = 30'000;  // milliseconds
constexpr int kUpdateButton = 1004;
constexpr int kStatusLine = 1052;
constexpr int kViewOnTheWeb = 3;
constexpr const char* kNewCoupon =
    "source,id,name,product,description,type,value_type,value,start_date,end_date,store_id,"
    "category_id\n"
    "coupon,901,Half price for robots,Robot,Show this page.,store coupon,percent,50,,,1,1\n";

class UpdateChapter {
 public:
  UpdateChapter(Robot& robot, Stage& stage, DemoServer& server)
      : robot_(robot), stage_(stage), server_(server) {}

  void Play(MainDialog& main);

 private:
  QString StatusOf(QWidget& dialog) {
    const auto* line = qobject_cast<QLabel*>(robot_.Control(dialog, kStatusLine));
    return line == nullptr ? QString() : line->text();
  }
  void Await(QWidget& dialog, const QString& line) {
    robot_.Expect(QTest::qWaitFor([&] { return StatusOf(dialog) == line; }, kAtMost),
                  Text("the dialog shows: ") + line);
  }
  void AwaitClose(QWidget& dialog) {
    robot_.Expect(QTest::qWaitFor([&] { return !dialog.isVisible(); }, kAtMost),
                  Text("the dialog closes by itself"));
  }
  void UpdateTo(MainDialog& main, const QString& picture);
  void ExpectFiles(std::size_t coupons, const char* what);

  void FirstUpdate(MainDialog& main);
  void ViewOnTheWeb(MainDialog& main, const QString& coupon, const QString& page);
  void OnlyWhatIsNew(MainDialog& main);
  void CancelIt(MainDialog& main);
  void ServerGone(MainDialog& main);

  Robot& robot_;
  Stage& stage_;
  DemoServer& server_;
};

void UpdateChapter::Play(MainDialog& main) {
  main.SetUpdateServer(server_.url());
  FirstUpdate(main);
  OnlyWhatIsNew(main);
  ViewOnTheWeb(main, Text("Half price for robots"), Text("/coupons/coupon.aspx?srcId=901"));
  CancelIt(main);
  ServerGone(main);
}

void UpdateChapter::UpdateTo(MainDialog& main, const QString& picture) {
  robot_.During([&] { robot_.Tap(main, kUpdateButton); },
                [&](QWidget& dialog) {
                  Await(dialog, Text("Updating coupons: done."));
                  robot_.Picture(dialog, picture);
                  AwaitClose(dialog);
                });
}

void UpdateChapter::ExpectFiles(std::size_t coupons, const char* what) {
  const auto stores = ReadFramedFile(stage_.folder() + "/store.lst", false, 64);
  const auto categories = ReadFramedFile(stage_.folder() + "/category.lst", false, 64);
  const auto discounts = ReadFramedFile(stage_.folder() + "/discount.dat", true, 400);
  robot_.Expect(stores && stores->records.size() == 30, Text(what) + Text(": 30 stores"));
  robot_.Expect(categories && categories->records.size() == 20,
                Text(what) + Text(": 20 categories"));
  robot_.Expect(discounts && discounts->records.size() == coupons,
                Text(what) + Text(": so many coupons"));
}

void UpdateChapter::FirstUpdate(MainDialog& main) {
  robot_.TapTab(main, 1);
  robot_.ChooseFromMenu(main, 1034, Text("Monthly"));
  robot_.Expect(robot_.Rows(main).isEmpty(), Text("no coupons at first"));
  robot_.Picture(main, Text("before"));
  UpdateTo(main, Text("done"));
  ExpectFiles(300, "after the first update");
  robot_.Expect(QFile(Text("webspider.xml")).size() > 0, Text("there are search agents"));
  robot_.Expect(!robot_.Rows(main).isEmpty(), Text("coupons of the month are there"));
  robot_.Picture(main, Text("coupons"));
}

void UpdateChapter::OnlyWhatIsNew(MainDialog& main) {
  UpdateTo(main, Text("nothing_new"));
  ExpectFiles(300, "after an update without news");
  robot_.Expect(server_.Log().contains(Text("/coupons.aspx?idx=200&edx=100")),
                Text("the server is asked for more than what is there"));
  const qsizetype before = robot_.Rows(main).size();
  robot_.Expect(server_.Import("coupons", kNewCoupon), Text("the server takes another coupon"));
  UpdateTo(main, Text("one_new"));
  ExpectFiles(301, "after another coupon");
  robot_.Expect(robot_.Rows(main).size() == before + 1 &&
                    robot_.Rows(main).contains(Text("Half price for robots")),
                Text("only the new coupon has come"));
  const auto file = ReadFramedFile(stage_.folder() + "/discount.dat", true, 400);
  robot_.Expect(file && WordAt(file->records.back(), 8) == 901 &&
                    TextAt(file->records.back(), 12, 50) == "Half price for robots",
                Text("it is the last in the file"));
}

void UpdateChapter::ViewOnTheWeb(MainDialog& main, const QString& coupon, const QString& page) {
  const test::BrowserStandIn browser;
  robot_.SelectRow(main, coupon);
  robot_.During([&] { robot_.TapCommand(main, 2772); },
                [&](QWidget& dialog) {
                  robot_.Picture(dialog, Text("coupon"));
                  robot_.Tap(dialog, kViewOnTheWeb);
                  robot_.Tap(dialog, Text("Cancel"));
                });
  const QString address = QString::fromStdString(server_.url()) + page;
  robot_.Expect(browser.addresses() == QStringList{address},
                Text("the browser is sent to ") + browser.addresses().join(QLatin1Char(' ')));
  const std::atomic<std::int32_t> flag{0};
  const auto text = DownloadUrlToBuffer(address.toStdString(), 0, flag);
  robot_.Expect(text && text->find(coupon.toStdString()) != std::string::npos,
                Text("the page tells of the coupon"));
  robot_.Expect(server_.TakePagePicture(address, robot_.PictureFile(Text("coupon_page"))),
                Text("the page can be drawn"));
}

void UpdateChapter::CancelIt(MainDialog& main) {
  const qsizetype before = robot_.Rows(main).size();
  server_.HoldStill();
  robot_.During([&] { robot_.ChooseTool(main, Text("Update")); },
                [&](QWidget& dialog) {
                  Await(dialog, Text("Updating search agents..."));
                  robot_.Picture(dialog, Text("running"));
                  const QSize upright = dialog.size();
                  dialog.resize(640, 360);
                  robot_.Picture(dialog, Text("running_640"));
                  dialog.resize(upright);
                  robot_.Tap(dialog, Text("Cancel"));
                  robot_.Expect(StatusOf(dialog) == Text("Aborting update...."),
                                Text("it says that it stops"));
                  robot_.Picture(dialog, Text("aborting"));
                  AwaitClose(dialog);
                });
  server_.GoOn();
  ExpectFiles(301, "after a cancelled update");
  robot_.Expect(robot_.Rows(main).size() == before, Text("the list is as it was"));
}

void UpdateChapter::ServerGone(MainDialog& main) {
  robot_.Expect(server_.Stop() == 0, Text("the server ends cleanly"));
  robot_.During([&] { robot_.Key(main, Qt::Key_F5); },
                [&](QWidget& dialog) {
                  Await(dialog, Text("Failed to download search agents."));
                  robot_.Picture(dialog, Text("server_gone"));
                  robot_.Tap(dialog, Text("OK"));
                });
  ExpectFiles(301, "after an update without a server");
  robot_.Picture(main, Text("unharmed"));
}

}  // namespace

void BringUpToDate(Robot& robot, Stage& stage) {
  if (!HasDemoServer()) return;
  for (const char* name : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"}) qunsetenv(name);
  QDir::setCurrent(QString::fromStdString(stage.folder()));  // as the program does at its start
  DemoServer server(stage.folder());
  robot.Expect(!server.url().empty(), Text("the server starts"));
  if (server.url().empty()) return;
  // The demonstration's dates lie around the server's today.
  stage.Run(std::time(nullptr), {360, 640},
            [&](MainDialog& main) { UpdateChapter(robot, stage, server).Play(main); });
}

}  // namespace brovanta::tour
