// OSTEngine: creates, tests, opens, upgrades and closes the twenty-eight tables of one company.
//
// An object lives for one call; the open tables stand in Program::tables.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "app/program.h"

namespace ostrinka {

class OSTEngine {
 public:
  explicit OSTEngine(Program& program) : program_(program) {}

  // Tries every table in `path` with this login; nothing stays open. On failure reason() says what is wrong.
  void test_(const std::string& path, const std::string& user, const std::string& password, bool& ok);
  // Opens the company that the settings name, upgrading it first when another version opened it last. The login used stands in
  // Program::login afterwards. On failure no table is open. A silent call shows no progress. Every table is compared with its definition:
  // one that the upgrade cannot complete is refused, one whose upgrade was refused is told and opened for reading only.
  void open_(bool silent, bool& ok);
  // The same with this login, which nobody is asked for.
  void open_as(const LoginResult& login, bool silent, bool& ok);
  // Why the last test_ or open_ failed and what to do, for a person; "" when there is nothing to say.
  const std::string& reason() const { return reason_; }
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
  // The version test of a folder, with what it leads to; with `always` the upgrade runs whatever the version. False when another program is
  // bringing the folder up to date, or when this one is to end.
  bool BringUpToDate(const std::string& folder, const LoginResult& login, bool always);
  // What an earlier run left: tables under other names get their own back, structure changes are finished and told.
  void PutInOrder(const std::string& folder);
  // Opens all; `lacking` names those that are not as they have to be, with what they lack. False when one does not open.
  struct Lack {
    int number;
    std::string fields;
  };
  bool OpenTables(const std::string& folder, const LoginResult& login, bool silent, std::vector<Lack>& lacking);
  // False when one of them may not be opened at all.
  bool OpenForReadingOnly(const std::string& folder, const std::vector<Lack>& lacking);
  void TellRights();
  // Shows the percent in the status line and lets the window catch up; nothing when `silent`.
  void step(double percent, bool silent);

  Program& program_;
  int steps_ = 0;
  std::string reason_;
  std::set<int> refused_;  // tables that the upgrade could not change
};

}  // namespace ostrinka
