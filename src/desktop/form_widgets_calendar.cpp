// The date field: never typed into; a month opens below it.
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWheelEvent>

#include "app/program.h"
#include "base/format.h"
#include "desktop/dialog_style.h"
#include "desktop/form_widgets.h"

namespace ostrinka {
namespace {

constexpr int kDaysInWeek = 7, kWeeks = 6, kTypingPause = 1000;
constexpr const char* kDayNames[kDaysInWeek] = {"Pn", "Wt", "Śr", "Cz", "Pt", "So", "Nd"};
constexpr int kSaturday = 6;

// The same day of another month, or its last one.
Date MonthsLater(Date date, int months) {
  const YearMonthDay from = date.Ymd();
  const int month = from.year * 12 + from.month - 1 + months;
  for (int day = from.day; day > 27; --day) {
    if (const auto later = Date::FromYmd(month / 12, month % 12 + 1, day)) return *later;
  }
  return Date::FromYmd(month / 12, month % 12 + 1, from.day).value_or(date);
}

Date DayOfMonth(Date date, int day) {
  const YearMonthDay ymd = date.Ymd();
  return Date::FromYmd(ymd.year, ymd.month, day).value_or(date);
}

class Month : public QWidget {
 public:
  std::function<void(Date)> taken;

  Month(const FieldHost& host, QWidget* field) : QWidget(field, Qt::Popup), host_(host) {
    setAttribute(Qt::WA_DeleteOnClose, false);
    setMouseTracking(true);
    setFont(host.look.WindowFont());
    cell_ = fontMetrics().height() + 8;
    wide_ = fontMetrics().horizontalAdvance("00") + 16;
    resize(2 * kMargin + (kDaysInWeek + 1) * wide_, 2 * kMargin + Head() + (kWeeks + 1) * cell_ + 4);
  }
  void Open(Date date, Date today, QPoint below) {
    day_ = date.IsValid() && date.days() != 0 ? date.WithoutTime() : today;
    today_ = today;
    digits_.clear();
    const QRect room = parentWidget()->screen()->availableGeometry();
    below.setX(std::clamp(below.x(), room.left(), std::max(room.left(), room.right() - width())));
    if (below.y() + height() > room.bottom()) below.setY(std::max(room.top(), below.y() - height() - parentWidget()->height() - 2));
    move(below);
    Announce();
    show();
    setFocus();
  }
  Date day() const { return day_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool ctrl = event->modifiers().testFlag(Qt::ControlModifier);
    switch (event->key()) {
      case Qt::Key_Left:
        return Go(day_.PlusDays(-1));
      case Qt::Key_Right:
        return Go(day_.PlusDays(1));
      case Qt::Key_Up:
        return Go(day_.PlusDays(-kDaysInWeek));
      case Qt::Key_Down:
        return Go(day_.PlusDays(kDaysInWeek));
      case Qt::Key_PageUp:
        return Go(MonthsLater(day_, ctrl ? -12 : -1));
      case Qt::Key_PageDown:
        return Go(MonthsLater(day_, ctrl ? 12 : 1));
      case Qt::Key_Home:
        return Go(DayOfMonth(day_, 1));
      case Qt::Key_End:
        return Go(MonthsLater(DayOfMonth(day_, 1), 1).PlusDays(-1));
      case Qt::Key_Return:
      case Qt::Key_Enter:
      case Qt::Key_Space:
        return Take(day_);
      case Qt::Key_Escape:
      case Qt::Key_F4:
        close();
        return;
      default:
        break;
    }
    if (event->text().size() == 1 && event->text()[0].isDigit()) TypeDigit(event->text());
  }
  void mousePressEvent(QMouseEvent* event) override {
    const QPointF at = event->position();
    if (!rect().contains(at.toPoint())) {
      close();
    } else if (at.y() < kMargin + Head()) {
      if (at.x() < kMargin + wide_) Go(MonthsLater(day_, -1));
      if (at.x() > width() - kMargin - wide_) Go(MonthsLater(day_, 1));
    } else if (const std::optional<Date> date = DateAt(at)) {
      Take(*date);
    }
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    const std::optional<Date> date = DateAt(event->position());
    const Date hot = date.value_or(Date());
    if (hot != hot_) update();
    hot_ = hot;
  }
  void wheelEvent(QWheelEvent* event) override {
    if (event->angleDelta().y() != 0) Go(MonthsLater(day_, event->angleDelta().y() > 0 ? -1 : 1));
  }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const DialogColours& c = DialogStyle::Of(host_.look).colours();
    painter.setPen(c.border_hot);
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    PaintHead(painter, c);
    PaintDays(painter, c);
  }

