// The words behind a program's name, alike in every program: what is wrong is told with the usage on standard error and ends it with
// status 2; --help prints the usage and ends it with 0. Of an option given twice the last one counts.
#pragma once

#include <CLI/CLI.hpp>
#include <charconv>
#include <functional>
#include <optional>
#include <string>
#include <type_traits>

namespace ostrinka {

class CommandLine {
 public:
  // `program` is the name that the usage tells, `purpose` its first sentence.
  CommandLine(const std::string& program, const std::string& purpose);

  // An option ("--app") or a place ("FILE"), read into `target` where it is given.
  CLI::Option* Word(const std::string& name, std::string& target, const std::string& help);
  // A whole decimal number from `least` to `most`; anything else is wrong.
  template <typename Number>
  CLI::Option* Whole(const std::string& name, Number& target, std::type_identity_t<Number> least, std::type_identity_t<Number> most,
                     const std::string& help) {
    return Checked(name, help, [&target, least, most](const std::string& text) {
      Number number{};
      const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
      if (error != std::errc() || end != text.data() + text.size() || number < least || number > most) return false;
      target = number;
      return true;
    });
  }
  // What `take` makes of a text; it returns false for one that is wrong.
  CLI::Option* Checked(const std::string& name, const std::string& help, std::function<bool(const std::string&)> take);
  // For what else the library offers: flags, lists, options that exclude each other.
  CLI::App& options() { return options_; }

  // Reads the words. The status to end with, or nothing when the program goes on.
  std::optional<int> Read(int count, const char* const* words);
  // Tells what is wrong with words that were read, with the usage; the status to end with.
  int Wrong(const std::string& what) const;

 private:
  CLI::App options_;
};

}  // namespace ostrinka
