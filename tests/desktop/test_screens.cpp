#include <QAbstractButton>
#include <QLabel>
#include <QTimer>

#include "desktop/clerk.h"
#include "desktop/dialog_style.h"
#include "desktop/screen_check.h"

namespace ostrinka {
namespace {

TEST(ScreenCheck, TellsTextsThatAreNotTranslatedCutOffOrCovered) {
  QWidget window;
  window.resize(300, 200);
  auto* good = new QLabel("Termin", &window);
  good->setGeometry(10, 10, 200, 20);
  window.show();
  EXPECT_EQ(ScreenFaults(window), QStringList());
  good->setToolTip("%sdoc.lbl.due");
  EXPECT_EQ(ScreenFaults(window), QStringList("not translated: %sdoc.lbl.due"));
  good->setToolTip({});
  good->setText(QString(100, 'W'));
  EXPECT_EQ(ScreenFaults(window).size(), 1);
  good->setText("Termin");
  auto* over = new QLabel("Kurs", &window);
  over->setGeometry(100, 15, 100, 20);
  over->show();
  EXPECT_EQ(ScreenFaults(window).size(), 1) << "one covers the other";
  over->setGeometry(250, 100, 100, 20);
  EXPECT_EQ(ScreenFaults(window).size(), 1) << "it reaches out of the window";
  over->hide();
  EXPECT_EQ(ScreenFaults(window), QStringList());
}

class ScreensTest : public ClerkTest {};

TEST_F(ScreensTest, EveryTabAndEveryFormThatACommandOpensIsFitToBeSeenInEverySkin) {
  AddCustomer("Hotel Nad Wisłą", kTransfer14);
  AddArticle("Regał sosnowy", 100, 122);
  OpenWindow();
  int windows = 0;
  for (const int32_t skin : {0, 1, 2}) {
    program.settings.SaveSettingValue(kCommon, "GUI", "Skin", skin);
    look->Reload();
    DialogStyle::Install(*look);
    for (const char* tab : {"SPRZEDAŻ", "ZAKUP", "KONTRAHENCI", "TOWARYUSŁUGI", "ZESTAWIENIA", "SŁOWNIKI"}) {
      window->UserTab(tab);
      view->Refresh();
      QApplication::processEvents();
      EXPECT_EQ(ScreenFaults(*view), QStringList()) << tab;
    }
    platform.ui.on_modal = [&](Form& form) {
      FormWindow shown(program, *look, form, view.get());
      form.Open();
      shown.show();
      for (const PageLayout& page : form.pages()) {
        if (!page.visible || !form.ShowPage(page.key)) continue;
        QApplication::processEvents();
        EXPECT_EQ(ScreenFaults(shown), QStringList()) << form.form_name() << " " << page.key;
        ++windows;
      }
      form.Close();
    };
    for (const char* command : {"SPRZEDAŻ.DODAJ", "KONTRAHENT.DODAJ", "TOWARUSŁUGA.DODAJ", "SET.USR", "SET.QDB", "SET.GUI", "ABOUT"}) {
      window->UserCommand(command);
    }
  }
  EXPECT_GE(windows, 3 * 9);
}

}  // namespace
}  // namespace ostrinka
