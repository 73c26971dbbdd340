#include "desktop/form_layout.h"

#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "app/program.h"
#include "desktop/dialog_style.h"

namespace ostrinka {
namespace {

constexpr int kColumns = 12;
constexpr int kGap = 8, kGroupGap = 12, kCaptionGap = 3, kRowSpacing = 8, kCardMargin = 12, kPageMargin = 14, kUsualWidth = 640;
constexpr double kMatrixCaption = 2;

// A framed group with its caption.
class Card : public QWidget {
 public:
  Card(const Look& look, QString caption, QWidget* parent) : QWidget(parent), look_(look), caption_(std::move(caption)) {
    setAccessibleName(caption_);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const DialogStyle& style = DialogStyle::Of(look_);
    style.PaintCard(painter, rect(), style.colours().card);
    if (caption_.isEmpty()) return;
    painter.setFont(look_.BoldFont());
    painter.setPen(style.colours().faint);
    painter.drawText(QRectF(kCardMargin, kCardMargin - 3, width() - 2 * kCardMargin, fontMetrics().height() + 2), Qt::AlignVCenter,
                     caption_);
  }

 private:
  const Look& look_;
  QString caption_;
};

bool Fills(const QWidget* widget) {
  return widget && widget->sizePolicy().verticalPolicy() == QSizePolicy::Expanding;
}

// A paragraph is as high as its width makes it.
int HeightOf(const QWidget& widget, int width) {
  if (width >= 0 && widget.hasHeightForWidth()) return widget.heightForWidth(width);
  return std::max(widget.sizeHint().height(), widget.minimumSizeHint().height());
}

// Text in lines as long as there is room; it asks for no width of its own.
class Paragraph : public QLabel {
 public:
  Paragraph(const QString& text, QWidget* parent) : QLabel(text, parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
  }
  QSize sizeHint() const override { return {kUsualWidth, heightForWidth(kUsualWidth)}; }
  QSize minimumSizeHint() const override { return {kNarrowest, fontMetrics().height()}; }

