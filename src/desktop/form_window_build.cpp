// Builds the window of a form: pages, buttons, access keys, size and place.
#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>
#include <climits>

#include "app/program.h"
#include "desktop/form_window_parts.h"

namespace ostrinka {
namespace {

constexpr int kMargin = 12, kBarGap = 8, kTitleMargin = 14;
constexpr double kTitleScale = 1.45;
constexpr int kEditorWidth = 780, kTableWidth = 940, kTableHeight = 560, kSmallWidth = 420;

int ReadPlace(Program& program, const Form& form, const char* key) {
  return program.settings.Integer(kOstrinka, form.place_section, key, INT_MIN);
}

}  // namespace

void FormWindow::Parts::Build() {
  window.setFont(host.look.WindowFont());
  window.setPalette(style.Palette());
  auto* column = new QVBoxLayout(&window);
  column->setContentsMargins(1, 1, 1, 1);
  column->setSpacing(0);
  strip = new TitleStrip(host.look, &window, [this] { window.close(); });
  column->addWidget(strip);
  BuildPages(*column);
  BuildButtons(*column);
  for (const auto& [control, built] : builder.fields()) {
    controls[built.field] = const_cast<Control*>(control);
    built.field->installEventFilter(this);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(built.field)) {
      controls[area->viewport()] = const_cast<Control*>(control);
      area->viewport()->installEventFilter(this);
    }
  }
  QWidget* before = tabs;
  for (const Control* control : builder.order()) {
    QWidget* field = builder.fields().at(control).field;
    if (field->focusPolicy() == Qt::NoFocus) continue;
    if (before) QWidget::setTabOrder(before, field);
    before = field;
  }
}

void FormWindow::Parts::BuildPages(QVBoxLayout& column) {
  if (form.steps()) return BuildSteps(column);
  auto* frame = new PaneFrame(host.look, &window);
  auto* inner = new QVBoxLayout(frame);
  inner->setContentsMargins(kMargin, kMargin, kMargin, 0);
  inner->setSpacing(0);
  if (form.pages().size() > 1) {
    tabs = new QTabBar(frame);
    tabs->setDrawBase(false);
    tabs->setExpanding(false);
    tabs->installEventFilter(this);
    tabs->setAccessibleName(host.look.Text(form.title_key()));
    inner->addWidget(tabs);
  }
  pages = new QStackedWidget(frame);
  inner->addWidget(pages, 1);
  frame->SetPane(pages);
  for (const PageLayout& page : form.pages()) {
    if (tabs) tabs->addTab(host.look.Text(page.caption_key));
    pages->addWidget(builder.BuildPage(page, pages));
  }
  column.addWidget(frame, 1);
  if (!tabs) return;
  connect(tabs, &QTabBar::currentChanged, this, [this](int index) {
    if (showing || index < 0) return;
    Settle();
    form.UserShowPage(form.pages()[static_cast<size_t>(index)].key);
    ShowPage();
  });
}

// The list of steps, and at its right the title of the page above the page.
void FormWindow::Parts::BuildSteps(QVBoxLayout& column) {
  auto* frame = new PaneFrame(host.look, &window);
  auto* inner = new QHBoxLayout(frame);
  inner->setContentsMargins(kMargin, kMargin, kMargin, 0);
  inner->setSpacing(kMargin);
  steps = new StepList(host.look, form, frame, [this](const std::string& key) {
    Settle();
    if (entered) entered->UserLeave();
    form.UserShowPage(key);
  });
  inner->addWidget(steps);
  auto* pane = new QWidget(frame);
  auto* parts = new QVBoxLayout(pane);
  parts->setContentsMargins(0, 0, 0, 0);
  parts->setSpacing(0);
  parts->addWidget(BuildPageTitle(pane));
  pages = new QStackedWidget(pane);
  parts->addWidget(pages, 1);
  for (const PageLayout& page : form.pages()) pages->addWidget(builder.BuildPage(page, pages));
  inner->addWidget(pane, 1);
  frame->SetPane(pane);
  column.addWidget(frame, 1);
}

QWidget* FormWindow::Parts::BuildPageTitle(QWidget* parent) {
  auto* bar = new QWidget(parent);
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(kTitleMargin, kTitleMargin, kTitleMargin, 0);
  page_title = new QLabel(bar);
  QFont font = host.look.BoldFont();
  font.setPointSizeF(font.pointSizeF() * kTitleScale);
  page_title->setFont(font);
  page_place = new QLabel(bar);
  QPalette palette = page_place->palette();
  palette.setColor(QPalette::WindowText, style.colours().faint);
  page_place->setPalette(palette);
  row->addWidget(page_title, 1);
  row->addWidget(page_place, 0, Qt::AlignBottom);
  return bar;
}

void FormWindow::Parts::BuildButtons(QVBoxLayout& column) {
  if (form.buttons().empty()) {
    column.addSpacing(kMargin);
    return;
  }
  auto* bar = new QHBoxLayout;
  bar->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  bar->setSpacing(kBarGap);
  const auto& buttons = form.buttons();
  // What prepares stands at the left, what ends the dialog at the right.
  const auto is_default = [](const FormButton& entry) { return (entry.flags & kDefault) != 0; };
  const auto main = std::find_if(buttons.begin(), buttons.end(), is_default);
  bool stretched = main == buttons.end() || main == buttons.begin();
  if (stretched) bar->addStretch(1);
  bool marked = false;
  for (auto entry = buttons.begin(); entry != buttons.end(); ++entry) {
    if (!stretched && entry == main) {
      bar->addStretch(1);
      stretched = true;
    }
    QWidget* button = builder.BuildButton(*entry->button, &window);
    const bool first = form.steps()            ? entry->button == Marked(kDefault)
                       : main == buttons.end() ? !marked && entry->button != Marked(kCancel)
                                               : entry == main;
    button->setProperty(kPrimaryButton, first);
    marked = marked || first;
    bar->addWidget(button);
    if (entry->button != Marked(kCancel)) continue;
    // Leaving by the button asks what leaving by a key asks.
    auto* leave = static_cast<QAbstractButton*>(button);
    leave->disconnect();
    connect(leave, &QAbstractButton::clicked, &window, [this] { window.reject(); });
  }
  column.addLayout(bar);
}

