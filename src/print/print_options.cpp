#include "print/print_options.h"

#include <string>

#include "base/text.h"
#include "company/company_fields.h"

namespace ostrinka {
namespace {

constexpr std::string_view kSection = "prgSettings", kCompanySection = "user";

CompanyRecord ReadCompany(Program& program) {
  CompanyRecord company;
  for (const CompanyField& field : CompanyFields())
    field.member(company) = Trim(program.settings.Text(kCommon, kCompanySection, field.setting));
  const int32_t chosen = program.settings.Integer(kCommon, kCompanySection, "konto_opis_id_", 0);
  company.chosen_account_text = chosen >= 1 && chosen <= 4 ? chosen : 0;
  return company;
}

}  // namespace

PrintOptions ReadPrintOptions(Program& program) {
  const auto flag = [&](const char* key, bool fallback) { return program.settings.Boolean(kCommon, kSection, key, fallback); };
  const auto number = [&](const char* key, int32_t fallback) { return program.settings.Integer(kCommon, kSection, key, fallback); };
  PrintOptions options;
  options.without_classification = flag("VDopNorPKWiU", options.without_classification);
  options.rate_note = flag("VDopAddUNBP", options.rate_note);
  options.tax_number_first = flag("VDmdNIP", options.tax_number_first);
  options.address_sheet = flag("VDAdrPWD", options.address_sheet);
  options.address_left = number("VDAdrPosX", options.address_left);
  options.address_top = number("VDAdrPosY", options.address_top);
  options.head_style = number("DocStyle", options.head_style);
  options.footer_credit = ReadFooterFlag(program);
  options.company = ReadCompany(program);
  return options;
}

bool ReadFooterFlag(Program& program) {
  std::string content;
  if (!program.platform.files.ReadAll(program.DatabaseFolder() + "data.ini", content, int64_t{1} << 20)) return true;
  bool shown = true;
  for (const std::string& line : Paragraphs(content)) {
    const std::string word = TrimWhite(Upper(line));
    if (word == "FFV-") shown = false;
    if (word == "FFV+") shown = true;
  }
  return shown;
}

}  // namespace ostrinka
