// SPDX-License-Identifier: MIT
// How the pages look: the colours of bands, labels and grids, fonts, and how the grids share out their room.
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>

#include "controls/fonts.h"
#include "controls/qt/paint_counter.h"
#include "window/qt/qt_text.h"
#include "zmc/qt/zmc_look.h"
#include "zmc_window_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;

constexpr QSize kLarge(1920, 1080);

/// The font of a label, which its class keeps to itself.
struct LabelFont : ZWCStatic {
  using ZWCStatic::Font;
};

class ZmcLookTest : public ZmcWindowStage {
 protected:
  [[nodiscard]] ZWCStatic& Label(int control) const { return *qobject_cast<ZWCStatic*>(Main(control)); }
  [[nodiscard]] static int WeightOf(ZWCStatic& label) { return (label.*&LabelFont::Font)().weight(); }
  void Resize(QSize size) {
    area->resize(size);
    Settle();
  }
};

TEST_F(ZmcLookTest, TheBandsAndTheLineHaveTheirColours) {
  Open();
  EXPECT_EQ(Back(Main(id::kBand)), 0x646E78u);
  EXPECT_EQ(Back(Main(id::kInnerBand)), 0x838D97u);
  const QImage line = Paint(*Main(id::kLine));
  EXPECT_EQ(Count(line, 0x808080), line.width() * line.height());
}

TEST_F(ZmcLookTest, WhatLiesOnTheBandHasItsGround) {
  Open();
  for (const ZmcControlPlace& place : ControlsOf(ZmcTab::kMain)) {
    const bool own = place.id == id::kLine || place.kind == ZmcControlKind::kBand;
    const bool drawn = place.kind == ZmcControlKind::kLabel || place.kind == ZmcControlKind::kCheckBox;
    if (!drawn || own) continue;
    const bool band = place.units.top >= 184 && place.units.bottom <= 251;
    EXPECT_EQ(Back(Main(place.id)), band ? 0x646E78u : zmc_look::kPage) << place.id;
  }
}

TEST_F(ZmcLookTest, TheThreeGridsHaveTheirThreeColours) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  Menu(zmc_command::kOperationsTab);
  for (const ZmcTab tab : kZmcTabs) {
    const GridColors& colors = Grid(tab)->Colors();
    EXPECT_EQ(colors.window, 0xFFFFFFu);
    EXPECT_EQ(colors.fixed, 0xC0C0C0u);
    EXPECT_EQ(colors.alternate, 0xF0F0F0u);
    const QColor bar = Grid(tab)->verticalScrollBar()->palette().color(QPalette::Base);
    EXPECT_EQ(bar, ToQColor(0xC0C0C0).lighter(108)) << "its scroll bar is a shade of the fixed cells";
  }
}

TEST_F(ZmcLookTest, ALineThatCannotBeTypedInIsGrey) {
  Open();
  EXPECT_EQ(Back(Main(id::kDmcText)), zmc_look::kFieldBack);
  delete tool;
  Define(u"DM.OPTION.DMC", 0);
  Open();
  EXPECT_EQ(Back(Main(id::kDmcText)), zmc_look::kFieldOff);
}

TEST_F(ZmcLookTest, TitlesAreBoldAndThoseOfThePagesCentred) {
  Open();
  EXPECT_EQ(WeightOf(Label(id::kTitle)), 700);
  EXPECT_EQ(WeightOf(Label(id::kBandTitle)), 700);
  EXPECT_EQ(WeightOf(Label(id::kMaterialLabel)), 500);
  EXPECT_EQ(Label(id::kTitle).Format(), 0x8865u);
  EXPECT_EQ(Label(id::kBandTitle).Format(), 0x8864u);
  EXPECT_EQ(Fore(Main(id::kTitle)), zmc_look::kTitleText);
  EXPECT_EQ(Fore(Main(id::kMaterialLabel)), 0xBFC9D3u);
  Menu(zmc_command::kMaterialsTab);
  auto* title = qobject_cast<ZWCStatic*>(On(ZmcTab::kMaterials, id::kMaterialsTitle));
  EXPECT_EQ(WeightOf(*title), 700);
  EXPECT_EQ(title->Format(), 0x8865u);
  EXPECT_EQ(Fore(title), zmc_look::kTitleText);
}

