// Every screen is arranged as its size and its print ask for, whatever it was before, and then
// rests.
#include <gmock/gmock.h>

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QTest>
#include <QWidget>

#include "tests/support/small_screen.h"
#include "tests/ui/reach/large_print.h"
#include "tests/ui/reach/screens.h"
#include "tests/ui/reach/text_lines.h"

namespace brovanta::test {
namespace {

using testing::IsEmpty;

/// Whole screens and what the on-screen keyboard leaves of them.
const QList<QSize> kSizes = {{360, 640}, {640, 360}, {320, 480}, {240, 320},
                             {360, 320}, {640, 180}, {320, 240}, {240, 160}};

void Settle() {
  for (int i = 0; i < 12; ++i) QCoreApplication::processEvents();
}

void GiveSize(QWidget& window, QSize size) {
  window.resize(size);
  Settle();
}

/// Where everything that is shown stands in the window, what scrolls without its place.
QStringList Places(const QWidget& window) {
  QStringList places;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible()) continue;
    const bool scrolls =
        widget->parentWidget()->objectName() == QLatin1String("qt_scrollarea_viewport");
    const QRect place = scrolls ? QRect(QPoint(), widget->size()) : widget->geometry();
    places << QStringLiteral("%1 %2: %3,%4 %5 x %6")
                  .arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName())
                  .arg(place.x())
                  .arg(place.y())
                  .arg(place.width())
                  .arg(place.height());
  }
  return places;
}

/// The places that are in the one list only.
QStringList Moved(const QStringList& before, const QStringList& after) {
  QStringList moved;
  for (const QString& place : before) {
    if (!after.contains(place)) moved << QStringLiteral("before ") + place;
  }
  for (const QString& place : after) {
    if (!before.contains(place)) moved << QStringLiteral("after ") + place;
  }
  return moved;
}

class RequestCount : public QObject {
 public:
  RequestCount() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::LayoutRequest) ++count;
    return false;
  }
  int count = 0;
};

std::string Words(const OpenScreen& open, QSize size) {
  return open.name + ", " + std::to_string(size.width()) + " x " + std::to_string(size.height());
}

int ExpectRest(const char* print) {
  int looks = 0;
  Screens screens;
  screens.ForEachWindow([&](const OpenScreen& open) {
    for (const QSize size : kSizes) {
      GiveSize(*open.window, size);
      const RequestCount requests;
      Settle();
      EXPECT_EQ(requests.count, 0) << Words(open, size) << ", " << print;
      ++looks;
    }
  });
  return looks;
}

TEST(ArrangementTest, ComesToRest) { EXPECT_GT(ExpectRest("usual print"), 200); }

TEST(ArrangementTest, ComesToRestInLargePrint) {
  const LargePrint large;
  EXPECT_GT(ExpectRest("large print"), 200);
}

void ExpectFirstAsLater(const char* print) {
  Screens screens;
  screens.ForEachWindow([print](const OpenScreen& open) {
    Settle();
    const QSize size = open.window->size();
    EXPECT_EQ(size, QApplication::primaryScreen()->size()) << open.name;
    const QStringList first = Places(*open.window);
    GiveSize(*open.window, size + QSize(200, 200));
    GiveSize(*open.window, size);
    EXPECT_THAT(Lines(Moved(first, Places(*open.window))), IsEmpty())
        << Words(open, size) << ", " << print;
  });
}

/// The whole program runs on a screen of this size: a process of its own for each.
class FirstShowTest : public testing::TestWithParam<QSize> {};

TEST_P(FirstShowTest, IsArrangedAsEveryLaterOne) {
  if (!OnSmallScreen()) {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = std::string(test->test_suite_name()) + "." + test->name();
    EXPECT_EQ(RunOnSmallScreen(name.c_str(), GetParam()), 0);
    return;
  }
  ExpectFirstAsLater("usual print");
  const LargePrint large;
  ExpectFirstAsLater("large print");
}

INSTANTIATE_TEST_SUITE_P(Screens, FirstShowTest,
                         testing::Values(QSize(360, 640), QSize(640, 360), QSize(320, 480),
                                         QSize(240, 320)),
                         [](const testing::TestParamInfo<QSize>& tested) {
                           return std::to_string(tested.param.width()) + "x" +
                                  std::to_string(tested.param.height());
                         });

TEST(ArrangementTest, FollowsThePrint) {
  Screens screens;
  screens.ForEachWindow([](const OpenScreen& open) {
    for (const QSize size : kSizes) {
      GiveSize(*open.window, size);
      const QStringList usual = Places(*open.window);
      {
        const LargePrint large;
        Settle();
        const QStringList after = Places(*open.window);
        GiveSize(*open.window, size + QSize(40, 40));
        GiveSize(*open.window, size);
        EXPECT_THAT(Lines(Moved(after, Places(*open.window))), IsEmpty()) << Words(open, size);
      }
      Settle();
      EXPECT_THAT(Lines(Moved(usual, Places(*open.window))), IsEmpty()) << Words(open, size);
    }
  });
}

TEST(ArrangementTest, ThatNeverRestsIsSeen) {
  class Restless : public QWidget {
    bool event(QEvent* event) override {
      if (event->type() == QEvent::LayoutRequest) {
        QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
      }
      return QWidget::event(event);
    }
  };
  Restless window;
  QCoreApplication::postEvent(&window, new QEvent(QEvent::LayoutRequest));
  const RequestCount requests;
  Settle();
  EXPECT_GT(requests.count, 5);
}

}  // namespace
}  // namespace brovanta::test
