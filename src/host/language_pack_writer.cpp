// SPDX-License-Identifier: MIT
#include <array>

#include "host/language_pack.h"

namespace pnl {
namespace pack_format {

void PutNumber(std::string& out, std::uint32_t value) {
  for (int shift = 0; shift < 32; shift += 8) out.push_back(static_cast<char>((value >> shift) & 0xFF));
}

std::uint32_t Checksum(std::string_view bytes) {
  static const std::array<std::uint32_t, 256> table = [] {
    std::array<std::uint32_t, 256> made{};
    for (std::uint32_t i = 0; i < 256; ++i) {
      std::uint32_t value = i;
      for (int bit = 0; bit < 8; ++bit) value = (value & 1) != 0 ? 0xEDB88320u ^ (value >> 1) : value >> 1;
      made[i] = value;
    }
    return made;
  }();
  std::uint32_t sum = 0xFFFFFFFFu;
  for (const char c : bytes) sum = table[(sum ^ static_cast<unsigned char>(c)) & 0xFF] ^ (sum >> 8);
  return ~sum;
}

std::string Entry(std::uint32_t kind, std::uint32_t id, std::string_view payload) {
  std::string entry;
  PutNumber(entry, kind);
  PutNumber(entry, id);
  PutNumber(entry, static_cast<std::uint32_t>(payload.size()));
  PutNumber(entry, Checksum(entry + std::string(payload)));
  return entry.append(payload);
}

std::string File(std::string_view entries, std::uint32_t count) {
  std::string file(kMagic);
  PutNumber(file, kVersion);
  PutNumber(file, static_cast<std::uint32_t>(kHeaderSize + entries.size()));
  PutNumber(file, count);
  PutNumber(file, Checksum(file));
  return file.append(entries);
}

}  // namespace pack_format

namespace {

using pack_format::PutNumber;

void PutText(std::string& out, TextView text) {
  const std::string bytes = ToUtf8(text);
  PutNumber(out, static_cast<std::uint32_t>(bytes.size()));
  out += bytes;
}

void PutInt(std::string& out, int value) { PutNumber(out, static_cast<std::uint32_t>(value)); }

void PutNodes(std::string& out, const std::vector<LanguagePack::MenuNode>& nodes) {
  PutNumber(out, static_cast<std::uint32_t>(nodes.size()));
  for (const LanguagePack::MenuNode& node : nodes) {
    PutInt(out, node.item.id);
    PutInt(out, (node.item.enabled ? 1 : 0) | (node.item.checked ? 2 : 0) | (node.item.hidden ? 4 : 0));
    PutInt(out, node.item.bitmap);
    PutText(out, node.item.text);
    PutText(out, node.item.helper);
    PutNodes(out, node.children);
  }
}

std::string DialogPayload(const DialogTemplate& dialog) {
  std::string out;
  PutInt(out, dialog.width);
  PutInt(out, dialog.height);
  PutNumber(out, static_cast<std::uint32_t>(dialog.controls.size()));
  for (const DialogControl& control : dialog.controls) {
    PutInt(out, control.id);
    PutText(out, control.kind);
    PutText(out, control.text);
    for (const int edge : {control.rect.left, control.rect.top, control.rect.right, control.rect.bottom}) {
      PutInt(out, edge);
    }
  }
  return out;
}

}  // namespace

std::string BuildPack(const PackContents& contents) {
  std::string entries;
  std::uint32_t count = 0;
  const auto add = [&](pack_format::Kind kind, int id, std::string_view payload) {
    entries += pack_format::Entry(kind, static_cast<std::uint32_t>(id), payload);
    ++count;
  };
  for (const auto& [id, text] : contents.texts) add(pack_format::kText, id, ToUtf8(text));
  for (const auto& [name, nodes] : contents.menus) {
    std::string payload;
    PutText(payload, name);
    PutNodes(payload, nodes);
    add(pack_format::kMenu, 0, payload);
  }
  for (const auto& [id, dialog] : contents.dialogs) add(pack_format::kDialog, id, DialogPayload(dialog));
  for (const auto& [id, svg] : contents.bitmaps) add(pack_format::kBitmap, id, svg);
  return pack_format::File(entries, count);
}

}  // namespace pnl
