// Texts of a screen that cannot be read to their ends.
#pragma once

#include <QStringList>

class QWidget;

namespace brovanta::test {

/// What is wrong with the texts as they are painted: one that is cut or stands out of its control,
/// over another one, or in letters too small to read. Names that people have typed may be cut, at
/// the dots that show it; a field in which one types moves its text.
[[nodiscard]] QStringList CutTexts(QWidget& screen);

}  // namespace brovanta::test
