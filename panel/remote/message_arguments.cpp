// SPDX-License-Identifier: MIT
#include "remote/message_arguments.h"

#include <algorithm>

namespace panel {

namespace {

/// In characters. A tool that reads a text's address as a record with fixed fields stays within this memory.
constexpr std::size_t kRoomOfText = 4096;

template <typename T>
std::intptr_t AddressOf(T& object) {
  return reinterpret_cast<std::intptr_t>(&object);
}

template <std::size_t N>
void ReadField(Params& params, const QString& name, char16_t (&field)[N]) {
  const QString text = params.Text(name, QString());
  if (text.size() >= static_cast<qsizetype>(N)) params.Fail(name, QString("at most %1 characters fit").arg(N - 1));
  std::copy_n(text.toStdU16String().c_str(), std::min(static_cast<std::size_t>(text.size()), N - 1), field);
}

template <std::size_t N>
QString FieldText(const char16_t (&field)[N]) {
  return QString::fromUtf16(field, std::find(std::begin(field), std::end(field), u'\0') - std::begin(field));
}

const char* NeededObject(AddressKind kind) {
  switch (kind) {
    case AddressKind::kText:
      return R"({"text":…})";
    case AddressKind::kCycleStart:
      return R"({"start":…})";
    case AddressKind::kFile:
      return R"({"file":…})";
    case AddressKind::kNone:
    case AddressKind::kChannelRecord:
      break;
  }
  return "0";
}

AddressKind KindOf(const QString& key) {
  if (key == "text") return AddressKind::kText;
  if (key == "start") return AddressKind::kCycleStart;
  return key == "file" ? AddressKind::kFile : AddressKind::kNone;
}

}  // namespace

XPLRDATA_ST ReadExplorerRequest(Params& params) {
  XPLRDATA_ST record{};
  record.Owner = params.Int("Owner", 0);
  ReadField(params, "Title", record.Title);
  ReadField(params, "Path", record.Path);
  ReadField(params, "File", record.File);
  ReadField(params, "Filter", record.Filter);
  ReadField(params, "Extension", record.Extension);
  record.Flags = static_cast<std::uint32_t>(params.Integer("Flags", 0, 0xFFFFFFFF, 0));
  return record;
}

QJsonObject ExplorerRequestToJson(const XPLRDATA_ST& record) {
  return {{"Owner", record.Owner},
          {"Title", FieldText(record.Title)},
          {"Path", FieldText(record.Path)},
          {"File", FieldText(record.File)},
          {"Filter", FieldText(record.Filter)},
          {"Extension", FieldText(record.Extension)},
          {"Flags", static_cast<qint64>(record.Flags)}};
}

std::intptr_t MessageArguments::Read(Params& params, const QString& name, AddressKind kind) {
  if (params.Raw(name).isObject()) return KeepObject(params, name, kind);
  using Limits = std::numeric_limits<qint64>;
  const qint64 number = params.Integer(name, Limits::min(), Limits::max(), 0);
  if (number != 0 && kind != AddressKind::kNone) {
    params.Fail(name, QString("%1 is needed, a number is no address").arg(NeededObject(kind)));
  }
  return static_cast<std::intptr_t>(number);
}

std::intptr_t MessageArguments::KeepObject(Params& params, const QString& name, AddressKind kind) {
  Params object(params.Raw(name).toObject(), name + ".");
  const QStringList keys = params.Raw(name).toObject().keys();
  const QString key = keys.size() == 1 ? keys.first() : QString();
  if (kind != AddressKind::kNone && KindOf(key) != kind) {
    params.Fail(name, QString("%1 is needed").arg(NeededObject(kind)));
    return 0;
  }
  std::intptr_t address = 0;
  if (key == "text") {
    address = reinterpret_cast<std::intptr_t>(KeepText(object.Text(key)));
  } else if (key == "start") {
    Params start(object.Object(key), name + ".start.");
    const auto channel = static_cast<std::int8_t>(start.Integer("channel", -128, 127));
    address = AddressOf(starts_.emplace_back(PnlCycleStart{0, channel, {}}));
    params.Adopt(object);
    params.Adopt(start);
  } else if (key == "file") {
    Params file(object.Object(key), name + ".file.");
    address = KeepFile(file);
    params.Adopt(file);
  } else if (key == "xplr") {
    Params request(object.Object(key), name + ".xplr.");
    address = AddressOf(requests_.emplace_back(ReadExplorerRequest(request)));
    params.Adopt(request);
  } else {
    params.Fail(name, "an integer or an object with \"text\", \"start\", \"file\" or \"xplr\" is needed");
  }
  params.Adopt(object);
  return address;
}

const char16_t* MessageArguments::KeepText(const QString& text) {
  std::vector<char16_t>& kept = texts_.emplace_back(std::max(static_cast<std::size_t>(text.size()) + 1, kRoomOfText));
  std::copy_n(text.toStdU16String().c_str(), text.size(), kept.begin());
  return kept.data();
}

std::intptr_t MessageArguments::KeepFile(Params& file) {
  ShowFileRecord record{};
  record.backColor = static_cast<std::uint32_t>(file.Integer("back", 0, 0xFFFFFFFF, 0));
  record.textColor = static_cast<std::uint32_t>(file.Integer("text", 0, 0xFFFFFFFF, 0));
  record.file = KeepText(file.Text("file", QString()));
  record.title = KeepText(file.Text("title", QString()));
  return AddressOf(files_.emplace_back(record));
}

void MessageArguments::Clear() {
  texts_.clear();
  starts_.clear();
  files_.clear();
  requests_.clear();
}

}  // namespace panel
