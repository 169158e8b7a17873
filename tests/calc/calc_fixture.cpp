// SPDX-License-Identifier: MIT
#include "calc_fixture.h"

namespace pnl::test {
namespace {

PackContents Contents() {
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
      PackItem(0, u"main", {PackItem(32784, u"Sin"), PackItem(calc_id::kMenuCompact, u"Compact")}),
      PackItem(0, u"side",
               {PackItem(calc_id::kMenuBase, u"Base"), PackItem(calc_id::kMenuAngle, u"Angle"),
                PackItem(calc_id::kMenuMachining, u"Machining")})};
  return contents;
}

}  // namespace

CalcRig::CalcRig() : ToolStage(Contents()) {
  SharedCalcStore() = CalcStore();
  noting.menuName = [this](MenuHandle menu) { return MenuName(menu); };
  noting.onMainMenu = [this](MenuHandle menu) { mainMenu = menu; };
  noting.onSideMenu = [this](MenuHandle menu) { sideMenu = menu; };
  cnc.Define(u"E.CALCRESUL", rig::VariableType::kDouble, 0.0, true, true);
  MakeTool();
}

void CalcRig::MakeTool() {
  DestroyTool();
  view = std::make_unique<FakeCalcView>(log, windows);
  tool = std::make_shared<CalcSession>(context, *view, 0);
  view->onLineChanged = [this] { LineChanged(); };
}

void CalcRig::DestroyTool() {
  if (tool) view->closing = true;
  ToolStage::DestroyTool();
}

bool CalcRig::Key(CalcKey key, bool ctrl) {
  bool listOpen = false;
  bool consumed = false;
  Tell([&](CalcSession& session) {
    consumed = session.OnKey(key, ctrl);
    listOpen = session.IsListOpen();
  });
  const bool walking = !ctrl && (key == CalcKey::kUp || key == CalcKey::kDown);
  if (consumed || !walking || !listOpen) return consumed;
  view->Walk(key == CalcKey::kDown);
  SelectInList();
  return false;
}

void CalcRig::Type(const std::string& text) {
  for (const char16_t c : FromUtf8(text)) {
    if (Character(c)) continue;
    const TextSelection at = view->selection;
    const int room = view->limit - static_cast<int>(view->line.size());
    if (room + (at.end - at.start) <= 0) continue;
    Text line = view->line;
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
  for (; tool->IsComputing() && pieces < 1'000'000; ++pieces) Work();
  EXPECT_FALSE(tool->IsComputing());
  return pieces;
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
