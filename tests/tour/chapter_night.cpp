// A chapter for a household that speaks German and sits in the dark.
#include "tests/tour/chapters.h"
#include "ui/base/language.h"
#include "ui/base/theme.h"

namespace brovanta::tour {
namespace {

void LookAtTheDialogs(Robot& robot, MainDialog& main) {
  const auto look = [&](int command, const char* picture) {
    robot.During([&] { robot.TapCommand(main, command); },
                 [&](QWidget& dialog) {
                   robot.Picture(dialog, Text(picture));
                   robot.Tap(dialog, Text("Abbrechen"));
                 });
  };
  look(2772, "product");
  look(2785, "find");
  robot.During([&] { robot.ChooseTool(main, Text("Einstellungen")); },
               [&](QWidget& dialog) {
                 robot.Picture(dialog, Text("options"));
                 robot.Tap(dialog, Text("Abbrechen"));
               });
}

}  // namespace

void LookByNight(Robot& robot, Stage& stage) {
  SpeakLanguage(QStringLiteral("de"));
  stage.Run(kSecondSaturday, QSize(360, 640), [&](MainDialog& main) {
    robot.ChooseFromMenu(main, 1034, Text("Wöchentlich"));
    robot.Picture(main, Text("day"));
    UseDarkPalette(true);
    Settle();
    robot.Picture(main, Text("week"));
    robot.Expect(robot.Headings(main).join(QLatin1Char(' ')).contains(Text("2026")),
                 Text("the headings are dates"));
    robot.SelectRow(main, Text("Birthday cake for Chloé"));
    LookAtTheDialogs(robot, main);
    robot.PictureOfTools(main, Text("tools"));
    const QStringList before = robot.Rows(main);
    robot.AnswerMessage([&] { robot.TapCommand(main, 2789); },
                        Text("Möchten Sie das ausgewählte Produkt als gekauft markieren?"),
                        Text("Nein"));
    robot.Expect(robot.Rows(main) == before, Text("a No changes nothing"));
    robot.TapTab(main, 3);
    robot.Picture(main, Text("searches"));
    robot.TapTab(main, 0);
    robot.Tap(main, 1003);
    robot.Picture(main, Text("calendar"));
    robot.Key(main, Qt::Key_Escape);
    UseDarkPalette(false);
  });
  SpeakLanguage(QStringLiteral("en"));
}

}  // namespace brovanta::tour
