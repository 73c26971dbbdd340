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

  // The start sequence. `command_line` may hold "+wiz", in any case and anywhere: then the first-run wizard is shown and nothing is opened.
  void Start(const std::string& command_line);
  // The shutdown routine; once.
  void Stop();
  bool running() const { return window_ && !stopped_; }
  MainWindow* window() { return window_.get(); }  // null before the start; stands until this object goes

  // The skin package that the settings choose, below the application folder.
  static std::string SkinChoose(Program& program);

 private:
  void LoadCatalogues();
  void CreateWindow();
  void OpenCompany();
  void ReportNoCompany();
  void ShowList();

  Program& program_;
  std::unique_ptr<MainWindow> window_;
  bool stopped_ = false;
};

}  // namespace ostrinka
