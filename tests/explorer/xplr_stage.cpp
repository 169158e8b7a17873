// SPDX-License-Identifier: MIT
#include "explorer/xplr_stage.h"

#include "explorer/xplr_settings.h"

namespace pnl::test {
namespace {

PackContents Contents() {
  PackContents contents;
  contents.texts = {{60001, u"not saved: %s"},
                    {11, u"Explorer"},
                    {12, u"Overwrite %s?"},
                    {13, u"Name"},
                    {14, u"Size"},
                    {15, u"Date"},
                    {16, u"Next"},
                    {17, u"Previous"},
                    {18, u"Find"},
                    {19, u"No %s"},
                    {20, u"Only %s"},
                    {23, u"Type a text"},
                    {26, u"No access"},
                    {27, u"No connection"},
                    {28, u"No folder"},
                    {29, u"No name"},
                    {30, u"Not in %s"},
                    {31, u"No file"},
                    {32, u"Not ready"},
                    {33, u"Read-only"},
                    {34, u"Unavailable"},
                    {35, u"Blank"},
                    {36, u"File:"},
                    {37, u"Folder:"},
                    {40, u"Find folder"}};
  contents.menus[u"3003"] = {PackItem(32790, u"REFRESH"), PackItem(32791, u"TOGGLE PIN"),
                             PackItem(32777, u"MOVE TO TREE"), PackItem(32778, u"MOVE TO LIST"),
                             PackItem(32779, u"MOVE TO FIELD")};
  contents.menus[u"IDR_XPLR_MENU"] = {PackItem(32770, u"Name"), PackItem(32771, u"Size"), PackItem(32772, u"Date"),
                                      PackItem(32773, u"Type"), PackItem(32774, u"Find"), PackItem(32775, u"Folder")};
  return contents;
}

}  // namespace

XplrStage::XplrStage() : ToolStage(Contents()) {
  ForgetQualityTest();
  noting.menuName = [](MenuHandle menu) { return menu == 0 ? "none" : "menu"; };
  noting.onMessage = [this](const HostMessage& message) {
    messages.push_back(ToUtf8(FieldText(message.text)) + " line " + std::to_string(message.line) + " back " +
                       std::to_string(message.back));
  };
  noting.onMainMenu = [this](MenuHandle menu) { mainMenu = menu; };
  noting.onSideMenu = [this](MenuHandle menu) { sideMenu = menu; };
  cnc.Define(u"E.XPLRDATA", rig::VariableType::kInt, std::int64_t{0}, true, true);
  places.disc->AddFile(u"C:\\CNC\\A.NC");
  places.disc->AddFile(u"C:\\CNC\\B.TXT");
  places.disc->AddFile(u"C:\\CNC\\SUB\\C.NC");
  places.disc->AddFolder(u"C:\\P100");
  places.disc->AddFolder(u"C:\\P101");
  SetField(request.Title, u"Pick");
  SetField(request.Path, u"C:\\CNC");
  SetField(request.Filter, u"*");
  request.Owner = 1006;
  windows.onSend = [this](WindowHandle window, const pnl::Message& message) { return Deliver(window, message); };
}

XplrStage::~XplrStage() {
  DestroyTool();
  WithdrawRecord(PublishRecord(&request));
}

void XplrStage::Open(bool withRequest) {
  DestroyTool();
  ZCVariable(cnc.Vars(), u"E.XPLRDATA").WriteInt(withRequest ? PublishRecord(&request) : 0);
  view = std::make_unique<FakeXplrView>(log, windows);
  // Form, tree, list and dialogs have the numbers after the frame's.
  for (int i = 0; i < 5; ++i) windows.Open();
  view->onFocus = [this](int id, bool focused) { Tell([=](XplrSession& session) { session.OnFocus(id, focused); }); };
  tool = std::make_shared<XplrSession>(context, *view);
  Forget();
  Call(&XplrSession::Start);
  Call(&XplrSession::OnResized, 800, 520);
  Drain();
}

void XplrStage::DestroyTool() {
  if (tool) view->closing = true;
  ToolStage::DestroyTool();
  windows.posted.clear();
}

std::intptr_t XplrStage::Deliver(WindowHandle window, const pnl::Message& message) {
  if (!view || window < view->handle || window > view->handle + 5) return 0;
  std::intptr_t answer = 0;
  Tell([&](XplrSession& session) {
    answer = session.OnMessage(static_cast<XplrWindow>(window - view->handle), message).value_or(0);
  });
  return answer;
}

void XplrStage::Drain() {
  windows.Drain([this](WindowHandle window, const pnl::Message& message) { Deliver(window, message); });
}

std::intptr_t XplrStage::Message(XplrWindow window, XplrMessage message, std::intptr_t first, std::intptr_t second) {
  const std::uint32_t number = RegisterMessage(kXplrMessageNames[static_cast<std::size_t>(message)]);
  const std::intptr_t answer = Deliver(view->handle + static_cast<int>(window), {number, first, second});
  Drain();
  return answer;
}

std::intptr_t XplrStage::Command(std::intptr_t code) {
  const std::intptr_t answer = Deliver(view->handle, {PNL_MSG_TOOL_COMMAND, code, 0});
  Drain();
  return answer;
}

void XplrStage::Menu(int id) {
  Deliver(view->handle, {PNL_MSG_COMMAND, id, 0});
  Drain();
}

void XplrStage::Focus(int id) {
  view->FocusControl(id);
  Drain();
}

void XplrStage::PickRow(const Text& name) {
  for (std::size_t row = 0; row < view->rows->size(); ++row) {
    if ((*view->rows)[row].name == name) Call(&XplrSession::OnRowSelected, static_cast<int>(row));
  }
  Drain();
}

void XplrStage::PickNode(const std::vector<Text>& names) {
  Tell([&](XplrSession& session) {
    NodeId node = kNoNode;
    for (const Text& name : names) {
      if (node != kNoNode) session.OnNodeOpening(node);
      node = session.Nodes().FindChild(node, name);
    }
    session.OnNodeSelected(node);
  });
  Drain();
}

void XplrStage::TypeName(TextView text) {
  view->name = text;
  Call(&XplrSession::OnNameChanged);
  Drain();
}

std::vector<std::string> XplrStage::RowNames() const {
  std::vector<std::string> names;
  for (const XplrRow& row : *view->rows) names.push_back(ToUtf8(row.name));
  return names;
}

}  // namespace pnl::test
