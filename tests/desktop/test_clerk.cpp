#include <QLineEdit>

#include "desktop/clerk.h"
#include "sales/line_form.h"
#include "sales/sales_form.h"

namespace ostrinka {
namespace {

constexpr int kMostStrokes = 55;

class SalesClerkTest : public ClerkTest {
 protected:
  void SetUp() override {
    ClerkTest::SetUp();
    for (const char* name : {"Apteka Pod Różą", "Hotel Nad Wisłą", "Zajazd Bocian"}) AddCustomer(name, kTransfer14);
    for (const char* name : {"Stół dębowy", "Krzesło dębowe", "Regał sosnowy", "Komoda bukowa", "Ława jesionowa", "Drzwi lite"}) {
      AddArticle(name, 100, 122);
    }
    OpenWindow();
  }
  void NewInvoice() {
    Press(Qt::Key_Alt);
    Type("f");
  }
  // One line of the catalogue: four letters and two digits.
  void Line(const QString& letters, const QString& count) {
    Press(Qt::Key_Insert);
    Type(letters);
    Press(Qt::Key_Return);
    Type(count);
    Press(Qt::Key_Return);
  }
  void Save() { Press(Qt::Key_Return, Qt::ControlModifier); }
  int Lines() {
    ClassQDBASE& lines = Table(program, kSprzedane);
    lines.SELECTION("*", "*", "", ordAsc);
    return lines.MAX_ROWS();
  }
};

TEST_F(SalesClerkTest, AnInvoiceOfFiveLinesTakesAtMostFiftyFiveStrokes) {
  NewInvoice();
  Then([&] { EXPECT_EQ(Focus(), "txtKontrahent"); });
  Type("hote");
  const std::pair<const char*, const char*> lines[] = {{"stół", "12"}, {"krze", "24"}, {"rega", "36"}, {"komo", "48"}, {"ława", "60"}};
  for (const auto& [letters, count] : lines) Line(letters, count);
  Save();
  const int strokes = Work();
  EXPECT_LE(strokes, kMostStrokes);
  EXPECT_GE(strokes, 40) << "they were really typed";
  EXPECT_TRUE(platform.ui.messages.empty());
  ASSERT_EQ(Table(program, kDokSprzed).RECORD_COUNT(), 1);
  EXPECT_EQ(Stored(kDokSprzed, 1, "@KONTRAHENT"), "Hotel Nad Wisłą");
  EXPECT_EQ(Stored(kDokSprzed, 1, "WARTOSC_NETTO"), "18000");
  ASSERT_EQ(Lines(), 5);
  const char* counts[] = {"12", "24", "36", "48", "60"};
  for (int32_t line = 1; line <= 5; ++line) EXPECT_EQ(Stored(kSprzedane, line, "ILOSC"), counts[line - 1]);
  EXPECT_EQ(Stored(kSprzedane, 5, "@NAZWA_T_U"), "Ława jesionowa");
  EXPECT_EQ(view->list().CurrentRow(), 1) << "the new document is the current one";
}

TEST_F(SalesClerkTest, TheLineDialogStartsInTheSearchAndHandsOverToTheQuantity) {
  NewInvoice();
  Press(Qt::Key_Insert);
  Then([&] {
    EXPECT_EQ(Focus(), "txtTU");
    EXPECT_FALSE(front_form->FindButton("btnOK")->Enabled()) << "nothing is picked yet";
  });
  Type("d");  // three articles: the first found counts as picked, arrows move on
  Press(Qt::Key_Down);
  Press(Qt::Key_Return);
  Then([&] {
    EXPECT_EQ(Focus(), "txtIlość");
    EXPECT_EQ(static_cast<QLineEdit*>(front->focusWidget())->selectedText(), "1");
  });
  Type("7");
  Press(Qt::Key_Return);
  Then([&] { EXPECT_EQ(front_form->form_name(), "frm_Dok_sprzed") << "Enter confirms the line"; });
  Save();
  Work();
  ASSERT_EQ(Lines(), 1);
  EXPECT_EQ(Stored(kSprzedane, 1, "@NAZWA_T_U"), "Krzesło dębowe");
  EXPECT_EQ(Stored(kSprzedane, 1, "ILOSC"), "7");
}

TEST_F(SalesClerkTest, LinesAreEditedAndRemovedByKeysAndEnterNeverSaves) {
  NewInvoice();
  Type("zaja");
  Line("rega", "10");
  Line("komo", "20");
  Press(Qt::Key_F2);  // the last line is the current one
  Then([&] { EXPECT_EQ(Focus(), "txtIlość"); });
  Type("21");
  Press(Qt::Key_Return);
  Press(Qt::Key_Return);
  Press(Qt::Key_Return);
  Then([&] { EXPECT_EQ(Table(program, kDokSprzed).RECORD_COUNT(), 0) << "Enter moves on"; });
  Then([&] { platform.ui.answers = {Answer::kYes}; });
  Press(Qt::Key_Delete);
  Save();
  Work();
  EXPECT_EQ(Lines(), 1);
  EXPECT_EQ(Stored(kSprzedane, 1, "ILOSC"), "10");
  EXPECT_EQ(Stored(kSprzedane, 2, "ILOSC"), "21");
  EXPECT_FALSE(Table(program, kSprzedane).RECORD_EXIST(2));
  EXPECT_EQ(Stored(kDokSprzed, 1, "WARTOSC_NETTO"), "1000");
}

TEST_F(SalesClerkTest, LeavingAsksWhenSomethingWasTypedAndSaysThatLinesStay) {
  NewInvoice();
  Press(Qt::Key_Escape);
  Then([&] {
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "nothing was typed";
    EXPECT_TRUE(platform.ui.messages.empty());
  });
  NewInvoice();
  Type("zaja");
  Press(Qt::Key_Escape);  // answered with no
  Then([&] {
    ASSERT_EQ(platform.ui.messages.size(), 1u);
    EXPECT_EQ(platform.ui.messages[0].second, MessageKind::kQuestion);
    EXPECT_NE(platform.ui.messages[0].first.find("pozostaną"), std::string::npos) << platform.ui.messages[0].first;
    ASSERT_NE(front, nullptr);
    platform.ui.answers = {Answer::kYes};
  });
  Press(Qt::Key_Escape);
  Work();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(Table(program, kDokSprzed).RECORD_COUNT(), 0);
}

TEST_F(SalesClerkTest, ACustomerWithoutANameIsNotSavedAndTheFieldFlashes) {
  Press(Qt::Key_Alt);
  Type("k");
  bool flashed = false;
  Then([&] {
    EXPECT_EQ(Focus(), "txtNazwa");
    auto* name = static_cast<TextBoxControl*>(front_form->Find("txtNazwa"));
    name->Repaint += [&flashed, name] { flashed = flashed || name->BackColorIndex != 0; };
  });
  Save();
  Then([&] { EXPECT_TRUE(front_form->IsOpen()); });
  Type("Nowy");
  Save();
  Work();
  EXPECT_TRUE(flashed);
  EXPECT_EQ(Stored(kKontrahenci, Table(program, kKontrahenci).RECORD_COUNT(), "NAZWA"), "Nowy");
}

}  // namespace
}  // namespace ostrinka
