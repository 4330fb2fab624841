// Asks what to look for in the web stores.
#pragma once

#include <memory>

#include "search/search_manager.h"
#include "ui/base/modal_dialog.h"

namespace Ui {
class SearchForm;
}

namespace brovanta {

/// Loads the agent configuration whenever it opens, and runs the search that it is asked for. Ends
/// with kCompleted after a search with results, with kNoResults after one without.
class SearchDialog : public ModalDialog {
  Q_OBJECT

 public:
  static constexpr int kNoResults = -1;

  /// The search manager is borrowed, and not touched any more once the dialog is done.
  SearchDialog(SearchManager& searches, QWidget* parent);
  ~SearchDialog() override;

  /// Says first what is wrong with the agent configuration; then the dialog opens in any case.
  int exec() override;
  void done(int result) override;

 private:
  /// What there is to say about the configuration, empty when it has categories.
  [[nodiscard]] QString LoadCategories();
  void Search();

  SearchManager& searches_;
  std::unique_ptr<Ui::SearchForm> form_;
  bool over_ = false;
};

}  // namespace brovanta
