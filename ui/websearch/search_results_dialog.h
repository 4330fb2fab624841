// The list of what a saved web search has found.
#pragma once

#include <QString>
#include <cstdint>
#include <memory>
#include <string>

#include "search/saved_searches.h"
#include "ui/base/modal_dialog.h"

namespace Ui {
class SearchResultsForm;
}

namespace brovanta {

class ResultRow;

/// Commands of the results list.
inline constexpr int kResultView = 2795;
inline constexpr int kResultBrowse = 2805;
inline constexpr int kResultDelete = 2796;

/// Views a search's results, opens their pages and deletes some of them. A row goes only when the
/// results file has been written without its result. What cannot be read is reported
/// before the dialog opens, with an empty list. The result says nothing.
class SearchResultsDialog : public ModalDialog {
  Q_OBJECT

 public:
  /// The results file is that of the search with the number; `searches` is asked for its path only,
  /// before the constructor returns. `search_text` is shown.
  SearchResultsDialog(const SavedSearches& searches, std::int32_t number,
                      const QString& search_text, QWidget* parent);
  ~SearchResultsDialog() override;

  /// Does not open where it was ended under the message of an error, with the program.
  int exec() override;
  void done(int result) override;

 protected:
  void Arrange() override;

 private:
  void AddCommands();
  void Load();
  void OnCaretChanged();
  void RunCommand(int command);
  void View();
  void OpenPage();
  void Delete();

  /// The selected row's result; nullptr when there is none, of which the user has been told then.
  [[nodiscard]] const SearchResultItem* ResultToView();
  /// Out of the list, out of the file, out of the rows; stops where one fails.
  void Remove(std::int32_t id);
  void Say(const QString& sentence);

  std::string path_;
  QString search_text_;
  SearchResultList results_;
  bool readable_ = true;
  bool over_ = false;
  std::unique_ptr<Ui::SearchResultsForm> form_;
};

}  // namespace brovanta
