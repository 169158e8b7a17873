// SPDX-License-Identifier: MIT
#include "library/library.h"

#include <QApplication>
#include <QThread>
#include <cstdio>
#include <cstdlib>

#include "facade/mill/machine_descriptions.h"
#include "facade/mill/machine_errors.h"
#include "host/drive_settings.h"
#include "host/pack_files.h"
#include "library/backend_loader.h"
#include "library/machine_documents.h"
#include "library/own_file.h"
#include "library/tool_factory.h"
#include "places/share_module.h"

namespace pnl {
namespace {

constexpr const char* kDefaultLanguage = "en";

/// What the network file says; nothing when none is named. A file that is named and can't be read is an empty one.
std::optional<NetworkSetup> ReadNetworkSetup() {
  const char* const file = std::getenv("PNLTOOLS_NETWORK_FILE");
  if (file == nullptr || *file == '\0') return std::nullopt;
  auto setup = ReadNetworkFile(file);
  if (!setup) std::fprintf(stderr, "pnltools: no network file \"%s\"\n", file);
  return setup.value_or(NetworkSetup());
}

/// True on the thread of a QApplication. Windows can be made only there.
bool CanMakeWindows() {
  auto* const application = qobject_cast<QApplication*>(QCoreApplication::instance());
  return application != nullptr && application->thread() == QThread::currentThread();
}

}  // namespace

Library& Library::Instance() {
  static auto* const library = new Library;
  return *library;
}

Library::Tools::Tools(Library& library, CncFacade& cnc, const ShareNetwork* network)
    : places(network != nullptr ? std::make_unique<NetworkPlaces>(library.DrivesFor(cnc), network->Folders())
                                : nullptr),
      host(HostApi, cnc.Vars()),
      language(library.menus_, cnc.Util(), library.files_, library.windows_),
      context{host,
              cnc,
              library.windows_,
              library.timers_,
              language,
              library.files_,
              places ? static_cast<Places&>(*places) : library.DrivesFor(cnc),
              network != nullptr ? static_cast<const Network&>(*network) : *library.network_,
              library.worker_} {}

Library::Library()
    : networkFile_(ReadNetworkSetup()),
      credentials_(std::make_shared<CredentialsDesk>([this](std::function<void()> step) {
        QMetaObject::invokeMethod(&onWindowsThread_, std::move(step), Qt::QueuedConnection);
      })) {
  const auto setup = ReadDriveFile(std::getenv("PNLTOOLS_DRIVE_FILE"));
  ownDrives_ = setup.has_value();
  if (setup) SetDescribedDrives(drives_, *setup);
  discs_ = std::make_unique<DiscPlaces>(drives_, setup.value_or(DriveSetup{}));
  SetStartDrives(drives_, std::getenv("PNLTOOLS_DRIVES"), std::getenv("XDG_DATA_HOME"), std::getenv("HOME"));
  simulation_ = std::make_unique<sim::SimulatedCnc>(windows_, timers_, files_, drives_);
  places_ = std::make_unique<sim::SimPlaces>(simulation_->Storage());
  network_ = std::make_unique<sim::SimNetwork>(simulation_->Storage());
  tools_ = std::make_unique<Tools>(*this, *simulation_, NetworkFor(false));
  UsePack(kDefaultLanguage);
}

Places& Library::DrivesFor(const CncFacade& cnc) {
  if (ownDrives_ || &cnc != simulation_.get()) return *discs_;
  return *places_;
}

void Library::WatchMounts() {
  if (mounts_ || &DrivesFor(tools_->context.cnc) != discs_.get()) return;
  const auto look = [this] { discs_->SetMounted(ReadMountTable()); };
  mounts_ = std::make_unique<MountWatch>(MountWatch::OpenTable(), look);
  look();
}

Library::~Library() {
  credentials_->Close();
  simulation_->AttachMachine(nullptr);
}

const ShareNetwork* Library::NetworkFor(bool isBackend) {
  if (!isBackend && !networkFile_) return nullptr;
  if (!shares_) {
    shares_ = std::make_unique<ShareNetwork>(networkFile_.value_or(NetworkSetup()),
                                             ShareClientFrom(ShareModuleBeside(OwnFile())), credentials_);
  }
  return shares_.get();
}

WindowHandle Library::LoadTool(int toolId, WindowHandle parent) {
  if (!CanMakeWindows()) return 0;
  WatchMounts();
  QWidget* const parentWidget = windows_.WidgetOf(parent);
  const ToolWindow* const tool = MakeTool(toolId, tools_->context, parentWidget);
  // A tool that failed in its start is still to be deleted, but its window is gone.
  return tool != nullptr && windows_.IsAlive(tool->Handle()) ? tool->Handle() : 0;
}

void Library::DestroyTool(WindowHandle window) {
  auto* const tool = qobject_cast<ToolWindow*>(windows_.WidgetOf(window));
  if (tool == nullptr) return;
  if (!tools_->host.InCallback() && !windows_.InCallOut() && !tool->InMessage()) {
    delete tool;
    return;
  }
  // The tool's own code is on the call stack.
  WindowRegistry::Instance().Unregister(window);
  tool->hide();
  tool->deleteLater();
}

bool Library::UsePack(const std::string& code) {
  const std::vector<std::string> folders = PackFolders(std::getenv("PNLTOOLS_LANG_DIR"), OwnFile());
  std::optional<std::string> bytes = ReadPackFile(folders, code);
  LanguagePack pack;
  if (!bytes || !pack.Parse(*bytes)) {
    std::fprintf(stderr, "pnltools: no language pack \"%s\"\n", code.c_str());
    return false;
  }
  tools_->language.Use(std::move(pack));
  packBytes_ = std::move(*bytes);
  language_ = code;
  return true;
}

bool Library::SetLanguage(const std::string& code) {
  const bool numbers = code == "none";
  if (!UsePack(numbers ? kDefaultLanguage : code)) return false;
  numbersForTexts_ = numbers;
  tools_->language.UseNumbersForTexts(numbers);
  if (machine_) machine_->SetLanguage(language_);
  if (foldersReady_ && machine_) UseLanguageFolders(simulation_->Storage(), language_);
  if (foldersReady_) InstallLanguageLibrary();
  return true;
}

bool Library::SetBackend(const std::string& name) {
  // A tool that has ended may still be on the call stack, or wait for its deletion.
  if (ToolWindow::Living() != 0 || tools_->host.InCallback() || windows_.InCallOut()) return false;
  std::unique_ptr<CncFacade> backend;
  if (name != "sim") {
    std::string problem;
    backend = LoadBackend(name, windows_, timers_, problem);
    if (!backend) {
      std::fprintf(stderr, "pnltools: %s\n", problem.c_str());
      return false;
    }
  }
  // Replace tools_ first, because the old one refers to the old facade.
  tools_ = std::make_unique<Tools>(*this, backend ? *backend : static_cast<CncFacade&>(*simulation_),
                                   NetworkFor(backend != nullptr));
  backend_ = std::move(backend);
  UsePack(language_);
  tools_->language.UseNumbersForTexts(numbersForTexts_);
  return true;
}

void Library::PrepareFolders() {
  if (machine_) UseLanguageFolders(simulation_->Storage(), language_);
  simulation_->Storage().MakeFolders();
  foldersReady_ = true;
  InstallLanguageLibrary();
  if (!machine_) return;
  InstallDescriptions();
  const std::vector<std::string> folders = PackFolders(std::getenv("PNLTOOLS_LANG_DIR"), OwnFile());
  // If the disc can't be written, help and documents are missing; everything else works.
  if (!InstallDocuments(files_, folders, *simulation_)) std::fprintf(stderr, "pnltools: no manuals\n");
}

void Library::InstallLanguageLibrary() {
  const Text folder = simulation_->Storage().Path(path_id::kLanguage);
  if (packBytes_.empty() || folder.empty()) return;
  const Text file = JoinPath(folder, kLanguageLibrary);
  if (ReadWhole(files_, file, packBytes_.size()) == packBytes_) return;
  // If the disc can't be written, the dialogs that need the file end as cancelled.
  if (files_.Replace(file, packBytes_) != FileStatus::kOk) std::fprintf(stderr, "pnltools: no language library\n");
}

void Library::InstallDescriptions() {
  const std::vector<std::string> folders = PackFolders(std::getenv("PNLTOOLS_LANG_DIR"), OwnFile());
  for (const char* language : {"en", "es"}) {
    const auto bytes = ReadSharedFile(folders, std::string("errors/") + language + "/machine.txt");
    if (!bytes) continue;
    const Text file = sim::DescriptionFile(language);
    for (const auto& [number, text] : sim::ParseDescriptions(*bytes)) simulation_->Description(file, number, text);
    if (ReadWhole(files_, file, bytes->size()) == *bytes) continue;
    // If the disc can't be written, only the file is missing; the texts are in the tables.
    files_.MakeFolder(TextView(file).substr(0, file.rfind(u'\\')));
    if (files_.Replace(file, *bytes) != FileStatus::kOk) std::fprintf(stderr, "pnltools: no error descriptions\n");
  }
}

bool Library::StartMachine(std::string_view name) {
  if (machine_) return false;
  machine_ = sim::MakeMachine(name, simulation_->Environment());
  if (!machine_) return false;
  machine_->SetLanguage(language_);
  simulation_->AttachMachine(machine_.get());
  return true;
}

void Library::Drain() {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace pnl
