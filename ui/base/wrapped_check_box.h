// A check box whose text takes as many lines as it needs.
#pragma once

#include <QCheckBox>

namespace brovanta {

class WrappedCheckBox : public QCheckBox {
  Q_OBJECT

 public:
  explicit WrappedCheckBox(QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] int heightForWidth(int width) const override;

 protected:
  [[nodiscard]] bool hitButton(const QPoint& position) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Width of the box and the gap behind it.
  [[nodiscard]] int BoxWidth() const;
  [[nodiscard]] int RoomForText(int width) const;
  /// Large print gets smaller where it would take many lines.
  [[nodiscard]] QFont ShownFont(int width) const;
};

}  // namespace brovanta
