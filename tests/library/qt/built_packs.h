// SPDX-License-Identifier: MIT
// The language packs that the build made, and what tests ask about them. The packs themselves are checked in packs_test
// and xplr_pack_test.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <string>
#include <vector>

#include "host/language.h"
#include "host/pack_files.h"

namespace pnl::test {

/// The built pack with that code, "en". Empty, and the test fails, when it can't be read.
[[nodiscard]] inline LanguagePack LoadPack(const std::string& code) {
  const std::string program = QCoreApplication::applicationFilePath().toStdString();
  const auto bytes = ReadPackFile(PackFolders(nullptr, program), code);
  LanguagePack pack;
  EXPECT_TRUE(bytes && pack.Parse(*bytes)) << code;
  return pack;
}

/// The conversions of a format in order, "%s%d".
[[nodiscard]] inline std::string Conversions(TextView text) {
  std::string found;
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] == u'%') found += ToUtf8(text.substr(i++, 2));
  }
  return found;
}

/// The ids of a menu's items in order; empty without such a menu.
[[nodiscard]] inline std::vector<int> MenuIds(const LanguagePack& pack, TextView name) {
  std::vector<int> ids;
  const auto* nodes = pack.FindMenuNodes(name);
  if (nodes == nullptr) return ids;
  for (const auto& node : *nodes) ids.push_back(node.item.id);
  return ids;
}

}  // namespace pnl::test
