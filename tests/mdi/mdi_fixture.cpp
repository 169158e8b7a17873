// SPDX-License-Identifier: MIT
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

PackContents Contents() {
  PackContents contents;
  contents.texts = {
      {7, u"End edit"},  {8, u"Save program"}, {9, u"%s can't be written"}, {10, u"%s not created"}, {38, u"Hint MDI"},
      {39, u"Hint MDA"}, {7201, u"Pinned"},    {7202, u"As typed"},         {7203, u"History"},      {7204, u"Pin"},
      {7205, u"Unpin"},  {7206, u"Refused"},   {60001, u"not saved: %s"},   {60002, u"%s is slow"}};
  contents.menus[u"3015"] = {PackItem(40000, u"Cancel")};
  contents.menus[u"IDR_MDAMENU"] = {PackItem(32771, u"Delete"), PackItem(32772, u"Change"), PackItem(32773, u"New"),
                                    PackItem(32775, u"Save"),   PackItem(32776, u"Clear"),  PackItem(40003, u"Up"),
                                    PackItem(40004, u"Down")};
  contents.menus[u"3025"] = {PackItem(40005, u"Position"), PackItem(40006, u"Length")};
  return contents;
}

}  // namespace

MdiRig::MdiRig() : ToolStage(Contents()) {
  noting.menuName = [this](std::uint32_t menu) { return MenuName(menu); };
  for (const char* name :
       {"[1].G.STATUS", "[1].G.CNCAUTSTATUS", "[1].G.CNCMANSTATUS", "[1].E.APISTATUS", "[1].E.PNLMODE",
        "[1].E.MANUALMODE", "[1].E.INSPECSTATUS", "[1].E.STARTONMDI", "E.HELPDATA", "E.CALCRESUL", "E.XPLRDATA"}) {
    cnc.vars.Define(name);
  }
  cnc.vars.Define("[1].G.FULLSTATUS", 0x100);
  windows.onSend = [this](WindowHandle window, const Message& message) -> std::intptr_t {
    if (window == hostWindow && message.number == PNL_MSG_TOOL_NOTIFY) {
      const auto* record = reinterpret_cast<const PnlToolNotify*>(message.second);
      EXPECT_EQ(record->window, view->handle);
      noting.Note("ToolNotify " + std::to_string(message.first) + " channel " + std::to_string(record->channel));
    }
    return window == view->handle ? Answer(message).value_or(0) : 0;
  };
  MakeTool();
}

void MdiRig::MakeTool() {
  DestroyTool();
  view = std::make_unique<FakeMdiView>(log, windows);
  tool = std::make_shared<MdiSession>(context, *view, hostWindow);
  view->session = tool;
  Call(&MdiSession::Start);
  // Handles are never used twice: this tool's three menus follow those of the tool before.
  const MenuHandle before = std::exchange(mdaMenu, 0);
  for (MenuHandle menu = before; menu < before + 8; ++menu) {
    if (MenuName(menu) == "mda") mdaMenu = menu;
  }
}

std::optional<std::intptr_t> MdiRig::Answer(const Message& message) {
  std::optional<std::intptr_t> answer;
  Tell([&](MdiSession& session) {
    answer = 0;
    answer = session.OnMessage(message);
  });
  return answer;
}

bool MdiRig::Key(MdiKey key) {
  bool consumed = false;
  const bool before = tool != nullptr && !tool->HasEnded();
  const bool there = Tell([&](MdiSession& session) { consumed = session.OnKey(key); });
  return consumed || (before && !there);
}

std::intptr_t MdiRig::Start(int channel) {
  PnlCycleStart start = {};
  start.channel = static_cast<std::int8_t>(channel);
  return Send(PNL_MSG_CYCLE_START, 1, reinterpret_cast<std::intptr_t>(&start));
}

void MdiRig::Drain() {
  windows.Drain([this](WindowHandle window, const Message& message) {
    if (window == view->handle) Answer(message);
  });
}

void MdiRig::Type(const std::string& text) {
  // As an edit does: what is read-only takes no typing.
  if (view->readOnly) return;
  view->edit = FromUtf8(text);
  view->selection = {};
}

void MdiRig::Status(int byte, int detail) {
  if (byte == 1 || byte == 8) cnc.kernel.blockInHand = false;
  cnc.vars.Set("[1].G.FULLSTATUS", byte << 8 | detail);
  Drain();
}

void MdiRig::RunBlock(const std::string& block) {
  Type(block);
  Start();
  Status(2);
  Status(1);
}

void MdiRig::OpenMda(const std::string& listFile) {
  if (!listFile.empty()) files.disc["C:\\P108\\MDAC1.DAT"] = listFile;
  Open();
  ASSERT_EQ(Command(8), 0);
  Forget();
}

std::string MdiRig::MenuName(std::uint32_t menu) {
  if (menu == 0) return "none";
  for (const auto& [id, name] : {std::pair(40000, "cancel"), {40005, "position"}, {32773, "mda"}}) {
    if (menus.FindItem(menu, id) != nullptr) return name;
  }
  return "?";
}

std::vector<std::string> MdiRig::HistoryShown() {
  view->dropItems.clear();
  Key(MdiKey::kDown);
  const std::vector<std::string> shown = Utf8Rows(view->dropItems);
  view->CancelInDropList();
  return shown;
}

}  // namespace pnl::test
