// Period, sort, alphabet and find: what is chosen from a list and in which order.
#include <string>

#include "base/text.h"
#include "books/columns.h"
#include "engine/find_filter.h"
#include "shell/commands.h"
#include "shell/periods.h"
#include "shell/selection_ticks.h"

namespace ostrinka {
namespace {

Date Today(const CommandContext& context) {
  return context.program.platform.clock.Now().WithoutTime();
}

void PeriodToday(CommandContext& context, const Command& command, int) {
  TickPeriod(context.ribbon, command.key);
  context.list.Choose(command.table, "DATA_WYSTAWIENIA = " + Today(context).Iso());
}

void PeriodAll(CommandContext& context, const Command& command, int) {
  TickPeriod(context.ribbon, command.key);
  context.list.Choose(command.table, "*");
}

void PeriodLast(CommandContext& context, const Command& command, int) {
  TickPeriod(context.ribbon, command.key);
  const Date today = Today(context), from = today.PlusDays(-DaysBack(ChosenSpan(context.ribbon, command.key), command.table));
  context.list.Choose(command.table, "DATA_WYSTAWIENIA > " + from.Iso() + " AND DATA_WYSTAWIENIA <= " + today.Iso());
}

void PeriodCurrent(CommandContext& context, const Command& command, int) {
  TickPeriod(context.ribbon, command.key);
  const Date today = Today(context);
  const Span span = ChosenSpan(context.ribbon, command.key);
  const Column<Date>& issued = command.table == kDokZakupu ? purchase_columns::kIssued : document_columns::kIssued;
  context.list.ChooseWhere(issued, [&](Date day) { return InCurrent(span, day, today); });
}

// By the field of the row.
void SortRecords(CommandContext& context, const Command& command, int) {
  const std::string_view choice = context.ribbon.ChosenItem(command.key);
  const ListOrder order =
      choice.ends_with(".BRAK") ? ListOrder{"!", ordAsc} : ListOrder{command.detail, choice.ends_with(".MALEJĄCO") ? ordDesc : ordAsc};
  context.list.KeepOrder(command.table, order);
  context.list.List(command.table, "~", order);
}

// Records whose name begins with a letter between the two of the row, or with a Polish one made from such; all of them, by name, for a row
// without letters.
void AlphabetRange(CommandContext& context, const Command& command, int) {
  TickLetters(context.ribbon, command.key);
  const std::string_view bounds = command.detail;
  const Column<std::string>& name = command.table == kKontrahenci ? customer_columns::kName : article_columns::kName;
  if (bounds.empty()) {
    context.list.Choose(command.table, "*", {name.name, ordAsc});
    return;
  }
  context.list.ChooseWhere(name, [&](const std::string& text) { return BeginsWithin(text, bounds.substr(0, 1), bounds.substr(1)); });
}

void FindRecords(CommandContext& context, const Command& command, int) {
  const bool all = context.ribbon.ChosenItem(command.key).ends_with(".WSZYSTKO");
  const std::string filter = all ? "*" : FindFilter(Table(context.program, command.table), context.ribbon.FindText());
  ClearLetters(context.ribbon, command.key.substr(0, command.key.find('.')));
  context.list.Choose(command.table, filter, context.list.KeptOrder(command.table));
}

constexpr Needs kDb = Needs::kDatabase;
constexpr Command kRows[] = {
    {"SPRZEDAŻ.SELEKCJA.SORTUJ", kDb, SortRecords, kDokSprzed, "@KONTRAHENT"},
    {"ZAKUP.SELEKCJA.SORTUJ", kDb, SortRecords, kDokZakupu, "@KONTRAHENT"},
    {"KONTRAHENCI.SELEKCJA.SORTUJ", kDb, SortRecords, kKontrahenci, "NAZWA"},
    {"TOWARYUSŁUGI.SELEKCJA.SORTUJ", kDb, SortRecords, kTowaryUslugi, "NAZWA"},
    {"SPRZEDAŻ.OKRES.DZISIAJ", kDb, PeriodToday, kDokSprzed},
    {"SPRZEDAŻ.OKRES.BIEŻĄCY", kDb, PeriodCurrent, kDokSprzed},
    {"SPRZEDAŻ.OKRES.OSTATNI", kDb, PeriodLast, kDokSprzed},
    {"SPRZEDAŻ.OKRES.WSZYSTKIE", kDb, PeriodAll, kDokSprzed},
    {"ZAKUP.OKRES.DZISIAJ", kDb, PeriodToday, kDokZakupu},
    {"ZAKUP.OKRES.BIEŻĄCY", kDb, PeriodCurrent, kDokZakupu},
    {"ZAKUP.OKRES.OSTATNI", kDb, PeriodLast, kDokZakupu},
    {"ZAKUP.OKRES.WSZYSTKIE", kDb, PeriodAll, kDokZakupu},
    {"KONTRAHENCI.SELEKCJA.ZNAJDŹ", kDb, FindRecords, kKontrahenci},
    {"TOWARYUSŁUGI.SELEKCJA.ZNAJDŹ", kDb, FindRecords, kTowaryUslugi},
    {"KONTRAHENCI.SELEKCJA.ALFABET.ALL", kDb, AlphabetRange, kKontrahenci, ""},
    {"KONTRAHENCI.SELEKCJA.ALFABET.A-D", kDb, AlphabetRange, kKontrahenci, "AD"},
    {"KONTRAHENCI.SELEKCJA.ALFABET.E-H", kDb, AlphabetRange, kKontrahenci, "EH"},
    {"KONTRAHENCI.SELEKCJA.ALFABET.I-L", kDb, AlphabetRange, kKontrahenci, "IL"},
    {"KONTRAHENCI.SELEKCJA.ALFABET.M-P", kDb, AlphabetRange, kKontrahenci, "MP"},
    {"KONTRAHENCI.SELEKCJA.ALFABET.Q-T", kDb, AlphabetRange, kKontrahenci, "QT"},
    {"KONTRAHENCI.SELEKCJA.ALFABET.U-W", kDb, AlphabetRange, kKontrahenci, "UW"},
    {"KONTRAHENCI.SELEKCJA.ALFABET.X-Z", kDb, AlphabetRange, kKontrahenci, "XZ"},
    {"KONTRAHENCI.SELEKCJA.ALFABET.0-9", kDb, AlphabetRange, kKontrahenci, "09"},
    {"TOWARYUSŁUGI.SELEKCJA.ALFABET.ALL", kDb, AlphabetRange, kTowaryUslugi, ""},
    {"TOWARYUSŁUGI.SELEKCJA.ALFABET.A-D", kDb, AlphabetRange, kTowaryUslugi, "AD"},
    {"TOWARYUSŁUGI.SELEKCJA.ALFABET.E-H", kDb, AlphabetRange, kTowaryUslugi, "EH"},
    {"TOWARYUSŁUGI.SELEKCJA.ALFABET.I-L", kDb, AlphabetRange, kTowaryUslugi, "IL"},
    {"TOWARYUSŁUGI.SELEKCJA.ALFABET.M-P", kDb, AlphabetRange, kTowaryUslugi, "MP"},
    {"TOWARYUSŁUGI.SELEKCJA.ALFABET.Q-T", kDb, AlphabetRange, kTowaryUslugi, "QT"},
    {"TOWARYUSŁUGI.SELEKCJA.ALFABET.U-W", kDb, AlphabetRange, kTowaryUslugi, "UW"},
    {"TOWARYUSŁUGI.SELEKCJA.ALFABET.X-Z", kDb, AlphabetRange, kTowaryUslugi, "XZ"},
    {"TOWARYUSŁUGI.SELEKCJA.ALFABET.0-9", kDb, AlphabetRange, kTowaryUslugi, "09"},
};

}  // namespace

std::span<const Command> SelectionCommands() {
  return kRows;
}

}  // namespace ostrinka
