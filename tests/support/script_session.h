// A program run by a script in a folder of its own, with the built catalogues and the postal table.
#pragma once

#include <filesystem>
#include <sstream>
#include <string>

#include "script/script_runner.h"
#include "support/test_platform.h"

namespace ostrinka {

class ScriptSession {
 public:
  ScriptSession() {
    namespace fs = std::filesystem;
    fs::create_directories(folder / "app");
    CopyCatalogues(folder / "app/");
    if (fs::exists(OSTRINKA_APP "/psc.bin")) fs::copy_file(OSTRINKA_APP "/psc.bin", folder / "app/psc.bin");
  }

  // The exit status; what was printed and complained of stands in `out` and `error`. "@" in the script stands for the session's folder.
  int Run(const std::string& script) {
    std::string text;
    for (const char c : script) text += c == '@' ? folder.path() : std::string(1, c);
    text = ReplaceFind(text);
    std::ostringstream printed, complained;
    int status;
    {
      ScriptRunner runner({folder / "app/", Date::Parse("2008-03-05"), 7}, printed, complained);
      status = runner.Run(text);
    }
    out = printed.str();
    error = complained.str();
    return status;
  }

  TemporaryFolder folder;
  std::string out, error;

 private:
  // The find field's own name keeps its sign.
  std::string ReplaceFind(std::string text) const {
    const std::string wrong = folder.path() + "FIND";
    for (size_t at; (at = text.find(wrong)) != std::string::npos;) text.replace(at, wrong.size(), "@FIND");
    return text;
  }
};

inline constexpr char kNewCompany[] = "create-database @firma kreda kreda\nstart\n";
inline constexpr char kCustomer[] = "command KONTRAHENT.DODAJ\nset txtNazwa \"Jan Kowalski\"\npress customer.btn.ok\n";
inline constexpr char kArticle[] =
    "command TOWARUSŁUGA.DODAJ\nset txtNazwa Krzesło\nset txtJednostkaMiary szt.\nset txtNetto(0) 100\npress product.btn.ok\n";
inline constexpr char kInvoice[] =
    "command SPRZEDAŻ.DODAJ\nset txtTypDok \"Faktura VAT\"\nset txtKontrahent \"Jan Kowalski\"\npress sdoc.btn.add\nset txtComboTU "
    "Krzesło\n"
    "set txtIlość 2\npress adps.btn.ok\npress sdoc.btn.ok\n";

}  // namespace ostrinka
