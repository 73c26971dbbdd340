#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QMenu>
#include <QWheelEvent>

#include "company/ost_engine.h"
#include "company/tables.h"
#include "controls/form.h"
#include "desktop/main_window_view.h"
#include "desktop/person.h"
#include "shell/commands.h"
#include "startup/startup.h"
#include "support/company.h"

namespace ostrinka {
namespace {

constexpr int kCustomers = 60;

// A company with some customers, an article and two sales documents, which the programs of all tests open in turn.
struct Company : TestCompany {
  Company() {
    CopyCatalogues(program.ApplicationFolder());
    for (int i = 1; i <= kCustomers; ++i) AddCustomer("Odbiorca " + std::to_string(100 + i));
    AddArticle("Krzesło", 0, 0);
    for (int i = 1; i <= 2; ++i) AddDocument(kInvoice, "2008-03-04", i);
    OSTEngine(program).close_(false);
  }
};

// The main window on that company, before a person who answers as `ui` is told.
class MainWindowTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { company_ = new Company(); }
  static void TearDownTestSuite() { delete company_; }

  MainWindowTest() : ui(company_->platform.ui), program(company_->platform.platform), look(program), startup(program) {
    ui.on_modal = nullptr;
    ui.ended = false;
    startup.Start("");
    window = startup.window();
    view = std::make_unique<MainWindowView>(program, *window, look);
    window->ribbon.Repaint = [this] { view->Refresh(); };
    view->setGeometry(0, 0, 1100, 640);
    view->show();
    view->activateWindow();
    view->list().setFocus();
    Turn();
  }
  ~MainWindowTest() override {
    window->ribbon.Repaint = nullptr;
    view.reset();
    startup.Stop();
  }
  // Lets the window paint, which is what fills the engine's list of cells.
  void Turn() {
    view->Refresh();
    QCoreApplication::processEvents();
    view->grab();
  }
  void Key(int key, Qt::KeyboardModifiers with = {}, const QString& text = {}) {
    QWidget* focus = view->focusWidget() ? view->focusWidget() : view.get();
    TypeKey(*focus, key, with, text);
    Turn();
  }
  void TapAlt() { Key(Qt::Key_Alt); }
  std::string Tab() const { return window->ribbon.TabID(); }

