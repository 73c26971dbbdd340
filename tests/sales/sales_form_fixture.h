// The editor of sales documents and the line dialog before a person, on the company of the tests.
#pragma once

#include <functional>
#include <memory>

#include "documents/trade.h"
#include "sales/line_form.h"
#include "sales/sales_form.h"
#include "support/form_person.h"

namespace ostrinka {

class SalesFormTest : public Trade {
 protected:
  void SetUp() override { program.main_view = &view; }
  std::unique_ptr<frm_Dok_sprzed> NewDocument() {
    auto form = std::make_unique<frm_Dok_sprzed>(program);
    form->Mode = EditMode::kNew;
    form->reload_();
    form->Open();
    return form;
  }
  std::unique_ptr<frm_Dok_sprzed> NewCorrection(int32_t corrected) {
    auto form = std::make_unique<frm_Dok_sprzed>(program);
    form->CorrectionFlag = true;
    form->CorrectedRecord = corrected;
    form->reload_();
    form->Open();
    return form;
  }
  std::unique_ptr<frm_Dok_sprzed> Edit(int32_t record) {
    auto form = std::make_unique<frm_Dok_sprzed>(program);
    form->Mode = EditMode::kEdit;
    Table(program, kDokSprzed).RECORD_POSITION(record);
    form->reload_();
    form->Open();
    return form;
  }
  static void Set(Control& field, const std::string& value) { ASSERT_TRUE(ostrinka::Set(field, value)) << field.name() << " " << value; }
  static void Press(ButtonControl& button) { ASSERT_TRUE(button.UserPress()) << button.name(); }

  using Play = std::function<void(frm_Dok_add_TU&)>;
  void InLineDialog(Play play) {
    platform.ui.on_modal = [play](Form& form) { play(dynamic_cast<frm_Dok_add_TU&>(form)); };
  }
  void AddLine(frm_Dok_sprzed& form, Play play) {
    InLineDialog(std::move(play));
    Press(form.btnAdd);
  }
  void EditLine(frm_Dok_sprzed& form, int row, Play play) {
    InLineDialog(std::move(play));
    ASSERT_TRUE(form.SQL_Pic.UserDoubleClick(row));
  }
  void AddArticleLine(frm_Dok_sprzed& form, int32_t article, const std::string& quantity) {
    AddLine(form, [&](frm_Dok_add_TU& dialog) {
      Set(dialog.txtComboTU, "#" + std::to_string(article));
      Set(dialog.txtIlość, quantity);
      Press(dialog.btnOK);
    });
  }
  int32_t Save(frm_Dok_sprzed& form) {
    Press(form.btnSave);
    EXPECT_FALSE(form.IsOpen());
    return form.record();
  }
  std::vector<int32_t> LinesOn(int32_t document) {
    Table(program, kDokSprzed).RECORD_LOAD(document);
    return LinesOf(program, Table(program, kDokSprzed).Int("ID_DOK"));
  }
  int32_t Articles() { return Table(program, kTowaryUslugi).RECORD_COUNT(); }

  TestView view;
};

}  // namespace ostrinka
