// The two downloads of the program. They differ on purpose in almost every respect.
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>

#include "net/http/http_codes.h"
#include "net/http/http_session.h"

namespace brovanta {

/// Saves the answer of the update server to a file (documented path), replacing what is there.
/// Redirects are errors; the body of any other answer than 401 is saved, an error page as well. The
/// body is taken as 16-bit units (body_pieces.h), at most 319,999 of them: a longer one is cut at
/// the last whole piece that fits, and that is no error. The file is made after the whole body has
/// come: any failure leaves the old one. 0, kHttpNoMemory, an internet error number or an HTTP_ERR_
/// code (http_codes.h).
///
/// `context` is an opaque value of the caller's. Another thread may set the cancel flag to
/// non-zero at any time; it is looked at before connecting, after sending, after the headers, from
/// piece to piece, and at least every 100 ms while the network makes one wait. Blocks: for worker
/// threads.
[[nodiscard]] std::int32_t DownloadUrlToFile(const std::string& url, const std::string& output_path,
                                             std::uint32_t context,
                                             const std::atomic<std::int32_t>& cancel_flag,
                                             const HttpTimeouts& timeouts = {});

/// Returns a shop's page as 8-bit text without zeros, or nothing on any failure. Presents itself as
/// a desktop browser and follows redirects to absolute HTTP addresses without a limit: only the
/// cancel flag ends an endless chain. The last answer must be 200. At most 319,999 bytes are kept,
/// as above; a zero byte ends the piece it stands in, not the page. Arguments as above.
[[nodiscard]] std::optional<std::string> DownloadUrlToBuffer(
    const std::string& url, std::uint32_t context, const std::atomic<std::int32_t>& cancel_flag,
    const HttpTimeouts& timeouts = {});

/// DownloadUrlToBuffer with the reason of a failure as its result: 0 and the text, or a code.
[[nodiscard]] std::int32_t DownloadUrlToText(const std::string& url, std::uint32_t context,
                                             const std::atomic<std::int32_t>& cancel_flag,
                                             const HttpTimeouts& timeouts, std::string& text);

}  // namespace brovanta
