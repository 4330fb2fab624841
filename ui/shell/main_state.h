// What the parts of the main screen share.
#pragma once

#include <memory>
#include <string>

#include "db/shopping_database.h"
#include "platform/app_options.h"
#include "search/search_manager.h"
#include "ui/shell/lists.h"
#include "ui/shell/record_filter.h"

namespace brovanta {

/// Held by the main dialog, lent to its parts.
struct MainState {
  AppOptions& options;
  std::unique_ptr<ShoppingDatabase> database;  ///< nullptr once the window is closed
  std::unique_ptr<SearchManager> searches;     ///< likewise
  RecordFilter filter;
  int list_id = kProductsList;
  /// Asked by "Update", has the coupons' pages.
  std::string update_server = "http://localhost:8427";
};

}  // namespace brovanta