  TestUserInterface& ui;
  Program program;
  Look look;
  Startup startup;
  MainWindow* window = nullptr;
  std::unique_ptr<MainWindowView> view;
  static Company* company_;
};
Company* MainWindowTest::company_ = nullptr;

TEST_F(MainWindowTest, AChoiceOfASplitButtonBecomesItsCaptionAndRuns) {
  view->ribbon().OpenList("SPRZEDAŻ.OKRES.OSTATNI");
  QMenu* list = nullptr;
  for (QMenu* menu : view->findChildren<QMenu*>()) {
    if (menu->isVisible()) list = menu;
  }
  ASSERT_NE(list, nullptr);
  QAction* month = nullptr;
  for (QAction* action : list->actions()) {
    if (action->data().toString() == "SPRZEDAŻ.OKRES.OSTATNI.MIESIĄC") month = action;
  }
  ASSERT_NE(month, nullptr);
  list->close();
  month->trigger();
  Turn();
  const RibbonButton* button = view->ribbon().Button("SPRZEDAŻ.OKRES.OSTATNI");
  EXPECT_EQ(button->caption(), "Ostatni miesiąc");
  EXPECT_TRUE(button->isChecked());
  EXPECT_FALSE(view->ribbon().Button("SPRZEDAŻ.OKRES.WSZYSTKIE")->isChecked());
}

TEST_F(MainWindowTest, AListShowsItsModesAsARadioGroupAndItsFlagAsATick) {
  window->UserItem("SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.TRYBDRUKU_DUP");
  view->ribbon().OpenList("SPRZEDAŻ.DRUKUJ");
  int ticked = 0;
  for (QMenu* menu : view->findChildren<QMenu*>()) {
    for (QAction* action : menu->actions()) {
      if (!action->data().toString().contains("TRYBDRUKU")) continue;
      EXPECT_TRUE(action->isCheckable());
      ticked += action->isChecked();
      EXPECT_EQ(action->isChecked(), action->data().toString() == "SPRZEDAŻ.TRYBDRUKU_DUP");
    }
    menu->close();
  }
  EXPECT_EQ(ticked, 1);
}

TEST_F(MainWindowTest, TabsComeByTheirKeysFromWhereverTheFocusIs) {
  const std::pair<int, const char*> tabs[] = {{Qt::Key_F7, "KONTRAHENCI"}, {Qt::Key_F8, "TOWARYUSŁUGI"}, {Qt::Key_F6, "ZAKUP"},
                                              {Qt::Key_F9, "ZESTAWIENIA"}, {Qt::Key_F10, "SŁOWNIKI"},    {Qt::Key_F5, "SPRZEDAŻ"}};
  for (const auto& [key, tab] : tabs) {
    Key(key);
    EXPECT_EQ(Tab(), tab);
    EXPECT_TRUE(view->ribbon().Button(tab)->isChecked()) << tab;
  }
  Key(Qt::Key_F7);
  view->ribbon().FindField()->setFocus();
  Key(Qt::Key_F5);
  EXPECT_EQ(Tab(), "SPRZEDAŻ");
}

TEST_F(MainWindowTest, TheAltStateBeginsWhenAltAloneIsReleasedAndKeepsOtherKeysAway) {
  Key(Qt::Key_F7);
  const int row = view->list().CurrentRow();
  SendKey(view->list(), QEvent::KeyPress, Qt::Key_Alt);
  TypeKey(view->list(), Qt::Key_Tab, Qt::AltModifier);
  SendKey(view->list(), QEvent::KeyRelease, Qt::Key_Alt);
  EXPECT_FALSE(window->ribbon.AltState());
  TapAlt();
  EXPECT_TRUE(window->ribbon.AltState());
  view->list().setFocus();
  Key(Qt::Key_Escape);
  EXPECT_FALSE(window->ribbon.AltState());
  EXPECT_EQ(view->focusWidget(), &view->list());
  TapAlt();
  Key(Qt::Key_End);
  EXPECT_FALSE(window->ribbon.AltState());
  EXPECT_EQ(view->list().CurrentRow(), row);
}

TEST_F(MainWindowTest, LettersOfTheAltStatePressToolsChangeTabsAndAddRecords) {
  std::vector<std::string> forms;
  ui.on_modal = [&](Form& form) { forms.push_back(form.form_name()); };
  TapAlt();
  Key(Qt::Key_E, {}, "e");
  EXPECT_EQ(forms, std::vector<std::string>{"frm_Dok_sprzed"});
  TapAlt();
  Key(Qt::Key_3, {}, "3");
  EXPECT_EQ(Tab(), "KONTRAHENCI");
  EXPECT_TRUE(window->ribbon.AltState());  // the tools of the new tab show their letters
  Key(Qt::Key_E, {}, "e");
  EXPECT_EQ(forms.back(), "frm_Kontrahenci_");
  TapAlt();
  Key(Qt::Key_T, {}, "t");
  EXPECT_EQ(Tab(), "TOWARYUSŁUGI");
  EXPECT_EQ(forms.back(), "frm_TowUslugi_");
  EXPECT_FALSE(window->ribbon.AltState());
}

TEST_F(MainWindowTest, EveryLetterStandsOnceAndNoneIsTheStartOfAnother) {
  for (const char* tab : {"SPRZEDAŻ", "ZAKUP", "KONTRAHENCI", "TOWARYUSŁUGI", "ZESTAWIENIA", "SŁOWNIKI"}) {
    window->UserTab(tab);
    Turn();
    const std::vector<KeyTip> tips = view->ribbon().KeyTips();
    EXPECT_GT(tips.size(), 8u) << tab;
    for (const KeyTip& tip : tips) {
      for (const KeyTip& other : tips) {
        EXPECT_TRUE(&tip == &other || !other.letters.startsWith(tip.letters)) << tab << " " << tip.letters.toStdString();
      }
    }
  }
}

TEST_F(MainWindowTest, TheCurrentRowMovesByKeysAndStaysInView) {
  Key(Qt::Key_F7);
  Key(Qt::Key_End);
  EXPECT_EQ(view->list().CurrentRow(), kCustomers);
  const int last_first = window->list.first_row, page = window->ViewTable()->TABLE_ROWS();
  EXPECT_GT(last_first, 1);
  EXPECT_LE(kCustomers - last_first, page);
  Key(Qt::Key_PageUp);
  EXPECT_EQ(view->list().CurrentRow(), kCustomers - page);
  Key(Qt::Key_Home);
  EXPECT_EQ(view->list().CurrentRow(), 1);
  EXPECT_EQ(window->list.first_row, 1);
  Key(Qt::Key_Down);
  Key(Qt::Key_Right);
  Key(Qt::Key_Up);
  EXPECT_EQ(view->list().CurrentRow(), 2);
  std::string opened;
  ui.on_modal = [&](Form& form) { opened = form.form_name(); };
  Key(Qt::Key_Return);
  EXPECT_EQ(opened, "frm_Kontrahenci_");
}

TEST_F(MainWindowTest, ARowIsChosenByAClickAndOpenedByADoubleClick) {
  Key(Qt::Key_F7);
  const auto cell = [&](int row) {
    const TableCell& first = window->ViewTable()->cells().front();
    return QPoint(20, first.top + (row - 1) * (first.bottom - first.top + 2) + 4);
  };
  ClickAt(view->list(), cell(4));
  Turn();
  EXPECT_EQ(view->list().CurrentRow(), 4);
  ClickAt(view->list(), QPoint(view->list().width() - 30, cell(6).y()));
  Turn();
  EXPECT_EQ(view->list().CurrentRow(), 6);
  std::string opened;
  ui.on_modal = [&](Form& form) { opened = form.form_name(); };
  SendMouse(view->list(), QEvent::MouseButtonDblClick, cell(5));
  Turn();
  EXPECT_EQ(opened, "frm_Kontrahenci_");
  EXPECT_EQ(view->list().CurrentRow(), 5);
}

TEST_F(MainWindowTest, AHeadSortsByAClickAndItsBorderWidensTheColumn) {
  Key(Qt::Key_F7);
  ClassQDBASE& table = *window->ViewTable();
  const auto name_cell = [&] {
    for (const TableCell& cell : table.cells()) {
      if (table.FIELD_NAME(cell.field) == "NAZWA") return cell;
    }
    return TableCell();
  };
  const TableCell cell = name_cell();
  const auto first = [&] { return table.CellText(1, cell.field, window->list.Look()); };
  ClickAt(view->list(), {cell.left + 30, 6});
  Turn();
  EXPECT_EQ(first(), "Odbiorca 101");
  ClickAt(view->list(), {cell.left + 30, 6});
  Turn();
  EXPECT_EQ(first(), "Odbiorca " + std::to_string(100 + kCustomers));
  const int before = table.ColumnWidth(cell.field);
  const QPoint border(cell.right + 1 + ListView::kInset, 6);
  SendMouse(view->list(), QEvent::MouseButtonPress, border);
  SendMouse(view->list(), QEvent::MouseMove, border + QPoint(60, 0));
  SendMouse(view->list(), QEvent::MouseButtonRelease, border + QPoint(60, 0));
  Turn();
  EXPECT_GT(table.ColumnWidth(cell.field), before + 30);
  EXPECT_EQ(first(), "Odbiorca " + std::to_string(100 + kCustomers));  // a drag does not sort
}

TEST_F(MainWindowTest, TheColumnThatOrdersTheListBearsAMark) {
  Key(Qt::Key_F7);
  ClassQDBASE& table = *window->ViewTable();
  EXPECT_EQ(window->list.Order().first, 0);
  const TableCell cell = table.cells()[1];
  const auto marks = [&] {  // dark pixels at the upper edge of each heading
    const QImage image = view->list().grab().toImage();
    const double scale = image.devicePixelRatio();
    int dark = 0;
    for (int x = 0; x < image.width(); ++x) dark += qGray(image.pixel(x, static_cast<int>(4 * scale))) < 150;
    return dark;
  };
  EXPECT_EQ(marks(), 0);
  const QPoint head((cell.left + cell.right) / 2, 10);
  ClickAt(view->list(), head);
  Turn();
  EXPECT_EQ(window->list.Order(), (std::pair<int, int>{cell.column, ordAsc}));
  EXPECT_GT(marks(), 1);
  ClickAt(view->list(), head);
  EXPECT_EQ(window->list.Order(), (std::pair<int, int>{cell.column, ordDesc}));
  window->UserTab("SPRZEDAŻ");
  window->UserSortByColumn(2);
  EXPECT_EQ(window->list.Order().first, 2);
  window->UserCommand("SPRZEDAŻ.OKRES.WSZYSTKIE");  // lists the documents as they were entered
  EXPECT_EQ(window->list.Order().first, 0);
}

TEST_F(MainWindowTest, TheWheelZoomsTheListAndAColumnKeepsItsWidthUntilTheNextStart) {
  Key(Qt::Key_F7);
  const int rows = window->ViewTable()->TABLE_ROWS();
  const auto roll = [&](int notches) {
    const QPointF at(200, 200);
    QWheelEvent event(at, view->list().mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(&view->list(), &event);
    Turn();
  };
  roll(3);
  EXPECT_NEAR(window->list.zoom(), 1.3, 1e-9);
  EXPECT_LT(window->ViewTable()->TABLE_ROWS(), rows);
  roll(-3);
  EXPECT_EQ(window->ViewTable()->TABLE_ROWS(), rows);
  const int field = window->ViewTable()->columns()[2];
  window->ViewTable()->ColumnWidth(field, 173);
  window->ribbon.Repaint = nullptr;
  view.reset();
  startup.Stop();
  ui.ended = false;
  Program again(company_->platform.platform);
  Startup second(again);
  second.Start("");
  EXPECT_EQ(Table(again, kKontrahenci).ColumnWidth(field), 173);
  Table(again, kKontrahenci).ColumnWidth(field, 100);
  second.Stop();
  view = nullptr;
}

TEST_F(MainWindowTest, TheListIsATableToThoseWhoCannotSeeIt) {
  Key(Qt::Key_F7);
  Key(Qt::Key_Down);
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&view->list());
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->role(), QAccessible::Table);
  EXPECT_EQ(list->text(QAccessible::Name), "Kontrahenci");
  QAccessibleTableInterface* table = list->tableInterface();
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->rowCount(), kCustomers);
  int name = 0;
  while (name < table->columnCount() && table->columnDescription(name) != "Nazwa") ++name;
  ASSERT_LT(name, table->columnCount());
  QAccessibleInterface* cell = table->cellAt(1, name);
  ASSERT_NE(cell, nullptr);
  EXPECT_EQ(cell->role(), QAccessible::Cell);
  EXPECT_EQ(cell->text(QAccessible::Name), "Odbiorca 102");
  EXPECT_TRUE(cell->state().selected);
  EXPECT_EQ(table->selectedRows(), QList<int>{1});
  EXPECT_EQ(list->focusChild(), table->cellAt(1, 0));
  const QPoint middle = cell->rect().center();
  EXPECT_EQ(list->childAt(middle.x(), middle.y()), cell) << "found again where it stands";
  EXPECT_EQ(list->child(list->indexOfChild(cell)), cell);
  EXPECT_TRUE(table->selectRow(4));
  Turn();
  EXPECT_EQ(view->list().CurrentRow(), 5);
  Key(Qt::Key_End);
  EXPECT_EQ(list->indexOfChild(cell), -1) << "scrolled away";
  EXPECT_TRUE(cell->rect().isEmpty());
  EXPECT_EQ(table->cellAt(kCustomers, 0), nullptr);
}

