// What the editors of customers and of goods share: the life of one record from "new" to "stored", the required name, attachments, web.
#pragma once

#include <string>

#include "forms/edit_mode.h"
#include "forms/form_helpers.h"

namespace ostrinka {

class RecordEditor : public Form {
 public:
  EditMode Mode = EditMode::kNew;
  int32_t RecordNo = 0;  // of the table; 0 in a new record

  TextBoxControl txtNazwa, txtWWW;
  MemoControl memoCONTROL_;
  ButtonControl btnSave, btnCancel, btnWWWgo, memoAdd_, memoDel_, memoExec_;

  // The values of the fields, as saving writes them to the record of the table.
  virtual ColumnValues save_() = 0;

  // The record that the last saving wrote; 0 when nothing was saved since the form was filled.
  int32_t saved_record() const { return saved_record_; }

  // Ctrl+Enter saves; Enter alone never does.
  bool UserKey(int code, bool ctrl) override;
  bool AsksBeforeClosing() const override { return true; }

 protected:
  // `files` is the column of the attachments and says which table is edited, `keys` the first word of the form's catalogue keys.
  RecordEditor(Program& program, const Column<Attachments>& files, std::string name, const std::string& keys);

  ClassQDBASE& table();
  // Sets the state for a new record, or makes record `record` current.
  void Begin(EditMode mode, int32_t record);
  // Called by reload_ when the fields stand.
  void Ready();
  // Takes the form off the table; a derived class calls it when it goes.
  void Unbind();

  Program& program_;

 private:
  void Save();
  bool NameGiven();
  bool Store();
  void Bind();
  void AddAttachment();
  void DeleteAttachment();
  void OpenAttachment();

  Column<Attachments> files_;
  int32_t saved_record_ = 0;
  bool bound_ = false, flashing_ = false;
};

}  // namespace ostrinka
