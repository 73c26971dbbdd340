#include "desktop/ribbon_view.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <algorithm>

#include "desktop/form_widgets.h"
#include "shell/commands.h"

namespace ostrinka {
namespace {

constexpr int kTabRow = 34, kPanel = 98, kBarCaption = 18, kLargeTool = 72;

// A toolbar: its tools above its caption, a hairline on its right.
class BarWidget : public QWidget {
 public:
  BarWidget(const Look& look, QString caption, QWidget* parent) : QWidget(parent), look_(look), caption_(std::move(caption)) {
    setAccessibleName(caption_);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 4, 7, kBarCaption + 4);
    layout->setSpacing(1);
    layout->setAlignment(Qt::AlignTop);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFixedHeight(kPanel);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    RibbonPainter paint(painter, look_);
    const bool drawn = paint.Nine(rect(), underMouse() ? "group.over" : "group.std", 6, kBarCaption);
    QFont font = look_.WindowFont();
    font.setPointSizeF(font.pointSizeF() * 0.93);
    painter.setFont(font);
    painter.setPen(look_.Colour(SkinColour::kToolbarText));
    painter.drawText(QRectF(0, height() - kBarCaption, width() - 1, kBarCaption - 1), Qt::AlignCenter | Qt::TextDontClip, caption_);
    if (!drawn) paint.Hairline({width() - 1.0, 6}, {width() - 1.0, height() - 8.0}, paint.colours().panel_edge);
  }
  void enterEvent(QEnterEvent*) override { update(); }
  void leaveEvent(QEvent*) override { update(); }

 private:
  const Look& look_;
  QString caption_;
};

}  // namespace

RibbonView::RibbonView(Program& program, MainWindow& window, const Look& look, QWidget* parent)
    : QWidget(parent),
      program_(program),
      window_(window),
      look_(look),
      main_menu_(look, look.Text("mdi.mainbutton"), this),
      tab_menu_(look, look.Text("mdi.list.menu"), this),
      list_(look, look.Text("mdi.list.choices"), this) {
  for (const Command& command : AllCommands()) {
    if (IsBuilt(command)) built_.emplace(command.key);
  }
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 1);
  column->setSpacing(0);
  tab_row_ = new QWidget(this);
  tab_row_->setFixedHeight(kTabRow);
  auto* tabs = new QHBoxLayout(tab_row_);
  tabs->setContentsMargins(8, 0, 8, 0);
  tabs->setSpacing(2);
  tabs->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
  menu_button_ = new RibbonButton(look_, RibbonButton::Shape::kMenu, tab_row_);
  menu_button_->Show(look_.Text("mdi.mainbutton"), true, false, true);
  menu_button_->setToolTip(look_.Text("mdi.mainbutton.tip") + " [Alt, M]");
  menu_button_->drop = [this] { OpenMainMenu(false); };
  tabs->addWidget(menu_button_);
  tabs->addSpacing(6);
  panels_ = new QStackedWidget(this);
  panels_->setFixedHeight(kPanel);
  column->addWidget(tab_row_);
  column->addWidget(panels_);
  for (const RibbonRow& row : RibbonRows()) {
    if (row.kind == RibbonKind::kTab) AddTab(row);
  }
  const auto picked = [this](const std::string& key) { window_.UserCommand(key); };
  main_menu_.chosen = picked;
  tab_menu_.chosen = picked;
  Refresh();
}

bool RibbonView::Usable(std::string_view key) const {
  if (!window_.ribbon.ButtonEnabled(key)) return false;
  const RibbonRow* row = window_.ribbon.Find(key);
  const bool by_parent = row && (row->kind == RibbonKind::kMode || row->kind == RibbonKind::kToggle);
  if (by_parent) return Usable(row->parent);
  return built_.count(key) > 0;
}

RibbonButton* RibbonView::MakeButton(const RibbonRow& row, RibbonButton::Shape shape, QWidget* parent, int arrow) {
  auto* button = new RibbonButton(look_, shape, parent);
  std::vector<Tool>& list = row.kind == RibbonKind::kTab ? tabs_ : tools_;
  list.push_back({&row, button, arrow});
  const Tool tool = list.back();
  QObject::connect(button, &QAbstractButton::clicked, this, [this, tool] { Run(tool); });
  button->SetCaptions(CaptionsOf(row));
  return button;
}

