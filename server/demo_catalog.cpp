#include "server/demo_catalog.h"

namespace brovanta::server {
namespace {

// The set of some categories.
template <typename... Ids>
constexpr std::uint32_t Of(Ids... ids) {
  return ((1u << static_cast<unsigned>(ids)) | ...);
}

// What every larger food shop has: all but garden and office.
constexpr std::uint32_t kMarket = Of(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 13, 14, 16, 17, 18, 19, 20);
constexpr std::uint32_t kEverything = kMarket | Of(11, 15);
constexpr std::uint32_t kPantry = Of(3, 4, 5, 7, 16, 19);
constexpr std::uint32_t kFarm = Of(8, 10, 14, 20);
constexpr std::uint32_t kDrugstore = Of(1, 6, 12, 13, 17);

constexpr std::array<DemoStore, kDemoStoreCount> kStores = {{
    {"Alder Street Market", kMarket},
    {"Beacon Foods", kMarket},
    {"Birchwood Grocers", kMarket},
    {"Blue Awning Bakery", Of(2)},
    {"Café Bohème", Of(2, 7)},
    {"Cedar & Sons Hardware", Of(6, 11, 13)},
    {"Clover Dairy Shop", Of(8)},
    {"Copper Kettle Coffee", Of(7)},
    {"Corner Basket", kMarket},
    {"Daybreak Supermarket", kMarket},
    {"Elm Park Pharmacy", Of(1, 12, 17)},
    {"Farmgate Direct", kFarm},
    {"Feather & Fin Pets", Of(18)},
    {"Field House Organics", kFarm | kPantry},
    {"Garden Gate Nursery", Of(11)},
    {"Golden Acre Foods", kMarket},
    {"Harbor Fish House", Of(9, 14)},
    {"Hilltop Wholesale", kEverything},
    {"Juniper Home Goods", Of(6, 13, 15)},
    {"Kleine Bäckerei", Of(2)},
    {"Larkspur Drugstore", kDrugstore},
    {"Lighthouse Mart", kMarket},
    {"Maple Lane Butchers", Of(14)},
    {"Millstream Market", kMarket},
    {"Northgate Paper Supply", Of(15)},
    {"Old Mill Pantry", kPantry},
    {"Pinecrest Outlet", kEverything},
    {"Red Door Delicatessen", Of(2, 7, 8, 14, 19)},
    {"Sunny Side Produce", Of(10, 20)},
    {"Willow Creek Co-op", kMarket},
}};

constexpr std::array<std::string_view, kDemoCategoryCount> kCategories = {
    "Baby",         "Bakery",        "Beverages",    "Breakfast & Cereal", "Canned Goods",
    "Cleaning",     "Coffee & Tea",  "Dairy & Eggs", "Frozen Foods",       "Fruit",
    "Garden",       "Health",        "Household",    "Meat & Fish",        "Office & School",
    "Pasta & Rice", "Personal Care", "Pets",         "Snacks & Sweets",    "Vegetables"};

constexpr std::array<DemoProduct, kDemoCategoryCount* 5> kProducts = {{
    {"Newborn Diapers", 1, 1899},   {"Baby Wipes", 1, 449},
    {"Oat Baby Cereal", 1, 329},    {"Carrot Baby Food", 1, 119},
    {"Soft Baby Shampoo", 1, 549},  {"Sourdough Bread", 2, 499},
    {"Whole Wheat Bread", 2, 379},  {"Butter Croissants", 2, 429},
    {"Poppy Seed Rolls", 2, 289},   {"Cinnamon Raisin Bagels", 2, 359},
    {"Orange Juice", 3, 399},       {"Sparkling Mineral Water", 3, 149},
    {"Ginger Lemonade", 3, 279},    {"Apple Juice", 3, 299},
    {"Root Beer", 3, 599},          {"Crunchy Müsli", 4, 489},
    {"Corn Flakes", 4, 349},        {"Rolled Oats", 4, 269},
    {"Pancake Mix", 4, 319},        {"Maple Syrup", 4, 899},
    {"Peeled Tomatoes", 5, 139},    {"Chickpeas", 5, 109},
    {"Tuna in Olive Oil", 5, 249},  {"Sweet Corn", 5, 129},
    {"Lentil Soup", 5, 219},        {"Dish Soap", 6, 299},
    {"Laundry Detergent", 6, 1149}, {"Glass Cleaner", 6, 349},
    {"Scrubbing Sponges", 6, 249},  {"Floor Polish", 6, 679},
    {"Espresso Beans", 7, 1299},    {"Ground Filter Coffee", 7, 849},
    {"Earl Grey Tea", 7, 429},      {"Peppermint Tea", 7, 349},
    {"Drinking Chocolate", 7, 479}, {"Whole Milk", 8, 349},
    {"Crème Fraîche", 8, 229},      {"Free Range Eggs", 8, 459},
    {"Salted Butter", 8, 419},      {"Aged Cheddar Cheese", 8, 699},
    {"Frozen Peas", 9, 199},        {"Vanilla Ice Cream", 9, 549},
    {"Margherita Pizza", 9, 649},   {"Fish Fingers", 9, 479},
    {"Frozen Blueberries", 9, 429}, {"Gala Apples", 10, 329},
    {"Bananas", 10, 139},           {"Seedless Grapes", 10, 449},
    {"Navel Oranges", 10, 389},     {"Ripe Avocados", 10, 299},
    {"Tomato Seedlings", 11, 399},  {"Potting Soil", 11, 899},
    {"Watering Can", 11, 1599},     {"Lavender Plants", 11, 749},
    {"Garden Gloves", 11, 699},     {"Vitamin C Tablets", 12, 799},
    {"Cough Drops", 12, 349},       {"Adhesive Bandages", 12, 399},
    {"Pain Relief Gel", 12, 899},   {"Digital Thermometer", 12, 1399},
    {"Paper Towels", 13, 699},      {"Light Bulbs", 13, 849},
    {"Aluminum Foil", 13, 429},     {"Trash Bags", 13, 579},
    {"Candles", 13, 459},           {"Chicken Breast", 14, 899},
    {"Ground Beef", 14, 749},       {"Smoked Salmon", 14, 1099},
    {"Pork Sausages", 14, 599},     {"Turkey Slices", 14, 479},
    {"Ruled Notebooks", 15, 549},   {"Gel Pens", 15, 399},
    {"Printer Paper", 15, 799},     {"Glue Sticks", 15, 249},
    {"School Backpack", 15, 3499},  {"Spaghetti", 16, 159},
    {"Basmati Rice", 16, 629},      {"Egg Noodles", 16, 219},
    {"Penne Rigate", 16, 169},      {"Risotto Rice", 16, 449},
    {"Mint Toothpaste", 17, 329},   {"Hand Cream", 17, 449},
    {"Shaving Foam", 17, 389},      {"Herbal Shampoo", 17, 599},
    {"Bar Soap", 17, 279},          {"Dry Cat Food", 18, 1249},
    {"Dog Biscuits", 18, 599},      {"Bird Seed", 18, 799},
    {"Cat Litter", 18, 999},        {"Chew Toys", 18, 699},
    {"Dark Chocolate", 19, 299},    {"Potato Chips", 19, 349},
    {"Salted Pretzels", 19, 279},   {"Roasted Almonds", 19, 799},
    {"Jalapeño Crackers", 19, 329}, {"Baby Spinach", 20, 329},
    {"Red Bell Peppers", 20, 249},  {"Russet Potatoes", 20, 399},
    {"Cherry Tomatoes", 20, 359},   {"Yellow Onions", 20, 229},
}};

}  // namespace

bool DemoStore::Sells(int category) const {
  return (categories & (1u << static_cast<unsigned>(category))) != 0;
}

const std::array<DemoStore, kDemoStoreCount>& DemoStores() { return kStores; }

const std::array<std::string_view, kDemoCategoryCount>& DemoCategories() { return kCategories; }

std::span<const DemoProduct> DemoProducts() { return kProducts; }

}  // namespace brovanta::server
