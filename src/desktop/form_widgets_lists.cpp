// Lists to choose from. The entries stay in the model: a list of 20,000 customers opens as fast as one of five.
#include <QAbstractListModel>
#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QListView>
#include <QScreen>
#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "desktop/dialog_style.h"
#include "desktop/form_widgets.h"

namespace ostrinka {
namespace {

constexpr int kSearchPause = 1200;  // ms after which typing starts a new word
constexpr int kMoves[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
constexpr int kShownRows = 14, kWidestPopup = 640, kMeasuredRows = 400;

class Entries : public QAbstractListModel {
 public:
  Entries(const ComboControl& control, QObject* parent) : QAbstractListModel(parent), control_(control), rows_(control.ListCount()) {}
  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (index.row() < 0 || index.row() >= control_.ListCount()) return {};
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) return ToQt(control_.List(index.row()));
    return {};
  }
  // The model may have been filled anew.
  void Refresh() {
    if (rows_ == control_.ListCount()) return;
    beginResetModel();
    rows_ = control_.ListCount();
    endResetModel();
  }

 private:
  const ComboControl& control_;
  int rows_;
};

// The word that a person types to find an entry: beginnings first, then the beginning of any word, then any place.
class TypedSearch {
 public:
  // The entry found, -1 for none. The blank key counts only within a word that was begun.
  int Type(const ComboControl& control, const QString& letters) {
    if (!Running()) typed_.clear();
    clock_.restart();
    const int found = Find(control, FoldPolish(FromQt(typed_ + letters)));
    if (found >= 0) typed_ += letters;
    return found;
  }
  int Shorten(const ComboControl& control) {
    if (!Running() || typed_.isEmpty()) return -1;
    typed_.chop(1);
    clock_.restart();
    return typed_.isEmpty() ? -1 : Find(control, FoldPolish(FromQt(typed_)));
  }
  bool Running() const { return !typed_.isEmpty() && clock_.isValid() && clock_.elapsed() < kSearchPause; }
  void End() { typed_.clear(); }

 private:
  static int Find(const ComboControl& control, const std::string& wanted) {
    int best = -1, best_rank = 3;
    for (int i = 0; i < control.ListCount() && best_rank > 0; ++i) {
      const std::string text = FoldPolish(control.List(i));
      const size_t at = text.find(wanted);
      if (at == std::string::npos) continue;
      const int rank = at == 0 ? 0 : text.find(" " + wanted) != std::string::npos ? 1 : 2;
      if (rank >= best_rank) continue;
      best = i;
      best_rank = rank;
    }
    return best;
  }
  QString typed_;
  QElapsedTimer clock_;
};

class Popup : public QListView {
 public:
  Popup(const ComboControl& control, QWidget* parent) : QListView(parent), control_(control) {
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
  }
  void keyboardSearch(const QString& letters) override {
    const int row = search_.Type(control_, letters);
    if (row >= 0) setCurrentIndex(model()->index(row, 0));
  }

 private:
  const ComboControl& control_;
  TypedSearch search_;
};

class ListField : public QComboBox {
 public:
  ListField(FieldHost& host, ComboControl& control, QWidget* parent)
      : QComboBox(parent), host_(host), control_(control), entries_(new Entries(control, this)) {
    setModel(entries_);
    setView(new Popup(control, this));
    view()->setPalette(DialogStyle::Of(host.look).ListPalette());
    setMaxVisibleItems(kShownRows);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QComboBox::activated, this, [this](int row) { Choose(row); });
  }
  void Show() {
    entries_->Refresh();
    if (currentIndex() != control_.ListIndex()) setCurrentIndex(control_.ListIndex());
    setToolTip(control_.tool_tip().empty() ? currentText() : ToQt(control_.tool_tip()));
    update();
  }
  void showPopup() override {
    search_.End();
    // As wide as the entries on the first pages need.
    int width = this->width();
    for (int i = 0; i < std::min(control_.ListCount(), kMeasuredRows); ++i) {
      width = std::max(width, fontMetrics().horizontalAdvance(ToQt(control_.List(i))) + 36);
    }
    view()->setMinimumWidth(std::min(width, kWidestPopup) - 4);
    QComboBox::showPopup();
  }
  QSize minimumSizeHint() const override { return {60, FieldHeight(*this)}; }
  QSize sizeHint() const override { return {120, FieldHeight(*this)}; }

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }  // rolling over a form must not change it
  void keyPressEvent(QKeyEvent* event) override {
    const QString letters = event->text();
    const bool plain =
        !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) || event->modifiers().testFlag(Qt::GroupSwitchModifier);
    if (event->key() == Qt::Key_Space && !search_.Running()) {
      showPopup();
    } else if (plain && control_.Changed.IsHeard() && std::find(std::begin(kMoves), std::end(kMoves), event->key()) != std::end(kMoves)) {
      MoveInPopup(event->key());
    } else if (event->key() == Qt::Key_Backspace) {
      Choose(search_.Shorten(control_));
    } else if (plain && !letters.isEmpty() && letters[0].isPrint()) {
      const int found = search_.Type(control_, letters);
      found < 0 ? host_.Beep() : Choose(found);
    } else {
      QComboBox::keyPressEvent(event);
    }
  }

 private:
  // A choice that moves other fields is made in the open list and confirmed there: walking past an entry must not count as choosing it.
  void MoveInPopup(int key) {
    showPopup();
    QKeyEvent move(QEvent::KeyPress, key, Qt::NoModifier);
    if (view()->isVisible()) QCoreApplication::sendEvent(view(), &move);
  }
  void Choose(int row) {
    if (row < 0 || row == control_.ListIndex()) return;
    host_.settle();
    const QPointer<QWidget> guard(this);
    control_.UserSelect(row);
    if (guard) Show();
  }
  FieldHost& host_;
  ComboControl& control_;
  Entries* entries_;
  TypedSearch search_;
};

}  // namespace

QWidget* MakeListField(FieldHost& host, ComboControl& control, QWidget* parent) {
  auto* field = new ListField(host, control, parent);
  Follow(control, field, [field] { field->Show(); });
  return field;
}

}  // namespace ostrinka