void RibbonView::Run(const Tool& tool) {
  const std::string key = tool.row->key;
  if (tool.row->kind == RibbonKind::kTab) {
    window_.UserTab(key);
  } else if (tool.row->kind == RibbonKind::kItem) {
    window_.UserItem(tool.row->parent, key);
  } else {
    window_.UserCommand(key, tool.arrow);
  }
}

void RibbonView::AddTab(const RibbonRow& tab) {
  RibbonButton* button = MakeButton(tab, RibbonButton::Shape::kTab, tab_row_);
  tab_row_->layout()->addWidget(button);
  auto* panel = new QWidget(panels_);
  panel->setAccessibleName(CaptionOf(tab));
  auto* bars = new QHBoxLayout(panel);
  bars->setContentsMargins(2, 0, 2, 0);
  bars->setSpacing(0);
  bars->setAlignment(Qt::AlignLeft);
  const std::string_view key = tab.key;
  for (const RibbonRow& row : RibbonRows()) {
    if (row.parent != key) continue;
    if (row.kind == RibbonKind::kBar) bars->addWidget(AddBar(row, panel));
    if (row.kind == RibbonKind::kCombo) {
      auto* bar = new BarWidget(look_, look_.Text("mdi.bar.reports.currency"), panel);
      AddCombo(row, *static_cast<QHBoxLayout*>(bar->layout()), bar);
      bars->addWidget(bar);
    }
  }
  panels_->addWidget(panel);
  panel_of_[ToQt(key)] = panel;
}

QWidget* RibbonView::AddBar(const RibbonRow& bar, QWidget* panel) {
  auto* widget = new BarWidget(look_, look_.Text(bar.text), panel);
  auto& layout = *static_cast<QHBoxLayout*>(widget->layout());
  const std::string_view key = bar.key;
  for (const RibbonRow& row : RibbonRows()) {
    if (row.parent != key) continue;
    if (row.kind == RibbonKind::kTool || row.kind == RibbonKind::kSplit) AddTool(row, layout, widget);
    if (row.kind == RibbonKind::kArrows) AddArrows(row, layout, widget);
    if (row.kind == RibbonKind::kFind) AddSearch(row, layout, widget);
  }
  bars_.emplace_back(bar.key, widget);
  return widget;
}

void RibbonView::AddTool(const RibbonRow& row, QHBoxLayout& layout, QWidget* bar) {
  RibbonButton* button = MakeButton(row, RibbonButton::Shape::kLarge, bar);
  if (row.kind == RibbonKind::kSplit || !window_.ribbon.Children(row.key).empty()) {
    button->SetSplit(true);
    button->drop = [this, key = std::string(row.key)] { OpenList(key); };
  }
  layout.addWidget(button, 0, Qt::AlignTop);
}

void RibbonView::AddArrows(const RibbonRow& row, QHBoxLayout& layout, QWidget* bar) {
  constexpr Glyph kArrows[] = {Glyph::kFirst, Glyph::kPrevious, Glyph::kNext, Glyph::kLast};
  constexpr const char* kNames[] = {"mdi.rec.first", "mdi.rec.previous", "mdi.rec.next", "mdi.rec.last"};
  auto* holder = new QWidget(bar);
  holder->setFixedHeight(kLargeTool);
  auto* line = new QHBoxLayout(holder);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(1);
  for (int i = 0; i < 4; ++i) {
    RibbonButton* button = MakeButton(row, RibbonButton::Shape::kMark, holder, i);
    button->SetGlyph(kArrows[i]);
    button->setAccessibleName(look_.Text(kNames[i]));
    button->setToolTip(look_.Text(kNames[i]));
    line->addWidget(button, 0, Qt::AlignVCenter);
  }
  layout.addWidget(holder, 0, Qt::AlignTop);
}

