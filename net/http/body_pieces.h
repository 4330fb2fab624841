// The body of an answer, taken in pieces of an exact size whatever the network delivers.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace brovanta {

/// Bytes or units of a piece, the last one of a body excepted.
inline constexpr std::size_t kPieceLength = 1024;
/// Bytes or units of a body that are kept at most.
inline constexpr std::size_t kMaxBodyLength = 319'999;

enum class PieceResult {
  kGoOn,
  kFull,       ///< the body is as long as may be: the piece that went over and the rest are dropped
  kCancelled,  ///< the cancel flag was found set
};

/// What the two bodies have in common: from one piece to the next the flag is looked at, the
/// piece's length is added up, and the piece is appended unless the sum is over the limit. The
/// length of a piece ends at its first zero; a piece that begins with one adds nothing and does not
/// end the body. Allocates its full size at the start. One thread.
class BodyPieces {
 public:
  BodyPieces(const BodyPieces&) = delete;
  BodyPieces& operator=(const BodyPieces&) = delete;
  virtual ~BodyPieces() = default;

  /// Takes what the network delivered. After any other answer than kGoOn nothing more is taken.
  [[nodiscard]] virtual PieceResult Take(std::string_view bytes) = 0;

  /// The body has ended: takes the last piece.
  [[nodiscard]] virtual PieceResult Finish() = 0;

  /// The bytes kept so far.
  [[nodiscard]] const std::string& bytes() const { return bytes_; }
  [[nodiscard]] std::string TakeBytes() { return std::move(bytes_); }

 protected:
  BodyPieces(const std::atomic<std::int32_t>& cancel_flag, std::size_t unit_size);

  /// Appends the first `length` units (bytes) of the piece, which need not be whole ones.
  [[nodiscard]] PieceResult Append(std::string_view piece, std::size_t length);

 private:
  const std::atomic<std::int32_t>& cancel_flag_;
  std::string bytes_;
  std::size_t total_ = 0;  // units seen, the dropped piece included
};

/// A body of bytes: what is returned as text.
class ByteBody : public BodyPieces {
 public:
  explicit ByteBody(const std::atomic<std::int32_t>& cancel_flag);
  [[nodiscard]] PieceResult Take(std::string_view bytes) override;
  [[nodiscard]] PieceResult Finish() override;

 private:
  [[nodiscard]] PieceResult EndPiece();

  std::string piece_;
};

/// A body of 16-bit units, low byte first, read as lines: what is saved as a file. A unit 0x000D is
/// dropped, 0x000A ends a piece, 0x0000 cuts it. Ordinary 8-bit text passes byte for byte, since no
/// two of its characters make such a unit. An odd last byte counts as a unit and is kept.
class UnitBody : public BodyPieces {
 public:
  explicit UnitBody(const std::atomic<std::int32_t>& cancel_flag);
  [[nodiscard]] PieceResult Take(std::string_view bytes) override;
  [[nodiscard]] PieceResult Finish() override;

 private:
  [[nodiscard]] PieceResult TakeUnit(char low, char high);
  [[nodiscard]] PieceResult EndPiece();

  std::string piece_;
  std::optional<char> low_byte_;  // of a unit whose other byte has not come yet
};

}  // namespace brovanta
