// SPDX-License-Identifier: MIT
// A request for a file, and the rules that check a name against it. Folders are panel paths with drive and backslashes;
// a resolver turns them into host paths. It knows no widget.
#pragma once

#include <pnltools/pnltools.h>

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "common/words.h"

namespace panel {

/// Turns a panel path into a host path; empty when the drive isn't mapped.
using PathResolver = std::function<QString(const QString& panelPath)>;

struct FileRequest {
  QString title;
  QString folder;
  QString file;
  QString filter = QStringLiteral("*");  // patterns separated by commas
  QString extension;                     // without the point; empty or "*" for none
  quint32 flags = 0;                     // XPLR_...
};

[[nodiscard]] FileRequest RequestFrom(const XPLRDATA_ST& record);

struct FolderEntry {
  QString name;
  bool folder = false;
  bool operator==(const FolderEntry&) const = default;
};

/// Lists a folder: first its folders, then the files that match the filter, each by name without regard to case.
/// Nothing when the folder can't be read.
[[nodiscard]] std::optional<QList<FolderEntry>> ListFolder(const PathResolver& resolve, const QString& folder,
                                                           const QString& filter);

/// Joins "C:\A" and "B" to "C:\A\B". A drive alone keeps its only backslash.
[[nodiscard]] QString JoinPath(const QString& folder, const QString& name);
/// Returns the folder above; for a drive, the drive itself.
[[nodiscard]] QString FolderAbove(const QString& folder);
/// Returns folder, or the nearest folder above it that exists. Without a drive it starts at "C:\".
[[nodiscard]] QString NearestFolder(const PathResolver& resolve, const QString& folder);

/// The result of checking a name: a problem, or the folder and file that it means.
struct NameAnswer {
  std::optional<Word> problem;
  QString folder;            // without a trailing backslash
  QString file;              // with the extension of the request
  bool mustConfirm = false;  // the file exists and the request wants a confirmation
  bool mustMake = false;     // the folder doesn't exist yet and has to be made
};
[[nodiscard]] NameAnswer CheckName(const FileRequest& request, const PathResolver& resolve, const QString& folder,
                                   const QString& name);

}  // namespace panel
