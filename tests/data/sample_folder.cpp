#include "tests/data/sample_folder.h"

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "db/shopping_database.h"
#include "search/search_manager.h"
#include "tests/agent/agent_text.h"

namespace brovanta::test {
namespace {

namespace fs = std::filesystem;

void Need(bool done) {
  if (!done) throw std::runtime_error("the household could not be made");
}

DiscountFields Coupon(const std::string& name) {
  DiscountFields fields;
  fields.name = name;
  fields.product = "Milk";
  fields.type = 2;
  fields.value_type = 2;
  fields.value = 0.5;
  return fields;
}

void AddDiscounts(ShoppingDatabase& database) {
  DiscountFields own = Coupon("Own");
  own.store = NameRef{0, "Corner Shop"};
  own.category = NameRef{0, "Food"};
  Need(database.discounts().Add(0, 0, own).has_value());
  DiscountFields served = Coupon("Milk week");
  Need(database.discounts().Add(40, 1, served).has_value());
  DiscountFields gone = Coupon("Gone");
  Need(database.discounts().Add(41, 1, gone).has_value());
  Need(database.discounts().Mark(41, 1, kMarkDeleted) >= 0);
  DiscountFields deal = Coupon("Deal");
  Need(database.discounts().Add(40, 2, deal).has_value());
  Need(database.discounts().Mark(40, 2, kMarkFlagged) >= 0);
}

void AddProducts(ShoppingDatabase& database) {
  ProductFields milk;
  milk.name = "Milk";
  milk.store = NameRef{5000, ""};
  milk.category = NameRef{5000, ""};
  milk.unit = NameRef{0, "bottle"};
  milk.quantity = 2;
  milk.discounts[0] = {40, 1, 2};
  milk.discounts[1] = {40, 0, 102};  // found by the search
  Need(database.products().Add(kProductKind, milk).has_value());
  ProductFields bread;
  bread.name = "Bread";
  Need(database.products().Add(kProductKind, bread).has_value());
  ProductFields salt;
  salt.name = "Salt";
  Need(database.products().Add(kProductKind, salt).has_value());
  Need(database.products().Mark(kProductKind, 2, kProductDelete) >= 0);
  Need(database.products().Mark(kProductKind, 1, kProductPurchased) >= 0);
}

SearchResultItem Result(const char* title, double price) {
  SearchResultItem item;
  item.Title = title;
  item.Url = "http://shop.example/1";
  item.SiteName = "Corner Shop";
  item.Price = price;
  return item;
}

void SaveSearches(const std::string& folder) {
  SearchManager manager;
  Need(manager.SetSearchFolder(folder) == 0);
  SearchResultList results;
  results.Append({Result("Red shoe", 39.9)});
  results.Append({Result("Shoe lace", 2.5)});
  SavedSearches& saved = manager.saved_searches();
  for (const int number : {2, 3, 4}) {
    Need(saved.SaveSearch(1, "shoe", &results) == number);
  }
  Need(saved.DeleteSavedSearch(3) == 3);
  Need(fs::remove(folder + "/WebSearch/3.dat"));
}

Bytes ReadBytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(in), {});
  const auto* bytes = reinterpret_cast<const std::byte*>(text.data());
  return {bytes, bytes + text.size()};
}

}  // namespace

void MakeEmptyLists(const std::string& folder) {
  const Bytes empty = Hex("81 38 01 00 83 38 01 00");
  for (const char* const name : {"store.lst", "category.lst", "unit.lst"}) {
    std::ofstream out(folder + "/" + name, std::ios::binary);
    out.write(reinterpret_cast<const char*>(empty.data()),
              static_cast<std::streamsize>(empty.size()));
  }
}

void MakeHousehold(const std::string& folder) {
  MakeEmptyLists(folder);
  ShoppingDatabase database;
  Need(database.Open(folder) == 0);
  AddDiscounts(database);
  AddProducts(database);
  SaveSearches(folder);
  std::ofstream(folder + "/webspider.xml")
      << kBooks << AgentBlockText(ShopFields()) << ShopWith("SiteId", "5");
}

std::map<std::string, StoredFile> PictureOf(const std::string& folder) {
  std::map<std::string, StoredFile> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    struct stat status {};
    if (lstat(entry.path().c_str(), &status) != 0) throw std::runtime_error("lstat");
    StoredFile& file = files[fs::relative(entry.path(), folder).string()];
    if (entry.is_regular_file()) file.bytes = ReadBytes(entry.path());
    file.changed = std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
    file.mode = status.st_mode;
  }
  return files;
}

std::map<std::string, Bytes> FilesOf(const std::string& folder) {
  std::map<std::string, Bytes> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    files[fs::relative(entry.path(), folder).string()] = ReadBytes(entry.path());
  }
  return files;
}

std::vector<std::string> Lines(const std::vector<data_tool::Finding>& findings) {
  std::vector<std::string> lines;
  for (const data_tool::Finding& finding : findings) {
    const char* const severity = finding.severity == data_tool::Severity::kError     ? "error "
                                 : finding.severity == data_tool::Severity::kWarning ? "warning "
                                                                                     : "note ";
    lines.push_back(
        severity + finding.file + " " + (finding.byte ? std::to_string(*finding.byte) : "-") +
        " #" + (finding.record ? std::to_string(*finding.record) : "-") + ": " + finding.words);
  }
  return lines;
}

}  // namespace brovanta::test
