// SPDX-License-Identifier: MIT
// The methods for whole windows: what they show, keys and commands to them, the menus in the bars, dialogs, message
// boxes, size, captures.
#include <QBuffer>
#include <QWidget>

#include "remote/json_values.h"
#include "remote/methods.h"
#include "remote/operator_input.h"
#include "remote/settle.h"
#include "remote/window_inspector.h"

namespace panel {

namespace {

constexpr int kLongestTyped = 65536;
constexpr int kSmallestArea = 16;
constexpr int kLargestArea = 8192;
constexpr int kDeepestMenu = 16;

QWidget* ReadWindow(Params& params) {
  const int window = params.Int("window");
  if (params.Problem()) return nullptr;
  QWidget* widget = WindowInspector::Window(window);
  if (widget == nullptr) params.Fail("window", "there is no such window");
  return widget;
}

RpcResult UiWindow(RemoteWorld& world, Params& params) {
  QWidget* window = ReadWindow(params);
  if (params.Problem()) return *params.Problem();
  return QJsonValue(WindowInspector(world.face.ToolAreaWidget()).DescribeWindow(window));
}

Qt::KeyboardModifiers ReadModifiers(Params& params) {
  const bool one = params.Raw("mods").isString();
  const QStringList names = one ? QStringList{params.Text("mods")} : params.Texts("mods", QStringList());
  const auto modifiers = ModifiersByName(names);
  if (!modifiers) params.Fail("mods", R"("Ctrl", "Shift", "Alt" and "Keypad" are there)");
  return modifiers.value_or(Qt::NoModifier);
}

RpcResult UiKey(RemoteWorld& /*world*/, Params& params) {
  QWidget* window = ReadWindow(params);
  const QString name = params.Text("key");
  const Qt::KeyboardModifiers modifiers = ReadModifiers(params);
  const auto stroke = KeyByName(name, modifiers);
  if (!stroke) params.Fail("key", "the name of a key or one character is needed");
  if (params.Problem()) return *params.Problem();
  PressKey(window, *stroke);
  return Done();
}

RpcResult UiType(RemoteWorld& /*world*/, Params& params) {
  const QWidget* window = ReadWindow(params);
  const QString text = params.Text("text");
  if (text.size() > kLongestTyped) params.Fail("text", QString("at most %1 characters are typed").arg(kLongestTyped));
  if (params.Problem()) return *params.Problem();
  const PnlWindow handle = params.Int("window");
  for (qsizetype i = 0; i < text.size(); ++i) {
    const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
    // A key may destroy the window; then the rest of the text is dropped.
    QWidget* alive = WindowInspector::Window(handle);
    if (alive == nullptr || alive != window) return Done();
    PressKey(alive, KeyForCharacter(text.mid(i, pair ? 2 : 1)));
    Settle();
    if (pair) ++i;
  }
  return Done();
}

RpcResult UiCommand(RemoteWorld& /*world*/, Params& params) {
  (void)ReadWindow(params);
  const int id = params.Int("id");
  if (params.Problem()) return *params.Problem();
  PnlSendMessage(params.Int("window"), PNL_MSG_COMMAND, id, 0);
  return Done();
}

QJsonArray MenuItems(std::uint32_t menu, int depth) {
  QJsonArray items;
  const int count = PnlMenuItemCount(menu);
  for (int i = 0; i < count; ++i) {
    PnlMenuItem item{};
    if (PnlMenuItemAt(menu, i, &item) == 0) continue;
    QJsonObject told{{"id", item.id},
                     {"text", Narrow(std::u16string_view(item.text))},
                     {"enabled", item.enabled != 0},
                     {"checked", item.checked != 0},
                     {"visible", item.visible != 0},
                     {"bitmap", item.bitmap},
                     {"helper", Narrow(std::u16string_view(item.helper))}};
    if (item.subMenu != 0 && depth < kDeepestMenu) told["items"] = MenuItems(item.subMenu, depth + 1);
    items.append(told);
  }
  return items;
}

RpcResult UiMenu(RemoteWorld& world, Params& params) {
  const QString bar = params.Choice("bar", {"main", "side"});
  if (params.Problem()) return *params.Problem();
  const std::uint32_t menu = bar == "main" ? world.session.MainMenu() : world.session.SideMenu();
  if (menu == 0 || PnlMenuItemCount(menu) < 0) return QJsonValue(QJsonValue::Null);
  return QJsonValue(MenuItems(menu, 0));
}

RpcResult UiDialogs(RemoteWorld& /*world*/, Params& /*params*/) { return QJsonValue(WindowInspector::Dialogs()); }

RpcResult UiAnswer(RemoteWorld& world, Params& params) {
  static const QStringList kAnswers{"ok", "yes", "no", "cancel"};
  const QStringList answers = params.Texts("answers");
  for (const QString& answer : answers) {
    if (!kAnswers.contains(answer)) params.Fail("answers", R"("ok", "yes", "no" and "cancel" are there)");
  }
  if (params.Problem()) return *params.Problem();
  world.boxes.Append(answers);
  return Done();
}

RpcResult UiResize(RemoteWorld& world, Params& params) {
  const auto width = static_cast<int>(params.Integer("width", kSmallestArea, kLargestArea));
  const auto height = static_cast<int>(params.Integer("height", kSmallestArea, kLargestArea));
  if (params.Problem()) return *params.Problem();
  world.face.ResizeToolArea(QSize(width, height));
  return Done();
}

RpcResult UiCapture(RemoteWorld& world, Params& params) {
  const QString file = params.HostFile("file");
  QWidget* widget = params.Has("window") ? ReadWindow(params) : world.face.PanelWidget();
  if (params.Problem()) return *params.Problem();
  QByteArray picture;
  QBuffer buffer(&picture);
  const bool drawn = buffer.open(QIODevice::WriteOnly) && widget->grab().save(&buffer, "PNG");
  // The file is replaced like every other one: a pipe can't make the panel wait for its reader, and a protected file
  // stays.
  const auto size = static_cast<std::size_t>(picture.size());
  if (drawn && PnlReplaceFile(file.toUtf8().constData(), picture.constData(), size) == PNL_FILE_DONE) return Done();
  return BadParameter("file", "it can't be written");
}

}  // namespace

void BoxAnswers::Append(const QStringList& answers) {
  for (const QString& answer : answers) answers_.push_back(answer.toStdString());
}

std::string BoxAnswers::Take(std::string_view style) {
  if (answers_.empty()) return style == "question" ? "yes" : "ok";
  std::string answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

void AddWindowMethods(MethodTable& table) {
  table.insert({{"ui.window", UiWindow},
                {"ui.key", UiKey},
                {"ui.type", UiType},
                {"ui.command", UiCommand},
                {"ui.menu", UiMenu},
                {"ui.dialogs", UiDialogs},
                {"ui.answer", UiAnswer},
                {"ui.resize", UiResize},
                {"ui.capture", UiCapture}});
}

}  // namespace panel
