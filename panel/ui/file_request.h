// SPDX-License-Identifier: MIT
// What a file chooser is asked for, and the rules by which a name answers it. Folders are the panel's own paths with
// drive and backslashes; a resolver makes paths of this machine of them. No widget here.
#pragma once

#include <pnltools/pnltools.h>

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "common/words.h"

namespace panel {

/// A path of this machine for a panel path; empty when the drive isn't mapped.
using PathResolver = std::function<QString(const QString& panelPath)>;

struct FileRequest {
  QString title;
  QString folder;
  QString file;
  QString filter = QStringLiteral("*");  // patterns parted by commas
  QString extension;                     // without point; empty or "*" for none
  quint32 flags = 0;                     // XPLR_...
};

[[nodiscard]] FileRequest RequestFrom(const XPLRDATA_ST& record);

struct FolderEntry {
  QString name;
  bool folder = false;
  bool operator==(const FolderEntry&) const = default;
};

/// Folders first, then the files that the filter lets through, by name without regard to case. Nothing for a folder
/// that can't be read.
[[nodiscard]] std::optional<QList<FolderEntry>> ListFolder(const PathResolver& resolve, const QString& folder,
                                                           const QString& filter);

/// "C:\A" and "B" make "C:\A\B"; a drive keeps its only backslash.
[[nodiscard]] QString JoinPath(const QString& folder, const QString& name);
/// The folder above; the drive itself has none and answers itself.
[[nodiscard]] QString FolderAbove(const QString& folder);
/// folder, or the nearest above it that can be listed.
[[nodiscard]] QString NearestFolder(const PathResolver& resolve, const QString& folder);

/// What a name comes to.
struct NameAnswer {
  std::optional<Word> problem;
  QString folder;            // without a trailing backslash
  QString file;              // with the extension of the request
  bool mustConfirm = false;  // it exists and the asker wants to be sure
  bool mustMake = false;     // a folder that has to be made first
};
[[nodiscard]] NameAnswer CheckName(const FileRequest& request, const PathResolver& resolve, const QString& folder,
                                   const QString& name);

}  // namespace panel
