// The main screen's window: size, arrangement, order of its controls.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QScreen>

#include "tests/support/form_check.h"
#include "tests/support/small_screen.h"
#include "tests/ui/shell/main_screen.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;

using MainDialogLayoutTest = MainScreenTest;

QImage Shown(QWidget& widget) {
  return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// What has found its place may give another control a new one.
void Settle() {
  for (int i = 0; i < 8; ++i) QApplication::processEvents();
}

TEST_F(MainDialogLayoutTest, WindowCanBeMinimizedAndMaximizedAndStartsAtItsSize) {
  Open();
  EXPECT_TRUE(screen().windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
  EXPECT_TRUE(screen().windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
  EXPECT_TRUE(screen().windowFlags().testFlag(Qt::WindowCloseButtonHint));
  EXPECT_EQ(screen().size(), QSize(360, 640));
  EXPECT_EQ(screen().windowTitle().toStdString(), "Brovanta");
}

TEST_F(MainDialogLayoutTest, FillsASmallScreen) {
  if (!OnSmallScreen()) {
    EXPECT_EQ(RunOnSmallScreen("MainDialogLayoutTest.FillsASmallScreen"), 0);
    return;
  }
  Open();
  EXPECT_TRUE(screen().isFullScreen());
  EXPECT_EQ(screen().size(), screen().screen()->size());
}

TEST_F(MainDialogLayoutTest, TabKeyWalksTheControlsFromTopToBottom) {
  Open();
  Find<QTabBar>("tabBar").setFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 8; ++i) {
    order.push_back(QApplication::focusWidget()->objectName().toStdString());
    Press(Qt::Key_Tab);
  }
  EXPECT_THAT(
      order, ElementsAre("tabBar", "viewModeButton", "periodHeadingButton", "updateButton",
                         "storeFilterButton", "categoryFilterButton", "recordTree", "toolsButton"));
}

TEST_F(MainDialogLayoutTest, EveryControlFitsEachScreenSizeAndLargePrint) {
  AddRecurring("Sourdough bread", kToday, kDaily, 0, 1);
  AddProduct("Whole milk, 1 l", kToday, "Fresh & Co");
  AddRecurring("M\xFCsli, 750 g", kToday - 2 * kOneDay, kWeekly, 1, 4);
  AddProduct("Batteries of a long name that does not fit a row", kToday - 5 * kOneDay,
             "Electro Hall at the old harbour");
  Open();
  ChooseView(kWeeklyView);
  Select("Whole milk, 1 l");
  for (const int scale : {1, 2}) {
    QFont font = screen().font();
    font.setPixelSize(QFontInfo(font).pixelSize() * scale);
    screen().setFont(font);
    for (const QSize size : ScreenSizes()) {
      screen().resize(size);
      QApplication::processEvents();
      ASSERT_EQ(screen().size(), size);
      EXPECT_EQ(Clipped(&screen()), "") << size.width() << " wide, print " << scale;
      EXPECT_GE(tree().height(), 90);
      SavePicture(&screen(), QStringLiteral("main_screen_print_%1").arg(scale));
    }
  }
}

TEST_F(MainDialogLayoutTest, CalendarFitsEachScreenSize) {
  Open();
  for (const QSize size : ScreenSizes()) {
    screen().resize(size);
    QTest::mouseClick(&button("periodHeadingButton"), Qt::LeftButton);
    QApplication::processEvents();
    const auto& calendar = Find<QWidget>("calendar");
    EXPECT_TRUE(
        screen().rect().contains(QRect(calendar.mapTo(&screen(), QPoint(0, 0)), calendar.size())));
    SavePicture(&screen(), QStringLiteral("main_screen_calendar"));
    Press(Qt::Key_Escape);
  }
}

TEST_F(MainDialogLayoutTest, ScreenReadersHearTheRows) {
  AddProduct("Milk", kToday - 2 * kOneDay, "Corner Shop");
  Open();
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&tree());
  ASSERT_NE(list, nullptr);
  std::vector<std::string> heard;
  for (int i = 0; i < list->childCount(); ++i) {
    heard.push_back(list->child(i)->text(QAccessible::Name).toStdString());
  }
  EXPECT_THAT(heard,
              testing::IsSupersetOf({"Thursday 11/19/2026", "Milk, Corner Shop, 2 days overdue"}));
}

TEST_F(MainDialogLayoutTest, LowWideScreenPutsPeriodAndFiltersInOneLine) {
  Open();
  const auto y = [this](const char* name) {
    return Find<QWidget>(name).mapTo(&screen(), QPoint(0, 0)).y();
  };
  EXPECT_GT(y("storeFilterButton"), y("updateButton"));
  screen().resize(640, 360);
  QApplication::processEvents();
  EXPECT_EQ(y("storeFilterButton"), y("updateButton"));
  screen().resize(360, 640);
  QApplication::processEvents();
  EXPECT_GT(y("storeFilterButton"), y("updateButton"));
}

TEST_F(MainDialogLayoutTest, TheSmallestScreenShowsEverythingWithoutScrolling) {
  Open();
  screen().resize(240, 320);
  Settle();
  for (const char* name : {"tabBar", "viewModeButton", "periodHeadingButton", "updateButton",
                           "storeFilterButton", "categoryFilterButton", "toolsButton"}) {
    const QWidget& control = Find<QWidget>(name);
    EXPECT_EQ(control.visibleRegion().boundingRect(), control.rect()) << name;
  }
  const QWidget& list = *Find<RecordTree>("recordTree").viewport();
  EXPECT_EQ(list.visibleRegion().boundingRect(), list.rect());
  EXPECT_GE(list.height(), 2 * 48);
}

/// Counts what a window or a part of it is told.
class EventCount : public QObject {
 public:
  EventCount(QObject& watched, QEvent::Type type) : type_(type) {
    watched.installEventFilter(this);
  }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == type_) ++count;
    return false;
  }
  int count = 0;

 private:
  QEvent::Type type_;
};

