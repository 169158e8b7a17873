// SPDX-License-Identifier: MIT
// Where the controls lie at any size, in both languages, and whether their texts fit.
#include <QtCore/QCoreApplication>
#include <QtGui/QFont>
#include <QtGui/QFontMetrics>
#include <QtWidgets/QHeaderView>

#include "host/pack_files.h"
#include "zmc_window_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;

constexpr QSize kSizes[] = {{800, 600}, {1024, 768}, {1920, 1080}, {400, 300}, {801, 603}, {1367, 769}};

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
    Rect units = UnitsOf(place, dialog);
    const bool list = place.kind == ZmcControlKind::kListBox || place.kind == ZmcControlKind::kToolBox;
    if (list) units.bottom = units.top + 14;
    const auto scale = [](int value, int pixels, int all) { return qRound(static_cast<double>(value) * pixels / all); };
    const int left = scale(units.left, size.width(), 468);
    const int top = scale(units.top, size.height(), 302);
    return {left, top, scale(units.right, size.width(), 468) - left, scale(units.bottom, size.height(), 302) - top};
  }
  /// Whether the label's text is whole; the smallest font is 11 pixels high and may cut it.
  static bool IsWhole(ZWCStatic& label) {
    const QFontMetrics metrics((label.*&LabelFont::Font)());
    return metrics.horizontalAdvance(label.WindowText()) <= label.width() || metrics.ascent() + metrics.descent() <= 11;
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
      for (const QSize size : {QSize(800, 600), QSize(1024, 768), QSize(1920, 1080)}) {
        Resize(size);
        for (auto* label : Page(ZmcTab::kMain)->findChildren<ZWCStatic*>()) {
          EXPECT_TRUE(IsWhole(*label)) << label->WindowText().toStdString() << " at " << size.width() << " " << code;
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

TEST_F(ZmcLayoutTest, TheFieldsCoverTheLeftEdgesOfTheirUnits) {
  Open();
  for (const auto& [field, unit] : {std::pair(id::kF, id::kFUnit), std::pair(id::kS, id::kSUnit)}) {
    const QPoint shared(Main(unit)->x() + 1, Main(field)->geometry().center().y());
    EXPECT_EQ(Page(ZmcTab::kMain)->childAt(shared), Main(field));
  }
}

}  // namespace
}  // namespace pnl::test
