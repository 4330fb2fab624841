// Every screen in the light and in the dark palette: texts stand out from their ground, and a
// screen that is open changes with the palette.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <map>

#include "tests/support/form_check.h"
#include "tests/support/text_contrast.h"
#include "tests/ui/reach/screens.h"
#include "ui/base/program_style.h"
#include "ui/base/theme.h"

namespace brovanta::test {
namespace {

constexpr QSize kHandheld{360, 640};

class PaletteTest : public testing::Test {
 protected:
  ~PaletteTest() override { UseDarkPalette(false); }

  static void Fit(const OpenScreen& open) {
    if (open.kind == ScreenKind::kWindow) open.window->resize(kHandheld);
    QCoreApplication::processEvents();
  }

  void EveryTextStandsOut(bool dark) {
    UseDarkPalette(dark);
    int texts = 0;
    Screens screens;
    screens.ForEach([&](const OpenScreen& open) {
      Fit(open);
      const QString name = QString::fromStdString(open.name);
      SavePicture(open.window, (dark ? QStringLiteral("dark_") : QStringLiteral("light_")) + name);
      EXPECT_EQ(TooFaint(*open.screen), "") << open.name;
      texts += static_cast<int>(ShownTexts(*open.screen).size());
    });
    EXPECT_GT(texts, 200) << "what is looked at is what is shown";
  }

  /// A label with a text of one colour on a ground of another.
  static std::string Faint(const QColor& ink, const QColor& ground) {
    QLabel label(QStringLiteral("Milk"));
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, ink);
    palette.setColor(QPalette::Window, ground);
    label.setPalette(palette);
    label.setAutoFillBackground(true);
    label.show();
    return TooFaint(label);
  }
};

TEST_F(PaletteTest, EveryTextStandsOutFromItsGroundByDay) { EveryTextStandsOut(false); }

TEST_F(PaletteTest, EveryTextStandsOutFromItsGroundByNight) { EveryTextStandsOut(true); }

TEST_F(PaletteTest, AGreyTextOnGreyIsFoundByItsPixels) {
  EXPECT_EQ(Faint(QColor(26, 26, 46), Qt::white), "");
  const std::string faint = Faint(QColor(130, 130, 130), QColor(200, 200, 200));
  EXPECT_NE(faint.find("\"Milk\""), std::string::npos) << faint;
  EXPECT_NE(faint.find("#828282 on #c8c8c8"), std::string::npos) << faint;
}

TEST_F(PaletteTest, TheTextsOfDisabledControlsAreLeftOut) {
  QLabel label(QStringLiteral("Milk"));
  label.setEnabled(false);
  label.show();
  EXPECT_TRUE(ShownTexts(label).isEmpty());
}

TEST_F(PaletteTest, AnOpenScreenChangesWithThePalette) {
  // Menus, lists, calendars and boxes too.
  std::map<std::string, QImage> by_night;
  UseDarkPalette(true);
  Screens dark;
  dark.ForEach([&](const OpenScreen& open) {
    Fit(open);
    by_night[open.name] = open.screen->grab().toImage();
  });
  UseDarkPalette(false);
  Screens light;
  light.ForEach([&](const OpenScreen& open) {
    Fit(open);
    const QImage by_day = open.screen->grab().toImage();
    EXPECT_NE(by_day, by_night[open.name]) << open.name;
    UseDarkPalette(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(open.screen->grab().toImage(), by_night[open.name]) << open.name;
    UseDarkPalette(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(open.screen->grab().toImage(), by_day) << open.name;
  });
}

/// A desktop whose colours have been turned round.
class DarkDesktop : public ProgramStyle {
 public:
  [[nodiscard]] QPalette standardPalette() const override {
    return {QColor(Qt::white), QColor(40, 40, 40)};
  }
};

TEST_F(PaletteTest, TheMainScreenFollowsTheDesktop) {
  Screens screens;
  bool seen = false;
  screens.ForEachWindow([&](const OpenScreen& open) {
    if (qobject_cast<MainDialog*>(open.screen) == nullptr || seen) return;
    seen = true;
    QEvent change(QEvent::ThemeChange);
    QCoreApplication::sendEvent(open.screen, &change);
    EXPECT_FALSE(UsesDarkPalette()) << "the desktop is what it was";
    QApplication::setStyle(new DarkDesktop);
    QCoreApplication::sendEvent(open.screen, &change);
    EXPECT_TRUE(UsesDarkPalette());
    QCoreApplication::processEvents();
    EXPECT_EQ(open.screen->palette().color(QPalette::Window), theme::kGround);
    QApplication::setStyle(new ProgramStyle);
    QCoreApplication::sendEvent(open.screen, &change);
    EXPECT_FALSE(UsesDarkPalette());
  });
  EXPECT_TRUE(seen);
}

}  // namespace
}  // namespace brovanta::test
