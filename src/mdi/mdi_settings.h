// SPDX-License-Identifier: MIT
// "MDIMAN.INI": the settings of the command line, in two copies. The user's copy (path id 108) is read if it exists,
// else the machine's copy (path id 52). Both are written. Only the machine's copy decides about the colours.
#pragma once

#include <cstdint>

#include "base/files.h"
#include "base/ini_file.h"
#include "base/text.h"
#include "facade/utilities.h"
#include "mdi/mdi_colors.h"

namespace pnl {

inline constexpr TextView kMdiIniName = u"MDIMAN.INI";

class MdiSettings {
 public:
  MdiSettings(Files& files, Utilities& utilities);

  /// Reads the file and the settings in it. The contents are kept until the settings are saved.
  void Open();
  /// Writes folder, length and position into both copies. The user's copy also gets everything else that was read. If
  /// the user's copy couldn't be read by Open, it is read now and gets only what has changed since. A copy that can't
  /// be read isn't written. Returns false if the user's copy couldn't be written.
  [[nodiscard]] bool SaveSettings();
  /// How many blocks of a history are read and written. It is never negative. If "NItems" is missing, it becomes 10 and
  /// is saved with the settings.
  [[nodiscard]] std::int32_t HistoryLimit();
  /// Whether the user's copy couldn't be read and may have another limit than HistoryLimit. A history must not be cut
  /// then.
  [[nodiscard]] bool LimitUnknown() const { return usersUnknown_; }

  Text Dir;  // the folder of the last program file
  bool FullLength = true;
  bool Below = true;
  MdiColors colors;

 private:
  /// The settings that the operator can change.
  struct Kept {
    Text dir;
    bool fullLength = true;
    bool below = true;
  };
  [[nodiscard]] Text PathIn(int pathId) const;
  [[nodiscard]] Kept Now() const { return {Dir, FullLength, Below}; }
  /// Reads the user's copy again and keeps the session's changes. Returns false if it can't be read.
  [[nodiscard]] bool CatchUp();
  /// Returns false if the file can't be read although it exists or may exist.
  bool Read(CIniFile& ini, const Text& path) const;
  void ReadSettings();
  void ReadColors();
  void WriteKeys(CIniFile& ini) const;

  Files& files_;
  Utilities& utilities_;
  CIniFile own_;
  bool usersUnknown_ = false;  // whether the user's copy exists or may exist and couldn't be read
  Kept read_;                  // as they were read
};

/// The path of the file in the folder of path id 108 if it exists there, else in the folder of path id 52.
[[nodiscard]] Text MdiFileToRead(const Files& files, Utilities& utilities, TextView name);
/// The path of the file in the folder of a path id.
[[nodiscard]] Text MdiFileIn(Utilities& utilities, int pathId, TextView name);

}  // namespace pnl
