// Which texts a screen may show in German: translations, and what people have entered.
#pragma once

#include <QHash>
#include <QList>
#include <QRegularExpression>
#include <QSet>
#include <QString>
#include <QStringList>

class QWidget;

namespace brovanta::test {

/// The texts of the translation, those that the toolkit translates, and the data of Screens.
class KnownTexts {
 public:
  /// Reads a translation, whose language is the one that is spoken now.
  explicit KnownTexts(const QString& path);

  /// Whether a text is one of them, or made of them: values in a sentence, a list with commas.
  [[nodiscard]] bool Has(const QString& text) const;

  /// Whether one of them begins or ends so, as what is cut does.
  [[nodiscard]] bool HasPiece(const QString& piece) const;

  /// English sentences that the translation has other words for.
  [[nodiscard]] const QSet<QString>& left_over() const { return left_over_; }

 private:
  struct Pattern {
    QRegularExpression form;
    int values = 0;
  };

  void Add(const QString& text);
  void AddLocale();
  [[nodiscard]] bool IsDate(const QString& line) const;
  [[nodiscard]] bool HasLine(const QString& line) const;
  [[nodiscard]] bool IsSentence(const QString& line) const;

  QSet<QString> texts_;
  QSet<QString> date_words_;
  QList<Pattern> patterns_;
  QSet<QString> left_over_;
  mutable QHash<QString, bool> asked_;
};

/// What a widget says of its own, to the eye and to a screen reader, and what is in it.
[[nodiscard]] QStringList TextsOf(QWidget& widget);

/// The texts of a screen that are not among the known ones, with the name of their widget; those
/// that are painted and nothing else too.
[[nodiscard]] QStringList UnknownTexts(QWidget& screen, const KnownTexts& known);

}  // namespace brovanta::test
