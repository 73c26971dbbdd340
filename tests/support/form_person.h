// A person before a form, and the main window behind it, as the tests of forms need them.
#pragma once

#include <string>
#include <vector>

#include "app/main_view.h"
#include "controls/form.h"

namespace ostrinka {

// Enters a control, changes it once, leaves it. False when it does not take the text.
inline bool Set(Control& control, const std::string& value) {
  if (!control.UserEnter() || !control.UserSet(value)) return false;
  control.UserLeave();
  return true;
}

// Stands for the main window and notes what a form asks of it.
class TestView : public MainView {
 public:
  PrintMode ticked = PrintMode::kOriginal;
  int redraws = 0, counts = 0;
  std::vector<std::string> calls;
  void ref_() override {
    ++redraws;
    calls.push_back("ref_");
  }
  void refresh_tasks_() override { ++counts; }
  PrintMode TickedPrintMode() override { return ticked; }
  bool GppTicked() override { return false; }
  void ScrollShow_(bool show) override { calls.push_back(show ? "show" : "hide"); }
  void ResetXRSC_() override { calls.push_back("reset"); }
  void SET_QDB_() override {}
  void StatusText(const std::string&) override {}
};

}  // namespace ostrinka
