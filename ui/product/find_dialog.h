// Asks for the text that narrows a tree of records down.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "ui/base/modal_dialog.h"

namespace Ui {
class FindForm;
}

namespace brovanta {

/// Ends with kCompleted after "Find" and "Clear": the caller replaces its find text with
/// find_text() and fills its tree again, even when the text is the same. After "Cancel" (-1) it
/// changes nothing.
class FindTextDialog : public ModalDialog {
  Q_OBJECT

 public:
  static constexpr int kFindCancelled = -1;

  /// `find_text` is the caller's current find text (stored 8-bit form), nothing when there is none.
  FindTextDialog(QWidget* parent, const std::optional<std::string>& find_text);
  ~FindTextDialog() override;

  /// The find text in stored 8-bit form, blanks as typed; nothing when it is empty.
  [[nodiscard]] std::optional<std::string> find_text() const;

 private:
  void End(const QString& text);

  std::unique_ptr<Ui::FindForm> form_;
  QString find_text_;
};

}  // namespace brovanta
