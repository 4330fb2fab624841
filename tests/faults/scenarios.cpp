#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "db/feed_import.h"
#include "db/journal_format.h"
#include "db/shopping_database.h"
#include "platform/app_options.h"
#include "platform/registry.h"
#include "search/results_file.h"
#include "search/search_manager.h"
#include "tests/faults/scenario.h"
#include "tests/support/faulty_calls.h"

namespace brovanta::test {
namespace {

/// An empty household: the three lists.
void Lists(const TempFolder& folder) {
  for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
    folder.Write(list, NameList().Encode());
  }
}

[[noreturn]] void Fail() { std::abort(); }

ProductFields Milk() {
  ProductFields fields;
  fields.name = "Milk";
  fields.notes = "the fresh one";
  fields.quantity = 2;
  return fields;
}

ProductFields BreadFromNewNames() {
  ProductFields fields;
  fields.name = "Bread";
  fields.store = NameRef{0, "Corner Shop"};
  fields.category = NameRef{0, "Food"};
  fields.unit = NameRef{0, "loaf"};
  return fields;
}

DiscountFields Coupon() {
  DiscountFields fields;
  fields.name = "Two for one";
  fields.product = "Milk";
  fields.type = 1;
  return fields;
}

/// Two products, a purchase and two discounts.
void Household(const TempFolder& folder) {
  Lists(folder);
  ShoppingDatabase database;
  if (database.Open(folder.path()) != 0) Fail();
  for (const int kind : {kProductKind, kProductKind, kPurchaseKind}) {
    ProductFields fields = Milk();
    if (!database.products().Add(kind, fields)) Fail();
  }
  for (int i = 0; i < 2; ++i) {
    DiscountFields fields = Coupon();
    if (!database.discounts().Add(0, 0, fields)) Fail();
  }
  std::filesystem::remove(folder.File("backup.dat"));
}

using DatabaseWork = std::function<bool(ShoppingDatabase& database)>;

Scenario OnDatabase(std::string name, std::function<void(const TempFolder&)> prepare,
                    DatabaseWork work, std::vector<std::set<std::string>> steps) {
  const auto run = [work = std::move(work)](const std::string& folder) {
    ShoppingDatabase database;
    (void)database.Open(folder);  // as the program does
    return work(database);
  };
  return {std::move(name), std::move(prepare), run, std::move(steps)};
}

void AddProducts(std::vector<Scenario>& all) {
  const auto add = [](ProductFields (*fields)()) {
    return [fields](ShoppingDatabase& database) {
      ProductFields copy = fields();
      return database.products().Add(kProductKind, copy).has_value();
    };
  };
  all.push_back(OnDatabase("first product", Lists, add(Milk), {{"product.dat"}}));
  all.push_back(OnDatabase("another product", Household, add(Milk), {{"product.dat"}}));
  all.push_back(OnDatabase("product with new names", Household, add(BreadFromNewNames),
                           {{"store.lst"}, {"category.lst"}, {"unit.lst"}, {"product.dat"}}));
  const auto damaged = [](const TempFolder& folder) {
    Household(folder);
    folder.Write("category.lst", Hex("81 38 01 00 82 38 01 00 05"));
  };
  all.push_back(OnDatabase(
      "product with a damaged list", damaged, add(BreadFromNewNames),
      {{"store.lst"}, {"category.lst", "category.lst.bad"}, {"unit.lst"}, {"product.dat"}}));
  const auto update = [](ShoppingDatabase& database) {
    ProductFields fields = BreadFromNewNames();
    fields.category.reset();
    fields.unit.reset();
    return database.products().Update(kProductKind, 2, fields).has_value();
  };
  all.push_back(OnDatabase("product changed", Household, update, {{"store.lst"}, {"product.dat"}}));
}

void MarkProducts(std::vector<Scenario>& all) {
  const auto mark = [](int kind, int action) {
    return [kind, action](ShoppingDatabase& database) {
      return database.products().Mark(kind, 1, action) == 1;
    };
  };
  all.push_back(OnDatabase("product deleted", Household, mark(kProductKind, kProductDelete),
                           {{"product.dat"}}));
  all.push_back(OnDatabase("product passed over", Household, mark(kProductKind, kProductPassOver),
                           {{"product.dat"}}));
  all.push_back(OnDatabase("product purchased", Household, mark(kProductKind, kProductPurchased),
                           {{"product.dat", "purchase.dat"}}));
  const auto none_before = [](const TempFolder& folder) {
    Household(folder);
    std::filesystem::remove(folder.File("purchase.dat"));
  };
  all.push_back(OnDatabase("first purchase", none_before, mark(kProductKind, kProductPurchased),
                           {{"product.dat", "purchase.dat"}}));
  all.push_back(OnDatabase("purchase repeated", Household, mark(kPurchaseKind, kProductPurchased),
                           {{"purchase.dat"}}));
}

void ChangeDiscounts(std::vector<Scenario>& all) {
  const auto add = [](ShoppingDatabase& database) {
    DiscountFields fields = Coupon();
    return database.discounts().Add(0, 0, fields).has_value();
  };
  all.push_back(OnDatabase("first discount", Lists, add, {{"discount.dat"}}));
  all.push_back(OnDatabase("another discount", Household, add, {{"discount.dat"}}));
  const auto update = [](ShoppingDatabase& database) {
    DiscountFields fields = Coupon();
    fields.name = "Three for two";
    return database.discounts().Update(3, 0, fields).has_value();
  };
  all.push_back(OnDatabase("discount changed", Household, update, {{"discount.dat"}}));
  for (const int action : {kMarkDeleted, kMarkFlagged}) {
    const auto mark = [action](ShoppingDatabase& database) {
      return database.discounts().Mark(2, 0, action) == 2;
    };
    all.push_back(OnDatabase(action == kMarkDeleted ? "discount deleted" : "discount flagged",
                             Household, mark, {{"discount.dat"}}));
  }
}

void HouseholdAndFeed(const TempFolder& folder) {
  Household(folder);
  folder.WriteText("update.feed",
                   "<CP><ID>70</ID><SR>1</SR><NM>A</NM><SI>0</SI><CI>0</CI></CP>"
                   "<CP><ID>71</ID><SR>1</SR><NM>B</NM><SI>0</SI><CI>0</CI></CP>"
                   "<CP><ID>72</ID><SR>2</SR><NM>C</NM><SI>0</SI><CI>0</CI></CP>");
}

/// Each needs a new name in both lists: without one of them the feed cannot have any.
bool ImportFeed(const std::string& folder) {
  ShoppingDatabase database;
  (void)database.Open(folder);
  return ImportCoupons(database.discounts(), folder + "\\update.feed") == 0 &&
         database.discounts().size() == 3;
}

void ImportFeeds(std::vector<Scenario>& all) {
  all.push_back({"coupon feed",
                 HouseholdAndFeed,
                 ImportFeed,
                 {{"store.lst", "category.lst", "discount.dat"}}});
  const auto list = [](const TempFolder& folder) {
    Household(folder);
    folder.WriteText("update.feed",
                     "<IT><ID>7</ID><NM>Mega Market</NM></IT>"
                     "<IT><ID>8</ID><NM>Corner Shop</NM></IT>");
  };
  const auto import_list = [](const std::string& folder) {
    ShoppingDatabase database;
    (void)database.Open(folder);
    return ImportList(database.stores(), folder + "\\update.feed") == 0 &&
           database.stores().Save(database.paths().store) == 0;
  };
  all.push_back({"store feed", list, import_list, {{"store.lst"}}});
}

SearchResultList Results() {
  SearchResultList results;
  for (const double price : {3.5, 1.25}) {
    SearchResultItem item;
    item.Title = "Milk, 1 l";
    item.Url = "http://shop.example/milk";
    item.Price = price;
    results.Append({item});
  }
  return results;
}

bool SaveSearch(const std::string& folder) {
  SearchManager manager;
  if (manager.SetSearchFolder(folder) != 0) return false;
  const SearchResultList results = Results();
  return manager.saved_searches().SaveSearch(1, "milk", &results) > 0;
}

void KeepSearches(std::vector<Scenario>& all) {
  const auto saved = [](const TempFolder& folder) {
    Lists(folder);
    if (!SaveSearch(folder.path())) Fail();
    std::filesystem::remove(folder.File("backup.dat"));
  };
  Scenario first{"first search saved", Lists, SaveSearch, {{"websearch.dat", "WebSearch/2.dat"}}};
  Scenario another{
      "another search saved", saved, SaveSearch, {{"websearch.dat", "WebSearch/3.dat"}}};
  for (Scenario* save : {&first, &another}) {
    save->left_when_refused = {"websearch.dat"};
    all.push_back(std::move(*save));
  }
  const auto remove = [](const std::string& folder) {
    SearchManager manager;
    return manager.SetSearchFolder(folder) == 0 &&
           manager.saved_searches().DeleteSavedSearch(2) == 2;
  };
  all.push_back({"search deleted", saved, remove, {{"websearch.dat"}}});
  const auto rewrite = [](const std::string& folder) {
    SearchResultList results;
    const std::string path = folder + "\\WebSearch\\2.dat";
    return ReadSearchResults(results, path) == 0 && results.Remove(1) == 0 &&
           WriteSearchResults(results, path) == 0;
  };
  Scenario results{"results rewritten", saved, rewrite, {{"WebSearch/2.dat"}}};
  results.may_stand_unconfirmed = true;
  all.push_back(std::move(results));
}

std::string RegistryPath(const std::string& folder) { return folder + "/registry.reg"; }

void SetOptions(const std::string& folder, double tax, const char* country, const char* zip) {
  const platform::RegistryStore store(RegistryPath(folder));
  AppOptions options(store, AppOptions::kKeyPath);
  options.set_tax(tax);
  options.set_country(country);
  options.set_zip_code(zip);
  (void)options.save();
}

void SaveOptions(std::vector<Scenario>& all) {
  const auto before = [](const TempFolder& folder) {
    Lists(folder);
    const platform::RegistryStore store(RegistryPath(folder.path()));
    auto key = platform::RegistryKey::Create(store, "Software\\Brovanta");
    if (!key || !key->SetText("InstallPath", "/the/folder")) Fail();
    SetOptions(folder.path(), 7.0, "France", "75001");
  };
  const auto run = [](const std::string& folder) {
    SetOptions(folder, 8.25, "Canada", "K1A");
    return true;
  };
  Scenario options{"options saved", before, run, {}};
  // Each value is a step of its own, and whether one could be written is not asked.
  options.judge = [](const std::string& folder, bool /*succeeded*/) -> std::string {
    const platform::RegistryStore store(RegistryPath(folder));
    const auto key = platform::RegistryKey::Open(store, "Software\\Brovanta");
    if (!key || key->QueryText("InstallPath", 500) != "/the/folder") return "a setting is lost";
    const AppOptions read(store, AppOptions::kKeyPath);
    const bool tax = read.tax() == 7.0 || read.tax() == 8.25;
    const bool country = read.country() == "France" || read.country() == "Canada";
    const bool zip = read.zip_code() == "75001" || read.zip_code() == "K1A";
    return tax && country && zip ? "" : "an option is neither old nor new";
  };
  all.push_back(std::move(options));
}

/// Does the work in a program that ends when all of it is done but the journal, which it is about
/// to empty.
void EndWhenDone(const std::function<void()>& work) {
  class Calls : public FaultyCalls {
   public:
    ssize_t WriteAt(int descriptor, const void* bytes, std::size_t size, off_t offset) override {
      const bool is_wiped = offset == journal_layout::kEmptySize && size > 0 &&
                            *static_cast<const std::byte*>(bytes) == std::byte{0};
      if (is_wiped) _exit(0);
      return FaultyCalls::WriteAt(descriptor, bytes, size, offset);
    }
  };
  const pid_t child = fork();
  if (child == 0) {
    Calls calls;
    const platform::SystemCallsInUse in_use(calls);
    work();
    _exit(1);
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || status != 0) Fail();
}

/// What a program leaves that ended while it marked a product as purchased.
void RollBack(std::vector<Scenario>& all) {
  const auto torn = [](const TempFolder& folder) {
    Household(folder);
    const Bytes product = folder.Read("product.dat").value();
    const Bytes list = folder.Read("store.lst").value();
    const auto size = static_cast<std::int64_t>(product.size());
    folder.Write(
        "backup.dat",
        EncodeJournal(std::vector<UndoRecord>{
            {UndoKind::kOverwritten,
             "product.dat",
             size,
             8,
             {product.begin() + 8, product.begin() + 100}},
            {UndoKind::kReplaced, "store.lst", static_cast<std::int64_t>(list.size()), 0, list},
            {UndoKind::kMade, "made.dat", 0, 0, {}}}));
    folder.Write("product.dat", Join({Bytes(product.begin(), product.begin() + 8), Run(92, 0xEE),
                                      Bytes(product.begin() + 100, product.end()), Run(50, 0xEE)}));
    folder.WriteText("store.lst", "half a li");
    folder.WriteText("made.dat", "made");
  };
  const auto run = [](const std::string& folder) {
    ShoppingDatabase database;
    return database.Open(folder) == 0;
  };
  const auto none_before = [](const TempFolder& folder) {
    Household(folder);
    std::filesystem::remove(folder.File("purchase.dat"));
    EndWhenDone([&folder] {
      ShoppingDatabase database;
      (void)database.Open(folder.path());
      (void)database.products().Mark(kProductKind, 1, kProductPurchased);
    });
  };
  const auto feed = [](const TempFolder& folder) {
    HouseholdAndFeed(folder);
    EndWhenDone([&folder] { (void)ImportFeed(folder.path()); });
  };
  const auto search = [](const TempFolder& folder) {
    Lists(folder);
    EndWhenDone([&folder] { (void)SaveSearch(folder.path()); });
  };
  all.push_back({"first purchase rolled back", none_before, run, {}});
  all.push_back({"coupon feed rolled back", feed, run, {}});
  all.push_back({"search saved rolled back", search, run, {}});
  all.push_back({"roll-back", torn, run, {}});
}

}  // namespace

const std::vector<Scenario>& Scenarios() {
  static const std::vector<Scenario> all = [] {
    std::vector<Scenario> list;
    AddProducts(list);
    MarkProducts(list);
    ChangeDiscounts(list);
    ImportFeeds(list);
    KeepSearches(list);
    SaveOptions(list);
    list.push_back(UpdateScenario());
    RollBack(list);
    return list;
  }();
  return all;
}

}  // namespace brovanta::test