TEST_F(MainDialogLayoutTest, TheArrangementComesToRest) {
  Open();
  for (const QSize size : {QSize(360, 640), QSize(640, 360), QSize(240, 320), QSize(240, 300)}) {
    screen().resize(size);
    Settle();
    const EventCount requests(*Find<QWidget>("recordTree").parentWidget(), QEvent::LayoutRequest);
    Settle();
    EXPECT_EQ(requests.count, 0) << size.width() << " x " << size.height();
  }
}

TEST_F(MainDialogLayoutTest, TheWindowItselfIsPainted) {
  Open();
  const EventCount paints(screen(), QEvent::Paint);
  screen().repaint();
  Settle();
  EXPECT_GT(paints.count, 0) << "nothing that covers it hides it from who waits for that";
}

TEST_F(MainDialogLayoutTest, AFilterWithALongNameGoesBelowTheOther) {
  AddProduct("Whole milk, 1 l", kToday, "Electro Hall at the old harbour and station");
  Open();
  screen().resize(240, 400);
  Settle();
  const auto y = [this](const char* name) {
    return Find<QWidget>(name).mapTo(&screen(), QPoint(0, 0)).y();
  };
  EXPECT_EQ(y("storeFilterButton"), y("categoryFilterButton"));
  auto& stores = Find<ColorButton>("storeFilterButton");
  QTest::mouseClick(&stores, Qt::LeftButton);
  stores.menu()->actions().last()->trigger();
  stores.menu()->close();
  Settle();
  EXPECT_LT(y("storeFilterButton"), y("categoryFilterButton"));
}

// The looks that are asked for, on a button of the same size: as it is shown, and pressed.
TEST_F(MainDialogLayoutTest, ButtonsHaveTheirPicturesSizesSidesAndColors) {
  const QSize kSmall(12, 12);
  const QSize kLarge(20, 20);
  const struct {
    const char* name;
    int picture;
    QSize size;
    int alignment;
  } rows[] = {{"storeFilterButton", 134, kSmall, 0},
              {"categoryFilterButton", 134, kSmall, 2},
              {"updateButton", 156, kLarge, 2},
              {"viewModeButton", 136, kLarge, 0}};
  AddProduct("Milk", kToday);
  Open();
  for (const auto& row : rows) {
    ColorButton& shown = button(row.name);
    const auto look = [&](int picture, QSize size, int alignment, const QColor& ground,
                          const QColor& ink) {
      ColorButton wanted;
      wanted.setFont(shown.font());
      wanted.setText(shown.text());
      wanted.SetPictures(picture, size, picture, size, 0, {32, 32});
      wanted.SetAlignment(alignment, false);
      for (int index = 0; index < 6; index += 2) {
        wanted.SetColor(index, ground, false);
        wanted.SetColor(index + 1, ink, false);
      }
      if (shown.menu() != nullptr) wanted.AttachMenu(shown.menu(), false);
      wanted.resize(shown.size());
      wanted.setDown(shown.isDown());
      const QImage image = Shown(wanted);
      if (shown.menu() != nullptr) shown.AttachMenu(shown.menu(), false);
      return image;
    };
    const QColor navy(0, 0, 128);
    for (const bool down : {false, true}) {
      shown.setDown(down);
      const QImage image = Shown(shown);
      EXPECT_EQ(image, look(row.picture, row.size, row.alignment, Qt::white, navy))
          << row.name << down;
      EXPECT_NE(image, look(row.picture, {16, 16}, row.alignment, Qt::white, navy));
      EXPECT_NE(image, look(row.picture, row.size, row.alignment, Qt::yellow, navy));
      EXPECT_NE(image, look(row.picture, row.size, row.alignment, Qt::white, Qt::red));
      if (shown.text().isEmpty()) continue;  // a picture alone stands in the middle
      EXPECT_NE(image, look(row.picture, row.size, 2 - row.alignment, Qt::white, navy));
    }
    shown.setDown(false);
  }
}

}  // namespace
}  // namespace brovanta::test
