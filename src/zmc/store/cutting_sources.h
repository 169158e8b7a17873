// SPDX-License-Identifier: MIT
// The files of cutting data that have been read: each with its bytes and its parsed document. The bytes decide whether
// a document is still that of its file, not a date: a second program may write twice in one tick of the clock.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/files.h"
#include "zmc/store/cutting_document.h"
#include "zmc/store/cutting_result.h"

namespace pnl {

class CuttingSources {
 public:
  explicit CuttingSources(Files& files) : files_(files) {}

  /// The document of the file as it is now. It is valid until the next call.
  [[nodiscard]] CuttingResult<CuttingDocument*> Open(TextView path);
  /// Replaces the file by its document, which the caller has changed after Open. If that fails, the document is
  /// forgotten and the file stays as it was.
  [[nodiscard]] CuttingError Write(TextView path);

 private:
  struct Source {
    Text path;
    std::string bytes;
    std::unique_ptr<CuttingDocument> document;
  };
  [[nodiscard]] std::vector<Source>::iterator Find(TextView path);
  [[nodiscard]] CuttingResult<CuttingDocument*> Keep(TextView path, std::string bytes);

  Files& files_;
  std::vector<Source> kept_;
};

}  // namespace pnl
