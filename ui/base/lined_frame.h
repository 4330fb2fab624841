// A ground with thin lines: the strips of a screen and the border around a button.
#pragma once

#include <QFrame>

namespace brovanta {

class LinedFrame : public QFrame {
  Q_OBJECT

 public:
  enum class Lines {
    kBelow,   ///< a strip at the top of a screen
    kAbove,   ///< a strip at the bottom
    kAround,  ///< a rounded border on the screen's own ground
  };

  explicit LinedFrame(QWidget* parent = nullptr, Lines lines = Lines::kBelow);

  void SetLines(Lines lines);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Lines lines_;
};

}  // namespace brovanta
