// SPDX-License-Identifier: MIT
#include "places/share_network.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>

#include "support/fake_share_client.h"

namespace pnl {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kFile =
    "[PROVIDER Plant]\nComment=Machines\n[DOMAIN HALL]\nProvider=Plant\nComment=Mills\n"
    "[SERVER OFFICE]\nDomain=HALL\nAddress=10.0.0.1:1445\nComment=Programs\n"
    "[SERVER CAM]\nProvider=Plant\n[SERVER SILENT]\nShares=a,b\n";

/// Answers with what the test has prepared.
class FakeAsker final : public CredentialsAsker {
 public:
  std::vector<Text> asked;  // the server, with " again"
  std::vector<std::pair<Text, Text>> answers;
  std::function<void()> whileAsking;

  SharedCredentials Ask(TextView server, bool again) override {
    asked.push_back(Text(server) + (again ? u" again" : u""));
    if (whileAsking) whileAsking();
    if (answers.empty()) return nullptr;
    const auto [user, password] = answers.front();
    answers.erase(answers.begin());
    return std::make_shared<const Credentials>(user, u"", password);
  }
};

class ShareNetworkTest : public testing::Test {
 protected:
  ~ShareNetworkTest() override { servers->Release(); }

  [[nodiscard]] const NetworkReader& Reader() const { return *network.Reader(); }
  [[nodiscard]] const FolderReader& Folders() const { return *network.Folders(); }
  /// What is enumerated, by remote name, else provider; "none" when it can't be opened.
  [[nodiscard]] std::vector<Text> Names(const std::optional<NetworkResource>& below,
                                        NetworkScope scope = NetworkScope::kEverything) const {
    std::vector<Text> names;
    for (const NetworkResource& each : All(below, scope))
      names.push_back(each.remote.empty() ? each.provider : each.remote);
    return names;
  }
  [[nodiscard]] std::vector<NetworkResource> All(const std::optional<NetworkResource>& below,
                                                 NetworkScope scope = NetworkScope::kEverything) const {
    const auto enumeration = Reader().Open(scope, below);
    if (!enumeration) return {{0, u"none", {}, {}, {}}};
    std::vector<NetworkResource> all;
    std::vector<NetworkResource> batch;
    while (enumeration->Next(batch) == network_status::kOk) all.insert(all.end(), batch.begin(), batch.end());
    return all;
  }
  [[nodiscard]] std::vector<Text> Shares(TextView server) const {
    return Names(NetworkResource{network_display::kServer, Text(server), {}, {}, u"Microsoft Network"});
  }
  /// The names that List hands over, "<error>" at the end.
  [[nodiscard]] std::vector<Text> List(TextView folder) const {
    std::vector<Text> names;
    const int error = Folders().List(folder, [&](std::vector<PlaceEntry>&& entries) {
      for (const PlaceEntry& each : entries) names.push_back(each.name);
      return true;
    });
    names.push_back(FromUtf8(std::to_string(error)));
    return names;
  }
  static PlaceEntry File(TextView name) { return {Text(name), false, false, false, 5, 1000}; }

