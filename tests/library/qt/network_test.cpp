// SPDX-License-Identifier: MIT
// The library's network: which one the tools see, and how questions for credentials reach the host.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QThread>
#include <QTreeView>
#include <QWidget>
#include <cstdlib>
#include <future>

#include "host/records.h"
#include "library/library.h"
#include "library/library_rig.h"
#include "support/event_wait.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

using testing::ElementsAre;

/// A library made while the variable names the file.
std::unique_ptr<Library> MakeLibrary(const char* networkFile) {
  if (networkFile != nullptr) setenv("PNLTOOLS_NETWORK_FILE", networkFile, 1);
  auto library = std::make_unique<Library>();
  unsetenv("PNLTOOLS_NETWORK_FILE");
  return library;
}

/// What the explorer shows at the root of its tree, and below its network root.
class NetworkTest : public testing::Test {
 protected:
  NetworkTest() { HostApi = {}; }
  ~NetworkTest() override { HostApi = {}; }

  std::vector<std::string> NetworkOf(Library& library) {
    rig::Drive drive;
    drive.dir = temp_.Folder("c");
    library.Simulation()->Storage().SetDrive(drive);
    LibraryRig rig(library);
    EXPECT_TRUE(rig.StartBare());
    XPLRDATA_ST record = {};
    SetField(record.Path, u"C:");
    record.Flags = XPLR_CONFIRMOVERWRITE;
    rig.Cnc().Define(u"E.XPLRDATA", rig::VariableType::kInt, std::int64_t{PublishRecord(&record)}, true, true);
    QWidget host;
    const WindowHandle parent = WindowRegistry::Instance().Attach(&host, nullptr, nullptr);
    library.Windows().SetBoxAnswerer([](const BoxSpec&) { return BoxAnswer::kOk; });
    const WindowHandle tool = library.LoadTool(PNL_TOOL_EXPLORER, parent);
    EXPECT_NE(tool, 0);
    EXPECT_TRUE(test::RunUntil([&] { return !rig.IsWorking(); }));
    Library::Drain();
    std::vector<std::string> names;
    for (const auto* tree : library.Windows().WidgetOf(tool)->findChildren<QTreeView*>()) {
      const QAbstractItemModel& model = *tree->model();
      for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex root = model.index(row, 0);
        names.push_back(root.data().toString().toStdString());
        for (int i = 0; i < model.rowCount(root); ++i) {
          names.push_back("  " + model.index(i, 0, root).data().toString().toStdString());
        }
      }
    }
    library.DestroyTool(tool);
    WithdrawRecord(PublishRecord(&record));
    return names;
  }

  test::TempFolder temp_;
};

TEST_F(NetworkTest, TheToolsSeeTheNetworkOfTheFile) {
  temp_.Write("network.ini", "[PROVIDER Plant]\n[SERVER OFFICE]\nProvider=Plant\n");
  const auto library = MakeLibrary((temp_.Path() / "network.ini").c_str());
  EXPECT_THAT(NetworkOf(*library), testing::IsSupersetOf({"Entire Network", "  Plant"}));
}

TEST_F(NetworkTest, WithoutAFileTheySeeTheSimulatedOne) {
  const auto library = MakeLibrary(nullptr);
  rig::NetworkNode provider;
  provider.display = 6;
  provider.provider = u"Simulated";
  library->Simulation()->Storage().SetNetwork({provider});
  EXPECT_THAT(NetworkOf(*library), testing::IsSupersetOf({"Entire Network", "  Simulated"}));
}

TEST_F(NetworkTest, AFileThatCantBeReadIsAnEmptyNetworkAndAWordOnStandardError) {
  testing::internal::CaptureStderr();
  const auto library = MakeLibrary("/none/network.ini");
  EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("no network file \"/none/network.ini\""));
  rig::NetworkNode provider;
  provider.display = 6;
  provider.provider = u"Simulated";
  library->Simulation()->Storage().SetNetwork({provider});
  EXPECT_THAT(NetworkOf(*library), testing::Not(testing::Contains("Entire Network")));
}

struct Asked {
  CredentialsDesk* desk = nullptr;
  std::vector<std::string> servers;
  QThread* thread = nullptr;
};

void OnAsked(void* context, std::uint32_t request, const char16_t* server, int again) {
  auto& asked = *static_cast<Asked*>(context);
  asked.servers.push_back(ToUtf8(server) + (again != 0 ? " again" : ""));
  asked.thread = QThread::currentThread();
  asked.desk->Answer(request, std::make_shared<const Credentials>(u"ana", u"", u"secret"));
}

TEST_F(NetworkTest, AQuestionReachesTheHostOnTheWindowsThread) {
  Library library;
  Asked asked{&library.Credentials(), {}, nullptr};
  library.Credentials().SetHost(&OnAsked, &asked);
  auto answer = std::async(std::launch::async, [&] { return library.Credentials().Ask(u"SRV", true); });
  ASSERT_TRUE(test::RunUntil([&] { return !asked.servers.empty(); }));
  EXPECT_NE(answer.get(), nullptr);
  EXPECT_THAT(asked.servers, ElementsAre("SRV again"));
  EXPECT_EQ(asked.thread, QThread::currentThread());
}

TEST_F(NetworkTest, ALibraryThatEndsRefusesItsQuestions) {
  auto library = std::make_unique<Library>();
  // It never answers.
  std::vector<int> asked;
  library->Credentials().SetHost(
      [](void* context, std::uint32_t, const char16_t*, int) { static_cast<std::vector<int>*>(context)->push_back(1); },
      &asked);
  std::promise<void> ended;
  auto answer = std::async(std::launch::async, [&desk = library->Credentials(), &ended] {
    auto got = desk.Ask(u"SRV", false);
    ended.set_value();
    return got;
  });
  ASSERT_TRUE(test::RunUntil([&] { return !asked.empty(); }));
  library->Credentials().Close();
  ended.get_future().wait();
  EXPECT_EQ(answer.get(), nullptr);
  library.reset();
}

TEST_F(NetworkTest, TheHostsFunctionsTakeAnything) {
  PnlAnswerCredentials(0, nullptr, nullptr, nullptr);
  PnlAnswerCredentials(12345, u"ana", nullptr, nullptr);
  PnlSetCredentialsAsker([](void*, std::uint32_t, const char16_t*, int) {}, nullptr);
  PnlSetCredentialsAsker(nullptr, nullptr);
}

}  // namespace
}  // namespace pnl
