#include "ui/base/wide_text.h"

#include "util/utf16.h"
#include "util/windows_1252.h"

namespace brovanta {

QString WideText(std::string_view stored) {
  QString wide(static_cast<qsizetype>(stored.size()), Qt::Uninitialized);
  WidenFromWindows1252(stored, reinterpret_cast<char16_t*>(wide.data()));
  return wide;
}

QString WebText(std::string_view bytes) {
  const auto wide = Utf8ToUtf16(bytes);
  return wide ? QString::fromStdU16String(*wide) : WideText(bytes);
}

std::string NarrowText(const QString& text) {
  // Composed, or an accent typed by a dead key would be lost as a "?" of its own.
  return NarrowToWindows1252(text.normalized(QString::NormalizationForm_C).toStdU16String());
}

}  // namespace brovanta
