// The program as it starts on a data folder, up to its first picture: brovanta-startup-probe
// --data-folder FOLDER.
#include <string>
#include <vector>

#include "app/command_line.h"
#include "app/start_up.h"
#include "bench/ui/first_picture.h"

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  return brovanta::RunOnScreen(brovanta::ParseCommandLine(arguments), argc, argv);
}
