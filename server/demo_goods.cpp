#include "server/demo_goods.h"

#include <array>

namespace brovanta::server {
namespace {

constexpr std::array kGroceries = {
    Good{"Milk", 129, "Whole|Low Fat|Lactose Free", "1 l|2 l"},
    Good{"Yogurt", 99, "Plain|Strawberry|Greek Style", "150 g|500 g"},
    Good{"Butter", 249, "Salted|Unsalted|Clarified", "250 g|500 g"},
    Good{"Crème Fraîche", 149, "Classic|Light|Herb", "200 g|400 g"},
    Good{"Cheddar Cheese", 359, "Mild|Mature|Smoked", "200 g|400 g"},
    Good{"Gruyère Cheese", 429, "Young|Alpine|Cave Aged", "150 g|300 g"},
    Good{"Cream Cheese", 179, "Natural|Chive & Onion|Peppered", "200 g|350 g"},
    Good{"Eggs", 279, "Free Range|Barn|Organic", "6 pack|12 pack"},
    Good{"Bread", 289, "Sourdough|Whole Wheat|Rye", "500 g|1 kg"},
    Good{"Bread Rolls", 219, "Poppy Seed|Sesame|Milk", "4 pack|8 pack"},
    Good{"Croissants", 299, "Butter|Almond|Chocolate", "2 pack|4 pack"},
    Good{"Orange Juice", 229, "Pressed|Smooth|Blood", "1 l|2 l"},
    Good{"Apple Juice", 199, "Clear|Cloudy|Spiced", "1 l|2 l"},
    Good{"Mineral Water", 69, "Still|Sparkling|Lemon", "0.5 l|1.5 l"},
    Good{"Lemonade", 159, "Cloudy|Ginger|Raspberry", "0.75 l|1.5 l"},
    Good{"Coffee Beans", 849, "Espresso|Breakfast|Decaf", "500 g|1 kg"},
    Good{"Ground Coffee", 599, "Dark Roast|Mild|Filter", "250 g|500 g"},
    Good{"Tea Bags", 249, "Earl Grey|Peppermint|Rooibos", "20 pack|50 pack"},
    Good{"Drinking Chocolate", 349, "Dark|Milk|Hazelnut", "250 g|500 g"},
    Good{"Müsli", 379, "Crunchy|Fruit & Nut|Bircher", "500 g|1 kg"},
    Good{"Corn Flakes", 249, "Golden|Honey|Frosted", "375 g|750 g"},
    Good{"Oats", 169, "Rolled|Steel Cut|Quick", "500 g|1 kg"},
    Good{"Jam", 279, "Apricot|Strawberry|Sour Cherry", "250 g|450 g"},
    Good{"Honey", 449, "Acacia|Forest|Clover", "250 g|500 g"},
    Good{"Spaghetti", 129, "Durum|Whole Wheat|Spelt", "500 g|1 kg"},
    Good{"Penne", 139, "Ridged|Smooth|Lentil", "500 g|1 kg"},
    Good{"Rice", 199, "Basmati|Jasmine|Risotto", "500 g|1 kg"},
    Good{"Flour", 109, "Plain|Bread|Spelt", "1 kg|2 kg"},
    Good{"Sugar", 119, "Caster|Brown|Icing", "500 g|1 kg"},
    Good{"Olive Oil", 649, "Mild|Extra Virgin|Lemon", "0.5 l|1 l"},
    Good{"Vinegar", 219, "Cider|Red Wine|Rosé", "0.5 l|1 l"},
    Good{"Tomatoes", 89, "Peeled|Chopped|Cherry", "400 g|800 g"},
    Good{"Chickpeas", 95, "Cooked|Dried|Spiced", "400 g|800 g"},
    Good{"Beans", 99, "Kidney|White|Baked", "400 g|800 g"},
    Good{"Soup", 219, "Lentil|Tomato & Basil|Mushroom", "400 g|800 g"},
    Good{"Tuna", 169, "Sunflower Oil|Olive Oil|Spring Water", "80 g|160 g"},
    Good{"Olives", 239, "Green|Black|Jalapeño", "150 g|300 g"},
    Good{"Pasta Sauce", 249, "Tomato|Pesto|Arrabbiata", "190 g|400 g"},
    Good{"Mustard", 149, "Hot|Dijon Style|Honey", "200 g|370 g"},
    Good{"Ketchup", 189, "Classic|Curry|No Sugar", "500 ml|875 ml"},
    Good{"Potato Chips", 179, "Sea Salt|Salt & Vinegar|Paprika", "100 g|200 g"},
    Good{"Crackers", 159, "Sesame|Cheese|Jalapeño", "100 g|200 g"},
    Good{"Almonds", 349, "Roasted|Blanched|Smoked", "150 g|300 g"},
    Good{"Chocolate", 149, "Dark|Milk|Sea Salt & Caramel", "100 g|200 g"},
    Good{"Biscuits", 139, "Oat|Butter|Ginger", "200 g|400 g"},
    Good{"Peas", 179, "Garden|Petite|Sugar Snap", "450 g|900 g"},
    Good{"Blueberries", 349, "Frozen|Wild|Organic", "250 g|500 g"},
    Good{"Pizza", 399, "Margherita|Spinach & Feta|Mushroom", "330 g|660 g"},
    Good{"Ice Cream", 429, "Vanilla|Açaí|Pistachio", "500 ml|900 ml"},
    Good{"Apples", 249, "Gala|Russet|Braeburn", "1 kg|2 kg"},
    Good{"Bananas", 139, "Ripe|Organic|Mini", "500 g|1 kg"},
    Good{"Potatoes", 169, "Waxy|Floury|New", "1 kg|2.5 kg"},
    Good{"Onions", 99, "Yellow|Red|White", "500 g|1 kg"},
    Good{"Sausages", 399, "Pork|Chicken|Garlic", "300 g|600 g"},
    Good{"Chicken", 649, "Breast of|Corn Fed|Organic", "400 g|800 g"},
    Good{"Salmon", 599, "Smoked|Grilled|Dill", "100 g|200 g"},
};

constexpr std::array kHousehold = {
    Good{"Laundry Detergent", 699, "Color|White|Sensitive", "20 washes|40 washes"},
    Good{"Fabric Softener", 329, "Cotton|Lavender|Spring", "1 l|2 l"},
    Good{"Dish Soap", 179, "Lemon|Aloe|Unscented", "500 ml|1 l"},
    Good{"Dishwasher Tabs", 599, "Classic|All in One|Eco", "30 pack|60 pack"},
    Good{"Glass Cleaner", 249, "Streak Free|Vinegar|Alpine", "500 ml|1 l"},
    Good{"Floor Cleaner", 299, "Wood|Tile|Stone", "750 ml|1.5 l"},
    Good{"Bathroom Cleaner", 279, "Limescale|Foam|Citrus", "500 ml|1 l"},
    Good{"Sponges", 149, "Scrubbing|Soft|Cellulose", "3 pack|6 pack"},
    Good{"Cleaning Cloths", 349, "Microfiber|Cotton|Window", "3 pack|6 pack"},
    Good{"Trash Bags", 279, "Drawstring|Compostable|Heavy Duty", "20 l|60 l"},
    Good{"Paper Towels", 329, "White|Recycled|Extra Strong", "2 rolls|4 rolls"},
    Good{"Toilet Paper", 449, "Soft|Recycled|Three Ply", "8 rolls|16 rolls"},
    Good{"Tissues", 199, "Boxed|Pocket|Balm", "80 pack|160 pack"},
    Good{"Aluminum Foil", 249, "Kitchen|Strong|Grill", "10 m|20 m"},
    Good{"Baking Paper", 219, "Brown|White|Precut", "8 m|16 m"},
    Good{"Freezer Bags", 199, "Zip|Tie|Reusable", "1 l|3 l"},
    Good{"Storage Jar", 499, "Glass|Ceramic|Clip Top", "0.5 l|1 l"},
    Good{"Frying Pan", 2499, "Cast Iron|Nonstick|Steel", "24 cm|28 cm"},
    Good{"Saucepan", 2199, "Steel|Enamel|Copper Base", "16 cm|20 cm"},
    Good{"Sauté Pan", 2999, "Deep|Nonstick|Steel", "24 cm|28 cm"},
    Good{"Kitchen Knife", 1899, "Chef Style|Paring|Santoku", "12 cm|18 cm"},
    Good{"Cutting Board", 1299, "Bamboo|Beech|Plastic", "30 cm|40 cm"},
    Good{"Mixing Bowl", 899, "Steel|Glass|Melamine", "1.5 l|3 l"},
    Good{"Baking Tin", 999, "Loaf|Round|Springform", "20 cm|26 cm"},
    Good{"Water Bottle", 1299, "Insulated|Glass|Folding", "0.5 l|1 l"},
    Good{"Coffee Mug", 599, "Stoneware|Café|Travel", "250 ml|400 ml"},
    Good{"Wine Glasses", 1599, "Red|White|Rosé", "2 pack|4 pack"},
    Good{"Dinner Plates", 1999, "White|Blue Rim|Stoneware", "4 pack|6 pack"},
    Good{"Cutlery Set", 2999, "Classic|Matte|Garden", "16 pieces|24 pieces"},
    Good{"Bath Towel", 1299, "Cotton|Waffle|Quick Dry", "70 cm|100 cm"},
    Good{"Bed Sheet", 2499, "Linen|Jersey|Percale", "90 cm|160 cm"},
    Good{"Pillow", 1799, "Down|Memory Foam|Side Sleeper", "40 cm|80 cm"},
    Good{"Blanket", 2999, "Fleece|Wool|Cotton", "130 cm|200 cm"},
    Good{"Curtain", 2499, "Blackout|Sheer|Thermal", "140 cm|245 cm"},
    Good{"Candles", 599, "Pillar|Tea Light|Scented", "4 pack|10 pack"},
    Good{"Laundry Basket", 1999, "Rattan|Folding|Felt", "40 l|70 l"},
    Good{"Storage Box", 999, "Clear|Lidded|Stacking", "15 l|45 l"},
    Good{"Coat Hangers", 799, "Wooden|Velvet|Slim", "5 pack|10 pack"},
    Good{"Broom", 1099, "Indoor|Yard|Angled", "30 cm|45 cm"},
    Good{"Mop Set", 1999, "Flat|Spin|Spray", "8 l|12 l"},
    Good{"Screwdriver Set", 1499, "Precision|Workshop|Ratchet", "6 pieces|12 pieces"},
    Good{"Hammer", 1199, "Claw|Rubber|Ball", "300 g|500 g"},
    Good{"Tape Measure", 699, "Steel|Tailor|Magnetic", "3 m|5 m"},
    Good{"Wall Paint", 1999, "White|Cream|Pale Blue", "2.5 l|5 l"},
    Good{"Potting Soil", 499, "Herb|Flower|Peat Free", "10 l|20 l"},
    Good{"Watering Can", 1199, "Zinc|Long Spout|Plastic", "5 l|10 l"},
    Good{"Plant Pot", 799, "Terracotta|Glazed|Hanging", "14 cm|22 cm"},
    Good{"Shampoo", 349, "Herbal|Repair|Baby", "250 ml|400 ml"},
    Good{"Hand Soap", 199, "Almond|Sea|Aloe", "300 ml|1 l"},
    Good{"Toothpaste", 249, "Mint|Sensitive|Kids", "75 ml|125 ml"},
};

constexpr std::array kElectronics = {
    Good{"Charging Cable", 899, "Braided|Flat|Magnetic", "1 m|2 m"},
    Good{"Display Cable", 1199, "Slim|Braided|Right Angle", "1.5 m|3 m"},
    Good{"Network Cable", 699, "Flat|Shielded|Outdoor", "2 m|10 m"},
    Good{"Audio Cable", 799, "Stereo|Coiled|Adapter", "1 m|3 m"},
    Good{"Wall Charger", 1499, "Compact|Dual Port|Travel", "20 W|45 W"},
    Good{"Car Charger", 1299, "Compact|Dual Port|Fast", "18 W|36 W"},
    Good{"Power Bank", 2499, "Slim|Solar|Rugged", "10000 mAh|20000 mAh"},
    Good{"Batteries AA", 499, "Alkaline|Lithium|Rechargeable", "4 pack|8 pack"},
    Good{"Batteries AAA", 499, "Alkaline|Lithium|Rechargeable", "4 pack|8 pack"},
    Good{"Power Strip", 1599, "Flat Plug|Surge Protected|Switched", "4 sockets|6 sockets"},
    Good{"Extension Cord", 1299, "Indoor|Garden|Flat Plug", "3 m|5 m"},
    Good{"LED Bulb", 449, "Warm White|Daylight|Dimmable", "6 W|11 W"},
    Good{"Desk Lamp", 2999, "Clamp|Folding|Café", "5 W|10 W"},
    Good{"Flashlight", 1499, "Pocket|Rugged|Rechargeable", "200 lm|600 lm"},
    Good{"Headlamp", 1799, "Running|Rechargeable|Red Light", "150 lm|400 lm"},
    Good{"Headphones", 5999, "Wired|Wireless|Noise Canceling", "32 mm|40 mm"},
    Good{"Earbuds", 3999, "Wireless|Sport|Sleep", "6 mm|10 mm"},
    Good{"Speaker", 4999, "Portable|Bookshelf|Shower", "10 W|30 W"},
    Good{"Radio", 3499, "Kitchen|Pocket|Windup", "1 W|3 W"},
    Good{"Keyboard", 3999, "Wireless|Mechanical|Folding", "78 keys|104 keys"},
    Good{"Mouse", 1999, "Wireless|Vertical|Silent", "3 buttons|6 buttons"},
    Good{"Webcam", 4499, "Tripod|Wide Angle|Privacy", "1080 p|1440 p"},
    Good{"Monitor", 14999, "Office|Curved|Portable", "24 inch|27 inch"},
    Good{"Monitor Arm", 3999, "Clamp|Wall|Gas Spring", "1 screen|2 screens"},
    Good{"Laptop Sleeve", 1999, "Felt|Padded|Waterproof", "13 inch|15 inch"},
    Good{"Laptop Stand", 2499, "Folding|Walnut|Aluminum", "13 inch|16 inch"},
    Good{"Memory Card", 1299, "Fast|Endurance|Camera", "64 GB|128 GB"},
    Good{"Memory Stick", 899, "Metal|Capless|Mini", "32 GB|64 GB"},
    Good{"Portable Drive", 6999, "Rugged|Slim|Encrypted", "1 TB|2 TB"},
    Good{"Router", 5999, "Dual Band|Mesh|Travel", "4 ports|8 ports"},
    Good{"Network Switch", 2499, "Desktop|Metal|Silent", "5 ports|8 ports"},
    Good{"Printer Ink", 1799, "Black|Cyan|Photo", "8 ml|16 ml"},
    Good{"Phone Case", 1499, "Clear|Leather|Rugged", "6.1 inch|6.7 inch"},
    Good{"Screen Protector", 999, "Matte|Clear|Privacy", "6.1 inch|6.7 inch"},
    Good{"Phone Holder", 1299, "Vent|Bike|Desk", "6 inch|7 inch"},
    Good{"Tablet", 17999, "Family|Drawing|Reading", "64 GB|128 GB"},
    Good{"Smart Plug", 1499, "Mini|Outdoor|Metering", "10 A|16 A"},
    Good{"Thermometer", 1299, "Indoor|Garden|Fridge & Freezer", "1 sensor|3 sensors"},
    Good{"Alarm Clock", 1999, "Bedside|Travel|Sunrise", "9 cm|12 cm"},
    Good{"Kitchen Scale", 1799, "Flat|Glass|Steel", "5 kg|10 kg"},
    Good{"Electric Kettle", 2999, "Glass|Steel|Gooseneck", "1 l|1.7 l"},
    Good{"Toaster", 3499, "Steel|Retro|Long Slot", "2 slices|4 slices"},
    Good{"Coffee Grinder", 3999, "Burr|Blade|Manual", "100 g|250 g"},
    Good{"Camera", 29999, "Compact|Action|Instant", "16 MP|24 MP"},
    Good{"Laptop", 64999, "Student|Office|Studio", "14 inch|16 inch"},
};

constexpr std::array<std::string_view, 10> kFoodMakers = {
    "Alderbrook", "Bellandro", "Casa Verano", "Dunholt",   "Fernleigh",
    "Greta Holm", "Hjortvik",  "Marenna",     "Oak & Rye", "Père Lucien"};
constexpr std::array<std::string_view, 10> kHouseMakers = {
    "Brightsill", "Cleverly",  "Domiko", "Fjellhus", "Harrowgate",
    "Lindmark",   "Nestworth", "Purlo",  "Tidewell", "Wick & Wool"};
constexpr std::array<std::string_view, 10> kDeviceMakers = {
    "Aurelik", "Boltwise", "Corvane", "Eltrono", "Kestrix",
    "Lumaro",  "Nordvolt", "Pixelle", "Quantry", "Zephyro"};

}  // namespace

std::span<const Good> GoodsOf(Department department) {
  switch (department) {
    case Department::kGroceries:
      return kGroceries;
    case Department::kHousehold:
      return kHousehold;
    case Department::kElectronics:
      return kElectronics;
  }
  return {};
}

std::span<const std::string_view> MakersOf(Department department) {
  switch (department) {
    case Department::kGroceries:
      return kFoodMakers;
    case Department::kHousehold:
      return kHouseMakers;
    case Department::kElectronics:
      return kDeviceMakers;
  }
  return {};
}

}  // namespace brovanta::server
