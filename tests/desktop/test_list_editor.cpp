#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QScrollBar>

#include "company/tables.h"
#include "desktop/company_window.h"

namespace ostrinka {
namespace {

// The tab of dictionaries, before a person at the keyboard.
class ListEditorTest : public CompanyWindow {
 protected:
  ListEditorTest() {
    Open();
    window->UserTab("SŁOWNIKI");
  }

  void Pick(const char* key) {
    window->UserCommand(key);
    Turn();
  }
  void Type(const QString& text) {
    for (const QChar letter : text) Key(0, {}, letter);
  }
  // The middle of a cell as it was drawn.
  QPoint CellAt(int row, int column) {
    const auto& rows = window->ViewTable()->selection();
    for (const TableCell& cell : window->ViewTable()->cells()) {
      if (cell.column != column || cell.record != rows[static_cast<size_t>(row - 1)]) continue;
      return {(cell.left + cell.right) / 2 + ListView::kInset, (cell.top + cell.bottom) / 2};
    }
    ADD_FAILURE() << "no cell " << row << " " << column;
    return {};
  }
  void Click(int row, int column) {
    ClickAt(view->list(), CellAt(row, column));
    Turn();
  }
  std::string Shown(int row, int column) {
    ClassQDBASE& table = *window->ViewTable();
    return table.CellText(row, table.columns()[static_cast<size_t>(column - 1)], window->list.Look());
  }
  void AddCountries(int count) {
    ClassQDBASE& table = Table(*program, kPanstwa);
    for (int i = 1; i <= count; ++i) {
      EXPECT_TRUE(table.RECORD_ADD());
      EXPECT_TRUE(table.RECORD_LOAD(table.RECORD_COUNT()));
      EXPECT_TRUE(table.FIELD("NAZWA", "Państwo " + std::to_string(i)));
      EXPECT_TRUE(table.RECORD_SAVE(table.RECORD_COUNT()));
    }
  }
  // The field that is open over the list; null when none is.
  QLineEdit* Line() {
    for (QLineEdit* field : view->list().findChildren<QLineEdit*>()) {
      if (field->isVisible() && field->parentWidget() == &view->list()) return field;
    }
    return nullptr;
  }
};

TEST_F(ListEditorTest, ARowIsAddedAndFilledByTheKeyboardAlone) {
  Pick("SŁOWNIK.STAWKIVAT");
  const int rows = window->ViewTable()->MAX_ROWS();
  ui.answers = {Answer::kYes};
  window->UserCommand("SŁOWNIK.REKORD.DODAJ");
  Turn();
  ASSERT_NE(Line(), nullptr);
  EXPECT_TRUE(Line()->hasFocus());
  Type("Próbna");
  Key(Qt::Key_Return);
  Type("P");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Line()->selectedText(), "0");
  EXPECT_TRUE(Line()->alignment() & Qt::AlignRight);
  Type("7,5");
  Key(Qt::Key_Return);
  EXPECT_EQ(Line(), nullptr);
  EXPECT_TRUE(view->list().hasFocus());
  EXPECT_EQ(Shown(rows + 1, 1) + Shown(rows + 1, 2) + Shown(rows + 1, 3), "PróbnaP7,5");
}

TEST_F(ListEditorTest, TheFieldLiesOverItsCellAndFollowsIt) {
  AddCountries(80);
  Pick("SŁOWNIK.PAŃSTWA");
  Click(3, 1);
  ASSERT_NE(Line(), nullptr);
  const QPoint middle = CellAt(3, 1);
  EXPECT_TRUE(Line()->geometry().contains(middle));
  EXPECT_LE(Line()->height(), 40);
  EXPECT_EQ(Line()->selectedText().toStdString(), Shown(3, 1));
  window->Zoom(1.5);
  Turn();
  EXPECT_TRUE(Line()->geometry().contains(CellAt(3, 1)));
  window->Zoom(1);
  // A cell below the lower edge comes into view with its field.
  Key(Qt::Key_Escape);
  Key(Qt::Key_End);
  const int last = window->ViewTable()->MAX_ROWS();
  EXPECT_GT(window->list.first_row, 1);
  Key(Qt::Key_Return);
  ASSERT_NE(Line(), nullptr);
  EXPECT_TRUE(Line()->geometry().contains(CellAt(last, 1)));
  for (int i = 0; i < 40; ++i) Key(Qt::Key_Up);
  EXPECT_EQ(view->list().CurrentRow(), last - 40);
  EXPECT_TRUE(Line()->geometry().contains(CellAt(last - 40, 1)));
  // A press on the head's border resizes the column, and the field keeps the keyboard.
  const int width = Line()->width();
  const TableCell& any = window->ViewTable()->cells().front();
  const QPoint border(any.right + 1 + ListView::kInset, 6);
  view->list().setFocus(Qt::MouseFocusReason);
  SendMouse(view->list(), QEvent::MouseButtonPress, border);
  SendMouse(view->list(), QEvent::MouseMove, border + QPoint(60, 0));
  SendMouse(view->list(), QEvent::MouseButtonRelease, border + QPoint(60, 0));
  Turn();
  ASSERT_NE(Line(), nullptr);
  EXPECT_GT(Line()->width(), width + 30);
  EXPECT_TRUE(Line()->hasFocus());
  // One that is scrolled away keeps what was typed.
  Key(Qt::Key_A, Qt::ControlModifier);
  Type("Nowa nazwa");
  view->list().findChildren<QScrollBar*>().first()->setValue(0);
  Turn();
  EXPECT_FALSE(view->list().rect().intersects(Line()->geometry()));
  Key(Qt::Key_F5);
  Key(Qt::Key_F10);
  EXPECT_EQ(Shown(last - 40, 1), "Nowa nazwa");
}

TEST_F(ListEditorTest, KeysOfTheCaretBelongToTheOpenField) {
  Pick("SŁOWNIK.WALUTY");
  const int rows = window->ViewTable()->MAX_ROWS();
  Click(1, 1);
  ASSERT_NE(Line(), nullptr);
  const QString before = Line()->text();
  for (const int key : {Qt::Key_Home, Qt::Key_Left, Qt::Key_End, Qt::Key_Right, Qt::Key_Delete, Qt::Key_Space, Qt::Key_Backspace}) {
    Key(key, {}, key == Qt::Key_Space ? " " : "");
    ASSERT_NE(Line(), nullptr) << key;
    EXPECT_EQ(view->list().CurrentRow(), 1);
  }
  EXPECT_EQ(Line()->text(), before);
  Key(Qt::Key_Home);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Line()->text(), before.mid(1));
  EXPECT_EQ(window->ViewTable()->MAX_ROWS(), rows);
  EXPECT_TRUE(ui.messages.empty());
  Key(Qt::Key_Escape);
  EXPECT_EQ(Line(), nullptr);
  EXPECT_EQ(Shown(1, 1), before.toStdString());
  EXPECT_TRUE(view->list().hasFocus());
  Key(Qt::Key_Delete);  // now it is the list's
  EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(ListEditorTest, ALetterThatTheTablesLackIsNotTakenWithABeep) {
  Pick("SŁOWNIK.STAWKIVAT");
  Click(1, 2);
  ASSERT_NE(Line(), nullptr);
  const auto typed = [&](const QString& letter) { Key(0, {}, letter); };
  const auto composed = [&](const QString& letter) {
    QInputMethodEvent event;
    event.setCommitString(letter);
    QCoreApplication::sendEvent(Line(), &event);
  };
  const auto pasted = [&](const QString& letter) {
    QApplication::clipboard()->setText(letter);
    Key(Qt::Key_V, Qt::ControlModifier);
  };
  Type("ż");
  EXPECT_EQ(ui.beeps, 0);
  int beeps = 0;
  for (const std::function<void(const QString&)>& way :
       std::initializer_list<std::function<void(const QString&)>>{typed, composed, pasted}) {
    way(QString::fromUtf8("中"));
    EXPECT_EQ(Line()->text(), QString::fromUtf8("ż"));
    EXPECT_EQ(ui.beeps, ++beeps);
  }
  composed(QString::fromUtf8("ó"));
  EXPECT_EQ(Line()->text(), QString::fromUtf8("żó"));
  Type("12345678");
  EXPECT_EQ(ui.beeps, beeps);
  Type("9");  // the eleventh
  EXPECT_EQ(ui.beeps, beeps + 1);
}

TEST_F(ListEditorTest, ABooleanTurnsAtTheClickAndALinkOpensItsList) {
  Pick("SŁOWNIK.PŁATNOŚCI");
  const std::string before = Shown(2, 4);
  Click(2, 4);
  EXPECT_NE(Shown(2, 4), before);
  EXPECT_EQ(Line(), nullptr);
  view->list().setFocus();
  Key(Qt::Key_Space, {}, " ");
  EXPECT_EQ(Shown(2, 4), before);
  AddCountries(3);
  Pick("SŁOWNIK.REGIONY");
  Click(1, 3);
  auto* box = view->list().findChild<QComboBox*>();
  ASSERT_NE(box, nullptr);
  ASSERT_TRUE(box->isVisible());
  EXPECT_GT(box->count(), 2);
  EXPECT_EQ(box->itemText(0), "");
  box->setCurrentIndex(2);
  emit box->activated(2);
  Turn();
  EXPECT_FALSE(box->isVisible());
  EXPECT_EQ(Shown(1, 3), box->itemText(2).toStdString());
  // A list that closes without a choice leaves the cell as it was.
  Click(1, 3);
  ASSERT_TRUE(box->isVisible());
  box->hidePopup();
  Turn();
  Turn();
  EXPECT_FALSE(box->isVisible());
  EXPECT_EQ(Shown(1, 3), box->itemText(2).toStdString());
}

TEST_F(ListEditorTest, AValueThatDoesNotConvertIsToldAndTheListGoesOn) {
  Pick("SŁOWNIK.STAWKIVAT");
  const std::string before = Shown(1, 3);
  Click(1, 3);
  Type("abc");
  Click(2, 1);
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], std::pair(program->Text("mdi.message.dict.error"), MessageKind::kError));
  EXPECT_EQ(Shown(1, 3), before);
  ASSERT_NE(Line(), nullptr);
  EXPECT_EQ(Line()->text().toStdString(), Shown(2, 1));
}

}  // namespace
}  // namespace ostrinka
