// The CRC-32 checksum (polynomial 0xEDB88320, as in Ethernet and gzip).
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace brovanta {

/// The checksum of the bytes, or of all bytes so far when that of those before is passed on.
[[nodiscard]] std::uint32_t Crc32(std::span<const std::byte> bytes, std::uint32_t before = 0);

}  // namespace brovanta
