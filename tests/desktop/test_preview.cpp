// The window of the print preview, before a person with keyboard, wheel and pointer.
#include <QAccessible>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/clerk.h"
#include "desktop/dialog_style.h"
#include "desktop/preview_window.h"
#include "desktop/screen_check.h"
#include "desktop/sheet_canvas.h"
#include "print/print.h"

namespace ostrinka {
namespace {

class PreviewTest : public ClerkTest {
 protected:
  void SetUp() override {
    ClerkTest::SetUp();
    std::filesystem::copy_file(OSTRINKA_SOURCE "/resources/printdoc.lang", platform.folder / "app/printdoc.lang");
    const int32_t customer = AddCustomer("Hotel Nad Wisłą", kTransfer14);
    const int32_t document = AddDocument(kInvoice, "2008-03-05", 17, 501);
    Change(kDokSprzed, document, {{"KONTRAHENT", customer}});
    AddStoredLine(501, AddArticle("Regał sosnowy", 100, 122), "2", "100", "122");
    OpenWindow();
  }
  void Show(frm_DocPreview& preview, const std::function<void(PreviewWindow&)>& look_on) {
    model = &preview;
    PreviewWindow shown(*look, preview, view.get());
    shown.setGeometry(0, 0, 780, 700);
    shown.show();
    Turn(shown);
    look_on(shown);
  }
  // What a person does before the preview that the ribbon's choice opens.
  void Preview(std::function<void(PreviewWindow&)> look_on) {
    int opened = 0;
    platform.ui.on_preview = [&](frm_DocPreview& preview) {
      ++opened;
      Show(preview, look_on);
    };
    window->UserItem("SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.PODGLĄD");
    platform.ui.on_preview = nullptr;
    EXPECT_EQ(opened, 1);
  }
  // A job of `pages` sheets, every third of them across, instead of a document.
  void PreviewOf(int pages, std::function<void(PreviewWindow&)> look_on) {
    CurrentPrintJob(program) = std::make_shared<ClassPRINT>(program);
    for (int page = 1; page <= pages; ++page) {
      CurrentPrintJob(program)->BEGIN_PAGE(page % 3 == 0);
      CurrentPrintJob(program)->RECT_ADD(20, 20, 180, 180, Rgb(200, 0, 0));
    }
    CurrentPrintJob(program)->END_PAGE();
    frm_DocPreview preview(program);
    Show(preview, look_on);
  }
  static QImage Turn(PreviewWindow& shown) {
    QApplication::processEvents();
    return shown.grab().toImage();
  }
  static void Press(PreviewWindow& shown, int key, Qt::KeyboardModifiers with = {}) {
    QWidget* focus = shown.focusWidget() ? shown.focusWidget() : &shown;
    TypeKey(*focus, key, with);
    Turn(shown);
  }
  static void Wheel(PreviewWindow& shown, int delta, Qt::KeyboardModifiers with = {}) {
    QWidget* sheets = shown.sheets().viewport();
    const QPointF at = sheets->rect().center();
    QWheelEvent event(at, sheets->mapToGlobal(at), {}, {0, delta}, Qt::NoButton, with, Qt::NoScrollPhase, false);
    QApplication::sendEvent(sheets, &event);
    Turn(shown);
  }
  static bool Shows(const PreviewWindow& shown, const QString& text) {
    const QList<QLabel*> labels = shown.findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) { return label->text() == text; });
  }
  // mm of the stack in the middle of the view, give or take the margin.
  double Middle(PreviewWindow& shown) const {
    return (shown.sheets().verticalScrollBar()->value() + shown.sheets().viewport()->height() / 2.0) / model->Scale();
  }

  frm_DocPreview* model = nullptr;
};

TEST_F(PreviewTest, TheChoiceOfTheRibbonShowsTheTickedCopiesOfTheDocument) {
  window->UserItem("SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.TRYBDRUKU_O2C");
  Preview([&](PreviewWindow& shown) {
    EXPECT_EQ(model->Pages(), 3);
    EXPECT_EQ(model->subject, "Faktura VAT NR 17 / 2008");
    EXPECT_TRUE(Shows(shown, "Strona 1 z 3"));
    EXPECT_TRUE(Shows(shown, "100%"));
    EXPECT_EQ(ScreenFaults(shown), QStringList());
  });
  // Without a document there is nothing to show.
  EXPECT_TRUE(Table(program, kDokSprzed).RECORD_DELETE(1));
  window->UserItem("SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.PODGLĄD");
  EXPECT_EQ(NewestMessage(), program.Text("msg.info.nodocstoprint"));
}

