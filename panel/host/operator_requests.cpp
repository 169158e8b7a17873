// SPDX-License-Identifier: MIT
// A tool's request for a file: the record that describes it, and the answer to it.
#include <sys/stat.h>

#include <algorithm>

#include "host/operator.h"

namespace panel {
namespace {

template <std::size_t N>
bool Fits(const QString& text, const char16_t (&)[N]) {
  return text.size() < static_cast<qsizetype>(N);
}

template <std::size_t N>
void Put(const QString& text, char16_t (&field)[N]) {
  std::fill(std::begin(field), std::end(field), u'\0');
  std::copy_n(text.utf16(), text.size(), std::begin(field));
}

/// Facts of a file that change whenever it is written or replaced.
struct FileStamp {
  bool there = false;
  ino_t number = 0;
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;
  bool operator==(const FileStamp&) const = default;
};

FileStamp StampOf(const std::optional<std::string>& hostPath) {
  struct stat facts {};
  if (!hostPath || ::stat(hostPath->c_str(), &facts) != 0) return {};
  return {true, facts.st_ino, facts.st_mtim.tv_sec, facts.st_mtim.tv_nsec};
}

}  // namespace

XPLRDATA_ST* Operator::Request() const {
  return static_cast<XPLRDATA_ST*>(PnlResolveRecord(static_cast<std::int32_t>(Int(u"E.XPLRDATA"))));
}

PnlWindow Operator::Asker() const {
  constexpr int kOwnerBase = 1000;
  const XPLRDATA_ST* request = Request();
  const PnlWindow owner = request == nullptr ? 0 : session_.ToolWindow(request->Owner - kOwnerBase);
  return owner != 0 ? owner : session_.ToolWindow(PNL_TOOL_MDI);
}

bool Operator::AcceptFile(const QString& folder, const QString& file) {
  XPLRDATA_ST* request = Request();
  if (request == nullptr) {
    SetHint(Say(Word::kNoRequest), true);
    EndRequest(false);
    return false;
  }
  if (!Fits(folder, request->Path) || !Fits(file, request->File)) {
    // Without this the asker would wait for ever for an answer that can't be given.
    SetHint(Say(Word::kNameBad), true);
    EndRequest(false);
    return false;
  }
  Put(folder, request->Path);
  Put(file, request->File);
  const QString path = folder + (folder.endsWith(QLatin1Char('\\')) ? QString() : QStringLiteral("\\")) + file;
  const auto host = rig_ == nullptr ? std::nullopt : rig_->Files().HostPath(path.toStdU16String());
  const FileStamp before = StampOf(host);
  EndRequest(true);
  // The asker reports a failure in a box of its own. Only the panel reports success.
  const FileStamp after = StampOf(host);
  if (after.there && after != before) SetHint(Say(Word::kSaved, path));
  return true;
}

void Operator::CancelFile() { EndRequest(false); }

void Operator::EndRequest(bool accepted) {
  if (!asked_) return;
  asked_ = false;
  const PnlWindow asker = Asker();
  PnlSendMessage(asker, PNL_MSG_RESULT_READY, accepted ? PNL_READY_FILE : PNL_READY_EXPLORER_LEFT, 0);
  if (!accepted) PnlSendMessage(asker, PNL_MSG_EXPLORER_ENDED, PNL_TOOL_EXPLORER, PNL_CLOSED);
  emit ChooserGone();
  Touch();
}

}  // namespace panel
