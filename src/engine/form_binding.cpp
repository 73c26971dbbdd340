// A form's fields bound to the fields of a table.
#include "base/text.h"
#include "engine/qdbase_state.h"

namespace ostrinka {
namespace {

constexpr char kMemoMark[] = "!MEMO!";

}  // namespace

void ClassQDBASE::FORM_CONNECT(Modal& form) {
  State& s = *state_;
  s.binding = {&form, {}};
  FORM_REFRESH();
}

void ClassQDBASE::FORM_DISCONNECT() {
  State& s = *state_;
  const FormBinding before = std::move(s.binding);
  s.binding = {};
  for (const BoundPlace& place : before.places) place.shown->Show("", {});
}

void ClassQDBASE::FORM_OBJECT_ADD(std::unique_ptr<BoundField> shown, const FieldId& field) {
  State& s = *state_;
  if (!shown || !s.binding.form || shown->form() != s.binding.form) return;
  const int n = s.FieldNumber(field.by_number() ? field : FieldId(ReplaceAll(field.name(), "@", "")));
  if (n == 0 || (s.layout.field(n).type == kMemo) != (shown->kind() == BoundField::Kind::kFiles)) return;
  std::erase_if(s.binding.places, [&](const BoundPlace& place) { return place.shown->control() == shown->control(); });
  if (shown->kind() == BoundField::Kind::kList && s.layout.field(n).type == kLink) s.FillList(*shown, n);
  s.binding.places.push_back({std::move(shown), n});
}

// The live records of the linked table behind an empty first item, each with its number.
void ClassQDBASE::State::FillList(BoundField& list, int n) {
  std::vector<BoundField::Entry> entries = {{"", 0}};
  const size_t slot = static_cast<size_t>(n - 1);
  if (slot >= links.size() || !links[slot].table) OpenLink(n);
  if (slot < links.size() && links[slot].table) {
    ClassQDBASE table(platform);
    table.state_->is_link = true;
    if (table.DATABASE_OPEN(links[slot].table->DATABASE_PATH(), user, password, false, false, false)) {
      table.SELECTION("*", "*", "", ordAsc);
      for (const int32_t record : table.selection()) {
        entries.emplace_back(ToText(table.state_->ReadShown(record, links[slot].field)), record);
      }
    }
  }
  list.ShowEntries(std::move(entries));
}

void ClassQDBASE::FORM_REFRESH() {
  State& s = *state_;
  if (s.binding.form && !s.binding.places.empty() && RECORD_LOAD(s.current)) s.FillForm(0);
}

// `only_field` 0 fills all.
void ClassQDBASE::State::FillForm(int only_field) {
  for (const BoundPlace& place : binding.places) {
    if (layout.Has(place.field) && (only_field == 0 || only_field == place.field)) FillPlace(place);
  }
}

void ClassQDBASE::State::FillPlace(const BoundPlace& place) {
  const FieldDef& field = layout.field(place.field);
  const Value raw = Stored(place.field);
  if (field.type == kMemo) return FillFiles(place);
  if (field.type != kLink) return place.shown->Show(ToText(ShownValue(raw)), raw);
  const int32_t target = Int32Or0(raw);
  const Value shown = ShownValue(LinkValue(place.field, target));
  if (place.shown->kind() != BoundField::Kind::kList) return place.shown->Show(ToText(shown), shown);
  place.shown->Choose(target, ToText(shown));
}

void ClassQDBASE::State::FillFiles(const BoundPlace& place) {
  if (place.shown->kind() != BoundField::Kind::kFiles) return place.shown->Show(kMemoMark, {});
  std::vector<BoundField::Entry> entries;
  OpenMemo();
  const std::string name = Lower(layout.field(place.field).name);
  if (memo) {
    memo->Walk([&](const MemoEntry& entry) {
      if (entry.live && entry.record == current && Lower(entry.field) == name) entries.emplace_back(entry.name, entry.index);
      return true;
    });
  }
  place.shown->ShowEntries(std::move(entries));
}

bool ClassQDBASE::FORM_SAVE() {
  State& s = *state_;
  bool saved = true;
  for (const BoundPlace& place : s.binding.places) {
    if (!s.layout.Has(place.field)) continue;
    const std::optional<Value> content = place.shown->Content(s.layout.field(place.field).type == kLink);
    if (content) saved = FIELD(place.field, *content) && saved;
  }
  return saved;
}

}  // namespace ostrinka
