// The editor of sales documents: one record of dok_sprzed with its lines in sprzedane.
//
// Lines are written as they are entered, under the document's identity; the document itself by the save button. Closing without saving
// keeps the lines that were changed, and writes no document.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "books/books.h"
#include "documents/arithmetic.h"
#include "documents/lines.h"
#include "forms/edit_mode.h"
#include "forms/table_source.h"

namespace ostrinka {

class frm_Dok_add_TU;

class frm_Dok_sprzed : public Form {
 public:
  // --- set by the caller before reload_
  EditMode Mode = EditMode::kNew;  // kEdit: of the current record of dok_sprzed
  bool CorrectionFlag = false;     // a new document is a correcting invoice
  int32_t CorrectedRecord = 0;     // of which document
  // Prints the document that the print button has saved; empty: nothing is printed.
  std::function<void(int32_t record, PrintMode mode)> print_document;
  // Lets the person pick a customer: its record, 0 for none. Empty: the find buttons beep.
  std::function<int32_t()> pick_customer;

  // --- fields
  ComboControl txtTypDok, txtKontrahent, txtPłatnik, txtFormaPłatności, txtStatus, txtWystawił, txtWaluta, txtAdrType, txtAbonamentDni;
  TextBoxControl txtDokNumer, txtOdebrał, txtUwagi, txtKurs, txtAdrOth;
  CalendarControl txtDataWyst, txtDataSprzed, txtDataSprzedDo, txtTerminZapłaty, txtDataZapłaty, txtAbonamentData;
  CheckBoxControl chkAN, chkPłatnik, chkDateTo, txtAbonamentKoniec;
  LabelControl txtNrDokKorVAT, label_abn_remind, label_abn_remdays, lblNet, lblGross;
  TableControl SQL_Pic;
  ScrollBoxControl ScrollVX;
  MemoControl memoCONTROL;
  ButtonControl btnSave, btnPrint, btnCancel, btnAdd, btnEdit, btnRemove, btnFind, btnAdd_Kontrahent, btnFind_Płatnik, btnAdd_Płatnik,
      memoAdd, memoDel, memoExec;

  explicit frm_Dok_sprzed(Program& program);
  ~frm_Dok_sprzed() override { Unbind(); }

  // Fills the form from the mode, the flags and the current record; once before the form is shown.
  void reload_();
  // The values of all fields, as saving writes them to the record of dok_sprzed.
  ColumnValues save_();
  // Selects the document's lines.
  void GoSQL_();
  // Redraws the lines and the totals.
  void ref_();

  int32_t document_id() const { return id_; }
  // The record of dok_sprzed; 0 as long as a new document was not saved.
  int32_t record() const { return record_; }
  const DocumentTotals& totals() const { return totals_; }

  bool UserKey(int code, bool ctrl) override;
  bool AsksBeforeClosing() const override { return true; }
  std::string UnsavedKey() const override { return "sdoc.unsaved"; }

 private:
  // sales_form.cpp: what stands where, and the rules of the fields
  void RegisterControls();
  void LayOut();
  void LayOutMore();
  void Connect();
  void ConnectButtons();
  void TypeChanged();
  void NumberChosen();
  void CheckNumber();
  void PaymentFormChanged();
  void CustomerChanged();
  void PayerChanged();
  void PayerChosen();
  void CurrencyChanged();
  void RateLeft();
  void StatusChanged();
  void ShowStatus();
  void ShowSubscription();
  void AddressChanged();
  void FindCustomer(ComboControl& list);
  void AddCustomer(ComboControl& list);

  // sales_form_load.cpp
  void FillLists();
  void FillCustomers();
  void FillTypes(bool corrections);
  void LimitFields();
  void LoadNew();
  void LoadNewCorrection();
  void LoadNewCurrency();
  void LoadRecord();
  void LoadRecordDates(const SalesDocument& document);
  void LoadRecordLinks();
  void LoadRecordSubscription(const SalesDocument& document);
  void LockForCorrection();
  void ShowReference();
  void SelectLink(ComboControl& list, const Column<Link>& column, int32_t record);
  void Bind();
  void Unbind();

  // sales_form_save.cpp
  void SaveLinks(ColumnValues& values);
  void SaveNumber(ColumnValues& values);
  int32_t TypeOf(const ColumnValues& values);
  bool Store(bool recalculate);
  bool StoreNew();
  bool StoreChanged();
  void Save();
  void Print();
  void Refresh();
  // The values of the line touched last, then the totals of all. False when an amount is too large or a table refuses; the caller tells it.
  [[nodiscard]] bool Recalculate();
  // The totals alone, and into the document when it is stored.
  [[nodiscard]] bool SumUp();
  void Tell(bool done);  // a failure, once
  bool ConfirmedAndWritten(frm_Dok_add_TU& dialog, const std::function<LineOutcome()>& write);
  void LinesChanged();
  void SettlePickedAdvance();
  void AddLineByDialog();
  void EditLineByDialog();
  void RemoveLine();
  void AddAttachment();
  void DeleteAttachment();
  void OpenAttachment();

  bool IsReceiptType();
  float RememberedRate(int32_t currency);
  Date Today();

  Program& program_;
  QdbTableSource lines_;
  int32_t id_ = 0, record_ = 0, opening_type_ = -1, number_ = 0, currency_ = 0;
  int32_t touched_line_ = 0;  // that the person last added, edited or removed in this editor; 0 none: opening and choosing a row touch none
  float rate_ = 1;
  DocumentTotals totals_;
  std::map<int32_t, float> rate_memory_;
  bool bound_ = false;
};

}  // namespace ostrinka
