#include "db/file_image.h"

#include "util/clock.h"

namespace brovanta {

std::span<const std::byte> FileImage::Of(platform::File& file) {
  const std::optional<platform::FileState> state = file.State();
  if (!state || state != state_) {
    state_ = state;
    bytes_.reset();
    return {};
  }
  if (bytes_ == nullptr && !ReadWhole(file)) return {};
  return {bytes_.get(), static_cast<std::size_t>(state->size)};
}

bool FileImage::ReadWhole(platform::File& file) {
  if (state_->size > kLargestSize) return false;
  // What is written from now on has a later time than a settled file, and so another state.
  if (state_->changed + kSettledSeconds > CurrentSeconds()) return false;
  const auto size = static_cast<std::size_t>(state_->size);
  auto bytes = std::make_unique_for_overwrite<std::byte[]>(size);
  if (file.ReadAt(0, {bytes.get(), size}) != state_->size || file.State() != state_) return false;
  bytes_ = std::move(bytes);
  return true;
}

}  // namespace brovanta
