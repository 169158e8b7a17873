// SPDX-License-Identifier: MIT
#include "calc/calc_history.h"

#include <utility>

#include "base/format.h"
#include "base/text_file.h"

namespace pnl {

namespace {

constexpr char16_t kByteOrderMark = u'\uFEFF';

}  // namespace

Text CalcHistory::Path() const { return Format(u"%s\\calc.htr", utilities_.Get7340Path(path_id::kCalcHistory)); }

std::vector<Text> CalcHistory::Load() {
  std::vector<Text> rows;
  const Text path = Path();
  CStdioFileEx file(files_);
  if (!file.Open(path, CStdioFileEx::kRead)) {
    unreadable_ = files_.Query(path).exists;
    return rows;
  }
  Text row;
  while (file.ReadString(row)) rows.push_back(std::move(row));
  unreadable_ = file.ReadFailed();
  return rows;
}

void CalcHistory::Save(const std::vector<Text>& rows) const {
  if (rows.empty() || unreadable_) return;
  CStdioFileEx file(files_);
  if (!file.Open(Path(), CStdioFileEx::kCreate)) return;
  // Reading drops one mark at the file's start, so a row that begins with one gets another before it.
  if (rows.front().starts_with(kByteOrderMark)) file.WriteString(TextView(&kByteOrderMark, 1));
  for (const Text& row : rows) {
    // What a row can't hold, because it would be two when it is read again, is a blank in the file.
    Text line = row;
    for (char16_t& c : line) c = c == u'\r' || c == u'\n' ? u' ' : c;
    file.WriteString(line + u"\r\n");
  }
  static_cast<void>(file.Close());
}

}  // namespace pnl