TEST_F(ZmcLookTest, TheControlsHaveOneFontThatGrowsWithThePage) {
  Open();
  const auto letters = [this](int control) { return Main(control)->font().pixelSize(); };
  for (const QSize size : {QSize(800, 600), QSize(1600, 1200)}) {
    Resize(size);
    for (const int control : {id::kRemark, id::kMaterial, id::kTool, id::kF, id::kGrid}) {
      EXPECT_EQ(Main(control)->font().family(), MakeFont("Arial", 20, 500)->family()) << control;
      EXPECT_EQ(Main(control)->font().weight(), 500) << control;
    }
    for (const int control : {id::kRemark, id::kMaterial, id::kTool}) EXPECT_EQ(letters(control), letters(id::kF));
  }
  const int large = letters(id::kF);
  const int largeInTheGrid = letters(id::kGrid);
  Resize({800, 600});
  EXPECT_NEAR(large, 2 * letters(id::kF), 1);
  EXPECT_GT(largeInTheGrid, letters(id::kGrid));
}

TEST_F(ZmcLookTest, TheConditionsFillTheirGridAndTheNamesHaveTwoFifths) {
  Open();
  for (const QSize size : {QSize(800, 600), QSize(1024, 768), kLarge, QSize(801, 603)}) {
    Resize(size);
    const int names = Grid()->verticalHeader()->width();
    EXPECT_NEAR(names, Grid()->width() * 2 / 5, 3) << size.width();
    EXPECT_EQ(names + Grid()->horizontalHeader()->length(), Grid()->width()) << size.width();
    EXPECT_EQ(Grid()->horizontalHeader()->height() + Grid()->verticalHeader()->length(), Grid()->height())
        << size.width();
    for (int row = 0; row < 4; ++row) EXPECT_NEAR(Grid()->rowHeight(row), Grid()->height() / 5, 1) << size.width();
  }
}

