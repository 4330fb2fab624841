// The application object: the order in which the program comes up and goes down.
#pragma once

#include <QPointer>
#include <memory>
#include <string>

#include "platform/registry.h"
#include "search/search_manager.h"
#include "ui/shell/first_rows.h"
#include "ui/shell/main_dialog.h"

namespace brovanta {

/// Owns the settings for the whole run. The database and the search manager belong to the main
/// dialog, which gives them up when its window closes.
class Application {
 public:
  /// Settings from the store, records from the data folder (native path, "" the working folder),
  /// where `first_rows` may be at work already.
  Application(platform::RegistryStore store, std::string data_folder,
              std::unique_ptr<FirstRows> first_rows = nullptr);

  /// The program's one search manager, made by the first call: with empty lists and paths. nullptr
  /// once the main dialog has let it go; it is never made again.
  [[nodiscard]] SearchManager* GetSearchManager();

  /// Loads the settings, builds the main dialog and runs it modally, once. Always returns false:
  /// the program is over when the dialog has closed, and there is no other main loop.
  bool InitInstance();

  /// Brings the open windows to the front.
  void RaiseWindow();

 private:
  platform::RegistryStore store_;
  std::string data_folder_;
  std::unique_ptr<FirstRows> first_rows_;    // until the main dialog takes it
  std::unique_ptr<SearchManager> searches_;  // until the main dialog takes it
  bool searches_made_ = false;
  QPointer<MainDialog> main_window_;
};

}  // namespace brovanta
