// OSTEngine: creates, tests, opens, upgrades and closes the twenty-eight tables of one company.
//
// An object lives for one call; the open tables stand in Program::tables.
#pragma once

#include <string>

#include "app/program.h"

namespace ostrinka {

class OSTEngine {
 public:
  explicit OSTEngine(Program& program) : program_(program) {}

  // Tries every table in `path` with this login; nothing stays open.
  void test_(const std::string& path, const std::string& user, const std::string& password, bool& ok);
  // Opens the company that the settings name, upgrading it first when another version opened it last. The login used stands in
  // Program::login afterwards. On failure no table is open. A silent call shows no progress.
  void open_(bool silent, bool& ok);
  // close_ without compression, then open_.
  void reopen_(bool& ok);
  // With `compress`, free room in the attachment files is given back.
  void close_(bool compress);
  // Creates what is missing in `path`, with its seed rows; a file that exists is left as it stands. Fails at a table of which a broken-off
  // change left something: its records may be there.
  void create_(const std::string& path, const std::string& user, const std::string& password, bool silent, bool& ok);
  // The upgrade of a folder to the present fields. False when a table could not be opened or changed; the rest is done all the same.
  void tdb_DataBaseDebug(const std::string& path, const std::string& user, const std::string& password, bool& ok);

 private:
  // `path` with its markers resolved and a closing slash.
  std::string Folder(const std::string& path) const;
  // The version test of a folder, with what it leads to. False when another program is bringing the folder up to date.
  bool BringUpToDate(const std::string& folder, const LoginResult& login);
  // Shows the percent in the status line and lets the window catch up; nothing when `silent`.
  void step(double percent, bool silent);

  Program& program_;
  int steps_ = 0;
};

}  // namespace ostrinka
