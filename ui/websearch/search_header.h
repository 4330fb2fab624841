// The strip at the top of the web search screens.
#pragma once

#include "ui/base/lined_frame.h"

namespace brovanta {

class WrappedLabel;

/// The search picture and a bold text of any length beside it.
class SearchHeader : public LinedFrame {
  Q_OBJECT

 public:
  explicit SearchHeader(QWidget* parent = nullptr);

  /// The label is named "headerLabel".
  void SetText(const QString& text);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FitWords();

  WrappedLabel* label_;
};

}  // namespace brovanta
