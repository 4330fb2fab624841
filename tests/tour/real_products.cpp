#include "tests/tour/real_products.h"

#include <QString>
#include <fstream>
#include <map>

#include "ui/base/wide_text.h"
#include "util/number.h"

namespace brovanta::tour {
namespace {

std::vector<std::string> SplitLine(const std::string& line) {
  std::vector<std::string> fields(1);
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char character = line[i];
    if (quoted && character == '"' && i + 1 < line.size() && line[i + 1] == '"') {
      fields.back() += '"';
      ++i;
    } else if (character == '"') {
      quoted = !quoted;
    } else if (character == ',' && !quoted) {
      fields.emplace_back();
    } else if (character != '\r') {
      fields.back() += character;
    }
  }
  return fields;
}

std::string Narrow(const std::string& utf8) { return NarrowText(QString::fromStdString(utf8)); }

// The same name always refers to the same entry.
NameRef Reference(const NameList& list, const std::string& utf8) {
  const std::string name = Narrow(utf8).substr(0, kNameSize - 1);
  for (const auto& [id, item] : list) {
    if (item.Name.view() == name) return {id, name};
  }
  return {0, name};
}

}  // namespace

std::vector<RealProduct> ReadRealProducts(const std::string& path) {
  std::vector<RealProduct> products;
  std::ifstream in(path);
  std::string line;
  std::getline(in, line);
  while (std::getline(in, line)) {
    const std::vector<std::string> fields = SplitLine(line);
    if (fields.size() < 6) continue;
    products.push_back({fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]});
  }
  return products;
}

int EnterRealProducts(ShoppingDatabase& database, const std::vector<RealProduct>& products,
                      DateStamp first_date) {
  constexpr int kDays = 28;
  int added = 0;
  for (const RealProduct& product : products) {
    ProductFields fields;
    fields.name = Narrow(product.name);
    fields.unit = Reference(database.units(), product.unit);
    fields.category = Reference(database.categories(), product.category);
    fields.store = Reference(database.stores(), product.store);
    fields.quantity = LeadingDouble(product.quantity);
    fields.unit_price = LeadingDouble(product.unit_price);
    fields.purchase_kind = 1;
    fields.start_date = SaturatedStamp(first_date + std::int64_t{added % kDays} * kSecondsPerDay);
    if (database.products().Add(kProductKind, fields)) ++added;
  }
  return added;
}

}  // namespace brovanta::tour