 private:
  static constexpr int kMargin = 8;
  int Head() const { return cell_ + 4; }
  QRectF CellAt(int week, int column) const {
    return {static_cast<double>(kMargin + column * wide_), static_cast<double>(kMargin + Head() + (week + 1) * cell_),
            static_cast<double>(wide_), static_cast<double>(cell_)};
  }
  // Monday of the first week on show.
  Date First() const {
    const Date first = DayOfMonth(day_, 1);
    return first.PlusDays(1 - first.Weekday());
  }
  std::optional<Date> DateAt(QPointF at) const {
    const int column = static_cast<int>((at.x() - kMargin) / wide_) - 1;
    const double below = at.y() - kMargin - Head() - cell_;
    const int week = static_cast<int>(below / cell_);
    if (below < 0 || at.x() < kMargin + wide_ || column >= kDaysInWeek || week >= kWeeks) return std::nullopt;
    return First().PlusDays(week * kDaysInWeek + column);
  }
  void PaintHead(QPainter& painter, const DialogColours& c) {
    const QRectF head(kMargin, kMargin, width() - 2 * kMargin, Head());
    painter.setPen(c.text);
    painter.setFont(host_.look.BoldFont());
    painter.drawText(head, Qt::AlignCenter, ToQt(FormatDate(day_, "mmmm")) + " " + ToQt(FormatDate(day_, "yyyy")));
    painter.setFont(font());
    painter.setPen(QPen(c.faint, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const int side : {-1, 1}) {
      const QPointF at(side < 0 ? head.left() + wide_ / 2.0 : head.right() - wide_ / 2.0, head.center().y());
      painter.drawPolyline(QPolygonF({{at.x() - side * 2, at.y() - 4}, {at.x() + side * 2, at.y()}, {at.x() - side * 2, at.y() + 4}}));
    }
    for (int i = 0; i < kDaysInWeek; ++i) {
      painter.setPen(i + 1 >= kSaturday ? c.error : c.faint);
      painter.drawText(CellAt(-1, i + 1), Qt::AlignCenter, ToQt(kDayNames[i]));
    }
    painter.setPen(c.card_line);
    const double under = CellAt(0, 0).top() - 0.5, beside = CellAt(0, 1).left() - 0.5;
    painter.drawLine(QPointF(kMargin, under), QPointF(width() - kMargin, under));
    painter.drawLine(QPointF(beside, under - cell_ + 4), QPointF(beside, height() - kMargin));
  }
  void PaintDays(QPainter& painter, const DialogColours& c) {
    const int month = day_.Ymd().month;
    for (int week = 0; week < kWeeks; ++week) {
      painter.setPen(c.disabled);
      painter.drawText(CellAt(week, 0), Qt::AlignCenter, ToQt(FormatDate(First().PlusDays(week * kDaysInWeek), "ww")));
      for (int i = 0; i < kDaysInWeek; ++i) {
        const Date date = First().PlusDays(week * kDaysInWeek + i);
        const QRectF cell = CellAt(week, i + 1).adjusted(1.5, 1.5, -1.5, -1.5);
        const bool chosen = date == day_;
        painter.setPen(chosen ? QPen(c.ring, 2) : date == today_ ? QPen(c.accent, 1.5) : QPen(Qt::NoPen));
        painter.setBrush(chosen ? c.chosen : date == hot_ ? c.pane : QColor(Qt::transparent));
        painter.drawRoundedRect(cell, 3, 3);
        painter.setPen(date.Ymd().month != month ? c.border : i + 1 >= kSaturday ? c.error : c.text);
        painter.drawText(cell, Qt::AlignCenter, QString::number(date.Ymd().day));
      }
    }
  }
  void Go(Date date) {
    if (!date.IsValid()) return;
    day_ = date;
    Announce();
    update();
  }
  void TypeDigit(const QString& digit) {
    if (clock_.isValid() && clock_.elapsed() > kTypingPause) digits_.clear();
    clock_.restart();
    const int both = (digits_ + digit).toInt();
    const bool possible = both >= 1 && DayOfMonth(day_, both).Ymd().day == both;
    digits_ = possible ? digits_ + digit : digit;
    if (digits_.toInt() >= 1) Go(DayOfMonth(day_, digits_.toInt()));
  }
  void Take(Date date) {
    close();
    taken(date);
  }
  void Announce() { setAccessibleName(ToQt(FormatDate(day_, "dddd d mmmm yyyy"))); }

  const FieldHost& host_;
  int cell_ = 22, wide_ = 30;
  Date day_, today_, hot_;
  QString digits_;
  QElapsedTimer clock_;
};

class DayField : public QComboBox {
 public:
  DayField(FieldHost& host, CalendarControl& control, QWidget* parent) : QComboBox(parent), host_(host), control_(control) {
    addItem(QString());
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    const std::string format = host.program.Text("common.caldate.format");
    if (!format.starts_with('%')) control.format = format;
  }
  void Show() {
    setItemText(0, ToQt(control_.ShownText()));
    setToolTip(control_.tool_tip().empty() ? QString() : ToQt(control_.tool_tip()));
  }
  void showPopup() override {
    host_.settle();
    if (!control_.CanAct()) return;
    if (!month_) {
      month_ = new Month(host_, this);
      month_->taken = [this](Date date) { control_.UserPick(date); };
    }
    month_->Open(control_.CurrentDate(), host_.program.platform.clock.Now().WithoutTime(), mapToGlobal(QPoint(0, height() + 1)));
  }
  QSize minimumSizeHint() const override { return {fontMetrics().horizontalAdvance("00-00-0000") + 34, FieldHeight(*this)}; }
  QSize sizeHint() const override { return minimumSizeHint(); }

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
  void keyPressEvent(QKeyEvent* event) override {
    const bool down = event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier);
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_F4 || down) {
      showPopup();
    } else {
      event->ignore();
    }
  }

 private:
  FieldHost& host_;
  CalendarControl& control_;
  Month* month_ = nullptr;
};

}  // namespace

QWidget* MakeDayField(FieldHost& host, CalendarControl& control, QWidget* parent) {
  auto* field = new DayField(host, control, parent);
  Follow(control, field, [field] { field->Show(); });
  return field;
}

}  // namespace ostrinka
