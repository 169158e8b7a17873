// SPDX-License-Identifier: MIT
// "MDIMAN.INI": what the command line keeps between runs beside its lists, in two copies. The user's copy (path id 108)
// is read first and always written; the machine's copy (path id 52) stands in for it, and alone decides the colours.
#pragma once

#include <cstdint>

#include "base/files.h"
#include "base/ini_file.h"
#include "base/text.h"
#include "facade/utilities.h"
#include "mdi/mdi_colors.h"

namespace pnl {

class MdiSettings {
 public:
  MdiSettings(Files& files, Utilities& utilities);

  /// Reads the file into the object that stays open until the end, then ReadSettings.
  void Open();
  /// Both copies get folder, length and position; the user's copy everything else that the open object holds. A copy
  /// that is there but couldn't be read is left alone. Failures are silent.
  void SaveSettings();
  /// How many blocks of a history are read and written, never negative. An absent "NItems" becomes 10, in the object.
  [[nodiscard]] std::int32_t HistoryLimit();

  Text Dir;  // last folder used for a program file
  bool FullLength = true;
  bool Below = true;
  MdiColors colors;

 private:
  [[nodiscard]] Text PathIn(int pathId) const;
  /// False when the file is there but can't be read.
  bool Read(CIniFile& ini, const Text& path) const;
  void ReadSettings();
  void ReadColors();
  void WriteKeys(CIniFile& ini) const;

  Files& files_;
  Utilities& utilities_;
  CIniFile own_;
  bool userCopyReadable_ = true;
};

/// The file with that name in the folder of path id 108 if it is there, else in that of path id 52.
[[nodiscard]] Text MdiFileToRead(const Files& files, Utilities& utilities, TextView name);
/// The file with that name in the folder of a path id.
[[nodiscard]] Text MdiFileIn(Utilities& utilities, int pathId, TextView name);

}  // namespace pnl
