// An area of texts that is longer than the screen.
#pragma once

#include <QScrollArea>

namespace brovanta {

/// Shows by a frame that it has the focus: there is nothing in it that could take it, and the arrow
/// keys move the text.
class ReadingArea : public QScrollArea {
  Q_OBJECT

 public:
  explicit ReadingArea(QWidget* parent = nullptr);

 protected:
  bool event(QEvent* event) override;
};

}  // namespace brovanta
