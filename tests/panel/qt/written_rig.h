// SPDX-License-Identifier: MIT
// A rig that only writes down what is asked of it, one line a call.
#pragma once

#include <pnltools/rig.h>

#include <QString>
#include <sstream>
#include <utility>

namespace panel {

/// Three variables exist: I (an integer), D (a real) and T (a text). Drive C: is the folder /c.
class WrittenRig : public pnl::rig::Rig, public pnl::rig::CncControl, public pnl::rig::Storage {
 public:
  using Value = pnl::rig::Value;
  template <typename... Parts>
  void Write(const Parts&... parts) {
    std::ostringstream line;
    bool first = true;
    ((line << (std::exchange(first, false) ? "" : " ") << parts), ...);
    lines.push_back(line.str());
  }
  static std::string Text(std::u16string_view text) {
    return "'" + QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())).toStdString() + "'";
  }
  static std::string ValueText(const Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
    if (const auto* real = std::get_if<double>(&value)) return "real " + std::to_string(*real);
    if (const auto* text = std::get_if<std::u16string>(&value)) return Text(std::u16string_view(*text));
    return "none";
  }
  static std::string Text(const std::vector<pnl::rig::ErrorParameterSpec>& values) {
    std::ostringstream all;
    for (const auto& v : values) {
      all << "(" << v.valueType << " " << v.unit << " " << v.meaning << " " << ValueText(v.value) << ")";
    }
    return all.str();
  }

  void Define(std::u16string_view name, pnl::rig::VariableType type, const Value& value, bool readable,
              bool writable) override {
    static const char* const kTypes[] = {"int", "double", "text"};
    Write("Define", Text(name), kTypes[static_cast<int>(type)], ValueText(value), readable, writable);
  }
  bool Undefine(std::u16string_view name) override {
    Write("Undefine", Text(name));
    return true;
  }
  bool Set(std::u16string_view name, const Value& value) override {
    Write("Set", Text(name), ValueText(value));
    return Get(name).has_value();
  }
  std::optional<Value> Get(std::u16string_view name) const override {
    if (name == u"I") return Value(std::int64_t{7});
    if (name == u"D") return Value(2.5);
    if (name == u"T") return Value(std::u16string(u"ñ"));
    return std::nullopt;
  }
  int Watch(std::u16string_view, std::function<void()>) override { return 0; }
  void Unwatch(int) override {}
  std::vector<PnlWindow> Reports(std::u16string_view name) const override {
    return name == u"I" ? std::vector<PnlWindow>{4, 9} : std::vector<PnlWindow>{};
  }
  bool Returns(std::string_view function, std::vector<std::int32_t> values) override {
    if (function != "MDILine") return false;
    std::string all;
    for (const auto value : values) all += " " + std::to_string(value);
    lines.push_back("Returns MDILine" + all);
    return true;
  }
  void Axis(std::int32_t logical, std::u16string_view name) override { Write("Axis", logical, Text(name)); }
  bool ErrorText(std::string_view function, std::int32_t number, std::u16string_view text, std::u16string_view helpRef,
                 bool hasHelp) override {
    if (function != "error_to_txt") return false;
    Write("ErrorText", number, Text(text), Text(helpRef), hasHelp);
    return true;
  }
  void Description(std::u16string_view file, std::int32_t number, std::u16string_view text) override {
    Write("Description", Text(file), number, Text(text));
  }
  bool PushError(const pnl::rig::ErrorSpec& spec, std::string& problem) override {
    problem = "there is no such field";
    std::string fields;
    for (const auto& field : spec.fields) fields += field.name + "=" + ValueText(field.value) + ";";
    if (fields.find("colour") != std::string::npos) return false;
    Write("PushError", fields, Text(spec.parameters), Text(spec.extraValues));
    return true;
  }
  bool PushErrorRecord(std::string_view bytes) override {
    if (bytes.front() == 'n') return false;
    Write("PushErrorRecord", bytes.size(), bytes.front(), bytes.back());
    return true;
  }
  std::vector<std::int32_t> ErrorQueue() const override { return {12, 11}; }
  void ClearErrors() override { Write("ClearErrors"); }
  std::vector<ErrorSummary> Errors() const override { return {}; }
  int WatchErrors(std::function<void(const ErrorSummary&, ErrorFate)>) override { return 0; }
  void UnwatchErrors(int) override {}
  std::optional<std::u16string> DescriptionBehind(std::u16string_view) const override { return std::nullopt; }
  void PlcMessage(std::int32_t type, std::int32_t id, std::u16string_view message, std::u16string_view info) override {
    Write("PlcMessage", type, id, Text(message), Text(info));
  }
  void Tool(std::int32_t number, std::int32_t type, std::int32_t family, std::int32_t subfamily, std::int32_t diameter,
            std::int32_t teeth) override {
    Write("Tool", number, type, family, subfamily, diameter, teeth);
  }
  void BlockMark(std::u16string_view block, std::u16string_view mark) override {
    Write("BlockMark", Text(block), Text(mark));
  }

  void SetPath(std::int32_t id, std::u16string_view path) override { Write("SetPath", id, Text(path)); }
  std::u16string Path(std::int32_t) const override { return {}; }
  void SetDrive(const pnl::rig::Drive& drive) override {
    Write("SetDrive", drive.letter, "'" + drive.dir + "'", drive.type, Text(drive.label), Text(drive.remote),
          drive.error, drive.labelFails);
  }
  void SetDriveMasks(std::string_view noDrives, std::string_view remembered, std::string_view locked) override {
    Write("SetDriveMasks", noDrives, "|", remembered, "|", locked);
  }
  void SetNetwork(std::vector<pnl::rig::NetworkNode> roots) override {
    lines.push_back("SetNetwork");
    WriteNodes(roots, 1);
  }
  std::optional<std::string> HostPath(std::u16string_view path) const override {
    return path == u"C:\\A.NC" ? std::optional<std::string>("/c/A.NC") : std::nullopt;
  }
  bool Replace(const std::string&, std::string_view) const override { return false; }

  FileStart NetworkFile(std::u16string_view) override { return {}; }
  bool StartBare() override { return true; }
  bool StartMachine(std::string_view) override { return false; }
  pnl::rig::CncControl& Cnc() override { return *this; }
  pnl::rig::MachineControl* Machine() override { return nullptr; }
  pnl::rig::Storage& Files() override { return *this; }
  bool SimulatesDrives() const override { return simulatesDrives; }
  void UseManualTime() override {}
  void Advance(std::int64_t milliseconds) override { Write("Advance", milliseconds); }
  void SetText(std::int32_t id, std::u16string_view text) override { Write("SetText", id, Text(text)); }
  void AnswerBoxes(std::function<std::string(std::string_view)>) override {}
  void AskPasswords(std::function<bool(std::int32_t)>) override {}
  void SetSink(pnl::rig::EventSink*) override {}
  std::u16string ClipboardText() const override { return u"G0 X1"; }
  Counts Open() const override { return {}; }
  bool IsWorking() const override { return false; }

  std::vector<std::string> lines;
  bool simulatesDrives = true;

 private:
  void WriteNodes(const std::vector<pnl::rig::NetworkNode>& nodes, std::size_t depth) {
    for (const auto& node : nodes) {
      Write(std::string(depth, '-'), node.display, Text(node.remote), Text(node.local), Text(node.comment),
            Text(node.provider), "'" + node.dir + "'", node.connected,
            node.hasError ? std::to_string(node.error) : "ok");
      WriteNodes(node.children, depth + 1);
    }
  }
};

}  // namespace panel
