// A label for texts that nobody has looked at before they are shown.
#pragma once

#include <QLabel>
#include <QTextLayout>

namespace brovanta {

/// Shows any text as it stands, never as markup, on as many lines as it takes. A word that is wider
/// than the label is broken, where QLabel would widen the screen; line breaks are kept.
class WrappedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit WrappedLabel(QWidget* parent = nullptr);

  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Brings the lines up to date with text, font and width; their height.
  int LayOut(int width) const;

  mutable QTextLayout lines_;
  mutable QString laid_out_;
  mutable int width_ = -1;
  mutable int height_ = 0;
};

}  // namespace brovanta
