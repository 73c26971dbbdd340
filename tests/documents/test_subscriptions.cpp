#include "documents/subscriptions.h"
#include "documents/trade.h"

namespace ostrinka {

class SubscriptionTest : public Trade {
 protected:
  int32_t AddSubscription(const std::string& end, int32_t days, bool hidden = false, bool ends = true) {
    const int32_t document = AddDocument(kInvoice, "2008-01-01", 5, new_document_id(program));
    Change(kDokSprzed, document,
           {{"ABN_KONIEC", ends},
            {"ABN_HIDE", hidden},
            {"ABN_KONIEC_DATA", Day(end)},
            {"ABN_KONIEC_DNI", days},
            {"DATA_SPRZEDAZY", Day("2008-01-01")},
            {"FORMA_PLATNOSCI", kTransfer7}});
    return document;
  }
};

TEST_F(SubscriptionTest, ATaskIsDueFromSoManyDaysBeforeTheEnd) {
  platform.clock.now = Day("2008-03-05").PlusDays(0);
  const int32_t due = AddSubscription("2008-03-12", 7);
  AddSubscription("2008-03-13", 7);
  const int32_t always = AddSubscription("9999-12-31", INT32_MAX);
  const int32_t past = AddSubscription("2007-01-01", 7);
  AddSubscription("2008-03-06", 7, /*hidden=*/true);
  AddSubscription("2008-03-06", 7, false, /*ends=*/false);
  EXPECT_TRUE(Table(program, kDokSprzed).RECORD_DELETE(AddSubscription("2008-03-06", 7)));
  EXPECT_EQ(due_tasks(program), (std::vector<int32_t>{due, always, past}));
  EXPECT_EQ(due_task_count(program), 3);
  program.database_open = false;
  EXPECT_EQ(due_task_count(program), 0);
}

TEST_F(SubscriptionTest, AFollowUpIsACopyOfTodayWithItsOwnNumberAndLines) {
  const int32_t source = AddSubscription("2008-03-31", 14);
  const int32_t article = AddArticle("Opieka", 100, 122);
  Change(kDokSprzed, source,
         {{"ZAPLACONO", true}, {"ZDFISK", true}, {"UWAGI", std::string("co kwartał")}, {"KOREKTA", int32_t{77}}, {"DOTYCZY", int32_t{78}}});
  const auto source_id = Table(program, kDokSprzed).Int("ID_DOK");
  AddStoredLine(source_id, article, "3", "100", "122", 10);
  bool paid = true;
  const int32_t copy = make_follow_up(program, source, kProForma, paid);
  ASSERT_GT(copy, source);
  const struct {
    const char *field, *text;
  } rows[] = {{"TYP", "2"},           {"NR_DOK", "6"},  {"ZAPLACONO", "False"}, {"ZDFISK", "False"}, {"UWAGI", "co kwartał"},
              {"ABN_KONIEC", "True"}, {"KOREKTA", "0"}, {"DOTYCZY", "0"}};
  for (const auto& row : rows) EXPECT_EQ(Stored(kDokSprzed, copy, row.field), row.text) << row.field;
  ClassQDBASE& documents = Table(program, kDokSprzed);
  documents.RECORD_LOAD(copy);
  EXPECT_EQ(documents.Day("DATA_WYSTAWIENIA"), Day("2008-03-05"));
  EXPECT_EQ(documents.Day("TERMIN_ZAPLATY"), Day("2008-03-12"));
  EXPECT_EQ(documents.Day("ABN_KONIEC_DATA"), Day("2008-03-05").PlusDays(90));
  const std::vector<int32_t> lines = LinesOf(program, documents.Int("ID_DOK"));
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(Stored(kSprzedane, lines[0], "WARTOSC_NETTO"), "270");
  EXPECT_EQ(LinesOf(program, source_id).size(), 1u);
}

TEST_F(SubscriptionTest, AFollowUpOfNothingIsNone) {
  bool paid = false;
  EXPECT_EQ(make_follow_up(program, 99, 0, paid), 0);
  EXPECT_EQ(Table(program, kDokSprzed).RECORD_COUNT(), 0);
}

}  // namespace ostrinka
