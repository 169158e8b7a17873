// SPDX-License-Identifier: MIT
#include "help/manual/manual.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <unordered_set>
#include <utility>

#include "base/files.h"
#include "help/manual/code_page.h"
#include "help/manual/manual_names.h"
#include "help/manual/sitemap.h"

namespace pnl {
namespace {

constexpr std::uint64_t kMostSitemapBytes = 20'000'000;

/// The bytes of the object; nothing when the file doesn't have them all.
std::optional<std::string> ReadObject(const Descriptor& file, const ListedObject& object) {
  if (object.start > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max()) - object.size) return std::nullopt;
  std::string bytes(object.size, '\0');
  for (std::size_t done = 0; done < bytes.size();) {
    const auto at = static_cast<off_t>(object.start + done);
    const ssize_t got = pread(file.Get(), bytes.data() + done, bytes.size() - done, at);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return std::nullopt;
    done += static_cast<std::size_t>(got);
  }
  return bytes;
}

}  // namespace

Manual::Manual(Descriptor objects, ManualListing listing) : objects_(std::move(objects)), listing_(std::move(listing)) {
  for (std::size_t i = 0; i < listing_.objects.size(); ++i) byName_.try_emplace(ToUpper(listing_.objects[i].name), i);
}

std::shared_ptr<const Manual> Manual::Load(const std::string& folder) {
  const auto bytes = ReadHostFile(folder + "/" + ManualListing::kFile, ManualListing::kMostBytes);
  auto listing = bytes ? ReadManualListing(*bytes) : std::nullopt;
  if (!listing) return nullptr;
  // The constructor is private, so make_shared can't be used.
  Descriptor objects(open((folder + "/" + ManualListing::kObjectFile).c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
  const std::shared_ptr<Manual> manual(new Manual(std::move(objects), std::move(*listing)));
  manual->ReadContents();
  manual->ReadIndex();
  manual->OrderPages();
  manual->ChooseHome();
  manual->title_ = manual->listing_.title.empty() ? manual->home_ : manual->listing_.title;
  return manual;
}

/// The object that the manual names for a purpose, else the first one with the ending: many manuals name it only in
/// tables that the listing doesn't have.
std::optional<Text> Manual::SitemapFile(TextView named, TextView ending) const {
  if (!named.empty()) {
    if (auto found = Find(named)) return found;
  }
  for (const ListedObject& object : listing_.objects) {
    const TextView name = object.name;
    if (name.size() > ending.size() && EqualNoCase(name.substr(name.size() - ending.size()), ending))
      return object.name;
  }
  return std::nullopt;
}

void Manual::ReadContents() {
  const auto file = SitemapFile(listing_.contents, u".hhc");
  const auto markup = file ? ReadText(*file, kMostSitemapBytes) : std::nullopt;
  if (!markup) return;
  for (SitemapItem& item : ReadSitemap(*markup)) {
    ManualTopic topic{std::move(item.name), {}, item.depth};
    if (!item.topics.empty()) {
      topic.place = Resolve({}, item.topics.front().second);
      if (topic.title.empty()) topic.title = item.topics.front().second;
    }
    if (!topic.place.page.empty()) contentsLine_.try_emplace(topic.place.page, contents_.size());
    contents_.push_back(std::move(topic));
  }
}

void Manual::ReadIndex() {
  const auto file = SitemapFile(listing_.index, u".hhk");
  const auto markup = file ? ReadText(*file, kMostSitemapBytes) : std::nullopt;
  if (!markup) return;
  for (SitemapItem& item : ReadSitemap(*markup)) {
    ManualWord word{std::move(item.name), item.depth, {}};
    for (auto& [title, reference] : item.topics) {
      ManualPlace place = Resolve({}, reference);
      if (!place.page.empty()) word.topics.push_back({std::move(title), std::move(place), 0});
    }
    index_.push_back(std::move(word));
  }
}

void Manual::OrderPages() {
  std::unordered_set<Text> taken;
  const auto take = [this, &taken](const Text& page) {
    if (IsPageName(page) && taken.insert(page).second) pages_.push_back(page);
  };
  for (const ManualTopic& topic : contents_) take(topic.place.page);
  for (const ListedObject& object : listing_.objects) {
    // Of two names that differ in case alone only the first can be found.
    if (Find(object.name) == object.name) take(object.name);
  }
}

void Manual::ChooseHome() {
  if (!listing_.page.empty()) {
    home_ = Resolve({}, listing_.page).page;
    if (!home_.empty()) return;
  }
  const auto first = std::find_if(contents_.begin(), contents_.end(),
                                  [](const ManualTopic& topic) { return !topic.place.page.empty(); });
  if (first != contents_.end()) {
    home_ = first->place.page;
  } else if (!pages_.empty()) {
    home_ = pages_.front();
  }
}

Text Manual::ContentsTitleOf(TextView page) const {
  const auto found = Find(page);
  const auto line = found ? contentsLine_.find(*found) : contentsLine_.end();
  return line != contentsLine_.end() ? contents_[line->second].title : Text();
}

const ListedObject* Manual::ObjectOf(TextView name) const {
  // A name as the manual has it needs no resolving, and may contain what would mean something in a reference.
  auto found = byName_.find(ToUpper(name));
  if (found == byName_.end()) {
    const auto reference = ResolveManualReference({}, name);
    if (!reference) return nullptr;
    found = byName_.find(ToUpper(reference->name));
  }
  return found == byName_.end() ? nullptr : &listing_.objects[found->second];
}

std::optional<Text> Manual::Find(TextView name) const {
  const ListedObject* object = ObjectOf(name);
  return object == nullptr ? std::nullopt : std::optional(object->name);
}

ManualPlace Manual::Resolve(TextView from, TextView reference) const {
  const auto resolved = ResolveManualReference(from, reference);
  const auto found = resolved ? byName_.find(ToUpper(resolved->name)) : byName_.end();
  if (found == byName_.end()) return {};
  return {listing_.objects[found->second].name, resolved->anchor};
}

std::optional<std::string> Manual::Read(TextView name, std::uint64_t most) const {
  const ListedObject* object = ObjectOf(name);
  if (object == nullptr || object->size > most) return std::nullopt;
  return ReadObject(objects_, *object);
}

std::optional<Text> Manual::ReadText(TextView name, std::uint64_t most) const {
  const auto bytes = Read(name, most);
  return bytes ? std::optional(DecodePage(*bytes, listing_.codePage)) : std::nullopt;
}

bool Manual::IsComplete() const {
  struct stat info {};
  if (fstat(objects_.Get(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
  const auto size = static_cast<std::uint64_t>(info.st_size);
  return std::all_of(listing_.objects.begin(), listing_.objects.end(), [size](const ListedObject& object) {
    return object.start <= size && object.size <= size - object.start;
  });
}

}  // namespace pnl
