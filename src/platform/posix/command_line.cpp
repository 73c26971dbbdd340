#include "platform/posix/command_line.h"

#include <cstdio>
#include <utility>

namespace ostrinka {

CommandLine::CommandLine(const std::string& program, const std::string& purpose) : options_(purpose, program) {
  options_.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

CLI::Option* CommandLine::Word(const std::string& name, std::string& target, const std::string& help) {
  return options_.add_option(name, target, help);
}

CLI::Option* CommandLine::Checked(const std::string& name, const std::string& help, std::function<bool(const std::string&)> take) {
  return options_.add_option(name, CLI::callback_t([take = std::move(take)](const CLI::results_t& texts) { return take(texts.back()); }),
                             help);
}

std::optional<int> CommandLine::Read(int count, const char* const* words) {
  try {
    options_.parse(count, words);
    return std::nullopt;
  } catch (const CLI::CallForHelp&) {
    std::fputs(options_.help().c_str(), stdout);
    return 0;
  } catch (const CLI::Error& error) {
    return Wrong(error.what());
  }
}

int CommandLine::Wrong(const std::string& what) const {
  std::fprintf(stderr, "%s: %s\n%s", options_.get_name().c_str(), what.c_str(), options_.help().c_str());
  return 2;
}

}  // namespace ostrinka
