// SPDX-License-Identifier: MIT
// The methods for controls, found by window and id: what they show, and an operator's input to them.
#include <QWidget>

#include "remote/methods.h"
#include "remote/methods_lookup.h"
#include "remote/operator_input.h"
#include "remote/window_inspector.h"

namespace panel {

namespace {

constexpr int kLargestIndex = 0x7FFFFFFF;
const QString kUnseen = QStringLiteral("the control can't be seen");

RpcResult UiControl(RemoteWorld& world, Params& params) {
  const FoundControl found = ReadControl(params);
  if (params.Problem()) return *params.Problem();
  return QJsonValue(WindowInspector(world.face.ToolAreaWidget()).DescribeControl(found.window, found.control));
}

RpcResult UiText(RemoteWorld& /*world*/, Params& params) {
  const FoundControl found = ReadControl(params);
  const QString text = params.Text("text");
  if (params.Problem()) return *params.Problem();
  if (TypeOver(found.control, text)) return Done();
  return BadParameter("id", "the control holds no text to type");
}

RpcResult UiMark(RemoteWorld& /*world*/, Params& params) {
  const FoundControl found = ReadControl(params);
  const auto start = static_cast<int>(params.Integer("start", 0, kLargestIndex));
  const auto end = static_cast<int>(params.Integer("end", 0, kLargestIndex));
  if (params.Problem()) return *params.Problem();
  if (MarkText(found.control, start, end)) return Done();
  return BadParameter("id", "the control has no caret");
}

QList<int> ReadPicked(Params& params) {
  if (params.Has("index") && params.Has("indices")) params.Fail("indices", "stands in the place of index");
  if (params.Has("indices")) return params.Integers("indices", 0, kLargestIndex);
  const auto index = static_cast<int>(params.Integer("index", -1, kLargestIndex));
  return index < 0 ? QList<int>() : QList<int>{index};
}

RpcResult UiPick(RemoteWorld& /*world*/, Params& params) {
  const FoundControl found = ReadControl(params);
  const QString name = params.Has("indices") ? "indices" : "index";
  const QList<int> picked = ReadPicked(params);
  if (params.Problem()) return *params.Problem();
  const auto count = ItemCount(found.control);
  if (!count) return BadParameter("id", "the control has no items");
  for (const int index : picked) {
    if (index >= *count) return BadParameter(name, QString("there are %1 items").arg(*count));
  }
  PickItems(found.control, picked);
  return Done();
}

RpcResult UiFocus(RemoteWorld& /*world*/, Params& params) {
  const FoundControl found = ReadControl(params);
  const std::optional<PressPlace> place = ReadPlace(params);
  if (params.Problem()) return *params.Problem();
  WindowInspector::BringIntoSight(found.control);
  if (!WindowInspector::IsSeen(found.control)) return BadParameter("id", kUnseen);
  // The reason is that of a touch, because the operator turns to the control.
  found.control->setFocus(Qt::MouseFocusReason);
  if (place && place->index >= 0) PickItems(found.control, {place->index});
  return Done();
}

RpcResult PressControl(Params& params, bool twice) {
  const FoundControl found = ReadControl(params);
  const std::optional<PressPlace> place = ReadPlace(params);
  if (params.Problem()) return *params.Problem();
  WindowInspector::BringIntoSight(found.control);
  if (!WindowInspector::IsSeen(found.control)) return BadParameter("id", kUnseen);
  if (Press(found.control, place.value_or(PressPlace()), twice)) return Done();
  return BadParameter(place->index == PressPlace::kHeader ? "column" : "index",
                      "there is no such place in the control");
}

RpcResult UiClick(RemoteWorld& /*world*/, Params& params) { return PressControl(params, false); }

RpcResult UiDoubleClick(RemoteWorld& /*world*/, Params& params) { return PressControl(params, true); }

}  // namespace

FoundControl ReadControl(Params& params) {
  FoundControl found;
  const int window = params.Int("window");
  const int id = params.Int("id");
  if (params.Problem()) return found;
  found.window = WindowInspector::Window(window);
  if (found.window == nullptr) {
    params.Fail("window", "there is no such window");
    return found;
  }
  found.control = WindowInspector::Control(found.window, id);
  if (found.control == nullptr) params.Fail("id", "the window has no such control");
  return found;
}

std::optional<PressPlace> ReadPlace(Params& params) {
  if (!params.Has("index")) return std::nullopt;
  PressPlace place;
  place.index = static_cast<int>(params.Integer("index", PressPlace::kHeader, kLargestIndex));
  const bool header = place.index == PressPlace::kHeader;
  const std::optional<qint64> first = header ? std::nullopt : std::optional<qint64>(0);
  place.column = static_cast<int>(params.Integer("column", 0, kLargestIndex, first));
  return place;
}

void AddControlMethods(MethodTable& table) {
  table.insert({{"ui.control", UiControl},
                {"ui.text", UiText},
                {"ui.mark", UiMark},
                {"ui.pick", UiPick},
                {"ui.focus", UiFocus},
                {"ui.click", UiClick},
                {"ui.doubleClick", UiDoubleClick}});
}

}  // namespace panel
