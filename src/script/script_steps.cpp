// The steps of a script.
#include <algorithm>
#include <filesystem>

#include "base/text.h"
#include "company/ost_engine.h"
#include "print/print.h"
#include "script/script_runner.h"

namespace ostrinka {
namespace {

constexpr char kCellField[] = "txtEdit";  // the cell of a dictionary that is open in the main window

}  // namespace

const std::vector<ScriptRunner::Step>& ScriptRunner::Steps() {
  using R = ScriptRunner;
  constexpr Where kAny = Where::kAnywhere, kWin = Where::kWindow, kFrm = Where::kForm;
  static const std::vector<Step> steps = {
      {"setting", 4, 4, kAny, &R::DoSetting},
      {"create-database", 3, 3, kAny, &R::DoCreateDatabase},
      {"start", 0, 99, kAny, &R::DoStart},
      {"command", 1, 2, kWin, &R::DoCommand},
      {"item", 2, 2, kWin, &R::DoItem},
      {"tab", 1, 1, kWin, &R::DoTab},
      {"row", 1, 1, kWin, &R::DoRow},
      {"record", 1, 1, kWin, &R::DoRecord},
      {"cell", 2, 2, kWin, &R::DoCell},
      {"key", 1, 1, kAny, &R::DoKey},
      {"alt", 0, 0, kWin, &R::DoAlt},
      {"set", 2, 2, kAny, &R::DoSet},
      {"press", 1, 1, kFrm, &R::DoPress},
      {"click", 3, 3, kFrm, &R::DoClick},
      {"double", 2, 2, kFrm, &R::DoDouble},
      {"page", 1, 1, kFrm, &R::DoPage},
      {"answer", 1, 1, kAny, &R::DoAnswer},
      {"file", 1, 1, kAny, &R::DoFile},
      {"expect", 2, 2, kAny, &R::DoExpect},
      {"expect-enabled", 2, 2, kFrm, &R::DoExpectEnabled},
      {"expect-rows", 1, 2, kAny, &R::DoExpectRows},
      {"expect-message", 1, 1, kAny, &R::DoExpectMessage},
      {"expect-status", 1, 1, kAny, &R::DoExpectStatus},
      {"get", 1, 1, kAny, &R::DoGet},
      {"list", 0, 1, kAny, &R::DoList},
      {"fields", 0, 0, kFrm, &R::DoFields},
      {"status", 0, 0, kAny, &R::DoStatus},
      {"pages", 1, 1, kAny, &R::DoPages},
      {"echo", 0, 99, kAny, &R::DoEcho},
      {"quit", 0, 0, kAny, &R::DoQuit},
  };
  return steps;
}

// --- means

std::optional<int> ScriptRunner::Number(const std::string& word) {
  const std::optional<int32_t> number = IsAllDigits(word) ? ToInt32(word) : std::nullopt;
  if (!number) Wrong("no number: " + word);
  return number;
}

Control* ScriptRunner::FieldOf(const std::string& name) {
  Control* control = nullptr;
  if (FrontForm()) {
    control = FrontForm()->Find(name);
  } else if (name == kCellField && startup_.running()) {
    control = startup_.window()->dictionary.Front();
    if (!control) Wrong("no cell of a dictionary is open");
    return control;
  }
  if (!control) Wrong("unknown field " + name);
  return control;
}

std::string ScriptRunner::TextOf(const std::string& key_or_text) const {
  return program_.catalogue.Has(key_or_text) ? program_.Text(key_or_text) : key_or_text;
}

std::optional<std::string> ScriptRunner::ValueOf(const std::string& field) {
  if (!FrontForm()) {
    if (field == "@FIND" && startup_.running()) return startup_.window()->ribbon.FindText();
  }
  Control* control = FieldOf(field);
  if (!control) return std::nullopt;
  // Dates are written as the step `set` takes them.
  if (control->kind() == ControlKind::kCalendar) return static_cast<CalendarControl*>(control)->CurrentDate().Iso();
  if (control->kind() == ControlKind::kButton) return program_.Text(static_cast<ButtonControl*>(control)->caption_key);
  return control->ShownText();
}

TableControl* ScriptRunner::TableOf(const WordList& words, size_t at) {
  if (at < words.size()) {
    Control* control = FieldOf(words[at]);
    if (control && control->kind() != ControlKind::kTable) Wrong(words[at] + " is no table");
    return control && control->kind() == ControlKind::kTable ? static_cast<TableControl*>(control) : nullptr;
  }
  for (Control* control : FrontForm()->controls()) {
    if (control->kind() == ControlKind::kTable && control->Visible()) return static_cast<TableControl*>(control);
  }
  Wrong("the form " + FrontForm()->form_name() + " has no table");
  return nullptr;
}

std::vector<std::string> ScriptRunner::RowsOnShow(const WordList& words, size_t at) {
  std::vector<std::string> rows;
  if (FrontForm()) {
    const TableControl* table = TableOf(words, at);
    for (int row = 1; table && table->source && row <= table->source->Rows(); ++row) {
      std::string line;
      for (int column = 1; column <= table->source->Columns(); ++column)
        line += (column > 1 ? "\t" : "") + table->source->CellText(row, column);
      rows.push_back(std::move(line));
    }
    return rows;
  }
  if (!startup_.running() || at < words.size()) {
    Wrong("no list is on show");
    return rows;
  }
  MainWindow& window = *startup_.window();
  ClassQDBASE* table = window.ViewTable();
  for (int row = 1; table && row <= table->MAX_ROWS(); ++row) {
    std::string line;
    for (const int field : table->columns())
      line += (line.empty() && field == table->columns()[0] ? "" : "\t") + table->CellText(row, field, window.list.Look());
    rows.push_back(std::move(line));
  }
  return rows;
}

// --- start and stop

void ScriptRunner::DoSetting(const WordList& words) {
  program_.settings.SaveSettingValue(words[1], words[2], words[3], words[4]);
}

void ScriptRunner::DoCreateDatabase(const WordList& words) {
  std::string folder = words[1];
  const bool marked = StartsWith(folder, "<APP>") || StartsWith(folder, "<USB>");
  if (!marked) folder = std::filesystem::absolute(folder).string();
  if (folder.back() != '/' && folder.back() != '\\') folder += '/';
  if (FromCp1250(ToCp1250(folder)) != folder || folder.find_first_of("\r\n") != std::string::npos) {
    Wrong("the settings cannot name the folder " + words[1]);
    return;
  }
  program_.platform.files.MakeFolders(program_.ResolveFolder(folder));
  bool ok = false;
  OSTEngine(program_).create_(folder, words[2], words[3], true, ok);
  if (!ok) {
    Wrong("the company cannot be created in " + words[1]);
    return;
  }
  const std::pair<const char*, Value> login[] = {{"username", words[2]}, {"password", words[3]}, {"login", false}};
  program_.settings.SaveSettingValue(kCommon, "dbPath", "Remote", true);
  program_.settings.SaveSettingValue(kCommon, "dbPath", "Path", folder);
  for (const auto& [key, value] : login) program_.settings.SaveSettingValue(kCommon, "dbLogin", key, value);
  program_.settings.SaveSettingValue(kCommon, "system", "fRun", false);
}

void ScriptRunner::DoStart(const WordList& words) {
  if (startup_.running() || FrontForm()) {
    Wrong("the program runs already");
    return;
  }
  std::string line;
  for (size_t i = 1; i < words.size(); ++i) line += (i > 1 ? " " : "") + words[i];
  startup_.Start(line);
}

void ScriptRunner::DoQuit(const WordList&) {
  if (FrontForm()) {
    Wrong("the form " + FrontForm()->form_name() + " is still open");
    return;
  }
  quit_ = true;
  startup_.Stop();
}

// --- main window

void ScriptRunner::DoCommand(const WordList& words) {
  int argument = -1;
  if (words.size() > 2) {
    const auto number = Number(words[2]);
    if (!number) return;
    argument = *number;
  }
  if (!startup_.window()->UserCommand(words[1], argument)) Wrong("no command that can be given: " + words[1]);
}

void ScriptRunner::DoItem(const WordList& words) {
  if (!startup_.window()->UserItem(words[1], words[2])) Wrong("no item " + words[2] + " of " + words[1]);
}

void ScriptRunner::DoTab(const WordList& words) {
  if (!startup_.window()->UserTab(words[1])) Wrong("no tab " + words[1]);
}

void ScriptRunner::DoRow(const WordList& words) {
  const auto number = Number(words[1]);
  if (number && !startup_.window()->UserRow(*number)) Wrong("row out of range: " + words[1]);
}

void ScriptRunner::DoRecord(const WordList& words) {
  const auto number = Number(words[1]);
  if (number && !startup_.window()->UserRecord(*number)) Wrong("record not on show: " + words[1]);
}

void ScriptRunner::DoCell(const WordList& words) {
  const auto row = Number(words[1]), column = Number(words[2]);
  if (row && column && !startup_.window()->UserCell(*row, *column)) Wrong("no such cell: " + words[1] + " " + words[2]);
}

void ScriptRunner::DoKey(const WordList& words) {
  const auto code = Number(words[1]);
  if (!code) return;
  if (FrontForm()) {
    if (!FrontForm()->UserKey(*code, false)) Wrong("the form does not take the key " + words[1]);
  } else if (!startup_.running() || !startup_.window()->UserKey(*code)) {
    Wrong("the key " + words[1] + " does nothing here");
  }
}

void ScriptRunner::DoAlt(const WordList&) {
  startup_.window()->ribbon.AltState(true);
}

// --- forms

void ScriptRunner::DoSet(const WordList& words) {
  if (!FrontForm() && words[1] == "@FIND" && startup_.running()) {
    startup_.window()->ribbon.FindText(words[2]);
    return;
  }
  Control* control = FieldOf(words[1]);
  if (!control) return;
  if (!control->UserEnter()) {
    Wrong("the field " + words[1] + " is disabled or hidden");
    return;
  }
  std::string value = words[2];
  if (control->kind() == ControlKind::kCombo && value.size() > 1 && value[0] == '%') value = program_.Text(value.substr(1));
  if (!control->UserSet(value)) {
    Wrong("the field " + words[1] + " does not take \"" + value + "\"");
    return;
  }
  if (control->form()->IsOpen()) control->UserLeave();
}

void ScriptRunner::DoPress(const WordList& words) {
  ButtonControl* button = FrontForm()->FindButton(words[1]);
  if (!button) {
    Wrong("unknown button " + words[1]);
  } else if (!button->UserPress()) {
    Wrong("the button " + words[1] + " is disabled or hidden");
  }
}

void ScriptRunner::DoClick(const WordList& words) {
  TableControl* table = TableOf(words, 1);
  const auto row = Number(words[2]), column = Number(words[3]);
  if (table && row && column && !table->UserClick(*row, *column)) Wrong("no such cell: " + words[2] + " " + words[3]);
}

void ScriptRunner::DoDouble(const WordList& words) {
  TableControl* table = TableOf(words, 1);
  const auto row = Number(words[2]);
  if (table && row && !table->UserDoubleClick(*row)) Wrong("row out of range: " + words[2]);
}

void ScriptRunner::DoPage(const WordList& words) {
  if (!FrontForm()->UserShowPage(words[1])) Wrong("no page " + words[1]);
}

void ScriptRunner::DoAnswer(const WordList& words) {
  constexpr std::pair<const char*, Answer> kAnswers[] = {
      {"yes", Answer::kYes}, {"no", Answer::kNo}, {"ok", Answer::kOk}, {"cancel", Answer::kCancel}};
  for (const auto& [word, answer] : kAnswers) {
    if (words[1] == word) {
      answers_.push_back(answer);
      return;
    }
  }
  Wrong("no answer: " + words[1]);
}

void ScriptRunner::DoFile(const WordList& words) {
  files_.push_back(words[1]);
}

// --- checks

void ScriptRunner::DoExpect(const WordList& words) {
  const auto value = ValueOf(words[1]);
  const std::string expected = words[2].size() > 1 && words[2][0] == '%' ? TextOf(words[2].substr(1)) : words[2];
  if (value && *value != expected) Unmet(words[1], expected, *value);
}

void ScriptRunner::DoExpectEnabled(const WordList& words) {
  Control* control = FrontForm()->FindButton(words[1]);
  if (!control) control = FieldOf(words[1]);
  if (words[2] != "true" && words[2] != "false") {
    Wrong("true or false is wanted, not " + words[2]);
    return;
  }
  const char* actual = control && control->Enabled() ? "true" : "false";
  if (control && words[2] != actual) Unmet(words[1] + " enabled", words[2], actual);
}

void ScriptRunner::DoExpectRows(const WordList& words) {
  const auto count = Number(words.back());
  if (!count) return;
  const WordList named(words.begin(), words.end() - 1);
  const size_t rows = RowsOnShow(named, 1).size();
  if (status_code_ == 0 && rows != static_cast<size_t>(*count)) Unmet("rows", words.back(), std::to_string(rows));
}

void ScriptRunner::DoExpectMessage(const WordList& words) {
  const std::string wanted = TextOf(words[1]);
  const auto found = std::find_if(messages_.begin(), messages_.end(), [&](const std::string& text) { return Contains(text, wanted); });
  std::string all;
  for (const std::string& text : messages_) all += (all.empty() ? "" : " / ") + text;
  const bool met = found != messages_.end();
  messages_.clear();
  if (!met) Unmet("message", wanted, all);
}

void ScriptRunner::DoExpectStatus(const WordList& words) {
  const std::string wanted = TextOf(words[1]);
  if (!Contains(status_, wanted)) Unmet("status", wanted, status_);
}

// --- printing

void ScriptRunner::DoGet(const WordList& words) {
  if (const auto value = ValueOf(words[1])) Print(*value);
}

void ScriptRunner::DoList(const WordList& words) {
  for (const std::string& row : RowsOnShow(words, 1)) Print(row);
}

void ScriptRunner::DoFields(const WordList&) {
  for (const Control* control : FrontForm()->controls()) Print(control->name() + "\t" + *ValueOf(control->name()));
}

void ScriptRunner::DoStatus(const WordList&) {
  Print(status_);
}

void ScriptRunner::DoPages(const WordList& words) {
  FileSystem& files = program_.platform.files;
  if (!CurrentPrintJob(program_) || CurrentPrintJob(program_)->Page() == 0) {
    Wrong("there is no print job");
    return;
  }
  std::string folder = std::filesystem::absolute(words[1]).string();
  if (folder.back() != '/') folder += '/';
  bool ok = files.MakeFolders(folder);
  int number = 0;
  for (const PageRecord& page : CurrentPrintJob(program_)->pages()) {
    std::string digits = std::to_string(++number), content;
    digits.insert(0, digits.size() < 3 ? 3 - digits.size() : 0, '0');
    ok = ok && files.ReadAll(page.FileName, content) && files.WriteAll(folder + "page-" + digits + ".ovp", content);
  }
  if (!ok) Wrong("the page files cannot be copied to " + words[1]);
}

void ScriptRunner::DoEcho(const WordList& words) {
  std::string line;
  for (size_t i = 1; i < words.size(); ++i) line += (i > 1 ? " " : "") + words[i];
  Print(line);
}

}  // namespace ostrinka
