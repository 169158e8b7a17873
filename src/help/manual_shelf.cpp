// SPDX-License-Identifier: MIT
#include "help/manual_shelf.h"

#include <cstdlib>
#include <optional>
#include <utility>

#include "help/manual/manual_names.h"

namespace pnl {

PageBytes ManualPages::Load(TextView page) {
  if (!manual_->Find(page)) return {PageRefusal::kNotFound, {}};
  if (IsPageName(page)) {
    const std::optional<Text> text = manual_->ReadText(page);
    if (text) return {PageRefusal::kNone, ToUtf8(*text)};
    return {PageRefusal::kUnreadable, {}};
  }
  std::optional<std::string> bytes = manual_->Read(page);
  if (bytes) return {PageRefusal::kNone, std::move(*bytes)};
  return {PageRefusal::kUnreadable, {}};
}

bool ManualShelf::Open(TextView manual, std::function<void(const OpenedBook&)> done) {
  const std::optional<std::string> path = files_.HostPath(manual);
  if (!path) {
    Drop();
    return false;
  }
  return opener_.Open(*path, [this, done = std::move(done)](const OpenedManual& opened) {
    OpenedBook book{opened.state, nullptr};
    if (opened.manual != nullptr) book.book = std::make_shared<ManualBook>(worker_, opened.manual);
    done(book);
  });
}

std::unique_ptr<HelpShelf> MakeManualShelf(Worker& worker, const Files& files, const std::string& libraryFile) {
  auto extractor = std::make_shared<ProgramExtractor>(ExtractorBeside(libraryFile));
  std::string folder = ManualCacheFolder(std::getenv("XDG_CACHE_HOME"), std::getenv("HOME"));
  return std::make_unique<ManualShelf>(worker, files,
                                       std::make_shared<const ManualCache>(std::move(folder), std::move(extractor)));
}

}  // namespace pnl
