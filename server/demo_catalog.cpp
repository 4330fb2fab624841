#include "server/demo_catalog.h"

namespace brovanta::server {
namespace {

constexpr std::array<std::string_view, kDemoStoreCount> kStores = {
    "Alder Street Market",    "Beacon Foods",         "Birchwood Grocers",
    "Blue Awning Bakery",     "Café Bohème",          "Cedar & Sons Hardware",
    "Clover Dairy Shop",      "Copper Kettle Coffee", "Corner Basket",
    "Daybreak Supermarket",   "Elm Park Pharmacy",    "Farmgate Direct",
    "Feather & Fin Pets",     "Field House Organics", "Garden Gate Nursery",
    "Golden Acre Foods",      "Harbor Fish House",    "Hilltop Wholesale",
    "Juniper Home Goods",     "Kleine Bäckerei",      "Larkspur Drugstore",
    "Lighthouse Mart",        "Maple Lane Butchers",  "Millstream Market",
    "Northgate Paper Supply", "Old Mill Pantry",      "Pinecrest Outlet",
    "Red Door Delicatessen",  "Sunny Side Produce",   "Willow Creek Co-op"};

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

const std::array<std::string_view, kDemoStoreCount>& DemoStores() { return kStores; }

const std::array<std::string_view, kDemoCategoryCount>& DemoCategories() { return kCategories; }

std::span<const DemoProduct> DemoProducts() { return kProducts; }

}  // namespace brovanta::server
