// The editor of goods and services: one record of towaryuslugi, with price sets whose figures follow each other as soon as one is edited.
#pragma once

#include <array>
#include <optional>

#include "forms/record_editor.h"

namespace ostrinka {

class frm_TowUslugi_ : public RecordEditor {
 public:
  static constexpr size_t kPriceSets = 3;  // DETAL, HURT, SPEC
  using PriceFields = std::array<TextBoxControl, kPriceSets>;

  TextBoxControl txtSymbol, txtOpis, txtPKWiU, txtSWW, txtUwagi, txtCenaZakupu, txtSubsTDay_;
  PriceFields txtNetto, txtBrutto, txtNarzut, txtMarża, txtZysk;
  ComboControl txtRodzaj, txtGrupa, txtJednostkaMiary, txtStawkaVAT, txtWaluta, txtSubsEndAlertDays;
  CheckBoxControl txtSubscriptionON, txtSubsEndAlert;
  LabelControl lblStawkaVAT, subs_label_, sdays_label_;

  explicit frm_TowUslugi_(Program& program);
  ~frm_TowUslugi_() override { Unbind(); }

  // Fills the form for a new record, or from record `record`.
  void reload_(EditMode mode, int32_t record = 0);
  // A new record filled from `record`.
  void clone_(int32_t record);
  ColumnValues save_() override;

 private:
  void RegisterControls();
  void LayOut();
  void Connect();
  void Fill(EditMode mode, int32_t record);
  void FillLists();
  void ClearFields();
  void StartNew();
  void ShowRecord(int32_t record);
  void ShowCurrency(int32_t record);
  void ShowRateName();
  void ShowSubscription();
  void NormaliseDays();

  // What runs when a field is left; i counts the price sets from 0. A field that was only passed over moves nothing: the rules read rounded
  // texts, and prices that nobody touched would drift.
  void PurchaseLeft();
  void NetLeft(size_t i);
  void GrossLeft(size_t i);
  void ProfitLeft(size_t i);
  void MarginLeft(size_t i);
  void MarkupLeft(size_t i);
  void RateLeft();
  void CurrencyChosen();

  void WriteGross(size_t i);
  void WriteNetFromGross(size_t i);
  void WriteProfit(size_t i);
  void WriteMarginAndMarkup(size_t i);

  double Amount(const TextBoxControl& box) const;
  void Write(TextBoxControl& box, double amount);  // nothing when there is no such number
  void Reformat(TextBoxControl& box) { Write(box, Amount(box)); }
  // Replaces an amount below the smallest price. Whether the rules of `box` have something to follow: that, or an entry of the person.
  bool TakePrice(TextBoxControl& box);
  std::optional<double> Rate();  // percent of the chosen VAT rate

  int32_t currency_shown_ = 0;  // record of waluty that the prices are in
};

}  // namespace ostrinka
