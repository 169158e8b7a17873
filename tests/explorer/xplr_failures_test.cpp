// SPDX-License-Identifier: MIT
#include "explorer/xplr_failures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_places.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(XplrFailures, APathBelongsToItsShareOrServer) {
  const struct {
    TextView path;
    TextView place;
  } rows[] = {
      {u"\\\\srv", u"\\\\SRV"},
      {u"\\\\srv\\", u"\\\\SRV"},
      {u"\\\\srv\\jobs", u"\\\\SRV\\JOBS"},
      {u"\\\\srv\\jobs\\", u"\\\\SRV\\JOBS"},
      {u"\\\\srv\\jobs\\a\\b", u"\\\\SRV\\JOBS"},
      {u"\\\\", u""},
      {u"\\", u""},
      {u"", u""},
      {u"C:\\srv", u""},
      {u"Entire Network", u""},
  };
  for (const auto& row : rows) EXPECT_TRUE(NetworkPlaceOf(row.path) == row.place) << ToUtf8(row.path);
}

struct AnswerCase {
  TextView folder;
  int error;
  bool noted;
  const char* why;
};

TEST(XplrFailures, APlaceThatDoesNotAnswerIsNoted) {
  const AnswerCase rows[] = {
      {u"\\\\S\\A", 51, true, "a share that nobody serves"},
      {u"\\\\S", 51, true, "a server that doesn't listen"},
      {u"\\\\S\\A\\DEEP", 51, true, "found out deep inside"},
      {u"\\\\S\\A\\DEEP", 21, true, "not ready"},
      {u"\\\\S\\A", 5, true, "a share without access"},
      {u"\\\\S\\A\\", 5, true, "with a backslash at its end"},
      {u"\\\\S\\A\\DEEP", 5, false, "only that folder is without access"},
      {u"\\\\S\\A\\DEEP", 3, false, "only that folder is missing"},
      {u"\\\\S\\A", 3, true, "a share that is missing"},
      {u"\\\\S\\A", 0, false, "usable"},
      {u"\\\\S\\A", 2, false, "empty"},
      {u"\\\\S\\A", 86, false, "credentials come first"},
      {u"\\\\S\\A", 1326, false, "credentials come first"},
      {u"\\\\S\\A", 2118, false, "credentials come first"},
      {u"C:", 21, false, "a drive"},
  };
  for (const AnswerCase& row : rows) {
    XplrFailures failures;
    failures.Answered(row.folder, row.error);
    EXPECT_EQ(failures.ErrorOf(row.folder), row.noted ? row.error : 0) << row.why;
    EXPECT_EQ(failures.TakeNew().size(), row.noted ? 1u : 0u) << row.why;
    EXPECT_TRUE(failures.TakeNew().empty());
  }
}

TEST(XplrFailures, AServerThatFailedCountsForItsSharesAndNotTheOtherWayRound) {
  XplrFailures failures;
  failures.Note(u"\\\\s", 51);
  EXPECT_EQ(failures.ErrorOf(u"\\\\S\\A\\B"), 51);
  EXPECT_EQ(failures.ErrorOf(u"\\\\S2\\A"), 0);
  failures.Note(u"\\\\t\\a", 5);
  EXPECT_EQ(failures.ErrorOf(u"\\\\T"), 0);
  EXPECT_EQ(failures.ErrorOf(u"\\\\T\\AB"), 0);
}

TEST(XplrFailures, AskingForgetsThePlaceAndWhatItDependsOn) {
  const struct {
    TextView asked;
    std::vector<Text> left;
  } rows[] = {
      {u"\\\\s\\a\\deep", {u"\\\\S\\B", u"\\\\T"}},
      {u"\\\\s\\b", {u"\\\\S\\A", u"\\\\T"}},
      {u"\\\\s", {u"\\\\T"}},
      {u"\\\\t\\x", {u"\\\\S", u"\\\\S\\A", u"\\\\S\\B"}},
      {u"C:", {u"\\\\S", u"\\\\S\\A", u"\\\\S\\B", u"\\\\T"}},
  };
  for (const auto& row : rows) {
    XplrFailures failures;
    for (const TextView place : {u"\\\\S", u"\\\\S\\A", u"\\\\S\\B", u"\\\\T"}) failures.Note(place, 51);
    EXPECT_EQ(failures.Forget(row.asked), row.left.size() < 4) << ToUtf8(row.asked);
    for (const Text& place : row.left) EXPECT_EQ(failures.ErrorOf(place), 51) << ToUtf8(row.asked);
  }
}

class XplrCareful : public testing::Test {
 protected:
  XplrCareful() {
    places_.disc->AddFolder(u"\\\\S\\A");
    places_.disc->AddFolder(u"C:\\X");
    places_.disc->bytes[u"\\\\S\\A\\F"] = "G0";
  }
  FakePlaces places_;
  FakeNetwork network_;
  SharedFailures failures_ = std::make_shared<XplrFailures>();
  CarefulPlaces carefulPlaces_{places_, failures_};
  CarefulNetwork carefulNetwork_{network_, failures_};
};

