// ostrinka-generate-company FOLDER N: makes FOLDER/company/ with N customers, 5 N documents and 20 N lines.
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <string_view>

#include "company/ost_engine.h"
#include "generate_company.h"
#include "generate_surroundings.h"

int main(int count, char** words) {
  int32_t customers = 0;
  const std::string_view number = count == 3 ? words[2] : "";
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), customers);
  if (number.empty() || error != std::errc() || end != number.data() + number.size() || customers < 1 || customers > 1000000) {
    std::fprintf(stderr, "usage: ostrinka-generate-company FOLDER N\n");
    return 2;
  }
  const std::string folder = std::filesystem::absolute(words[1]).string() + "/";
  ostrinka::Surroundings surroundings(folder);
  surroundings.script.files.MakeFolders(folder + "user-settings");
  ostrinka::Program program(surroundings.script.platform);
  if (!ostrinka::GenerateCompany(program, folder + "company/", customers)) {
    std::fprintf(stderr, "The company could not be made in %s\n", folder.c_str());
    return 1;
  }
  ostrinka::OSTEngine(program).close_(false);
  return 0;
}
