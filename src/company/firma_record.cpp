#include "company/firma_record.h"

namespace ostrinka {
namespace {

struct FormatField {
  const char* field;
  const char* setting;
  const char* fallback;
};
constexpr FormatField kFormatFields[] = {
    {nullptr, "Date", "dd mmmm yyyy"},  // the field of the screen's dates
    {"FORMAT_DATA_WYD", "Date_P_", "dd-mm-yy"},
    {"FORMAT_PROCENTY", "Percentage", "0\\%"},
};

}  // namespace

void FillFormats(Program& program, ClassQDBASE& firma, const char* screen_date) {
  for (const FormatField& format : kFormatFields) {
    firma.FIELD(format.field ? format.field : screen_date, program.settings.Text(kCommon, "strFormat", format.setting, format.fallback));
  }
}

bool EnsureCompanyRecord(Program& program, ClassQDBASE& firma) {
  if (firma.RECORD_COUNT() >= 1) return true;
  if (!firma.RECORD_ADD() || !firma.RECORD_LOAD(1)) return false;
  FillFormats(program, firma);
  return firma.RECORD_SAVE(1);
}

void TakeCompanyDetails(Program& program, ClassQDBASE& firma) {
  if (!firma.RECORD_LOAD(1) || firma.Text("S_NAZWA").empty()) return;
  for (const CompanyField& field : CompanyFields()) {
    const std::string text = firma.Text(field.table_field);
    field.member(program.company) = text;
    if (program.settings.Text(kCommon, "user", field.setting) == text && program.settings.Exists(kCommon, "user", field.setting)) continue;
    program.settings.SaveSettingValue(kCommon, "user", field.setting, text);
  }
}

}  // namespace ostrinka
