// What the editors of customers and of goods share: the life of one record from "new" to "stored", the required name, attachments, web.
#pragma once

#include <string>

#include "forms/form_helpers.h"

namespace ostrinka {

class RecordEditor : public Form {
 public:
  int Mode = 0;          // 0 none, 1 new record, 2 existing record
  int32_t RecordNo = 0;  // of the table; 0 in a new record

  TextBoxControl txtNazwa, txtWWW;
  MemoControl memoCONTROL_;
  ButtonControl btnSave, btnCancel, btnWWWgo, memoAdd_, memoDel_, memoExec_;

  // Copies the fields into the loaded record of the table; the caller saves.
  virtual void save_() = 0;

  // The record that the last saving wrote; 0 when nothing was saved since the form was filled.
  int32_t saved_record() const { return saved_record_; }

  // Ctrl+Enter saves; Enter alone never does.
  bool UserKey(int code, bool ctrl) override;
  bool AsksBeforeClosing() const override { return true; }

 protected:
  // `table` is the number of the table, `keys` the first word of the form's catalogue keys.
  RecordEditor(Program& program, int table, std::string name, const std::string& keys);

  ClassQDBASE& table();
  // Sets the state for a new record, or loads record `record` and makes it current. False when there is nothing to load.
  bool Begin(int mode, int32_t record);
  // Called by reload_ when the fields stand.
  void Ready();
  // Takes the form off the table; a derived class calls it when it goes.
  void Unbind();

  Program& program_;

 private:
  void Save();
  bool NameGiven();
  bool Store();
  bool StoreNew();
  void Bind();
  void AddAttachment();
  void DeleteAttachment();
  void OpenAttachment();

  int table_;
  int32_t saved_record_ = 0;
  bool bound_ = false, flashing_ = false;
};

}  // namespace ostrinka
