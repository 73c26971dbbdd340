// A field of a form as the table sees it that the form is bound to: something that shows a value and gives one back.
//
// The table knows no control; whoever has controls implements this for them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/value.h"
#include "platform/user_interface.h"

namespace ostrinka {

class BoundField {
 public:
  // What it can show: a value; a record chosen from a list; a record's attachments.
  enum class Kind { kValue, kList, kFiles };
  // A text with the record or the attachment that it stands for.
  using Entry = std::pair<std::string, int32_t>;

  virtual ~BoundField() = default;
  virtual Kind kind() const = 0;
  // The form it stands on, null for none; the control itself, by which a second binding of it replaces the first.
  virtual const Modal* form() const = 0;
  virtual const void* control() const = 0;

  // Shows a field by its text or its value, whichever it can; an empty text and value clear it.
  virtual void Show(const std::string& text, const Value& value) = 0;
  // Puts these entries in the place of a list's or of the attachments' former ones.
  virtual void ShowEntries(std::vector<Entry> entries) = 0;
  // Chooses the list's entry of `record`. One that the list lacks is added under `text`, so that saving keeps it; with no text none is.
  virtual void Choose(int32_t record, const std::string& text) = 0;
  // What is to be stored in a field; nothing where this holds no value for it. `link` asks for the number of a record.
  virtual std::optional<Value> Content(bool link) const = 0;
};

}  // namespace ostrinka
