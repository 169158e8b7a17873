// SPDX-License-Identifier: MIT
// The texts that the simulated CNC has for error numbers, one table a function, and the long descriptions in files.
// Texts of the error functions are kept whole, with the separator that stands first. Formats nothing.
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
  /// By the function's own name: those of ErrorTextFunction, "GetTextoSercosError" and "GetTextoMlinkError", which use
  /// the text alone. False for another name.
  bool Set(std::string_view function, std::int32_t number, TextView text, TextView helpRef, bool hasHelp);
  void SetDescription(TextView file, std::int32_t number, TextView text);

  /// False, and info zeroed, for a number without a text. Texts are cut to their fields.
  bool Fill(std::string_view function, std::int32_t number, Z7340ERRORINFO_ST& info) const;
  /// Null for a number without a text.
  [[nodiscard]] const Text* Find(std::string_view function, std::int32_t number) const;
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