TEST_F(MainWindowTest, EveryToolHasANameARoleAndAVisibleFocus) {
  for (const char* tab : {"SPRZEDAŻ", "ZAKUP", "KONTRAHENCI", "TOWARYUSŁUGI", "ZESTAWIENIA", "SŁOWNIKI"}) {
    window->UserTab(tab);
    Turn();
    for (QAbstractButton* child : view->ribbon().findChildren<QAbstractButton*>()) {
      auto* button = dynamic_cast<RibbonButton*>(child);
      if (!button || !button->isVisible()) continue;
      const std::string name = button->accessibleName().toStdString();
      EXPECT_FALSE(name.empty()) << tab;
      QAccessibleInterface* access = QAccessible::queryAccessibleInterface(button);
      ASSERT_NE(access, nullptr);
      EXPECT_TRUE(access->role() == QAccessible::Button || access->role() == QAccessible::CheckBox ||
                  access->role() == QAccessible::PushButton)
          << name;
      EXPECT_NE(button->focusPolicy() & Qt::TabFocus, 0) << name;
      if (!button->isEnabled()) continue;
      const QImage before = button->grab().toImage();
      button->setFocus(Qt::TabFocusReason);
      EXPECT_NE(button->grab().toImage(), before) << name << " does not show its focus";
    }
  }
}

