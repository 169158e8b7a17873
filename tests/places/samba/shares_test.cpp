// SPDX-License-Identifier: MIT
// The real client with a real server on this machine.
#include <dlfcn.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "places/share_module.h"
#include "places/share_network.h"
#include "support/samba_server.h"

namespace pnl {
namespace {

using test::SambaServer;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr const char* kModule = PNL_SHARES_MODULE;

/// On a busy machine a server may take long for what isn't about time.
constexpr std::chrono::milliseconds kPatience{60'000};

bool IsModuleLoaded() {
  void* const module = dlopen(kModule, RTLD_NOW | RTLD_NOLOAD);
  if (module != nullptr) dlclose(module);
  return module != nullptr;
}

/// Answers with the same name and each of these passwords in turn.
class Operator final : public CredentialsAsker {
 public:
  std::vector<std::string> passwords{SambaServer::kPassword};
  Text user = FromUtf8(SambaServer::kUser);
  int asked = 0;

  SharedCredentials Ask(TextView /*server*/, bool /*again*/) override {
    const auto next = static_cast<std::size_t>(asked++);
    if (next >= passwords.size()) return nullptr;
    return std::make_shared<const Credentials>(user, u"", FromUtf8(passwords[next]));
  }
};

class SharesTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    if (!SambaServer::WhyNot().empty()) return;
    std::ifstream config(PNL_SAMBA_CONFIG, std::ios::binary);
    server = new SambaServer(std::string(std::istreambuf_iterator<char>(config), {}));
    problem = server->Start();
  }
  static void TearDownTestSuite() { delete std::exchange(server, nullptr); }
  void SetUp() override {
    if (server == nullptr) GTEST_SKIP() << SambaServer::WhyNot();
    ASSERT_EQ(problem, "");
  }

  /// A network with the server under the name SRV.
  static std::unique_ptr<ShareNetwork> MakeNetwork(const std::shared_ptr<CredentialsAsker>& asker) {
    const std::string file = "[SERVER SRV]\nAddress=" + server->Address().Text() + "\n";
    return std::make_unique<ShareNetwork>(ParseNetworkFile(file), ShareClientFrom(kModule, kPatience), asker,
                                          2 * kPatience);
  }
  /// The entries but for the dot entries, which must come first.
  static std::vector<PlaceEntry> List(const ShareNetwork& network, TextView folder, int expected = 0) {
    std::vector<PlaceEntry> all;
    EXPECT_EQ(network.Folders()->List(folder,
                                      [&](std::vector<PlaceEntry>&& entries) {
                                        all.insert(all.end(), entries.begin(), entries.end());
                                        return true;
                                      }),
              expected);
    if (expected != 0) return all;
    EXPECT_GE(all.size(), 2U);
    EXPECT_EQ(all.at(0).name, u".");
    EXPECT_EQ(all.at(1).name, u"..");
    all.erase(all.begin(), all.begin() + 2);
    return all;
  }
  static std::vector<Text> Names(const ShareNetwork& network, TextView folder) {
    std::vector<Text> names;
    for (const PlaceEntry& each : List(network, folder)) names.push_back(each.name);
    return names;
  }
  static std::vector<NetworkResource> Shares(const ShareNetwork& network) {
    NetworkResource below;
    below.display = network_display::kServer;
    below.remote = u"\\\\SRV";
    const auto enumeration = network.Reader()->Open(NetworkScope::kEverything, below);
    std::vector<NetworkResource> shares;
    if (enumeration == nullptr || enumeration->Next(shares) != network_status::kOk) return {};
    return shares;
  }
  static void MakeFile(const std::string& name, const std::string& bytes = {}) {
    std::filesystem::create_directories(std::filesystem::path(server->Files() + "/" + name).parent_path());
    std::ofstream(server->Files() + "/" + name) << bytes;
  }

  /// A network to whose server the operator has logged on.
  std::unique_ptr<ShareNetwork> LoggedOn() {
    auto network = MakeNetwork(person);
    EXPECT_EQ(network->Reader()->Connect(u"\\\\SRV\\programs", 0), 0);
    return network;
  }