TEST_F(PreviewTest, TheSheetHasASharpOutlineAndInkAndStandsOnATonedGround) {
  Preview([&](PreviewWindow& shown) {
    const QImage whole = Turn(shown), picture = whole.copy(QRect(shown.sheets().pos(), shown.sheets().viewport()->size()));
    const auto is = [&](int x, int y, Qt::GlobalColor colour) { return picture.pixelColor(x, y) == QColor(colour); };
    const int y = 120;
    EXPECT_FALSE(is(1, y, Qt::white) || is(1, y, Qt::black)) << "the ground";
    int left = 0;
    while (left < 200 && !is(left, y, Qt::white)) ++left;
    ASSERT_LT(left, 200);
    EXPECT_TRUE(is(left - 1, y, Qt::black));
    EXPECT_EQ(picture.pixelColor(left - 2, y), picture.pixelColor(1, y)) << "the outline is a pixel wide";
    int ink = 0;
    for (int row = 40; row < 500; ++row) {
      for (int x = left + 20; x < left + 640; ++x) ink += qGray(picture.pixel(x, row)) < 100 ? 1 : 0;
    }
    EXPECT_GT(ink, 2000) << "texts and tables";
    EXPECT_LT(ink, 60000);
    const int shadow = left + 684;
    EXPECT_LT(picture.pixelColor(shadow, y).lightness(), picture.pixelColor(1, y).lightness()) << "darker than the ground";
  });
}

TEST_F(PreviewTest, KeysAndWheelZoomAboutTheMiddleOfTheView) {
  PreviewOf(9, [&](PreviewWindow& shown) {
    QScrollBar& bar = *shown.sheets().verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    const double middle = Middle(shown);
    const int start = bar.value();
    constexpr double kNear = 8;  // mm; the margins do not grow with the zoom
    const struct {
      std::function<void()> act;
      const char* percent;
    } steps[] = {{[&] { Press(shown, Qt::Key_Plus, Qt::ControlModifier); }, "125%"},
                 {[&] { Press(shown, Qt::Key_Equal, Qt::ControlModifier); }, "150%"},
                 {[&] { Wheel(shown, 120, Qt::ControlModifier); }, "175%"},
                 {[&] { Wheel(shown, 600, Qt::ControlModifier); }, "200%"},
                 {[&] { Wheel(shown, -60, Qt::ControlModifier); }, "200%"},
                 {[&] { Wheel(shown, -60, Qt::ControlModifier); }, "175%"},
                 {[&] { Press(shown, Qt::Key_Minus, Qt::ControlModifier); }, "150%"},
                 {[&] { shown.Button("ZOOM.-")->click(); }, "125%"},
                 {[&] { Press(shown, Qt::Key_0, Qt::ControlModifier); }, "100%"}};
    for (const auto& step : steps) {
      step.act();
      EXPECT_TRUE(Shows(shown, step.percent)) << step.percent << " is " << model->PercentText();
      EXPECT_NEAR(Middle(shown), middle, kNear) << step.percent;
    }
    EXPECT_NEAR(bar.value(), start, 3);
    Wheel(shown, -120);
    EXPECT_GT(bar.value(), start);
    EXPECT_TRUE(Shows(shown, "100%"));
  });
}