  std::shared_ptr<test::FakeServers> servers = std::make_shared<test::FakeServers>();
  std::shared_ptr<FakeAsker> asker = std::make_shared<FakeAsker>();
  ShareNetwork network{ParseNetworkFile(kFile), test::ClientOf(servers), asker, std::chrono::milliseconds(60'000)};
};

TEST_F(ShareNetworkTest, TheTopIsTheFilesProviders) {
  EXPECT_THAT(All(std::nullopt),
              ElementsAre(NetworkResource{network_display::kProvider, u"", u"", u"Machines", u"Plant"},
                          NetworkResource{network_display::kProvider, u"", u"", u"", u"Microsoft Network"}));
}

TEST_F(ShareNetworkTest, BelowAProviderAreItsDomainsThenItsServersWithoutOne) {
  EXPECT_THAT(All(NetworkResource{network_display::kProvider, u"", u"", u"plant", u"plant"}),
              ElementsAre(NetworkResource{network_display::kDomain, u"HALL", u"", u"Mills", u"Plant"},
                          NetworkResource{network_display::kServer, u"\\\\CAM", u"", u"", u"Plant"}));
}

TEST_F(ShareNetworkTest, BelowADomainAreItsServers) {
  EXPECT_THAT(All(NetworkResource{network_display::kDomain, u"hall", u"", u"", u"whoever"}),
              ElementsAre(NetworkResource{network_display::kServer, u"\\\\OFFICE", u"", u"Programs", u"Plant"}));
}

TEST_F(ShareNetworkTest, BelowAServerAreTheSharesThatItLists) {
  servers->shares["smb://10.0.0.1:1445"] = {{u"programs", u"for all"}, {u"old", u""}};
  EXPECT_THAT(All(NetworkResource{network_display::kServer, u"\\\\office", u"", u"", u"Microsoft Network"}),
              ElementsAre(NetworkResource{network_display::kShare, u"\\\\office\\programs", u"", u"for all", u"Plant"},
                          NetworkResource{network_display::kShare, u"\\\\office\\old", u"", u"", u"Plant"}));
}

TEST_F(ShareNetworkTest, AServerThatTheFileDoesntHaveIsAskedByItsName) {
  servers->shares["smb://other"] = {{u"x", u""}};
  EXPECT_THAT(Shares(u"\\\\other"), ElementsAre(u"\\\\other\\x"));
  servers->asked.clear();
  EXPECT_THAT(Shares(u"\\\\no host"), ElementsAre(u"none"));
  EXPECT_THAT(servers->asked, IsEmpty()) << "no host can have such a name";
}

TEST_F(ShareNetworkTest, SharesInTheFileAreShownWithoutAskingTheServer) {
  EXPECT_THAT(Shares(u"\\\\SILENT"), ElementsAre(u"\\\\SILENT\\a", u"\\\\SILENT\\b"));
  EXPECT_EQ(Folders().Probe(u"\\\\SILENT"), place_error::kNone);
  EXPECT_THAT(servers->asked, IsEmpty());
}

TEST_F(ShareNetworkTest, WhatCantBeOpenedIsNull) {
  EXPECT_THAT(Names(NetworkResource{network_display::kProvider, u"", u"", u"None", u""}), ElementsAre(u"none"));
  EXPECT_THAT(Names(NetworkResource{network_display::kDomain, u"NONE", u"", u"", u""}), ElementsAre(u"none"));
  EXPECT_THAT(Names(NetworkResource{network_display::kGeneric, u"", u"", u"HALL", u""}), ElementsAre(u"none"));
  EXPECT_THAT(Shares(u"\\\\CAM"), ElementsAre(u"none"));
  EXPECT_THAT(Shares(u"CAM"), ElementsAre(u"none"));
  EXPECT_THAT(Shares(u"\\\\CAM\\x"), ElementsAre(u"none"));
  EXPECT_THAT(Shares(u"\\\\SILENT\\a"), ElementsAre(u"none")) << "a share has none, though its server has some";
}

TEST_F(ShareNetworkTest, NobodyIsAskedBeforeAServerIs) {
  std::ignore = Names(std::nullopt);
  std::ignore = Names(NetworkResource{network_display::kProvider, u"", u"", u"Plant", u"Plant"});
  std::ignore = Names(NetworkResource{network_display::kDomain, u"HALL", u"", u"", u"Plant"});
  std::ignore = Names(std::nullopt, NetworkScope::kConnected);
  EXPECT_THAT(servers->threads, IsEmpty());
}

TEST_F(ShareNetworkTest, ManySharesComeInBatches) {
  for (int i = 0; i < 300; ++i) servers->shares["smb://CAM"].push_back({Text(60, u'x'), u""});
  const auto enumeration =
      Reader().Open(NetworkScope::kEverything, NetworkResource{network_display::kServer, u"\\\\CAM", u"", u"", u""});
  ASSERT_NE(enumeration, nullptr);
  std::vector<NetworkResource> batch;
  ASSERT_EQ(enumeration->Next(batch), network_status::kOk);
  // 32 bytes, a remote name of 66 characters, the provider's 5, each with a terminator.
  EXPECT_EQ(batch.size(), kBatchBytes / (32 + 2 * 67 + 2 * 6));
}

TEST_F(ShareNetworkTest, AFolderBeginsWithItsDotEntries) {
  servers->folders["smb://CAM/x"] = {File(u"a.nc")};
  servers->folders["smb://CAM/x/empty"] = {};
  EXPECT_THAT(List(u"\\\\CAM\\x"), ElementsAre(u".", u"..", u"a.nc", u"0"));
  EXPECT_THAT(List(u"\\\\CAM\\x\\empty"), ElementsAre(u".", u"..", u"0"));
  std::vector<PlaceEntry> first;
  std::ignore = Folders().List(u"\\\\CAM\\x", [&](std::vector<PlaceEntry>&& entries) {
    first = std::move(entries);
    return false;
  });
  EXPECT_THAT(first,
              ElementsAre(PlaceEntry{u".", true, false, true, 0, 0}, PlaceEntry{u"..", true, false, true, 0, 0}));
}

TEST_F(ShareNetworkTest, AListingEndsWhenItsTakerHasEnough) {
  for (int i = 0; i < 5000; ++i) servers->folders["smb://CAM/x"].push_back(File(u"f"));
  std::vector<std::size_t> sizes;
  EXPECT_EQ(Folders().List(u"\\\\CAM\\x",
                           [&](std::vector<PlaceEntry>&& entries) {
                             sizes.push_back(entries.size());
                             return sizes.size() < 3;
                           }),
            place_error::kNone);
  EXPECT_THAT(sizes, ElementsAre(2, 1024, 1024));
}

TEST_F(ShareNetworkTest, AListingThatFillsItsBatchHasNoEmptyOneAfterIt) {
  for (int i = 0; i < 2048; ++i) servers->folders["smb://CAM/x"].push_back(File(u"f"));
  std::vector<std::size_t> sizes;
  const auto take = [&](std::vector<PlaceEntry>&& entries) {
    sizes.push_back(entries.size());
    return true;
  };
  EXPECT_EQ(Folders().List(u"\\\\CAM\\x", take), place_error::kNone);
  EXPECT_THAT(sizes, ElementsAre(2, 1024, 1024));
  sizes.clear();
  servers->folders["smb://CAM/x"].push_back(File(u"f"));
  EXPECT_EQ(Folders().List(u"\\\\CAM\\x", take), place_error::kNone);
  EXPECT_THAT(sizes, ElementsAre(2, 1024, 1024, 1));
}

TEST_F(ShareNetworkTest, AListingThatFailsSaysWhy) {
  servers->files.insert("smb://CAM/x/f");
  servers->errors["smb://CAM/down"] = place_error::kRemoteNotListening;
  EXPECT_THAT(List(u"\\\\CAM\\x\\none"), ElementsAre(u"3"));
  EXPECT_THAT(List(u"\\\\CAM\\x\\f"), ElementsAre(u"267"));
  EXPECT_THAT(List(u"\\\\CAM\\down"), ElementsAre(u"51"));
  EXPECT_THAT(List(u"C:\\x"), ElementsAre(u"3"));
  EXPECT_THAT(List(u"\\\\no host\\x"), ElementsAre(u"3"));
}

TEST_F(ShareNetworkTest, AFolderIsProbedByListingIt) {
  servers->folders["smb://CAM/x"] = {};
  servers->errors["smb://CAM/x/locked"] = place_error::kAccessDenied;
  EXPECT_EQ(Folders().Probe(u"\\\\CAM\\x\\"), place_error::kNone);
  EXPECT_EQ(Folders().Probe(u"\\\\CAM\\x\\locked"), place_error::kAccessDenied);
  EXPECT_EQ(Folders().Probe(u"\\\\CAM\\y"), place_error::kPathNotFound);
  EXPECT_EQ(Folders().Probe(u"C:"), place_error::kPathNotFound);
  EXPECT_THAT(servers->asked, ElementsAre("list smb://CAM/x", "list smb://CAM/x/locked", "list smb://CAM/y"));
}

TEST_F(ShareNetworkTest, AServerIsThereWhenItsSharesCanBeListedAndHasNoEntries) {
  servers->shares["smb://CAM"] = {};
  EXPECT_EQ(Folders().Probe(u"\\\\CAM"), place_error::kNone);
  EXPECT_THAT(List(u"\\\\CAM"), ElementsAre(u"0"));
  EXPECT_TRUE(Folders().Exists(u"\\\\CAM"));
  EXPECT_FALSE(Folders().IsReadOnly(u"\\\\CAM"));
  EXPECT_EQ(Folders().MakeFolder(u"\\\\CAM"), place_error::kAlreadyExists);
  EXPECT_EQ(Folders().Probe(u"\\\\OFFICE"), place_error::kRemoteNotListening);
  EXPECT_FALSE(Folders().Exists(u"\\\\OFFICE"));
  EXPECT_EQ(Folders().MakeFolder(u"\\\\OFFICE"), place_error::kRemoteNotListening);
}

TEST_F(ShareNetworkTest, FilesAndFoldersExistAndMayBeReadOnly) {
  servers->folders["smb://CAM/x"] = {};
  servers->files = {"smb://CAM/x/f", "smb://CAM/x/r"};
  servers->readOnly = {"smb://CAM/x/r"};
  EXPECT_TRUE(Folders().Exists(u"\\\\CAM\\x"));
  EXPECT_TRUE(Folders().Exists(u"\\\\CAM\\x\\f"));
  EXPECT_FALSE(Folders().Exists(u"\\\\CAM\\x\\none"));
  EXPECT_FALSE(Folders().Exists(u"f"));
  EXPECT_FALSE(Folders().IsReadOnly(u"\\\\CAM\\x\\f"));
  EXPECT_TRUE(Folders().IsReadOnly(u"\\\\CAM\\x\\r"));
  EXPECT_FALSE(Folders().IsReadOnly(u"\\\\CAM\\x\\none"));
}

TEST_F(ShareNetworkTest, TheBeginningOfAFileIsRead) {
  servers->folders["smb://CAM/x"] = {};
  servers->files = {"smb://CAM/x/f"};
  EXPECT_EQ(Folders().ReadStart(u"\\\\CAM\\x\\f", 7), "smb://C");
  EXPECT_EQ(Folders().ReadStart(u"\\\\CAM\\x\\f", 100), "smb://CAM/x/f");
  EXPECT_EQ(Folders().ReadStart(u"\\\\CAM\\x\\none", 7), std::nullopt);
  EXPECT_EQ(Folders().ReadStart(u"\\\\CAM", 7), std::nullopt);
  EXPECT_EQ(Folders().ReadStart(u"f", 7), std::nullopt);
}

TEST_F(ShareNetworkTest, AFolderIsMadeWithItsParents) {
  servers->folders["smb://CAM/x"] = {};
  EXPECT_EQ(Folders().MakeFolder(u"\\\\CAM\\x\\a\\b"), place_error::kNone);
  EXPECT_EQ(servers->folders.count("smb://CAM/x/a"), 1U);
  EXPECT_EQ(servers->folders.count("smb://CAM/x/a/b"), 1U);
  EXPECT_EQ(Folders().MakeFolder(u"\\\\CAM\\x\\a\\c"), place_error::kNone);
  EXPECT_EQ(Folders().MakeFolder(u"\\\\CAM\\x\\a"), place_error::kAlreadyExists);
}

TEST_F(ShareNetworkTest, AFolderThatCantBeMadeSaysWhy) {
  servers->folders["smb://CAM/x"] = {};
  servers->files = {"smb://CAM/x/f"};
  servers->errors["smb://CAM/x/locked"] = place_error::kAccessDenied;
  EXPECT_EQ(Folders().MakeFolder(u"\\\\CAM\\x\\f"), place_error::kAlreadyExists);
  EXPECT_EQ(Folders().MakeFolder(u"\\\\CAM\\x\\f\\b"), place_error::kPathNotFound);
  EXPECT_EQ(Folders().MakeFolder(u"\\\\CAM\\x\\locked\\b"), place_error::kAccessDenied);
  // A share is never made.
  EXPECT_EQ(Folders().MakeFolder(u"\\\\CAM\\y\\b"), place_error::kPathNotFound);
  EXPECT_EQ(Folders().MakeFolder(u"D:\\b"), place_error::kPathNotFound);
  EXPECT_EQ(servers->folders.size(), 1U);
}

TEST_F(ShareNetworkTest, AServerThatHangsAnswersThatItIsntListening) {
  ShareNetwork hasty(ParseNetworkFile(kFile), test::ClientOf(servers), asker, std::chrono::milliseconds(30));
  servers->Hold();
  EXPECT_EQ(hasty.Folders()->Probe(u"\\\\CAM\\x"), place_error::kRemoteNotListening);
  EXPECT_EQ(hasty.Folders()->Probe(u"\\\\OFFICE\\x"), place_error::kRemoteNotListening);
  EXPECT_EQ(hasty.Reader()->Connect(u"\\\\CAM\\x", 0), place_error::kRemoteNotListening);
  EXPECT_EQ(hasty.Reader()->Open(NetworkScope::kEverything,
                                 NetworkResource{network_display::kServer, u"\\\\CAM", {}, {}, {}}),
            nullptr);
  servers->Release();
}

TEST_F(ShareNetworkTest, WithoutAClientAConnectionIsWantedAndRefused) {
  const ShareNetwork none(
      ParseNetworkFile(kFile), [] { return nullptr; }, asker, std::chrono::milliseconds(60'000));
  EXPECT_EQ(none.Folders()->Probe(u"\\\\CAM\\x"), place_error::kNotAuthenticated);
  EXPECT_EQ(none.Reader()->Connect(u"\\\\CAM\\x", 0), place_error::kNotConnected);
  EXPECT_EQ(none.Reader()->Connect(u"\\\\CAM", 0), place_error::kNotConnected);
  EXPECT_THAT(asker->asked, IsEmpty());
}

class ConnectTest : public ShareNetworkTest {
 protected:
  ConnectTest() {
    servers->folders["smb://CAM/x"] = {};
    servers->folders["smb://CAM/y"] = {};
    servers->shares["smb://CAM"] = {{u"x", u""}};
    servers->passwords["smb://CAM"] = u"secret";
  }
};

TEST_F(ConnectTest, AShareOpenToAllIsConnectedWithoutAQuestion) {
  servers->passwords.clear();
  EXPECT_EQ(Reader().Connect(u"\\\\CAM\\x\\a", 0), 0);
  EXPECT_THAT(asker->asked, IsEmpty());
}

TEST_F(ConnectTest, TheOperatorIsAskedOnceAServer) {
  asker->answers = {{u"ana", u"secret"}};
  EXPECT_EQ(Folders().Probe(u"\\\\CAM\\x"), place_error::kLogonFailed);
  EXPECT_EQ(Reader().Connect(u"\\\\Cam\\x", 0), 0);
  EXPECT_EQ(Folders().Probe(u"\\\\cam\\x"), place_error::kNone);
  EXPECT_EQ(Reader().Connect(u"\\\\CAM\\y", 0), 0);
  EXPECT_THAT(Shares(u"\\\\CAM"), ElementsAre(u"\\\\CAM\\x"));
  EXPECT_THAT(asker->asked, ElementsAre(u"Cam"));
  EXPECT_EQ(servers->asked.back(), "shares smb://CAM as ana");
}

TEST_F(ConnectTest, AnotherServerIsAskedAboutAnew) {
  servers->passwords["smb://10.0.0.1:1445"] = u"other";
  servers->folders["smb://10.0.0.1:1445/p"] = {};
  asker->answers = {{u"ana", u"secret"}, {u"eva", u"other"}};
  EXPECT_EQ(Reader().Connect(u"\\\\CAM\\x", 0), 0);
  EXPECT_EQ(Folders().Probe(u"\\\\OFFICE\\p"), place_error::kLogonFailed);
  EXPECT_EQ(Reader().Connect(u"\\\\OFFICE\\p", 0), 0);
  EXPECT_THAT(asker->asked, ElementsAre(u"CAM", u"OFFICE"));
}

TEST_F(ConnectTest, AfterAWrongPasswordItIsAskedAgain) {
  asker->answers = {{u"ana", u"wrong"}, {u"ana", u"secret"}};
  EXPECT_EQ(Reader().Connect(u"\\\\CAM\\x", 0), 0);
  EXPECT_THAT(asker->asked, ElementsAre(u"CAM", u"CAM again"));
}

TEST_F(ConnectTest, AfterThreeWrongPasswordsItIsRefused) {
  asker->answers = {{u"ana", u"1"}, {u"ana", u"2"}, {u"ana", u"3"}, {u"ana", u"secret"}};
  EXPECT_EQ(Reader().Connect(u"\\\\CAM\\x", 0), place_error::kLogonFailed);
  EXPECT_THAT(asker->asked, ElementsAre(u"CAM", u"CAM again", u"CAM again"));
  EXPECT_THAT(Names(std::nullopt, NetworkScope::kConnected), IsEmpty()) << "what failed is no connection";
  // Nothing of them is kept.
  EXPECT_EQ(Folders().Probe(u"\\\\CAM\\x"), place_error::kLogonFailed);
}

TEST_F(ConnectTest, AnOperatorWhoRefusesIsNotAskedAgainAtOnce) {
  EXPECT_EQ(Reader().Connect(u"\\\\CAM\\x", 0), kCancelledError);
  EXPECT_THAT(asker->asked, ElementsAre(u"CAM"));
}

TEST_F(ConnectTest, WithoutAnAskerItIsRefusedAtOnce) {
  const ShareNetwork alone(ParseNetworkFile(kFile), test::ClientOf(servers), nullptr);
  EXPECT_EQ(alone.Reader()->Connect(u"\\\\CAM\\x", 0), place_error::kLogonFailed);
}

TEST_F(ConnectTest, OtherFailuresAreNoReasonToAsk) {
  EXPECT_EQ(Reader().Connect(u"\\\\OFFICE\\p", 0), place_error::kPathNotFound);
  servers->errors["smb://CAM"] = place_error::kRemoteNotListening;
  EXPECT_EQ(Reader().Connect(u"\\\\CAM\\x", 0), place_error::kRemoteNotListening);
  EXPECT_EQ(Reader().Connect(u"C:\\x", 0), place_error::kPathNotFound);
  EXPECT_EQ(Reader().Connect(u"\\\\no host\\x", 0), place_error::kPathNotFound);
  EXPECT_THAT(asker->asked, IsEmpty());
}

TEST_F(ConnectTest, AServerThatGoesAwayWhileAskedEndsTheQuestions) {
  asker->answers = {{u"ana", u"wrong"}, {u"ana", u"secret"}};
  asker->whileAsking = [&] { servers->errors["smb://CAM"] = place_error::kRemoteNotListening; };
  EXPECT_EQ(Reader().Connect(u"\\\\CAM\\x", 0), place_error::kRemoteNotListening);
  EXPECT_THAT(asker->asked, SizeIs(1));
}

TEST_F(ConnectTest, AServerItselfIsConnectedByListingItsShares) {
  asker->answers = {{u"ana", u"secret"}};
  EXPECT_THAT(Shares(u"\\\\CAM"), ElementsAre(u"none"));
  EXPECT_EQ(Folders().Probe(u"\\\\CAM"), place_error::kLogonFailed);
  EXPECT_EQ(Reader().Connect(u"\\\\CAM", 0), 0);
  EXPECT_THAT(Shares(u"\\\\CAM"), ElementsAre(u"\\\\CAM\\x"));
  EXPECT_THAT(Names(std::nullopt, NetworkScope::kConnected), IsEmpty());
}

TEST_F(ConnectTest, WhatIsConnectedIsEnumeratedOnceEach) {
  asker->answers = {{u"ana", u"secret"}};
  EXPECT_THAT(Names(std::nullopt, NetworkScope::kConnected), IsEmpty());
  for (const TextView path : {u"\\\\CAM\\y\\a", u"\\\\CAM\\x", u"\\\\cam\\Y"}) {
    servers->folders["smb://CAM/Y"] = {};
    EXPECT_EQ(Reader().Connect(path, 0), 0);
  }
  EXPECT_THAT(All(std::nullopt, NetworkScope::kConnected),
              ElementsAre(NetworkResource{network_display::kGeneric, u"\\\\CAM\\y", u"", u"", u""},
                          NetworkResource{network_display::kGeneric, u"\\\\CAM\\x", u"", u"", u""}));
}

TEST_F(ConnectTest, TwoWhoConnectAtTheSameTimeAskOnce) {
  asker->answers = {{u"ana", u"secret"}};
  std::future<int> other;
  asker->whileAsking = [&] {
    other = std::async(std::launch::async, [&] { return Reader().Connect(u"\\\\CAM\\y", 0); });
  };
  EXPECT_EQ(Reader().Connect(u"\\\\CAM\\x", 0), 0);
  EXPECT_EQ(other.get(), 0);
  EXPECT_THAT(asker->asked, ElementsAre(u"CAM"));
}

TEST(Credentials, AreWipedWithTheirStorage) {
  for (const std::size_t length : {3U, 7U, 8U, 40U}) {
    Text text(length, u'x');
    text.reserve(50);
    const char16_t* const storage = text.data();
    Wipe(text);
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.data(), storage);
    for (std::size_t i = 0; i < length; ++i) EXPECT_EQ(storage[i], 0) << i;
  }
  // A text that was moved from leaves a short content where it was.
  Text moved(5, u'x');
  const Text taken = std::move(moved);
  Wipe(moved);
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(moved.data()[i], 0) << i;
  EXPECT_EQ(taken, u"xxxxx");
}

}  // namespace
}  // namespace pnl
