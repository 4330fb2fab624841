// The search results screens over a folder of results of their own, as the tests drive them.
#pragma once

#include <QStringList>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "search/search_manager.h"
#include "tests/search/raw_searches.h"
#include "tests/support/browser_stand_in.h"
#include "tests/support/dialog_test.h"
#include "ui/websearch/result_list.h"

namespace brovanta::test {

/// A result as it stands in a results file.
struct RawShownResult {
  std::uint32_t id = 1;
  double price = 0.0;
  std::optional<std::string_view> title = "Soap";
  std::optional<std::string_view> text = std::nullopt;
  std::optional<std::string_view> url = "http://shop.example/1";
  std::optional<std::string_view> site = "Corner Shop";
  std::uint16_t status = 0;
};

[[nodiscard]] Bytes Raw(const RawShownResult& result);

class ResultsFormTest : public DialogTest {
 protected:
  static constexpr std::int32_t kNumber = 7;

  ResultsFormTest();

  /// Writes "WebSearch/7.dat".
  void Results(const std::vector<RawShownResult>& results) const;
  /// "WebSearch/7.dat" as it stands, nothing when it is missing.
  [[nodiscard]] std::optional<Bytes> Stored() const { return folder_.Read("WebSearch/7.dat"); }

  /// Opens the results of search 7, found for "soap", and lets `act` play the person; the result.
  int Run(const Act& act);

  ResultList* List() { return Find<ResultList>("resultList"); }
  std::string Rows();  ///< title and id of each row, "Soap 1|Tea 2"
  void Select(int row);
  void Tool(int command);
  std::vector<int> Enabled();  ///< of the three commands
  std::string Label(const char* name);

  TempFolder folder_;
  SearchManager searches_;
  /// The addresses that went to the browser, which does as it is told.
  BrowserStandIn browser_;
};

}  // namespace brovanta::test
