// SPDX-License-Identifier: MIT
#include "facade/mill/machine_descriptions.h"

namespace pnl::sim {
namespace {

std::string Read(std::string_view bytes) {
  std::string all;
  for (const auto& [number, text] : ParseDescriptions(bytes)) all += std::to_string(number) + "{" + ToUtf8(text) + "}";
  return all;
}

TEST(MachineDescriptions, AnEntryIsItsNumberAndTheTextUpToTheNext) {
  const struct {
    const char* bytes;
    const char* read;
  } rows[] = {
      {"", ""},
      {"[1]\nOne", "1{One}"},
      {"[1]\nOne\nmore\n\n[2]\nTwo\n", "1{One\nmore}2{Two}"},
      {"\xEF\xBB\xBF[1]\r\nUno: á\r\n\r\nmás\r\n", "1{Uno: á\n\nmás}"},
      {"before\n; note\n[7]\n; note\n\nText\n", "7{Text}"},
      {"[1]\n\n[2]\nTwo", "2{Two}"},
      {"[1]\nOne\n[x]\n[]\n[3\n[99999999999]\n", "1{One\n[x]\n[]\n[3\n[99999999999]}"},
      {"[-4]\nMinus", "-4{Minus}"},
  };
  for (const auto& row : rows) EXPECT_EQ(Read(row.bytes), row.read) << row.bytes;
}

}  // namespace
}  // namespace pnl::sim
