#include "search/results_file.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "db/file_names.h"
#include "db/journal.h"
#include "db/record_format.h"
#include "db/unit_of_work.h"
#include "platform/file.h"
#include "platform/text_file.h"
#include "search/search_format.h"
#include "util/error_codes.h"
#include "util/little_endian.h"

namespace brovanta {
namespace {

using ItemText = std::optional<std::string> SearchResultItem::*;
constexpr std::array<ItemText, result_layout::kTexts> kTextsInOrder{
    &SearchResultItem::Title, &SearchResultItem::Text, &SearchResultItem::Url,
    &SearchResultItem::SiteName};

template <typename T>
void Put(std::vector<std::byte>& bytes, T value) {
  bytes.resize(bytes.size() + sizeof(T));
  StoreLittle(bytes.data() + bytes.size() - sizeof(T), value);
}

void PutText(std::vector<std::byte>& bytes, const std::optional<std::string>& text) {
  if (!text) return Put(bytes, std::int32_t{0});
  const std::string_view stored(text->c_str());  // a text ends at a zero
  Put(bytes, static_cast<std::int32_t>(stored.size() + 1));
  const auto characters = std::as_bytes(std::span(stored));
  bytes.insert(bytes.end(), characters.begin(), characters.end());
  bytes.push_back(std::byte{0});
}

// Takes numbers and texts off the front of a file's bytes.
class Reader {
 public:
  explicit Reader(const std::string& bytes) : rest_(std::as_bytes(std::span(bytes))) {}

  [[nodiscard]] std::size_t left() const { return rest_.size(); }

  template <typename T>
  [[nodiscard]] std::optional<T> Take() {
    const auto bytes = TakeBytes(sizeof(T));
    if (!bytes) return std::nullopt;
    return LoadLittle<T>(bytes->data());
  }

  [[nodiscard]] std::optional<std::string> TakeText() {
    const auto length = Take<std::int32_t>();
    if (!length || *length < 1) return std::nullopt;
    const auto bytes = TakeBytes(static_cast<std::size_t>(*length));
    if (!bytes) return std::nullopt;
    const std::string_view text(reinterpret_cast<const char*>(bytes->data()), bytes->size());
    return std::string(text.substr(0, text.find('\0')));
  }

 private:
  // What is asked for beyond the end takes everything: nothing can be read behind it.
  std::optional<std::span<const std::byte>> TakeBytes(std::size_t count) {
    const auto taken = rest_.first(std::min(count, rest_.size()));
    rest_ = rest_.subspan(taken.size());
    if (taken.size() < count) return std::nullopt;
    return taken;
  }

  std::span<const std::byte> rest_;
};

// The words between the items.
int CodeAtMark(std::optional<std::uint32_t> mark) { return mark == END_MARK ? 0 : ERR_FORMAT; }

int ReadItems(Reader& reader, std::vector<SearchResultItem>& items) {
  if (reader.Take<std::uint32_t>() != FILE_MAGIC) return ERR_FORMAT;
  for (;;) {
    const auto mark = reader.Take<std::uint32_t>();
    if (mark != RECORD_MARK) return CodeAtMark(mark);
    if (reader.left() < result_layout::kSize) return ERR_IO;
    SearchResultItem item;
    item.Id = *reader.Take<std::int32_t>();
    item.Price = *reader.Take<double>();
    item.Status = *reader.Take<std::int16_t>();
    for (const ItemText text : kTextsInOrder) item.*text = reader.TakeText();
    items.push_back(std::move(item));
  }
}

// The journal of the data folder, in which that of the results stands; nothing for a file anywhere
// else. What was left in the middle is to be rolled back before results change, not after: a
// restore has them in its journal.
std::optional<std::string> JournalAbove(const std::string& path) {
  constexpr std::string_view kFolder = kResultsFolder;
  const std::size_t name = path.find_last_of("\\/");
  if (name == std::string::npos) return std::nullopt;
  const std::string_view folder = std::string_view(path).substr(0, name);
  if (!folder.ends_with(kFolder)) return std::nullopt;
  const std::string_view above = folder.substr(0, folder.size() - kFolder.size());
  const bool is_whole_name = above.empty() || above.ends_with('/') || above.ends_with('\\');
  return is_whole_name ? std::optional(JournalBeside(above)) : std::nullopt;
}

}  // namespace

std::vector<std::byte> EncodeSearchResults(const SearchResultList& list) {
  std::vector<std::byte> bytes;
  Put(bytes, FILE_MAGIC);
  for (const SearchResultItem& item : list.items()) {
    Put(bytes, RECORD_MARK);
    Put(bytes, item.Id);
    Put(bytes, item.Price);
    Put(bytes, item.Status);
    for (const ItemText text : kTextsInOrder) PutText(bytes, item.*text);
  }
  Put(bytes, END_MARK);
  return bytes;
}

int WriteSearchResults(const SearchResultList& list, const std::string& path) {
  const std::vector<std::byte> bytes = EncodeSearchResults(list);
  const auto journal = JournalAbove(path);
  if (!journal) return platform::ReplaceFile(path, bytes) ? 0 : ERR_OPEN;
  if (RollBackJournal(*journal) != 0) return ERR_OPEN;
  UnitOfWork work(*journal);
  work.Replace(path, bytes);
  return work.Commit() == 0 ? 0 : ERR_OPEN;
}

int ReadSearchResults(SearchResultList& list, const std::string& path) {
  list.Clear();
  std::string bytes;
  if (const int code = platform::ReadWholeFile(path, bytes); code != 0) return code;
  Reader reader(bytes);
  std::vector<SearchResultItem> items;
  if (const int code = ReadItems(reader, items); code != 0) return code;
  list.Append(std::move(items));
  list.SortByPrice();
  return 0;
}

}  // namespace brovanta
