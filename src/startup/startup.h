// From nothing to a shown main window with the company open, and back.
#pragma once

#include <memory>
#include <string>

#include "app/program.h"
#include "shell/main_window.h"

namespace ostrinka {

class Startup {
 public:
  explicit Startup(Program& program) : program_(program) {}
  ~Startup() { Stop(); }

  // The start sequence. `command_line` may hold "+wiz", in any case and anywhere: then the first-run wizard comes first. It makes and opens
  // the company; leaving it ends the program.
  void Start(const std::string& command_line);
  // The shutdown routine; once.
  void Stop();
  bool running() const { return window_ && !stopped_; }
  MainWindow* window() { return window_.get(); }  // null before the start; stands until this object goes

 private:
  void LoadCatalogues();
  bool RunWizard();  // false when the person left it
  void LoadPostalTable();
  void CreateWindow();
  void OpenCompany();
  void ReportNoCompany();
  void ShowList();

  Program& program_;
  std::unique_ptr<MainWindow> window_;
  bool stopped_ = false;
  std::string why_not_open_;  // the company, for a person
};

}  // namespace ostrinka
