#include "ui/base/wide_text.h"

#include "util/windows_1252.h"

namespace brovanta {

QString WideText(std::string_view stored) {
  return QString::fromStdU16String(WidenFromWindows1252(stored));
}

std::string NarrowText(const QString& text) {
  // Composed, or an accent typed by a dead key would be lost as a "?" of its own.
  return NarrowToWindows1252(text.normalized(QString::NormalizationForm_C).toStdU16String());
}

}  // namespace brovanta
