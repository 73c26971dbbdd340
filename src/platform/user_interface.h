// What the system asks of the person in front of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ostrinka {

// What stands in front of everything else until it closes: a form, or the print preview.
class Modal {
 public:
  virtual ~Modal() = default;
};

// Kinds of message boxes: a question is a warning with yes and no, the others have one button.
enum class MessageKind { kPlain = 0, kError = 16, kWarning = 48, kQuestion = 52, kInformation = 64 };
enum class Answer { kOk, kCancel, kYes, kNo };

// A filter of a file dialog: "Grafika (*.bmp; *.jpg)" and {"*.bmp", "*.jpg"}.
struct FileFilter {
  std::string name;
  std::vector<std::string> patterns;
};

class UserInterface {
 public:
  virtual ~UserInterface() = default;
  virtual void ShowModal(Modal& modal) = 0;  // returns when it closes; a front end without a window passes over the preview
  virtual Answer ShowMessage(const std::string& text, MessageKind kind) = 0;
  // Nothing when the person cancels.
  virtual std::optional<std::string> AskOpenFile(const std::vector<FileFilter>& filters) = 0;
  // `filter`: number of the filter that is proposed, and of the one that the person chose.
  virtual std::optional<std::string> AskSaveFile(const std::vector<FileFilter>& filters, const std::string& proposal, size_t& filter) = 0;
  virtual std::optional<std::string> AskFolder(const std::string& title) = 0;
  virtual void ShowStatus(const std::string& text) = 0;  // the status line of the main window
  virtual void TurnEvents() = 0;                         // lets waiting events of the window run
  virtual void Beep() = 0;
  virtual void SetBusy(bool busy) = 0;      // the hourglass
  virtual void ShowSplash(bool shown) = 0;  // 424 by 222 pixels in the centre of the screen
  virtual void ShowMainWindow() = 0;
  virtual void RedrawMainWindow() = 0;
  virtual void StartMainTimer(int milliseconds) = 0;
  virtual void StopMainTimer() = 0;
  virtual bool OpenWithSystem(const std::string& file) = 0;  // a file of the temporary folder, with its program
  virtual bool OpenAddress(const std::string& address) = 0;  // a web address as people type it, or "mailto:..."; never a file
  // The system asked the program to end: long work stops at the next place where nothing is lost.
  virtual bool EndWanted() { return false; }
  // The settings of the window's look were changed; `skin` when another skin was chosen, which is then read anew.
  virtual void AppearanceChanged(bool skin) { (void)skin; }
  virtual void EndProgram() = 0;  // windows are destroyed, the loop ends
};

}  // namespace ostrinka
