// ostrinka-script [--app DIR] [--now YYYY-MM-DD] [--seed N] FILE|-
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "script/script_runner.h"

namespace {

int Usage() {
  std::cerr << "usage: ostrinka-script [--app DIR] [--now YYYY-MM-DD] [--seed N] FILE|-\n";
  return 2;
}

}  // namespace

int main(int count, char** words) {
  ostrinka::ScriptOptions options;
  options.application_folder = ostrinka::ExecutableFolder();
  std::string file;
  for (int i = 1; i < count; ++i) {
    const std::string word = words[i];
    const bool option = word == "--app" || word == "--now" || word == "--seed";
    if (option && i + 1 == count) return Usage();
    if (word == "--app") {
      options.application_folder = std::filesystem::absolute(words[++i]).string();
      if (options.application_folder.back() != '/') options.application_folder += '/';
    } else if (word == "--now") {
      options.day = ostrinka::Date::Parse(words[++i]);
      if (!options.day) return Usage();
    } else if (word == "--seed") {
      const std::string number = words[++i];
      uint64_t seed = 0;
      const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), seed);
      if (error != std::errc() || end != number.data() + number.size()) return Usage();
      options.seed = seed;
    } else if (file.empty() && (word == "-" || word[0] != '-')) {
      file = word;
    } else {
      return Usage();
    }
  }
  if (file.empty()) return Usage();
  std::string script;
  if (file == "-") {
    script.assign(std::istreambuf_iterator<char>(std::cin), {});
  } else {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
      std::cerr << "ostrinka-script: cannot read " << file << "\n";
      return 2;
    }
    script.assign(std::istreambuf_iterator<char>(stream), {});
  }
  return ostrinka::ScriptRunner(options, std::cout, std::cerr).Run(script);
}