// A letter of the caption that nothing else on the page answers to, unless the catalogue marks one.
void FormWindow::Parts::GiveAccessKeys() {
  QSet<QChar> shared;
  const auto choose = [](const QString& text, QSet<QChar>& taken) {
    const qsizetype marked = QString(text).replace("&&", "\x01\x01").indexOf('&');
    if (marked >= 0 && marked + 1 < text.size()) {
      taken.insert(text[marked + 1].toLower());
      return text;
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
      const QChar letter = text[i].toLower();
      if (letter < 'a' || letter > 'z' || taken.contains(letter)) continue;
      taken.insert(letter);
      return QString(text).insert(i, '&');
    }
    return text;
  };
  for (const FormButton& entry : form.buttons()) {
    if (auto* button = qobject_cast<QAbstractButton*>(window.WidgetOf(*entry.button))) button->setText(choose(button->text(), shared));
  }
  for (int i = 0; tabs && i < tabs->count(); ++i) tabs->setTabText(i, choose(tabs->tabText(i), shared));
  std::map<std::string, QSet<QChar>> taken;
  for (const Control* control : builder.order()) {
    const BuiltField& built = builder.fields().at(control);
    if (built.page.empty()) continue;
    QSet<QChar>& letters = taken.try_emplace(built.page, shared).first->second;
    if (built.caption && built.caption->buddy()) {
      built.caption->setText(choose(built.caption->text(), letters));
    } else if (auto* button = qobject_cast<QAbstractButton*>(built.field)) {
      button->setText(choose(button->text(), letters));
    }
  }
}

void FormWindow::Parts::Connect() {
  for (Control* control : form.controls()) {
    connections.push_back(control->Repaint.Connect([this, control] { ShowControl(*control); }));
  }
  connections.push_back(form.Repaint.Connect([this] { ShowPage(); }));
  connections.push_back(form.FocusAsked.Connect([this] { MoveFocus(); }));
  connections.push_back(form.Closed.Connect([this] { Finish(); }));
}

// Wide enough for what it holds, and no larger than a small screen.
void FormWindow::Parts::Size() {
  bool table = false, side = false;
  for (const PageLayout& page : form.pages()) {
    for (const LayoutItem& item : page.content.items()) {
      table = table || item.kind == LayoutItem::Kind::kTable;
      side = side || item.groups.size() > 1 || item.kind == LayoutItem::Kind::kMatrix || item.kind == LayoutItem::Kind::kFiles;
    }
  }
  const int beside = steps ? steps->sizeHint().width() : 0;
  QSize size(beside + (table ? kTableWidth : side || form.pages().size() > 1 ? kEditorWidth : kSmallWidth), table ? kTableHeight : 0);
  // Each face that the form can show has its room from the start.
  std::vector<std::pair<const ComboControl*, int32_t>> faces = {{nullptr, 0}};
  for (const Section& section : builder.sections()) {
    if (section.when) faces.emplace_back(section.when, section.when_value);
  }
  for (const auto& [list, value] : faces) {
    for (const Section& section : builder.sections()) {
      if (section.when && list == section.when) section.widget->setVisible(value == section.when_value);
    }
    window.layout()->invalidate();
    size = size.expandedTo(window.layout()->totalMinimumSize());
  }
  ShowSections();
  if (window.layout()->hasHeightForWidth()) size.setHeight(std::max(size.height(), window.layout()->totalHeightForWidth(size.width())));
  window.resize(size);
}

void FormWindow::Parts::Place() {
  const QScreen* screen = window.parentWidget() ? window.parentWidget()->screen() : QGuiApplication::primaryScreen();
  const QRect room = screen->availableGeometry();
  const QRect over = window.parentWidget() ? window.parentWidget()->window()->geometry() : room;
  QPoint at = over.center() - window.rect().center();
  if (!form.place_section.empty()) {
    const int left_edge = ReadPlace(program, form, "Left"), top_edge = ReadPlace(program, form, "Top");
    if (left_edge != INT_MIN && top_edge != INT_MIN) at = {left_edge, top_edge};
  }
  at.setX(std::clamp(at.x(), room.left(), std::max(room.left(), room.right() - window.width())));
  at.setY(std::clamp(at.y(), room.top(), std::max(room.top(), room.bottom() - window.height())));
  window.move(at);
}

void FormWindow::Parts::KeepPlace() {
  if (form.place_section.empty()) return;
  const QPoint at = window.pos();
  if (at.x() != ReadPlace(program, form, "Left")) program.settings.SaveSettingValue(kOstrinka, form.place_section, "Left", int32_t{at.x()});
  if (at.y() != ReadPlace(program, form, "Top")) program.settings.SaveSettingValue(kOstrinka, form.place_section, "Top", int32_t{at.y()});
}

void FormWindow::Parts::Start() {
  form.Open();
  Place();
  MoveFocus();
}

}  // namespace ostrinka
