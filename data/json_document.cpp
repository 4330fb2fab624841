#include "data/json_document.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>
#include <utility>

#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

using Kind = JsonNode::Kind;

// How far the library has read. It looks one character behind a number.
struct Place {
  std::size_t line = 1;
  bool behind_line_feed = false;
};

// Gives the library the text and follows it.
class CountingIterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  CountingIterator(const char* at, Place& place) : at_(at), place_(&place) {}
  reference operator*() const { return *at_; }
  CountingIterator& operator++() {
    place_->behind_line_feed = *at_ == '\n';
    if (*at_ == '\n') ++place_->line;
    ++at_;
    return *this;
  }
  friend bool operator==(const CountingIterator& left, const CountingIterator& right) {
    return left.at_ == right.at_;
  }

 private:
  const char* at_;
  Place* place_;
};

// Builds the document from what the library reports; each report returns whether to read on. The
// names are the library's.
class Builder : public nlohmann::json_sax<nlohmann::json> {
 public:
  explicit Builder(const Place& place) : place_(place) {}

  bool null() override { return Put(Kind::kNull); }
  bool boolean(bool value) override {
    JsonNode* const node = Put(Kind::kBool);
    if (node != nullptr) node->boolean = value;
    return node != nullptr;
  }
  bool number_integer(number_integer_t value) override { return PutInteger(value); }
  bool number_unsigned(number_unsigned_t value) override {
    if (value <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
      return PutInteger(static_cast<std::int64_t>(value));
    }
    return PutNumber(static_cast<double>(value));
  }
  bool number_float(number_float_t value, const string_t& /*literal*/) override {
    return PutNumber(value);
  }
  bool string(string_t& value) override {
    JsonNode* const node = Put(Kind::kText);
    if (node != nullptr) node->text = std::move(value);
    return node != nullptr;
  }
  bool binary(binary_t& /*value*/) override { return Fail("there is no such value in JSON"); }
  bool start_object(std::size_t /*elements*/) override { return Open(Kind::kObject); }
  bool end_object() override { return Close(); }
  bool start_array(std::size_t /*elements*/) override { return Open(Kind::kArray); }
  bool end_array() override { return Close(); }
  bool key(string_t& value) override {
    if (!open_.back().keys.insert(value).second) {
      return Fail("the key " + Quoted(value) + " stands there twice");
    }
    open_.back().node->keys.push_back(std::move(value));
    return true;
  }
  bool parse_error(std::size_t position, const std::string& last_token,
                   const nlohmann::detail::exception& exception) override {
    constexpr int kOutOfRange = 406;
    if (exception.id == kOutOfRange) {
      return Fail("the number " + Quoted(last_token) + " is too large");
    }
    return Fail("this is no JSON: byte " + std::to_string(position) + " of the file, behind " +
                Quoted(Tail(last_token)) + ", does not fit there");
  }

  [[nodiscard]] JsonNode& root() { return root_; }
  [[nodiscard]] const std::string& error() const { return error_; }

 private:
  struct OpenNode {
    JsonNode* node = nullptr;
    std::set<std::string, std::less<>> keys;
  };

  // A message is read by a person: the end of a long token is enough.
  static std::string_view Tail(std::string_view token) {
    constexpr std::size_t kEnough = 20;
    return token.size() > kEnough ? token.substr(token.size() - kEnough) : token;
  }

  bool Fail(const std::string& words) {
    error_ = "line " + std::to_string(place_.line) + ": " + words;
    return false;
  }

  // The new node stays where it is while it is open: nothing is put beside it meanwhile.
  JsonNode* Put(Kind kind) {
    JsonNode* node = &root_;
    if (!open_.empty()) node = &open_.back().node->items.emplace_back();
    node->kind = kind;
    const bool is_number = kind == Kind::kInteger || kind == Kind::kNumber;
    node->line = place_.line - (is_number && place_.behind_line_feed ? 1 : 0);
    return node;
  }
  bool PutInteger(std::int64_t value) {
    JsonNode* const node = Put(Kind::kInteger);
    node->integer = value;
    node->number = static_cast<double>(value);
    return true;
  }
  bool PutNumber(double value) {
    Put(Kind::kNumber)->number = value;
    return true;
  }
  bool Open(Kind kind) {
    if (open_.size() == kDeepestJson) return Fail("too many arrays and objects in each other");
    open_.push_back({Put(kind), {}});
    return true;
  }
  bool Close() {
    open_.pop_back();
    return true;
  }

  const Place& place_;
  JsonNode root_;
  std::vector<OpenNode> open_;
  std::string error_;
};

}  // namespace

const JsonNode* JsonNode::Find(std::string_view key) const {
  const auto found = std::find(keys.begin(), keys.end(), key);
  return found != keys.end() ? &items[static_cast<std::size_t>(found - keys.begin())] : nullptr;
}

std::optional<JsonNode> ReadJsonDocument(std::string_view text, std::string& error) {
  Place place;
  Builder builder(place);
  const char* const begin = text.data();
  const bool read = nlohmann::json::sax_parse(
      CountingIterator(begin, place), CountingIterator(begin + text.size(), place), &builder);
  if (read) return std::move(builder.root());
  error = builder.error();
  return std::nullopt;
}

}  // namespace brovanta::data_tool
