// SPDX-License-Identifier: MIT
#include "help/manual/chm/reader.h"

#include <chm_lib.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "base/descriptor.h"
#include "base/files.h"
#include "help/manual/chm/confinement.h"
#include "help/manual/chm/limits.h"
#include "help/manual/chm/reports.h"
#include "help/manual/chm_system.h"
#include "help/manual/manual_names.h"

namespace pnl::chm {
namespace {

constexpr std::size_t kPieceBytes = 262'144;
constexpr std::size_t kMostSystemBytes = 60'000;
constexpr std::size_t kMostMarkupBytes = 10'000'000;  // of which references are followed
constexpr int kCachedBlocks = 64;

class Reader {
 public:
  Reader(ReaderTask task, chmFile* file, Descriptor objects)
      : task_(std::move(task)), file_(file), objects_(std::move(objects)) {
    chm_set_param(file_, CHM_PARAM_MAX_BLOCKS_CACHED, kCachedBlocks);
  }

  void Run() {
    if (task_.stage <= stage::kKnown) QueueKnown();
    if (task_.stage <= stage::kListing) QueueListed();
    while (!task_.queue.IsEmpty() && UnpackNext()) {
    }
    Send(Report::kDone);
  }

 private:
  using Unit = chmUnitInfo;

  static int TakeListed(chmFile* /*file*/, Unit* unit, void* context) {
    auto* const listed = static_cast<std::vector<Unit>*>(context);
    listed->push_back(*unit);
    return listed->size() < kMostListed ? CHM_ENUMERATOR_CONTINUE : CHM_ENUMERATOR_SUCCESS;
  }

  /// Queues what the manual names first, and what it usually has.
  void QueueKnown() {
    Send(Report::kStage);
    const std::string title = ToUtf8(FileTitleOf(FromUtf8(task_.manual)));
    for (const char* ending : {".hhc", ".hhk", ".htm", ".html"}) {
      Queue("/" + title + ending);
      Queue(std::string("/index") + ending);
    }
    Unit unit{};
    if (chm_resolve_object(file_, "/#SYSTEM", &unit) != CHM_RESOLVE_SUCCESS) return;
    unit.length = std::min<LONGUINT64>(unit.length, kMostSystemBytes);
    const auto bytes = ReadObject(unit);
    if (!bytes) {
      Send(Report::kUnreadable);
      return;
    }
    Send(Report::kSystem, *bytes);
    const ChmSystem system = ParseChmSystem(*bytes);
    for (const std::string& name : {system.contents, system.index, system.page}) QueueReference({}, DecodeFile(name));
  }

  /// Queues what the manual lists, in the order of its data: decompressing goes forward then.
  void QueueListed() {
    Send(Report::kStage);
    std::vector<Unit> listed;
    const int result = chm_enumerate(file_, CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES, TakeListed, &listed);
    std::stable_sort(listed.begin(), listed.end(), [](const Unit& a, const Unit& b) {
      return a.space != b.space ? a.space < b.space : a.start < b.start;
    });
    for (const Unit& unit : listed) {
      const std::string name = unit.path;
      if (!NameOfObject(name)) {
        Send(Report::kRefused);
      } else if (units_.try_emplace(ToUpper(DecodeFile(name)), unit).second) {
        Queue(name);
      }
    }
    if (listed.size() >= kMostListed) Send(Report::kTooLarge);
    // A list that breaks off is damage, even if every object before it can be read.
    if (result == 0) Send(Report::kUnreadable);
  }

  void Queue(const std::string& object) {
    if (task_.queue.Add(object)) Send(Report::kQueued, object);
  }

  void QueueReference(TextView from, TextView reference) {
    const auto resolved = ResolveManualReference(from, reference);
    if (resolved && IsManualName(resolved->name)) Queue("/" + ToUtf8(resolved->name));
  }

