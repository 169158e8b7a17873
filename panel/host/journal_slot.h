// SPDX-License-Identifier: MIT
// The place of one panel's journal in the folder of its settings: the journal, two copies of a big program, and a lock.
// Panels that share a folder have a slot each. The system takes the lock from a killed panel, so a slot with a journal
// and without an owner is one that a panel has left. It works on files of this machine, and any thread may use it.
#pragma once

#include <QString>
#include <functional>
#include <memory>

namespace panel {

class JournalSlot {
 public:
  /// Takes a slot without a journal. Null when the folder can't be used or has no free slot. Makes the folder.
  [[nodiscard]] static std::unique_ptr<JournalSlot> TakeFree(const QString& folder);
  /// Takes the slot with the newest of the journals that nobody owns and for which wanted returns true. Null when there
  /// is none.
  [[nodiscard]] static std::unique_ptr<JournalSlot> TakeLeft(const QString& folder,
                                                             const std::function<bool(const JournalSlot&)>& wanted);
  /// Gives the slot up. Its journal, if there is one, is left for the next start.
  ~JournalSlot();
  JournalSlot(const JournalSlot&) = delete;
  JournalSlot& operator=(const JournalSlot&) = delete;

  [[nodiscard]] QString Journal() const { return base_ + QStringLiteral(".JNL"); }
  /// One of the two copies, 0 or 1. While the journal refers to one, the other can be written.
  [[nodiscard]] QString Copy(int number) const;
  /// Removes the journal and then the copies.
  void Clear() const;

  /// More panels than share one folder.
  static constexpr int kSlots = 16;

 private:
  JournalSlot(QString base, int lock) : base_(std::move(base)), lock_(lock) {}
  [[nodiscard]] static std::unique_ptr<JournalSlot> Take(const QString& folder, int number);
  QString base_;
  int lock_;
};

}  // namespace panel