TEST_F(MainWindowTest, TheFindFieldRunsWithEnterAndItsTextStaysWithItsTab) {
  Key(Qt::Key_F7);
  QLineEdit* field = view->ribbon().FindField();
  ASSERT_NE(field, nullptr);
  field->setFocus();
  field->setText("133");
  Key(Qt::Key_Return);
  EXPECT_EQ(window->ViewTable()->MAX_ROWS(), 1);
  Key(Qt::Key_F8);
  EXPECT_EQ(window->ribbon.FindText(), "");
  Key(Qt::Key_F7);
  EXPECT_EQ(window->ribbon.FindText(), "133");
}

TEST_F(MainWindowTest, AToolWhoseFunctionIsNotPartOfThisVersionIsDisabledAndSaysSo) {
  int checked = 0;
  for (const Command& command : AllCommands()) {
    const RibbonButton* button = view->ribbon().Button(command.key);
    if (!button) continue;
    EXPECT_EQ(button->isEnabled(), IsBuilt(command)) << command.key;
    EXPECT_EQ(button->toolTip() == look.Text("common.notbuilt"), !IsBuilt(command)) << command.key;
    EXPECT_FALSE(button->accessibleName().isEmpty()) << command.key;
    ++checked;
  }
  EXPECT_GT(checked, 40);
}

