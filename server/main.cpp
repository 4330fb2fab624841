#include <string_view>
#include <vector>

#include "server/run_server.h"

int main(int argc, char** argv) {
  const std::vector<std::string_view> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return brovanta::server::RunServer(arguments, BROVANTA_VERSION);
}