  /// Returns false when there is no use in going on.
  bool UnpackNext() {
    const std::string object = task_.queue.Take();
    Send(Report::kTrying);
    const auto unit = UnitOf(object);
    if (!unit) {
      Send(Report::kAbsent);
      return true;
    }
    if (unit->length > kMostObjectBytes) {
      Send(Report::kTooLarge);
      return true;
    }
    if (task_.objects >= kMostObjects || task_.bytes + unit->length > kMostBytes) {
      Send(Report::kTooLarge);
      return false;
    }
    const auto bytes = ReadObject(*unit);
    if (!bytes) {
      Send(Report::kUnreadable);
      return true;
    }
    return Store(unit->path, *bytes);
  }

  std::optional<Unit> UnitOf(const std::string& object) const {
    if (const auto found = units_.find(ToUpper(DecodeFile(object))); found != units_.end()) return found->second;
    Unit unit{};
    if (chm_resolve_object(file_, object.c_str(), &unit) != CHM_RESOLVE_SUCCESS) return std::nullopt;
    return unit;
  }

  std::optional<std::string> ReadObject(const Unit& unit) const {
    std::string bytes;
    Unit copy = unit;
    while (bytes.size() < unit.length) {
      // Grows with what is there: the length is only what the manual says.
      const std::size_t piece = std::min<std::size_t>(unit.length - bytes.size(), kPieceBytes);
      const std::size_t before = bytes.size();
      bytes.resize(before + piece);
      auto* const buffer = reinterpret_cast<unsigned char*>(bytes.data() + before);
      const LONGINT64 got = chm_retrieve_object(file_, &copy, buffer, before, static_cast<LONGINT64>(piece));
      if (got <= 0 || static_cast<std::size_t>(got) > piece) return std::nullopt;
      bytes.resize(before + static_cast<std::size_t>(got));
    }
    return bytes;
  }

  bool Store(const std::string& object, const std::string& bytes) {
    const auto name = NameOfObject(object);
    if (!name) {
      Send(Report::kRefused);
      return true;
    }
    if (!Write(bytes)) {
      Send(Report::kNoRoom);
      return false;
    }
    Send(Report::kUnpacked, NumberBytes(bytes.size()) + NumberBytes(task_.bytes) + ToUtf8(*name));
    ++task_.objects;
    task_.bytes += bytes.size();
    QueueReferences(*name, bytes);
    return true;
  }

  /// Writes after what is reported already. What a crashed reader wrote beyond that is overwritten.
  [[nodiscard]] bool Write(const std::string& bytes) const {
    for (std::size_t done = 0; done < bytes.size();) {
      const auto at = static_cast<off_t>(task_.bytes + done);
      const ssize_t written = pwrite(objects_.Get(), bytes.data() + done, bytes.size() - done, at);
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) return false;
      done += static_cast<std::size_t>(written);
    }
    return true;
  }

  /// Whatever the listing left out is found by its name.
  void QueueReferences(const Text& name, const std::string& bytes) {
    if (bytes.size() > kMostMarkupBytes) return;
    if (!IsPageName(name) && !IsStyleName(name) && !IsSitemapName(name)) return;
    const TextView from = IsSitemapName(name) ? TextView() : TextView(name);
    for (const Text& reference : ReferencesOf(name, DecodeFile(bytes))) QueueReference(from, reference);
  }

  void Send(Report report, std::string_view bytes = {}) const {
    if (!SendReport(task_.pipe, report, bytes)) _exit(1);
  }

  ReaderTask task_;
  chmFile* file_;
  Descriptor objects_;
  std::unordered_map<Text, Unit> units_;  // what was listed, by the capitals of its name
};

}  // namespace

int RunReader(ReaderTask task) {
  Descriptor objects(open(task.file.c_str(), O_WRONLY | O_NOFOLLOW | O_CLOEXEC));
  if (!objects || !Confine({task.manual, kMemory, kMostBytes, kProcessorSeconds})) return 1;
  const std::unique_ptr<chmFile, void (*)(chmFile*)> file(chm_open(task.manual.c_str()), chm_close);
  if (!file || !SendReport(task.pipe, Report::kOpened)) return 1;
  Reader(std::move(task), file.get(), std::move(objects)).Run();
  return 0;
}

}  // namespace pnl::chm
