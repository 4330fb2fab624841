#include "net/http/body_pieces.h"

#include <algorithm>

namespace brovanta {
namespace {

constexpr std::size_t kUnitSize = 2;
constexpr std::string_view kDroppedUnit("\r\0", kUnitSize);
constexpr std::string_view kLastUnitOfLine("\n\0", kUnitSize);
constexpr std::string_view kZeroUnit("\0\0", kUnitSize);

}  // namespace

BodyPieces::BodyPieces(const std::atomic<std::int32_t>& cancel_flag, std::size_t unit_size)
    : cancel_flag_(cancel_flag) {
  bytes_.reserve((kMaxBodyLength + 1) * unit_size);
}

PieceResult BodyPieces::Append(std::string_view piece, std::size_t length) {
  if (cancel_flag_.load() != 0) return PieceResult::kCancelled;
  total_ += length;
  if (total_ > kMaxBodyLength) return PieceResult::kFull;
  bytes_.append(piece);
  return PieceResult::kGoOn;
}

ByteBody::ByteBody(const std::atomic<std::int32_t>& cancel_flag) : BodyPieces(cancel_flag, 1) {
  piece_.reserve(kPieceLength);
}

PieceResult ByteBody::Take(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t count = std::min(bytes.size(), kPieceLength - piece_.size());
    piece_.append(bytes.substr(0, count));
    bytes.remove_prefix(count);
    if (piece_.size() < kPieceLength) break;
    if (const PieceResult result = EndPiece(); result != PieceResult::kGoOn) return result;
  }
  return PieceResult::kGoOn;
}

PieceResult ByteBody::Finish() { return piece_.empty() ? PieceResult::kGoOn : EndPiece(); }

PieceResult ByteBody::EndPiece() {
  const std::string_view text = std::string_view(piece_).substr(0, piece_.find('\0'));
  const PieceResult result = Append(text, text.size());
  piece_.clear();
  return result;
}

UnitBody::UnitBody(const std::atomic<std::int32_t>& cancel_flag)
    : BodyPieces(cancel_flag, kUnitSize) {
  piece_.reserve(kPieceLength * kUnitSize);
}

PieceResult UnitBody::Take(std::string_view bytes) {
  if (bytes.empty()) return PieceResult::kGoOn;
  if (low_byte_) {
    const PieceResult result = TakeUnit(*low_byte_, bytes.front());
    low_byte_.reset();
    bytes.remove_prefix(1);
    if (result != PieceResult::kGoOn) return result;
  }
  for (; bytes.size() >= kUnitSize; bytes.remove_prefix(kUnitSize)) {
    if (const PieceResult result = TakeUnit(bytes[0], bytes[1]); result != PieceResult::kGoOn) {
      return result;
    }
  }
  if (!bytes.empty()) low_byte_ = bytes.front();
  return PieceResult::kGoOn;
}

PieceResult UnitBody::Finish() {
  if (low_byte_) piece_ += *low_byte_;
  low_byte_.reset();
  return piece_.empty() ? PieceResult::kGoOn : EndPiece();
}

PieceResult UnitBody::TakeUnit(char low, char high) {
  const char unit[kUnitSize] = {low, high};
  const std::string_view bytes(unit, kUnitSize);
  if (bytes == kDroppedUnit) return PieceResult::kGoOn;
  piece_ += bytes;
  const bool ends = bytes == kLastUnitOfLine || piece_.size() == kPieceLength * kUnitSize;
  return ends ? EndPiece() : PieceResult::kGoOn;
}

PieceResult UnitBody::EndPiece() {
  std::size_t end = 0;
  while (end < piece_.size() && std::string_view(piece_).substr(end, kUnitSize) != kZeroUnit) {
    end += kUnitSize;
  }
  // Behind an odd last byte `end` is one too far, so that it counts as a unit.
  const PieceResult result = Append(std::string_view(piece_).substr(0, end), end / kUnitSize);
  piece_.clear();
  return result;
}

}  // namespace brovanta
