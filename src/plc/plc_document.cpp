// SPDX-License-Identifier: MIT
#include "plc/plc_document.h"

#include <optional>

#include "base/format.h"

namespace pnl {
namespace {

/// The extensions in one text. The place at which an extension is found in it decides its kind, so the beginning of one
/// counts as well: "a.h" is a page and "a.b" a picture.
constexpr TextView kExtensions = u"TXT AVI BMP JPG GIF HTM HTML";

struct KindRow {
  std::size_t place;
  DocumentKind kind;
};
/// Any other place counts as place 0, and so does an extension that isn't found.
constexpr KindRow kKinds[] = {
    {4, DocumentKind::kVideo}, {8, DocumentKind::kPicture}, {12, DocumentKind::kPage},
    {16, DocumentKind::kPage}, {20, DocumentKind::kPage},   {24, DocumentKind::kPage},
};

TextView BeforeHash(TextView reference) { return reference.substr(0, reference.find(u'#')); }

bool HasFolder(TextView reference) { return BeforeHash(reference).find_first_of(u"\\/:") != TextView::npos; }

}  // namespace

DocumentKind DocumentReference::Kind() const {
  const std::size_t place = kExtensions.find(extension);
  for (const KindRow& row : kKinds) {
    if (row.place == place) return row.kind;
  }
  return number == kNoNumber ? DocumentKind::kPage : DocumentKind::kText;
}

Text DocumentReference::Folder() const {
  const std::size_t end = path.find_last_of(u"\\/");
  return end == Text::npos ? Text() : path.substr(0, end);
}

DocumentReference SplitReference(TextView reference) {
  DocumentReference parts;
  parts.path = Text(BeforeHash(reference));
  if (parts.path.size() < reference.size()) parts.anchor = Text(reference.substr(parts.path.size() + 1));
  const TextView name = FileNameOf(parts.path);
  const std::size_t point = name.rfind(u'.');
  if (point != TextView::npos) parts.extension = ToUpper(Text(name.substr(point + 1)));
  if (const auto help = ParseHelpReference(u"f#" + parts.anchor)) parts.number = help->number;
  return parts;
}

bool IsReadable(const Files& files, TextView reference) {
  return files.OpenRead(BeforeHash(reference), nullptr) != nullptr;
}

Text ResolveFile(const Files& files, Utilities& utilities, TextView reference) {
  if (reference.empty() || HasFolder(reference)) return Text(reference);
  for (const Text& folder : PlacesOfFile(utilities, reference)) {
    Text path = Format(u"%s\\%s", folder, reference);
    if (IsReadable(files, path)) return path;
  }
  return Text(reference);
}

std::vector<Text> PlacesOfFile(Utilities& utilities, TextView reference) {
  if (HasFolder(reference)) {
    const Text folder = SplitReference(reference).Folder();
    return {folder.empty() ? Text(BeforeHash(reference)) : folder};
  }
  return {utilities.Get7340Path(path_id::kPlcFiles), utilities.Get7340Path(path_id::kLanguage)};
}

}  // namespace pnl
