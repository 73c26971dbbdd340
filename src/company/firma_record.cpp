#include "company/firma_record.h"

#include "company/company_fields.h"

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

std::string FormatOf(Program& program, const FormatField& format) {
  return program.settings.Text(kCommon, "strFormat", format.setting, format.fallback);
}

}  // namespace

bool FillFormats(Program& program, ClassQDBASE& firma, const char* screen_date) {
  bool filled = true;
  for (const FormatField& format : kFormatFields) {
    filled = firma.FIELD(format.field ? format.field : screen_date, FormatOf(program, format)) && filled;
  }
  return filled;
}

bool EnsureCompanyRecord(Program& program, ClassQDBASE& firma) {
  if (firma.RECORD_COUNT() >= 1) return true;
  // In one write: a record without its formats would be taken for one of which they were emptied.
  std::vector<Value> values;
  for (int n = 1; n <= firma.FIELD_COUNT(); ++n) {
    Value value;
    for (const FormatField& format : kFormatFields) {
      if (firma.FIELD_NAME(n) == (format.field ? format.field : "FORMAT_DATA_EKR")) value = FormatOf(program, format);
    }
    values.push_back(std::move(value));
  }
  return firma.RECORD_ADD(values);
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
