// SPDX-License-Identifier: MIT
#include "help/manual_shelf.h"

#include <cstdlib>
#include <optional>
#include <utility>

#include "help/manual/manual_names.h"

namespace pnl {

PageAddress ManualPages::AddressOf(TextView page, TextView reference) const {
  PageAddress address = ResolvePageAddress(page, reference);
  if (address.refusal == PageRefusal::kNone) return address;
  // A page of the same name in another manual is another page.
  const Text named = ManualNamedIn(reference);
  if (!named.empty() && !EqualNoCase(named, name_)) return address;
  const ManualPlace place = manual_->Resolve(page, reference);
  return place.page.empty() ? address : PageAddress{PageRefusal::kNone, place.page, place.anchor};
}

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
  Text name(FileNameOf(manual));
  return opener_.Open(*path, [this, name = std::move(name), done = std::move(done)](const OpenedManual& opened) {
    OpenedBook book{opened.state, nullptr};
    if (opened.manual != nullptr) book.book = std::make_shared<ManualBook>(worker_, opened.manual, name);
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
