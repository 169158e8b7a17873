// SPDX-License-Identifier: MIT
// An ini file in memory. Keeps comments, order and keys that it doesn't know; sections and keys compare without regard
// to case; written in UTF-8 with CR LF. Booleans are written "YES" and "NO" and read as told at ReadBool.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/files.h"
#include "base/text.h"

namespace pnl {

class CIniFile {
 public:
  explicit CIniFile(Files& files) : files_(files) {}

  /// Drops what it holds and reads the file. False, and empty, when there is none or it can't be read.
  bool ReadIniFile(TextView panelPath);
  /// Stores the whole file, also under a path other than the one read. False when it couldn't be stored; the file on
  /// the disc is then as it was.
  [[nodiscard]] bool WriteIniFile(TextView panelPath) const;
  void CloseIniFile();

  /// The value, or fallback for an absent key. The reference stays valid until the next call that changes the object
  /// or reads with another fallback.
  const Text& ReadString(TextView section, TextView key, TextView fallback);
  [[nodiscard]] std::int32_t ReadInt(TextView section, TextView key, std::int32_t fallback) const;
  [[nodiscard]] double ReadDouble(TextView section, TextView key, double fallback) const;
  /// In capitals, "0" and "NO" are false, "1" and "YES" true, anything else false ("TRUE" is false as well); fallback
  /// for an absent key.
  [[nodiscard]] bool ReadBool(TextView section, TextView key, bool fallback) const;

  void WriteString(TextView section, TextView key, TextView value);
  void WriteInt(TextView section, TextView key, std::int32_t value);
  void WriteDouble(TextView section, TextView key, double value);
  void WriteBool(TextView section, TextView key, bool value);
  /// Nothing happens when it isn't there.
  void DeleteKey(TextView section, TextView key);
  [[nodiscard]] std::vector<Text> GetKeyNames(TextView section) const;

  /// The file's text as WriteIniFile would store it, and the reverse; for tests and for tools that hold the bytes.
  [[nodiscard]] std::string Serialize() const;
  void Parse(std::string_view bytes);

 private:
  struct Line {
    enum class Kind { kOther, kSection, kKey } kind = Kind::kOther;
    Text raw;    // as read, without its ending
    Text name;   // section or key
    Text value;  // of a key
  };

  [[nodiscard]] const Line* Find(TextView section, TextView key) const;
  Files& files_;
  std::vector<Line> lines_;
  Text fallback_;
};

}  // namespace pnl
