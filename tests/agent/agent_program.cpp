#include "tests/agent/agent_program.h"

#include "tests/support/child_process.h"

namespace brovanta::test {

ProgramEnd RunProgram(const TempFolder& folder, const std::vector<std::string>& arguments) {
  std::vector<std::string> words = {BROVANTA_AGENT_PROGRAM};
  words.insert(words.end(), arguments.begin(), arguments.end());
  ProgramEnd end;
  {
    ChildProcess program(words, folder.File("errors"));
    end.output = program.ReadAll();
    end.status = program.Wait();
  }
  end.errors = folder.ReadText("errors").value_or("");
  return end;
}

}  // namespace brovanta::test
