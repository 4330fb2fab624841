// What a check of a screen has found, as gmock compares and prints it.
#pragma once

#include <QStringList>
#include <string>
#include <vector>

namespace brovanta::test {

inline std::vector<std::string> Lines(const QStringList& texts) {
  std::vector<std::string> lines;
  for (const QString& text : texts) lines.push_back(text.toStdString());
  return lines;
}

}  // namespace brovanta::test
