// The dialog of individual accounts: which customers pay to an account of their own, and to which.
//
// It works on an object of its own on the file of customers, so that the main list keeps its rows. What is typed is stored at once.
#pragma once

#include "controls/form.h"
#include "documents/private_table.h"
#include "forms/table_source.h"

namespace ostrinka {

class frm_Admin_usr_konta_ : public Form {
 public:
  TextBoxControl txtZnajdź, txtKontoIndywidualne;
  TableControl SQL_Pic;
  ButtonControl btnClose;

  explicit frm_Admin_usr_konta_(Program& program);

  // Shows all customers, the first one current. Empty where no company is open.
  void reload_();

  // Up and down move in the list from the search field; Enter goes from there to the account, from the account to that of the next
  // customer, and from the last one back to the search.
  bool UserKey(int code, bool ctrl) override;

 private:
  void ShowColumns();
  void Search();
  void ShowAccount();
  void StoreAccount();
  void MoveRow(int step);

  Program& program_;
  PrivateTable customers_;
  QdbTableSource rows_;
  int32_t shown_ = 0;  // record whose account stands in the field, 0 for none
};

}  // namespace ostrinka
