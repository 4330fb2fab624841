#include "ui/shell/list_filters.h"

#include "ui/base/color_button.h"

namespace brovanta {

ListFilters::ListFilters(ColorButton& store_button, ColorButton& category_button, MainState& state,
                         QObject* parent)
    : QObject(parent),
      store_button_(store_button),
      category_button_(category_button),
      state_(state),
      stores_(store_button, kStoreCommands, tr("All Stores"), ColorButton::kPictureLeft),
      categories_(category_button, kCategoryCommands, tr("All Categories"),
                  ColorButton::kPictureRight) {
  connect(&stores_, &NameFilter::Chosen, this, [this](int command) {
    state_.filter.store_id = static_cast<std::uint32_t>(command - kStoreCommands);
    Q_EMIT Changed(command);
  });
  connect(&categories_, &NameFilter::Chosen, this, [this](int command) {
    state_.filter.category_id = static_cast<std::uint32_t>(command - kCategoryCommands);
    Q_EMIT Changed(command);
  });
}

void ListFilters::Reset() {
  state_.filter.store_id = 0;
  state_.filter.category_id = 0;
  stores_.Reset();
  categories_.Reset();
  state_.filter.find_text.reset();
}

void ListFilters::BuildStoreMenu() {
  NameList used;
  if (state_.list_id == kProductsList || state_.list_id == kPurchasesList) {
    used = state_.database->products().StoresInUse();
  } else if (state_.list_id == kCouponsList) {
    used = state_.database->discounts().StoresWithDiscounts();
  }
  stores_.BuildMenu(used);
}

void ListFilters::BuildCategoryMenu() {
  NameList used;
  if (state_.list_id == kProductsList || state_.list_id == kPurchasesList) {
    used = state_.database->products().CategoriesInUse();
  } else if (state_.list_id == kCouponsList) {
    used = state_.database->discounts().CategoriesWithDiscounts();
  }
  categories_.BuildMenu(used);
}

void ListFilters::Enable(bool enabled) {
  store_button_.setEnabled(enabled);
  category_button_.setEnabled(enabled);
}

void ListFilters::ShowChoice(int command) {
  if (command >= kCategoryCommands) {
    categories_.ShowChoice(command, state_.database->categories());
  } else {
    stores_.ShowChoice(command, state_.database->stores());
  }
}

}  // namespace brovanta
