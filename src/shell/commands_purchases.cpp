// Commands on purchase documents.
#include "shell/commands.h"
#include "shell/record_commands.h"

namespace ostrinka {
namespace {

constexpr Command kRows[] = {
    {"ZAKUP.DODAJ", Needs::kDatabase, NotBuilt, kDokZakupu},  {"ZAKUP.DODAJ.KLONUJ", Needs::kDatabase, NotBuilt, kDokZakupu},
    {"ZAKUP.EDYTUJ", Needs::kDatabase, NotBuilt, kDokZakupu}, {"ZAKUP.USUŃ", Needs::kDatabase, DeleteRecord, kDokZakupu},
    {"ZAKUP.REC", Needs::kDatabase, MoveRecord, kDokZakupu},
};

}  // namespace

std::span<const Command> PurchaseCommands() {
  return kRows;
}

}  // namespace ostrinka
