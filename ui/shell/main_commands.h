// What the commands of the main screen do on each list.
#pragma once

#include <QCoreApplication>
#include <functional>
#include <optional>

#include "ui/base/record_row.h"
#include "ui/shell/main_state.h"

class QWidget;

namespace brovanta {

class RecordTree;

/// Runs commands on the list that is shown and the tree's selected record. A command that changed
/// something ends with a refresh, which resets the filters or keeps them.
class MainCommands {
  Q_DECLARE_TR_FUNCTIONS(MainCommands)

 public:
  using Refresh = std::function<void(bool reset_filters)>;

  /// `window` is the parent of all dialogs and message boxes.
  MainCommands(QWidget& window, RecordTree& tree, MainState& state, Refresh refresh);

  /// Runs a command by its number in the menu or the tool bar; an unknown number does nothing.
  void Run(int command);

 private:
  void Add();
  void Edit();
  void Delete();
  void Purchase();
  void Find();
  void Update();
  void Options();

  // Each runs a dialog and returns its result, the cancelled one where there is no such dialog.
  int RunAddDialog();
  int RunEditDialog(const TreeItemInfo& selected);
  int EditProduct(std::int32_t id, int mode);
  int EditCoupon(std::int32_t id, std::int16_t source);
  void ShowSearchResults(std::int32_t number);

  void DeleteProduct(const TreeItemInfo& selected);
  void DeleteSearch(std::int32_t number);
  bool Confirm(const QString& question);
  void MarkProduct(int kind, std::int32_t id, int action);

  /// A copy: the row goes with the next rebuild.
  [[nodiscard]] std::optional<TreeItemInfo> Selected() const;

  QWidget& window_;
  RecordTree& tree_;
  MainState& state_;
  Refresh refresh_;
};

}  // namespace brovanta
