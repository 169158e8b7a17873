// SPDX-License-Identifier: MIT
// Standard input and output as the channel of the remote control. It reads what arrives without blocking, keeps what
// the other side doesn't take yet, and survives a reader that goes away. It handles bytes and knows nothing of
// requests.
#pragma once

#include <QByteArray>
#include <QObject>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace panel {

/// Opens /dev/null for each of the descriptors 0 to 2 that is closed, so that no other file gets its number. Call it
/// first in main: a file opened earlier would be taken for standard input.
void KeepStandardDescriptors();

class StandardStreams : public QObject {
  Q_OBJECT

 public:
  static constexpr qsizetype kMostWaiting = qsizetype{1} << 20;

  /// Takes over standard input and output. From now on everything else that is written to standard output goes to
  /// standard error.
  explicit StandardStreams(QObject* parent = nullptr);
  /// The same with other descriptors, which the caller keeps.
  StandardStreams(int input, int output, QObject* parent);
  ~StandardStreams() override;

  /// Calls received with every piece of input, and with an empty one at the end of input.
  void Start(std::function<void(const QByteArray&)> received);
  /// Stops reading input.
  void Stop();
  /// Queues the bytes and writes what fits. It never waits: before you write much, ask Full.
  void Write(const QByteArray& bytes);
  /// Whether kMostWaiting bytes or more wait for the other side. Then write no more until drained is called.
  [[nodiscard]] bool Full() const { return waiting_.size() >= kMostWaiting; }
  /// Sets the function that is called each time when the output stops being full.
  void OnDrained(std::function<void()> drained) { drained_ = std::move(drained); }
  /// Waits until everything is written or the reader has gone.
  void Flush();

 private:
  void OnReadable();
  void OnWritable();
  /// Writes as much as is possible without blocking.
  void WriteSome();
  void Watch();

  int input_;
  int output_;
  bool ownsOutput_ = false;
  bool ended_ = false;
  bool busy_ = false;    // received_ is running
  bool broken_ = false;  // the reader has gone
  QByteArray waiting_;
  std::function<void(const QByteArray&)> received_;
  std::function<void()> drained_;
  std::unique_ptr<QSocketNotifier> readable_;
  std::unique_ptr<QSocketNotifier> writable_;
};

}  // namespace panel