TEST_F(ZmcLookTest, ATableOfManyRowsScrollsDownOnly) {
  std::string materials;
  for (int number = 0; number < 100; ++number) {
    materials += "<MaterialDefinition><descripcion>M" + std::to_string(number) + "</descripcion></MaterialDefinition>";
  }
  Disc("C:\\P118\\CondicionesCorteP.xml", "<CondicionesCorte><MaterialesDefinition>" + materials +
                                              "</MaterialesDefinition><Operaciones/></CondicionesCorte>");
  Open();
  Menu(zmc_command::kMaterialsTab);
  const ZCGridXWrap& grid = *Grid(ZmcTab::kMaterials);
  for (const QSize size : {QSize(800, 600), QSize(640, 480), kLarge}) {
    Resize(size);
    EXPECT_EQ(Page(ZmcTab::kMaterials)->size(), size) << "a page that is shown follows";
    ASSERT_GT(grid.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(grid.horizontalScrollBar()->maximum(), 0) << size.width();
    EXPECT_LE(grid.verticalHeader()->width(), 16) << "the fixed column is narrow";
  }
}

TEST_F(ZmcLookTest, TheLettersOfATableGrowWithItsPageAndItsColumnsFillIt) {
  Open();
  for (const auto& [tab, command] : {std::pair(ZmcTab::kMaterials, zmc_command::kMaterialsTab),
                                     {ZmcTab::kOperations, zmc_command::kOperationsTab}}) {
    Menu(command);
    const ZCGridXWrap& grid = *Grid(tab);
    int letters = 0;
    for (const QSize size : {QSize(800, 600), kLarge}) {
      Resize(size);
      EXPECT_EQ(grid.font().weight(), 500) << command;
      EXPECT_EQ(grid.font().family(), MakeFont("Arial", 20, 500)->family()) << command;
      EXPECT_GT(grid.font().pixelSize(), letters) << command;
      letters = grid.font().pixelSize();
      // A pixel less in each column, and the place of the scroll bar.
      const int free = grid.viewport()->width() - grid.horizontalHeader()->length();
      EXPECT_LE(free, grid.verticalScrollBar()->sizeHint().width() + 7) << command << " at " << size.width();
    }
  }
}

TEST_F(ZmcLookTest, TheTextOfAUnitBeginsBesideTheFieldThatCoversIt) {
  Open();
  Resize(kLarge);
  for (const auto& [field, unit] : {std::pair(id::kF, id::kFUnit), std::pair(id::kS, id::kSUnit)}) {
    const int covered = Main(field)->geometry().right() + 1 - Main(unit)->x();
    ASSERT_GT(covered, 8);
    const QImage box = Paint(*Main(unit));
    const QRect inside = box.rect().adjusted(2, 2, -2, -2);
    EXPECT_TRUE(
        Ink(box, zmc_look::kFieldBack, QRect(inside.left(), inside.top(), covered - 2, inside.height())).isEmpty());
    const int triangle = box.width() - box.height() / 2 - 4;
    EXPECT_FALSE(
        Ink(box, zmc_look::kFieldBack, QRect(covered, inside.top(), triangle - covered, inside.height())).isEmpty());
  }
}

TEST_F(ZmcLookTest, ATextThatIsALittleTooLongForItsBoxIsDrawnSmaller) {
  ZmcBox box(1, false, nullptr);
  box.resize(120, 30);
  QFont font("Arial");
  font.setPixelSize(20);
  box.setFont(font);
  const auto height = [&box](const QString& text) {
    box.Fill({Text(text.toStdU16String())});
    box.SelectIndex(0);
    const QImage image = Paint(box);
    return Ink(image, ColorAt(image, 3, 3), QRect(3, 3, 90, 24)).height();
  };
  const int letters = 97 / QFontMetrics(font).horizontalAdvance('H');
  EXPECT_EQ(height(QString(letters - 1, 'H')), height("H")) << "it fits";
  EXPECT_LT(height(QString(letters + 2, 'H')), height("H"));
}

TEST_F(ZmcLookTest, TheLineOfTheToolBoxLeavesTheTriangleFree) {
  Open();
  const ZmcBox& box = *Box(id::kTool);
  EXPECT_EQ(box.childAt(box.width() - 5, box.height() / 2), nullptr) << "a touch there opens the list";
  EXPECT_EQ(box.childAt(box.width() / 2, box.height() / 2), box.lineEdit());
}

TEST_F(ZmcLookTest, TheBarIsPaintedAnewWhenThePowerChanges) {
  ZmcPowerBar bar(1, nullptr);
  bar.show();
  Settle();
  const PaintCounter paints(bar);
  bar.SetPercent(50);
  Settle();
  EXPECT_EQ(paints.Count(), 1);
  bar.SetPercent(50);
  Settle();
  EXPECT_EQ(paints.Count(), 1) << "and only then";
}

TEST_F(ZmcLookTest, ThePageUnderTheBarIsNotPaintedWithIt) {
  QWidget page;
  auto* bar = new ZmcPowerBar(1, &page);
  bar->setGeometry(10, 10, 50, 10);
  Activate(page);
  const PaintCounter under(page);
  bar->SetPercent(50);
  Settle();
  EXPECT_EQ(under.Count(), 0);
}

TEST_F(ZmcLookTest, TheFrameHasTheGroundOfItsPagesWhereNoneIsShown) {
  Open();
  QImage image(tool->size(), QImage::Format_RGB32);
  image.fill(Qt::magenta);
  tool->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
  EXPECT_EQ(Count(image, zmc_look::kPage), image.width() * image.height());
  EXPECT_EQ(Back(tool), zmc_look::kPage) << "for those outside";
}

TEST_F(ZmcLookTest, NothingThatAPageOrTheFrameCoversIsPainted) {
  Open();
  for (const auto& [tab, command] : {std::pair(ZmcTab::kMain, zmc_command::kMainTab),
                                     {ZmcTab::kMaterials, zmc_command::kMaterialsTab},
                                     {ZmcTab::kOperations, zmc_command::kOperationsTab}}) {
    Menu(command);
    const PaintCounter frame(*tool);
    Page(tab)->update();
    Settle();
    EXPECT_EQ(frame.Count(), 0) << command;
  }
  Page(ZmcTab::kOperations)->hide();
  Settle();
  const PaintCounter behind(*area);
  tool->update();
  Settle();
  EXPECT_EQ(behind.Count(), 0);
}

TEST_F(ZmcLookTest, TheBarIsEmptyWithoutAPowerAndShowsTheSmallest) {
  QWidget page;
  page.resize(300, 50);
  auto* bar = new ZmcPowerBar(1, &page);
  bar->setGeometry(10, 10, 200, 10);
  bar->SetPercent(0.5);
  EXPECT_EQ(Count(Paint(*bar), zmc_look::kPowerGood), 10) << "a column";
  EXPECT_EQ(bar->WindowText(), "0.50 %");
  bar->SetPercent(50);
  EXPECT_EQ(Count(Paint(*bar), zmc_look::kPowerGood), 100 * 10);
  bar->SetPercent({});
  EXPECT_EQ(Count(Paint(*bar), zmc_look::kPage), 200 * 10) << "nothing of the power before";
  EXPECT_EQ(page.childAt(20, 15), nullptr) << "a touch is the page's";
}

}  // namespace
}  // namespace pnl::test
