// The program in German, for the length of a test.
#pragma once

#include "ui/base/language.h"

namespace brovanta::test {

class German {
 public:
  German() { SpeakLanguage(QStringLiteral("de")); }
  German(const German&) = delete;
  German& operator=(const German&) = delete;
  ~German() { SpeakLanguage(QStringLiteral("en")); }
};

}  // namespace brovanta::test
