// SPDX-License-Identifier: MIT
// The outside world of the command line for its tests: variables, kernel and files that do as told and write what was
// asked of them into one ordered log, a line a call. Reads are not logged.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/files.h"
#include "facade/cnc_facade.h"
#include "support/fake_window_system.h"

namespace pnl::test {

using Log = std::vector<std::string>;

class FakeVariables final : public Variables {
 public:
  struct Entry {
    std::int32_t value = 0;
    double real = 0;
    Text text;
    bool readable = true;
    bool writable = true;
    std::set<WindowHandle> reports;
  };

  FakeVariables(Log& log, FakeWindowSystem& windows) : log_(log), windows_(windows) {}

  Entry& Define(const std::string& name, std::int32_t value = 0) {
    Entry& entry = entries_[name];
    entry.value = value;
    return entry;
  }
  void Undefine(const std::string& name) { entries_.erase(name); }
  [[nodiscard]] Entry& At(const std::string& name) { return entries_.at(name); }
  /// As the control does: sets, and posts a report to whoever has one open.
  void Set(const std::string& name, std::int32_t value) {
    Entry& entry = entries_.at(name);
    entry.value = value;
    for (const WindowHandle window : entry.reports) windows_.Post(window, {kMsgVariableReport, Id(name), 0});
  }
  [[nodiscard]] std::int32_t Id(const std::string& name) {
    const auto [at, added] = ids_.try_emplace(name, static_cast<std::int32_t>(ids_.size()) + 100);
    if (added) names_[at->second] = name;
    return at->second;
  }
  [[nodiscard]] std::size_t OpenReports() const {
    std::size_t count = 0;
    for (const auto& [name, entry] : entries_) count += entry.reports.size();
    return count;
  }

  VariableInfo Bind(TextView name) override {
    VariableInfo info;
    const std::string key = ToUtf8(name);
    if (entries_.count(key) != 0) info.identifier = Id(key);
    return info;
  }
  int ReadInt(std::int32_t id, std::int32_t& value) override {
    const Entry* entry = Find(id);
    if (entry == nullptr || !entry->readable) return 1;
    value = entry->value;
    return 0;
  }
  int WriteInt(std::int32_t id, std::int32_t value, int flag) override {
    Entry* entry = Find(id);
    const bool ok = entry != nullptr && entry->writable;
    if (ok) entry->value = value;
    log_.push_back("write " + names_[id] + "=" + std::to_string(value) + (flag == 1 ? " flag 1" : "") +
                   (ok ? "" : " failed"));
    return ok ? 0 : 1;
  }
  int ReadDouble(std::int32_t id, double& value) override {
    const Entry* entry = Find(id);
    if (entry == nullptr || !entry->readable) return 1;
    value = entry->real;
    return 0;
  }
  int WriteDouble(std::int32_t, double) override { return 1; }
  int ReadTxt(std::int32_t id, Text& value) override {
    const Entry* entry = Find(id);
    if (entry == nullptr || !entry->readable) return 1;
    value = entry->text;
    return 0;
  }
  int WriteTxt(std::int32_t id, TextView value) override {
    Entry* entry = Find(id);
    if (entry == nullptr) return 1;
    entry->text = Text(value);
    log_.push_back("write " + names_[id] + "=" + ToUtf8(value));
    return 0;
  }
  int UpdateCache(std::int32_t) override { return 0; }
  int OpenReport(std::int32_t id, WindowHandle window) override {
    Entry* entry = Find(id);
    if (entry == nullptr) return 1;
    entry->reports.insert(window);
    log_.push_back("open report " + names_[id]);
    return 0;
  }
  int CloseReport(std::int32_t id, WindowHandle window) override {
    Entry* entry = Find(id);
    if (entry != nullptr) entry->reports.erase(window);
    log_.push_back("close report " + names_[id]);
    return 0;
  }
  int GeneraReport(std::int32_t, WindowHandle) override { return 0; }

