#include "data/list/list_rows.h"

#include <utility>

#include "data/list/list_words.h"

namespace brovanta::data_tool {
namespace {

using Kind = ListRow::Kind;

class RowWriter {
 public:
  std::vector<ListRow> Write(const ShoppingList& list) {
    for (const StoreGroup& store : list.stores) {
      const std::string name = store.name.empty() ? "No store" : store.name;
      Add(Kind::kStore, name);
      for (const CategoryGroup& category : store.categories) {
        AddCategory(category, store.categories.size() > 1);
      }
      if (list.stores.size() > 1) AddSum(Kind::kSum, name + ", sum", store.sum);
    }
    if (list.lines == 0) {
      Add(Kind::kNote, "Nothing to buy.");
    } else {
      AddTotals(list);
    }
    return std::move(rows_);
  }

 private:
  ListRow& Add(Kind kind, std::string first_cell) {
    ListRow& row = rows_.emplace_back();
    row.kind = kind;
    row.cells[kProductColumn] = std::move(first_cell);
    return row;
  }

  void AddCategory(const CategoryGroup& category, bool with_sum) {
    const std::string name = category.name.empty() ? "No category" : category.name;
    Add(Kind::kCategory, name);
    for (const ListLine& line : category.lines) {
      AddProduct(line);
      for (std::string& remark : RemarksOf(line)) Add(Kind::kRemark, std::move(remark));
    }
    if (with_sum && category.lines.size() > 1) {
      AddSum(Kind::kSum, name + ", sum", category.sum);
    }
  }

  void AddProduct(const ListLine& line) {
    const bool priced = line.price.state == PriceState::kPriced;
    ListRow& row = priced ? AddSum(Kind::kProduct, line.name, line.price.amounts)
                          : Add(Kind::kProduct, line.name);
    row.cells[kDueColumn] = DayText(line.due);
    row.cells[kQuantityColumn] = line.quantity;
    if (!line.unit.empty()) row.cells[kQuantityColumn] += " " + line.unit;
    row.cells[kPriceColumn] = line.unit_price;
  }

  ListRow& AddSum(Kind kind, std::string label, const Amounts& amounts) {
    ListRow& row = Add(kind, std::move(label));
    row.cells[kAmountColumn] = AmountText(amounts.price);
    if (amounts.coupons != 0) row.cells[kCouponsColumn] = AmountText(-amounts.coupons);
    row.cells[kTaxColumn] = AmountText(amounts.tax);
    row.cells[kToPayColumn] = AmountText(amounts.ToPay());
    return row;
  }

  void AddTotals(const ShoppingList& list) {
    const Amounts& sum = list.sum;
    AddSum(Kind::kTotal, "Without coupons", {sum.price, 0, 0, sum.tax_before, 0});
    AddSum(Kind::kTotal, "With coupons", sum);
    if (sum.rebates != 0) {
      ListRow& row = Add(Kind::kTotal, "After mail-in rebates");
      row.cells[kCouponsColumn] = AmountText(-sum.rebates);
      row.cells[kToPayColumn] = AmountText(sum.AfterRebates());
    }
    const std::string missing = WithoutPriceWords(list.without_price);
    if (!missing.empty()) Add(Kind::kNote, missing);
  }

  std::vector<ListRow> rows_;
};

}  // namespace

std::vector<ListRow> RowsOf(const ShoppingList& list) { return RowWriter().Write(list); }

}  // namespace brovanta::data_tool
