// SPDX-License-Identifier: MIT
#include "mdi_fixture.h"

#include <utility>

namespace pnl::test {

MdiRig* MdiRig::current = nullptr;

namespace {

void Logged(const std::string& line) {
  MdiRig& rig = *MdiRig::current;
  rig.log.push_back(line);
  if (rig.onHostCall) rig.onHostCall(line);
}

std::string Called(const char* name, int first) { return std::string(name) + "(" + std::to_string(first) + ")"; }

void FillTable(HostApiTable& table) {
  table.toolOpening = [](int tool) { Logged(Called("HostToolOpening", tool)); };
  table.toolClosed = [](int tool, int reason) {
    Logged("HostToolClosed(" + std::to_string(tool) + "," + std::to_string(reason) + ")");
  };
  table.setMainMenu = [](int, HostMenuRef menu) { Logged("main menu " + MdiRig::current->MenuName(menu.menu)); };
  table.setSideMenu = [](int, HostMenuRef menu) { Logged("side menu " + MdiRig::current->MenuName(menu.menu)); };
  table.updateMainMenu = [](int tool, int) { Logged(Called("HostUpdateMainMenu", tool)); };
  table.updateSideMenu = [](int tool, int) { Logged(Called("HostUpdateSideMenu", tool)); };
  table.showMessage = [](int, const HostMessage* message) {
    const std::string text = ToUtf8(FieldText(message->text));
    EXPECT_EQ(message->back, 0x2C8064u);
    EXPECT_EQ(message->fore, 0u);
    Logged(text.empty() ? "clear message" : "message \"" + text + "\"");
  };
  table.explorerRequest = [] { Logged("HostExplorerRequest"); };
}

LanguagePack::MenuNode Item(int id, TextView text) {
  LanguagePack::MenuNode node;
  node.item.id = id;
  node.item.text = Text(text);
  return node;
}

LanguagePack MakePack() {
  PackContents contents;
  contents.texts = {{7, u"End edit"},  {8, u"Save program"}, {9, u"%s can't be written"}, {10, u"%s not created"},
                    {38, u"Hint MDI"}, {39, u"Hint MDA"},    {60001, u"not saved: %s"},   {60002, u"%s is slow"}};
  contents.menus[u"3015"] = {Item(40000, u"Cancel")};
  contents.menus[u"IDR_MDAMENU"] = {Item(32771, u"Delete"), Item(32772, u"Change"), Item(32773, u"New"),
                                    Item(32775, u"Save"),   Item(32776, u"Clear"),  Item(40003, u"Up"),
                                    Item(40004, u"Down")};
  contents.menus[u"3025"] = {Item(40005, u"Position"), Item(40006, u"Length")};
  LanguagePack pack;
  EXPECT_TRUE(pack.Parse(BuildPack(contents)));
  return pack;
}

}  // namespace

MdiRig::MdiRig()
    : cnc(log, windows),
      language(menus, cnc.utilities, files, windows),
      host(table, cnc.vars),
      context{host, cnc, windows, timers, language, files},
      hostWindow(windows.Open()) {
  current = this;
  FillTable(table);
  language.Use(MakePack());
  for (const char* name : {"[1].G.STATUS", "[1].G.CNCAUTSTATUS", "[1].G.CNCMANSTATUS", "[1].E.APISTATUS",
                           "[1].E.PNLMODE", "[1].E.MANUALMODE", "[1].E.INSPECSTATUS", "[1].E.STARTONMDI"}) {
    cnc.vars.Define(name);
  }
  cnc.vars.Define("[1].G.FULLSTATUS", 0x100);
  cnc.vars.Define("E.HELPDATA");
  cnc.vars.Define("E.CALCRESUL");
  cnc.vars.Define("E.XPLRDATA");
  windows.onSend = [this](WindowHandle window, const Message& message) -> std::intptr_t {
    if (window == hostWindow && message.number == kMsgToolNotify) {
      const auto* record = reinterpret_cast<const PnlToolNotify*>(message.second);
      EXPECT_EQ(record->window, view->Handle());
      Logged("ToolNotify " + std::to_string(message.first) + " channel " + std::to_string(record->channel));
    }
    if (tool && window == view->Handle()) return Answer(message).value_or(0);
    return 0;
  };
  MakeTool();
}

MdiRig::~MdiRig() {
  DestroyTool();
  current = nullptr;
}

void MdiRig::MakeTool() {
  if (tool) DestroyTool();
  view = std::make_unique<FakeMdiView>(log, windows);
  tool = std::make_shared<MdiSession>(context, *view, hostWindow);
  view->session = tool;
  Tell([](MdiSession& session) { session.Start(); });
  // Handles are never used twice: this tool's three menus follow those of the tool before.
  const MenuHandle before = std::exchange(mdaMenu, 0);
  for (MenuHandle menu = before; menu < before + 8; ++menu) {
    if (MenuName(menu) == "mda") mdaMenu = menu;
  }
}

void MdiRig::DestroyTool() {
  if (!tool) return;
  windows.Kill(view->Handle());
  tool->End();
  view->dead = true;
  view->session.reset();
  tool.reset();
}

std::intptr_t MdiRig::Send(std::uint32_t number, std::intptr_t first, std::intptr_t second) {
  return Answer({number, first, second}).value_or(-1);
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
  const bool there = RunOperation(tool, [&](MdiSession& session) { consumed = session.OnKey(key); });
  return consumed || (before && !there);
}

std::intptr_t MdiRig::Start(int channel) {
  PnlCycleStart start = {};
  start.channel = static_cast<std::int8_t>(channel);
  return Send(kMsgCycleStart, 1, reinterpret_cast<std::intptr_t>(&start));
}

void MdiRig::Drain() {
  windows.Drain([this](WindowHandle window, const Message& message) {
    if (tool && window == view->Handle()) Answer(message);
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

Log MdiRig::All() { return std::exchange(log, {}); }

Log MdiRig::Asked() {
  Log kept;
  for (std::string& line : All()) {
    if (line.compare(0, 5, "view ") != 0) kept.push_back(std::move(line));
  }
  return kept;
}

const MenuItem* MdiRig::MdaItem(int id) { return menus.FindItem(mdaMenu, id); }

std::string MdiRig::MenuName(std::uint32_t menu) {
  if (menu == 0) return "none";
  if (menus.FindItem(menu, 40000) != nullptr) return "cancel";
  if (menus.FindItem(menu, 40005) != nullptr) return "position";
  if (menus.FindItem(menu, 32773) != nullptr) return "mda";
  return "?";
}

std::vector<std::string> MdiRig::HistoryShown() {
  view->dropItems.clear();
  Key(MdiKey::kDown);
  std::vector<std::string> shown;
  for (const Text& item : view->dropItems) shown.push_back(ToUtf8(item));
  view->CancelInDropList();
  return shown;
}

}  // namespace pnl::test
