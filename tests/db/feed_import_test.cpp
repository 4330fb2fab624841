#include "db/feed_import.h"

#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <fstream>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "db/error_codes.h"
#include "platform/file.h"
#include "tests/db/feed_fixture.h"

namespace brovanta::test {
namespace {

using std::string_literals::operator""s;

constexpr std::int32_t kMaxId = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMinId = std::numeric_limits<std::int32_t>::min();

class FeedImportTest : public FeedFixture {};

// Counts how often files of a folder are opened from now on.
class OpeningCount {
 public:
  explicit OpeningCount(const std::string& folder) : notifier_(inotify_init1(IN_NONBLOCK)) {
    // With the closing between them two openings are two events.
    EXPECT_GE(inotify_add_watch(notifier_, folder.c_str(), IN_OPEN | IN_CLOSE), 0);
  }
  OpeningCount(const OpeningCount&) = delete;
  OpeningCount& operator=(const OpeningCount&) = delete;
  ~OpeningCount() { close(notifier_); }

  /// Of the file with the name, up to now; events that did not fit into the queue count as well.
  [[nodiscard]] int Of(const std::string& name) const {
    int count = 0;
    alignas(inotify_event) std::array<char, 4096> buffer;
    for (;;) {
      const ssize_t size = read(notifier_, buffer.data(), buffer.size());
      if (size <= 0) return count;
      for (ssize_t at = 0; at < size;) {
        inotify_event event;
        std::memcpy(&event, buffer.data() + at, sizeof(event));
        const char* file = buffer.data() + at + sizeof(event);
        if ((event.mask & IN_Q_OVERFLOW) != 0) count += 10'000;
        if ((event.mask & IN_OPEN) != 0 && event.len > 0 && name == file) ++count;
        at += static_cast<ssize_t>(sizeof(event) + event.len);
      }
    }
  }

