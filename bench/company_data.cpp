#include "company_data.h"

#include <cstdio>
#include <filesystem>

#include "company/ost_engine.h"
#include "generate_company.h"
#include "measure.h"
#include "sqlite.h"

namespace ostrinka::bench {
namespace {

namespace fs = std::filesystem;

// To be changed whenever the generator makes other rows or the tables get other fields.
constexpr std::string_view kDataVersion = "1";
constexpr int32_t kSmallCompany = 250;

std::string Prepared(const std::string& folder, const std::string& catalogues) {
  fs::create_directories(folder + "user-settings");
  for (const auto& entry : fs::directory_iterator(catalogues)) {
    if (entry.path().extension() == ".lang")
      fs::copy_file(entry.path(), folder + entry.path().filename().string(), fs::copy_options::overwrite_existing);
  }
  return folder;
}

std::string Emptied(const std::string& folder) {
  fs::remove_all(folder);
  fs::create_directories(folder);
  return folder;
}

}  // namespace

Company::Company(const std::string& folder, const std::string& catalogues, int32_t customers)
    : tables_(folder + "company/"), sqlite_(folder + "company.sqlite"), surroundings_(Prepared(folder, catalogues)) {
  program_ = std::make_unique<Program>(platform());
  program_->catalogue.LoadProgramCatalogue("program.lang");
  std::string version;
  platform().files.ReadAll(folder + "data-version", version);
  if (version != kDataVersion) {
    Make(folder, customers);
    return;
  }
  bool open = false;
  UseCompany(*program_, tables_);
  OSTEngine(*program_).open_(true, open);
  Require(open, "the company cannot be opened in " + tables_);
}

Company::~Company() {
  OSTEngine(*program_).close_(false);
}

void Company::Make(const std::string& folder, int32_t customers) {
  fs::remove_all(tables_);
  std::printf("Making a company of %d customers ...\n", customers);
  std::fflush(stdout);
  Require(customers > 0 ? GenerateCompany(*program_, tables_, customers) : CreateEmptyCompany(*program_, tables_),
          "the company cannot be made");
  CopyCompany(*program_, sqlite_);
  platform().files.WriteAll(folder + "data-version", kDataVersion);
}

Data::Data(const std::string& folder, const std::string& catalogues, int32_t count)
    : scratch(Emptied(folder + "scratch/")),
      customers(count),
      full(folder + "full/", catalogues, count),
      small(folder + "small/", catalogues, kSmallCompany),
      empty(folder + "empty/", catalogues, 0) {}

}  // namespace ostrinka::bench
