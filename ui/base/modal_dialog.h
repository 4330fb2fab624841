// What every dialog of the program has in common.
#pragma once

#include <QDialog>
#include <vector>

#include "ui/base/narrow_form.h"

class QScreen;

namespace brovanta {

/// Base of the modal dialogs. A dialog that completed its change ends with kCompleted; Escape, the
/// close box and Cancel end it with the cancel result, which is never 0 (QDialog's own would be).
/// No button is pressed by Enter unless it is the form's explicit default. On a small screen
/// (shorter side under 600 logical pixels) the dialog fills the screen, on a larger one it opens at
/// 360 x 640; what does not fit scrolls.
class ModalDialog : public QDialog {
  Q_OBJECT

 public:
  static constexpr int kCompleted = 0;
  static constexpr int kCancelled = 2;

  explicit ModalDialog(QWidget* parent, int cancel_result = kCancelled);

  ~ModalDialog() override;

  /// Ends with the cancel result.
  void reject() override;

  /// Prepares the dialog before its first appearance: buttons, size, scrolling.
  void setVisible(bool visible) override;

 protected:
  /// Enter presses the button that has the focus, else the form's default button.
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

  /// Arranges what stands elsewhere in another size of the window or of the print. Called whenever
  /// these, or what parts of the dialog take, may have changed: it must leave alone what is right,
  /// or it is called for ever. Those that arrange more call this one first.
  virtual void Arrange();

  /// The field with the focus is scrolled into view once everything has its new place.
  void ShowFocusLater();

 private:
  void Prepare();

  std::vector<FormColumns> forms_;
  int cancel_result_;
  bool prepared_ = false;
};

/// The program ends: closes every dialog and message box that was made for the window or for one of
/// these, the innermost first, all as cancelled. Returns before their exec() does, which then finds
/// the window gone.
void EndDialogsOf(QWidget& window);

/// For a dialog's keyPressEvent: Enter presses the button of the dialog that has the focus, where
/// QDialog would press the default one. Whether it was such a key on such a button; a key held down
/// presses once.
bool EnterPressesFocusedButton(const QDialog& dialog, const QKeyEvent& event);

/// Whether the screen is a handheld's: its shorter side is under 600 logical pixels.
[[nodiscard]] bool IsSmallScreen(const QScreen* screen);

}  // namespace brovanta
