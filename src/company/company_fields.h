// The company's own details: where each text of the record stands in the settings and in the table firma.
#pragma once

#include <array>

#include "app/company_record.h"

namespace ostrinka {

// One text of the record, the key of its setting and its field of the table firma.
struct CompanyField {
  const char* setting;
  const char* table_field;
  std::string& (*member)(CompanyRecord&);
};
inline constexpr int kCompanyFieldCount = 27;
const std::array<CompanyField, kCompanyFieldCount>& CompanyFields();  // in the order of saving

}  // namespace ostrinka
