// A company of any size for measurements and trials: made through the engine, with the same content for the same size.
#pragma once

#include <cstdint>
#include <string>

#include "app/program.h"

namespace ostrinka {

inline constexpr char kGeneratedUser[] = "kreda";
inline constexpr char kGeneratedPassword[] = "kreda";

// Stores the folder and the login of a generated company in the settings, as the connection dialog would.
void UseCompany(Program& program, const std::string& folder);

// Creates an empty company in `folder` (with a closing slash) and opens it. False, with nothing open, when that fails.
bool CreateEmptyCompany(Program& program, const std::string& folder);

// The same, then `customers` customers, five documents for each over the years 2004 to 2008 and twenty lines for each, added record by
// record.
bool GenerateCompany(Program& program, const std::string& folder, int32_t customers);

}  // namespace ostrinka
