// The user interface of the window: modal forms, boxes, file dialogs, status line, on Qt.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

#include "desktop/look.h"
#include "platform/user_interface.h"

namespace ostrinka {

class PreviewWindow;

class DesktopUi : public UserInterface {
 public:
  // What the main window and the splash do when the program asks; set by the front end before the start.
  struct Hooks {
    std::function<void()> show_main_window, redraw_main_window, end_program;
    std::function<bool()> end_wanted;
    std::function<void(bool)> show_splash;
    std::function<void(const std::string&)> show_status;
    std::function<void(int)> start_timer;
    std::function<void()> stop_timer;
    std::function<void(bool skin)> appearance_changed;
  };

  // Program and look are made after the interface: given before the first form or box.
  void Attach(Program& program, const Look& look) {
    program_ = &program;
    look_ = &look;
  }
  void SetParent(QWidget* window) { window_ = window; }
  Hooks hooks;

  void ShowModal(Modal& modal) override;
  Answer ShowMessage(const std::string& text, MessageKind kind) override;
  std::optional<std::string> AskOpenFile(const std::vector<FileFilter>& filters) override;
  std::optional<std::string> AskSaveFile(const std::vector<FileFilter>& filters, const std::string& proposal, size_t& filter) override;
  std::optional<std::string> AskFolder(const std::string& title) override;
  void ShowStatus(const std::string& text) override;
  void TurnEvents() override;
  void Beep() override;
  void SetBusy(bool busy) override;
  void ShowSplash(bool shown) override;
  void ShowMainWindow() override;
  void RedrawMainWindow() override;
  void StartMainTimer(int milliseconds) override;
  void StopMainTimer() override;
  bool OpenWithSystem(const std::string& file) override;
  bool OpenAddress(const std::string& target) override;
  bool EndWanted() override { return hooks.end_wanted && hooks.end_wanted(); }
  void AppearanceChanged(bool skin) override;
  void EndProgram() override;

 private:
  QWidget* Front() const;  // the window that a new one stands before
  Program* program_ = nullptr;
  const Look* look_ = nullptr;
  QPointer<QWidget> window_;
  QPointer<PreviewWindow> preview_;  // while it is open
  int busy_ = 0;
};

}  // namespace ostrinka
