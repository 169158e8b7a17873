// SPDX-License-Identifier: MIT
// The methods for paths, drives, the network, texts, the clipboard and time.
#include "remote/json_values.h"
#include "remote/methods.h"

namespace panel {

namespace {

/// In ms: one day. A longer time would only keep the panel busy with its timers.
constexpr qint64 kLongestAdvance = 24LL * 60 * 60 * 1000;
constexpr int kDeepestNetwork = 32;

RpcResult PathSet(RemoteWorld& world, Params& params) {
  const int id = params.Int("id");
  const QString path = params.Text("path");
  if (params.Problem()) return *params.Problem();
  world.rig.Files().SetPath(id, Wide(path));
  return Done();
}

bool IsLetter(const QString& text) {
  return text.size() == 1 && ((text[0] >= 'A' && text[0] <= 'Z') || (text[0] >= 'a' && text[0] <= 'z'));
}

char ReadLetter(Params& params) {
  const QString letter = params.Text("letter");
  if (IsLetter(letter)) return letter[0].toUpper().toLatin1();
  params.Fail("letter", "a letter from A to Z is needed");
  return 'C';
}

/// What a change of a simulated drive answers when nobody would see it.
std::optional<RpcResult> NoSimulatedDrives(const RemoteWorld& world) {
  if (world.rig.SimulatesDrives()) return std::nullopt;
  return RpcError{rpc_code::kRefused, "the drives are those of this machine: PNLTOOLS_DRIVE_FILE names a drive file"};
}

RpcResult DriveSet(RemoteWorld& world, Params& params) {
  pnl::rig::Drive drive;
  drive.letter = ReadLetter(params);
  // An empty folder removes the drive.
  drive.dir = params.IsNull("dir") ? std::string() : params.HostFile("dir").toStdString();
  drive.type = static_cast<int>(params.Integer("type", 2, 5, 3));
  drive.label = Wide(params.Text("label", QString()));
  drive.remote = Wide(params.Text("remote", QString()));
  drive.error = params.Int("error", 0);
  drive.labelFails = params.Bool("labelFails", false);
  if (params.Problem()) return *params.Problem();
  if (const auto refused = NoSimulatedDrives(world)) return *refused;
  world.rig.Files().SetDrive(drive);
  return Done();
}

std::string ReadLetters(Params& params, const QString& name) {
  std::string letters;
  for (const QString& letter : params.Texts(name, QStringList())) {
    if (!IsLetter(letter)) {
      params.Fail(name, "a list of letters from A to Z is needed");
      continue;
    }
    letters += letter[0].toUpper().toLatin1();
  }
  return letters;
}

RpcResult DriveMasks(RemoteWorld& world, Params& params) {
  const std::string noDrives = ReadLetters(params, "noDrives");
  const std::string remembered = ReadLetters(params, "remembered");
  const std::string locked = ReadLetters(params, "locked");
  if (params.Problem()) return *params.Problem();
  if (const auto refused = NoSimulatedDrives(world)) return *refused;
  world.rig.Files().SetDriveMasks(noDrives, remembered, locked);
  return Done();
}

std::vector<pnl::rig::NetworkNode> ReadNodes(Params& params, const QString& name, const QString& place, int depth) {
  std::vector<pnl::rig::NetworkNode> nodes;
  const QJsonArray list = params.List(name, depth == 0 ? std::nullopt : std::optional<QJsonArray>(QJsonArray()));
  if (depth >= kDeepestNetwork && !list.isEmpty()) {
    params.Fail(name, QString("at most %1 levels fit").arg(kDeepestNetwork));
    return nodes;
  }
  for (qsizetype i = 0; i < list.size(); ++i) {
    const QString here = QString("%1%2[%3]").arg(place, name).arg(i);
    Params item(list[i].toObject(), here + ".");
    if (!list[i].isObject()) params.Fail(QString("%1[%2]").arg(name).arg(i), "an object is needed");
    pnl::rig::NetworkNode node;
    node.display = item.Int("display", 0);
    node.remote = Wide(item.Text("remote", QString()));
    node.local = Wide(item.Text("local", QString()));
    node.comment = Wide(item.Text("comment", QString()));
    node.provider = Wide(item.Text("provider", QString()));
    if (item.Has("dir") && !item.IsNull("dir")) node.dir = item.HostFile("dir").toStdString();
    node.connected = item.Bool("connected", false);
    node.hasError = item.Has("error") && !item.IsNull("error");
    if (node.hasError) node.error = item.Int("error");
    node.children = ReadNodes(item, "children", here + ".", depth + 1);
    params.Adopt(item);
    nodes.push_back(std::move(node));
  }
  return nodes;
}

RpcResult NetworkSet(RemoteWorld& world, Params& params) {
  std::vector<pnl::rig::NetworkNode> roots = ReadNodes(params, "roots", QString(), 0);
  if (params.Problem()) return *params.Problem();
  world.rig.Files().SetNetwork(std::move(roots));
  return Done();
}

RpcResult FileResolve(RemoteWorld& world, Params& params) {
  const QString path = params.Text("path");
  if (params.Problem()) return *params.Problem();
  const auto host = world.rig.Files().HostPath(Wide(path));
  return QJsonValue(QJsonObject{{"host", host ? QJsonValue(Narrow(*host)) : QJsonValue(QJsonValue::Null)}});
}

RpcResult LangText(RemoteWorld& world, Params& params) {
  const int id = params.Int("id");
  const QString text = params.Text("text");
  if (params.Problem()) return *params.Problem();
  world.rig.SetText(id, Wide(text));
  return Done();
}

RpcResult ClipboardText(RemoteWorld& world, Params& /*params*/) {
  return QJsonValue(QJsonObject{{"text", Narrow(world.rig.ClipboardText())}});
}

RpcResult TimeAdvance(RemoteWorld& world, Params& params) {
  const qint64 milliseconds = params.Integer("ms", 0, kLongestAdvance);
  if (params.Problem()) return *params.Problem();
  if (!world.options.manualTime) return BadParameter("ms", "time goes by itself; start the panel with --time manual");
  world.rig.Advance(milliseconds);
  world.face.TimeAdvanced(milliseconds);
  return Done();
}

}  // namespace

void AddStorageMethods(MethodTable& table) {
  table.insert({{"path.set", PathSet},
                {"drive.set", DriveSet},
                {"drive.masks", DriveMasks},
                {"network.set", NetworkSet},
                {"file.resolve", FileResolve},
                {"lang.text", LangText},
                {"clipboard.text", ClipboardText},
                {"time.advance", TimeAdvance}});
}

}  // namespace panel
