// The message boxes: fixed sentences, captioned "Brovanta", shown as plain text.
#pragma once

#include <QString>

class QWidget;

namespace brovanta {

enum class Answer { kYes, kNo, kCancel };

/// Shows a sentence with an OK button. A CR LF in the text is one line break. Blocks until closed.
void ShowMessage(QWidget* parent, const QString& text);

/// Asks with the question icon; Escape and the close box answer No (Cancel where it is offered).
[[nodiscard]] Answer AskYesNo(QWidget* parent, const QString& text);
[[nodiscard]] Answer AskYesNoCancel(QWidget* parent, const QString& text);

}  // namespace brovanta
