// The records that the benchmarks work on: a large household's, made by rule and always the same.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "db/records.h"

namespace brovanta::bench {

inline constexpr std::size_t kRecords = 100'000;
inline constexpr DateStamp kToday = 1'714'957'200;  ///< 2024-05-06 01:00:00 UTC, a Monday

/// The store and the words that the filtering benchmarks ask for.
inline constexpr std::uint32_t kStore = 7;
inline constexpr const char* kFirstWord = "fresh";
inline constexpr const char* kSecondWord = "milk";

/// Discounts of ten years in the order in which they came, one in ten changed later; a third still
/// valid; twenty stores and none.
[[nodiscard]] std::vector<DiscountRecord> MakeDiscounts();

/// Products, every second one recurring (daily, weekly, monthly), half of those bought before.
[[nodiscard]] std::vector<ProductRecord> MakeProducts();

/// A folder of its own for the benchmarks' files, removed at the end of the program.
class BenchFolder {
 public:
  static const BenchFolder& Instance();

  BenchFolder(const BenchFolder&) = delete;
  BenchFolder& operator=(const BenchFolder&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] std::string File(const std::string& name) const { return path_ + "/" + name; }

 private:
  BenchFolder();
  ~BenchFolder();

  std::string path_;
};

/// Writes the three name lists and the two record files into the folder, once.
void WriteDataFiles();

/// Reads a file from front to back into one buffer: the least that any load must do.
std::size_t ReadWholeFile(const std::string& path);

}  // namespace brovanta::bench
