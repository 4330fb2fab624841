// All texts of the program, from its translations.
#pragma once

#include <QStringList>

namespace brovanta::test {

/// As they stand in the sources, and in German.
[[nodiscard]] QStringList EnglishTexts();
[[nodiscard]] QStringList GermanTexts();

/// The whole sentences among them that a message box may have to show.
[[nodiscard]] QStringList MessagesOf(const QStringList& texts);

}  // namespace brovanta::test
