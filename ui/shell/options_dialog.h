// The options: sales tax, country and zip code.
#pragma once

#include <memory>

#include "platform/app_options.h"
#include "ui/base/modal_dialog.h"

namespace Ui {
class OptionsForm;
}

namespace brovanta {

/// Edits the program's options in place and saves them. Ends with 0 when they are saved; after a
/// failed save it stays open and the options keep the new values for this run.
class OptionsDialog : public ModalDialog {
  Q_OBJECT

 public:
  /// The options are borrowed and must outlive the dialog.
  OptionsDialog(AppOptions& options, QWidget* parent);
  ~OptionsDialog() override;

 private:
  void FillCountries();
  void ShowOptions();
  /// The country as the settings have it.
  [[nodiscard]] QString Country() const;
  void Accept();

  AppOptions& options_;
  std::unique_ptr<Ui::OptionsForm> form_;
};

}  // namespace brovanta
