// SPDX-License-Identifier: MIT
#include "calc_fixture.h"

#include <utility>

namespace pnl::test {

CalcRig* CalcRig::current = nullptr;

namespace {

void Logged(const std::string& line) {
  CalcRig& rig = *CalcRig::current;
  rig.log.push_back(line);
  if (rig.onHostCall) rig.onHostCall(line);
}

std::string Called(const char* name, int first) { return std::string(name) + "(" + std::to_string(first) + ")"; }

void FillTable(HostApiTable& table) {
  table.toolOpening = [](int tool) { Logged(Called("HostToolOpening", tool)); };
  table.toolClosed = [](int tool, int reason) {
    Logged("HostToolClosed(" + std::to_string(tool) + "," + std::to_string(reason) + ")");
  };
  table.setMainMenu = [](int, HostMenuRef menu) {
    CalcRig::current->mainMenu = menu.menu;
    Logged("main menu " + CalcRig::current->MenuName(menu.menu));
  };
  table.setSideMenu = [](int, HostMenuRef menu) {
    CalcRig::current->sideMenu = menu.menu;
    Logged("side menu " + CalcRig::current->MenuName(menu.menu));
  };
  table.updateMainMenu = [](int tool, int) { Logged(Called("HostUpdateMainMenu", tool)); };
  table.updateSideMenu = [](int tool, int) { Logged(Called("HostUpdateSideMenu", tool)); };
  table.showMessage = [](int, const HostMessage* message) {
    Logged("message \"" + ToUtf8(FieldText(message->text)) + "\"");
  };
  table.calcResultAccepted = [] { Logged("HostCalcResultAccepted"); };
  table.toolWantsClose = [](int tool) { Logged(Called("HostToolWantsClose", tool)); };
  table.openMachiningCalculator = [] { Logged("HostOpenMachiningCalculator"); };
}

LanguagePack::MenuNode Item(int id, TextView text) {
  LanguagePack::MenuNode node;
  node.item.id = id;
  node.item.text = Text(text);
  return node;
}

LanguagePack::MenuNode Part(TextView text, std::vector<LanguagePack::MenuNode> items) {
  LanguagePack::MenuNode node;
  node.item.text = Text(text);
  node.children = std::move(items);
  return node;
}

std::string PackBytes() {
  PackContents contents;
  contents.texts = {{60001, u"not saved: %s"},
                    {60002, u"%s is slow"},
                    {1, u"Calc"},
                    {2, u"Empty"},
                    {3, u"Failed"},
                    {4, u"Syntax"},
                    {5, u"Value"},
                    {6, u"Sel"},
                    {calc_id::kTextComputing, u"Computing"},
                    {calc_id::kTextConfirming, u"Confirming"},
                    {calc_id::kTextNoVariables, u"None"},
                    {calc_id::kTextIntegral, u"from %s to %s, N %s"},
                    {calc_id::kTextZero, u"start %s, N %s, E %s"},
                    {calc_id::kTextTolerance, u"%d times, %s left"}};
  contents.menus[u"IDR_CALCMENU"] = {
      Part(u"main", {Item(32784, u"Sin"), Item(calc_id::kMenuCompact, u"Compact")}),
      Part(u"side", {Item(calc_id::kMenuBase, u"Base"), Item(calc_id::kMenuAngle, u"Angle"),
                     Item(calc_id::kMenuMachining, u"Machining")})};
  return BuildPack(contents);
}

}  // namespace

CalcRig::CalcRig()
    : language(menus, cnc.Util(), files, windows), host(table, cnc.Vars()), context{host,   cnc,      windows,
                                                                                    timers, language, files} {
  current = this;
  SharedCalcStore() = CalcStore();
  FillTable(table);
  LanguagePack pack;
  EXPECT_TRUE(pack.Parse(PackBytes()));
  language.Use(std::move(pack));
  // The shared texts come from a module; without one a box says so.
  files.disc["C:\\P15\\LPNLTOOLS.DLL"] = PackBytes();
  cnc.SetSink(&sink);
  cnc.Define(u"E.CALCRESUL", rig::VariableType::kDouble, 0.0, true, true);
  MakeTool();
}

CalcRig::~CalcRig() {
  DestroyTool();
  current = nullptr;
}

void CalcRig::MakeTool() {
  DestroyTool();
  view = std::make_unique<FakeCalcView>(log);
  session = std::make_shared<CalcSession>(context, *view, 0);
  view->onLineChanged = [this] { LineChanged(); };
}

void CalcRig::DestroyTool() {
  const std::shared_ptr<CalcSession> ending = std::exchange(session, nullptr);
  if (!ending) return;
  view->closing = true;
  ending->End();
  view->dead = true;
}

void CalcRig::Open() {
  Tell([](CalcSession& tool) { tool.Open(); });
}

bool CalcRig::Key(CalcKey key, bool ctrl) {
  const bool walking = !ctrl && (key == CalcKey::kUp || key == CalcKey::kDown);
  bool consumed = false;
  bool listOpen = false;
  Tell([&](CalcSession& tool) {
    consumed = tool.OnKey(key, ctrl);
    listOpen = tool.IsListOpen();
  });
  if (consumed || !walking || !listOpen) return consumed;
  view->Walk(key == CalcKey::kDown);
  SelectInList();
  return false;
}

bool CalcRig::Character(char16_t character) {
  bool taken = false;
  Tell([&](CalcSession& tool) { taken = tool.OnCharacter(character); });
  return taken;
}

void CalcRig::Button(int id) {
  Tell([=](CalcSession& tool) { tool.OnButton(id); });
}

void CalcRig::Menu(int id) {
  Tell([=](CalcSession& tool) { tool.OnMenuCommand(id); });
}

std::intptr_t CalcRig::Command(std::intptr_t request) {
  std::intptr_t answer = 0;
  Tell([&](CalcSession& tool) { answer = tool.OnToolCommand(request); });
  return answer;
}

void CalcRig::HandleValue() {
  Tell([](CalcSession& tool) { tool.OnHandleValue(); });
}

void CalcRig::LineChanged() {
  Tell([](CalcSession& tool) { tool.OnLineChanged(); });
}

void CalcRig::PressLine() {
  Tell([](CalcSession& tool) { tool.OnLinePressed(); });
}

void CalcRig::SelectInList() {
  Tell([](CalcSession& tool) { tool.OnListSelection(); });
}

void CalcRig::DoubleClickList() {
  Tell([](CalcSession& tool) { tool.OnListDoubleClick(); });
}

void CalcRig::PickVariable() {
  Tell([](CalcSession& tool) { tool.OnVariablesPicked(); });
}

void CalcRig::Work() {
  Tell([](CalcSession& tool) { tool.Work(); });
}

void CalcRig::Type(const std::string& text) {
  for (const char16_t c : FromUtf8(text)) {
    if (Character(c)) continue;
    const int room = view->limit - static_cast<int>(view->line.size());
    if (room + (view->selection.end - view->selection.start) <= 0) continue;
    Text line = view->line;
    const TextSelection at = view->selection;
    line.replace(static_cast<std::size_t>(at.start), static_cast<std::size_t>(at.end - at.start), 1, c);
    view->Replace(line);
    // Whoever refused the change has put the caret where it belongs.
    if (view->line == line) view->selection = {at.start + 1, at.start + 1};
  }
}

void CalcRig::Line(const std::string& text) {
  view->Replace(FromUtf8(text));
  const int end = static_cast<int>(view->line.size());
  view->selection = {end, end};
}

void CalcRig::Pick(std::vector<int> rows) {
  view->selectedRows = std::move(rows);
  view->currentRow = view->selectedRows.empty() ? -1 : view->selectedRows.back();
  SelectInList();
}

void CalcRig::Confirm(const std::string& text) {
  Line(text);
  Key(CalcKey::kEnter);
}

int CalcRig::WorkToTheEnd() {
  int pieces = 0;
  for (; session->IsComputing() && pieces < 1'000'000; ++pieces) Work();
  EXPECT_FALSE(session->IsComputing());
  return pieces;
}

std::vector<std::string> CalcRig::Rows() const {
  std::vector<std::string> all;
  for (const Text& row : view->rows) all.push_back(ToUtf8(row));
  return all;
}

double CalcRig::Variable(char letter) { return SharedCalcStore().Variables[static_cast<std::size_t>(letter - 'A')]; }

Log CalcRig::Asked() {
  Log asked = All();
  std::erase_if(asked, [](const std::string& line) { return line.starts_with("view "); });
  return asked;
}

const MenuItem* CalcRig::Item(int id) {
  const MenuItem* item = menus.FindItem(mainMenu, id);
  return item != nullptr ? item : menus.FindItem(sideMenu, id);
}

std::string CalcRig::MenuName(MenuHandle menu) const {
  const pnl::Menu* found = menus.Find(menu);
  if (found == nullptr || found->items.empty()) return "none";
  return found->items.front().id == 32784 ? "main" : "side";
}

}  // namespace pnl::test