 private:
  int notifier_;
};

TEST_F(FeedImportTest, CouponFillsItsRecord) {
  ASSERT_EQ(Coupons("<?xml?> <CP><ID>12</ID><SR>2</SR><NM>Spring offer</NM>"
                    "<PR>Caf\xE9 cr\xE8me</PR><DS>Ten percent off every pack</DS><TP>3</TP>"
                    "<VT>1</VT><VL>10.5</VL><SD>86400</SD><ED>-2</ED><SI>5001</SI>"
                    "<CI>-1122868</CI></CP> the end"),
            0);
  Bytes expected = StoredBytes(12, 2);
  EXPECT_EQ(File(), Join({FileMagic(), Hex("01 00 00 00"), RecordMark(), expected, EndMark()}));
}

TEST_F(FeedImportTest, CouponWithIdZeroIsSkipped) {
  EXPECT_EQ(Coupons("<CP><ID>12</ID><NM>a</NM><SI>1</SI><CI>1</CI></CP>"
                    "<CP><ID>0</ID><NM>b</NM><SI>1</SI><CI>1</CI></CP>"),
            0);
  EXPECT_EQ(InFile(), Ids{12});
}

TEST_F(FeedImportTest, SkippedCouponsDoNotEndTheImport) {
  EXPECT_EQ(Coupons("<CP><NM>no id</NM></CP>"
                    "<CP><ID>11</ID></CP>"
                    "<CP><ID>x</ID><NM>id is no number</NM></CP>"
                    "<CP><ID>12</ID><NM></NM><SI>1</SI><CI>1</CI></CP>"),
            0);
  EXPECT_EQ(InFile(), Ids{12}) << "an empty name is a name";
}

TEST_F(FeedImportTest, OtherValueTypesBecomeAmounts) {
  EXPECT_EQ(One("<VT>7</VT>").ValueType, 2);
  EXPECT_EQ(One("<VT>1</VT>").ValueType, 1);
  EXPECT_EQ(One("<VT>2</VT>").ValueType, 2);
  EXPECT_EQ(One("<VT>0</VT>").ValueType, 2);
  EXPECT_EQ(One("<VT>-1</VT>").ValueType, 2);
  EXPECT_EQ(One("<VT>65537</VT>").ValueType, 2) << "looked at before it is cut to 16 bits";
  EXPECT_EQ(One("").ValueType, 2);
}

TEST_F(FeedImportTest, MissingFieldsAreEmptyOrZero) {
  const DiscountRecord record = One("");
  EXPECT_EQ(record.Name.view(), "Soap");
  EXPECT_EQ(record.Product.view(), "");
  EXPECT_EQ(record.Description.view(), "");
  EXPECT_EQ(record.Type, 0);
  EXPECT_EQ(record.Value, 0.0);
  EXPECT_EQ(record.Stamp, kToday);
  EXPECT_EQ(record.StartDate, 0);
  EXPECT_EQ(record.EndDate, 0);
  EXPECT_EQ(record.Flagged, 0);
  EXPECT_EQ(record.Deleted, 0);
}

TEST_F(FeedImportTest, NumbersAreReadUpToTheFirstOtherCharacter) {
  const DiscountRecord record =
      One("<TP> +2x</TP><SD>  \t15 days</SD><ED>12.9</ED><VL> 3.25$</VL>");
  EXPECT_EQ(record.Type, 2);
  EXPECT_EQ(record.StartDate, 15);
  EXPECT_EQ(record.EndDate, 12);
  EXPECT_EQ(record.Value, 3.25);
}

TEST_F(FeedImportTest, NumbersBeyond32BitsStopAtTheEnd) {
  const DiscountRecord record = One("<SD>99999999999999999999</SD><ED>-99999999999</ED>");
  EXPECT_EQ(record.StartDate, kMaxId);
  EXPECT_EQ(record.EndDate, kMinId);
}

TEST_F(FeedImportTest, SourceAndTypeKeepTheirLow16Bits) {
  ASSERT_EQ(
      Coupons("<CP><ID>9</ID><SR>65538</SR><NM>a</NM><TP>98304</TP><SI>1</SI><CI>1</CI></CP>"), 0);
  const auto record = list_.Read(9, 2);
  ASSERT_TRUE(record);
  EXPECT_EQ(record->Type, -32768);
}

TEST_F(FeedImportTest, ValueThatIsNotFiniteIsZero) {
  EXPECT_EQ(One("<VL>nan</VL>").Value, 0.0);
  EXPECT_EQ(One("<VL>infinity</VL>").Value, 0.0);
  EXPECT_EQ(One("<VL>1e999</VL>").Value, 0.0);
  EXPECT_EQ(One("<VL>-1.5e1</VL>").Value, -15.0);
}

TEST_F(FeedImportTest, TextsAreCutToTheirFields) {
  const auto length = [this](std::size_t size) {
    return One("<PR>" + std::string(size, 'p') + "</PR><DS>" + std::string(size, 'd') + "</DS>");
  };
  EXPECT_EQ(length(49).Product.view().size(), 49U);
  EXPECT_EQ(length(50).Product.view().size(), 49U);
  EXPECT_EQ(length(500).Product.view().size(), 49U);
  EXPECT_EQ(length(249).Description.view().size(), 249U);
  EXPECT_EQ(length(500).Description.view().size(), 249U);
}

TEST_F(FeedImportTest, LongCouponNamesAreCutAt49) {
  for (const std::size_t size : {49U, 50U, 500U}) {
    ASSERT_TRUE(platform::RemoveFile(folder_.File("discount.dat")));
    ASSERT_EQ(
        Coupons("<CP><ID>9</ID><NM>" + std::string(size, 'n') + "</NM><SI>1</SI><CI>1</CI></CP>"),
        0);
    const Bytes file = File();
    ASSERT_EQ(file.size(), 416U);
    EXPECT_EQ(Bytes(file.begin() + 24, file.begin() + 74), Padded(std::string(49, 'n'), 50));
  }
}

TEST_F(FeedImportTest, TextsStayAsTheyAre) {
  const DiscountRecord record = One("<PR> Salt &amp; pepper </PR><DS>a\r\nb<b>c</DS>");
  EXPECT_EQ(record.Product.view(), " Salt &amp; pepper ");
  EXPECT_EQ(record.Description.view(), "a\r\nb<b>c");
}

TEST_F(FeedImportTest, TagsInTheWrongOrderAreMissing) {
  const DiscountRecord record = One("</PR>backwards<PR></TP>5<TP>");
  EXPECT_EQ(record.Product.view(), "");
  EXPECT_EQ(record.Type, 0);
}

TEST_F(FeedImportTest, TagsInAnotherLetterCaseAreNoTags) {
  EXPECT_EQ(One("<pr>soap</pr>").Product.view(), "");
  EXPECT_EQ(Coupons("<cp><ID>12</ID><NM>a</NM></cp>"), 0);
  EXPECT_EQ(InFile(), Ids{9});
}

TEST_F(FeedImportTest, FirstTagsOfTheSpanCount) { EXPECT_EQ(One("<TP>1</TP><TP>2</TP>").Type, 1); }

TEST_F(FeedImportTest, CouponWithoutStoreGetsANewOneWithAnEmptyName) {
  ASSERT_EQ(Coupons("<CP><ID>1</ID><NM>a</NM><CI>8</CI></CP>"
                    "<CP><ID>2</ID><NM>b</NM><SI>0</SI><CI>0</CI></CP>"),
            0);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(5000, ""), RawItem(5001, "")}));
  EXPECT_EQ(folder_.Read("category.lst"), RawListFile({RawItem(5000, "")}));
  EXPECT_EQ(list_.Read(1, 0)->StoreId, 5000U);
  EXPECT_EQ(list_.Read(1, 0)->CategoryId, 8U);
  EXPECT_EQ(list_.Read(2, 0)->StoreId, 5001U);
  EXPECT_EQ(list_.Read(2, 0)->CategoryId, 5000U);
}

