// SPDX-License-Identifier: MIT
// The compiler of language packs: reads a folder of texts, menus and dialogs and a folder of bitmaps, and writes one
// pack file. It stops at the first mistake with its file and place, so that a broken pack never gets into a build.
//
//   langc PACK_FOLDER BITMAP_FOLDER OUTPUT
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <pugixml.hpp>
#include <stdexcept>
#include <string>

#include "host/language_pack.h"

namespace {

namespace fs = std::filesystem;
using pnl::LanguagePack;

[[noreturn]] void Fail(const fs::path& file, const std::string& what) {
  throw std::runtime_error(file.string() + ": " + what);
}

std::string ReadFile(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) Fail(file, "cannot be read");
  return {std::istreambuf_iterator<char>(in), {}};
}

int ParseId(const fs::path& file, std::string_view text, const std::string& where) {
  int id = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), id);
  if (error != std::errc() || end != text.data() + text.size()) Fail(file, where + ": a number is expected");
  return id;
}

std::string Unescape(const fs::path& file, std::string_view text, const std::string& where) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      out.push_back(text[i]);
      continue;
    }
    const char code = ++i < text.size() ? text[i] : '\0';
    const std::size_t known = std::string_view("nrt\\").find(code);
    if (known == std::string_view::npos) Fail(file, where + ": unknown escape");
    out.push_back("\n\r\t\\"[known]);
  }
  return out;
}

void ReadTexts(const fs::path& file, pnl::PackContents& contents) {
  std::ifstream in(file);
  if (!in) Fail(file, "cannot be read");
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    const std::string where = "line " + std::to_string(++number);
    if (line.empty() || line[0] == '#') continue;
    const std::size_t sign = line.find(" = ");
    if (sign == std::string::npos) Fail(file, where + ": \"id = text\" is expected");
    if (!pnl::IsUtf8(line)) Fail(file, where + ": not UTF-8");
    const int id = ParseId(file, std::string_view(line).substr(0, sign), where);
    const std::string text = Unescape(file, std::string_view(line).substr(sign + 3), where);
    if (!contents.texts.emplace(id, pnl::FromUtf8(text)).second) Fail(file, where + ": this number is taken");
  }
}

pnl::Text Attribute(const pugi::xml_node& node, const char* name) {
  return pnl::FromUtf8(node.attribute(name).as_string());
}

std::vector<LanguagePack::MenuNode> ReadItems(const fs::path& file, const pugi::xml_node& parent) {
  std::vector<LanguagePack::MenuNode> nodes;
  for (const pugi::xml_node& xml : parent.children("item")) {
    LanguagePack::MenuNode node;
    node.item.id = ParseId(file, xml.attribute("id").as_string(), "item");
    node.item.text = Attribute(xml, "text");
    node.item.bitmap = xml.attribute("bitmap").as_int();
    node.item.helper = Attribute(xml, "helper");
    node.item.enabled = xml.attribute("enabled").as_bool(true);
    node.item.checked = xml.attribute("checked").as_bool(false);
    node.item.hidden = xml.attribute("hidden").as_bool(false);
    node.children = ReadItems(file, xml);
    nodes.push_back(std::move(node));
  }
  return nodes;
}

pugi::xml_document ReadXml(const fs::path& file) {
  pugi::xml_document document;
  const pugi::xml_parse_result result = document.load_file(file.c_str());
  if (!result) Fail(file, std::string(result.description()) + " at byte " + std::to_string(result.offset));
  return document;
}

void ReadMenus(const fs::path& file, pnl::PackContents& contents) {
  const pugi::xml_document document = ReadXml(file);
  for (const pugi::xml_node& menu : document.child("menus").children("menu")) {
    const pnl::Text name = Attribute(menu, "name");
    if (name.empty() || !contents.menus.emplace(name, ReadItems(file, menu)).second) {
      Fail(file, "a menu without a name of its own");
    }
  }
}

void ReadDialogs(const fs::path& file, pnl::PackContents& contents) {
  const pugi::xml_document document = ReadXml(file);
  for (const pugi::xml_node& xml : document.child("dialogs").children("dialog")) {
    pnl::DialogTemplate dialog;
    dialog.id = ParseId(file, xml.attribute("id").as_string(), "dialog");
    dialog.width = xml.attribute("width").as_int();
    dialog.height = xml.attribute("height").as_int();
    for (const pugi::xml_node& child : xml.children("control")) {
      pnl::DialogControl control;
      control.id = ParseId(file, child.attribute("id").as_string(), "control");
      control.kind = Attribute(child, "kind");
      control.text = Attribute(child, "text");
      const int left = child.attribute("x").as_int();
      const int top = child.attribute("y").as_int();
      control.rect = {left, top, left + child.attribute("w").as_int(), top + child.attribute("h").as_int()};
      dialog.controls.push_back(std::move(control));
    }
    if (!contents.dialogs.emplace(dialog.id, dialog).second) Fail(file, "a dialog's number is taken");
  }
}

void ReadBitmaps(const fs::path& folder, pnl::PackContents& contents) {
  for (const auto& entry : fs::directory_iterator(folder)) {
    const fs::path& file = entry.path();
    if (file.extension() != ".svg") continue;
    ReadXml(file);
    contents.bitmaps[ParseId(file, file.stem().string(), "name")] = ReadFile(file);
  }
}

/// Reads the written pack back and fails when a text or a menu is missing.
void Verify(const fs::path& output, const pnl::PackContents& contents) {
  LanguagePack pack;
  if (!pack.Parse(ReadFile(output))) Fail(output, "cannot be read back");
  for (const auto& [id, text] : contents.texts) {
    const pnl::Text* found = pack.FindText(id);
    if (found == nullptr || *found != text) Fail(output, "text " + std::to_string(id) + " was lost");
  }
  for (const auto& [name, nodes] : contents.menus) {
    if (pack.FindMenuNodes(name) == nullptr) Fail(output, "menu " + pnl::ToUtf8(name) + " was lost");
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: langc PACK_FOLDER BITMAP_FOLDER OUTPUT\n";
    return 2;
  }
  try {
    const fs::path folder(argv[1]);
    const fs::path output(argv[3]);
    pnl::PackContents contents;
    ReadTexts(folder / "texts.txt", contents);
    ReadMenus(folder / "menus.xml", contents);
    ReadDialogs(folder / "dialogs.xml", contents);
    ReadBitmaps(argv[2], contents);
    fs::create_directories(output.parent_path());
    std::ofstream(output, std::ios::binary) << pnl::BuildPack(contents);
    Verify(output, contents);
  } catch (const std::exception& problem) {
    std::cerr << problem.what() << '\n';
    return 1;
  }
  return 0;
}
