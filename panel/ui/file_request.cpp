// SPDX-License-Identifier: MIT
#include "ui/file_request.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace panel {
namespace {

constexpr int kLongestName = 255;

template <std::size_t N>
QString FromField(const char16_t (&field)[N]) {
  const auto* end = std::find(std::begin(field), std::end(field), u'\0');
  return QString::fromUtf16(field, end - std::begin(field));
}

QString WithoutTrailing(QString folder) {
  while (folder.size() > 1 && folder.endsWith(QLatin1Char('\\'))) folder.chop(1);
  return folder;
}

bool IsBadName(const QString& name) {
  static const QString forbidden = QStringLiteral("\\/:*?\"<>|");
  if (name == QLatin1String(".") || name == QLatin1String("..") || name.size() > kLongestName) return true;
  return std::any_of(name.begin(), name.end(), [](QChar c) { return c < QChar(u' ') || forbidden.contains(c); });
}

QString WithExtension(const FileRequest& request, const QString& name) {
  const bool wanted = !request.extension.isEmpty() && request.extension != QLatin1String("*");
  return wanted && !name.contains(QLatin1Char('.')) ? name + QLatin1Char('.') + request.extension : name;
}

NameAnswer Wrong(Word problem) {
  NameAnswer answer;
  answer.problem = problem;
  return answer;
}

NameAnswer CheckFolder(const FileRequest& request, const PathResolver& resolve, const QString& folder,
                       const QString& name) {
  NameAnswer answer;
  answer.folder = WithoutTrailing(name.isEmpty() ? folder : JoinPath(folder, name));
  answer.file = answer.folder.section(QLatin1Char('\\'), -1);
  const QString path = resolve(answer.folder);
  if (path.isEmpty()) return Wrong(Word::kFolderMissing);
  const QFileInfo info(path);
  if (info.isDir()) return answer;
  if (info.exists() || (request.flags & XPLR_MUSTEXIST) == 0) return Wrong(Word::kFolderMissing);
  answer.mustMake = true;
  return answer;
}

}  // namespace

FileRequest RequestFrom(const XPLRDATA_ST& record) {
  return {FromField(record.Title),  FromField(record.Path),      FromField(record.File),
          FromField(record.Filter), FromField(record.Extension), record.Flags};
}

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

QString NearestFolder(const PathResolver& resolve, const QString& folder) {
  QString at = folder.contains(QLatin1Char(':')) ? folder : QStringLiteral("C:\\");
  for (;;) {
    const QString path = resolve(at);
    if (!path.isEmpty() && QFileInfo(path).isDir()) return at;
    const QString above = FolderAbove(at);
    if (above == at) return at;
    at = above;
  }
}

std::optional<QList<FolderEntry>> ListFolder(const PathResolver& resolve, const QString& folder,
                                             const QString& filter) {
  const QString path = resolve(folder);
  const QFileInfo info(path);
  if (path.isEmpty() || !info.isDir() || !info.isReadable()) return std::nullopt;
  const QDir dir(path);
  constexpr auto kOrder = QDir::Name | QDir::IgnoreCase;
  QList<FolderEntry> entries;
  for (const QString& name : dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, kOrder)) entries.append({name, true});
  QStringList patterns;
  for (const QString& pattern : filter.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
    // "*.*" means every file, one without a point too.
    patterns << (pattern.trimmed() == QLatin1String("*.*") ? QStringLiteral("*") : pattern.trimmed());
  }
  for (const QString& name : dir.entryList(patterns, QDir::Files, kOrder)) entries.append({name, false});
  return entries;
}

NameAnswer CheckName(const FileRequest& request, const PathResolver& resolve, const QString& folder,
                     const QString& name) {
  const QString trimmed = name.trimmed();
  if (IsBadName(trimmed)) return Wrong(Word::kNameBad);
  if ((request.flags & XPLR_FOLDERMODE) != 0) return CheckFolder(request, resolve, folder, trimmed);
  if (trimmed.isEmpty()) return Wrong(Word::kNameMissing);
  NameAnswer answer;
  answer.folder = WithoutTrailing(folder);
  answer.file = WithExtension(request, trimmed);
  const QString title = answer.file.section(QLatin1Char('.'), 0, -2);
  if ((request.flags & XPLR_NOBLANKS) != 0 && (title.isEmpty() ? answer.file : title).contains(QLatin1Char(' '))) {
    return Wrong(Word::kNameBlank);
  }
  const QString parent = resolve(folder);
  if (parent.isEmpty() || !QFileInfo(parent).isDir()) return Wrong(Word::kFolderMissing);
  const QFileInfo file(resolve(JoinPath(folder, answer.file)));
  if (file.isDir()) return Wrong(Word::kNameBad);
  if (!file.exists()) {
    if ((request.flags & XPLR_MUSTEXIST) != 0) return Wrong(Word::kFileMissing);
    return answer;
  }
  if ((request.flags & XPLR_NOREADONLY) != 0 && !(file.permissions() & QFileDevice::WriteOwner)) {
    return Wrong(Word::kFileReadOnly);
  }
  answer.mustConfirm = (request.flags & XPLR_CONFIRMOVERWRITE) != 0;
  return answer;
}

}  // namespace panel