TEST_F(FeedImportTest, SkippedCouponsAddNoStore) {
  ASSERT_EQ(Coupons("<CP><ID>0</ID><NM>a</NM></CP><CP><ID>1</ID></CP>"), 0);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({}));
  EXPECT_FALSE(folder_.Read("discount.dat"));
}

TEST_F(FeedImportTest, CouponThatIsThereIsAddedAgain) {
  const std::string coupon = "<CP><ID>3</ID><SR>1</SR><NM>a</NM><SI>1</SI><CI>1</CI></CP>";
  ASSERT_EQ(Coupons(coupon + coupon), 0);
  ASSERT_EQ(Coupons(coupon), 0);
  EXPECT_EQ(InFile(), (Ids{3, 3, 3}));
}

TEST_F(FeedImportTest, FeedIdsDoNotTouchLastId) {
  Store({});
  ASSERT_EQ(Coupons("<CP><ID>777</ID><NM>a</NM><SI>1</SI><CI>1</CI></CP>"), 0);
  const Bytes file = File();
  EXPECT_EQ(Bytes(file.begin() + 4, file.begin() + 8), Word(100));
}

TEST_F(FeedImportTest, StrayClosingTagEndsTheFeed) {
  const std::string good = "<CP><ID>1</ID><NM>a</NM><SI>1</SI><CI>1</CI></CP>";
  const std::string lost = "<CP><ID>2</ID><NM>b</NM><SI>1</SI><CI>1</CI></CP>";
  EXPECT_EQ(Coupons(good + "</CP>" + lost), 0);
  EXPECT_EQ(InFile(), Ids{1});
  EXPECT_EQ(Coupons("</CP>" + lost), 0);
  EXPECT_EQ(InFile(), Ids{1});
}

TEST_F(FeedImportTest, OpeningTagInsideASpanBelongsToIt) {
  EXPECT_EQ(Coupons("<CP><ID>1</ID><CP><ID>2</ID><NM>b</NM><SI>1</SI><CI>1</CI></CP>"), 0);
  EXPECT_EQ(InFile(), Ids{1});
}

TEST_F(FeedImportTest, ZeroEndsTheFeed) {
  EXPECT_EQ(Coupons("<CP><ID>1</ID><NM>a</NM><SI>1</SI><CI>1</CI></CP>\0"
                    "<CP><ID>2</ID><NM>b</NM><SI>1</SI><CI>1</CI></CP>"s),
            0);
  EXPECT_EQ(InFile(), Ids{1});
}

TEST_F(FeedImportTest, NothingWholeImportsNothing) {
  for (const char* text : {"", "<CP>", "</CP>", "<CP><ID>1</ID><NM>a</NM></C", "just text",
                           "<html>500 Internal Server Error</html>"}) {
    EXPECT_EQ(Coupons(text), 0) << text;
    EXPECT_EQ(List(text), 0) << text;
  }
  EXPECT_FALSE(folder_.Read("discount.dat"));
  EXPECT_TRUE(names_.empty());
}

TEST_F(FeedImportTest, FeedThatCannotBeReadHasItsCode) {
  EXPECT_EQ(ImportCoupons(list_, folder_.File("missing")), ERR_OPEN);
  EXPECT_EQ(ImportList(names_, folder_.File("missing")), ERR_OPEN);
  folder_.WriteText("update.dat", "<IT><ID>1</ID><NM>held</NM></IT>");
  platform::File holder;
  ASSERT_TRUE(holder.Open(feed(), platform::File::Mode::kRead));
  EXPECT_EQ(ImportCoupons(list_, feed()), -11);
  EXPECT_EQ(ImportList(names_, feed()), -11);
  EXPECT_TRUE(names_.empty());
}

TEST_F(FeedImportTest, DamagedDiscountFileIsNoErrorOfTheFeed) {
  const Bytes damaged = Hex("FF FF FF FF 00 00 00 00 83 38 01 00");
  folder_.Write("discount.dat", damaged);
  EXPECT_EQ(Coupons("<CP><ID>1</ID><NM>a</NM></CP>"), 0);
  EXPECT_EQ(File(), damaged);
}

