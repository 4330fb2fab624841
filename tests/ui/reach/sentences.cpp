#include "tests/ui/reach/sentences.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QXmlStreamReader>

namespace brovanta::test {
namespace {

/// The text of an element, with the line breaks that stand in it as elements of their own.
QString TextOf(QXmlStreamReader& xml) {
  QString text;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isCharacters()) text += xml.text();
    if (xml.isStartElement()) text += QLatin1Char('\r');
    if (xml.isEndElement() && xml.name() != QLatin1String("byte")) break;
  }
  return text;
}

QStringList Texts(QLatin1String element) {
  QFile file(QStringLiteral(BROVANTA_TRANSLATIONS "/brovanta_de.ts"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  QXmlStreamReader xml(&file);
  QStringList texts;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isStartElement() && xml.name() == element) texts << TextOf(xml);
  }
  EXPECT_GT(texts.size(), 200);
  texts.removeDuplicates();
  return texts;
}

}  // namespace

QStringList EnglishTexts() { return Texts(QLatin1String("source")); }

QStringList GermanTexts() { return Texts(QLatin1String("translation")); }

QStringList MessagesOf(const QStringList& texts) {
  constexpr qsizetype kShortest = 30;
  QStringList messages;
  for (const QString& text : texts) {
    const bool sentence = text.endsWith(QLatin1Char('.')) || text.endsWith(QLatin1Char('?'));
    if (sentence && text.size() > kShortest) messages << text;
  }
  return messages;
}

}  // namespace brovanta::test
