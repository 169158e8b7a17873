// SPDX-License-Identifier: MIT
#include "zmc/zmc_stage.h"

#include <algorithm>
#include <cstdio>
#include <regex>

namespace pnl::test {
namespace {

/// Texts are their numbers ("T85"), so a pack needs the menus alone.
PackContents Contents() {
  PackContents contents;
  contents.menus[u"IDR_ZMC_MENU"] = {PackItem(32818, u"Main"), PackItem(32819, u"Materials"),
                                     PackItem(32820, u"Operations")};
  contents.menus[u"3026"] = {PackItem(32902, u"Insert"), PackItem(32777, u"Copy"), PackItem(32822, u"Calculator")};
  contents.menus[u"3031"] = {PackItem(32779, u"Add"), PackItem(32781, u"Delete"), PackItem(32783, u"Save"),
                             PackItem(32822, u"Calculator")};
  contents.menus[u"3032"] = {PackItem(32785, u"Add"), PackItem(32787, u"Delete"), PackItem(32788, u"Save"),
                             PackItem(32822, u"Calculator")};
  return contents;
}

/// Two materials, two operations; the first pair has limits and a quality, steel and milling have nothing selected.
constexpr const char* kFactoryData =
    "<CondicionesCorte><MaterialesDefinition>"
    "<MaterialDefinition><id>1.0503#F-1142#1045</id><descripcion>Steel</descripcion><Norma><AlemaniaW>1.0503</"
    "AlemaniaW>"
    "<UNE>F-1142</UNE><AISI>1045</AISI></Norma><KC>2000</KC></MaterialDefinition>"
    "<MaterialDefinition><id>##</id><descripcion>Brass</descripcion><KC>800</KC></MaterialDefinition>"
    "</MaterialesDefinition><Operaciones>"
    "<Operacion><id>1</id><descripcion>Milling</descripcion><ToolType>T89</ToolType><Materiales><Parametros>"
    "<Material>Steel</Material>"
    "<VelocidadCorte><Selected>1</Selected><Min>800000000</Min><Max>1600000000</Max></VelocidadCorte>"
    "<AvancePorDiente><Min>200</Min><Max>1000</Max></AvancePorDiente>"
    "<Profundidad><Min>5000</Min><Max>30000</Max></Profundidad>"
    "<PasadaRadial><Min>10</Min><Max>100</Max></PasadaRadial>"
    "<CaracteristicasHta><Calidad>Carbide P25</Calidad></CaracteristicasHta></Parametros></Materiales></Operacion>"
    "<Operacion><id>2</id><descripcion>Turning</descripcion><ToolType>T92</ToolType></Operacion>"
    "</Operaciones></CondicionesCorte>";

}  // namespace

ZmcStage::ZmcStage() : ToolStage(Contents()) {
  language.UseNumbersForTexts(true);
  sink.quiet = {"TAPI_Tools_GetToolData", "TAPI_Tools_GetList"};
  noting.menuName = [](MenuHandle menu) { return menu == 0 ? "none" : "menu"; };
  noting.onMainMenu = [this](MenuHandle menu) { mainMenu = menu; };
  noting.onSideMenu = [this](MenuHandle menu) { sideMenu = menu; };
  noting.onMessage = [this](const HostMessage& message) {
    char back[16];
    std::snprintf(back, sizeof back, "%X", message.back);
    messages.push_back(std::to_string(message.line) + " [" + ToUtf8(FieldText(message.text)) + "] back " + back);
  };
  windows.onSend = [this](WindowHandle window, const Message& message) { return Deliver(window, message); };
  windows.boxAnswer = BoxAnswer::kYes;
  Define(u"MPG.INCHES", 0);
  Define(u"G.FOCUSCHANNEL", 1);
  Define(u"[1].G.MASTERSP", 1);
  Define(u"G.GSPDLNAME1", u"S");
  Define(u"MPA.DRIVETYPE.S", 16);
  Define(u"DM.DMC.RATEDPOWER", 10);
  Define(u"DM.FFORMAT.WIDTH", 5);
  Define(u"DM.FFORMAT.PRECISION", 1);
  Define(u"DM.SFORMAT.WIDTH", 5);
  Define(u"DM.SFORMAT.PRECISION", 0);
  Define(u"DM.OPTION.DMC", 1);
  Define(u"DM.CNC.MODELID", 0);
  Define(u"DM.OPTION.DUALPURPOSE", 0);
  Define(u"DM.ZMC.SUNIT", 0);
  Define(u"SP.DMCSPDL", 1);
  Define(u"E.HELPDATA", u"");
  cnc.Tables().SetTool(3, 1, {1, 1, 100000, 4});  // an end mill of 10 mm
  cnc.Tables().SetTool(4, 1, {1, 2, 60000, 2});   // a ball nose
  cnc.Tables().SetTool(7, 5, {5, 10, 0, 1});      // a turning tool
  cnc.Tables().SetTool(12, 2, {2, 7, 85000, 2});  // a drill
  Factory() = kFactoryData;
}

ZmcStage::~ZmcStage() { DestroyTool(); }

void ZmcStage::Define(TextView name, std::int64_t value) {
  cnc.Define(name, rig::VariableType::kInt, value, true, true);
}

void ZmcStage::Define(TextView name, TextView value) {
  cnc.Define(name, rig::VariableType::kText, std::u16string(value), true, true);
}

void ZmcStage::Open() {
  DestroyTool();
  windows.boxes.clear();
  messages.clear();
  view = std::make_unique<FakeZmcView>(log, windows);
  view->onLineFocus = [this](int id, bool focused) { Call(&ZmcSession::OnLineFocus, id, focused); };
  view->onToolLeft = [this] { Tell([](ZmcSession& session) { session.OnToolLeft(); }); };
  for (const ZmcTab tab : kZmcTabs) {
    view->GridOf(tab).onCommitted = [this, tab](int row, int col) {
      Call(&ZmcSession::OnCellCommitted, tab, row, col);
    };
  }
  tool = std::make_shared<ZmcSession>(context, *view);
  Forget();
  Call(&ZmcSession::Start);
}

std::intptr_t ZmcStage::Deliver(WindowHandle window, const Message& message) {
  if (!view || window != view->handle) return 0;
  std::intptr_t answer = 0;
  Tell([&](ZmcSession& session) { answer = session.OnMessage(message).value_or(0); });
  return answer;
}

std::intptr_t ZmcStage::Send(std::uint32_t number, std::intptr_t first, std::intptr_t second) {
  return Deliver(view->handle, {number, first, second});
}

void ZmcStage::Pick(int list, TextView item) {
  const std::vector<Text>& items = view->controls.at(list).items;
  const auto found = std::find(items.begin(), items.end(), item);
  ASSERT_NE(found, items.end()) << "the list has no " << ToUtf8(item);
  view->SelectItem(list, static_cast<int>(found - items.begin()));
  Call(&ZmcSession::OnListSelected, list);
}

void ZmcStage::Turn(int check, bool on) {
  ASSERT_TRUE(Control(check).shown && Control(check).enabled) << "nobody can touch " << check;
  view->controls.at(check).state = on ? 1 : 0;
  Call(&ZmcSession::OnCheckChanged, check);
}

void ZmcStage::Enter(int field, TextView text) {
  ASSERT_TRUE(Control(field).shown && Control(field).enabled) << "nobody can type in " << field;
  view->controls.at(field).text = Text(text);
  Call(&ZmcSession::OnFieldChanged, field);
}

void ZmcStage::Focus(int id) { view->FocusControl(id); }

void ZmcStage::TypeTool(TextView text) {
  Focus(zmc_control::kTool);
  view->controls.at(zmc_control::kTool).text = Text(text);
  Call(&ZmcSession::OnToolTyped);
}

void ZmcStage::MoveTo(ZmcTab tab, int row, int col) {
  view->GridOf(tab).Select({row, col});
  Call(&ZmcSession::OnCellMoved, tab);
}

void ZmcStage::ComputeSteel() {
  Pick(zmc_control::kMaterial, u"Steel");
  Pick(zmc_control::kOperation, u"Milling");
  Pick(zmc_control::kTool, u"T3");
  constexpr TextView kSelected[] = {u"120", u"0.05", u"2", u"50"};
  for (int row = 1; row <= 4; ++row) EXPECT_TRUE(Cell(row, 3, kSelected[row - 1]));
}

std::string ZmcStage::UserFile() const {
  const auto found = files.disc.find(kUserPath);
  return found != files.disc.end() ? found->second : "none";
}

std::string ZmcStage::UserFileWithoutDates() const {
  return std::regex_replace(UserFile(), std::regex("[0-9]{4}/[0-9]{2}/[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}"), "DATE");
}

void ZmcStage::SetUserFile(const std::string& materials, const std::string& operations) {
  files.disc[kUserPath] = "<CondicionesCorte><MaterialesDefinition>" + materials +
                          "</MaterialesDefinition><Operaciones>" + operations + "</Operaciones></CondicionesCorte>";
}

std::string ZmcStage::Ini() const {
  const auto found = files.disc.find(kIniPath);
  return found != files.disc.end() ? found->second : "none";
}

void ZmcStage::SetIni(const std::string& keys) {
  // A tool that is still there would write its own over them at its end.
  DestroyTool();
  files.disc[kIniPath] = "[PRIVATE]\r\n" + keys;
}

std::vector<std::string> ZmcStage::TakeBoxes() {
  std::vector<std::string> texts;
  for (const BoxSpec& box : std::exchange(windows.boxes, {})) texts.push_back(ToUtf8(box.text));
  return texts;
}

}  // namespace pnl::test
