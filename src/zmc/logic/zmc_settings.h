// SPDX-License-Identifier: MIT
// "ZMC7340.ini": what the machining calculator keeps between runs, in the machine's setup folder (path id 52): what was
// selected last, the check boxes, the orders of the lists, the units. Not the cutting data.
#pragma once

#include <cstdint>

#include "base/files.h"
#include "base/ini_file.h"
#include "base/text.h"
#include "facade/utilities.h"

namespace pnl {

/// The settings with their defaults.
struct ZmcKept {
  Text LastMat;
  Text LastOpe;
  Text LastTool;
  bool FChecked = false;
  bool SChecked = false;
  bool DmcChecked = false;
  bool ToolChecked = false;
  bool M6Checked = false;
  bool CommentsChecked = false;
  bool CustomMaterialFirst = true;
  bool CustomOperationFirst = true;
  bool MaterialAToZ = true;
  bool OperationAToZ = true;
  std::int32_t OrderingMaterialType = 0;
  std::int32_t OrderingOperationType = 0;
  std::int32_t FUnit = 0;
  std::int32_t SUnit = 0;
  double LastPartDiameter = 0;  // in internal units, whatever the machine's units are

  friend bool operator==(const ZmcKept&, const ZmcKept&) = default;
};

inline constexpr TextView kZmcIniName = u"ZMC7340.ini";

class ZmcSettings {
 public:
  ZmcSettings(Files& files, Utilities& utilities) : files_(files), utilities_(utilities), ini_(files) {}

  /// Reads the file. Without it, or if it can't be read, the settings are the defaults.
  void Open();
  /// Writes all settings and keeps everything else in the file. A file that couldn't be read by Open is read now and
  /// gets only what has changed since. Returns false, and leaves the file as it is, if it still can't be read or can't
  /// be written.
  [[nodiscard]] bool Save();

  ZmcKept kept;

 private:
  [[nodiscard]] Text Path() const;
  [[nodiscard]] bool Read();
  [[nodiscard]] ZmcKept Stored();

  Files& files_;
  Utilities& utilities_;
  CIniFile ini_;
  bool unread_ = false;  // the file may exist, but couldn't be read
};

}  // namespace pnl
