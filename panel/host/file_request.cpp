// SPDX-License-Identifier: MIT
#include "host/file_request.h"

#include <algorithm>
#include <iterator>

namespace panel {
namespace {

template <std::size_t N>
QString FromField(const char16_t (&field)[N]) {
  const auto* end = std::find(std::begin(field), std::end(field), u'\0');
  return QString::fromUtf16(field, end - std::begin(field));
}

template <std::size_t N>
void Put(const QString& text, char16_t (&field)[N]) {
  std::fill(std::begin(field), std::end(field), u'\0');
  if (text.size() < static_cast<qsizetype>(N)) std::copy_n(text.utf16(), text.size(), std::begin(field));
}

QString WithoutTrailing(QString folder) {
  while (folder.size() > 1 && folder.endsWith(QLatin1Char('\\'))) folder.chop(1);
  return folder;
}

}  // namespace

void Fill(XPLRDATA_ST& record, const FileRequest& request) {
  Put(request.title, record.Title);
  Put(request.folder, record.Path);
  Put(request.file, record.File);
  Put(request.filter, record.Filter);
  Put(request.extension, record.Extension);
  record.Flags = request.flags;
}

QString FolderOf(const XPLRDATA_ST& record) { return FromField(record.Path); }

QString FileOf(const XPLRDATA_ST& record) { return FromField(record.File); }

QString JoinPath(const QString& folder, const QString& name) {
  return folder.endsWith(QLatin1Char('\\')) ? folder + name : folder + QLatin1Char('\\') + name;
}

QString FolderAbove(const QString& folder) {
  const QString trimmed = WithoutTrailing(folder);
  const auto cut = trimmed.lastIndexOf(QLatin1Char('\\'));
  if (cut < 0) return JoinPath(trimmed, QString());
  // "C:\A" goes to "C:\", "C:\A\B" to "C:\A".
  return cut == trimmed.indexOf(QLatin1Char(':')) + 1 ? trimmed.left(cut + 1) : trimmed.left(cut);
}

}  // namespace panel
