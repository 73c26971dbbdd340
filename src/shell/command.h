// A command of the main window: a row with its key, what it needs, the function that does it, and what that function reads.
#pragma once

#include <functional>
#include <string_view>

#include "app/main_view.h"
#include "controls/form.h"
#include "shell/dictionary_editor.h"
#include "shell/ribbon.h"
#include "shell/shown_list.h"

namespace ostrinka {

// The dates that the reports look at.
struct ReportPeriod {
  bool ReportAllDates = false;  // false: every date counts; true: those between the two, both included (kept: the name is the system's own)
  Date ReportDateFrom, ReportDateTo;
};

// What a command may ask of the main window.
struct CommandContext {
  Program& program;
  MainView& window;  // drawing anew, the status line, the count of tasks
  RibbonControl& ribbon;
  ShownList& list;
  DictionaryEditor& dictionary;
  ReportPeriod& period;
  std::function<void(std::string_view tab)> show_tab;  // brings a tab to the front
  std::function<void()> end_program;

  void Show(Form& form) { program.platform.ui.ShowModal(form); }
  void Beep() { program.platform.ui.Beep(); }
  void Tell(std::string_view message_key) { program.Message(message_key, MessageKind::kInformation); }
  bool Ask(std::string_view message_key) { return program.Message(message_key, MessageKind::kQuestion) == Answer::kYes; }
  void Fail(std::string_view message_key = "msg.info.error") { program.Message(message_key, MessageKind::kError); }
};

// What must be there before a command runs.
enum class Needs : unsigned char { kNothing, kDatabase };

struct Command {
  std::string_view key;
  Needs needs;
  // `argument`: which of the four arrows was pressed, from 0; -1 without one.
  void (*run)(CommandContext& context, const Command& command, int argument);
  int table = 0;            // number of the table that it acts on
  const char* detail = "";  // what the function reads: a message key, a range of letters, the field of an order
};

// The function of what this version does not do yet: it says so.
void NotBuilt(CommandContext& context, const Command& command, int argument);

}  // namespace ostrinka
