// Every screen in German: nothing is left in English, and nothing is clipped on a handheld.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QSet>
#include <QTabBar>
#include <QXmlStreamReader>

#include "tests/support/form_check.h"
#include "tests/support/german.h"
#include "tests/ui/reach/screens.h"
#include "ui/base/record_tree.h"

namespace brovanta::test {
namespace {

constexpr QSize kHandheld{360, 640};

/// The English sentences that German has other words for.
QSet<QString> EnglishSentences() {
  QFile file(QStringLiteral(BROVANTA_TRANSLATIONS "/brovanta_de.ts"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  QXmlStreamReader xml(&file);
  QSet<QString> english;
  QSet<QString> german;
  while (!xml.atEnd()) {
    xml.readNext();
    if (!xml.isStartElement()) continue;
    const bool source = xml.name() == QLatin1String("source");
    const bool translation = xml.name() == QLatin1String("translation");
    if (!source && !translation) continue;
    (source ? english : german).insert(xml.readElementText(QXmlStreamReader::SkipChildElements));
  }
  EXPECT_GT(english.size(), 200);
  return english - german;
}

/// What a widget says, to the eye and to a screen reader.
QStringList TextsOf(const QWidget& widget) {
  QStringList texts{widget.windowTitle(), widget.accessibleName(), widget.accessibleDescription(),
                    widget.toolTip()};
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) texts << label->text();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) texts << button->text();
  if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
    for (int i = 0; i < tabs->count(); ++i) texts << tabs->tabText(i) << tabs->tabToolTip(i);
  }
  if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
    for (int i = 0; i < box->count(); ++i) texts << box->itemText(i);
  }
  if (const auto* tree = qobject_cast<const RecordTree*>(&widget)) {
    texts << tree->empty_text().split(QLatin1Char('\n'));
  }
  for (const QAction* action : widget.actions()) texts << action->text() << action->toolTip();
  return texts;
}

TEST(GermanScreensTest, NothingIsLeftInEnglishOrClipped) {
  const German german;
  const QSet<QString> english = EnglishSentences();
  int texts = 0;
  Screens screens;
  screens.ForEach([&](const OpenScreen& open) {
    if (open.kind == ScreenKind::kWindow) open.window->resize(kHandheld);
    QCoreApplication::processEvents();
    SavePicture(open.window, QStringLiteral("german_") + QString::fromStdString(open.name));
    QList<QWidget*> widgets = open.screen->findChildren<QWidget*>();
    widgets << open.screen;
    for (const QWidget* widget : widgets) {
      // What the boxes here say is made up; their buttons are not.
      if (open.kind == ScreenKind::kMessage && qobject_cast<const QLabel*>(widget)) continue;
      for (QString text : TextsOf(*widget)) {
        text.remove(QLatin1Char('&'));
        EXPECT_FALSE(english.contains(text))
            << open.name << ": " << widget->objectName().toStdString() << ": "
            << text.toStdString();
        if (!text.isEmpty()) ++texts;
      }
    }
    if (open.kind != ScreenKind::kOverlay && open.kind != ScreenKind::kPopup) {
      EXPECT_EQ(Clipped(open.screen), "") << open.name;
    }
  });
  EXPECT_GT(texts, 500);
}

}  // namespace
}  // namespace brovanta::test
