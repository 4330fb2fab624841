// A font twice the size, for as long as it lives.
#pragma once

#include <QApplication>
#include <QFont>
#include <QFontInfo>

namespace brovanta::test {

class LargePrint {
 public:
  LargePrint() : before_(QApplication::font()) {
    QFont font = before_;
    font.setPixelSize(2 * QFontInfo(font).pixelSize());
    QApplication::setFont(font);
  }
  LargePrint(const LargePrint&) = delete;
  LargePrint& operator=(const LargePrint&) = delete;
  ~LargePrint() { QApplication::setFont(before_); }

 private:
  QFont before_;
};

}  // namespace brovanta::test
