#include "tests/support/program_end.h"

#include "tests/support/child_process.h"

namespace brovanta::test {

ProgramEnd RunToEnd(const std::string& program, const TempFolder& folder,
                    const std::vector<std::string>& arguments) {
  std::vector<std::string> words = {program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  ProgramEnd end;
  {
    ChildProcess child(words, folder.File("errors"));
    end.output = child.ReadAll();
    end.status = child.Wait();
  }
  end.errors = folder.ReadText("errors").value_or("");
  return end;
}

}  // namespace brovanta::test
