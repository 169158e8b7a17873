// SPDX-License-Identifier: MIT
// The simulated CNC's texts for error numbers, one table for each function, and its long descriptions by file. A text
// of an error function is stored whole, with the separator at its start. Formats nothing.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "facade/error_record.h"

namespace pnl::sim {

class SimErrorTexts {
 public:
  /// Sets the text of a number. function is the own name of an ErrorTextFunction, or "GetTextoSercosError" or
  /// "GetTextoMlinkError", which use the text alone. Returns false for another name.
  bool Set(std::string_view function, std::int32_t number, TextView text, TextView helpRef, bool hasHelp);
  void SetDescription(TextView file, std::int32_t number, TextView text);

  /// Fills info with the text of a number, cut to its fields. Returns false, and fills info with zeros, when the number
  /// has no text.
  bool Fill(std::string_view function, std::int32_t number, Z7340ERRORINFO_ST& info) const;
  /// The text of a number; null when it has none. The other two likewise.
  [[nodiscard]] const Text* Find(std::string_view function, std::int32_t number) const;
  [[nodiscard]] const Text* FindHelpRef(std::string_view function, std::int32_t number) const;
  [[nodiscard]] const Text* FindDescription(TextView file, std::int32_t number) const;

 private:
  struct Entry {
    Text text;
    Text helpRef;
    bool hasHelp = false;
  };
  using Table = std::map<std::int32_t, Entry>;
  [[nodiscard]] const Entry* FindEntry(std::string_view function, std::int32_t number) const;

  std::map<std::string, Table, std::less<>> tables_;
  std::map<std::pair<Text, std::int32_t>, Text> descriptions_;
};

}  // namespace pnl::sim