 private:
  Entry* Find(std::int32_t id) {
    const auto name = names_.find(id);
    if (name == names_.end()) return nullptr;
    const auto entry = entries_.find(name->second);
    return entry == entries_.end() ? nullptr : &entry->second;
  }
  Log& log_;
  FakeWindowSystem& windows_;
  std::map<std::string, Entry> entries_;
  std::map<std::string, std::int32_t> ids_;
  std::map<std::int32_t, std::string> names_;
};

class FakeKernel final : public Kernel {
 public:
  explicit FakeKernel(Log& log) : log_(log) {}
  std::map<std::string, int> returns;

  int ExisteKernel() override { return Answer("ExisteKernel", 0); }
  int IsNewInspecAllowed(int) override { return Answer("IsNewInspecAllowed", 0); }
  int EnProcesoInspec(int) override { return Answer("EnProcesoInspec", 0); }
  int IsMDIAllowedInResetInspect(int) override { return Answer("IsMDIAllowedInResetInspect", 0); }
  int CogerPlcFree(int zero, int channel) override { return Call("CogerPlcFree", 1, {zero, channel}); }
  int LiberarPlcFree(int zero, int channel, int one) override {
    return Call("LiberarPlcFree", 1, {zero, channel, one});
  }
  int SetMdi(int channel, int on) override { return Call("SetMdi", 1, {channel, on}); }
  int EndMDIMode(int channel) override { return Call("EndMDIMode", 1, {channel}); }
  int SetMode(int channel, int mode) override { return Call("SetMode", 1, {channel, mode}); }
  int MDILine(int zero, TextView block, int none, int four, int last) override {
    const int result = Answer("MDILine", 0);
    log_.push_back("MDILine(" + std::to_string(zero) + ",\"" + ToUtf8(block) + "\"," + std::to_string(none) + "," +
                   std::to_string(four) + "," + std::to_string(last) + ")=" + std::to_string(result));
    return result;
  }
  int NextSingleStep(int zero) override { return Call("NextSingleStep", 0, {zero}); }
  int ClearFeedhold(int zero) override { return Call("ClearFeedhold", 0, {zero}); }
  int MDICancel(int channel) override { return Call("MDICancel", 0, {channel}); }
  int PosibleMDICancel(int channel) override { return Call("PosibleMDICancel", 0, {channel}); }
  int WriteTxtInBlackBox(TextView text, int zero) override {
    log_.push_back("black box \"" + ToUtf8(text) + "\"," + std::to_string(zero));
    return 0;
  }
  int SWOption_IsZMCON() override { return 0; }
  int ReadError(int, ErrorRecord&) override { return -1; }
  int ResetError(int, int) override { return 0; }
  int ResetErrorWithEnter(int, const ErrorRecord&) override { return 0; }
  int AddLogOnInfo(TextView) override { return 0; }
  int ChannelNumber() override { return 1; }
  int ConvertLogToName(int, Text&) override { return 1; }
  int GetTextoMlinkError(int, Text&) override { return -1; }
  int GetTextoSercosError(int, Text&) override { return -1; }

 private:
  [[nodiscard]] int Answer(const char* name, int usual) const {
    const auto set = returns.find(name);
    return set == returns.end() ? usual : set->second;
  }
  int Call(const char* name, int usual, std::initializer_list<int> args) {
    const int result = Answer(name, usual);
    std::string line = std::string(name) + "(";
    for (const int arg : args) line += (line.back() == '(' ? "" : ",") + std::to_string(arg);
    log_.push_back(line + ")=" + std::to_string(result));
    return result;
  }
  Log& log_;
};

class FakeUtilities final : public Utilities {
 public:
  std::map<Text, Text> marks;

