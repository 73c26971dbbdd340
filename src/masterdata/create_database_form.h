// The dialog that creates the tables of a new company.
#pragma once

#include "masterdata/database_place.h"

namespace ostrinka {

class frm_Admin_qdbc_ : public Form {
 public:
  std::array<OptionBoxControl, 2> dbLocal;  // 0 the default folder, 1 an own one
  TextBoxControl txtDbPath, userName, userPassword1, userPassword2;
  ButtonControl btnBrowse, btnCreateDatabase, btnCancel;

  explicit frm_Admin_qdbc_(Program& program);

  void reload_();
  // Whether a database was created; the settings then name it.
  bool created() const { return created_; }

 private:
  void Create();

  Program& program_;
  DatabasePlaceFields place_;
  bool created_ = false;
};

}  // namespace ostrinka
