// SPDX-License-Identifier: MIT
// The packs that the build made: complete, alike in what the logic depends on, and drawable.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <set>

#include "base/text.h"
#include "calc/calc_ids.h"
#include "calc/calc_places.h"
#include "host/language.h"
#include "host/shared_texts.h"
#include "library/qt/built_packs.h"

namespace pnl {
namespace {

using test::Conversions;
using test::LoadPack;
using test::MenuIds;
using ::testing::ElementsAre;

class Pack : public ::testing::TestWithParam<const char*> {
 protected:
  LanguagePack pack_ = LoadPack(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Languages, Pack, ::testing::Values("en", "es"),
                         [](const auto& row) { return std::string(row.param); });

TEST_P(Pack, HasEveryTextOfTheCommandLineAndEverySharedText) {
  std::set<int> ids(kSharedTextOrder.begin(), kSharedTextOrder.end());
  ids.insert({7, 8, 9, 10, 38, 39});
  for (const int id : ids) {
    ASSERT_NE(pack_.FindText(id), nullptr) << id;
    EXPECT_FALSE(pack_.FindText(id)->empty()) << id;
  }
}

TEST_P(Pack, HasTheCalculatorsTextsMenuAndFaces) {
  for (int id = calc_id::kTextComputing; id <= calc_id::kTextTolerance; ++id)
    EXPECT_NE(pack_.FindText(id), nullptr) << id;
  const auto* menu = pack_.FindMenuNodes(u"IDR_CALCMENU");
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->size(), 2u) << "a menu for each bar";
  EXPECT_LE(menu->front().children.size(), 7u) << "all groups on one page";
  for (const auto& group : menu->front().children) EXPECT_LE(group.children.size(), 7u) << ToUtf8(group.item.text);
  std::vector<int> side;
  for (const auto& node : menu->back().children) side.push_back(node.item.id);
  EXPECT_THAT(side,
              ElementsAre(calc_id::kMenuBase, calc_id::kMenuAngle, calc_id::kMenuCompact, calc_id::kMenuMachining));
  for (int face = calc_id::kFirstKeyIcon; face < calc_id::kFirstKeyIcon + 25; ++face) {
    EXPECT_NE(pack_.FindBitmap(face), nullptr) << face;
  }
  for (const int picture :
       {365, 366, 367, calc_id::kDegreesBitmap, calc_id::kRadiansBitmap, calc_id::kMachiningBitmap}) {
    EXPECT_NE(pack_.FindBitmap(picture), nullptr) << picture;
  }
}

TEST_P(Pack, HasTheCalculatorsControlsWhereTheLibraryHasThem) {
  const DialogTemplate* dialog = pack_.FindDialog(calc_id::kDialog);
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->width, CalcDialogUnits().width);
  EXPECT_EQ(dialog->height, CalcDialogUnits().height);
  for (const CalcControl& built : CalcControls()) {
    ASSERT_NE(dialog->Find(built.id), nullptr) << built.id;
    const CalcControl found = LocalizedControl(built, dialog);
    EXPECT_EQ(DialogPixels(found, 1), DialogPixels(built, 1)) << built.id;
  }
}

struct FormatCase {
  int id;
  const char* conversions;
};

TEST_P(Pack, FormatsTakeTheArgumentsThatTheToolsGiveThem) {
  const FormatCase cases[] = {
      {7004, "%s%s%s"}, {7005, "%s%s%s"}, {7006, "%d%s"}, {9, "%s"},     {10, "%s"},    {57345, "%d"}, {230, "%s"},
      {231, "%s%d"},    {245, "%d"},      {235, "%s"},    {246, "%s%d"}, {238, "%d"},   {247, "%d%d"}, {241, "%d"},
      {242, "%s"},      {243, "%s%d"},    {57348, "%d"},  {57349, "%d"}, {57352, "%d"}, {252, "%d"},   {263, "%d"},
      {57355, "%d"},    {38, ""},         {39, ""},       {7, ""},       {8, ""},       {214, ""},     {215, ""},
      {229, ""},        {232, ""},        {233, ""},      {234, ""},     {244, ""},     {57353, ""},   {57347, ""},
  };
  for (const FormatCase& row : cases) EXPECT_EQ(Conversions(*pack_.FindText(row.id)), row.conversions) << row.id;
}

TEST_P(Pack, HintsFitTheHostsMessageLine) {
  for (const int id : {38, 39}) EXPECT_LT(pack_.FindText(id)->size(), 256u);
}

TEST_P(Pack, HasTheCommandLinesMenus) {
  EXPECT_THAT(MenuIds(pack_, u"3015"), ElementsAre(40000));
  EXPECT_THAT(MenuIds(pack_, u"3025"), ElementsAre(40005, 40006));
  // 32774 isn't there: it takes the place of 40003 during an edit.
  EXPECT_THAT(MenuIds(pack_, u"IDR_MDAMENU"), ElementsAre(32771, 32772, 32773, 32775, 32776, 40003, 40004));
}

TEST_P(Pack, EveryMenuItemHasATextAndItsBitmap) {
  for (const TextView name : {u"3015", u"3025", u"IDR_MDAMENU"}) {
    for (const auto& node : *pack_.FindMenuNodes(name)) {
      EXPECT_FALSE(node.item.text.empty()) << node.item.id;
      EXPECT_NE(pack_.FindBitmap(node.item.bitmap), nullptr) << node.item.id;
    }
  }
}

struct DialogCase {
  int id;
  int width;
  int height;
};

TEST_P(Pack, HasTheDialogsWithTheirSizes) {
  for (const DialogCase& row : {DialogCase{3000, 236, 226}, DialogCase{3001, 188, 135}, DialogCase{3003, 393, 157}}) {
    ASSERT_NE(pack_.FindDialog(row.id), nullptr) << row.id;
    EXPECT_EQ(pack_.FindDialog(row.id)->width, row.width);
    EXPECT_EQ(pack_.FindDialog(row.id)->height, row.height);
  }
  const DialogTemplate* commandLine = pack_.FindDialog(3004);
  ASSERT_NE(commandLine, nullptr);
  for (const int id : {5000, 5001, 5003, 3003}) EXPECT_NE(commandLine->Find(id), nullptr) << id;
  EXPECT_EQ(commandLine->Find(5003)->text, u"MDI");
  EXPECT_EQ(commandLine->Find(3003)->text, u"MORE!");
}

TEST_P(Pack, BitmapsDrawSomethingBrightOnADarkKey) {
  for (const int id : {3017, 3019, 3020, 3026, 3027, 3028, 3029, 32771, 32772, 32773, 32774, 32775, 32776, 371, 372,
                       373, 374, 375, 376}) {
    const std::string* svg = pack_.FindBitmap(id);
    ASSERT_NE(svg, nullptr) << id;
    QSvgRenderer renderer(QByteArray::fromStdString(*svg));
    ASSERT_TRUE(renderer.isValid()) << id;
    QImage image(48, 48, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    int bright = 0;
    for (int y = 0; y < 48; ++y) {
      for (int x = 0; x < 48; ++x) bright += qGray(image.pixel(x, y)) > 128 ? 1 : 0;
    }
    EXPECT_GT(bright, 150) << id;
    EXPECT_LT(bright, 1500) << id;
  }
}

TEST(Packs, BothLanguagesHaveTheSameNumbers) {
  const LanguagePack english = LoadPack("en");
  const LanguagePack spanish = LoadPack("es");
  for (int id = 0; id < 0x10000; ++id) {
    EXPECT_EQ(english.FindText(id) != nullptr, spanish.FindText(id) != nullptr) << id;
    EXPECT_EQ(english.FindBitmap(id) != nullptr, spanish.FindBitmap(id) != nullptr) << id;
    EXPECT_EQ(english.FindDialog(id) != nullptr, spanish.FindDialog(id) != nullptr) << id;
  }
}

}  // namespace
}  // namespace pnl
