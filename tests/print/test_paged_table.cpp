// Tables on paper: widths, page breaks, tall rows, what stays together, sums carried onward.
#include <gtest/gtest.h>

#include "base/format.h"
#include "print/paged_table.h"
#include "print/sales_fixture.h"

namespace ostrinka {
namespace {

constexpr double kLowest = 297 - 15 - 3;  // nothing of a table stands lower

class PagedTableTest : public SalesFixture {
 protected:
  // A table of a number, a name and an amount; the amounts are 1, 2, 3 ...
  TableContent Amounts(size_t rows) {
    TableContent content;
    content.columns = {{"Lp.", "", true, 8}, {"Nazwa", "", false, 0, 0, true}, {"Kwota", "netto", true, 18}};
    content.rows = rows;
    content.cell = [](size_t row, size_t column) {
      if (column == 1) return "Pozycja " + std::to_string(row + 1);
      return std::to_string(row + 1) + (column == 2 ? ",00" : "");
    };
    content.totals = {{"Razem", {"", "", Sum(rows)}, true}};
    return content;
  }
  static std::string Sum(size_t rows) { return std::to_string(rows * (rows + 1) / 2) + ",00"; }

  // Draws from `top` of a first page on; where the cursor ended.
  double Draw(TableContent content, double top = 100, bool landscape = false) {
    PrintJob job = NewPrintJob(*program);
    PageFlow flow(job, {.landscape = landscape, .continuation = "Zestawienie"});
    flow.FirstPage();
    flow.y = top;
    PagedTable(flow, std::move(content)).Draw();
    return flow.y;
  }
  int PageOf(const std::string& text) {
    const std::vector<PlacedText> found = Whole(text);
    EXPECT_EQ(found.size(), 1u) << text;
    return found.empty() ? 0 : found[0].page;
  }
  std::vector<PlacedText> Whole(const std::string& text) {
    std::vector<PlacedText> found = Find(text);
    std::erase_if(found, [&](const PlacedText& at) { return at.text != text; });
    return found;
  }
  // Amounts of a page from above, by where they end.
  std::vector<std::string> Column(int page) {
    std::vector<std::string> column;
    for (const PlacedText& text : Texts()) {
      if (text.page == page && text.align == -1 && std::abs(text.right - 199) < 0.01) column.push_back(text.text);
    }
    return column;
  }
};

TEST_F(PagedTableTest, TheHeadStandsOnEveryPageAndEachCellIsAskedForOnce) {
  std::map<std::pair<size_t, size_t>, int> asked;
  TableContent content = Amounts(120);
  content.cell = [&asked, cell = content.cell](size_t row, size_t column) {
    ++asked[{row, column}];
    return cell(row, column);
  };
  Draw(content);
  ASSERT_GE(Job().Page(), 3);
  ExpectCleanPages();
  for (int page = 1; page <= Job().Page(); ++page) {
    const PlacedText head = Only("Nazwa", page), first = Only("Kwota", page), second = Only("netto", page);
    EXPECT_EQ(head.top, first.top);
    EXPECT_EQ(first.left, second.left);
    EXPECT_GT(second.top, first.top);
    EXPECT_EQ(Whole("Zestawienie").size(), static_cast<size_t>(Job().Page() - 1));
  }
  EXPECT_EQ(asked.size(), 360u);
  for (const auto& [cell, times] : asked) EXPECT_EQ(times, 1) << cell.first << " " << cell.second;
  EXPECT_EQ(Whole("Pozycja 120").size(), 1u);
}

TEST_F(PagedTableTest, ARowTallerThanAPageGoesOnOnTheNext) {
  std::string tall;
  for (int line = 1; line <= 150; ++line) tall += "wiersz " + std::to_string(line) + "\r\n";
  TableContent content = Amounts(3);
  content.cell = [&, cell = content.cell](size_t row, size_t column) { return row == 1 && column == 1 ? tall : cell(row, column); };
  Draw(content, 200);
  ASSERT_GE(Job().Page(), 3);
  ExpectCleanPages();
  EXPECT_EQ(PageOf("Pozycja 1"), 1);
  EXPECT_EQ(PageOf("wiersz 1"), 1);  // it begins where there is room
  int last_page = 1;
  double last_top = 0;
  for (int line = 1; line <= 150; ++line) {
    const std::vector<PlacedText> found = Whole("wiersz " + std::to_string(line));
    ASSERT_EQ(found.size(), 1u) << line;
    EXPECT_LE(found[0].bottom, kLowest + 0.01) << line;
    EXPECT_TRUE(found[0].page > last_page || found[0].top > last_top) << line;
    EXPECT_GE(found[0].page, last_page) << line;
    last_page = found[0].page;
    last_top = found[0].top;
  }
  EXPECT_EQ(last_page, Job().Page());
  EXPECT_EQ(PageOf("2,00"), 1);  // the figures of the row stand at its beginning
  EXPECT_EQ(PageOf("Pozycja 3"), last_page);
  for (int page = 1; page <= last_page; ++page) Only("Kwota", page);

  // A row that a whole page holds is not torn.
  std::string half;
  for (int line = 1; line <= 30; ++line) half += "linia " + std::to_string(line) + "\r\n";
  content.cell = [&, cell = Amounts(3).cell](size_t row, size_t column) { return row == 1 && column == 1 ? half : cell(row, column); };
  Draw(content, 200);
  EXPECT_EQ(PageOf("linia 1"), 2);
  EXPECT_EQ(PageOf("linia 30"), 2);
}

TEST_F(PagedTableTest, SumsAreCarriedOverEveryPageBreak) {
  TableContent content = Amounts(120);
  content.carried = [](size_t rows, bool onward) { return TotalRow{onward ? "Do przeniesienia" : "Z przeniesienia", {"", "", Sum(rows)}}; };
  Draw(content);
  const int pages = Job().Page();
  ASSERT_GE(pages, 3);
  ExpectCleanPages();
  size_t above = 0;
  for (int page = 1; page <= pages; ++page) {
    std::vector<std::string> column = Column(page);
    if (page > 1) {
      EXPECT_EQ(column.front(), Sum(above));
      EXPECT_GT(Only("Z przeniesienia", page).top, Only("Kwota", page).bottom);
      column.erase(column.begin());
    }
    const std::string last = column.back();
    column.pop_back();
    for (const std::string& amount : column) EXPECT_EQ(amount, std::to_string(++above) + ",00");
    EXPECT_EQ(last, Sum(above));
    if (page < pages) {
      EXPECT_LE(Only("Do przeniesienia", page).bottom, kLowest + 0.01);
    }
  }
  EXPECT_EQ(above, 120u);
  EXPECT_EQ(Find("przeniesienia").size(), static_cast<size_t>(2 * (pages - 1)));
  // A table of one page carries nothing.
  content = Amounts(5);
  content.carried = [](size_t, bool) { return TotalRow{"Do przeniesienia", {"", "", "1"}}; };
  Draw(content);
  EXPECT_TRUE(Find("przeniesienia").empty());
}

TEST_F(PagedTableTest, RowsThatStayTogetherAreNotPartedByAPage) {
  bool moved = false;
  for (size_t rows = 20; rows <= 45; ++rows) {
    TableContent content = Amounts(rows);
    content.stays_with_next = [rows](size_t row) { return row + 3 >= rows || row == 10; };
    content.under_totals = 30;
    const double end = Draw(content, 110);
    const std::string last = "Pozycja " + std::to_string(rows);
    EXPECT_EQ(PageOf("Pozycja 11"), PageOf("Pozycja 12")) << rows;
    EXPECT_EQ(PageOf("Pozycja " + std::to_string(rows - 2)), PageOf(last)) << rows;
    EXPECT_EQ(PageOf("Razem"), PageOf(last)) << rows;
    EXPECT_LE(end + 30, kLowest + 0.01) << rows;
    moved = moved || PageOf(last) == 2;
  }
  EXPECT_TRUE(moved);
  // Without the hook the last row alone stays with the totals.
  for (size_t rows = 20; rows <= 45; ++rows) {
    Draw(Amounts(rows), 110);
    EXPECT_EQ(PageOf("Razem"), PageOf("Pozycja " + std::to_string(rows))) << rows;
  }
  // More than a page holds does not stay together, and everything is printed.
  TableContent content = Amounts(90);
  content.stays_with_next = [](size_t) { return true; };
  Draw(content);
  EXPECT_EQ(Find("Pozycja").size(), 90u);
  ExpectCleanPages();
}

TEST_F(PagedTableTest, ColumnsTakeTheSheetThatTheyAreOn) {
  const double end = Draw(Amounts(60), 30, true);
  EXPECT_LE(end, 210 - 18 + 0.01);
  for (const PlacedText& text : Whole("60,00")) EXPECT_NEAR(text.right, 286, 0.01);
  for (const PageRecord& page : Job().pages()) EXPECT_GT(page.Width, page.Height);

  // Without a column that takes the rest the table is as narrow as its texts.
  TableContent narrow = Amounts(2);
  narrow.columns[1].takes_rest = false;
  Draw(narrow);
  EXPECT_LT(Only("Razem").right, 100);
  ExpectCleanPages();
  // More columns than the page has room for: those that break give way.
  TableContent many;
  many.columns.assign(9, {"Kol.", "", false, 0, 0, false});
  many.rows = 2;
  many.cell = [](size_t, size_t) { return std::string("Zakład Produkcyjno-Usługowy Łącznik w Ostrowie"); };
  Draw(many);
  ExpectCleanPages();
}

}  // namespace
}  // namespace ostrinka
