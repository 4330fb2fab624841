#include "tests/data/pdf/pdf_reader.h"

#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {

std::string ReadPdf(const std::string& program, const std::string& pdf, const std::string& option) {
  const TempFolder folder;
  folder.WriteText("list.pdf", pdf);
  std::vector<std::string> words{"/usr/bin/" + program};
  if (!option.empty()) words.push_back(option);
  words.push_back(folder.File("list.pdf"));
  if (program == "pdftotext") words.emplace_back("-");
  ChildProcess reader(words, folder.File("errors"));
  const std::string output = reader.ReadAll();
  return reader.Wait() == 0 ? output : std::string();
}

}  // namespace brovanta::test
