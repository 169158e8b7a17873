// SPDX-License-Identifier: MIT
// An ini file in memory. Keeps comments, order and keys that it doesn't know. Sections and keys compare without regard
// to case. Writes UTF-8 with CR LF. A line is "[section]" or "key=value"; any other line, such as one that begins with
// a semicolon, is kept as it is. If a key occurs twice, the first counts. A section may be continued further down.
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
  /// ReadIniFile doesn't read a larger file.
  static constexpr std::uint64_t kMostBytes = 32u << 20;

  explicit CIniFile(Files& files) : files_(&files) { CloseIniFile(); }

  /// Drops the present content and reads the file. Returns false, and is empty, when the file doesn't exist or can't be
  /// read.
  bool ReadIniFile(TextView panelPath);
  /// Stores the whole content, also under a path other than the one that was read. Returns false when it couldn't be
  /// stored; the file on the disc is then as it was. Doesn't overwrite a file that existed or was out of reach when
  /// ReadIniFile failed to read it: returns false.
  [[nodiscard]] bool WriteIniFile(TextView panelPath) const;
  void CloseIniFile();

  /// The value, or fallback for an absent key. The reference stays valid until the next call that changes the object
  /// or reads with another fallback.
  const Text& ReadString(TextView section, TextView key, TextView fallback);
  /// The integer at the value's start: 0 when there is none, fallback for an absent key. ReadDouble likewise.
  [[nodiscard]] std::int32_t ReadInt(TextView section, TextView key, std::int32_t fallback) const;
  [[nodiscard]] double ReadDouble(TextView section, TextView key, double fallback) const;
  /// True for "1" and for "YES" in any case; false for any other value, "TRUE" included; fallback for an absent key.
  [[nodiscard]] bool ReadBool(TextView section, TextView key, bool fallback) const;

  /// Sets the value, and adds the key and the section when they are missing. White space at the value's ends is dropped
  /// and a line break in it becomes a blank, so that a reader of the file finds the same value. Names are treated
  /// likewise. Does nothing for a name that no line can represent: an empty key, a key that contains "=" or begins with
  /// "[" or ";", or a section that contains "]".
  void WriteString(TextView section, TextView key, TextView value);
  void WriteInt(TextView section, TextView key, std::int32_t value);
  void WriteDouble(TextView section, TextView key, double value);
  void WriteBool(TextView section, TextView key, bool value);
  /// Removes every line of the key. Does nothing when there is none.
  void DeleteKey(TextView section, TextView key);
  /// The keys of the section in their order in the file, each once.
  [[nodiscard]] std::vector<Text> GetKeyNames(TextView section) const;
  /// The sections that have a name, in their order in the file, each once, as their first header writes them.
  [[nodiscard]] std::vector<Text> GetSectionNames() const;

  /// Serialize returns the file's bytes as WriteIniFile would store them; Parse reads such bytes. For tests, and for
  /// tools that have the bytes already.
  [[nodiscard]] std::string Serialize() const;
  void Parse(std::string_view bytes);

 private:
  static constexpr std::uint32_t kNowhere = 0xFFFFFFFF;
  struct Place {
    std::uint32_t stretch = kNowhere;
    std::uint32_t line = kNowhere;
  };
  /// The line of a key, or any number of consecutive other lines, as they were read.
  struct Line {
    bool isKey = false;
    bool deleted = false;
    std::uint32_t valueAt = 0;  // where the value begins in raw; for a key only
    Place again;                // the next line of the same key
    Text raw;                   // without its ending
    Text name;                  // of a key
    Text value;
  };
  /// A section's part of the file, from its header to the next one. The first stretch has no header and an empty name.
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
  std::unordered_map<Text, std::vector<std::uint32_t>> sections_;  // name in capitals: the section's stretches
  std::unordered_map<Text, Place> keys_;                           // both names in capitals: the key's line that counts
  Text unreadPath_;                                                // of a file that may exist but couldn't be read
  Text fallback_;
};

}  // namespace pnl
