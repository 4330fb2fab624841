#include <string_view>
#include <vector>

#include "agent/run_agent_tool.h"

int main(int argc, char** argv) {
  const std::vector<std::string_view> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return brovanta::agent_tool::RunAgentTool(arguments, BROVANTA_VERSION);
}
