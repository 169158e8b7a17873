// SPDX-License-Identifier: MIT
// Texts, menus, dialogs and bitmaps in the panel's language, by number or name, from one compiled pack. A missing one
// is never fatal: a text is then empty, a menu 0, a dialog or bitmap null. The wording itself is in lang/.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "facade/utilities.h"
#include "window/menu.h"
#include "window/window.h"

namespace pnl {

/// One control of a dialog template, in dialog units.
struct DialogControl {
  int id = 0;
  Text kind;  // "static", "edit", "list", ...
  Text text;
  Rect rect;
};

struct DialogTemplate {
  int id = 0;
  int width = 0;  // dialog units
  int height = 0;
  std::vector<DialogControl> controls;
  [[nodiscard]] const DialogControl* Find(int controlId) const;
};

/// A language pack in memory. Parse leaves damaged entries out.
class LanguagePack {
 public:
  /// Replaces the content. Returns false, and the pack is empty, when the bytes aren't a pack at all.
  bool Parse(std::string_view bytes);
  [[nodiscard]] const Text* FindText(int id) const;
  [[nodiscard]] const DialogTemplate* FindDialog(int id) const;
  [[nodiscard]] const std::string* FindBitmap(int id) const;  // SVG

  struct MenuNode {
    MenuItem item;
    std::vector<MenuNode> children;
  };
  [[nodiscard]] const std::vector<MenuNode>* FindMenuNodes(TextView name) const;

 private:
  void Add(std::uint32_t kind, int id, std::string_view payload);
  std::map<int, Text> texts_;
  std::map<Text, std::vector<MenuNode>, std::less<>> menus_;
  std::map<int, DialogTemplate> dialogs_;
  std::map<int, std::string> bitmaps_;
};

/// The name of the language library's file, which is in the folder of path id 15.
inline constexpr TextView kLanguageLibrary = u"LPNLTOOLS.DLL";

/// Identifies a loaded module of language resources; 0 is none.
using ModuleHandle = std::uint32_t;

class Language {
 public:
  Language(MenuTable& menus, Utilities& utilities, Files& files, WindowSystem& windows);

  /// Replaces the pack in use. Texts set by SetText stay. The next call of SharedToolTexts fills the shared texts
  /// again.
  void Use(LanguagePack pack);
  /// While on, text n is "Tn", unless SetText has set it. Menus, dialogs and bitmaps still come from the pack.
  void UseNumbersForTexts(bool on) { numbers_ = on; }
  /// Sets the wording of one text. It goes before the pack's.
  void SetText(int id, Text text);

  /// The text with that id; empty when the pack has none.
  [[nodiscard]] Text LoadToolText(int id) const;
  /// Makes a new menu from the pack's menu of that name; a numbered resource has its number as name ("3015"). The
  /// caller must destroy the menu. Returns 0 when the pack has none.
  [[nodiscard]] MenuHandle LoadToolMenu(TextView name);
  [[nodiscard]] const DialogTemplate* Dialog(int id) const { return pack_.FindDialog(id); }
  [[nodiscard]] const std::string* Bitmap(int id) const { return pack_.FindBitmap(id); }
  [[nodiscard]] MenuTable& Menus() { return menus_; }

  /// Loads "%s\LPNLTOOLS.DLL", with the folder of path id 15, for a modal dialog. Returns 0 when the file doesn't exist
  /// or isn't a pack.
  [[nodiscard]] ModuleHandle LoadLanguageLibrary();
  void FreeLanguageLibrary(ModuleHandle module);
  /// How many modules are loaded.
  [[nodiscard]] std::size_t CountModules() const { return modules_.size(); }

  /// The 70 shared texts. The first call for a language fills them from the language library. If the library can't be
  /// loaded, it shows the box "ERROR AL CARGAR DLL DE IDIOMAS" and takes the texts of the pack in use.
  [[nodiscard]] const std::map<int, Text>& SharedToolTexts();

 private:
  MenuHandle Build(const std::vector<LanguagePack::MenuNode>& nodes);
  [[nodiscard]] Text TextOf(const LanguagePack& pack, int id) const;
  MenuTable& menus_;
  Utilities& utilities_;
  Files& files_;
  WindowSystem& windows_;
  LanguagePack pack_;
  bool numbers_ = false;
  std::map<int, Text> overrides_;
  std::map<int, Text> shared_;
  bool sharedLoaded_ = false;
  std::map<ModuleHandle, LanguagePack> modules_;
  ModuleHandle nextModule_ = 1;
};

}  // namespace pnl
