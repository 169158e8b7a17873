// SPDX-License-Identifier: MIT
// Where the controls lie at any size, in both languages, and whether their texts fit.
#include <QtCore/QCoreApplication>
#include <QtGui/QFont>
#include <QtGui/QFontInfo>
#include <QtGui/QFontMetrics>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QScroller>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "host/pack_files.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"
#include "zmc/qt/zmc_look.h"
#include "zmc_window_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;

constexpr int kLow = 442;  // a lower area has a page of its own
/// The tool areas of panels of 800x600, 1024x768 and 1920x1080.
constexpr QSize kPanels[] = {{688, 213}, {884, 289}, {1216, 662}};
constexpr QSize kSizes[] = {{800, 600}, {1024, 768}, {1920, 1080}, {400, 300},
                            {801, 603}, {1367, 769}, {688, 213},   {884, 289}};

constexpr QSize kTexts[] = {{800, 600}, {1024, 768}, {1920, 1080}, {688, 213}, {884, 289}, {1216, 662}};

/// The font of a label, which its class keeps to itself.
struct LabelFont : ZWCStatic {
  using ZWCStatic::Font;
};

class ZmcLayoutTest : public ZmcWindowStage {
 protected:
  void Speak(const char* code) {
    const std::string program = QCoreApplication::applicationFilePath().toStdString();
    const auto bytes = ReadPackFile(PackFolders(nullptr, program), code);
    LanguagePack pack;
    ASSERT_TRUE(bytes && pack.Parse(*bytes));
    language.Use(std::move(pack));
  }
  void Resize(QSize size) {
    area->resize(size);
    Settle();
  }
  [[nodiscard]] QRect Expected(const ZmcControlPlace& place, QSize size) const {
    const DialogTemplate* dialog = language.Dialog(3036);
    const bool low = size.height() < kLow;
    const QSize page = low ? QSize(688, 216) : QSize(468, 302);
    Rect units = low ? place.low : UnitsOf(place, dialog);
    const bool list = place.kind == ZmcControlKind::kListBox || place.kind == ZmcControlKind::kToolBox;
    if (list && !low) units.bottom = units.top + 14;
    const auto scale = [](int value, int pixels, int all) { return qRound(static_cast<double>(value) * pixels / all); };
    const int left = scale(units.left, size.width(), page.width());
    const int top = scale(units.top, size.height(), page.height());
    return {left, top, scale(units.right, size.width(), page.width()) - left,
            scale(units.bottom, size.height(), page.height()) - top};
  }
  [[nodiscard]] static int LettersOf(ZWCStatic& label) { return QFontInfo((label.*&LabelFont::Font)()).pixelSize(); }
  /// Whether the label shows its whole text.
  static bool IsWhole(ZWCStatic& label) {
    const QFontMetrics metrics((label.*&LabelFont::Font)());
    const QSize room = label.size() - QSize(4, 4);
    const QSize needed = MeasureText(metrics, room.width(), label.WindowText(), label.Format());
    const bool oneLine = (label.Format() & draw::kSingleLine) != 0;
    return needed.width() <= room.width() && (oneLine || needed.height() <= room.height());
  }
  [[nodiscard]] QScrollBar& Bar() const { return *Page(ZmcTab::kMain)->findChild<ZmcPageArea*>()->verticalScrollBar(); }
  /// Whether the operator sees all of the control.
  [[nodiscard]] bool IsInSight(int control) const {
    const QWidget& page = *Page(ZmcTab::kMain);
    const QRect place(Main(control)->mapTo(&page, QPoint(0, 0)), Main(control)->size());
    return page.rect().contains(place);
  }
};

TEST_F(ZmcLayoutTest, EveryEdgeIsScaledFromTheDialogsUnitsAndRounded) {
  Open();
  for (const QSize size : kSizes) {
    Resize(size);
    for (const ZmcControlPlace& place : ControlsOf(ZmcTab::kMain)) {
      const QRect actual = Main(place.id)->geometry();
      EXPECT_EQ(actual, Expected(place, size)) << place.id << " at " << size.width();
      EXPECT_TRUE(QRect(QPoint(0, 0), size).contains(actual)) << place.id << " at " << size.width();
    }
  }
}

TEST_F(ZmcLayoutTest, TheTablesFillTheirPages) {
  Open();
  for (const QSize size : kSizes) {
    Resize(size);
    for (const ZmcTab tab : {ZmcTab::kMaterials, ZmcTab::kOperations}) {
      Menu(tab == ZmcTab::kMaterials ? zmc_command::kMaterialsTab : zmc_command::kOperationsTab);
      const QRect grid = Grid(tab)->geometry();
      EXPECT_EQ(grid.left(), qRound(7.0 * size.width() / 320));
      EXPECT_EQ(grid.left() + grid.width(), qRound(313.0 * size.width() / 320));
      EXPECT_EQ(grid.top() + grid.height(), qRound(193.0 * size.height() / 200));
      EXPECT_LE(Grid(tab)->horizontalHeader()->length(), Grid(tab)->viewport()->width() + 1) << "no sideways scrolling";
    }
  }
}

