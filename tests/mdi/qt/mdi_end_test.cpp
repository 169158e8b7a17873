// SPDX-License-Identifier: MIT
// The ends of the command line's window: whoever destroys it, whenever, nothing is left and nothing falls.
#include "host/records.h"
#include "mdi_stage.h"

namespace pnl::test {
namespace {

class MdiEndTest : public MdiStage {};

TEST_F(MdiEndTest, DiesWithItsParentWhileOpen) {
  History(3);
  Open();
  Type(Edit(), "G0");
  delete std::exchange(area, nullptr);
  EXPECT_TRUE(tool.isNull());
  EXPECT_EQ(Send(kMsgToolCommand, 2, 1), 0) << "a message after death";
}

TEST_F(MdiEndTest, DiesWithItsParentWhileTheDropListIsOpen) {
  History(3);
  Open();
  Key(Qt::Key_Down);
  ASSERT_NE(Drop(), nullptr);
  delete std::exchange(area, nullptr);
  EXPECT_EQ(Drop(), nullptr);
}

TEST_F(MdiEndTest, ADropListGoesBeforeItsOwnerWithThePanel) {
  History(3);
  auto second = std::make_unique<QWidget>();
  second->resize(300, 300);
  WindowRegistry::Instance().Attach(second.get(), nullptr, nullptr);
  tool = new ZCMDIWindow(context, second.get());
  handle = WindowRegistry::Instance().HandleOf(tool);
  Activate(*second);
  Open();
  Key(Qt::Key_Down);
  second.reset();
  EXPECT_TRUE(tool.isNull());
}

TEST_F(MdiEndTest, MayBeDestroyedByTheHostInEveryCallback) {
  struct Row {
    const char* call;
    std::function<void()> act;
  };
  const Row rows[] = {{"opening 6", [this] { Command(2); }},
                      {"closed 6,2",
                       [this] {
                         Command(2);
                         Key(Qt::Key_Escape);
                       }},
                      {"closed 6,2",
                       [this] {
                         Command(2);
                         Command(5);
                       }},
                      {"update menu", [this] {
                         Command(2);
                         SwitchRole();
                         Send(kMsgCommand, 32773);
                         List()->setFocus();
                       }}};
  for (const Row& row : rows) {
    for (const bool atOnce : {false, true}) {
      // A focus event belongs to the widget kit, which can't lose the widget in the middle of it; a host that destroys
      // the tool through the library is made to wait there.
      if (atOnce && row.call == std::string("update menu")) continue;
      SCOPED_TRACE(std::string(row.call) + (atOnce ? " at once" : " later"));
      Make();
      bool done = false;
      onHostCall = [&](const std::string& call) {
        if (call != row.call || std::exchange(done, true)) return;
        atOnce ? delete tool : tool->deleteLater();
      };
      row.act();
      Settle();
      EXPECT_TRUE(tool.isNull());
      onHostCall = nullptr;
    }
  }
}

TEST_F(MdiEndTest, MayBeDestroyedWhileABoxIsOpen) {
  Disc("P.NC", "x");
  std::filesystem::permissions(disc.Path() / "P108" / "P.NC", std::filesystem::perms::owner_read);
  OpenMda();
  cnc.Define(u"E.XPLRDATA", rig::VariableType::kInt, std::int64_t{0}, true, true);
  table.explorerRequest = [] {};
  Send(kMsgCommand, 32775);
  int boxes = 0;
  windows.SetBoxAnswerer([&](const BoxSpec&) {
    ++boxes;
    delete tool;
    return BoxAnswer::kOk;
  });
  // The answer record lies in the tool; a file that can't be written brings the box.
  const auto published = cnc.Get(u"E.XPLRDATA");
  ASSERT_TRUE(published);
  auto* record =
      static_cast<XPLRDATA_ST*>(ResolveRecord(static_cast<std::int32_t>(std::get<std::int64_t>(*published))));
  ASSERT_NE(record, nullptr);
  SetField(record->Path, u"C:\\P108");
  SetField(record->File, u"P.NC");
  Send(kMsgResultReady, 2);
  EXPECT_EQ(boxes, 1);
  EXPECT_TRUE(tool.isNull());
}

TEST_F(MdiEndTest, PostedMessagesDieWithIt) {
  Open();
  windows.Post(handle, {kMsgToolCommand, 3, 1});
  delete tool;
  Settle();
}

TEST_F(MdiEndTest, TwoWindowsOfOneParentLiveSideBySide) {
  Open();
  auto* second = new ZCMDIWindow(context, area);
  delete tool;
  Settle();
  delete second;
}

}  // namespace
}  // namespace pnl::test
