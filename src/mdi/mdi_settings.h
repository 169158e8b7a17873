// SPDX-License-Identifier: MIT
// "MDIMAN.INI": what the command line keeps between runs beside its lists, in two copies. The user's copy (path id 108)
// is read first and always written; the machine's copy (path id 52) is read in its place, and alone decides the
// colours.
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

  /// Reads the file into the object that stays open until the end, then ReadSettings.
  void Open();
  /// Both copies get folder, length and position; the user's copy everything else that the open object has. A user's
  /// copy that couldn't be looked at when the object was read is read now, and gets only what the session changed. A
  /// copy that can't be read is left alone. False when the user's copy couldn't be written.
  [[nodiscard]] bool SaveSettings();
  /// How many blocks of a history are read and written, never negative. An absent "NItems" becomes 10, in the object.
  [[nodiscard]] std::int32_t HistoryLimit();
  /// The user's copy may hold another limit than the one that HistoryLimit gives: nothing may be cut by that one.
  [[nodiscard]] bool LimitUnknown() const { return usersUnknown_; }

  Text Dir;  // last folder used for a program file
  bool FullLength = true;
  bool Below = true;
  MdiColors colors;

 private:
  /// What the operator may change in a session.
  struct Kept {
    Text dir;
    bool fullLength = true;
    bool below = true;
  };
  [[nodiscard]] Text PathIn(int pathId) const;
  [[nodiscard]] Kept Now() const { return {Dir, FullLength, Below}; }
  /// Takes the user's copy as it is now for the open object, with the session's changes. False when it can't be read.
  [[nodiscard]] bool CatchUp();
  /// False when the file is there but can't be read.
  bool Read(CIniFile& ini, const Text& path) const;
  void ReadSettings();
  void ReadColors();
  void WriteKeys(CIniFile& ini) const;

  Files& files_;
  Utilities& utilities_;
  CIniFile own_;
  bool usersUnknown_ = false;  // the user's copy couldn't be looked at
  Kept read_;
};

/// The file with that name in the folder of path id 108 if it is there, else in that of path id 52.
[[nodiscard]] Text MdiFileToRead(const Files& files, Utilities& utilities, TextView name);
/// The file with that name in the folder of a path id.
[[nodiscard]] Text MdiFileIn(Utilities& utilities, int pathId, TextView name);

}  // namespace pnl
