#include "desktop/list_access.h"

#include <algorithm>

namespace ostrinka {
namespace {

// A cell. It stands for a place in the list, whatever record is there now.
class CellAccess : public QAccessibleInterface, public QAccessibleTableCellInterface {
 public:
  CellAccess(ListAccess& table, int row, int column) : table_(table), row_(row), column_(column) {}

  bool isValid() const override { return table_.isValid() && row_ < table_.rowCount() && column_ < table_.columnCount(); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override { return &table_; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::Cell; }
  QString text(QAccessible::Text kind) const override {
    if (!isValid()) return {};
    if (kind == QAccessible::Description) return table_.columnDescription(column_);
    return kind == QAccessible::Name || kind == QAccessible::Value ? table_.CellText(row_, column_) : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override { return table_.CellRect(row_, column_); }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.readOnly = state.selectable = state.focusable = true;
    state.selected = isValid() && isSelected();
    state.focused = state.selected && column_ == 0 && table_.list().hasFocus();
    state.invisible = rect().isEmpty();
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this) : nullptr;
  }

  bool isSelected() const override { return table_.isRowSelected(row_); }
  QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return column_; }
  int rowIndex() const override { return row_; }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return &table_; }

 private:
  ListAccess& table_;
  int row_, column_;
};

QAccessibleInterface* AccessTo(const QString&, QObject* object) {
  auto* list = dynamic_cast<ListView*>(object);
  return list ? new ListAccess(list) : nullptr;
}

}  // namespace

void ListAccess::Announce() {
  static const bool announced = (QAccessible::installFactory(AccessTo), true);
  (void)announced;
}

ListAccess::~ListAccess() {
  for (const QAccessible::Id id : std::as_const(cells_)) QAccessible::deleteAccessibleInterface(id);
}

void* ListAccess::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this) : QAccessibleWidget::interface_cast(type);
}

int ListAccess::rowCount() const {
  ClassQDBASE* table = list().Shown();
  return table ? table->MAX_ROWS() : 0;
}

int ListAccess::columnCount() const {
  ClassQDBASE* table = list().Shown();
  return table ? table->MAX_COLUMNS() : 0;
}

int ListAccess::FirstShown() const {
  return std::max(list().window().list.first_row - 1, 0);
}

int ListAccess::childCount() const {
  return std::clamp(rowCount() - FirstShown(), 0, list().PageRows()) * columnCount();
}

QAccessibleInterface* ListAccess::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  return cellAt(FirstShown() + index / columnCount(), index % columnCount());
}

int ListAccess::indexOfChild(const QAccessibleInterface* child) const {
  const auto* cell = dynamic_cast<const CellAccess*>(child);
  const int row = cell ? cell->rowIndex() - FirstShown() : -1;
  return row < 0 || row >= list().PageRows() ? -1 : row * columnCount() + cell->columnIndex();
}

QAccessibleInterface* ListAccess::childAt(int x, int y) const {
  for (int i = 0; i < childCount(); ++i) {
    if (QAccessibleInterface* cell = child(i); cell && cell->rect().contains(x, y)) return cell;
  }
  return nullptr;
}

QAccessibleInterface* ListAccess::focusChild() const {
  const int row = list().CurrentRow();
  return list().hasFocus() && row >= 1 ? cellAt(row - 1, 0) : QAccessibleWidget::focusChild();
}

QAccessibleInterface* ListAccess::cellAt(int row, int column) const {
  if (row < 0 || column < 0 || row >= rowCount() || column >= columnCount()) return nullptr;
  const qint64 place = qint64{row} << 16 | column;
  if (const auto known = cells_.constFind(place); known != cells_.constEnd()) return QAccessible::accessibleInterface(*known);
  auto* cell = new CellAccess(const_cast<ListAccess&>(*this), row, column);
  cells_.insert(place, QAccessible::registerAccessibleInterface(cell));
  return cell;
}

QString ListAccess::columnDescription(int column) const {
  ClassQDBASE* table = list().Shown();
  if (!table || column < 0 || column >= table->MAX_COLUMNS()) return {};
  return ToQt(table->ColumnTitle(table->columns()[static_cast<size_t>(column)]));
}

QString ListAccess::rowDescription(int row) const {
  QStringList texts;
  for (int column = 0; column < columnCount(); ++column) texts << CellText(row, column);
  return texts.join("; ");
}

QList<int> ListAccess::selectedRows() const {
  return list().CurrentRow() >= 1 ? QList<int>{list().CurrentRow() - 1} : QList<int>();
}

bool ListAccess::selectRow(int row) {
  return list().window().UserRow(row + 1);
}

QList<QAccessibleInterface*> ListAccess::selectedCells() const {
  QList<QAccessibleInterface*> cells;
  for (const int row : selectedRows()) {
    for (int column = 0; column < columnCount(); ++column) cells << cellAt(row, column);
  }
  return cells;
}

QString ListAccess::CellText(int row, int column) const {
  ClassQDBASE* table = list().Shown();
  if (!table || column < 0 || column >= table->MAX_COLUMNS()) return {};
  return ToQt(table->CellText(row + 1, table->columns()[static_cast<size_t>(column)], list().window().list.Look()));
}

QRect ListAccess::CellRect(int row, int column) const {
  ClassQDBASE* table = list().Shown();
  if (!table || row < 0 || row >= table->MAX_ROWS()) return {};
  const QRect area = list().CellArea(table->selection()[static_cast<size_t>(row)], column + 1);
  return area.isEmpty() ? QRect() : QRect(list().mapToGlobal(area.topLeft()), area.size());
}

}  // namespace ostrinka
