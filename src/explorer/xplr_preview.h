// SPDX-License-Identifier: MIT
// The first lines of the selected file, beside the list. They are read on another thread, at most 4 kB of them; what
// comes for a file that isn't selected any more is dropped. A folder has none, nor has a file that isn't text.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "explorer/xplr_jobs.h"
#include "explorer/xplr_rows.h"
#include "explorer/xplr_view.h"

namespace pnl {

inline constexpr std::size_t kPreviewLines = 12;
inline constexpr std::size_t kPreviewBytes = 4096;
/// From this width of the explorer on there is a preview.
inline constexpr int kPreviewFromWidth = 1200;

/// The first lines of a text file, without control characters. bytes is its beginning; whole says that it is all of it.
/// None when the text has a NUL character.
[[nodiscard]] std::vector<Text> FirstLines(std::string_view bytes, bool whole);

class XplrPreview {
 public:
  XplrPreview(const Places& places, XplrJobs& jobs, XplrViewAccess view)
      : places_(places), jobs_(jobs), view_(std::move(view)) {}

  /// Whether there is room for it.
  void SetThere(bool there);
  /// A row of the folder is selected, or with null none. A row that is shown already is not read again.
  void OnSelected(const Text& folder, const XplrRow* row);

 private:
  struct Wanted {
    Text path;
    Text name;
    std::int32_t length = 0;
    std::int64_t written = XplrRow::kNoTime;
    friend bool operator==(const Wanted&, const Wanted&) = default;
  };
  void Begin();
  void Show(std::vector<Text> lines);

  const Places& places_;
  XplrJobs& jobs_;
  const XplrViewAccess view_;
  bool there_ = false;
  bool filled_ = false;  // something is shown
  Wanted wanted_;
  JobId reading_ = 0;
};

}  // namespace pnl
