// SPDX-License-Identifier: MIT
// An ini file in memory. Keeps comments, order and keys that it doesn't know; sections and keys compare without regard
// to case; written in UTF-8 with CR LF. A line is "[section]" or "key=value" or, with a semicolon in front or neither
// of them, kept as it is. Where a key stands twice the first counts; a section may be continued further down.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/files.h"
#include "base/text.h"

namespace pnl {

class CIniFile {
 public:
  /// A larger file isn't read.
  static constexpr std::uint64_t kMostBytes = 32u << 20;

  explicit CIniFile(Files& files) : files_(&files) { CloseIniFile(); }

  /// Drops what it holds and reads the file. False, and empty, when there is none or it can't be read.
  bool ReadIniFile(TextView panelPath);
  /// Stores the whole file, also under a path other than the one read. False when it couldn't be stored; the file on
  /// the disc is then as it was. A file that ReadIniFile couldn't read isn't written over, whether it was there or out
  /// of reach: false.
  [[nodiscard]] bool WriteIniFile(TextView panelPath) const;
  void CloseIniFile();

  /// The value, or fallback for an absent key. The reference stays valid until the next call that changes the object
  /// or reads with another fallback.
  const Text& ReadString(TextView section, TextView key, TextView fallback);
  /// The integer at the value's start; 0 when there is none, fallback for an absent key.
  [[nodiscard]] std::int32_t ReadInt(TextView section, TextView key, std::int32_t fallback) const;
  [[nodiscard]] double ReadDouble(TextView section, TextView key, double fallback) const;
  /// In capitals, "0" and "NO" are false, "1" and "YES" true, anything else false ("TRUE" is false as well); fallback
  /// for an absent key.
  [[nodiscard]] bool ReadBool(TextView section, TextView key, bool fallback) const;

  /// The value is kept as a reader of the file would find it: without white space at its ends, a line break in it as a
  /// blank. Names likewise; one that no line can hold (an empty key, one with "=" in it or with "[" or ";" in front, a
  /// section with "]") is left out.
  void WriteString(TextView section, TextView key, TextView value);
  void WriteInt(TextView section, TextView key, std::int32_t value);
  void WriteDouble(TextView section, TextView key, double value);
  void WriteBool(TextView section, TextView key, bool value);
  /// Takes the key away wherever it stands. Nothing happens when it isn't there.
  void DeleteKey(TextView section, TextView key);
  /// In their order in the file, each once.
  [[nodiscard]] std::vector<Text> GetKeyNames(TextView section) const;

  /// The file's text as WriteIniFile would store it, and the reverse; for tests and for tools that hold the bytes.
  [[nodiscard]] std::string Serialize() const;
  void Parse(std::string_view bytes);

 private:
  static constexpr std::uint32_t kNowhere = 0xFFFFFFFF;
  struct Place {
    std::uint32_t stretch = kNowhere;
    std::uint32_t line = kNowhere;
  };
  /// A key's line, or any number of lines that are none, as they were read.
  struct Line {
    bool isKey = false;
    bool deleted = false;
    std::uint32_t valueAt = 0;  // in raw, of a key
    Place again;                // where the same key stands once more
    Text raw;                   // without its ending
    Text name;                  // of a key
    Text value;
  };
  /// A section's stretch of the file. The first stretch has no header and an empty name.
  struct Stretch {
    Text header;
    Text name;
    std::vector<Line> lines;
  };

  void AddLine(TextView line);
  void AddKey(TextView line, std::size_t equals);
  [[nodiscard]] const Line* Find(TextView section, TextView key) const;
  [[nodiscard]] Line& At(Place place) { return stretches_[place.stretch].lines[place.line]; }
  void Insert(const Text& section, Line line);
  std::uint32_t StretchOf(const Text& section);
  void BlankLineAtEnd();

  Files* files_;
  std::vector<Stretch> stretches_;
  std::unordered_map<Text, std::vector<std::uint32_t>> sections_;  // by name in capitals: its stretches
  std::unordered_map<Text, Place> keys_;                           // by both names in capitals: where it counts
  Text unreadPath_;                                                // of a file that may be there but wasn't read
  Text fallback_;
};

}  // namespace pnl