TEST_F(ZmcLayoutTest, TextsFitInBothLanguagesAndWithAWideFont) {
  for (const char* code : {"en", "es"}) {
    for (const bool wide : {false, true}) {
      if (wide) QFont::insertSubstitution("Arial", "DejaVu Sans");
      Speak(code);
      Open();
      for (const QSize size : kTexts) {
        Resize(size);
        for (auto* label : Page(ZmcTab::kMain)->findChildren<ZWCStatic*>()) {
          if (label->WindowText().isEmpty()) continue;
          EXPECT_TRUE(IsWhole(*label)) << label->WindowText().toStdString() << " at " << size.width() << " " << code;
          EXPECT_GE(LettersOf(*label), 12) << label->WindowText().toStdString() << " at " << size.width();
        }
      }
      delete tool;
      QFont::removeSubstitutions("Arial");
    }
  }
}

// What a label shows at the start may be replaced by something longer.
TEST_F(ZmcLayoutTest, ALabelIsFittedAnewWhenItsTextChanges) {
  Open();
  EditCell(1, 3, "120");
  EditCell(2, 3, "0.05");
  Focus(id::kF);
  auto* formula = static_cast<ZWCStatic*>(Main(id::kFormula));
  ASSERT_GT(formula->WindowText().size(), 20);
  EXPECT_TRUE(IsWhole(*formula));
}

// The letters had been as low as a twentieth of the area's height.
TEST_F(ZmcLayoutTest, NoLettersAreSmallerThanCanBeRead) {
  Open();
  for (const QSize size : kPanels) {
    Resize(size);
    EXPECT_EQ(Page(ZmcTab::kMain)->size(), size);
    for (const ZmcControlPlace& place : ControlsOf(ZmcTab::kMain)) {
      const bool own = place.kind == ZmcControlKind::kLabel;
      QWidget* control = Main(place.id);
      const int letters = own ? LettersOf(*qobject_cast<ZWCStatic*>(control)) : QFontInfo(control->font()).pixelSize();
      EXPECT_GE(letters, own || control == Grid() ? 12 : 13) << place.id << " at " << size.width();
      // What is typed in has its letters within its frame.
      const bool typed = place.kind == ZmcControlKind::kLine || place.kind == ZmcControlKind::kDataField;
      const int cell = CellHeight(QFontMetrics(control->font()));
      EXPECT_TRUE(!typed || cell + 2 <= control->height()) << place.id << " at " << size.width();
    }
    for (int row = 0; row < Grid()->model()->rowCount(); ++row) {
      EXPECT_GE(Grid()->rowHeight(row), CellHeight(QFontMetrics(Grid()->font())) + 2) << size.width();
    }
    for (const ZmcTab tab : {ZmcTab::kMaterials, ZmcTab::kOperations}) {
      Menu(tab == ZmcTab::kMaterials ? zmc_command::kMaterialsTab : zmc_command::kOperationsTab);
      EXPECT_GE(QFontInfo(Grid(tab)->font()).pixelSize(), 13) << size.width();
      auto* title = Page(tab)->findChild<ZWCStatic*>();
      EXPECT_GE(LettersOf(*title), 13) << size.width();
      EXPECT_GE(title->height(), LettersOf(*title) + 4) << size.width();
      EXPECT_FALSE(title->geometry().intersects(Grid(tab)->geometry())) << size.width();
      EXPECT_TRUE(Page(tab)->rect().contains(title->geometry())) << size.width();
    }
    Menu(zmc_command::kMainTab);
  }
}

TEST_F(ZmcLayoutTest, TheConditionsAreReadWhole) {
  for (const char* code : {"en", "es"}) {
    Speak(code);
    Open();
    for (const QSize size : {kPanels[0], kPanels[1], kPanels[2], QSize(850, 427)}) {
      Resize(size);
      const QFontMetrics field(Field(id::kDiameter)->font());
      EXPECT_LE(field.horizontalAdvance("100.0000") + 12, Main(id::kDiameter)->width()) << size.width();
      const QFontMetrics metrics(Grid()->font());
      QFont bold = Grid()->font();
      bold.setWeight(QFont::DemiBold);
      for (int row = 1; row <= 4; ++row) {
        EXPECT_LE(metrics.horizontalAdvance(Grid()->Cells().CellText(row, 0)) + 13, Grid()->verticalHeader()->width())
            << row << " at " << size.width() << " " << code;
      }
      for (int col = 1; col <= 3; ++col) {
        EXPECT_LE(QFontMetrics(bold).horizontalAdvance(Grid()->Cells().CellText(0, col)) + 13,
                  Grid()->columnWidth(col));
        EXPECT_LE(metrics.horizontalAdvance("1000.0000") + 17, Grid()->columnWidth(col)) << size.width() << " " << code;
      }
    }
    delete tool;
  }
}

