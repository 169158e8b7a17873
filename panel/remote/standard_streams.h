// SPDX-License-Identifier: MIT
// Standard input and output as the remote control's channel: reads whatever arrives without ever waiting for it, keeps
// what the other side doesn't take yet, and outlives a reader that goes away. Knows bytes, not requests.
#pragma once

#include <QByteArray>
#include <QObject>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace panel {

/// Opens what stands behind descriptors 0 to 2 if nothing does, so that no other file gets their numbers. Call it first
/// in main: what is opened later would be taken for standard input.
void KeepStandardDescriptors();

class StandardStreams : public QObject {
  Q_OBJECT

 public:
  static constexpr qsizetype kMostWaiting = qsizetype{1} << 20;

  /// Takes the two descriptors over. What others write to standard output goes to standard error from now on.
  explicit StandardStreams(QObject* parent = nullptr);
  /// The same on other descriptors, which stay the caller's.
  StandardStreams(int input, int output, QObject* parent);
  ~StandardStreams() override;

  /// Calls received with every piece of input, an empty one at the end of it.
  void Start(std::function<void(const QByteArray&)> received);
  /// No more input is read.
  void Stop();
  /// Takes bytes over. Nobody is made to wait here: who writes much asks Full first.
  void Write(const QByteArray& bytes);
  /// So much waits to be taken by the other side that no more should be made until it is Drained.
  [[nodiscard]] bool Full() const { return waiting_.size() >= kMostWaiting; }
  /// Calls drained each time when the output is no longer full.
  void OnDrained(std::function<void()> drained) { drained_ = std::move(drained); }
  /// Waits until everything is written or nobody reads any more.
  void Flush();

 private:
  void OnReadable();
  void OnWritable();
  /// Writes what goes without waiting.
  void WriteSome();
  void Watch();

  int input_;
  int output_;
  bool ownsOutput_ = false;
  bool ended_ = false;
  bool busy_ = false;    // a piece is being worked on
  bool broken_ = false;  // nobody reads
  QByteArray waiting_;
  std::function<void(const QByteArray&)> received_;
  std::function<void()> drained_;
  std::unique_ptr<QSocketNotifier> readable_;
  std::unique_ptr<QSocketNotifier> writable_;
};

}  // namespace panel
