// SPDX-License-Identifier: MIT
#include "facade/sim/sim_error_texts.h"

#include <algorithm>

#include "facade/utilities.h"

namespace pnl::sim {

namespace {

bool IsTextFunction(std::string_view name) {
  if (name == "GetTextoSercosError" || name == "GetTextoMlinkError") return true;
  return std::any_of(std::begin(kErrorTextFunctions), std::end(kErrorTextFunctions),
                     [name](ErrorTextFunction function) { return name == ErrorTextFunctionName(function); });
}

}  // namespace

bool SimErrorTexts::Set(std::string_view function, std::int32_t number, TextView text, TextView helpRef, bool hasHelp) {
  if (!IsTextFunction(function)) return false;
  tables_[std::string(function)][number] = {Text(text), Text(helpRef), hasHelp};
  return true;
}

void SimErrorTexts::SetDescription(TextView file, std::int32_t number, TextView text) {
  descriptions_[{Text(file), number}] = Text(text);
}

bool SimErrorTexts::Fill(std::string_view function, std::int32_t number, Z7340ERRORINFO_ST& info) const {
  info = {};
  const Entry* entry = FindEntry(function, number);
  if (entry == nullptr) return false;
  SetField(info.text, entry->text);
  SetField(info.helpRef, entry->helpRef);
  info.hasHelp = entry->hasHelp ? 1 : 0;
  return true;
}

const Text* SimErrorTexts::Find(std::string_view function, std::int32_t number) const {
  const Entry* entry = FindEntry(function, number);
  return entry == nullptr ? nullptr : &entry->text;
}

const Text* SimErrorTexts::FindHelpRef(std::string_view function, std::int32_t number) const {
  const Entry* entry = FindEntry(function, number);
  return entry == nullptr ? nullptr : &entry->helpRef;
}

const Text* SimErrorTexts::FindDescription(TextView file, std::int32_t number) const {
  const auto found = descriptions_.find({Text(file), number});
  return found == descriptions_.end() ? nullptr : &found->second;
}

const SimErrorTexts::Entry* SimErrorTexts::FindEntry(std::string_view function, std::int32_t number) const {
  const auto table = tables_.find(function);
  if (table == tables_.end()) return nullptr;
  const auto entry = table->second.find(number);
  return entry == table->second.end() ? nullptr : &entry->second;
}

}  // namespace pnl::sim