TEST_F(ZmcLayoutTest, AReasonAndTheLongestFormulaAreWholeOnALowPage) {
  for (const char* code : {"en", "es"}) {
    Speak(code);
    Open();
    Resize(kPanels[0]);
    for (const int reason : {id::kReasonOption, id::kReasonDrive, id::kReasonSpindle, id::kReasonTool}) {
      EXPECT_TRUE(IsWhole(*qobject_cast<ZWCStatic*>(Main(reason)))) << reason << " " << code;
    }
    EditCell(1, 3, "1234.5678");
    EditCell(2, 3, "0.0567");
    EditCell(3, 3, "12.3456");
    EditCell(4, 3, "12.34");
    Focus(id::kPower);
    auto* formula = qobject_cast<ZWCStatic*>(Main(id::kFormula));
    ASSERT_GT(formula->WindowText().size(), 80) << formula->WindowText().toStdString();
    EXPECT_TRUE(IsWhole(*formula)) << formula->WindowText().toStdString();
    EXPECT_GE(LettersOf(*formula), 12);
    delete tool;
  }
}

TEST_F(ZmcLayoutTest, WhatIsHigherThanItsAreaScrollsToTheControlWithTheFocus) {
  Open();
  Resize(kPanels[0]);
  EXPECT_FALSE(Bar().isVisible()) << "all of it has room";
  Focus(id::kDmcText);
  // The touch keyboard leaves this much.
  Resize(QSize(688, 70));
  ASSERT_TRUE(Bar().isVisible());
  EXPECT_EQ(Bar().width(), FingerPixels(*Page(ZmcTab::kMain)));
  EXPECT_TRUE(IsInSight(id::kDmcText));
  Focus(id::kMaterial);
  EXPECT_TRUE(IsInSight(id::kMaterial));
  EXPECT_FALSE(IsInSight(id::kDmcText));
  Grid()->setFocus();
  for (const int row : {4, 1}) {
    Grid()->Select(row, 3);
    Settle();
    const QWidget& page = *Page(ZmcTab::kMain);
    const QRect cell = Grid()->visualRect(Grid()->currentIndex());
    const QPoint corner = Grid()->viewport()->mapTo(&page, cell.topLeft());
    EXPECT_TRUE(page.rect().contains(QRect(corner, cell.size()))) << row;
  }
  Bar().setValue(Bar().maximum());
  EXPECT_TRUE(IsInSight(id::kPowerBar)) << "the last one";
  Resize(kPanels[0]);
  EXPECT_FALSE(Bar().isVisible());
  for (const int control : {id::kTitle, id::kPowerBar, id::kFormula}) EXPECT_TRUE(IsInSight(control)) << control;
}

TEST_F(ZmcLayoutTest, APageIsNotArrangedAnewWhileSomethingCoversAPartOfIt) {
  Open();
  Resize(QSize(1216, 662));
  const QRect before = Main(id::kGrid)->geometry();
  Resize(QSize(1216, 300));
  EXPECT_EQ(Main(id::kBand)->y(), qRound(184.0 * kLow / 302)) << "as in the dialog, in lines that can just be read";
  Resize(QSize(1216, 662));
  EXPECT_EQ(Main(id::kGrid)->geometry(), before);
  Resize(QSize(1217, 300));
  EXPECT_EQ(Main(id::kBand)->y(), qRound(62.0 * 300 / 216)) << "another width is another window";
}

TEST_F(ZmcLayoutTest, TheAreaOfThePageLeavesKeysAndFocusToItsControls) {
  Open();
  Resize(QSize(688, 70));
  const int before = Bar().value();
  auto* around = Page(ZmcTab::kMain)->findChild<ZmcPageArea*>();
  EXPECT_EQ(around->focusPolicy(), Qt::NoFocus);
  QKeyEvent key(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
  static_cast<QObject*>(around)->event(&key);
  EXPECT_FALSE(key.isAccepted());
  EXPECT_EQ(Bar().value(), before);
  EXPECT_TRUE(QScroller::hasScroller(around->viewport())) << "a finger pulls it";
  EXPECT_EQ(Paint(*around->widget()).pixelColor(1, 1), ToQColor(zmc_look::kPage));
}

TEST_F(ZmcLayoutTest, TheFieldsCoverTheLeftEdgesOfTheirUnits) {
  Open();
  for (const auto& [field, unit] : {std::pair(id::kF, id::kFUnit), std::pair(id::kS, id::kSUnit)}) {
    const QPoint shared(Main(unit)->x() + 1, Main(field)->geometry().center().y());
    EXPECT_EQ(Page(ZmcTab::kMain)->childAt(shared), Main(field));
  }
}

}  // namespace
}  // namespace pnl::test
