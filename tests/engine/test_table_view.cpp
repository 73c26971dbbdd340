#include "controls/form.h"
#include "engine/table_fixture.h"
#include "platform/recording_canvas.h"

namespace ostrinka {
namespace {

class TableViewTest : public TableTest {
 protected:
  std::unique_ptr<ClassQDBASE> table;
  RecordingCanvas canvas{500, 200};
  TableLook look;

  void SetUp() override {
    table = FilledGoods();
    table->TABLE_FIELD_FORMAT("NAZWA", 120, "Nazwa", "", false, 1);
    table->TABLE_FIELD_FORMAT("@cena", 70, "Cena", "0.00", false, -1);
    table->TABLE_FIELD_FORMAT(4, 90, "Data", "dd-mm-yyyy", false, 0);
    table->SELECTION("NAZWA, CENA, DATA, USLUGA", "*", "", ordAsc);
  }
  std::vector<std::string> Drawn(int first_row = 1, int first_column = 1, bool header = true) {
    canvas.Clear();
    table->TABLE_DRAW(canvas, first_row, first_column, header, look);
    std::vector<std::string> texts;
    for (const auto& call : canvas.calls()) {
      if (call.kind == RecordingCanvas::Call::Kind::kText) texts.push_back(call.text);
    }
    return texts;
  }
};

TEST_F(TableViewTest, DrawsTitlesAndFormattedCells) {
  EXPECT_THAT(Drawn(4),
              ElementsAre("Nazwa", "Cena", "Data", "Zamek", "99,99", "31-12-2007", "Nie", "Montaż", "150,00", "05-03-2008", "Tak"));
  EXPECT_THAT(Drawn(5, 0, false), ElementsAre("5", "Montaż", "150,00", "05-03-2008", "Tak"));
  table->TABLE_FIELD_FORMAT("CENA", 70, "Cena", "#1", false, -1);
  EXPECT_EQ(table->CellText(4, 2, look), "99,9") << "cut, not rounded";
  EXPECT_EQ(table->CellText(6, 2, look), "");
  table->RECORD_LOAD(1);
  table->FIELD("NAZWA", Value(std::string("dwa\r\nwiersze")));
  table->FIELD("DATA", Value(0));
  table->RECORD_SAVE(1);
  EXPECT_EQ(table->CellText(1, 1, look), "dwa wiersze");
  EXPECT_EQ(table->CellText(1, 4, look), "");
}

TEST_F(TableViewTest, CellsLieSideBySideAndTextsWithinThem) {
  Drawn();
  ASSERT_EQ(table->cells().size(), 20u);
  const TableCell& first = table->cells()[0];
  const TableCell& price = table->cells()[1];
  const TableCell& below = table->cells()[4];
  const int row = below.top - first.top;
  EXPECT_EQ(first.left, 0);
  EXPECT_EQ(first.right, 118);
  EXPECT_EQ(price.left, 120);
  EXPECT_EQ(price.right, 188);
  EXPECT_EQ(first.top, row + 5) << "below the titles";
  EXPECT_EQ(first.bottom, first.top + row - 2);
  EXPECT_EQ(table->TABLE_ROWS(), 200 / row - 1);
  EXPECT_EQ(table->TABLE_COLUMN(119, 3), 1);
  EXPECT_EQ(table->TABLE_COLUMN(120, 3), 2);
  EXPECT_EQ(table->TABLE_COLUMN(480, 3), -1);
  for (const auto& call : canvas.calls()) {
    if (call.kind != RecordingCanvas::Call::Kind::kText) continue;
    if (call.text == "Łopata") {
      EXPECT_EQ(call.area.left, 2);
    }
    if (call.text == "12,50") {
      EXPECT_NEAR(call.area.left + canvas.TextWidth("12,50", call.font), price.right - 2, 0.01);
    }
  }
}

TEST_F(TableViewTest, AFigureTooWideForItsColumnIsMarked) {
  table->ColumnWidth(2, 30);
  table->ColumnWidth(1, 35);
  const auto texts = Drawn(1, 1, false);
  EXPECT_EQ(texts[1].find("12,50"), std::string::npos);
  EXPECT_THAT(texts[1], testing::EndsWith("…"));
  EXPECT_THAT(texts[0], testing::AllOf(testing::StartsWith("Ł"), testing::EndsWith("…")));
}

TEST_F(TableViewTest, OnlyVisibleRowsAreReadAndDeletedOnesLeftOut) {
  auto other = Open(path);
  other->RECORD_DELETE(2);
  Drawn();
  EXPECT_EQ(table->cells().size(), 16u);
  canvas = RecordingCanvas(130, 40);
  EXPECT_THAT(Drawn(1, 1, false), ElementsAre("Łopata", testing::_, "Ćwiek", testing::_, "Zamek", testing::_));
  table->SELECTION("~", "!", "", ordAsc);
  EXPECT_THAT(Drawn(1, 1, false), IsEmpty());
  EXPECT_THAT(table->cells(), IsEmpty());
  EXPECT_GT(table->TABLE_ROWS(), 0);
  table->DATABASE_CLOSE();
  EXPECT_THAT(Drawn(), IsEmpty());
}

TEST_F(TableViewTest, ZoomIsClamped) {
  const auto height_at = [&](double zoom) {
    look.zoom = zoom;
    Drawn();
    return table->cells().at(0).bottom - table->cells().at(0).top;
  };
  EXPECT_EQ(height_at(20), height_at(10));
  EXPECT_EQ(height_at(0), height_at(0.1));
  EXPECT_GT(height_at(2), height_at(1));
}

TEST_F(TableViewTest, AClickMakesTheRecordCurrent) {
  Drawn();
  const TableCell cell = table->cells()[9];  // third row, second column
  int left = 0, top = 0, width = 0, height = 0;
  EXPECT_TRUE(table->TABLE_CLICK(0, cell.right + 1, cell.top, left, top, width, height));
  EXPECT_EQ(table->RECORD_POSITION(), 3);
  EXPECT_EQ(table->clicked_field(), 2);
  EXPECT_EQ(left, cell.left);
  EXPECT_EQ(top, cell.top);
  EXPECT_EQ(width, cell.right - cell.left);
  EXPECT_EQ(height, cell.bottom - cell.top);
  EXPECT_FALSE(table->TABLE_CLICK(0, 495, cell.top, left, top, width, height));
  EXPECT_FALSE(table->TABLE_CLICK(0, 5, 1, left, top, width, height));
  EXPECT_EQ(table->RECORD_POSITION(), 3);
  EXPECT_TRUE(table->TABLE_CLICK(1, 0, 0, left, top, width, height));
  EXPECT_EQ(top, table->cells()[17].top) << "the last entry of the clicked column";
}

TEST_F(TableViewTest, MovingFromCellToCell) {
  Drawn();
  int l, t, w, h;
  const struct {
    int direction, status;
    int32_t record;
  } steps[] = {
      {3, 5, 1}, {1, 1, 1}, {4, 0, 1}, {5, 0, 1}, {5, 0, 1}, {5, 0, 1}, {5, 7, 1},
      {2, 0, 2}, {7, 0, 2}, {4, 3, 1}, {6, 6, 5}, {2, 2, 5}, {1, 0, 4},
  };
  for (const auto& step : steps) {
    EXPECT_EQ(table->CELL_GOTO(step.direction, l, t, w, h), step.status) << step.direction;
    EXPECT_EQ(table->RECORD_POSITION(), step.record) << step.direction;
  }
  canvas = RecordingCanvas(100, 200);
  Drawn();
  table->CELL_GOTO(3, l, t, w, h);
  EXPECT_EQ(table->CELL_GOTO(5, l, t, w, h), 4) << "more columns than are on show";
}

class BoundForm : public Form {
 public:
  TextBoxControl txtNazwa, txtObca;
  ComboControl cmbGrupa;
  CheckBoxControl chkUsluga;
  CalendarControl calData;
  MemoControl lstPliki;
  BoundForm() : Form("frm_Test", "test.title") {
    Register("txtNazwa", txtNazwa);
    Register("cmbGrupa", cmbGrupa);
    Register("chkUsluga", chkUsluga);
    Register("calData", calData);
    Register("lstPliki", lstPliki);
  }
};

TEST_F(TableTest, ABoundFormShowsTheRecordAndGivesItBack) {
  auto groups = Create(surroundings.folder / "grupy.ovd");
  groups->FIELD_ADD("OPIS", kText, 10, "", "");
  for (const char* name : {"stal", "drewno", "szkło"}) groups->RECORD_ADD({std::string(name)});
  FilledGoods()->FIELD_ADD("GRUPA", kLink, 0, "grupy.ovd", "OPIS");
  auto table = Open(path, true);
  table->FIELD_ADD("PLIKI", kMemo, 0, "", "");
  table->RECORD_LOAD(2);
  table->FIELD("GRUPA", Value(2));
  table->RECORD_SAVE(2);
  groups->RECORD_DELETE(2);
  SetBytes(surroundings.folder / "a.txt", "x");
  table->RECORD_POSITION(5);
  ASSERT_TRUE(table->MEMO_ADD("PLIKI", surroundings.folder / "a.txt"));

  BoundForm form;
  table->FORM_OBJECT_ADD(form.txtNazwa, "NAZWA");  // not connected yet
  table->FORM_CONNECT(form);
  table->FORM_OBJECT_ADD(form.txtNazwa, "NAZWA");
  table->FORM_OBJECT_ADD(form.txtObca, "NAZWA");  // of no form
  table->FORM_OBJECT_ADD(form.cmbGrupa, "@GRUPA");
  table->FORM_OBJECT_ADD(form.chkUsluga, "USLUGA");
  table->FORM_OBJECT_ADD(form.calData, "DATA");
  table->FORM_OBJECT_ADD(form.lstPliki, "PLIKI");
  EXPECT_EQ(form.cmbGrupa.ListCount(), 3) << "an empty item and the live records";
  table->MOVE_LAST();
  EXPECT_EQ(form.txtNazwa.Text(), "Montaż");
  EXPECT_EQ(form.txtObca.Text(), "");
  EXPECT_TRUE(form.chkUsluga.Checked());
  EXPECT_EQ(form.calData.CurrentDate(), *Date::FromYmd(2008, 3, 5));
  EXPECT_EQ(form.cmbGrupa.Text(), "");
  ASSERT_EQ(form.lstPliki.items().size(), 1u);
  EXPECT_EQ(form.lstPliki.items()[0].name, "a.txt");

  form.txtNazwa.SetText("Serwis");
  form.chkUsluga.SetChecked(false);
  form.calData.SetCurrentDate(*Date::FromYmd(2008, 4, 1));
  form.cmbGrupa.SelectText("szkło");
  table->FORM_SAVE();
  ASSERT_TRUE(table->RECORD_SAVE(5));
  table->RECORD_LOAD(5);
  EXPECT_EQ(table->Text("NAZWA"), "Serwis");
  EXPECT_EQ(table->Text("DATA"), "2008-04-01");
  EXPECT_EQ(table->Int("GRUPA"), 3);
  EXPECT_FALSE(table->Flag("USLUGA"));

  // A link to a deleted record is neither lost on saving nor shown empty.
  table->MOVE_FIRST();
  EXPECT_TRUE(table->MOVE_NEXT());
  EXPECT_EQ(form.cmbGrupa.Text(), "drewno");
  table->FORM_SAVE();
  EXPECT_EQ(table->Int("GRUPA"), 2);
  table->FORM_DISCONNECT();
  EXPECT_EQ(form.txtNazwa.Text(), "");
  table->MOVE_FIRST();
  EXPECT_EQ(form.txtNazwa.Text(), "");
}

}  // namespace
}  // namespace ostrinka
