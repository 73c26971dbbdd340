// ostrinka-generate-company FOLDER N: makes FOLDER/company/ with N customers, 5 N documents and 20 N lines.
#include <cstdio>
#include <filesystem>
#include <string>

#include "company/ost_engine.h"
#include "generate_company.h"
#include "generate_surroundings.h"
#include "platform/posix/command_line.h"

int main(int count, char** words) {
  int32_t customers = 0;
  std::string place;
  ostrinka::CommandLine line("ostrinka-generate-company", "Makes a company for measurements, the same for the same N.");
  line.Word("FOLDER", place, "Where company/ is made")->required()->type_name("");
  line.Whole("N", customers, 1, 1000000, "Customers, 1 to 1000000; five documents and twenty lines for each")->required()->type_name("");
  if (const auto status = line.Read(count, words)) return *status;
  const std::string folder = std::filesystem::absolute(place).string() + "/";
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