 private:
  static constexpr int kNarrowest = 160;
};

// Whether something on it takes the free height of the page.
bool Stretches(const LayoutItem& item) {
  if (item.kind == LayoutItem::Kind::kTable) return (item.flags & kStretch) != 0;
  if (item.kind == LayoutItem::Kind::kSide) {
    return std::any_of(item.groups.begin(), item.groups.end(), [](const GroupLayout& group) {
      return std::any_of(group.items().begin(), group.items().end(), [](const LayoutItem& inner) { return Stretches(inner); });
    });
  }
  return std::any_of(item.cells.begin(), item.cells.end(), [](const Cell& cell) { return (cell.flags & kStretch) != 0; });
}

QString WithoutAccessKey(QString text) {
  return text.replace("&&", "\x01").remove('&').replace('\x01', '&');
}

}  // namespace

// --- the row

RowLayout::~RowLayout() {
  qDeleteAll(items_);
}

void RowLayout::AddCell(const Cell& cell) {
  for (QWidget* widget : {cell.caption, cell.field}) {
    if (!widget) continue;
    addChildWidget(widget);
    items_.append(new QWidgetItem(widget));
  }
  cells_.push_back(cell);
}

int RowLayout::CaptionHeight() const {
  int height = 0;
  for (const Cell& cell : cells_) {
    if (cell.caption && !cell.beside) height = std::max(height, cell.caption->sizeHint().height() + kCaptionGap);
  }
  return height;
}

int RowLayout::FieldsHeight(int width) const {
  const double unit = (width - gap_ * (kColumns - 1)) / static_cast<double>(kColumns);
  int height = 0;
  for (const Cell& cell : cells_) {
    const int wide = width < 0 ? -1 : static_cast<int>(std::lround(cell.span * (unit + gap_) - gap_));
    if (cell.field) height = std::max(height, HeightOf(*cell.field, wide));
  }
  return height;
}

bool RowLayout::hasHeightForWidth() const {
  return std::any_of(cells_.begin(), cells_.end(), [](const Cell& cell) { return cell.field && cell.field->hasHeightForWidth(); });
}

int RowLayout::heightForWidth(int width) const {
  const QMargins around = contentsMargins();
  return CaptionHeight() + FieldsHeight(width - around.left() - around.right()) + around.top() + around.bottom();
}

Qt::Orientations RowLayout::expandingDirections() const {
  const bool fills = std::any_of(cells_.begin(), cells_.end(), [](const Cell& cell) { return Fills(cell.field); });
  return fills ? Qt::Horizontal | Qt::Vertical : Qt::Orientations(Qt::Horizontal);
}

// Paragraphs show their height at a width that is usual for them.
QSize RowLayout::sizeHint() const {
  const QSize least = minimumSize();
  if (!hasHeightForWidth()) return least;
  const int width = std::max(least.width(), kUsualWidth);
  return {width, heightForWidth(width)};
}

QSize RowLayout::minimumSize() const {
  double unit = 1;
  for (const Cell& cell : cells_) {
    int wanted = cell.field ? cell.field->minimumSizeHint().width() : 0;
    const int caption = cell.caption ? cell.caption->sizeHint().width() : 0;
    wanted = cell.beside ? wanted + caption + kGap : std::max(wanted, caption);
    unit = std::max(unit, (wanted - (cell.span - 1) * gap_) / std::max(cell.span, 0.5));
  }
  const QMargins around = contentsMargins();
  return {static_cast<int>(std::ceil(unit * kColumns + gap_ * (kColumns - 1))) + around.left() + around.right(),
          CaptionHeight() + FieldsHeight(-1) + around.top() + around.bottom()};
}

void RowLayout::setGeometry(const QRect& outer) {
  QLayout::setGeometry(outer);
  const QRect area = outer.marginsRemoved(contentsMargins());
  const double unit = (area.width() - gap_ * (kColumns - 1)) / static_cast<double>(kColumns);
  const int top = area.top() + CaptionHeight();
  const int room = std::max(area.bottom() + 1 - top, FieldsHeight(area.width()));
  double place = 0;
  for (const Cell& cell : cells_) {
    const int left = area.left() + static_cast<int>(std::lround(place * (unit + gap_)));
    place += cell.span;
    const int right = area.left() + static_cast<int>(std::lround(place * (unit + gap_) - gap_));
    int from = left;
    const auto* amount = cell.caption && cell.beside ? qobject_cast<const QLabel*>(cell.field) : nullptr;
    if (amount && amount->alignment().testFlag(Qt::AlignRight)) {  // both at the right, close together
      const int wide = std::min(amount->sizeHint().width(), right - left);
      const int words = std::min(cell.caption->sizeHint().width(), right - left - wide - kGap);
      cell.caption->setGeometry(right - wide - kGap - words, top, std::max(words, 0), FieldHeight(*cell.caption));
      from = right - wide;
    } else if (cell.caption && cell.beside) {
      const int wide = cell.caption->sizeHint().width();
      cell.caption->setGeometry(from, top, wide, FieldHeight(*cell.caption));
      from += wide + kGap;
    } else if (cell.caption) {
      cell.caption->setGeometry(left, area.top(), right - left, CaptionHeight() - kCaptionGap);
    }
    if (!cell.field) continue;
    // A check box among fields stands in the middle of their line.
    int height = HeightOf(*cell.field, right - from);
    const int line = std::min(FieldHeight(*cell.field), room);
    if (Fills(cell.field)) {
      height = room;
    } else {
      height = std::max(height, line);
    }
    cell.field->setGeometry(from, top, std::max(right - from, 0), height);
  }
}

// --- the builder

QLabel* FormBuilder::Caption(const std::string& key, QWidget* parent) {
  if (key.empty()) return nullptr;
  auto* label = new QLabel(host_.look.Text(key), parent);
  QPalette palette = label->palette();
  const DialogColours& colours = DialogStyle::Of(host_.look).colours();
  palette.setColor(QPalette::WindowText, colours.faint);
  palette.setColor(QPalette::Disabled, QPalette::WindowText, colours.disabled);
  label->setPalette(palette);
  return label;
}

QWidget* FormBuilder::Field(Control& control, unsigned flags, const QString& name, QLabel* caption, QWidget* parent) {
  QWidget* field = MakeField(host_, control, flags, parent);
  if (!field) return nullptr;
  if (!name.isEmpty()) field->setAccessibleName(WithoutAccessKey(name));
  if (caption && field->focusPolicy() != Qt::NoFocus) caption->setBuddy(field);
  fields_[&control] = {field, caption, page_};
  order_.push_back(&control);
  return field;
}

QWidget* FormBuilder::BuildButton(ButtonControl& button, QWidget* parent) {
  page_.clear();
  QWidget* widget = Field(button, kPlain, host_.look.Text(button.caption_key), nullptr, parent);
  widget->setProperty(kBarButton, true);
  return widget;
}

QWidget* FormBuilder::BuildPage(const PageLayout& page, QWidget* parent) {
  auto* widget = new QWidget(parent);
  page_ = page.key;
  group_name_ = page.caption_key;
  BuildGroup(page.content, widget);
  widget->layout()->setContentsMargins(kPageMargin, kPageMargin, kPageMargin, kPageMargin);
  return widget;
}

void FormBuilder::BuildGroup(const GroupLayout& group, QWidget* box) {
  auto* rows = new QVBoxLayout(box);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(kRowSpacing);
  bool stretches = false;
  for (const LayoutItem& item : group.items()) {
    const bool stretch = Stretches(item);
    stretches = stretches || stretch;
    QWidget* built = BuildItem(item, box);
    if (!stretch) built->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    rows->addWidget(built, stretch ? 1 : 0);
  }
  // The part that stretches may be away for a while: then the free height stays below.
  rows->addStretch(stretches ? 0 : 1);
}

QWidget* FormBuilder::BuildItem(const LayoutItem& item, QWidget* parent) {
  auto* box = new QWidget(parent);
  Section section{box, {}, item.when, item.when_value};
  switch (item.kind) {
    case LayoutItem::Kind::kRow: {
      BuildRow(item, box);
      const bool collapses =
          std::any_of(item.cells.begin(), item.cells.end(), [](const Cell& cell) { return (cell.flags & kCollapse) != 0; });
      for (const Cell& cell : item.cells) {
        if (collapses && cell.control) section.controls.push_back(cell.control);
      }
      break;
    }
    case LayoutItem::Kind::kSide:
      BuildSide(item, box);
      break;
    case LayoutItem::Kind::kMatrix:
      BuildMatrix(item, box);
      break;
    case LayoutItem::Kind::kFiles:
      BuildFiles(item, box);
      break;
    case LayoutItem::Kind::kTable: {
      auto* layout = new QVBoxLayout(box);
      layout->setContentsMargins(0, 0, 0, 0);
      layout->addWidget(Field(*item.table, item.flags, host_.look.Text(group_name_), nullptr, box));
      break;
    }
    case LayoutItem::Kind::kInfo: {
      auto* layout = new QVBoxLayout(box);
      layout->setContentsMargins(0, 0, 0, 0);
      layout->addWidget(new Paragraph(host_.look.Text(item.text_key), box));
      break;
    }
  }
  if (section.when || !section.controls.empty()) sections_.push_back(section);
  return box;
}

void FormBuilder::BuildRow(const LayoutItem& item, QWidget* box) {
  auto* row = new RowLayout(kGap);
  row->setContentsMargins(0, 0, 0, 0);
  box->setLayout(row);
  QString name;  // a field without a caption of its own is known by what stands before it
  for (const Cell& cell : item.cells) {
    RowLayout::Cell made;
    made.span = cell.span;
    if (cell.control) {
      QLabel* caption = Caption(cell.caption_key, box);
      if (caption && (cell.flags & kStrong)) caption->setFont(host_.look.BoldFont());
      if (caption) name = caption->text();
      made.caption = caption;
      made.beside = (cell.flags & kInline) != 0;
      made.field = Field(*cell.control, cell.flags, name, caption, box);
      const QString own = made.field ? made.field->property("text").toString() : QString();
      if (!caption && !own.isEmpty()) {
        name = own;
        made.field->setAccessibleName(WithoutAccessKey(own));
      }
    }
    row->AddCell(made);
  }
}

void FormBuilder::BuildSide(const LayoutItem& item, QWidget* box) {
  auto* row = new RowLayout(kGroupGap);
  row->setContentsMargins(0, 0, 0, 0);
  box->setLayout(row);
  for (const GroupLayout& group : item.groups) {
    const QString caption = host_.look.Text(group.caption_key());
    auto* card = new Card(host_.look, caption, box);
    card->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    BuildGroup(group, card);
    const int head = caption.isEmpty() ? 0 : card->fontMetrics().height() + 6;
    card->layout()->setContentsMargins(kCardMargin, kCardMargin + head, kCardMargin, kCardMargin);
    row->AddCell({nullptr, card, static_cast<double>(group.span()), false});
  }
}

void FormBuilder::BuildMatrix(const LayoutItem& item, QWidget* box) {
  auto* lines = new QVBoxLayout(box);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(kRowSpacing - 2);
  const size_t rows = item.columns.empty() ? 0 : item.columns.front().size();
  const double lead = item.row_captions.empty() ? 0 : kMatrixCaption;
  const double span = (kColumns - lead) / std::max<double>(1, static_cast<double>(item.columns.size()));
  for (size_t i = 0; i < rows; ++i) {
    auto* holder = new QWidget(box);
    auto* row = new RowLayout(kGap);
    row->setContentsMargins(0, 0, 0, 0);
    holder->setLayout(row);
    QLabel* head = i < item.row_captions.size() ? Caption(item.row_captions[i], holder) : nullptr;
    if (lead > 0) row->AddCell({nullptr, head, lead, false});
    for (size_t column = 0; column < item.columns.size(); ++column) {
      QLabel* caption = i == 0 && column < item.heads.size() ? Caption(item.heads[column], holder) : nullptr;
      if (caption) caption->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
      const QString title = column < item.heads.size() ? host_.look.Text(item.heads[column]) : QString();
      const QString name = head ? head->text() + ", " + title : title;
      QWidget* field = Field(*item.columns[column][i], kRight, name, caption, holder);
      row->AddCell({caption, field, span, false});
    }
    lines->addWidget(holder);
  }
}

void FormBuilder::BuildFiles(const LayoutItem& item, QWidget* box) {
  auto* column = new QVBoxLayout(box);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kCaptionGap);
  QLabel* caption = Caption(item.text_key, box);
  if (caption) column->addWidget(caption);
  auto* row = new QHBoxLayout;
  column->addLayout(row);
  row->setSpacing(kGap);
  row->addWidget(Field(*item.cells.front().control, kPlain, host_.look.Text(item.text_key), caption, box), 1);
  const auto& list = static_cast<const MemoControl&>(*item.cells.front().control);
  const auto& remove = static_cast<const ButtonControl&>(*item.cells[2].control);
  host_.confirm[&remove] = [&host = host_, &list] {
    if (list.selected() < 0) return true;
    const std::string& name = list.items()[static_cast<size_t>(list.selected())].name;
    return host.program.Message("common.delattachment", MessageKind::kQuestion, {name}) == Answer::kYes;
  };
  auto* buttons = new QVBoxLayout;
  buttons->setSpacing(kCaptionGap * 2);
  for (size_t i = 1; i < item.cells.size(); ++i) {
    auto& button = static_cast<ButtonControl&>(*item.cells[i].control);
    buttons->addWidget(Field(button, kPlain, host_.look.Text(button.caption_key), nullptr, box));
  }
  buttons->addStretch(1);
  row->addLayout(buttons);
}

}  // namespace ostrinka