TEST_F(MainWindowTest, ACompanyOpenedAgainShowsAllAndTicksNothing) {
  window->UserTab("SPRZEDAŻ");
  window->UserCommand("SPRZEDAŻ.OKRES.DZISIAJ");
  EXPECT_EQ(window->ViewTable()->MAX_ROWS(), 0);
  EXPECT_TRUE(window->list.Filtered());
  window->UserTab("KONTRAHENCI");
  window->UserCommand("KONTRAHENCI.SELEKCJA.ALFABET.A-D");
  EXPECT_TRUE(window->ribbon.ButtonChecked("KONTRAHENCI.SELEKCJA.ALFABET.A-D"));
  window->ribbon.FindText("102");
  window->UserCommand("KONTRAHENCI.SELEKCJA.ZNAJDŹ");
  EXPECT_FALSE(window->ribbon.ButtonChecked("KONTRAHENCI.SELEKCJA.ALFABET.A-D"));
  EXPECT_EQ(window->ViewTable()->MAX_ROWS(), 1);
  bool ok = false;
  OSTEngine(program).open_(false, ok);
  ASSERT_TRUE(ok);
  window->UserTab("SPRZEDAŻ");
  EXPECT_EQ(window->ViewTable()->MAX_ROWS(), 2);
  EXPECT_FALSE(window->ribbon.ButtonChecked("SPRZEDAŻ.OKRES.DZISIAJ"));
  EXPECT_FALSE(window->list.Filtered());
}

TEST_F(MainWindowTest, InsertAddsAndEnterEditsWhatTheTabShows) {
  std::string opened;
  ui.on_modal = [&](Form& form) { opened = form.form_name(); };
  const struct {
    const char *tab, *form;
  } rows[] = {{"SPRZEDAŻ", "frm_Dok_sprzed"}, {"KONTRAHENCI", "frm_Kontrahenci_"}, {"TOWARYUSŁUGI", "frm_TowUslugi_"}, {"ZESTAWIENIA", ""}};
  for (const auto& row : rows) {
    window->UserTab(row.tab);
    Turn();
    for (const int key : {Qt::Key_Insert, Qt::Key_Return}) {
      opened.clear();
      TypeKey(view->list(), key);
      EXPECT_EQ(opened, row.form) << row.tab << " " << key;
    }
  }
}

TEST_F(MainWindowTest, NothingInTheWindowIsCutOffAtItsLeastWidth) {
  view->resize(view->minimumSize());
  for (const char* tab : {"SPRZEDAŻ", "ZAKUP", "KONTRAHENCI", "TOWARYUSŁUGI", "ZESTAWIENIA", "SŁOWNIKI"}) {
    window->UserTab(tab);
    Turn();
    EXPECT_LE(view->ribbon().NaturalWidth(), view->ribbon().width()) << tab;
    for (const QAbstractButton* child : view->ribbon().findChildren<QAbstractButton*>()) {
      const auto* button = dynamic_cast<const RibbonButton*>(child);
      if (!button) continue;
      EXPECT_FALSE(button->caption().startsWith('%')) << button->caption().toStdString();
    }
  }
}

TEST_F(MainWindowTest, ClosingTheWindowStoresItsPlaceAndEndsTheProgram) {
  view->setGeometry(33, 44, 1150, 700);
  view->close();
  EXPECT_TRUE(ui.ended);
  EXPECT_FALSE(program.database_open);
  EXPECT_EQ(program.settings.Integer(kOstrinka, "Windows\\MDI", "Width", 0), 1150);
  EXPECT_EQ(program.settings.Integer(kOstrinka, "Windows\\MDI", "Left", 0), 33);
}

}  // namespace
}  // namespace ostrinka
