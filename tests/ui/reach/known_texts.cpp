#include "tests/ui/reach/known_texts.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QXmlStreamReader>
#include <algorithm>

#include "tests/support/painted_texts.h"
#include "tests/ui/reach/accessible_check.h"
#include "tests/ui/reach/screens.h"
#include "ui/base/language.h"
#include "ui/base/record_tree.h"
#include "ui/base/row_tree.h"

namespace brovanta::test {
namespace {

const QRegularExpression kBetween(QStringLiteral("[,:] "));  // the parts of a sentence
const QChar kDots(0x2026);

/// What people and web pages have put into the data of Screens, and what the boxes there say.
const char* const kData[] = {
    "Milk",
    "Bread",
    "Soap",
    "Spring offer",
    "one for each household",
    "Two for the price of one on everything",
    "Two for the price..",
    "Corner Shop",
    "Corner..",
    "Mediterranean Delicatessen & Wine",
    "Oil, vinegar and spices",
    "Dairy",
    "Litre",
    "coffee",
    "coffee machine",
    "Groceries",
    "Shop 1",
    "Shop 2",
    "Shop 3",
    "Ships in two days. Two years of warranty.",
    "Only the bottle with the green label, and only as long as it is pressed in autumn.",
    "Ask for the one behind the counter.",
    "olive",
    "spring",
    "http://shop.example/items/4711?colour=steel&from=search",
    "There was an error while reading the database.",
    "Do you want to permanently delete the selected coupon?",
    "Do you want to permanently delete the selected product?"};

/// Names of keys and of the program, numbers, prices, dates.
bool IsValue(const QString& text) {
  static const QRegularExpression kForm(QStringLiteral(
      "^([-+$%.,:0-9 ]*|Brovanta|OK|F[0-9]+|(Ctrl|Strg|Alt)\\+.|Ins|Del|Einfg|Entf)$"));
  return kForm.match(text).hasMatch();
}

/// Without the sign that marks a key in a button's text.
QString Plain(QString text) { return text.remove(QLatin1Char('&')).simplified(); }

}  // namespace

KnownTexts::KnownTexts(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  QXmlStreamReader xml(&file);
  QSet<QString> german;
  while (!xml.atEnd()) {
    xml.readNext();
    if (!xml.isStartElement()) continue;
    const bool source = xml.name() == QLatin1String("source");
    if (!source && xml.name() != QLatin1String("translation")) continue;
    const QString text = xml.readElementText(QXmlStreamReader::SkipChildElements);
    (source ? left_over_ : german).insert(text);
    if (source) continue;
    for (const QString& line : text.split(QLatin1Char('\n'))) Add(line);
  }
  EXPECT_GT(left_over_.size(), 200);
  left_over_ -= german;
  for (const char* const text : kData) texts_.insert(Plain(QString::fromLatin1(text)));
  Add(QStringLiteral("Store number %1"));
  texts_.insert(QString::fromLatin1(kLongName));
  texts_.insert(QString::fromLatin1(kLongTitle));
  AddLocale();
}

void KnownTexts::Add(const QString& text) {
  static const QRegularExpression kPlace(QStringLiteral("%[0-9]"));
  static const QRegularExpression kLetter(QStringLiteral("\\p{L}"));
  const QString plain = Plain(text);
  if (!plain.contains(kPlace)) {
    texts_.insert(plain);
    // A field is called as its label is.
    if (plain.endsWith(QLatin1Char(':'))) texts_.insert(plain.chopped(1));
    return;
  }
  if (!QString(plain).remove(kPlace).contains(kLetter)) return;  // would be like anything
  QString form = QRegularExpression::escape(plain);
  const auto values = static_cast<int>(form.count(QStringLiteral("\\%")));
  form.replace(QRegularExpression(QStringLiteral("\\\\%[0-9]")), QStringLiteral("(.*)"));
  patterns_.append({QRegularExpression(QStringLiteral("^%1$").arg(form)), values});
}

void KnownTexts::AddLocale() {
  const QLocale& locale = SpokenLocale();
  for (const auto format : {QLocale::LongFormat, QLocale::ShortFormat, QLocale::NarrowFormat}) {
    for (int day = 1; day <= 7; ++day) date_words_.insert(locale.dayName(day, format));
    for (int month = 1; month <= 12; ++month) date_words_.insert(locale.monthName(month, format));
  }
  for (const char* const answer : {"&Yes", "&No", "Cancel", "OK"}) {
    texts_.insert(Plain(QCoreApplication::translate("QPlatformTheme", answer)));
  }
  for (const char* const scroll : {"Scroll Left", "Scroll Right"}) {
    texts_.insert(QCoreApplication::translate("QTabBar", scroll));
  }
}

bool KnownTexts::Has(const QString& text) const {
  const QStringList lines = text.split(QLatin1Char('\n'));
  return std::all_of(lines.begin(), lines.end(),
                     [this](const QString& line) { return HasLine(Plain(line)); });
}

bool KnownTexts::HasPiece(const QString& piece) const {
  return std::any_of(texts_.begin(), texts_.end(), [&piece](const QString& text) {
    return text.startsWith(piece) || text.endsWith(piece);
  });
}

bool KnownTexts::IsDate(const QString& line) const {
  const QStringList words = line.split(QLatin1Char(' '));
  return std::all_of(words.begin(), words.end(), [this](const QString& word) {
    return IsValue(word) || date_words_.contains(word);
  });
}

bool KnownTexts::HasLine(const QString& line) const {
  static const QRegularExpression kWithKey(QStringLiteral("^(.+) \\(([^()]+)\\)$"));
  if (texts_.contains(line) || IsValue(line) || IsDate(line)) return true;
  static const QString kCut = QStringLiteral("...");  // the names on buttons
  if (line.endsWith(kCut) && HasPiece(line.chopped(kCut.size()))) return true;
  const QRegularExpressionMatch key = kWithKey.match(line);
  if (key.hasMatch() && IsValue(key.captured(2))) return HasLine(key.captured(1));
  if (const auto known = asked_.constFind(line); known != asked_.constEnd()) return *known;
  asked_.insert(line, false);  // of no help to itself
  bool has = IsSentence(line);
  for (qsizetype at = line.indexOf(kBetween); at > 0 && !has; at = line.indexOf(kBetween, at + 1)) {
    const bool comma = line[at] == QLatin1Char(',');
    has = HasLine(line.left(comma ? at : at + 1)) && HasLine(line.mid(at + 2));
  }
  asked_.insert(line, has);
  return has;
}

bool KnownTexts::IsSentence(const QString& line) const {
  return std::any_of(patterns_.begin(), patterns_.end(), [&](const Pattern& pattern) {
    const QRegularExpressionMatch match = pattern.form.match(line);
    if (!match.hasMatch()) return false;
    for (int i = 1; i <= match.lastCapturedIndex(); ++i) {
      if (!HasLine(match.captured(i).trimmed())) return false;
    }
    return true;
  });
}

QStringList TextsOf(QWidget& widget) {
  QStringList texts{widget.windowTitle(), widget.accessibleName(), widget.accessibleDescription(),
                    widget.toolTip()};
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) texts << label->text();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) texts << button->text();
  if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) {
    texts << edit->text() << edit->placeholderText();
  }
  if (const auto* edit = qobject_cast<const QPlainTextEdit*>(&widget)) {
    texts << edit->toPlainText() << edit->placeholderText();
  }
  if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
    for (int i = 0; i < tabs->count(); ++i) texts << tabs->tabText(i) << tabs->tabToolTip(i);
  }
  if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
    for (int i = 0; i < box->count(); ++i) {
      texts << box->itemText(i) << box->itemData(i, Qt::AccessibleTextRole).toString();
    }
  }
  if (const auto* tree = qobject_cast<const RecordTree*>(&widget)) texts << tree->empty_text();
  if (const auto* tree = qobject_cast<const RowTree*>(&widget)) texts << tree->empty_text();
  if (qobject_cast<const QTreeView*>(&widget) != nullptr) texts << SpokenRows(widget);
  for (const QAction* action : widget.actions()) texts << action->text() << action->toolTip();
  texts.removeAll(QString());
  return texts;
}

QStringList UnknownTexts(QWidget& screen, const KnownTexts& known) {
  QStringList unknown;
  QString said;
  QList<QWidget*> widgets = screen.findChildren<QWidget*>();
  widgets << &screen;
  for (QWidget* const widget : widgets) {
    for (const QString& text : TextsOf(*widget)) {
      said += Plain(text) + QLatin1Char('\n');
      if (!known.Has(text)) unknown << widget->objectName() + QStringLiteral(": ") + text;
    }
  }
  for (const PaintedText& painted : PaintedTexts(screen)) {
    // A line of a longer text, or what is left of one that is cut.
    for (const QString& part : painted.text.split(kDots)) {
      const QString plain = Plain(part);
      const bool cut = painted.text.contains(kDots) && known.HasPiece(plain);
      if (!cut && !known.Has(plain) && !said.contains(plain)) {
        unknown << QStringLiteral("painted: ") + painted.text;
      }
    }
  }
  return unknown;
}

}  // namespace brovanta::test
