// The translations as a whole: nothing is missing, nothing left over, every blank is filled in.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <filesystem>

#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

constexpr int kPatience = 60'000;

struct Message {
  QString source;
  QString translation;
};

QString TextOf(QXmlStreamReader& xml) {
  QString text;
  while (xml.readNext() != QXmlStreamReader::EndElement && !xml.atEnd()) {
    if (xml.isCharacters()) text += xml.text();
    if (!xml.isStartElement()) continue;
    // A character that XML would not keep: <byte value="xd"/>.
    text += QChar(xml.attributes().value(QLatin1String("value")).mid(1).toInt(nullptr, 16));
    xml.skipCurrentElement();
  }
  return text;
}

QList<Message> MessagesOf(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  QXmlStreamReader xml(&file);
  QList<Message> messages;
  while (!xml.atEnd()) {
    xml.readNext();
    if (!xml.isStartElement()) continue;
    if (xml.name() == QLatin1String("source")) messages.append({TextOf(xml), {}});
    if (xml.name() == QLatin1String("translation")) messages.last().translation = TextOf(xml);
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  return messages;
}

QStringList Translations() {
  const QDir folder(QStringLiteral(BROVANTA_TRANSLATIONS));
  QStringList paths;
  for (const QString& name : folder.entryList({QStringLiteral("*.ts")})) {
    paths << folder.filePath(name);
  }
  return paths;
}

/// What a text has places for, in order: "%1", "%2", and its line breaks.
QStringList Places(const QString& text) {
  static const QRegularExpression kPlace(QStringLiteral("%\\d|\\r\\n"));
  QStringList places;
  for (auto matches = kPlace.globalMatch(text); matches.hasNext();) {
    places << matches.next().captured();
  }
  places.sort();
  return places;
}

/// Runs scripts/translations --check, on the folder where one is given; what it says.
QString Check(const QStringList& folder, int& code) {
  QProcess check;
  check.setProcessChannelMode(QProcess::MergedChannels);
  check.start(QStringLiteral(BROVANTA_SCRIPTS "/translations"),
              QStringList(QStringLiteral("--check")) + folder);
  EXPECT_TRUE(check.waitForFinished(kPatience));
  code = check.exitCode();
  return QString::fromUtf8(check.readAll());
}

TEST(TranslationsTest, EverySentenceOfTheScreensIsTranslatedAndNoOther) {
  int code = -1;
  const QString said = Check({}, code);
  EXPECT_EQ(code, 0) << said.toStdString();
}

TEST(TranslationsTest, TheCheckFindsWhatIsMissingUnfinishedAndLeftOver) {
  const QString path = Translations().value(0);
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString whole = QString::fromUtf8(file.readAll());
  const QString known = QStringLiteral("<source>due tomorrow</source>\n        <translation>");
  ASSERT_TRUE(whole.contains(known));
  const std::pair<QString, QString> changes[] = {
      {known, QStringLiteral("<source>due some day</source>\n        <translation>")},
      {known, known.chopped(1) + QStringLiteral(" type=\"unfinished\">")}};
  for (const auto& [from, to] : changes) {
    const test::TempFolder folder;
    folder.WriteText("brovanta_de.ts", QString(whole).replace(from, to).toStdString());
    int code = -1;
    const QString said = Check({QString::fromStdString(folder.path())}, code);
    EXPECT_EQ(code, 1) << to.toStdString();
    EXPECT_TRUE(said.contains(QLatin1String("due tomorrow"))) << said.toStdString();
  }
}

TEST(TranslationsTest, NothingButTheProgramsNameIsKeptFromTranslation) {
  const QDir folder(QStringLiteral(BROVANTA_TRANSLATIONS "/.."));
  const QStringList forms = folder.entryList({QStringLiteral("*.ui")});
  ASSERT_GE(forms.size(), 10);
  static const QRegularExpression kKept(QStringLiteral("notr=\"true\">([^<]*)<"));
  for (const QString& form : forms) {
    QFile file(folder.filePath(form));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    for (auto matches = kKept.globalMatch(text); matches.hasNext();) {
      EXPECT_EQ(matches.next().captured(1), QStringLiteral("Brovanta")) << form.toStdString();
    }
  }
}

TEST(TranslationsTest, EveryTranslationHasThePlacesOfItsSentence) {
  ASSERT_FALSE(Translations().isEmpty());
  for (const QString& path : Translations()) {
    const QList<Message> messages = MessagesOf(path);
    EXPECT_GT(messages.size(), 250) << path.toStdString();
    for (const auto& [source, translation] : messages) {
      EXPECT_FALSE(translation.isEmpty()) << source.toStdString();
      EXPECT_EQ(Places(translation), Places(source)) << translation.toStdString();
      EXPECT_EQ(translation.endsWith(QLatin1Char(':')), source.endsWith(QLatin1Char(':')))
          << translation.toStdString();
      EXPECT_EQ(translation.endsWith(QLatin1Char(' ')), source.endsWith(QLatin1Char(' ')))
          << translation.toStdString();
    }
  }
}

}  // namespace
}  // namespace brovanta
