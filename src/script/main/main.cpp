// ostrinka-script [--app DIR] [--now YYYY-MM-DD] [--seed N] FILE|-
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>

#include "platform/posix/command_line.h"
#include "script/script_runner.h"

int main(int count, char** words) {
  ostrinka::ScriptOptions options;
  std::string folder, file;
  uint64_t seed = 0;
  ostrinka::CommandLine line("ostrinka-script", "Runs the whole program without a window, driven by the steps of a script.");
  line.Word("--app", folder, "The program's folder; where the executable stands when not given")->type_name("DIR");
  line.Checked("--now", "Fixes the clock at 12:00 of that day",
               [&](const std::string& text) { return (options.day = ostrinka::Date::Parse(text)).has_value(); })
      ->type_name("YYYY-MM-DD");
  const CLI::Option* seeded =
      line.Whole("--seed", seed, 0, std::numeric_limits<uint64_t>::max(), "Fixes the random numbers")->type_name("N");
  line.Word("FILE", file, "The script; - reads it from standard input")->required()->type_name("");
  if (const auto status = line.Read(count, words)) return *status;
  if (seeded->count() > 0) options.seed = seed;
  options.application_folder = ostrinka::ExecutableFolder();
  if (!folder.empty()) options.application_folder = std::filesystem::absolute(folder).string();
  if (options.application_folder.back() != '/') options.application_folder += '/';
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
