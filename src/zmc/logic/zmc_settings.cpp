// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_settings.h"

#include <cmath>
#include <variant>

#include "base/format.h"

namespace pnl {

namespace {

constexpr TextView kSection = u"PRIVATE";

using Member = std::variant<Text ZmcKept::*, bool ZmcKept::*, std::int32_t ZmcKept::*, double ZmcKept::*>;

struct KeptKey {
  TextView key;
  Member member;
};

/// The keys in the order in which a new file gets them.
constexpr KeptKey kKeptKeys[] = {
    {u"LastMat", &ZmcKept::LastMat},
    {u"LastOpe", &ZmcKept::LastOpe},
    {u"LastTool", &ZmcKept::LastTool},
    {u"FChecked", &ZmcKept::FChecked},
    {u"SChecked", &ZmcKept::SChecked},
    {u"DmcChecked", &ZmcKept::DmcChecked},
    {u"ToolChecked", &ZmcKept::ToolChecked},
    {u"M6Checked", &ZmcKept::M6Checked},
    {u"CommentsChecked", &ZmcKept::CommentsChecked},
    {u"CustomMaterialFirst", &ZmcKept::CustomMaterialFirst},
    {u"CustomOperationFirst", &ZmcKept::CustomOperationFirst},
    {u"MaterialAToZ", &ZmcKept::MaterialAToZ},
    {u"OperationAToZ", &ZmcKept::OperationAToZ},
    {u"OrderingMaterialType", &ZmcKept::OrderingMaterialType},
    {u"OrderingOperationType", &ZmcKept::OrderingOperationType},
    {u"FUnit", &ZmcKept::FUnit},
    {u"SUnit", &ZmcKept::SUnit},
    {u"LastPartDiameter", &ZmcKept::LastPartDiameter},
};

/// Reads one setting of any kind; an absent key leaves it as it is.
struct KeptReader {
  CIniFile& ini;
  TextView key;
  ZmcKept& kept;
  void operator()(Text ZmcKept::*member) const { kept.*member = Text(ini.ReadString(kSection, key, kept.*member)); }
  void operator()(bool ZmcKept::*member) const { kept.*member = ini.ReadBool(kSection, key, kept.*member); }
  void operator()(std::int32_t ZmcKept::*member) const { kept.*member = ini.ReadInt(kSection, key, kept.*member); }
  void operator()(double ZmcKept::*member) const {
    const double value = ini.ReadDouble(kSection, key, kept.*member);
    // A file may say "nan" or "1e999", which is no length.
    if (std::isfinite(value)) kept.*member = value;
  }
};

struct KeptWriter {
  CIniFile& ini;
  TextView key;
  const ZmcKept& kept;
  void operator()(Text ZmcKept::*member) const { ini.WriteString(kSection, key, kept.*member); }
  void operator()(bool ZmcKept::*member) const { ini.WriteBool(kSection, key, kept.*member); }
  void operator()(std::int32_t ZmcKept::*member) const { ini.WriteInt(kSection, key, kept.*member); }
  void operator()(double ZmcKept::*member) const { ini.WriteDouble(kSection, key, kept.*member); }
};

/// Copies the settings that aren't the defaults, which is what they are when the file can't be read.
void CopyChanges(const ZmcKept& now, ZmcKept& to) {
  const ZmcKept before;
  for (const KeptKey& row : kKeptKeys) {
    std::visit(
        [&](auto member) {
          if (now.*member != before.*member) to.*member = now.*member;
        },
        row.member);
  }
}

}  // namespace

Text ZmcSettings::Path() const { return Format(u"%s\\%s", utilities_.Get7340Path(path_id::kSetup), kZmcIniName); }

bool ZmcSettings::Read() {
  if (ini_.ReadIniFile(Path())) return true;
  const FileInfo info = files_.Query(Path());
  return !info.exists && !info.outOfReach;
}

ZmcKept ZmcSettings::Stored() {
  ZmcKept stored;
  for (const KeptKey& row : kKeptKeys) std::visit(KeptReader{ini_, row.key, stored}, row.member);
  return stored;
}

void ZmcSettings::Open() {
  unread_ = !Read();
  kept = Stored();
}

bool ZmcSettings::Save() {
  if (unread_) {
    if (!Read()) return false;
    unread_ = false;
    ZmcKept there = Stored();
    CopyChanges(kept, there);
    kept = there;
  }
  for (const KeptKey& row : kKeptKeys) std::visit(KeptWriter{ini_, row.key, kept}, row.member);
  return ini_.WriteIniFile(Path());
}

}  // namespace pnl