TEST_F(XplrCareful, APlaceThatFailedAnswersAtOnceUntilItIsForgotten) {
  const auto reader = carefulPlaces_.Reader();
  EXPECT_EQ(reader->Probe(u"\\\\S\\A"), 0);
  places_.disc->errors[u"\\\\S\\A"] = 51;
  EXPECT_EQ(reader->Probe(u"\\\\S\\A"), 51);
  places_.disc->errors.clear();
  places_.disc->asked.clear();
  places_.disc->looked.clear();
  EXPECT_EQ(reader->Probe(u"\\\\S\\A"), 51);
  EXPECT_EQ(reader->List(u"\\\\s\\a\\b", [](std::vector<PlaceEntry>&&) { return true; }), 51);
  EXPECT_EQ(reader->MakeFolder(u"\\\\S\\A\\N"), 51);
  EXPECT_FALSE(reader->Exists(u"\\\\S\\A"));
  EXPECT_FALSE(reader->IsReadOnly(u"\\\\S\\A"));
  EXPECT_FALSE(reader->ReadStart(u"\\\\S\\A\\F", 10));
  EXPECT_THAT(places_.disc->asked, IsEmpty());
  EXPECT_THAT(places_.disc->looked, IsEmpty());
  EXPECT_EQ(reader->Probe(u"C:\\X"), 0) << "other places are asked";
  failures_->Forget(u"\\\\S\\A");
  EXPECT_EQ(reader->Probe(u"\\\\S\\A"), 0);
  EXPECT_EQ(reader->ReadStart(u"\\\\S\\A\\F", 10), "G0");
  EXPECT_TRUE(reader->Exists(u"\\\\S\\A"));
}

TEST_F(XplrCareful, AConnectionThatFailsIsNotTriedAgain) {
  const auto reader = carefulNetwork_.Reader();
  network_.around->connectError = 86;
  EXPECT_EQ(reader->Connect(u"\\\\S\\A", 1), 86);
  EXPECT_EQ(reader->Connect(u"\\\\S\\A", 1), place_error::kLogonFailed);
  EXPECT_THAT(network_.around->asked, ElementsAre(u"connect \\\\S\\A"));
  EXPECT_EQ(failures_->ErrorOf(u"\\\\S\\A"), place_error::kLogonFailed) << "so that asking tries the connection";
}

TEST_F(XplrCareful, AServerThatCannotBeEnumeratedIsNotTriedAgain) {
  const auto reader = carefulNetwork_.Reader();
  NetworkResource server;
  server.remote = u"\\\\S";
  NetworkResource domain;
  domain.remote = u"OFFICE";
  network_.around->closed = {u"\\\\S", u"OFFICE"};
  for (int turn = 0; turn < 2; ++turn) {
    EXPECT_EQ(reader->Open(NetworkScope::kEverything, server), nullptr);
    EXPECT_EQ(reader->Open(NetworkScope::kEverything, domain), nullptr);
  }
  EXPECT_THAT(network_.around->asked, ElementsAre(u"open \\\\S of ", u"open OFFICE of ", u"open OFFICE of "));
  network_.around->closed.clear();
  EXPECT_NE(reader->Open(NetworkScope::kEverything, std::nullopt), nullptr);
  failures_->Forget(u"\\\\S");
  EXPECT_NE(reader->Open(NetworkScope::kEverything, server), nullptr);
}

TEST_F(XplrCareful, TheOtherQuestionsGoThroughUnchanged) {
  places_.types = {{'C', 3}, {'E', 2}};
  places_.labels['C'] = u"L";
  places_.remotes['E'] = {0, u"\\\\S\\A"};
  places_.hidden = 1;
  places_.locked = 2;
  places_.remembered = 4;
  places_.current = 'E';
  EXPECT_EQ(carefulPlaces_.LogicalDrives(), DriveBit(u'C') | DriveBit(u'E'));
  EXPECT_EQ(carefulPlaces_.HiddenDrives(), 1u);
  EXPECT_EQ(carefulPlaces_.LockedDrives(), 2u);
  EXPECT_EQ(carefulPlaces_.RememberedDrives(), 4u);
  EXPECT_EQ(carefulPlaces_.DriveType('E'), 2);
  EXPECT_EQ(carefulPlaces_.VolumeLabel('C'), u"L");
  EXPECT_TRUE(carefulPlaces_.DriveRemoteName('E').name == u"\\\\S\\A");
  EXPECT_EQ(carefulPlaces_.CurrentDrive(), 'E');
  int changes = 0;
  carefulPlaces_.Watch([&] { ++changes; });
  places_.watcher();
  EXPECT_EQ(changes, 1);
}

/// An enumeration that breaks off.
class Breaking final : public Network, public NetworkReader, public NetworkEnumeration {
 public:
  std::shared_ptr<const NetworkReader> Reader() const override { return std::make_shared<Breaking>(); }
  std::unique_ptr<NetworkEnumeration> Open(NetworkScope, const std::optional<NetworkResource>&) const override {
    return std::make_unique<Breaking>();
  }
  int Connect(TextView, WindowHandle) const override { return 0; }
  int Next(std::vector<NetworkResource>&) override { return network_status::kExtended; }
};

TEST_F(XplrCareful, AServerWhoseEnumerationBreaksOffIsNoted) {
  const Breaking network;
  NetworkResource server;
  server.remote = u"\\\\S";
  std::vector<NetworkResource> entries;
  EXPECT_EQ(CarefulNetwork(network, failures_).Reader()->Open(NetworkScope::kEverything, server)->Next(entries),
            network_status::kExtended);
  EXPECT_EQ(failures_->ErrorOf(u"\\\\S"), place_error::kRemoteNotListening);
}

}  // namespace
}  // namespace pnl::test
