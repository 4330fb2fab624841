#include "tests/support/comma_locale.h"

#include <clocale>
#include <cstdlib>
#include <stdexcept>

namespace brovanta::test {

bool CommaLocale::IsAvailable() {
  return std::system("command -v localedef >/dev/null 2>&1") == 0;  // NOLINT(*-command-processor)
}

CommaLocale::CommaLocale() : previous_locale_(std::setlocale(LC_ALL, nullptr)) {
  const std::string command = "localedef -i de_DE -f UTF-8 '" + folder_.File("de_DE.UTF-8") + "'";
  if (std::system(command.c_str()) != 0) {  // NOLINT(*-command-processor): the path is our own
    throw std::runtime_error("cannot compile the locale");
  }
  if (const char* old = std::getenv("LOCPATH")) previous_path_ = old;
  setenv("LOCPATH", folder_.path().c_str(), 1);
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) {
    throw std::runtime_error("cannot set the locale");
  }
}

CommaLocale::~CommaLocale() {
  if (previous_path_) {
    setenv("LOCPATH", previous_path_->c_str(), 1);
  } else {
    unsetenv("LOCPATH");
  }
  std::setlocale(LC_ALL, previous_locale_.c_str());
}

}  // namespace brovanta::test
