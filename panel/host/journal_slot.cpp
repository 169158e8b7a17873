// SPDX-License-Identifier: MIT
#include "host/journal_slot.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <utility>
#include <vector>

namespace panel {
namespace {

constexpr mode_t kOwnerOnly = 0600;

QString BaseOf(const QString& folder, int number) { return QStringLiteral("%1/PNLPANEL%2").arg(folder).arg(number); }

QByteArray LockName(const QString& base) { return QFile::encodeName(base + QStringLiteral(".LCK")); }

/// Whether the open file still has that name. Its owner removes it, and another panel may have made it anew.
bool HasStillThatName(int file, const QByteArray& name) {
  struct stat open = {};
  struct stat named = {};
  return fstat(file, &open) == 0 && stat(name.constData(), &named) == 0 && open.st_dev == named.st_dev &&
         open.st_ino == named.st_ino;
}

/// Returns the descriptor of the locked file, or -1.
int Lock(const QByteArray& name) {
  // No child process may have the descriptor: the lock would outlive the panel.
  const int file = open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kOwnerOnly);
  if (file < 0) return -1;
  if (flock(file, LOCK_EX | LOCK_NB) == 0 && HasStillThatName(file, name)) return file;
  close(file);
  return -1;
}

}  // namespace

std::unique_ptr<JournalSlot> JournalSlot::Take(const QString& folder, int number) {
  const QString base = BaseOf(folder, number);
  const int lock = Lock(LockName(base));
  if (lock < 0) return nullptr;
  return std::unique_ptr<JournalSlot>(new JournalSlot(base, lock));
}

std::unique_ptr<JournalSlot> JournalSlot::TakeFree(const QString& folder) {
  if (folder.isEmpty() || !QDir().mkpath(folder)) return nullptr;
  for (int number = 1; number <= kSlots; ++number) {
    auto slot = Take(folder, number);
    // The slot of a killed panel has its journal still: nobody may write over it before it was offered.
    if (slot && !QFileInfo::exists(slot->Journal())) return slot;
  }
  return nullptr;
}

std::unique_ptr<JournalSlot> JournalSlot::TakeLeft(const QString& folder,
                                                   const std::function<bool(const JournalSlot&)>& wanted) {
  std::vector<std::pair<qint64, int>> found;
  for (int number = 1; number <= kSlots; ++number) {
    const QFileInfo journal(BaseOf(folder, number) + QStringLiteral(".JNL"));
    if (journal.isFile()) found.emplace_back(-journal.lastModified().toMSecsSinceEpoch(), number);
  }
  std::sort(found.begin(), found.end());
  for (const auto& [age, number] : found) {
    auto slot = Take(folder, number);
    // Its owner may have removed it between the two looks.
    if (slot && QFileInfo(slot->Journal()).isFile() && wanted(*slot)) return slot;
  }
  return nullptr;
}

JournalSlot::~JournalSlot() {
  // The name goes while the lock is held, so that nobody holds a lock on a file without a name for long.
  unlink(LockName(base_).constData());
  close(lock_);
}

QString JournalSlot::Copy(int number) const { return base_ + QLatin1String(number == 0 ? "A.TXT" : "B.TXT"); }

void JournalSlot::Clear() const {
  for (const QString& name : {Journal(), Copy(0), Copy(1)}) QFile::remove(name);
}

}  // namespace panel
