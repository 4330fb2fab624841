#include "data/list/shopping_list.h"

#include <algorithm>
#include <map>
#include <utility>

#include "data/list/plain_line.h"
#include "db/product_filter.h"
#include "util/word_search.h"

namespace brovanta::data_tool {
namespace {

std::string Folded(std::string_view stored) {
  std::string text(stored);
  for (char& character : text) {
    character = static_cast<char>(UpperCase(static_cast<unsigned char>(character)));
  }
  return text;
}

std::string_view NameIn(const NameList& names, std::uint32_t id) {
  const ListItem* const item = names.Find(static_cast<std::int32_t>(id));
  return item == nullptr ? std::string_view() : item->Name.view();
}

// By letters whatever their case, and what has no name last.
using SortKey = std::pair<bool, std::string>;
SortKey KeyOf(std::string_view stored) { return {stored.empty(), Folded(stored)}; }

std::string NumberText(double number, std::size_t decimals) {
  const auto decimal = Decimal::From(number);
  return decimal && decimal->Rounded() ? decimal->Text(decimals) : std::string();
}

class Builder {
 public:
  Builder(const ShoppingData& data, const ListRequest& request)
      : data_(data),
        request_(request),
        period_(PeriodAround(request.date, request.period)),
        coupons_(data.discounts),
        matcher_(FilterOf(period_)) {}

  std::optional<ShoppingList> Build() {
    for (ProductRecord product : data_.products) {
      if (IsWanted(product)) Sort(product);
    }
    ShoppingList list;
    list.period = period_.heading;
    if (request_.store) list.store = PlainLine(*request_.store);
    for (auto& [store_key, categories] : sorted_) {
      StoreGroup store;
      for (auto& [category_key, rows] : categories) {
        CategoryGroup group = GroupOf(rows, list);
        if (!group_fits_ || !store.sum.Add(group.sum)) return std::nullopt;
        store.name = PlainLine(NameIn(data_.stores, rows.front().second.StoreId));
        store.categories.push_back(std::move(group));
      }
      if (!list.sum.Add(store.sum)) return std::nullopt;
      list.stores.push_back(std::move(store));
    }
    return list;
  }

 private:
  using Row = std::pair<SortKey, ProductRecord>;

  static ProductFilter FilterOf(const CalendarPeriod& period) {
    ProductFilter filter;
    filter.from = period.start;
    filter.to = period.end;
    return filter;
  }

  bool IsWanted(ProductRecord& product) const {
    if (!matcher_.Passes(product)) return false;
    if (!request_.store) return true;
    const std::string_view store = NameIn(data_.stores, product.StoreId);
    return product.StoreId != 0 && Folded(store) == Folded(*request_.store);
  }

  void Sort(const ProductRecord& product) {
    const SortKey store = KeyOf(NameIn(data_.stores, product.StoreId));
    const SortKey category = KeyOf(NameIn(data_.categories, product.CategoryId));
    sorted_[store][category].emplace_back(KeyOf(product.Name.view()), product);
  }

  CategoryGroup GroupOf(std::vector<Row>& rows, ShoppingList& list) {
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Row& one, const Row& other) { return one.first < other.first; });
    CategoryGroup group;
    group.name = PlainLine(NameIn(data_.categories, rows.front().second.CategoryId));
    for (const Row& row : rows) {
      group.lines.push_back(LineOf(row.second));
      group_fits_ = group_fits_ && group.sum.Add(group.lines.back().price.amounts);
      list.lines += 1;
      list.without_price += group.lines.back().price.state == PriceState::kPriced ? 0 : 1;
    }
    return group;
  }

  ListLine LineOf(const ProductRecord& product) const {
    ListLine line;
    line.name = PlainLine(product.Name.view());
    line.unit = PlainLine(NameIn(data_.units, product.UnitId));
    line.notes = PlainLine(product.Notes.view());
    line.due = product.NextDate;
    const DateStamp first = FirstBuyingDay();
    line.overdue = product.NextDate != kNoDate && product.NextDate < first;
    line.quantity = NumberText(CountedQuantity(product), 0);
    if (product.UnitPrice != 0.0) line.unit_price = NumberText(product.UnitPrice, 2);
    line.price = PriceLine(product, coupons_, std::max(product.NextDate, first));
    for (LineCoupon& coupon : line.price.coupons) coupon.name = PlainLine(coupon.name);
    return line;
  }

  // Midnight of today when it is within the period, else of the period's first day.
  [[nodiscard]] DateStamp FirstBuyingDay() const {
    const DateStamp today = PeriodAround(CalendarFromStamp(TodayStamp()), PeriodKind::kDay).start;
    return today > period_.start && today <= period_.end ? today : period_.start;
  }

  const ShoppingData& data_;
  const ListRequest& request_;
  CalendarPeriod period_;
  CouponBook coupons_;
  ProductListMatcher matcher_;
  std::map<SortKey, std::map<SortKey, std::vector<Row>>> sorted_;
  bool group_fits_ = true;
};

}  // namespace

bool HasStore(const ShoppingData& data, const std::string& name) {
  return std::any_of(data.stores.begin(), data.stores.end(), [&](const auto& item) {
    return Folded(item.second.Name.view()) == Folded(name);
  });
}

std::optional<ShoppingList> BuildShoppingList(const ShoppingData& data,
                                              const ListRequest& request) {
  return Builder(data, request).Build();
}

}  // namespace brovanta::data_tool
