#include "data/export_csv.h"

#include <functional>
#include <map>
#include <span>
#include <utility>

#include "data/check_searches.h"
#include "data/csv_writer.h"
#include "data/exact_values.h"
#include "data/file_kind.h"
#include "data/record_fields.h"
#include "data/stored_result.h"
#include "db/file_names.h"
#include "util/readable_text.h"
#include "util/windows_1252.h"

namespace brovanta::data_tool {
namespace {

using Header = std::vector<std::string>;

template <typename RecordKind>
typename RecordKind::Record Decoded(std::string_view record) {
  return RecordKind::Decode(std::as_bytes(std::span(record)).template first<RecordKind::kSize>());
}

template <std::size_t Size>
std::string Shown(const FixedText<Size>& text) {
  return Utf8FromWindows1252(text.view());
}

// The word for a value, or the number where there is none.
void WriteWord(int value, std::span<const std::string_view> words, CsvWriter& csv) {
  const auto index = static_cast<std::size_t>(value);
  if (index < words.size() && !words[index].empty()) {
    csv.Text(words[index]);
  } else {
    csv.Integer(value);
  }
}

void WriteReference(std::uint32_t id, const NameTable& names, CsvWriter& csv) {
  csv.Text(names.Find(id).value_or(""));
  csv.Integer(id);
}

/// Makes the tables of one folder.
class Tables {
 public:
  explicit Tables(const DataSnapshot& files) : files_(files), names_(NamesOf(files)) {}

  std::vector<CsvTable> Make() {
    AddProducts("products.csv", kProductFile);
    AddProducts("purchases.csv", kPurchaseFile);
    AddDiscounts();
    AddList("stores.csv", kStoreFile);
    AddList("categories.csv", kCategoryFile);
    AddList("units.csv", kUnitFile);
    AddSearches();
    AddResults();
    return std::move(tables_);
  }

 private:
  using WriteLine = std::function<void(std::string_view record, CsvWriter& csv)>;

  // Those of a file that is there; what is damaged is noted.
  void WriteRecords(const std::string& name, const WriteLine& write, CsvWriter& csv,
                    CsvTable& table) {
    const auto found = files_.find(name);
    if (found == files_.end()) return;
    const FramedFile file = TakeApart(found->second, *FrameOf(*KindOfFile(name)));
    for (const std::string_view record : file.records) {
      write(record, csv);
      csv.EndLine();
    }
    if (file.damage) table.damages.push_back(name + ": " + *file.damage);
  }

  void Add(std::string table_name, const std::string& name, const Header& header,
           const WriteLine& write) {
    CsvTable table{std::move(table_name), {}, {}};
    CsvWriter csv(header);
    WriteRecords(name, write, csv, table);
    table.text = csv.text();
    tables_.push_back(std::move(table));
  }

  void AddList(std::string table_name, const std::string& name) {
    Add(std::move(table_name), name, {"id", "name"}, [](std::string_view record, CsvWriter& csv) {
      const ListItem item = Decoded<ListItemKind>(record);
      csv.Integer(item.Id).Text(Shown(item.Name));
    });
  }

  void AddProducts(std::string table_name, const std::string& name) {
    const bool are_purchases = name == kPurchaseFile;
    Header header{"id",
                  "name",
                  "short_text",
                  "notes",
                  "store",
                  "store_id",
                  "category",
                  "category_id",
                  "unit",
                  "unit_id",
                  "quantity",
                  "unit_price",
                  "tax_percent",
                  "repeat",
                  "every",
                  "day_value",
                  are_purchases ? "purchased" : "start_date",
                  "last_purchased",
                  "deleted"};
    for (std::size_t i = 1; i <= kSlotCount; ++i) {
      const std::string coupon = "coupon_" + std::to_string(i);
      header.insert(header.end(), {coupon, coupon + "_id", coupon + "_source"});
    }
    Add(std::move(table_name), name, header, [&](std::string_view record, CsvWriter& csv) {
      WriteProduct(Decoded<ProductKind>(record), are_purchases, csv);
    });
  }

