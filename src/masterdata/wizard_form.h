// The first-run wizard: where the company's database lies, what comes into it, and whose company it is; then it makes the company and opens
// it.
#pragma once

#include <array>
#include <string>

#include "masterdata/company_boxes.h"
#include "masterdata/database_place.h"

namespace ostrinka {

class frm_Admin_bg_ : public Form, public CompanyBoxes {
 public:
  std::array<OptionBoxControl, 2> dbLocal;   // 0 the default folder, 1 an own one
  std::array<OptionBoxControl, 3> dbImport;  // 0 nothing, 1 customers, 2 articles
  TextBoxControl txtDbPath, userName, userPassword1, userPassword2, txtImportPath;
  ButtonControl btnBrowse, btnImportBrowse, btnPrev, btnNext, btnOk, btnCancel;

  explicit frm_Admin_bg_(Program& program);

  void reload_();  // begins at the welcome with what the settings hold
  // Whether the company was made. It is open then, and the settings name it.
  bool finished() const { return finished_; }

  bool AsksBeforeClosing() const override { return true; }
  std::string UnsavedKey() const override { return "bg.msg.cancel"; }

 private:
  void RegisterControls();
  void LayOut();
  void LayOutCompany();
  void Connect();
  size_t Current() const;
  void Go(size_t step);
  void Next();
  void Finish();

  // What a step must hold; false after telling what is missing and moving to that field.
  bool Check(size_t step);
  bool CheckDatabase();
  bool CheckImport();
  bool CheckCompany();
  bool Refuse(size_t step, TextBoxControl& field, const std::string& text, MessageKind kind);

  bool CanWrite(const std::string& folder);
  bool MeetCompany(const std::string& folder, const std::string& user, const std::string& password);
  void TakeDetails(ClassQDBASE& firma);
  void ShowCompany(const CompanyRecord& record);
  CompanyRecord Typed() const;  // the company as the fields have it
  void CheckNumbers();
  void TownLeft();
  void ImportChosen();
  void BrowseImport();

  // The work at the end, in wizard_finish.cpp.
  bool CreateCompany();
  bool OpenCompany();
  void StoreCompany();
  void StoreFormats();
  void Import();

  Program& program_;
  DatabasePlaceFields place_;
  CompanyRecord record_;         // holds what has no field here: the further accounts
  bool typed_company_ = false;   // the person wrote into the company's fields
  bool new_company_ = true;      // the folder holds none yet
  std::string met_, created_;    // folders: of a company that the person was told of; whose tables this wizard made
  std::string doubted_numbers_;  // the person was told that one of these is doubtful
  bool finished_ = false;
};

}  // namespace ostrinka
