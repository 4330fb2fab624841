// Any bytes as agent configuration: complete agents or none, and no category search runs wild.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/scratch_folder.h"
#include "search/agent_configuration.h"
#include "util/error_codes.h"

namespace brovanta {
namespace {

using fuzz::Require;

void Run(fuzz::ScratchFolder& folder, const std::string& bytes) {
  folder.Write("webspider.xml", bytes);
  AgentConfiguration configuration;
  const int code = LoadAgentConfiguration(folder.path() + "\\webspider.xml", configuration);
  Require(code == 0 || code == ERR_FORMAT, "documented codes");
  Require(configuration.categories.size() <= bytes.size() / 20, "no more categories than blocks");
  for (const WebAgentType& category : configuration.categories) {
    Require(category.TypeId >= 1, "category numbers are positive");
    Require(category.TypeName.find('\0') == std::string::npos, "texts end at a zero");
  }
  for (const auto& agent : configuration.agents) {
    Require(agent->IsComplete(), "agents are complete");
    for (std::int32_t category = 0; category < 12; ++category) (void)agent->Serves(category);
  }
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static brovanta::fuzz::ScratchFolder folder;
  brovanta::Run(folder, std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
