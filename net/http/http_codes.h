// Codes that a download can end with besides 0.
#pragma once

#include <cstdint>

namespace brovanta {

/// The page buffer's download only: a redirect leads to another service than HTTP, or the last
/// answer is not 200.
inline constexpr std::int32_t HTTP_ERR_STATUS = 0x10000001;
/// The address cannot be split, or (first address only) is not an HTTP one.
inline constexpr std::int32_t HTTP_ERR_BAD_URL = 0x10000011;
/// The output file cannot be made.
inline constexpr std::int32_t HTTP_ERR_FILE = 0x10000100;
/// A redirect: to a file always; to a buffer one without "Location: ".
inline constexpr std::int32_t HTTP_ERR_REDIRECT = 0x10000101;
/// The first answer is 401.
inline constexpr std::int32_t HTTP_ERR_UNAUTHORIZED = 0x10000110;
/// The caller's cancel flag was found set.
inline constexpr std::int32_t HTTP_ERR_CANCELLED = 0x10000111;

/// Memory ran out.
inline constexpr std::int32_t kHttpNoMemory = -1;

/// The classic internet error numbers, all below 0x10000000: what the network itself did wrong.
inline constexpr std::int32_t kInternetTimedOut = 12002;
inline constexpr std::int32_t kInternetInternalError = 12004;
inline constexpr std::int32_t kInternetNameNotResolved = 12007;
inline constexpr std::int32_t kInternetCannotConnect = 12029;
inline constexpr std::int32_t kInternetConnectionAborted = 12030;
inline constexpr std::int32_t kInternetConnectionReset = 12031;
inline constexpr std::int32_t kInternetInvalidAnswer = 12152;

}  // namespace brovanta
