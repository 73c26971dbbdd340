#include "forms/record_editor.h"

#include "base/text.h"
#include "forms/bound_control.h"

namespace ostrinka {

RecordEditor::RecordEditor(Program& program, const Column<Attachments>& files, std::string name, const std::string& keys)
    : Form(std::move(name), keys + ".title"), program_(program), files_(files) {
  txtNazwa.MultiLine = true;
  memoAdd_.caption_key = keys + ".btn.ach.add";
  memoDel_.caption_key = keys + ".btn.ach.del";
  memoExec_.caption_key = keys + ".btn.ach.show";
  btnWWWgo.caption_key = keys + ".btn.www";
  memoAdd_.icon = "btnattadd.ico";
  memoDel_.icon = "btnattdel.ico";
  memoExec_.icon = "btnattopen.ico";
  btnWWWgo.icon = "btnweb.ico";
  btnSave.icon = "btnsave.ico";
  btnCancel.icon = "btncancel.ico";
  Register("txtNazwa", txtNazwa);
  Register("txtWWW", txtWWW);
  Register("btnWWWgo", btnWWWgo);
  Register("memoCONTROL_", memoCONTROL_);
  Register("memoAdd_", memoAdd_);
  Register("memoDel_", memoDel_);
  Register("memoExec_", memoExec_);
  Register("btnSave", btnSave);
  Register("btnCancel", btnCancel);
  btnSave.SetToolTip(program.Text(keys + ".btn.ok") + " (Ctrl+Enter)");
  Buttons({{keys + ".btn.ok", btnSave}, {keys + ".btn.cancel", btnCancel}});

  btnSave.Clicked += [this] { Save(); };
  btnCancel.Clicked += [this] { Close(); };
  btnWWWgo.Clicked += [this] {
    const std::string address = Trim(txtWWW.Text());
    if (!address.empty()) program_.platform.ui.OpenAddress(address);
  };
  memoAdd_.Clicked += [this] { AddAttachment(); };
  memoDel_.Clicked += [this] { DeleteAttachment(); };
  memoExec_.Clicked += [this] { OpenAttachment(); };
  memoCONTROL_.DoubleClicked += [this] { OpenAttachment(); };
  Closed += [this] { Unbind(); };
}

ClassQDBASE& RecordEditor::table() {
  return Table(program_, files_.table);
}

void RecordEditor::Begin(EditMode mode, int32_t record) {
  Unbind();
  Mode = mode;
  RecordNo = mode == EditMode::kEdit ? record : 0;
  saved_record_ = 0;
  memoCONTROL_.Clear();
  ShowPage("STD");
  if (RecordNo >= 1) table().RECORD_POSITION(RecordNo);
}

void RecordEditor::Ready() {
  if (Mode == EditMode::kEdit) Bind();
  SetFocus(txtNazwa);
  SetDirty(false);
}

bool RecordEditor::UserKey(int code, bool ctrl) {
  if (code != kKeyEnter || !ctrl) return false;
  if (focus()) focus()->UserLeave();
  btnSave.UserPress();
  return true;
}

bool RecordEditor::NameGiven() {
  if (!TrimWhite(txtNazwa.Text()).empty()) return true;
  ShowPage("STD");
  flashing_ = true;
  FlashField(program_, *this, txtNazwa);
  flashing_ = false;
  return false;
}

void RecordEditor::Save() {
  if (flashing_ || !NameGiven()) return;
  if (TableIsOpen(program_, files_.table)) {
    if (!Store()) return;
    if (program_.main_view) program_.main_view->ref_();
  }
  SetDirty(false);
  Close();
}

// A record that cannot be written leaves the form open, so that what was typed is not lost.
bool RecordEditor::Store() {
  ClassQDBASE& records = table();
  int32_t stored = 0;
  if (Mode == EditMode::kNew) {
    stored = Add(program_, files_.table, save_());
  } else if (ostrinka::Store(program_, files_.table, RecordNo, save_())) {
    stored = RecordNo;
  }
  if (stored < 1) {
    program_.platform.ui.Beep();
    program_.Status(program_.Text("msg.info.error"));
    return false;
  }
  Mode = EditMode::kEdit;
  RecordNo = stored;
  records.RECORD_SHOW(RecordNo);
  records.RECORD_POSITION(RecordNo);
  saved_record_ = RecordNo;
  return true;
}

void RecordEditor::Bind() {
  if (!TableIsOpen(program_, files_.table)) return;
  ClassQDBASE& records = table();
  records.RECORD_POSITION(RecordNo);
  records.FORM_CONNECT(*this);
  records.FORM_OBJECT_ADD(Bound(memoCONTROL_), files_.name);
  records.FORM_REFRESH();
  bound_ = true;
}

void RecordEditor::Unbind() {
  if (!bound_) return;
  bound_ = false;
  table().FORM_DISCONNECT();
}

void RecordEditor::AddAttachment() {
  if (!TableIsOpen(program_, files_.table)) return;
  if (Mode != EditMode::kEdit) {
    if (program_.Message("msg.question.saverecordandaddatachment", MessageKind::kQuestion) != Answer::kYes) return;
    if (flashing_ || !NameGiven() || !Store()) return;
    SetDirty(false);
    Bind();
    if (program_.main_view) program_.main_view->ref_();
  }
  const std::optional<std::string> file = program_.platform.ui.AskOpenFile({{program_.Text("common.filter.allfiles"), {"*"}}});
  if (!file || file->empty()) return;
  table().RECORD_POSITION(RecordNo);
  if (!table().MEMO_ADD(files_.name, *file)) program_.Message("msg.info.cantaddattachment", MessageKind::kWarning);
  table().FORM_REFRESH();
}

void RecordEditor::DeleteAttachment() {
  table().RECORD_POSITION(RecordNo);
  if (!table().MEMO_DEL(files_.name, memoCONTROL_.GetCurrentFileID_()))
    program_.Message("msg.info.cantdelattachment", MessageKind::kWarning);
  if (bound_) table().FORM_REFRESH();
}

void RecordEditor::OpenAttachment() {
  table().RECORD_POSITION(RecordNo);
  if (!table().MEMO_EXEC(files_.name, memoCONTROL_.GetCurrentFileID_()))
    program_.Message("msg.info.cantopenattachment", MessageKind::kWarning);
}

}  // namespace ostrinka
