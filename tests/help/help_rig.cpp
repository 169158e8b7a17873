// SPDX-License-Identifier: MIT
#include "help/help_rig.h"

#include "help/help_ids.h"

namespace pnl::test {
namespace {

PackContents Contents() {
  PackContents contents;
  for (int id = help_text::kTitle; id <= help_text::kNoAddress; ++id)
    contents.texts[id] = FromUtf8("T" + std::to_string(id));
  contents.texts[help_text::kFound] = u"found %d";
  contents.texts[help_text::kNothingFound] = u"nothing %s";
  contents.texts[help_text::kLoading] = u"loading %s";
  contents.texts[help_text::kDamaged] = u"damaged %s";
  contents.texts[help_text::kUnusable] = u"unusable %s";
  contents.texts[help_text::kFallback] = u"fallback %s %s";
  contents.texts[help_text::kNoPage] = u"no page %s";
  contents.texts[help_text::kNotInPage] = u"not in page %s";
  contents.texts[help_text::kNoList] = u"no list %s %d";
  contents.texts[help_text::kNoAddress] = u"no address %s";
  contents.menus[u"IDR_HELPMENU"] = {PackItem(
      -1, u"Help",
      {PackItem(2004, u"Manuals"), PackItem(2001, u"Contents"), PackItem(2003, u"Index"), PackItem(2006, u"Search"),
       PackItem(
           -1, u"Go to",
           {PackItem(2000, u"Home"), PackItem(2002, u"Back"), PackItem(2005, u"Forward"), PackItem(40002, u"Find")})})};
  DialogTemplate dialog;
  dialog.id = help_id::kDialog;
  dialog.controls = {{help_id::kMissing, u"static", u"File not found.", {}}};
  contents.dialogs[dialog.id] = dialog;
  return contents;
}

}  // namespace

HelpToolTest::HelpToolTest() : ToolStage(Contents()) {
  cnc.Define(u"E.HELPDATA", rig::VariableType::kText, std::u16string(), true, true);
  sink.quiet = {"UTIL7340_Is7335", "Get7340Path"};
  Disc("C:\\P113\\Cnc7340.helps") = "[MANUALS]\r\nOPT=oper.chm\r\nPRG=prog.chm\r\nNIX=gone.chm\r\n";
  Disc("C:\\P113\\oper.mrk") = "[MARKS]\r\nOPT0130=mdi.htm\r\nOPT0000=home.htm\r\nOPT0500=lost.htm\r\n";
  Disc("C:\\P113\\gone.mrk") = "[MARKS]\r\nNIX0000=home.htm\r\n";
  Disc("C:\\P113\\oper.chm") = "manual";
  Disc("C:\\P113\\prog.chm") = "manual";
  world.books["C:\\P113\\oper.chm"] = {ManualState::kWhole, book};
  other->title = u"Programming";
  world.books["C:\\P113\\prog.chm"] = {ManualState::kWhole, other};
}

HelpToolTest::~HelpToolTest() {
  DestroyTool();
  EXPECT_EQ(menus.Count(), 0u) << "the menu is given back";
}

void HelpToolTest::MakeTool(const ToolContext& around) {
  DestroyTool();
  view = std::make_unique<FakeHelpView>(log, windows);
  view->onPageShown = [this](TextView page, TextView anchor) {
    Tell([&](HelpSession& session) { session.OnPageShown(page, anchor); });
  };
  view->onPicked = [this](const std::optional<ManualChoice>& choice) {
    Tell([&](HelpSession& session) { session.OnPicked(choice); });
  };
  tool = std::make_shared<HelpSession>(around, *view, std::make_unique<FakeShelf>(world, log));
}

void HelpToolTest::MakeTool() {
  MakeTool(context);
  Call(&HelpSession::Start);
}

std::vector<std::string> HelpToolTest::Boxes() {
  std::vector<std::string> all;
  for (const BoxSpec& box : windows.boxes) all.push_back(ToUtf8(box.title) + ": " + ToUtf8(box.text));
  windows.boxes.clear();
  return all;
}

}  // namespace pnl::test
