#include <gtest/gtest.h>

#include "base/text.h"
#include "support/script_session.h"

namespace ostrinka {
namespace {

TEST(IndividualAccountsSession, AreGivenFromTheCompanyDialogAndStandThereNextTime) {
  ScriptSession session;
  const std::string customers = "command KONTRAHENT.DODAJ\nset txtNazwa \"Hotel Nad Wisłą\"\nset txtMiejscowość Kazimierz\npress btnSave\n";
  const std::string dialog = "command SET.USR\npress btnKonta\n", leave = "press usr.aper.close\npress usr.btn.cancel\n";
  ASSERT_EQ(session.Run(kNewCompany + std::string(kCustomer) + customers + dialog +
                        "expect-rows SQL_Pic 2\nset txtZnajdź kazimierz\nexpect-rows SQL_Pic 1\nexpect txtKontoIndywidualne \"\"\n"
                        "set txtKontoIndywidualne \"77 1020\"\nlist SQL_Pic\nset txtZnajdź \"\"\nclick SQL_Pic 1 3\n"
                        "expect txtKontoIndywidualne \"\"\nclick SQL_Pic 2 3\nexpect txtKontoIndywidualne \"77 1020\"\n" +
                        leave),
            0)
      << session.error << session.out;
  EXPECT_TRUE(Contains(session.out, "Tak\t77 1020\tHotel Nad Wisłą")) << session.out;
  ASSERT_EQ(
      session.Run("start\n" + dialog + "set txtZnajdź \"77\"\nexpect-rows SQL_Pic 1\nset txtKontoIndywidualne \"\"\nset txtZnajdź \"\"\n" +
                  "list SQL_Pic\n" + leave),
      0)
      << session.error << session.out;
  EXPECT_FALSE(Contains(session.out, "Tak")) << session.out;
  EXPECT_EQ(session.Run("start\ncommand SET.USR\npress btnKonta\nset txtZnajdź nikt\nset txtKontoIndywidualne 1\n"), 2)
      << "there is nobody to give it to";
}

}  // namespace
}  // namespace ostrinka