TEST_F(FeedImportTest, TenThousandCouponsAreAddedInOrder) {
  std::string text;
  Ids expected;
  for (int id = 1; id <= 10'000; ++id) {
    text += "<CP><ID>" + std::to_string(id) + "</ID><SR>1</SR><NM>Coupon</NM></CP>\r\n";
    expected.push_back(id);
  }
  ASSERT_EQ(Coupons(text), 0);
  EXPECT_EQ(Shown(), expected);
  EXPECT_EQ(InFile(), expected);
  EXPECT_EQ(File().size(), 12U + 10'000 * 404);
  EXPECT_EQ(database_.stores().size(), 10'000U);
  EXPECT_EQ(list_.Read(10'000, 1)->StoreId, 14'999U);
}

// Opening and syncing the file for every coupon is what would make a large feed slow.
TEST_F(FeedImportTest, TenThousandCouponsOpenTheFileAHandfulOfTimes) {
  std::string text;
  for (int id = 1; id <= 10'000; ++id) {
    text += "<CP><ID>" + std::to_string(id) + "</ID><SR>1</SR><NM>Coupon</NM><PR>Milk</PR>" +
            "<DS>Show it at the checkout</DS><TP>1</TP><VT>2</VT><VL>1.5</VL><SI>7</SI>" +
            "<CI>3</CI></CP>\r\n";
  }
  folder_.WriteText("update.dat", text);
  const OpeningCount openings(folder_.path());
  ASSERT_EQ(ImportCoupons(list_, feed()), 0);
  const int counted = openings.Of("discount.dat");
  EXPECT_GE(counted, 1);
  EXPECT_LE(counted, 8);
  EXPECT_EQ(File().size(), 12U + 10'000 * 404);
}

TEST_F(FeedImportTest, FeedCutAnywhereImportsTheWholeSpansBeforeTheCut) {
  const std::string first = "<CP><ID>1</ID><NM>a</NM><SI>1</SI><CI>1</CI></CP>";
  const std::string second = "<CP><ID>2</ID><NM>b</NM><SI>1</SI><CI>1</CI></CP>";
  const std::string whole = first + second;
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    ASSERT_TRUE(platform::RemoveFile(folder_.File("discount.dat")));
    ASSERT_EQ(Coupons(whole.substr(0, size)), 0);
    Ids expected;
    if (size >= first.size()) expected.push_back(1);
    if (size == whole.size()) expected.push_back(2);
    EXPECT_EQ(InFile(), expected) << size;
  }
}

TEST_F(FeedImportTest, AnyOrderOfTagsIsTaken) {
  std::mt19937 random(6);
  const std::vector<std::string> tags{"<CP>", "</CP>", "<ID>", "</ID>", "<NM>", "</NM>",
                                      "<IT>", "</IT>", "7",    "name",  "<",    ">"};
  for (int round = 0; round < 300; ++round) {
    std::string text;
    for (int i = 0; i < 60; ++i) text += tags[random() % tags.size()];
    EXPECT_EQ(Coupons(text), 0);
    EXPECT_EQ(List(text), 0);
  }
  EXPECT_EQ(Load(), folder_.Read("discount.dat") ? 0 : ERR_OPEN);
}

// The examples of the page about the feeds, in its order.
std::vector<std::string> Examples() {
  std::ifstream in(std::string(BROVANTA_SOURCE_FOLDER) + "/docs/formats/feeds.md");
  std::vector<std::string> examples;
  bool inside = false;
  for (std::string line; std::getline(in, line);) {
    if (line == "```") {
      inside = !inside;
      if (inside) examples.emplace_back();
    } else if (inside) {
      examples.back() += line + "\n";
    }
  }
  return examples;
}

TEST_F(FeedImportTest, ExamplesOfTheFormatPage) {
  const std::vector<std::string> examples = Examples();
  ASSERT_EQ(examples.size(), 2U);
  ASSERT_EQ(Coupons(examples[0]), 0);
  const auto coupon = list_.Read(12, 1);
  ASSERT_TRUE(coupon);
  EXPECT_EQ(coupon->Name.view(), "Two for one");
  EXPECT_EQ(coupon->Product.view(), "oat milk");
  EXPECT_EQ(coupon->Type, 2);
  EXPECT_EQ(coupon->ValueType, 1);
  EXPECT_EQ(coupon->Value, 50.0);
  EXPECT_EQ(coupon->StartDate, kToday);
  EXPECT_EQ(coupon->EndDate, kToday + 30 * kDay);
  EXPECT_EQ(coupon->StoreId, 7U);
  EXPECT_EQ(coupon->CategoryId, 3U);
  ASSERT_EQ(List(examples[1]), 0);
  EXPECT_EQ(Names(), "7=Corner Shop 12=Market Hall");
}

}  // namespace
}  // namespace brovanta::test
