// Every screen of the program, opened one by one on data of its own.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "db/shopping_database.h"
#include "platform/app_options.h"
#include "search/search_manager.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zone_guard.h"
#include "ui/shell/main_dialog.h"

class QDateEdit;
class QMenu;

namespace brovanta::test {

/// Where a screen lies.
enum class ScreenKind {
  kWindow,   ///< a window of its own, of any size
  kOverlay,  ///< lies over a window and covers it
  kPopup,    ///< a menu or a list that drops down
  kMessage,  ///< a message box, which measures itself
};

/// A screen that is open. It and what it lies over belong to the one who opened it.
struct OpenScreen {
  std::string name;
  ScreenKind kind = ScreenKind::kWindow;
  QWidget* screen = nullptr;  ///< what is new
  QWidget* window = nullptr;  ///< the window that it is, or lies over
};

/// Opens every screen, hands it to `look` and closes it again. The day is Saturday 2026-11-21.
class Screens {
 public:
  using Look = std::function<void(const OpenScreen&)>;

  Screens();
  ~Screens();

  /// All of them, and what they look like in the middle of the work.
  void ForEach(const Look& look);

  /// All of them, as they open.
  void ForEachAsOpened(const Look& look);

  /// The windows only, without what lies over them.
  void ForEachWindow(const Look& look);

  /// What they look like in the middle of the work only: with filters, open lists, waiting.
  void ForEachState(const Look& look);

 private:
  void Fill();
  void AddSomeProducts();
  void AddSomeCoupons();
  void AddSomeSearches();

  void Main();
  void EmptyMain();
  void OverMain();
  void Products();
  void OverProducts();
  void Discounts();
  void Picker();
  void OverPicker();
  void SmallDialogs();
  void Updates();
  void Search();
  void Progress();
  void Results();
  void Messages();

  void NarrowedMain();
  void UnreadableMain();
  void ManyStores();
  void CalendarParts();
  void NarrowedPicker();
  void CouponParts();
  void ProductParts();
  void SmallLists();
  void UpdateStates();
  void ProgressStates();

  std::unique_ptr<MainDialog> OpenMain(const TempFolder& folder);
  void Show(const std::string& name, QWidget& window);
  void ShowOver(const std::string& name, ScreenKind kind, QWidget& screen, QWidget& window);
  void ShowMenu(const std::string& name, QWidget& window, const char* button);
  void ShowList(const std::string& name, QWidget& window, const char* combo);
  void ShowMessageBox(const std::string& name, const std::function<void()>& open);
  void ShowDropDownCalendar(const std::string& name, QWidget& window, QDateEdit& date);

  ZoneGuard zone_{"UTC"};
  FixedClock clock_{1795262400};  // 12:00:00
  TempFolder folder_;
  TempFolder empty_folder_;
  platform::RegistryStore registry_{folder_.File("registry.reg")};
  AppOptions options_{registry_, AppOptions::kKeyPath};
  ShoppingDatabase database_;
  SearchManager searches_;
  std::int32_t search_number_ = 0;
  Look look_;
};

/// A name as long as names are in life.
inline constexpr char kLongName[] = "Extra virgin olive oil, cold pressed, 750 ml";
/// A price, a web site and so on of a result with a title of several lines.
inline constexpr char kLongTitle[] =
    "Universal coffee machine with timer, thermal jug and permanent filter, brushed steel";

}  // namespace brovanta::test
