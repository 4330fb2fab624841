// What another program reads from a PDF document.
#pragma once

#include <string>

namespace brovanta::test {

/// The output of pdftotext, pdffonts or pdfinfo on the document, with options such as "-layout".
/// Empty when the program fails.
[[nodiscard]] std::string ReadPdf(const std::string& program, const std::string& pdf,
                                  const std::string& option = "");

}  // namespace brovanta::test