  inline static SambaServer* server = nullptr;
  inline static std::string problem;
  std::shared_ptr<Operator> person = std::make_shared<Operator>();
};

// The first one: afterwards the module is loaded for good.
TEST_F(SharesTest, AModuleIsLoadedWhenAServerIsFirstAskedAndNotBefore) {
  const auto network = MakeNetwork(person);
  EXPECT_NE(network->Reader()->Open(NetworkScope::kEverything, std::nullopt), nullptr);
  EXPECT_FALSE(IsModuleLoaded());
  std::ignore = network->Folders()->Probe(u"\\\\SRV\\open");
  EXPECT_TRUE(IsModuleLoaded());
}

TEST_F(SharesTest, AModuleOfAnotherVersionMakesNoClient) {
  void* const module = dlopen(kModule, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(module, nullptr);
  const auto make = reinterpret_cast<MakeShareClientFn>(dlsym(module, kShareClientMaker));
  EXPECT_EQ(make(kShareClientVersion + 1, 1000), nullptr);
}

TEST_F(SharesTest, TheServersSharesAreListedWithoutThoseOfItsAdministrator) {
  const auto network = LoggedOn();
  const auto share = [](TextView name, TextView comment) {
    return NetworkResource{
        network_display::kShare, Text(u"\\\\SRV\\").append(name), {}, Text(comment), Text(kUsualProvider)};
  };
  EXPECT_THAT(Shares(*network),
              UnorderedElementsAre(share(u"programs", u"Programs of all machines"), share(u"Tool data ñ", u""),
                                   share(u"forbidden", u""), share(u"open", u"")));
  EXPECT_EQ(network->Folders()->Probe(u"\\\\SRV"), place_error::kNone);
}

TEST_F(SharesTest, AFolderIsListedWithSizesDatesAndKinds) {
  MakeFile("listed/part.nc", "G0 X0\n");
  MakeFile("listed/.hidden", "x");
  std::filesystem::create_directories(server->Files() + "/listed/sub");
  const timespec times[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
  for (const char* name : {"part.nc", ".hidden", "sub"}) {
    ASSERT_EQ(utimensat(AT_FDCWD, (server->Files() + "/listed/" + name).c_str(), times, 0), 0);
  }
  const auto network = LoggedOn();
  EXPECT_THAT(List(*network, u"\\\\SRV\\programs\\listed"),
              UnorderedElementsAre(PlaceEntry{u"part.nc", false, false, false, 6, 1'000'000'000},
                                   PlaceEntry{u".hidden", false, true, false, 1, 1'000'000'000},
                                   PlaceEntry{u"sub", true, false, false, 0, 1'000'000'000}));
}

TEST_F(SharesTest, NestedFoldersAndNamesWithAccentsAndBlanksAreFound) {
  const std::vector<std::string> names = {"ñandú é 1.nc", "100% + a&b;c#d.nc", "日本.nc", "𝄞.nc",
                                          "a'b (2) [x]{y}=z,~.nc"};
  for (const std::string& name : names) MakeFile("Año 1/más/" + name);
  const auto network = LoggedOn();
  std::vector<Text> expected;
  for (const std::string& name : names) expected.push_back(FromUtf8(name));
  EXPECT_THAT(Names(*network, u"\\\\SRV\\programs\\Año 1\\más"), testing::UnorderedElementsAreArray(expected));
  for (const Text& name : expected) {
    EXPECT_TRUE(network->Folders()->Exists(u"\\\\SRV\\programs\\Año 1\\más\\" + name)) << ToUtf8(name);
  }
  // The share's own name, and case that differs.
  EXPECT_EQ(network->Folders()->Probe(u"\\\\srv\\TOOL DATA Ñ\\AÑO 1"), place_error::kNone);
}

TEST_F(SharesTest, WhatIsNotThereSaysSo) {
  MakeFile("file.nc");
  const auto network = LoggedOn();
  const std::pair<TextView, int> rows[] = {
      {u"\\\\SRV\\programs", place_error::kNone},
      {u"\\\\SRV\\programs\\none", place_error::kPathNotFound},
      {u"\\\\SRV\\programs\\none\\below", place_error::kPathNotFound},
      {u"\\\\SRV\\programs\\file.nc", place_error::kNoFolder},
      {u"\\\\SRV\\noshare", place_error::kPathNotFound},
      {u"\\\\SRV\\forbidden", place_error::kAccessDenied},
      {u"\\\\no.such.host.invalid\\x", place_error::kRemoteNotListening},
  };
  for (const auto& [path, error] : rows) EXPECT_EQ(network->Folders()->Probe(path), error) << ToUtf8(path);
}

TEST_F(SharesTest, AReadOnlyFileIsKnown) {
  MakeFile("ro/locked.nc");
  MakeFile("ro/free.nc");
  ASSERT_EQ(chmod((server->Files() + "/ro/locked.nc").c_str(), 0444), 0);
  const auto network = LoggedOn();
  EXPECT_TRUE(network->Folders()->IsReadOnly(u"\\\\SRV\\programs\\ro\\locked.nc"));
  EXPECT_FALSE(network->Folders()->IsReadOnly(u"\\\\SRV\\programs\\ro\\free.nc"));
  EXPECT_FALSE(network->Folders()->IsReadOnly(u"\\\\SRV\\programs\\ro\\none.nc"));
}

TEST_F(SharesTest, TheBeginningOfAFileIsRead) {
  std::ofstream(server->Files() + "/begin.nc") << std::string(10'000, 'G');
  std::ofstream(server->Files() + "/empty.nc");
  const auto network = LoggedOn();
  EXPECT_EQ(network->Folders()->ReadStart(u"\\\\SRV\\programs\\begin.nc", 4096), std::string(4096, 'G'));
  EXPECT_EQ(network->Folders()->ReadStart(u"\\\\SRV\\programs\\begin.nc", 20'000), std::string(10'000, 'G'));
  EXPECT_EQ(network->Folders()->ReadStart(u"\\\\SRV\\programs\\empty.nc", 4096), "");
  EXPECT_EQ(network->Folders()->ReadStart(u"\\\\SRV\\programs\\none.nc", 4096), std::nullopt);
  EXPECT_EQ(network->Folders()->ReadStart(u"\\\\SRV\\programs", 4096), std::nullopt);
}

TEST_F(SharesTest, AFolderIsMadeWithItsParents) {
  const auto network = LoggedOn();
  EXPECT_EQ(network->Folders()->MakeFolder(u"\\\\SRV\\programs\\made\\año 2\\x"), place_error::kNone);
  EXPECT_TRUE(std::filesystem::is_directory(server->Files() + "/made/año 2/x"));
  EXPECT_EQ(network->Folders()->MakeFolder(u"\\\\SRV\\programs\\made"), place_error::kAlreadyExists);
  // This share is read-only.
  EXPECT_EQ(network->Folders()->MakeFolder(u"\\\\SRV\\Tool data ñ\\made2"), place_error::kAccessDenied);
}

TEST_F(SharesTest, AnOpenShareAsksNobody) {
  MakeFile("for all.nc");
  const auto network = MakeNetwork(person);
  EXPECT_EQ(network->Folders()->Probe(u"\\\\SRV\\open"), place_error::kNone);
  EXPECT_TRUE(network->Folders()->Exists(u"\\\\SRV\\open\\for all.nc"));
  EXPECT_EQ(network->Folders()->Probe(u"\\\\SRV\\programs"), place_error::kLogonFailed);
  EXPECT_EQ(person->asked, 0);
}

TEST_F(SharesTest, AWrongPasswordIsAskedAgain) {
  person->passwords = {"wrong", SambaServer::kPassword};
  const auto network = MakeNetwork(person);
  EXPECT_EQ(network->Reader()->Connect(u"\\\\SRV\\programs", 0), 0);
  EXPECT_EQ(person->asked, 2);
  EXPECT_EQ(network->Folders()->Probe(u"\\\\SRV\\programs"), place_error::kNone);
}

TEST_F(SharesTest, AWrongPasswordNeverLetsInAsNobody) {
  person->passwords = {"wrong", "wrong", "wrong"};
  const auto network = MakeNetwork(person);
  EXPECT_EQ(network->Reader()->Connect(u"\\\\SRV\\programs", 0), place_error::kLogonFailed);
  EXPECT_EQ(person->asked, 3);
}

TEST_F(SharesTest, NobodysConnectionServesNobodyElse) {
  const auto client = ShareClientFrom(kModule, kPatience)();
  ASSERT_NE(client, nullptr);
  SharePlace place{server->Address().host, static_cast<std::uint16_t>(server->Address().port), u"open", {}, nullptr};
  EXPECT_EQ(client->Look(place).error, place_error::kNone);
  place.logon = std::make_shared<const Credentials>(person->user, u"", u"wrong");
  EXPECT_EQ(client->Look(place).error, place_error::kAccessDenied);
  place.share = u"";
  EXPECT_EQ(client->ListShares(place).error, place_error::kAccessDenied);
  place.logon = std::make_shared<const Credentials>(person->user, u"", FromUtf8(SambaServer::kPassword));
  EXPECT_EQ(client->ListShares(place).error, place_error::kNone);
}

TEST_F(SharesTest, SomebodysConnectionServesNobodyElse) {
  // Even somebody with the name of the account under which this runs.
  ASSERT_EQ(setenv("USER", SambaServer::kUser, 1), 0);
  const auto client = ShareClientFrom(kModule, kPatience)();
  unsetenv("USER");
  ASSERT_NE(client, nullptr);
  SharePlace place{
      server->Address().host, static_cast<std::uint16_t>(server->Address().port), u"programs", {}, nullptr};
  place.logon = std::make_shared<const Credentials>(person->user, u"", FromUtf8(SambaServer::kPassword));
  EXPECT_EQ(client->Look(place).error, place_error::kNone);
  place.logon = nullptr;
  EXPECT_EQ(client->Look(place).error, place_error::kLogonFailed);
}

TEST_F(SharesTest, WhoHasLookedAsNobodyLogsOnAllTheSame) {
  const auto network = MakeNetwork(person);
  EXPECT_EQ(network->Folders()->Probe(u"\\\\SRV\\open"), place_error::kNone);
  EXPECT_EQ(network->Reader()->Connect(u"\\\\SRV\\programs", 0), 0);
  EXPECT_EQ(network->Folders()->Probe(u"\\\\SRV\\programs"), place_error::kNone);
}

TEST_F(SharesTest, AServerThatIsGoneSaysSoAndIsFoundAgainWhenItIsBack) {
  const auto network = LoggedOn();
  EXPECT_EQ(network->Folders()->Probe(u"\\\\SRV\\programs"), place_error::kNone);
  server->Stop();
  EXPECT_EQ(network->Folders()->Probe(u"\\\\SRV\\programs"), place_error::kRemoteNotListening);
  EXPECT_EQ(network->Folders()->Probe(u"\\\\SRV"), place_error::kRemoteNotListening);
  EXPECT_FALSE(network->Folders()->Exists(u"\\\\SRV\\programs"));
  ASSERT_EQ(server->Start(), "");
  // The operator isn't asked again.
  EXPECT_EQ(network->Folders()->Probe(u"\\\\SRV\\programs"), place_error::kNone);
  EXPECT_EQ(person->asked, 1);
}

TEST_F(SharesTest, AServerThatSaysNothingIsGivenUpAfterThreeSeconds) {
  const test::SilentServer silent;
  const ShareNetwork network(ParseNetworkFile("[SERVER SILENT]\nAddress=" + silent.Address().Text() + "\n"),
                             ShareClientFrom(kModule), person, kPatience);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(network.Folders()->Probe(u"\\\\SILENT\\x"), place_error::kRemoteNotListening);
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_GE(took, kServerTimeOut - std::chrono::milliseconds(500));
  EXPECT_LT(took, 2 * kServerTimeOut);
}

TEST_F(SharesTest, TenThousandEntriesAreListed) {
  constexpr int kMany = 10'000;
  std::filesystem::create_directories(server->Files() + "/many");
  const Descriptor folder(open((server->Files() + "/many").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  for (int i = 0; i < kMany; ++i) {
    const Descriptor file(openat(folder.Get(), ("part" + std::to_string(i) + ".nc").c_str(), O_CREAT | O_WRONLY, 0644));
    ASSERT_TRUE(file);
  }
  const auto network = LoggedOn();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(List(*network, u"\\\\SRV\\programs\\many").size(), static_cast<std::size_t>(kMany));
  RecordProperty(
      "milliseconds",
      std::to_string(
          std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start).count()));
}

TEST_F(SharesTest, TheUsersOwnSettingsForSharesChangeNothingAndNothingIsPrinted) {
  const test::TempFolder home;
  home.Write(".smb/smb.conf",
             "[global]\nclient max protocol = NT1\nclient ipc max protocol = NT1\nlog level = 10\n"
             "name resolve order = bcast\nclient signing = required\n");
  const std::string before = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "";
  ASSERT_EQ(setenv("HOME", home.Path().c_str(), 1), 0);
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  {
    const auto network = LoggedOn();
    EXPECT_FALSE(Shares(*network).empty());
  }
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  setenv("HOME", before.c_str(), 1);
  // Nor is anything written there.
  std::vector<std::string> files;
  for (const auto& each : std::filesystem::recursive_directory_iterator(home.Path())) {
    files.push_back(each.path().filename());
  }
  EXPECT_THAT(files, UnorderedElementsAre(".smb", "smb.conf"));
}

}  // namespace
}  // namespace pnl
