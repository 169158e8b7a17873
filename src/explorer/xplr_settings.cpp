// SPDX-License-Identifier: MIT
#include "explorer/xplr_settings.h"

#include "base/format.h"

namespace pnl {
namespace {

constexpr TextView kSection = u"PRIVATE";
constexpr TextView kSortKey = u"PrgSort";
constexpr TextView kPinKey = u"PinnedFolder";
/// The room of the answer to "Test", its terminator included.
constexpr std::size_t kRoomForTest = 20;

enum class QualityTest { kUnknown, kYes, kNo };
QualityTest qualityTest = QualityTest::kUnknown;

Text SectionOf(std::int32_t owner) { return Format(u"USER_%d", owner); }

}  // namespace

Text XplrSettings::Path() const { return Format(u"%s\\XPLR7340.ini", utilities_.Get7340Path(path_id::kSetup)); }

void XplrSettings::Open() {
  unread_ = false;
  if (ini_.ReadIniFile(Path())) return;
  const FileInfo info = files_.Query(Path());
  unread_ = info.exists || info.outOfReach;
}

Text XplrSettings::Sort() { return ini_.ReadString(kSection, kSortKey, u""); }

bool XplrSettings::Store(Change change) {
  unstored_.push_back(std::move(change));
  // A file that is back has the pins of other tools, which must not be lost.
  if (unread_) Open();
  for (const Change& next : unstored_) {
    if (next.value) {
      ini_.WriteString(next.section, next.key, *next.value);
    } else {
      ini_.DeleteKey(next.section, next.key);
    }
  }
  if (unread_) return false;
  unstored_.clear();
  return ini_.WriteIniFile(Path());
}

bool XplrSettings::SaveSort(TextView sort) { return Store({Text(kSection), Text(kSortKey), Text(sort)}); }

Text XplrSettings::PinnedFolder(std::int32_t owner) {
  const Text stored = ini_.ReadString(SectionOf(owner), kPinKey, u"");
  return Text(Trim(stored));
}

bool XplrSettings::SavePinnedFolder(std::int32_t owner, const std::optional<Text>& folder) {
  return Store({SectionOf(owner), Text(kPinKey), folder});
}

bool IsQualityTest(Files& files, Utilities& utilities) {
  if (qualityTest == QualityTest::kUnknown) {
    CIniFile ini(files);
    static_cast<void>(ini.ReadIniFile(Format(u"%s\\HMI_Settings.ini", utilities.Get7340Path(path_id::kUserSettings))));
    const Text value = ini.ReadString(u"CALIDAD", u"Test", u"NO").substr(0, kRoomForTest - 1);
    qualityTest = ToUpper(value) == u"SI" ? QualityTest::kYes : QualityTest::kNo;
  }
  return qualityTest == QualityTest::kYes;
}

void ForgetQualityTest() { qualityTest = QualityTest::kUnknown; }

}  // namespace pnl
