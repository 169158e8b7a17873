// SPDX-License-Identifier: MIT
// The channel of the remote control: pieces of input, its end, output that nobody takes, and readers that go away.
#include "remote/standard_streams.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QList>
#include <QSocketNotifier>
#include <array>
#include <thread>

#include "support/temp_folder.h"

namespace panel {
namespace {

struct Pipe {
  Pipe() { EXPECT_EQ(pipe(ends.data()), 0); }
  ~Pipe() {
    CloseRead();
    CloseWrite();
  }
  void CloseRead() {
    if (ends[0] >= 0) close(ends[0]);
    ends[0] = -1;
  }
  void CloseWrite() {
    if (ends[1] >= 0) close(ends[1]);
    ends[1] = -1;
  }
  void Put(const QByteArray& bytes) const { EXPECT_EQ(write(ends[1], bytes.data(), bytes.size()), bytes.size()); }
  QByteArray Take(qsizetype size) const {
    QByteArray bytes(size, '\0');
    const ssize_t count = read(ends[0], bytes.data(), size);
    bytes.resize(std::max<ssize_t>(count, 0));
    return bytes;
  }
  std::array<int, 2> ends{-1, -1};
};

/// Handles events until the condition is true. It becomes true within a few rounds or never.
template <typename Condition>
bool EventsUntil(Condition condition) {
  constexpr int kRounds = 10000;
  for (int round = 0; round < kRounds; ++round) {
    if (condition()) return true;
    QCoreApplication::processEvents();
  }
  return condition();
}

TEST(StandardStreams, InputComesInPiecesAndItsEndIsEmpty) {
  Pipe in;
  StandardStreams streams(in.ends[0], -1, nullptr);
  QList<QByteArray> pieces;
  streams.Start([&pieces](const QByteArray& piece) { pieces.append(piece); });
  in.Put("one\ntwo");
  QCoreApplication::processEvents();
  in.Put("\n");
  QCoreApplication::processEvents();
  in.CloseWrite();
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
  EXPECT_EQ(pieces, QList<QByteArray>({"one\ntwo", "\n", ""}));
}

TEST(StandardStreams, InputThatIsGoneWhenItIsLookedForIsNoEnd) {
  Pipe in;
  ASSERT_EQ(fcntl(in.ends[0], F_SETFL, O_NONBLOCK), 0);
  // Somebody else reads the same pipe, and is told first.
  QSocketNotifier other(in.ends[0], QSocketNotifier::Read);
  QByteArray taken;
  QObject::connect(&other, &QSocketNotifier::activated, [&] { taken += in.Take(100); });
  StandardStreams streams(in.ends[0], -1, nullptr);
  QList<QByteArray> pieces;
  streams.Start([&pieces](const QByteArray& piece) { pieces.append(piece); });
  in.Put("for the other");
  EXPECT_TRUE(EventsUntil([&] { return !taken.isEmpty() || !pieces.isEmpty(); }));
  QCoreApplication::processEvents();
  ASSERT_EQ(taken, "for the other");
  EXPECT_TRUE(pieces.isEmpty());
  other.setEnabled(false);
  in.Put("mine");
  EXPECT_TRUE(EventsUntil([&] { return !pieces.isEmpty(); }));
  EXPECT_EQ(pieces, QList<QByteArray>({"mine"}));
}

TEST(StandardStreams, AFileIsReadLikeAPipe) {
  const pnl::test::TempFolder temp;
  temp.Write("in", "{}\n");
  const int file = open((temp.Path() / "in").c_str(), O_RDONLY | O_CLOEXEC);
  StandardStreams streams(file, -1, nullptr);
  QByteArray read;
  bool ended = false;
  streams.Start([&](const QByteArray& piece) {
    read += piece;
    ended = piece.isEmpty();
  });
  EXPECT_TRUE(EventsUntil([&] { return ended; }));
  EXPECT_EQ(read, "{}\n");
  close(file);
}

TEST(StandardStreams, OutputThatNobodyTakesDoesNotMakeThePanelWait) {
  Pipe out;
  StandardStreams streams(-1, out.ends[1], nullptr);
  const QByteArray much(1 << 20, 'x');
  streams.Write(much);
  qsizetype taken = 0;
  EXPECT_TRUE(EventsUntil([&] {
    // Only what is there: reading an empty pipe would wait.
    int there = 0;
    if (ioctl(out.ends[0], FIONREAD, &there) == 0 && there > 0) taken += out.Take(there).size();
    return taken >= much.size();
  }));
  EXPECT_EQ(taken, much.size());
}

TEST(StandardStreams, AShortReplyIsWrittenInOnePiece) {
  Pipe out;
  // Each write is a packet of its own, and a read takes one.
  ASSERT_EQ(fcntl(out.ends[1], F_SETFL, O_DIRECT), 0);
  StandardStreams streams(-1, out.ends[1], nullptr);
  streams.Write("a reply\n");
  EXPECT_EQ(out.Take(100), "a reply\n");
}

TEST(StandardStreams, WhatIsWaitingIsWrittenByAFlush) {
  Pipe out;
  StandardStreams streams(-1, out.ends[1], nullptr);
  QByteArray much;
  for (int i = 0; much.size() < (1 << 20); ++i) much += QByteArray::number(i) + '\n';
  streams.Write(much);
  QByteArray taken;
  std::thread reader([&] {
    while (taken.size() < much.size()) {
      const QByteArray piece = out.Take(1 << 16);
      if (piece.isEmpty()) break;
      taken += piece;
    }
  });
  streams.Flush();
  // The reader would wait for anything that the flush left unsent.
  out.CloseWrite();
  reader.join();
  EXPECT_EQ(taken, much);
}

TEST(StandardStreams, WhileTheOtherSideTakesNothingItsRequestsWaitToo) {
  Pipe in;
  Pipe out;
  StandardStreams streams(in.ends[0], out.ends[1], nullptr);
  int pieces = 0;
  int drained = 0;
  streams.OnDrained([&] { ++drained; });
  streams.Start([&](const QByteArray&) {
    ++pieces;
    streams.Write(QByteArray(2 * StandardStreams::kMostWaiting, 'x'));
  });
  in.Put("first");
  EXPECT_TRUE(EventsUntil([&] { return pieces == 1; }));
  EXPECT_TRUE(streams.Full());
  in.Put("second");
  for (int round = 0; round < 100; ++round) QCoreApplication::processEvents();
  EXPECT_EQ(pieces, 1);
  EXPECT_EQ(drained, 0);
  EXPECT_TRUE(EventsUntil([&] {
    int there = 0;
    if (ioctl(out.ends[0], FIONREAD, &there) == 0 && there > 0) out.Take(there);
    return pieces == 2;
  }));
  EXPECT_EQ(drained, 1);
}

TEST(StandardStreams, AMegabyteThatWaitsIsFull) {
  Pipe out;
  // A full pipe takes nothing more, so everything waits.
  ASSERT_EQ(fcntl(out.ends[1], F_SETFL, O_NONBLOCK), 0);
  const QByteArray piece(1 << 16, 'x');
  while (write(out.ends[1], piece.data(), piece.size()) > 0) {
  }
  StandardStreams streams(-1, out.ends[1], nullptr);
  EXPECT_FALSE(streams.Full());
  streams.Write(QByteArray((1 << 20) - 1, 'y'));
  EXPECT_FALSE(streams.Full());
  streams.Write("y");
  EXPECT_TRUE(streams.Full());
}

TEST(StandardStreams, AReaderThatGoesAwayIsSurvivedAndNothingIsKeptForIt) {
  Pipe in;
  Pipe out;
  StandardStreams streams(in.ends[0], out.ends[1], nullptr);
  QByteArray read;
  streams.Start([&](const QByteArray& piece) { read += piece; });
  out.CloseRead();
  streams.Write("x\n");
  streams.Write(QByteArray(4 * StandardStreams::kMostWaiting, 'x'));
  streams.Flush();
  EXPECT_FALSE(streams.Full());
  in.Put("still heard");
  EXPECT_TRUE(EventsUntil([&] { return read == "still heard"; }));
}

TEST(StandardStreams, WhatOthersPrintGoesToStandardErrorAndNotBetweenTheReplies) {
  Pipe out;
  Pipe errors;
  const int oldOut = dup(STDOUT_FILENO);
  const int oldErrors = dup(STDERR_FILENO);
  dup2(out.ends[1], STDOUT_FILENO);
  dup2(errors.ends[1], STDERR_FILENO);
  {
    StandardStreams streams;
    EXPECT_EQ(write(STDOUT_FILENO, "noise", 5), 5);
    streams.Write("reply\n");
    streams.Flush();
  }
  dup2(oldOut, STDOUT_FILENO);
  dup2(oldErrors, STDERR_FILENO);
  close(oldOut);
  close(oldErrors);
  EXPECT_EQ(out.Take(100), "reply\n");
  EXPECT_EQ(errors.Take(100), "noise");
}

TEST(StandardStreams, NothingIsReadWhileAPieceIsBeingWorkedOn) {
  // A reply written in between once brought the next piece into the middle of this one.
  Pipe in;
  Pipe out;
  StandardStreams streams(in.ends[0], out.ends[1], nullptr);
  int depth = 0;
  int deepest = 0;
  QByteArray read;
  streams.Start([&](const QByteArray& piece) {
    deepest = std::max(deepest, ++depth);
    read += piece;
    if (read == "a") in.Put("b");
    streams.Write("reply\n");
    QCoreApplication::processEvents();
    --depth;
  });
  in.Put("a");
  EXPECT_TRUE(EventsUntil([&] { return read == "ab"; }));
  EXPECT_EQ(deepest, 1);
}

}  // namespace
}  // namespace panel
