// SPDX-License-Identifier: MIT
#include "host/language.h"

#include "base/format.h"
#include "host/shared_texts.h"

namespace pnl {
namespace {

/// Far above the size of any pack. A larger file isn't read.
constexpr std::uint64_t kMaxPackSize = 64ull << 20;

}  // namespace

Language::Language(MenuTable& menus, Utilities& utilities, Files& files, WindowSystem& windows)
    : menus_(menus), utilities_(utilities), files_(files), windows_(windows) {}

void Language::Use(LanguagePack pack) {
  pack_ = std::move(pack);
  // The shared texts are filled once per language, so the next tool to open must not get the old ones.
  sharedLoaded_ = false;
}

void Language::SetText(int id, Text text) { overrides_[id] = std::move(text); }

Text Language::TextOf(const LanguagePack& pack, int id) const {
  const auto override = overrides_.find(id);
  if (override != overrides_.end()) return override->second;
  if (numbers_) return Format(u"T%d", id);
  const Text* text = pack.FindText(id);
  return text != nullptr ? *text : Text();
}

Text Language::LoadToolText(int id) const { return TextOf(pack_, id); }

MenuHandle Language::LoadToolMenu(TextView name) {
  const auto* nodes = pack_.FindMenuNodes(name);
  return nodes != nullptr ? Build(*nodes) : 0;
}

MenuHandle Language::Build(const std::vector<LanguagePack::MenuNode>& nodes) {
  Menu menu;
  for (const LanguagePack::MenuNode& node : nodes) {
    MenuItem item = node.item;
    item.subMenu = node.children.empty() ? 0 : Build(node.children);
    menu.items.push_back(std::move(item));
  }
  return menus_.Create(std::move(menu));
}

ModuleHandle Language::LoadLanguageLibrary() {
  const Text path = Format(u"%s\\%s", utilities_.Get7340Path(path_id::kLanguage), kLanguageLibrary);
  const std::optional<std::string> bytes = ReadWhole(files_, path, kMaxPackSize);
  LanguagePack pack;
  if (!bytes || !pack.Parse(*bytes)) return 0;
  modules_.emplace(nextModule_, std::move(pack));
  return nextModule_++;
}

void Language::FreeLanguageLibrary(ModuleHandle module) { modules_.erase(module); }

const std::map<int, Text>& Language::SharedToolTexts() {
  if (sharedLoaded_) return shared_;
  // Set this first: the box runs an event loop, in which the other tool may call this too.
  sharedLoaded_ = true;
  const ModuleHandle module = LoadLanguageLibrary();
  if (module == 0) windows_.ShowBox(0, {Text(), u"ERROR AL CARGAR DLL DE IDIOMAS", BoxStyle::kError});
  const LanguagePack& source = module != 0 ? modules_.at(module) : pack_;
  for (const int id : kSharedTextOrder) shared_[id] = TextOf(source, id);
  FreeLanguageLibrary(module);
  return shared_;
}

}  // namespace pnl
