#include <string_view>
#include <vector>

#include "data/run_data_tool.h"

int main(int argc, char** argv) {
  const std::vector<std::string_view> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return brovanta::data_tool::RunDataTool(arguments, BROVANTA_VERSION);
}
