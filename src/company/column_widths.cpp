#include "company/column_widths.h"

#include "company/list_columns.h"

namespace ostrinka {

void SaveColumnWidths(Program& program) {
  for (int number = 1; number <= kTableSlots; ++number) {
    if (!TableIsOpen(program, number)) continue;
    ClassQDBASE& table = Table(program, number);
    const std::string section = WidthSection(number);
    for (int field = 1; field <= table.FIELD_COUNT(); ++field) {
      const int width = table.ColumnWidth(field);
      const std::string name = table.FIELD_NAME(field);
      if (width < 1 || program.settings.Integer(kOstrinka, section, name, 0) == width) continue;
      program.settings.SaveSettingValue(kOstrinka, section, name, int32_t{width});
    }
  }
}

}  // namespace ostrinka
