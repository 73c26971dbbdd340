// The room of a form: rows of twelve columns, framed groups, and the builder that turns a declared layout into them.
#pragma once

#include <QLabel>
#include <QLayout>
#include <QSet>
#include <map>
#include <memory>
#include <vector>

#include "desktop/form_widgets.h"

namespace ostrinka {

// One row: its cells stand on a grid of twelve columns, captions in a line above the fields, fields of one line at one height.
class RowLayout : public QLayout {
 public:
  struct Cell {
    QWidget* caption = nullptr;
    QWidget* field = nullptr;  // null leaves a gap
    double span = 12;
    bool beside = false;  // the caption stands before the field
  };
  explicit RowLayout(int gap) : gap_(gap) {}
  ~RowLayout() override;
  void AddCell(const Cell& cell);

  void addItem(QLayoutItem* item) override { items_.append(item); }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override { return items_.value(index); }
  QLayoutItem* takeAt(int index) override { return index >= 0 && index < items_.size() ? items_.takeAt(index) : nullptr; }
  Qt::Orientations expandingDirections() const override;
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  bool hasHeightForWidth() const override;
  int heightForWidth(int width) const override;
  void setGeometry(const QRect& outer) override;

 private:
  int CaptionHeight() const;
  int FieldsHeight(int width) const;  // of a row so wide; below 0: not known yet
  QList<QLayoutItem*> items_;
  std::vector<Cell> cells_;
  int gap_;
};

// What the builder made for one control.
struct BuiltField {
  QWidget* field = nullptr;
  QLabel* caption = nullptr;
  std::string page;
};

// A part of a form that comes and goes: rows that collapse with their controls, items that belong to one value of a list.
struct Section {
  QWidget* widget = nullptr;
  std::vector<const Control*> controls;  // collapses when all of them are hidden; empty: never
  const ComboControl* when = nullptr;
  int32_t when_value = 0;
};

class FormBuilder {
 public:
  explicit FormBuilder(FieldHost& host) : host_(host) {}
  // The page as a widget.
  QWidget* BuildPage(const PageLayout& page, QWidget* parent);
  // A button outside the pages.
  QWidget* BuildButton(ButtonControl& button, QWidget* parent);

  const std::map<const Control*, BuiltField>& fields() const { return fields_; }
  const std::vector<const Control*>& order() const { return order_; }  // as they were built
  const std::vector<Section>& sections() const { return sections_; }

 private:
  void BuildGroup(const GroupLayout& group, QWidget* box);
  QWidget* BuildItem(const LayoutItem& item, QWidget* parent);
  void BuildRow(const LayoutItem& item, QWidget* box);
  void BuildSide(const LayoutItem& item, QWidget* box);
  void BuildMatrix(const LayoutItem& item, QWidget* box);
  void BuildFiles(const LayoutItem& item, QWidget* box);
  QLabel* Caption(const std::string& key, QWidget* parent);
  QWidget* Field(Control& control, unsigned flags, const QString& name, QLabel* caption, QWidget* parent);

  FieldHost& host_;
  std::map<const Control*, BuiltField> fields_;
  std::vector<const Control*> order_;
  std::vector<Section> sections_;
  std::string page_, group_name_;
};

}  // namespace ostrinka
