// SPDX-License-Identifier: MIT
// The channel of the remote control: pieces of input, its end, output that nobody takes, and readers that go away.
#include "remote/standard_streams.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QList>
#include <array>

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
  while (!ended) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  EXPECT_EQ(read, "{}\n");
  close(file);
}

TEST(StandardStreams, OutputThatNobodyTakesDoesNotMakeThePanelWait) {
  Pipe out;
  StandardStreams streams(-1, out.ends[1], nullptr);
  const QByteArray much(1 << 20, 'x');
  streams.Write(much);
  qsizetype taken = 0;
  while (taken < much.size()) {
    taken += out.Take(1 << 16).size();
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(taken, much.size());
}

TEST(StandardStreams, AReaderThatGoesAwayIsSurvived) {
  Pipe out;
  StandardStreams streams(-1, out.ends[1], nullptr);
  out.CloseRead();
  streams.Write("x\n");
  streams.Write(QByteArray(1 << 20, 'x'));
  streams.Flush();
  SUCCEED();
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
  while (read != "ab") QCoreApplication::processEvents();
  EXPECT_EQ(deepest, 1);
}

}  // namespace
}  // namespace panel
