// A new company in the program's window, with the art that the build made, before a person at the keyboard.
#pragma once

#include <filesystem>
#include <memory>

#include "desktop/main_window_view.h"
#include "desktop/person.h"
#include "startup/startup.h"
#include "support/company.h"

namespace ostrinka {

class CompanyWindow : public ::testing::Test {
 protected:
  CompanyWindow() {
    CopyCatalogues(app);
    for (const char* name : {"Icons", "skins"}) {
      surroundings.files.MakeFolder(app + name);
      std::error_code missing;
      std::filesystem::copy(std::string(OSTRINKA_APP "/") + name, app + name, std::filesystem::copy_options::recursive, missing);
    }
    Program before(surroundings.platform);
    PutNewCompany(before, surroundings);
  }
  ~CompanyWindow() override { Shut(); }

  // Starts the program on its company.
  void Open() {
    program = std::make_unique<Program>(surroundings.platform);
    startup = std::make_unique<Startup>(*program);
    startup->Start("");
    window = startup->window();
    look = std::make_unique<Look>(*program);
    view = std::make_unique<MainWindowView>(*program, *window, *look);
    window->ribbon.Repaint = [this] { view->Refresh(); };
    ui.on_appearance = [this](bool skin) {
      if (skin) look->Reload();
      view->LookChanged();
    };
    view->setGeometry(0, 0, 1100, 640);
    view->show();
    view->activateWindow();
    view->list().setFocus();
    Turn();
  }
  void Shut() {
    if (window) window->ribbon.Repaint = nullptr;
    ui.on_appearance = nullptr;
    view.reset();
    look.reset();
    if (startup) startup->Stop();
    startup.reset();
    program.reset();
    window = nullptr;
  }
  // Lets the window paint, which is what fills the engine's list of cells.
  QImage Turn() {
    view->Refresh();
    QCoreApplication::processEvents();
    return view->grab().toImage();
  }
  void Key(int key, Qt::KeyboardModifiers with = {}, const QString& text = {}) {
    QWidget* focus = view->focusWidget() ? view->focusWidget() : view.get();
    TypeKey(*focus, key, with, text);
    Turn();
  }

  TestPlatform surroundings;
  const std::string app = surroundings.folder / "app/";
  TestUserInterface& ui = surroundings.ui;
  std::unique_ptr<Program> program;
  std::unique_ptr<Startup> startup;
  MainWindow* window = nullptr;
  std::unique_ptr<Look> look;
  std::unique_ptr<MainWindowView> view;
};

}  // namespace ostrinka