  Text Get7340Path(int id) override { return Text(u"C:\\P") + FromUtf8(std::to_string(id)); }
  int ErrorText(ErrorTextFunction, std::int32_t, Z7340ERRORINFO_ST&) override { return 0; }
  bool desc_to_txt(std::int32_t, Text&, TextView) override { return false; }
  int UTIL7340_DriveStatus(int) override { return 0; }
  void UTIL7340_CopyToClipboard_Text(WindowHandle, TextView) override {}
  int Util7340_MarcaHelpAsignadaABloque(TextView block, Text& mark) override {
    const auto found = marks.find(Text(block));
    if (found == marks.end()) return 1;
    mark = found->second;
    return 0;
  }
  Rect UTIL7340_GetCNCRect() override { return {0, 0, 800, 600}; }
  bool UTIL7340_AreSoftkeyMetricsStandard() override { return true; }
  int UTIL7340_FitFontSize(int height) override { return height; }
  int UTIL7340_FitHeight(int height) override { return height; }
  bool UTIL7340_Is7335() override { return false; }
};

class FakePasswords final : public Passwords {
 public:
  int PSW_ConfirmarAcceso(int, int, int) override { return 1; }
};

class FakeToolTables final : public ToolTables {
 public:
  ZCPlcMsgTable* Connect() override { return nullptr; }
  std::vector<std::int32_t> TAPI_Tools_GetList(std::int32_t) override { return {}; }
  int TAPI_Tools_GetToolData(std::int32_t, ToolData&) override { return 0; }
};

class FakeCnc final : public CncFacade {
 public:
  FakeCnc(Log& log, FakeWindowSystem& windows) : vars(log, windows), kernel(log) {}
  Variables& Vars() override { return vars; }
  Kernel& Kapi() override { return kernel; }
  ToolTables& Tapi() override { return tables_; }
  Utilities& Util() override { return utilities; }
  Passwords& Psw() override { return passwords_; }

  FakeVariables vars;
  FakeKernel kernel;
  FakeUtilities utilities;

 private:
  FakeToolTables tables_;
  FakePasswords passwords_;
};

/// A disc in memory. Names in the sets fail as their names say.
class MemoryFiles final : public Files {
 public:
  std::map<std::string, std::string> disc;
  std::set<std::string> unreadable;
  std::set<std::string> readOnly;
  bool full = false;
  std::vector<std::string> replaced;

  FileInfo Query(TextView path) const override {
    const std::string key = ToUtf8(path);
    const auto at = disc.find(key);
    if (at == disc.end()) return {};
    return {true, false, readOnly.count(key) == 0, at->second.size()};
  }
  std::unique_ptr<FileReader> OpenRead(TextView path, FileStatus* status) const override {
    const std::string key = ToUtf8(path);
    const auto at = disc.find(key);
    const bool there = at != disc.end();
    const bool readable = there && unreadable.count(key) == 0;
    if (status != nullptr) {
      *status = readable ? FileStatus::kOk : there ? FileStatus::kDenied : FileStatus::kNotFound;
    }
    return readable ? std::make_unique<Reader>(at->second) : nullptr;
  }
  FileStatus CanReplace(TextView path) const override {
    return readOnly.count(ToUtf8(path)) != 0 ? FileStatus::kDenied : FileStatus::kOk;
  }
  FileStatus Replace(TextView path, std::string_view bytes) override {
    if (full) return FileStatus::kDiscFull;
    if (CanReplace(path) != FileStatus::kOk) return FileStatus::kDenied;
    disc[ToUtf8(path)] = std::string(bytes);
    replaced.push_back(ToUtf8(path));
    return FileStatus::kOk;
  }
  FileStatus MakeFolder(TextView) override { return FileStatus::kOk; }
  std::optional<std::string> HostPath(TextView) const override { return std::nullopt; }

 private:
  class Reader final : public FileReader {
   public:
    explicit Reader(std::string bytes) : bytes_(std::move(bytes)) {}
    std::int64_t Read(char* buffer, std::size_t size) override {
      const std::size_t count = std::min(size, bytes_.size() - at_);
      std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(at_), count, buffer);
      at_ += count;
      return static_cast<std::int64_t>(count);
    }
    bool Seek(std::uint64_t position) override {
      if (position > bytes_.size()) return false;
      at_ = position;
      return true;
    }
    std::uint64_t Position() const override { return at_; }
    std::uint64_t Size() const override { return bytes_.size(); }

   private:
    std::string bytes_;
    std::size_t at_ = 0;
  };
};

}  // namespace pnl::test