  void WriteProduct(const ProductRecord& product, bool is_purchase, CsvWriter& csv) {
    csv.Integer(product.Id).Text(Shown(product.Name)).Text(Shown(product.ShortText));
    csv.Text(Shown(product.Notes));
    WriteReference(product.StoreId, names_.stores, csv);
    WriteReference(product.CategoryId, names_.categories, csv);
    WriteReference(product.UnitId, names_.units, csv);
    csv.Number(product.Quantity).Number(product.UnitPrice).Number(product.TaxPercent);
    WriteWord(product.PurchaseKind, kPurchaseKinds, csv);
    csv.Integer(product.Every).Integer(product.DayValue);
    if (is_purchase) {
      csv.Moment(product.StartDate);
    } else {
      csv.Day(product.StartDate);
    }
    csv.Day(product.LastPurchased).Flag(product.Deleted != 0);
    for (const AppliedDiscount& link : product.Discounts) {
      if (link.Id == 0) {
        csv.Empty().Empty().Empty();
      } else {
        csv.Text(names_.coupons.Find(link).value_or("")).Integer(link.Id).Integer(link.Source);
      }
    }
  }

  void AddDiscounts() {
    const Header header{"id",       "source",   "name",        "product",    "description", "type",
                        "kind",     "value",    "changed",     "start_date", "end_date",    "store",
                        "store_id", "category", "category_id", "flagged",    "deleted"};
    Add("discounts.csv", kDiscountFile, header, [this](std::string_view record, CsvWriter& csv) {
      const DiscountRecord discount = Decoded<DiscountKind>(record);
      csv.Integer(discount.Id).Integer(discount.Source).Text(Shown(discount.Name));
      csv.Text(Shown(discount.Product)).Text(Shown(discount.Description));
      WriteWord(discount.Type, kDiscountTypes, csv);
      WriteWord(discount.ValueType, kValueTypes, csv);
      csv.Number(discount.Value).Day(discount.Stamp);
      csv.Day(discount.StartDate).Day(discount.EndDate);
      WriteReference(discount.StoreId, names_.stores, csv);
      WriteReference(discount.CategoryId, names_.categories, csv);
      csv.Flag(discount.Flagged != 0).Flag(discount.Deleted != 0);
    });
  }

  void AddSearches() {
    Add("searches.csv", kSearchIndexFile, {"number", "words", "category_id", "date", "deleted"},
        [this](std::string_view record, CsvWriter& csv) {
          const SearchEntry entry = Decoded<SearchEntryKind>(record);
          const std::string words = Shown(entry.Words);
          words_[entry.Number] = words;
          csv.Integer(entry.Number).Text(words).Integer(entry.CategoryId);
          csv.Day(entry.Date).Flag(entry.Deleted != 0);
        });
  }

  // The results of all searches, by number. After AddSearches, which knows the words.
  void AddResults() {
    std::map<std::int32_t, std::string> results;
    for (const auto& [name, bytes] : files_) {
      if (KindOfFile(name) != FileKind::kResults) continue;
      results.emplace(SearchNumber(name.substr(name.find('/') + 1)).value_or(0), name);
    }
    CsvTable table{"results.csv", {}, {}};
    CsvWriter csv({"search", "words", "id", "price", "title", "text", "url", "site"});
    for (const auto& [number, name] : results) {
      const auto write = [&, search = number](std::string_view record, CsvWriter& line) {
        const StoredResult result = DecodeResult(std::as_bytes(std::span(record)));
        line.Integer(search).Text(words_[search]).Integer(result.Id).Number(result.Price);
        for (const StoredResultText& text : result.texts) {
          line.Text(Utf8Text(text.bytes.substr(0, text.bytes.find('\0'))));
        }
      };
      WriteRecords(name, write, csv, table);
    }
    table.text = csv.text();
    tables_.push_back(std::move(table));
  }

  const DataSnapshot& files_;
  ReferenceNames names_;
  std::map<std::int32_t, std::string> words_;  // of the searches by number
  std::vector<CsvTable> tables_;
};

}  // namespace

std::vector<CsvTable> ExportCsv(const DataSnapshot& files) { return Tables(files).Make(); }

}  // namespace brovanta::data_tool
