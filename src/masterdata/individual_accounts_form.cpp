#include "masterdata/individual_accounts_form.h"

#include <algorithm>

#include "base/text.h"
#include "books/rows.h"
#include "engine/find_filter.h"
#include "forms/form_helpers.h"

namespace ostrinka {
namespace {

constexpr char kShownFields[] = "KONTO_INDYW_OK, KONTO_INDYW_RACH, NAZWA, NIP, ULICA, NR_DOMU, NR_LOKALU, MIEJSCOWOSC";

struct ListColumn {
  const char* field;
  int width;
  const char* heading;
};
constexpr ListColumn kColumns[] = {
    {"KONTO_INDYW_OK", 78, "tdb.cust.acount"}, {"KONTO_INDYW_RACH", 190, "tdb.cust.peraco"},
    {"NAZWA", 148, "tdb.cust.name"},           {"NIP", 85, "tdb.cust.nip"},
    {"ULICA", 84, "tdb.cust.street"},          {"NR_DOMU", 50, "tdb.cust.house"},
    {"NR_LOKALU", 56, "tdb.cust.local"},       {"KOD_POCZTOWY", 50, "tdb.cust.postcode"},
    {"MIEJSCOWOSC", 78, "tdb.cust.city"},
};

}  // namespace

frm_Admin_usr_konta_::frm_Admin_usr_konta_(Program& program)
    : Form("frm_Admin_usr_konta_", "usr.aper.title"),
      program_(program),
      customers_(program, kKontrahenci, true),
      rows_(customers_.table()) {
  SQL_Pic.source = &rows_;
  txtKontoIndywidualne.MultiLine = true;
  txtKontoIndywidualne.SelectAllOnEntry = true;
  txtZnajdź.SelectAllOnEntry = true;
  Register("txtZnajdź", txtZnajdź);
  Register("SQL_Pic", SQL_Pic);
  Register("txtKontoIndywidualne", txtKontoIndywidualne);
  Register("btnClose", btnClose);
  Page("usr.aper.lbl.list")
      .Row({{"usr.aper.lbl.find", txtZnajdź, 12}})
      .Table(SQL_Pic)
      .Row({{"usr.aper.lbl.account", txtKontoIndywidualne, 12}});
  Buttons({{"usr.aper.close", btnClose, kCancel}});

  txtZnajdź.Changed += [this] { Search(); };
  SQL_Pic.Clicked += [this] { ShowAccount(); };
  txtKontoIndywidualne.Changed += [this] { StoreAccount(); };
  btnClose.Clicked += [this] { Close(); };
}

void frm_Admin_usr_konta_::reload_() {
  rows_.look.true_text = program_.Text("common.yes");
  rows_.look.false_text = program_.Text("common.no");
  txtZnajdź.SetText("");
  LimitToField(program_, customer_columns::kOwnAccount, txtKontoIndywidualne);
  ShowColumns();
  Search();
  SetFocus(txtZnajdź);
}

void frm_Admin_usr_konta_::ShowColumns() {
  for (const ListColumn& column : kColumns)
    customers_.table().TABLE_FIELD_FORMAT(column.field, column.width, program_.Text(column.heading), "", false, 1);
}

// The current customer stays current while he is among those found.
void frm_Admin_usr_konta_::Search() {
  ClassQDBASE& customers = customers_.table();
  if (customers_.IsOpen()) {
    customers.SELECTION(kShownFields, FindFilter(customers, txtZnajdź.Text()), "", ordAsc);
    if (!customers.RECORD_SELECT(customers.RECORD_POSITION())) customers.MOVE_FIRST();
  }
  ShowAccount();
}

void frm_Admin_usr_konta_::ShowAccount() {
  const int32_t record = rows_.RecordOf(rows_.CurrentRow());
  const auto customer = Read<Customer>(program_, record);
  shown_ = customer ? record : 0;
  txtKontoIndywidualne.SetText(customer ? customer->own_account : std::string());
  txtKontoIndywidualne.SetEnabled(shown_ > 0);
  SQL_Pic.Repaint.Raise();
}

// What cannot be written is not left standing in the field.
void frm_Admin_usr_konta_::StoreAccount() {
  const std::string text = TrimWhite(txtKontoIndywidualne.Text());
  ColumnValues account;
  account.Set(customer_columns::kHasOwnAccount, !text.empty()).Set(customer_columns::kOwnAccount, text);
  if (!Store(program_, kKontrahenci, shown_, account)) {
    program_.platform.ui.Beep();
    program_.Status(program_.Text("msg.info.error"));
    ShowAccount();
  }
  SQL_Pic.Repaint.Raise();
}

void frm_Admin_usr_konta_::MoveRow(int step) {
  if (rows_.Rows() < 1) return;
  rows_.SelectRow(std::clamp(rows_.CurrentRow() + step, 1, rows_.Rows()));
  ShowAccount();
}

bool frm_Admin_usr_konta_::UserKey(int code, bool ctrl) {
  if (ctrl || focus() == &btnClose) return false;
  const bool in_account = focus() == &txtKontoIndywidualne;
  if (!in_account && (code == kKeyUp || code == kKeyDown)) {
    MoveRow(code == kKeyUp ? -1 : 1);
    return true;
  }
  if (code != kKeyEnter) return false;
  const bool last = rows_.CurrentRow() >= rows_.Rows();
  if (in_account) MoveRow(1);
  SetFocus(shown_ == 0 || (in_account && last) ? txtZnajdź : txtKontoIndywidualne);
  return true;
}

}  // namespace ostrinka
