// The line dialog: an article of the catalogue, a free text, or the settlement of an advance invoice.
//
// It gathers values only; the editor of sales documents writes the line. A free text becomes a row of towaryuslugi that is deleted at once,
// so that links read it for good and lists never show it.
#pragma once

#include <string>

#include "documents/lines.h"
#include "documents/private_table.h"
#include "forms/edit_mode.h"
#include "forms/table_source.h"

namespace ostrinka {

class frm_Dok_add_TU : public Form {
 public:
  static constexpr int32_t kAdvance = -1;                  // Article of a confirmed settlement
  static constexpr int32_t kCatalogue = 1, kFreeText = 2;  // values of tuType

  // --- set by the caller before reload_
  EditMode Mode = EditMode::kNew;
  float DocumentRate = 1;
  int32_t DocumentCurrency = 1;

  // --- results
  bool OK = false;
  int32_t Article = 0;
  Currency Quantity, NetPrice, GrossPrice, Discount;
  LineEntry Entry() const { return {Article, Quantity, NetPrice, GrossPrice, Discount}; }
  // Whether the confirmed line names another article than the one that was shown.
  bool ArticleChanged() const;

  // --- fields
  ComboControl tuType, txtComboTU, txtCennik, nt_Jednostka, nt_VAT;
  TextBoxControl txtTU, txtIlość, txtCenaNetto, txtCenaBrutto, txtRabat, nt_TowarUsługa, nt_PKWiU, nt_Ilość, nt_CenaNETTO, nt_CenaBRUTTO;
  LabelControl label_home_currency;
  TableControl picTU, picFZ;
  ScrollBoxControl ScrollVX, ScrollFZ;
  ButtonControl btnOK, btnCancel;

  explicit frm_Dok_add_TU(Program& program);

  void reload_();
  // Prefills the fields from a record of sprzedane; after reload_ in mode kEdit.
  void ShowLine(int32_t line);
  // Reads the prices of the chosen kind of the selected article into the fields.
  void putPrice_();
  void nt_oblicz_brutto();
  void nt_oblicz_netto();

  bool UserKey(int code, bool ctrl) override;

 private:
  // line_form.cpp: what stands where, filling
  void RegisterControls();
  void LayOut();
  void Connect();
  void FillLists();
  void ShowArticleColumns();
  void ShowAdvances();
  void ShowHomeCurrencyNote();

  // line_form_rules.cpp
  std::string SearchCondition() const;
  void Search();
  void PickRow(int row);
  void MoveRow(int step);
  void ArticleChosenByName();
  void SelectArticle(int32_t article);
  void ShowUnitAndRate(int32_t record, const ostrinka::Article& article);
  void ClearArticle();
  void QuantityLeft(TextBoxControl& box);
  void DiscountLeft();
  void NetLeft();
  void GrossLeft();
  void ShowOk();
  void Confirm();
  bool ConfirmCatalogue();
  bool ConfirmFreeText();
  bool ReadMoney(const TextBoxControl& box, Currency& to);
  double ArticleMultiplier();
  double FreeTextMultiplier();  // 0 when the rate is unknown
  std::string FormattedPrice(const Value& price);

  struct FreeText {
    std::string name, code;
    int32_t unit = 0, rate = 0;
    bool operator==(const FreeText&) const = default;
  };
  FreeText TypedText() const;

  Program& program_;
  PrivateTable articles_, advances_;
  QdbTableSource article_rows_, advance_rows_;
  FreeText shown_;
  int32_t shown_article_ = 0;
  bool changed_ = false;
};

}  // namespace ostrinka
