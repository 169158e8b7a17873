// SPDX-License-Identifier: MIT
#include "host/file_request.h"

#include "common/record_fields.h"

namespace panel {
namespace {

QString WithoutTrailing(QString folder) {
  while (folder.size() > 1 && folder.endsWith(QLatin1Char('\\'))) folder.chop(1);
  return folder;
}

}  // namespace

void Fill(XPLRDATA_ST& record, const FileRequest& request) {
  PutIntoField(request.title, record.Title);
  PutIntoField(request.folder, record.Path);
  PutIntoField(request.file, record.File);
  PutIntoField(request.filter, record.Filter);
  PutIntoField(request.extension, record.Extension);
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
