// SPDX-License-Identifier: MIT
// What somebody asks of the file explorer, as the panel sees it: a request, the record that carries it, and panel
// paths, which have a drive and backslashes. It knows neither the explorer nor a widget.
#pragma once

#include <pnltools/pnltools.h>

#include <QString>
#include <functional>

namespace panel {

/// Turns a panel path into a host path; empty when the drive isn't mapped.
using PathResolver = std::function<QString(const QString& panelPath)>;

/// Whether the path leads to the network, "\\server\share\file", and not to a drive.
[[nodiscard]] inline bool IsNetworkPath(const QString& panelPath) {
  return panelPath.startsWith(QLatin1String("\\\\"));
}

struct FileRequest {
  QString title;  // empty: the explorer's own
  QString folder;
  QString file;
  QString filter = QStringLiteral("*");  // patterns separated by commas
  QString extension;                     // without the point; empty or "*" for none
  quint32 flags = 0;                     // XPLR_...
};

/// Asks the operator for a file or a folder.
class FileAsker {
 public:
  using Accepted = std::function<void(const QString& folder, const QString& file)>;
  using Left = std::function<void()>;

  virtual ~FileAsker() = default;
  /// There is one request at a time: an earlier one is left first. accepted gets the folder without a trailing
  /// backslash, and the name in it; left is called when there is none. One of the two is called, once.
  virtual void Ask(const FileRequest& request, Accepted accepted, Left left) = 0;
};

/// Fills a record for a request. A text that is too long for its field is left out. Owner stays as it is.
void Fill(XPLRDATA_ST& record, const FileRequest& request);
/// A field of a record up to its terminator or its end.
[[nodiscard]] QString FolderOf(const XPLRDATA_ST& record);
[[nodiscard]] QString FileOf(const XPLRDATA_ST& record);

/// Joins "C:\A" and "B" to "C:\A\B". A drive alone keeps its only backslash.
[[nodiscard]] QString JoinPath(const QString& folder, const QString& name);
/// Returns the folder above; for a drive, the drive itself.
[[nodiscard]] QString FolderAbove(const QString& folder);

}  // namespace panel
