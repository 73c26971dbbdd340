// Commands of the main menu: settings, the company's files, the program itself.
#include "masterdata/company_form.h"
#include "shell/about_form.h"
#include "shell/commands.h"
#include "shell/options_form.h"

namespace ostrinka {
namespace {

void CompanyData(CommandContext& context, const Command&, int) {
  frm_Admin_usr_ form(context.program);
  form.reload_();
  context.Show(form);
}

void DatabaseConnection(CommandContext& context, const Command&, int) {
  context.window.SET_QDB_();
}

void InterfaceOptions(CommandContext& context, const Command&, int) {
  OPT_ form(context.program, context.ribbon);
  form.reload_();
  context.Show(form);
}

void About(CommandContext& context, const Command&, int) {
  frm_About form(context.program);
  context.Show(form);
}

void Exit(CommandContext& context, const Command&, int) {
  context.end_program();
}

constexpr Command kRows[] = {
    {"SET.USR", Needs::kNothing, CompanyData}, {"SET.QDB", Needs::kNothing, DatabaseConnection},
    {"SET.PRG", Needs::kNothing, NotBuilt},    {"SET.GUI", Needs::kNothing, InterfaceOptions},
    {"BACKUP", Needs::kDatabase, NotBuilt},    {"RESTORE", Needs::kNothing, NotBuilt},
    {"EXPORT", Needs::kDatabase, NotBuilt},    {"STREM", Needs::kDatabase, NotBuilt},
    {"HELP", Needs::kNothing, NotBuilt},       {"ABOUT", Needs::kNothing, About},
    {"EXIT", Needs::kNothing, Exit},
};

}  // namespace

std::span<const Command> ProgramCommands() {
  return kRows;
}

}  // namespace ostrinka
