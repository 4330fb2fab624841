// The program's main window: tabs, period, filters, record tree and command bar.
#pragma once

#include <QDialog>
#include <memory>
#include <string>

#include "ui/shell/main_state.h"

namespace Ui {
class MainForm;
}

namespace brovanta {

class CommandBar;
class DayWatch;
class FirstRows;
class ListFilters;
class MainCommands;
class PeriodSelector;

/// A modal dialog whose exec() is the program's only main loop. Escape and Enter never close it;
/// the close box and Ctrl+Q do. The rest of the program works in it through real events only.
class MainDialog : public QDialog {
  Q_OBJECT

 public:
  /// Opens the database and the search manager in the data folder (native or documented form, ""
  /// for the working folder) and shows today's products. The results of opening are not checked:
  /// what is missing shows up as an empty tree. `options` is borrowed and outlives the dialog.
  MainDialog(AppOptions& options, std::unique_ptr<ShoppingDatabase> database,
             std::unique_ptr<SearchManager> searches, const std::string& data_folder,
             QWidget* parent = nullptr);

  /// The same with a database that is being opened in that folder already.
  MainDialog(AppOptions& options, std::unique_ptr<FirstRows> first_rows,
             std::unique_ptr<SearchManager> searches, const std::string& data_folder,
             QWidget* parent = nullptr);
  ~MainDialog() override;

  /// Computes the period and its heading from the calendar's date and the view mode and puts it
  /// into the filter. 0, or -1 for an unknown view mode: nothing changes then.
  int UpdatePeriod();

  /// Rebuilds the tree of the current tab; with `reset_filters` first clears the store, category
  /// and find filters and afterwards rebuilds the filter menus. The query's result, 0 = success.
  int RefreshList(bool reset_filters);

  /// Scheme and host of the update server, which "Update" asks and on which coupons have their
  /// pages.
  void SetUpdateServer(const std::string& address) { state_.update_server = address; }

  /// nullptr once the window has been closed.
  [[nodiscard]] ShoppingDatabase* database() const { return state_.database.get(); }
  [[nodiscard]] SearchManager* searches() const { return state_.searches.get(); }
  [[nodiscard]] const RecordFilter& filter() const { return state_.filter; }
  [[nodiscard]] int list_id() const { return state_.list_id; }
  [[nodiscard]] int view_mode() const;

  /// Does nothing: only closing the window ends the program.
  void reject() override;
  void done(int result) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;
  /// What the scrolled screen holds asks for other room.
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetUpWindow();
  [[nodiscard]] int SelectorHeight(int room) const;
  [[nodiscard]] bool ShareALine(int wanted, int room) const;
  [[nodiscard]] int RoomForSelectors() const;
  void ArrangeSelectors();
  void PlaceHeading(bool between_the_buttons);
  void InsertTabs();
  void Connect();
  void AddShortcuts();
  void OnTabChanged();
  void OnFilterChanged(int command);
  void OnCaretChanged();
  void OnDayChanged(QDate before);
  int Fill();
  int ShowFirstRows();
  void DestroyWindow();

  MainState state_;
  std::unique_ptr<FirstRows> first_rows_;  // until they are shown
  std::unique_ptr<Ui::MainForm> form_;
  PeriodSelector* period_ = nullptr;
  ListFilters* filters_ = nullptr;
  DayWatch* day_watch_ = nullptr;
  std::unique_ptr<MainCommands> commands_;
};

}  // namespace brovanta
