// The company's own details: reading them from the settings, storing them, the logo.
//
// The settings of section "user" are the master; an open company keeps the same values in firma, so that its backup carries them.
#pragma once

#include <string>

#include "app/program.h"

namespace ostrinka {

inline constexpr int kRequiredCompanyFields = 7;  // place of issue, name, street, house, flat, postal code, town

// Reads all settings into Program::company. The result counts the required fields that hold something.
int CompanyLoad(Program& program);

// Stores the record, each text trimmed, in the settings and, when a company is open, in firma; then reads it anew. False when something
// could not be written; the rest is written all the same.
bool CompanySave(Program& program, CompanyRecord record);

// The logo that documents print lies in the database folder under a fixed name, whatever its format.
std::string LogoPath(Program& program);
bool LogoExists(Program& program);
// Copies `file` byte for byte over the logo; a failure leaves the old one.
bool CopyLogo(Program& program, const std::string& file);
// False when it is still there afterwards.
bool DeleteLogo(Program& program);

}  // namespace ostrinka
