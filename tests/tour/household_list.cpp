#include "tests/tour/household_list.h"

namespace brovanta::tour {

const std::vector<HouseholdProduct>& HouseholdList() {
  static const std::vector<HouseholdProduct> list = {
      {"Sourdough bread", "loaf", "1", "4.20", "Bakery", "Corner Bakery", "Every Few Days", "3",
       ""},
      {"Whole milk, 1 l", "l", "2", "1.45", "Dairy", "Fresh & Co", "Every Few Days", "2", ""},
      {"Müsli, 750 g", "pack", "1", "3.99", "Breakfast", "Fresh & Co", "Every 2 Weeks", "4", ""},
      {"Dish soap", "bottle", "1", "1.79", "Household", "", "One Time", "11/19/2026", ""},
      {"Coffee beans", "kg", "1", "13.50", "Breakfast", "Röstwerk", "Every Week", "4",
       "Dark roast"},
      {"Batteries AA", "pack", "2", "5.99", "Household", "Electro Hall", "One Time", "11/16/2026",
       "For the smoke detectors"},
      {"Crème fraîche", "cup", "2", "0.89", "Dairy", "Fresh & Co", "Every Week", "6", ""},
      {"Free-range eggs", "dozen", "1", "3.49", "Dairy", "Market Hall", "Every Week", "6", ""},
      {"Bananas", "kg", "1.5", "1.69", "Fruit", "Market Hall", "Every Few Days", "4", ""},
      {"Apples Boskoop", "kg", "2", "2.49", "Fruit", "Market Hall", "Every Week", "6", ""},
      {"Jalapeños", "jar", "1", "2.29", "Preserves", "Fresh & Co", "Every 3 Weeks", "5", ""},
      {"Toilet paper", "pack", "1", "4.95", "Household", "Fresh & Co", "Every 3 Weeks", "1", ""},
      {"Dog food", "kg", "3", "7.20", "Pets", "Tierwelt", "Every 4 Weeks", "2", "Grain free"},
      {"Cat litter", "bag", "1", "6.49", "Pets", "Tierwelt", "Every 2 Weeks", "3", ""},
      {"Bus pass", "piece", "1", "49.00", "Travel", "", "Every Month", "28", ""},
      {"Contact lenses", "box", "1", "24.90", "Health", "Optik Öztürk", "Every Month", "31", ""},
      {"Water filter", "piece", "1", "8.99", "Household", "Electro Hall", "Every 2 Months", "15",
       ""},
      {"Tooth brushes", "pack", "1", "3.95", "Health", "Fresh & Co", "Every 3 Months", "1", ""},
      {"Printer ink", "set", "1", "39.00", "Office", "Electro Hall", "Every 4 Months", "20", ""},
      {"Dishwasher salt", "kg", "2", "1.15", "Household", "Fresh & Co", "Every 5 Months", "10", ""},
      {"Fire extinguisher check", "visit", "1", "35.00", "Household", "", "Every 6 Months", "30",
       ""},
      {"Christmas tree", "piece", "1", "45.00", "Season", "Market Hall", "Every 12 Months", "18",
       ""},
      {"Birthday cake for Zoë", "piece", "1", "28.00", "Bakery", "Corner Bakery", "One Time",
       "11/21/2026", "Raspberry, no nuts\nfor 12"},
      {"Rye flour", "kg", "1", "1.89", "Baking", "Market Hall", "One Time", "11/21/2026", ""},
      {"Olive oil", "l", "1", "9.90", "Preserves", "Fresh & Co", "Every 4 Weeks", "6", ""},
      {"Smørrebrød", "piece", "4", "3.20", "Bakery", "Corner Bakery", "One Time", "11/20/2026", ""},
      {"Winter tyres", "set", "1", "420.00", "Travel", "Garage Núñez", "One Time", "11/25/2026",
       ""},
  };
  return list;
}

}  // namespace brovanta::tour
