// db.info: the version of the program that last opened a company's folder. See docs/formats/db-info.md.
#pragma once

#include <string>

#include "app/program.h"

namespace ostrinka {

// Zeros when the file is missing, unreadable or too short.
ProgramVersion ReadFolderVersion(FileSystem& files, const std::string& folder);
// False when it could not be written.
bool WriteFolderVersion(FileSystem& files, const std::string& folder, ProgramVersion version);

// What the file holds while the folder is brought up to date, and when that has to be done again: no program is of that version.
constexpr ProgramVersion kUnfinished{0, 0, 0};
bool HasFolderVersion(FileSystem& files, const std::string& folder);

// Whether a program is bringing the folder up to date at this moment.
bool IsBeingUpgraded(FileSystem& files, const std::string& folder);

// Keeps the folder for the one program that brings it up to date, for as long as it lives. The file is made when it is missing.
class UpgradeLock {
 public:
  UpgradeLock(FileSystem& files, const std::string& folder);
  bool refused() const { return refused_; }  // another program is at it

 private:
  std::unique_ptr<File> file_;
  bool refused_ = false;
};

}  // namespace ostrinka
