#include "search/rigid_text.h"

#include <cstring>

namespace brovanta {

RigidText::RigidText(std::string_view text)
    : text_(text), literal_(text.substr(0, text.find('?')).size()), any_(literal_ < text.size()) {
  if (!is_long()) return;
  if (any_) {
    PrepareBits();
  } else {
    PrepareLengths();
  }
}

void RigidText::PrepareLengths() {
  shorter_.resize(text_.size());
  std::uint32_t length = 0;
  for (std::size_t i = 1; i < text_.size(); ++i) {
    while (length > 0 && text_[i] != text_[length]) length = shorter_[length - 1];
    if (text_[i] == text_[length]) ++length;
    shorter_[i] = length;
  }
}

void RigidText::PrepareBits() {
  words_ = (text_.size() + kBits - 1) / kBits;
  takes_.resize(256 * words_);
  for (std::size_t i = 0; i < text_.size(); ++i) {
    const std::uint64_t bit = std::uint64_t{1} << (i % kBits);
    if (text_[i] != '?') {
      takes_[static_cast<unsigned char>(text_[i]) * words_ + i / kBits] |= bit;
      continue;
    }
    for (std::size_t byte = 0; byte < 256; ++byte) takes_[byte * words_ + i / kBits] |= bit;
  }
}

bool RigidText::Equals(const char* bytes) const {
  if (!any_) return std::memcmp(text_.data(), bytes, text_.size()) == 0;
  for (std::size_t i = 0; i < text_.size(); ++i) {
    if (text_[i] != bytes[i] && text_[i] != '?') return false;
  }
  return true;
}

void RigidSearch::Reset(std::string_view text) {
  text_ = text;
  ends_.assign(pattern_->words_, 0);
  length_ = 0;
  scanned_ = 0;
  found_ = 0;
  has_found_ = false;
}

std::size_t RigidSearch::Find(std::size_t from) {
  if (from > text_.size() || pattern_->size() > text_.size() - from) return kNowhere;
  return pattern_->is_long() ? FindLong(from) : FindShort(from);
}

bool RigidSearch::IsAt(std::size_t place) {
  if (place > text_.size() || pattern_->size() > text_.size() - place) return false;
  if (pattern_->is_long()) return FindLong(place) == place;
  return pattern_->Equals(text_.data() + place);
}

std::size_t RigidSearch::FindShort(std::size_t from) const {
  const std::size_t last = text_.size() - pattern_->size();
  for (std::size_t place = from; place <= last; ++place) {
    if (pattern_->literal_ > 0) {
      const void* found = memmem(text_.data() + place, text_.size() - place, pattern_->text_.data(),
                                 pattern_->literal_);
      if (found == nullptr) return kNowhere;
      place = static_cast<std::size_t>(static_cast<const char*>(found) - text_.data());
      if (place > last) return kNowhere;
    }
    if (!pattern_->any_ || pattern_->Equals(text_.data() + place)) return place;
  }
  return kNowhere;
}

std::size_t RigidSearch::FindLong(std::size_t from) {
  if (has_found_ && found_ >= from) return found_;
  if (scanned_ < from) {
    // Nothing that begins before `from` is of interest.
    scanned_ = from;
    length_ = 0;
    ends_.assign(pattern_->words_, 0);
  }
  has_found_ = true;
  while (scanned_ < text_.size()) {
    if (!Step(text_[scanned_++])) continue;
    found_ = scanned_ - pattern_->size();
    if (found_ >= from) return found_;
  }
  return found_ = kNowhere;
}

// Takes in the next byte of the text. Whether the whole pattern ends with it.
bool RigidSearch::Step(char next) { return pattern_->any_ ? StepBits(next) : StepLength(next); }

bool RigidSearch::StepLength(char next) {
  const std::string& text = pattern_->text_;
  if (length_ == text.size()) length_ = pattern_->shorter_[length_ - 1];
  while (length_ > 0 && next != text[length_]) length_ = pattern_->shorter_[length_ - 1];
  if (next == text[length_]) ++length_;
  return length_ == text.size();
}

// Each beginning that ended with the byte before either goes on or is gone, and a new one begins.
bool RigidSearch::StepBits(char next) {
  const std::size_t words = pattern_->words_;
  const std::uint64_t* takes = pattern_->takes_.data() + static_cast<unsigned char>(next) * words;
  std::uint64_t carry = 1;
  for (std::size_t i = 0; i < words; ++i) {
    const std::uint64_t carried = ends_[i] >> (RigidText::kBits - 1);
    ends_[i] = ((ends_[i] << 1) | carry) & takes[i];
    carry = carried;
  }
  const std::size_t last = pattern_->size() - 1;
  return ((ends_[last / RigidText::kBits] >> (last % RigidText::kBits)) & 1) != 0;
}

}  // namespace brovanta
