// db.info: the version of the program that last opened a company's folder. See docs/formats/db-info.md.
#pragma once

#include <string>

#include "app/program.h"

namespace ostrinka {

// Zeros when the file is missing, unreadable or too short.
ProgramVersion ReadFolderVersion(FileSystem& files, const std::string& folder);
// False when it could not be written.
bool WriteFolderVersion(FileSystem& files, const std::string& folder, ProgramVersion version);

}  // namespace ostrinka
