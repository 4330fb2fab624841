// Notes in a multi-line field, to and from their stored form.
#pragma once

#include <string>
#include <string_view>

class QPlainTextEdit;

namespace brovanta {

/// Shows stored notes: Windows-1252, lines ended by CR LF.
void ShowNotes(QPlainTextEdit& field, std::string_view stored);

/// The notes to store, at most 250 bytes: those that were shown, byte for byte, as long as nobody
/// has touched them, else what stands in the field, with CR LF for its line breaks.
[[nodiscard]] std::string NotesText(const QPlainTextEdit& field, std::string_view shown);

}  // namespace brovanta
