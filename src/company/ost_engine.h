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
  // Opens the company that the settings name. A silent call shows no progress.
  void open_(bool silent, bool& ok);
  // close_ without compression, then open_.
  void reopen_(bool& ok);
  // With `compress`, free room in the attachment files is given back.
  void close_(bool compress);
  // Creates what is missing in `path`, with its seed rows; a file that exists is left as it stands.
  void create_(const std::string& path, const std::string& user, const std::string& password, bool silent, bool& ok);
  // The upgrade of a folder to the present fields.
  void tdb_DataBaseDebug(const std::string& path, const std::string& user, const std::string& password, bool& ok);

 private:
  void step(double percent, bool silent);

  Program& program_;
  int steps_ = 0;
};

}  // namespace ostrinka
