// The arguments of a command line, option by option.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brovanta {

/// Takes options and words apart, in any order; behind "--" everything is a word, and so is "-".
/// Base of a program's own reader. Borrows the arguments and the error.
class ArgumentReader {
 public:
  /// `error` takes the sentence that Fail is given.
  ArgumentReader(std::span<const std::string_view> arguments, std::string& error)
      : arguments_(arguments), error_(error) {}

 protected:
  ~ArgumentReader() = default;

  /// Gives every option to `take_option`, in their order, and keeps the words. Ends as soon as
  /// `take_option` returns false, with false.
  template <typename TakeOption>
  [[nodiscard]] bool ReadArguments(TakeOption take_option) {
    bool options_end = false;
    while (HasMore()) {
      const std::string_view argument = Take();
      if (!options_end && argument == "--") {
        options_end = true;
      } else if (options_end || argument.size() < 2 || !argument.starts_with('-')) {
        words_.push_back(argument);
      } else if (!take_option(argument)) {
        return false;
      }
    }
    return true;
  }

  [[nodiscard]] bool HasMore() const { return !arguments_.empty(); }

  /// The next argument, the value of an option say. There must be one.
  std::string_view Take() {
    const std::string_view argument = arguments_.front();
    arguments_ = arguments_.subspan(1);
    return argument;
  }

  /// Notes what is wrong; false, so that it can be returned.
  bool Fail(std::string message) {
    error_ = std::move(message);
    return false;
  }

  [[nodiscard]] const std::vector<std::string_view>& words() const { return words_; }

 private:
  std::span<const std::string_view> arguments_;
  std::string& error_;
  std::vector<std::string_view> words_;
};

}  // namespace brovanta
