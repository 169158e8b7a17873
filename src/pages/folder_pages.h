// SPDX-License-Identifier: MIT
// The pages of a document that is a folder of files, such as a PLC document. Names compare as Files compares them.
#pragma once

#include "base/files.h"
#include "pages/page_source.h"

namespace pnl {

class FolderPages final : public PageSource {
 public:
  /// folder is a panel path. files must outlive the object.
  FolderPages(const Files& files, Text folder) : files_(files), folder_(std::move(folder)) {}
  [[nodiscard]] const Text& Folder() const { return folder_; }

 protected:
  PageBytes Load(TextView page) override;

 private:
  const Files& files_;
  const Text folder_;
};

}  // namespace pnl
