#include "masterdata/company_data.h"

#include <algorithm>

#include "base/text.h"
#include "books/books.h"
#include "company/company_fields.h"

namespace ostrinka {
namespace {

constexpr const char* kSection = "user";
constexpr const char* kChosenText = "konto_opis_id_";

std::string FirstLine(const std::string& text) {
  return Trim(text.substr(0, text.find_first_of("\r\n")));
}

bool WriteCompanyTable(Program& program, CompanyRecord& record) {
  if (!TableIsOpen(program, kFirma)) return true;
  ClassQDBASE& table = Table(program, kFirma);
  if (table.RECORD_COUNT() < 1 && Add(program, kFirma, {}) < 1) return false;
  ColumnValues values;
  for (const CompanyField& field : CompanyFields()) {
    // The settings hold one line of a text: the record keeps the others as long as that one stays.
    const Column<std::string> column{kFirma, field.table_field};
    if (FirstLine(ReadColumn(program, column, 1)) == field.member(record)) continue;
    // A text may come from settings that know no length: what does not fit would run into the next field.
    const int32_t length = table.FIELD_LEN(field.table_field);
    if (length > 0) values.Set(column, LeftCharacters(field.member(record), static_cast<size_t>(length)));
  }
  return Store(program, kFirma, 1, values);
}

}  // namespace

int CompanyLoad(Program& program) {
  for (const CompanyField& field : CompanyFields()) {
    field.member(program.company) = Trim(program.settings.Text(kCommon, kSection, field.setting));
  }
  program.company.chosen_account_text = program.settings.Integer(kCommon, kSection, kChosenText, 0);
  const CompanyRecord& company = program.company;
  const std::string* const required[kRequiredCompanyFields] = {&company.M_WYST_DOK, &company.S_NAZWA, &company.S_ULICA, &company.S_NRDOM,
                                                               &company.S_NRLOK,    &company.S_KPOCZ, &company.S_MIAST};
  return static_cast<int>(std::count_if(std::begin(required), std::end(required), [](const std::string* text) { return !text->empty(); }));
}

bool CompanySave(Program& program, CompanyRecord record) {
  bool written = true;
  for (const CompanyField& field : CompanyFields()) {
    std::string& text = field.member(record);
    text = Trim(text);
    written &= program.settings.SaveSettingValue(kCommon, kSection, field.setting, Value(text));
  }
  written &= program.settings.SaveSettingValue(kCommon, kSection, kChosenText, Value(record.chosen_account_text));
  written &= WriteCompanyTable(program, record);
  CompanyLoad(program);
  return written;
}

std::string LogoPath(Program& program) {
  return program.DatabaseFolder() + "_logo.img";
}

bool LogoExists(Program& program) {
  return program.platform.files.FileExists(LogoPath(program));
}

bool CopyLogo(Program& program, const std::string& file) {
  std::string content;
  return program.platform.files.ReadAll(file, content) && program.platform.files.WriteAll(LogoPath(program), content);
}

bool DeleteLogo(Program& program) {
  program.platform.files.Remove(LogoPath(program));
  return !LogoExists(program);
}

}  // namespace ostrinka
