// SPDX-License-Identifier: MIT
// Texts, menus, dialogs and bitmaps that depend on the language, by number or name, out of one compiled pack. A missing
// text, menu or bitmap is never fatal: the text is empty, the menu 0. Not a translator: wording lives in lang/.
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

/// A language pack in memory. Parse never fails loudly: what is damaged is left out.
class LanguagePack {
 public:
  /// False when the bytes are no pack at all; then the pack is empty.
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

/// The file of the language library in the folder of path id 15.
inline constexpr TextView kLanguageLibrary = u"LPNLTOOLS.DLL";

/// A loaded module of language resources; 0 is none.
using ModuleHandle = std::uint32_t;

class Language {
 public:
  Language(MenuTable& menus, Utilities& utilities, Files& files, WindowSystem& windows);

  /// Takes the pack in use; texts set by SetText stay. The shared texts are filled anew for whoever asks next.
  void Use(LanguagePack pack);
  /// Text id n reads "Tn" from now on; menus, dialogs and bitmaps stay those of the pack.
  void UseNumbersForTexts(bool on) { numbers_ = on; }
  /// Another wording for one text, whatever the pack says.
  void SetText(int id, Text text);

  /// The text of that id; empty when the pack has none.
  [[nodiscard]] Text LoadToolText(int id) const;
  /// A new menu made after the pack's, 0 when there is none. Resources with a number are named by it ("3015"). Whoever
  /// asked destroys it.
  [[nodiscard]] MenuHandle LoadToolMenu(TextView name);
  [[nodiscard]] const DialogTemplate* Dialog(int id) const { return pack_.FindDialog(id); }
  [[nodiscard]] const std::string* Bitmap(int id) const { return pack_.FindBitmap(id); }
  [[nodiscard]] MenuTable& Menus() { return menus_; }

  /// Loads "%s\LPNLTOOLS.DLL" of path id 15 for a modal dialog; 0 when it isn't there or is no pack.
  [[nodiscard]] ModuleHandle LoadLanguageLibrary();
  void FreeLanguageLibrary(ModuleHandle module);
  /// How many modules are loaded.
  [[nodiscard]] std::size_t CountModules() const { return modules_.size(); }

  /// The 70 shared texts, filled once for a language by whoever asks first. A language module that can't be had shows
  /// the box "ERROR AL CARGAR DLL DE IDIOMAS"; the texts are then those of the pack in use.
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
