#include "engine/table_fixture.h"
#include "engine/table_view.h"
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
  EXPECT_TRUE(table->FIELD("NAZWA", Value(std::string("dwa\r\nwiersze"))));
  EXPECT_TRUE(table->FIELD("DATA", Value(0)));
  EXPECT_TRUE(table->RECORD_SAVE(1));
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
  EXPECT_TRUE(other->RECORD_DELETE(2));
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

TEST_F(TableViewTest, TwoViewsOfOneTableDoNotDisturbEachOther) {
  Drawn();
  const size_t cells = table->cells().size();
  TableView other(*table);
  other.ShowColumns("cena,brak,NAZWA");
  other.Format("CENA", {50, "Price", "0.0", false, 1});
  other.hide_current_row = true;
  RecordingCanvas second(300, 60);
  TableLook large = look;
  large.zoom = 2;
  other.Draw(second, 3, 1, true, large);
  EXPECT_THAT(other.columns(), ElementsAre(2, 1));
  ASSERT_EQ(other.cells().size(), 2u);
  EXPECT_EQ(other.cells()[0].right, 98);
  EXPECT_EQ(other.CellText(3, 2, look) + "|" + table->CellText(3, 2, look), "0,1|0,05");
  EXPECT_THAT(table->columns(), ElementsAre(1, 2, 4, 5));
  EXPECT_EQ(table->ColumnWidth(2), 70);
  EXPECT_EQ(table->ColumnTitle(2), "Cena");
  EXPECT_EQ(table->cells().size(), cells);
  EXPECT_FALSE(table->HideTSelectRow());
  // A click in one view makes the record that of the table, and leaves the cell of the other where it was.
  int l, t, w, h, status = 0;
  table->TABLE_CLICK(0, 130, table->cells()[0].top, l, t, w, h);
  const TableCell* hit = other.Click(other.cells()[1].left, other.cells()[1].top);
  ASSERT_TRUE(hit);
  EXPECT_EQ(table->RECORD_POSITION(), 3);
  EXPECT_EQ(other.clicked_field(), 1);
  EXPECT_EQ(table->clicked_field(), 2);
  EXPECT_EQ(table->CELL_GOTO(2, l, t, w, h), 0);
  EXPECT_EQ(table->RECORD_POSITION(), 2) << "below the cell that was clicked in this view";
  EXPECT_EQ(other.Go(4, status)->field, 2);
  // A copy starts as its model; a field that goes leaves every view.
  TableView copy(table->view());
  EXPECT_EQ(copy.FormatOf(1).title, "Nazwa");
  copy.Width(1, 33);
  EXPECT_EQ(table->ColumnWidth(1), 120);
  ASSERT_TRUE(table->FIELD_DELETE("USLUGA"));
  copy.Draw(second, 1, 1, true, look);
  EXPECT_THAT(copy.columns(), ElementsAre(1, 2, 4));
}

TEST_F(TableViewTest, WhereCellsAreDrawnIsWhereTheGeometrySaysThatTheyLie) {
  for (const double zoom : {1.0, 1.125, 0.63}) {
    look.zoom = zoom;
    look.widen = 1.3;
    look.widths = {101, 55};  // of the first two columns; the others as they are kept
    Drawn(2, 1, zoom != 1.125);
    const GridGeometry& grid = table->view().grid();
    GridSurface room;
    room.row_height = grid.row_height();
    room.heads = zoom != 1.125;
    room.left = 6;
    const GridGeometry shifted = table->view().Layout(look, room, 1);
    ASSERT_EQ(shifted.columns().size(), 4u);
    for (const TableCell& cell : table->cells()) {
      const ColumnSpan* span = shifted.Numbered(cell.column);
      ASSERT_TRUE(span);
      EXPECT_EQ(span->left - 6, cell.left);
      EXPECT_EQ(span->width, cell.right + 2 - cell.left);
      const int row = table->view().RowsAbove(cell.record, 2, 10);
      EXPECT_EQ(shifted.RowTop(row), cell.top) << cell.record;
      EXPECT_EQ(table->view().CellAt(cell.left, cell.bottom + 1), &cell);
    }
    EXPECT_EQ(shifted.columns()[0].width, static_cast<int>(zoom * static_cast<int>(101 * 1.3)));
    EXPECT_EQ(shifted.columns()[2].width, static_cast<int>(zoom * static_cast<int>(90 * 1.3)));
    EXPECT_EQ(shifted.BorderAt(shifted.columns()[1].left, 3)->column, 1) << "the border left of it";
    EXPECT_FALSE(shifted.ColumnAt(5));
    EXPECT_EQ(table->ColumnWidth(1), 120) << "what is kept stays";
  }
  EXPECT_EQ(table->view().RowsAbove(1, 2, 10), -1) << "above the first row on show";
  EXPECT_EQ(table->view().RowsAbove(5, 2, 3), -1) << "below the last";
  ASSERT_TRUE(Open(path)->RECORD_DELETE(3));
  EXPECT_EQ(table->view().RowsAbove(5, 2, 3), 2) << "a record that is gone takes no row";
}

}  // namespace
}  // namespace ostrinka
