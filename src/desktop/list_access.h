// The list of the main window to assistive technology: a table of rows and columns, with the texts of its cells.
#pragma once

#include <QAccessibleWidget>
#include <QHash>

#include "desktop/list_view.h"

namespace ostrinka {

class ListAccess : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  // Makes lists known as tables from now on.
  static void Announce();

  explicit ListAccess(ListView* list) : QAccessibleWidget(list, QAccessible::Table) {}
  ~ListAccess() override;

  // Children are the cells of the rows on show, row by row.
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  // Rows and columns count from 0, over the whole selection.
  QAccessibleInterface* cellAt(int row, int column) const override;
  int rowCount() const override;
  int columnCount() const override;
  QString columnDescription(int column) const override;
  QString rowDescription(int row) const override;
  int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
  QList<int> selectedRows() const override;
  bool isRowSelected(int row) const override { return selectedRows().contains(row); }
  bool selectRow(int row) override;
  bool unselectRow(int) override { return false; }
  int selectedCellCount() const override { return selectedRowCount() * columnCount(); }
  QList<QAccessibleInterface*> selectedCells() const override;
  int selectedColumnCount() const override { return 0; }
  QList<int> selectedColumns() const override { return {}; }
  bool isColumnSelected(int) const override { return false; }
  bool selectColumn(int) override { return false; }
  bool unselectColumn(int) override { return false; }
  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  void modelChange(QAccessibleTableModelChangeEvent*) override {}

  QString CellText(int row, int column) const;
  QRect CellRect(int row, int column) const;  // on the screen; empty for a cell that is not on show
  ListView& list() const { return *static_cast<ListView*>(widget()); }
  int FirstShown() const;

 private:
  mutable QHash<qint64, QAccessible::Id> cells_;
};

}  // namespace ostrinka
