// SPDX-License-Identifier: MIT
#include <algorithm>

#include "host/language_pack.h"

namespace pnl {
namespace {

/// No menu nests deeper. The limit keeps a damaged or hostile pack from exhausting the stack.
constexpr int kMaxMenuDepth = 8;

/// Takes numbers and texts from the front of some bytes. After the first one that is missing, Ok stays false and every
/// further result is empty.
class Cursor {
 public:
  explicit Cursor(std::string_view bytes) : bytes_(bytes) {}
  [[nodiscard]] bool Ok() const { return ok_; }
  [[nodiscard]] bool AtEnd() const { return bytes_.empty(); }
  void Fail() { ok_ = false; }

  std::string_view Take(std::size_t size) {
    if (!ok_ || size > bytes_.size()) {
      ok_ = false;
      return {};
    }
    const std::string_view taken = bytes_.substr(0, size);
    bytes_.remove_prefix(size);
    return taken;
  }
  std::uint32_t Number() {
    const std::string_view taken = Take(4);
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < taken.size(); ++i) {
      value |= static_cast<std::uint32_t>(static_cast<unsigned char>(taken[i])) << (8 * i);
    }
    return value;
  }
  int Int() { return static_cast<int>(Number()); }
  Text String() { return FromUtf8(Take(Number())); }

 private:
  std::string_view bytes_;
  bool ok_ = true;
};

std::vector<LanguagePack::MenuNode> ReadNodes(Cursor& cursor, int depth) {
  std::vector<LanguagePack::MenuNode> nodes;
  const std::uint32_t count = cursor.Number();
  if (depth > kMaxMenuDepth) cursor.Fail();
  for (std::uint32_t i = 0; i < count && cursor.Ok(); ++i) {
    LanguagePack::MenuNode node;
    node.item.id = cursor.Int();
    const std::uint32_t flags = cursor.Number();
    node.item.enabled = (flags & 1) != 0;
    node.item.checked = (flags & 2) != 0;
    node.item.hidden = (flags & 4) != 0;
    node.item.bitmap = cursor.Int();
    node.item.text = cursor.String();
    node.item.helper = cursor.String();
    node.children = ReadNodes(cursor, depth + 1);
    nodes.push_back(std::move(node));
  }
  return nodes;
}

DialogTemplate ReadDialog(Cursor& cursor, int id) {
  DialogTemplate dialog;
  dialog.id = id;
  dialog.width = cursor.Int();
  dialog.height = cursor.Int();
  const std::uint32_t count = cursor.Number();
  for (std::uint32_t i = 0; i < count && cursor.Ok(); ++i) {
    DialogControl control;
    control.id = cursor.Int();
    control.kind = cursor.String();
    control.text = cursor.String();
    control.rect.left = cursor.Int();
    control.rect.top = cursor.Int();
    control.rect.right = cursor.Int();
    control.rect.bottom = cursor.Int();
    dialog.controls.push_back(std::move(control));
  }
  return dialog;
}

template <typename Map>
auto* FindIn(Map& map, const typename Map::key_type& key) {
  const auto found = map.find(key);
  return found == map.end() ? nullptr : &found->second;
}

}  // namespace

const DialogControl* DialogTemplate::Find(int controlId) const {
  const auto found = std::find_if(controls.begin(), controls.end(),
                                  [controlId](const auto& control) { return control.id == controlId; });
  return found == controls.end() ? nullptr : &*found;
}

bool LanguagePack::Parse(std::string_view bytes) {
  *this = LanguagePack();
  Cursor header(bytes.substr(0, pack_format::kHeaderSize));
  if (header.Take(pack_format::kMagic.size()) != pack_format::kMagic) return false;
  const std::uint32_t version = header.Number();
  // Size and count are for programs that inspect a pack. They aren't checked, so that a file that was cut short still
  // gives its complete entries.
  header.Number();
  header.Number();
  const std::string_view summed = bytes.substr(0, std::min(bytes.size(), pack_format::kHeaderSize - 4));
  if (header.Number() != pack_format::Checksum(summed) || !header.Ok() || version != pack_format::kVersion)
    return false;
  Cursor file(bytes.substr(pack_format::kHeaderSize));
  while (!file.AtEnd() && file.Ok()) {
    const std::string_view head = file.Take(pack_format::kEntrySize);
    Cursor entry(head);
    const std::uint32_t kind = entry.Number();
    const int id = entry.Int();
    const std::string_view payload = file.Take(entry.Number());
    if (!file.Ok()) break;
    const std::string checked = std::string(head.substr(0, pack_format::kEntrySize - 4)).append(payload);
    if (entry.Number() == pack_format::Checksum(checked)) Add(kind, id, payload);
  }
  return true;
}

void LanguagePack::Add(std::uint32_t kind, int id, std::string_view payload) {
  Cursor cursor(payload);
  switch (kind) {
    case pack_format::kText:
      texts_[id] = FromUtf8(payload);
      break;
    case pack_format::kMenu: {
      Text name = cursor.String();
      std::vector<MenuNode> nodes = ReadNodes(cursor, 0);
      if (cursor.Ok() && cursor.AtEnd()) menus_[std::move(name)] = std::move(nodes);
      break;
    }
    case pack_format::kDialog: {
      DialogTemplate dialog = ReadDialog(cursor, id);
      if (cursor.Ok() && cursor.AtEnd()) dialogs_[id] = std::move(dialog);
      break;
    }
    case pack_format::kBitmap:
      bitmaps_[id] = std::string(payload);
      break;
    default:  // An entry of a later version.
      break;
  }
}

const Text* LanguagePack::FindText(int id) const { return FindIn(texts_, id); }
const DialogTemplate* LanguagePack::FindDialog(int id) const { return FindIn(dialogs_, id); }
const std::string* LanguagePack::FindBitmap(int id) const { return FindIn(bitmaps_, id); }

const std::vector<LanguagePack::MenuNode>* LanguagePack::FindMenuNodes(TextView name) const {
  const auto found = menus_.find(name);
  return found == menus_.end() ? nullptr : &found->second;
}

}  // namespace pnl
