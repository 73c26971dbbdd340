// The reports, their period and the currency that they are counted in.
#include <string>

#include "books/books.h"
#include "books/dictionary_rows.h"
#include "shell/commands.h"
#include "shell/periods.h"
#include "shell/selection_ticks.h"

namespace ostrinka {
namespace {

constexpr std::string_view kCurrencies = "ZESTAWIENIA.WALUTA";

std::string CurrencyEntry(int record) {
  return std::string(kCurrencies) + "." + std::to_string(record);
}

// Builds the report anew that is pressed, with the period and the currency of now.
void RerunReport(CommandContext& context) {
  for (const char* report : {"ZESTAWIENIA.BILANS", "ZESTAWIENIA.SPRZEDAŻ", "ZESTAWIENIA.NALEŻNOŚCI", "ZESTAWIENIA.CENNIK"}) {
    if (!context.ribbon.ButtonChecked(report)) continue;
    const Command* command = FindCommand(report);
    command->run(context, *command, -1);
    return;
  }
}

Date Today(const CommandContext& context) {
  return context.program.platform.clock.Now().WithoutTime();
}

void TakePeriod(CommandContext& context, const Command& command, const ReportPeriod& period) {
  TickPeriod(context.ribbon, command.key);
  context.period = period;
  RerunReport(context);
}

void PeriodToday(CommandContext& context, const Command& command, int) {
  TakePeriod(context, command, {true, Today(context), Today(context)});
}

void PeriodCurrent(CommandContext& context, const Command& command, int) {
  const Date today = Today(context);
  TakePeriod(context, command, {true, FirstDayOfCurrent(ChosenSpan(context.ribbon, command.key), today), today});
}

void PeriodLast(CommandContext& context, const Command& command, int) {
  const Date today = Today(context);
  const int days = DaysBack(ChosenSpan(context.ribbon, command.key), kDokSprzed);
  TakePeriod(context, command, {true, today.PlusDays(-days), today});
}

// The dates stay as they were: only the flag says that they do not count.
void PeriodAll(CommandContext& context, const Command& command, int) {
  TakePeriod(context, command, {false, context.period.ReportDateFrom, context.period.ReportDateTo});
}

constexpr Command kRows[] = {
    {"ZESTAWIENIA.BILANS", Needs::kDatabase, NotBuilt},
    {"ZESTAWIENIA.SPRZEDAŻ", Needs::kDatabase, NotBuilt},
    {"ZESTAWIENIA.NALEŻNOŚCI", Needs::kDatabase, NotBuilt},
    {"ZESTAWIENIA.CENNIK", Needs::kDatabase, NotBuilt},
    {kCurrencies, Needs::kDatabase, NotBuilt},
    {"ZESTAWIENIA.OKRES.DZISIAJ", Needs::kDatabase, PeriodToday},
    {"ZESTAWIENIA.OKRES.BIEŻĄCY", Needs::kDatabase, PeriodCurrent},
    {"ZESTAWIENIA.OKRES.OSTATNI", Needs::kDatabase, PeriodLast},
    {"ZESTAWIENIA.OKRES.WSZYSTKIE", Needs::kDatabase, PeriodAll},
};

}  // namespace

void FillReportCurrencies(CommandContext& context) {
  Program& program = context.program;
  RibbonControl& ribbon = context.ribbon;
  ribbon.ClearPopupMenu(kCurrencies);
  if (!program.database_open) return;
  const auto home = Read<CurrencyRow>(program, 1);
  if (!home) return;
  ribbon.AddListItem(kCurrencies, CurrencyEntry(1), program.Text("mdi.tool.report.currency") + " " + home->code);
  EachRow<CurrencyRow>(program, [&](int32_t n, const CurrencyRow& row) {
    ribbon.AddListItem(kCurrencies, CurrencyEntry(n), row.code + " - " + row.name);
    return true;
  });
  // The button shows the currency that the reports are counted in, the home currency when that one is gone.
  const std::string chosen = CurrencyEntry(program.settings.Integer(kOstrinka, "Reports", "Currency", 1));
  const auto& items = ribbon.ListItems(kCurrencies);
  for (auto item = items.rbegin(); item != items.rend(); ++item) {
    if (item->first == chosen || item->first == items.front().first) {
      ribbon.ButtonText(kCurrencies, item->second);
      break;
    }
  }
}

bool TakeReportCurrency(CommandContext& context, std::string_view key) {
  if (!key.starts_with(kCurrencies) || key.size() == kCurrencies.size() || key[kCurrencies.size()] != '.') return false;
  context.program.settings.SaveSettingValue(kOstrinka, "Reports", "Currency", std::string(key.substr(kCurrencies.size() + 1)));
  RerunReport(context);
  return true;
}

std::span<const Command> ReportCommands() {
  return kRows;
}

}  // namespace ostrinka
