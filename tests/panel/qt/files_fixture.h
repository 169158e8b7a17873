// SPDX-License-Identifier: MIT
// Files of the panel in a folder of one test.
#pragma once

#include <gtest/gtest.h>

#include <QFile>

#include "host/file_request.h"
#include "support/temp_folder.h"

namespace panel {

/// Drive C: on a folder of this test.
class FilesTest : public ::testing::Test {
 protected:
  [[nodiscard]] PathResolver Resolver() const {
    const QString root = QString::fromStdString(folder_.Path().string());
    return [root](const QString& path) {
      if (!path.startsWith("C:")) return QString();
      return root + QString(path.mid(2)).replace('\\', '/');
    };
  }
  [[nodiscard]] QString Host(const char* name) const {
    return QString::fromStdString((folder_.Path() / name).string());
  }
  void Protect(const char* name) const { QFile::setPermissions(Host(name), QFileDevice::ReadOwner); }

  pnl::test::TempFolder folder_;
};

}  // namespace panel