void RibbonView::AddSearch(const RibbonRow& find, QHBoxLayout& layout, QWidget* bar) {
  auto* holder = new QWidget(bar);
  holder->setFixedHeight(kLargeTool);
  auto* rows = new QVBoxLayout(holder);
  rows->setContentsMargins(4, 6, 2, 6);
  rows->setSpacing(6);
  auto* search = new QHBoxLayout();
  search->setSpacing(3);
  auto* field = new QLineEdit(holder);
  field->setFont(look_.WindowFont());
  field->setFixedHeight(24);
  field->setMinimumWidth(150);
  field->setMaxLength(256);
  field->setTextMargins(4, 0, 4, 0);
  field->setClearButtonEnabled(true);
  field->setPlaceholderText(look_.Text("mdi.find.hint"));
  field->setAccessibleName(look_.Text(find.text));
  field->setToolTip(TipOf(find));
  field->installEventFilter(this);
  TakeLettersOfTables(*field, [this] { program_.platform.ui.Beep(); });
  QObject::connect(field, &QLineEdit::textChanged, this, [this](const QString& text) { window_.ribbon.FindText(FromQt(text)); });
  const std::string key = find.key;
  QObject::connect(field, &QLineEdit::returnPressed, this, [this, key] {
    // Enter looks for the text whatever the button was left on.
    window_.UserItem(key, key + ".WYKONAJ");
  });
  search->addWidget(field, 1);
  RibbonButton* button = MakeButton(find, RibbonButton::Shape::kSmall, holder);
  button->SetSplit(true);
  button->drop = [this, key] { OpenList(key); };
  search->addWidget(button);
  rows->addLayout(search);
  searches_.emplace_back(key.substr(0, key.find('.')), field);
  for (const RibbonRow& row : RibbonRows()) {
    if (row.kind != RibbonKind::kAlphabet || std::string_view(row.parent) != find.parent) continue;
    auto* letters = new QHBoxLayout();
    letters->setSpacing(1);
    for (const RibbonRow* item : window_.ribbon.Children(row.key)) {
      RibbonButton* letter = MakeButton(*item, RibbonButton::Shape::kSmall, holder);
      letter->setToolTip(TipOf(row));
      letters->addWidget(letter);
      if (letters->count() == 1) alphabets_.emplace_back(&row, letter);
    }
    rows->addLayout(letters);
  }
  layout.addWidget(holder, 0, Qt::AlignTop);
}

void RibbonView::AddCombo(const RibbonRow& row, QHBoxLayout& layout, QWidget* bar) {
  RibbonButton* button = MakeButton(row, RibbonButton::Shape::kSmall, bar);
  button->SetCaptions({QString(26, 'x')});
  button->drop = [this, key = std::string(row.key)] { OpenList(key); };
  auto* holder = new QWidget(bar);
  holder->setFixedHeight(kLargeTool);
  auto* line = new QHBoxLayout(holder);
  line->setContentsMargins(4, 0, 4, 0);
  line->addWidget(button, 0, Qt::AlignVCenter);
  layout.addWidget(holder, 0, Qt::AlignTop);
}

QStringList RibbonView::CaptionsOf(const RibbonRow& row) const {
  QStringList captions{CaptionOf(row)};
  for (const RibbonRow* item : window_.ribbon.Children(row.key)) {
    if (item->kind == RibbonKind::kItem && window_.ribbon.Find(row.key)->kind != RibbonKind::kTool) captions << look_.Text(item->text);
  }
  return captions;
}

QString RibbonView::CaptionOf(const RibbonRow& row) const {
  const auto& list = window_.ribbon.ListItems(row.key);
  const std::string text = window_.ribbon.ButtonText(row.key);
  if (row.kind == RibbonKind::kCombo && !list.empty() && text == program_.Text(row.text)) return ToQt(list[0].second);
  return ToQt(text);
}

QString RibbonView::LetterOf(const RibbonRow& row) const {
  const std::string key = std::string(row.text) + ".key";
  return *row.text && program_.catalogue.Has(key) ? look_.Text(key) : QString();
}

// The tip with the key that does the same; a function that is not part of this version says so instead.
QString RibbonView::TipOf(const RibbonRow& row) const {
  const bool command = row.kind != RibbonKind::kTab && row.kind != RibbonKind::kAlphabet;
  if (command && built_.count(row.key) == 0) return look_.Text("common.notbuilt");
  QString tip = ToQt(window_.ribbon.ButtonToolTip(row.key));
  if (tip.isEmpty() && *row.text && program_.catalogue.Has(std::string(row.text) + ".tip"))
    tip = look_.Text(std::string(row.text) + ".tip");
  const QString letter = LetterOf(row);
  if (!tip.isEmpty() && !tip.endsWith(']') && !letter.isEmpty()) tip += " [Alt, " + letter + "]";
  return tip;
}

