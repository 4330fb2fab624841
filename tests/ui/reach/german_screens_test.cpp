// Every screen in German: nothing is left in English, and nothing is clipped on a handheld.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLabel>

#include "tests/support/form_check.h"
#include "tests/support/german.h"
#include "tests/ui/reach/known_texts.h"
#include "tests/ui/reach/screens.h"
#include "tests/ui/reach/text_lines.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr QSize kHandheld{360, 640};
const QString kTranslation = QStringLiteral(BROVANTA_TRANSLATIONS "/brovanta_de.ts");

TEST(GermanScreensTest, NothingIsLeftInEnglishOrClipped) {
  const German german;
  const KnownTexts known(kTranslation);
  int texts = 0;
  Screens screens;
  screens.ForEach([&](const OpenScreen& open) {
    if (open.kind == ScreenKind::kWindow) open.window->resize(kHandheld);
    QCoreApplication::processEvents();
    SavePicture(open.window, QStringLiteral("german_") + QString::fromStdString(open.name));
    EXPECT_THAT(Lines(UnknownTexts(*open.screen, known)), IsEmpty()) << open.name;
    QList<QWidget*> widgets = open.screen->findChildren<QWidget*>();
    widgets << open.screen;
    for (QWidget* widget : widgets) {
      // What the boxes here say is made up; their buttons are not.
      if (open.kind == ScreenKind::kMessage && qobject_cast<QLabel*>(widget)) continue;
      for (QString text : TextsOf(*widget)) {
        text.remove(QLatin1Char('&'));
        EXPECT_FALSE(known.left_over().contains(text)) << open.name << ": " << text.toStdString();
        ++texts;
      }
    }
    if (open.kind != ScreenKind::kOverlay && open.kind != ScreenKind::kPopup) {
      EXPECT_EQ(Clipped(open.screen), "") << open.name;
    }
  });
  EXPECT_GT(texts, 500);
}

TEST(GermanScreensTest, ATextThatIsNeitherTranslatedNorDataIsSeen) {
  const German german;
  const KnownTexts known(kTranslation);
  QLabel label(QStringLiteral("Milk, Corner Shop, 2 Tage \u00FCberf\u00E4llig"));
  EXPECT_THAT(Lines(UnknownTexts(label, known)), IsEmpty());
  label.setText(QStringLiteral("Ansicht: T\u00E4glich"));
  EXPECT_THAT(Lines(UnknownTexts(label, known)), IsEmpty());
  label.setObjectName(QStringLiteral("hint"));
  for (const char* const text : {"Left over", "Ansicht: Fortnightly", "Milk, half price"}) {
    label.setText(QString::fromLatin1(text));
    EXPECT_THAT(Lines(UnknownTexts(label, known)), ElementsAre(std::string("hint: ") + text));
  }
}

}  // namespace
}  // namespace brovanta::test