TEST_F(PreviewTest, AZoomButtonAtItsEndIsOffAndLeavesTheFocusToTheSheets) {
  PreviewOf(2, [&](PreviewWindow& shown) {
    shown.activateWindow();
    shown.Button("ZOOM.+")->setFocus();
    for (int i = 0; i < 4; ++i) shown.Button("ZOOM.+")->click();
    EXPECT_TRUE(Shows(shown, "200%"));
    EXPECT_FALSE(shown.Button("ZOOM.+")->isEnabled());
    EXPECT_TRUE(shown.Button("ZOOM.-")->isEnabled());
    EXPECT_EQ(shown.focusWidget(), &shown.sheets());
    EXPECT_GT(shown.sheets().horizontalScrollBar()->maximum(), 0) << "the sheet is wider than the view";
    const int left = shown.sheets().horizontalScrollBar()->value();
    Press(shown, Qt::Key_Right);
    EXPECT_GT(shown.sheets().horizontalScrollBar()->value(), left);
    Press(shown, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(shown.sheets().horizontalScrollBar()->maximum(), 0);
  });
}

TEST_F(PreviewTest, KeysMoveThroughTheSheetsOfALongJob) {
  PreviewOf(300, [&](PreviewWindow& shown) {
    QScrollBar& bar = *shown.sheets().verticalScrollBar();
    const struct {
      int key;
      Qt::KeyboardModifiers with;
      const char* place;
    } steps[] = {{Qt::Key_PageDown, Qt::ControlModifier, "Strona 2 z 300"},
                 {Qt::Key_PageDown, Qt::ControlModifier, "Strona 3 z 300"},
                 {Qt::Key_PageUp, Qt::ControlModifier, "Strona 2 z 300"},
                 {Qt::Key_End, {}, "Strona 300 z 300"},
                 {Qt::Key_PageUp, Qt::ControlModifier, "Strona 300 z 300"},
                 {Qt::Key_PageUp, Qt::ControlModifier, "Strona 299 z 300"},
                 {Qt::Key_Home, {}, "Strona 1 z 300"}};
    for (const auto& step : steps) {
      Press(shown, step.key, step.with);
      EXPECT_TRUE(Shows(shown, step.place)) << step.place << " " << bar.value();
    }
    Press(shown, Qt::Key_PageDown);
    const int page = bar.value();
    EXPECT_GT(page, shown.sheets().viewport()->height() / 2);
    EXPECT_LT(page, shown.sheets().viewport()->height()) << "a line of what was in sight stays";
    Press(shown, Qt::Key_Space);
    EXPECT_EQ(bar.value(), 2 * page);
    Press(shown, Qt::Key_Space, Qt::ShiftModifier);
    Press(shown, Qt::Key_Down);
    EXPECT_GT(bar.value(), page);
    Press(shown, Qt::Key_Up);
    EXPECT_EQ(bar.value(), page);
    Press(shown, Qt::Key_End);
    const QImage last = Turn(shown);
    EXPECT_EQ(last.pixelColor(last.width() / 2, last.height() / 2), QColor(200, 0, 0)) << "the last sheet is drawn";
    QWidget* sheets = shown.sheets().viewport();
    const int before = bar.value();
    SendMouse(*sheets, QEvent::MouseButtonPress, {300, 100});
    QMouseEvent drag(QEvent::MouseMove, QPointF(300, 250), sheets->mapToGlobal(QPointF(300, 250)), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(sheets, &drag);
    SendMouse(*sheets, QEvent::MouseButtonRelease, {300, 250});
    EXPECT_EQ(bar.value(), before - 150) << "the pointer drags the sheets";
  });
}

TEST_F(PreviewTest, ControlPPrintsOnceAndControlSSavesThePdf) {
  Preview([&](PreviewWindow& shown) {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_P, Qt::ControlModifier, {}, /*autorep=*/true);
    QApplication::sendEvent(&shown, &held);
    EXPECT_TRUE(platform.ui.messages.empty());
    Press(shown, Qt::Key_P, Qt::ControlModifier);
    ASSERT_EQ(platform.ui.messages.size(), 1u);
    EXPECT_EQ(NewestMessage(), program.Text("msg.info.printernotfound"));
    platform.ui.file_answers.push_back(platform.folder / "a.pdf");
    Press(shown, Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(std::filesystem::exists(platform.folder / "a.pdf"));
    EXPECT_TRUE(model->IsOpen());
  });
}

TEST_F(PreviewTest, EscapeClosesAndTheWindowComesBackWhereItStood) {
  QRect place;
  const auto run = [&](std::function<void(PreviewWindow&)> act) {
    platform.ui.on_preview = [&](frm_DocPreview& preview) {
      model = &preview;
      PreviewWindow shown(*look, preview, view.get());
      QTimer::singleShot(0, &shown, [&] {
        act(shown);
        EXPECT_EQ(QApplication::activeModalWidget(), &shown);
        TypeKey(shown, Qt::Key_Escape);
      });
      shown.Run();
      EXPECT_FALSE(preview.IsOpen());
    };
    window->UserItem("SPRZEDAŻ.DRUKUJ", "SPRZEDAŻ.PODGLĄD");
  };
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
  run([&](PreviewWindow& shown) {
    EXPECT_TRUE(room.contains(shown.geometry())) << "a window never placed is in sight as a whole";
    shown.setGeometry(30, 40, 660, 480);
    place = shown.geometry();
  });
  EXPECT_EQ(program.settings.Text(kOstrinka, "Windows\\DocPreview", "Width"), "660");
  run([&](PreviewWindow& shown) {
    EXPECT_EQ(shown.geometry(), place);
    shown.showMaximized();
  });
  run([&](PreviewWindow& shown) {
    EXPECT_TRUE(shown.isMaximized());
    EXPECT_EQ(shown.normalGeometry(), place);
  });
  // A screen that is there no more.
  for (const char* key : {"Left", "Top"}) program.settings.SaveSettingValue(kOstrinka, "Windows\\DocPreview", key, std::string("-30000"));
  program.settings.SaveSettingValue(kOstrinka, "Windows\\DocPreview", "WinState", std::string("0"));
  run([&](PreviewWindow& shown) {
    EXPECT_TRUE(room.contains(shown.geometry()));
    EXPECT_EQ(shown.size(), place.size());
  });
}

TEST_F(PreviewTest, AssistiveTechnologyReadsThePageAndTheTools) {
  Preview([&](PreviewWindow& shown) {
    QAccessibleInterface* sheets = QAccessible::queryAccessibleInterface(&shown.sheets());
    ASSERT_NE(sheets, nullptr);
    EXPECT_EQ(sheets->role(), QAccessible::Document);
    EXPECT_EQ(sheets->text(QAccessible::Name), "Strona 1 z 1");
    EXPECT_TRUE(sheets->text(QAccessible::Description).contains("Hotel Nad Wisłą"));
    for (const PreviewCommand& row : frm_DocPreview::Commands()) {
      RibbonButton* button = shown.Button(row.key);
      QAccessibleInterface* tool = QAccessible::queryAccessibleInterface(button);
      EXPECT_EQ(tool->role(), QAccessible::Button);
      EXPECT_EQ(FromQt(tool->text(QAccessible::Name)), program.Text(row.caption_key));
      EXPECT_TRUE(button->toolTip().endsWith(']')) << "the tip names the key of " << row.key;
    }
  });
}

TEST_F(PreviewTest, IsFitToBeSeenInEverySkinAtItsLeastSize) {
  for (const int32_t skin : {0, 1, 2}) {
    program.settings.SaveSettingValue(kCommon, "GUI", "Skin", skin);
    look->Reload();
    DialogStyle::Install(*look);
    Preview([&](PreviewWindow& shown) {
      shown.resize(shown.minimumSize());
      Turn(shown);
      EXPECT_EQ(ScreenFaults(shown), QStringList()) << skin;
    });
  }
}

// Every pixel of a drawing is of one of the two colours: nothing lies between pixels.
TEST(SheetCanvasTest, LevelAndUprightEdgesFallOnPixelsAtEveryDensity) {
  for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
    for (const double zoom : {0.25, 1.0, 2.0}) {
      QImage image(QSize(300, 300), QImage::Format_RGB32);
      image.fill(Qt::white);
      image.setDevicePixelRatio(ratio);
      QPainter painter(&image);
      painter.translate(0.37, 0.61);
      SheetCanvas canvas(painter, 300, 300, std::min(1.0, zoom));
      canvas.DrawLine({3.3, 7.45}, {60.2, 7.45}, {});
      canvas.DrawLine({11.7, 3.1}, {11.7, 70.9}, {0, 1.63});
      canvas.DrawRect({20.2, 20.7, 55.5, 60.1}, {});
      canvas.FillRect({30.1, 30.2, 45.7, 30.3}, 0);
      painter.end();
      int black = 0;
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
          const QRgb pixel = image.pixel(x, y);
          black += pixel == QColor(Qt::black).rgb() ? 1 : 0;
          ASSERT_TRUE(pixel == QColor(Qt::black).rgb() || pixel == QColor(Qt::white).rgb()) << ratio << " at " << x << ", " << y;
        }
      }
      EXPECT_GT(black, 200 * ratio);
    }
  }
}

}  // namespace
}  // namespace ostrinka
