// What a form or a builder may ask of the main window.
#pragma once

#include <string>

namespace ostrinka {

// The print mode ticked on the ribbon, by the number that the print run takes.
enum class PrintMode { kOriginalAndCopy = 0, kOriginalAndTwoCopies = 1, kOriginalCopyInOne = 2, kOriginal = 3, kCopy = 4, kDuplicate = 5 };

class MainView {
 public:
  virtual ~MainView() = default;
  virtual void ref_() = 0;            // redraws the list on show
  virtual void refresh_tasks_() = 0;  // counts the due subscriptions anew
  virtual PrintMode TickedPrintMode() = 0;
  virtual bool GppTicked() = 0;  // the transfer form goes with a printed document
  virtual void ScrollShow_(bool show) = 0;
  virtual void ResetXRSC_() = 0;  // forgets the columns' sort directions
  virtual void SET_QDB_() = 0;    // opens the database connection dialog
  virtual void StatusText(const std::string& text) = 0;
};

}  // namespace ostrinka