// A tip is put together from the catalogue once, and again when the model has another.
void RibbonView::ShowTip(const Tool& tool) {
  const std::string told = window_.ribbon.ButtonToolTip(tool.row->key);
  const auto shown = told_tips_.constFind(tool.button);
  if (shown != told_tips_.constEnd() && *shown == told) return;
  told_tips_[tool.button] = told;
  tool.button->setToolTip(TipOf(*tool.row));
}

void RibbonView::Refresh() {
  for (const Tool& tab : tabs_) {
    tab.button->Show(CaptionOf(*tab.row), true, window_.ribbon.TabID() == tab.row->key, true);
    ShowTip(tab);
  }
  for (const Tool& tool : tools_) {
    const std::string_view key = tool.row->key;
    const bool ticked = window_.ribbon.ButtonChecked(key);
    if (tool.arrow >= 0) {
      const QString name = tool.button->accessibleName();
      tool.button->Show({}, Usable(key), false, true);
      tool.button->setAccessibleName(name);
      continue;
    }
    tool.button->Show(CaptionOf(*tool.row), Usable(key), ticked, window_.ribbon.ToolbarVisible(key));
    tool.button->SetIconName(ToQt(window_.ribbon.GetButtonIcon(key)));
    if (tool.row->kind != RibbonKind::kItem) ShowTip(tool);
  }
  for (const auto& [key, bar] : bars_) bar->setVisible(window_.ribbon.ToolbarVisible(key));
  if (QWidget* panel = panel_of_.value(ToQt(window_.ribbon.TabID())); panel && panel != panels_->currentWidget()) {
    panels_->setCurrentWidget(panel);
    SetTight(NaturalWidth() > width());
    if (QLineEdit* field = FindField()) window_.ribbon.FindText(FromQt(field->text()));
  }
  update();
}

void RibbonView::LookChanged() {
  for (const Tool& tool : tools_) tool.button->ReadIcon();
}

int RibbonView::NaturalWidth() const {
  const QWidget* panel = panels_->currentWidget();
  return panel ? panel->layout()->sizeHint().width() : 0;
}

void RibbonView::SetTight(bool tight) {
  for (const Tool& tool : tools_) tool.button->SetTight(tight);
}

void RibbonView::resizeEvent(QResizeEvent*) {
  SetTight(false);
  if (NaturalWidth() > width()) SetTight(true);
}

RibbonButton* RibbonView::Button(std::string_view key) const {
  for (const auto* list : {&tools_, &tabs_}) {
    for (const Tool& tool : *list) {
      if (key == tool.row->key) return tool.button;
    }
  }
  return nullptr;
}

QLineEdit* RibbonView::FindField() const {
  for (const auto& [tab, field] : searches_) {
    if (tab == window_.ribbon.TabID()) return field;
  }
  return nullptr;
}

bool RibbonView::eventFilter(QObject* object, QEvent* event) {
  auto* field = qobject_cast<QLineEdit*>(object);
  if (field && event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    if (field->text().isEmpty()) return false;
    field->clear();
    return true;
  }
  return QWidget::eventFilter(object, event);
}

void RibbonView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  RibbonPainter paint(painter, look_);
  const FrameColours& colours = paint.colours();
  painter.fillRect(QRect(0, 0, width(), kTabRow), colours.strip);
  paint.Nine(QRectF(0, 0, width(), kTabRow), "tab.empty", 8, 8);
  painter.fillRect(QRect(0, kTabRow, width(), height() - kTabRow), colours.panel);
  // The rest of the ribbon takes the middle columns of a toolbar.
  const double below = kTabRow + kPanel - kBarCaption;
  paint.Part(QRectF(0, kTabRow, width(), 6), "group.std.02.bmp");
  paint.Part(QRectF(0, kTabRow + 6, width(), below - kTabRow - 6), "group.std.e1.02.bmp");
  paint.Part(QRectF(0, below, width(), kBarCaption), "group.std.e2.02.bmp");
  paint.Hairline({0, height() - 1.0}, {static_cast<double>(width()), height() - 1.0}, colours.panel_edge);
}

}  // namespace ostrinka
