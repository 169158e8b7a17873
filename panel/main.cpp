// SPDX-License-Identifier: MIT
#include <malloc.h>
#include <pnltools/pnltools.h>
#include <pnltools/rig.h>

#include <QApplication>
#include <QDir>
#include <QScreen>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>

#include "end_signals.h"
#include "guided/guided_session.h"
#include "host/cutting_data.h"
#include "host/demo_disc.h"
#include "host/host_session.h"
#include "host/operator.h"
#include "host/panel_settings.h"
#include "options.h"
#include "remote/remote_control.h"
#include "remote/standard_streams.h"
#include "ui/background.h"
#include "ui/journal_keeper.h"
#include "ui/panel_window.h"
#include "ui/password_box.h"
#include "ui/program_desk.h"
#include "ui/quiet_caches.h"
#include "ui/settings_desk.h"
#include "ui/theme.h"
#include "ui/touch_desk.h"

namespace {

constexpr int kBadCommandLine = 2;

/// Prints what is wrong, and how to get help, to standard error. Returns the program's exit code for it.
int Refuse(const QString& text) {
  std::fprintf(stderr, "pnlpanel: %s\nTry pnlpanel --help.\n", qPrintable(text));
  return kBadCommandLine;
}

QStringList ArgumentsOf(int argc, char** argv) {
  QStringList arguments;
  for (int i = 1; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
  return arguments;
}

QString RootFolder(const panel::Options& options) {
  if (!options.root.isEmpty()) return QDir(options.root).absolutePath();
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/pnlpanel");
}

/// Whether the panel needs a display and has none. Qt would end the process then; the panel prints the reason first.
bool LacksDisplay(const panel::Options& options) {
  return !options.headless && qEnvironmentVariableIsEmpty("DISPLAY") &&
         qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

/// Sets up drive C:. Returns what is wrong, or an empty text.
QString PrepareDrive(pnl::rig::Rig& rig, const panel::Options& options) {
  // A machine whose drives are described has a drive C: of its own.
  if (options.root.isEmpty() && !rig.SimulatesDrives()) return {};
  const QString root = RootFolder(options);
  if (!QDir().mkpath(root)) return QStringLiteral("--root: the folder %1 can't be made").arg(root);
  pnl::rig::Drive drive;
  drive.letter = 'C';
  drive.dir = QFile::encodeName(root).toStdString();
  rig.Files().SetDrive(drive);
  return {};
}

/// The file on this machine with the panel's settings; empty when this panel has none. A script decides itself whether
/// it wants them, and nobody is there to be asked head-less.
QString SettingsFile(pnl::rig::Rig& rig, const panel::Options& options) {
  constexpr std::int32_t kUserSettings = 108;
  const bool unattended = options.rpc || options.headless || options.bare || !options.guidedInto.isEmpty();
  if (unattended && !options.settings) return {};
  const auto file = rig.Files().HostPath(rig.Files().Path(kUserSettings) + u"\\PNLPANEL.INI");
  return file ? QFile::decodeName(QByteArray::fromStdString(*file)) : QString();
}

/// The cutting data of a new drive are in the operator's language.
void PlaceCuttingData(pnl::rig::Rig& rig, const panel::Options& options) {
  if (!options.bare && !panel::PlaceCuttingData(rig.Files(), QStringLiteral(":/cutting"), panel::WordsInUse())) {
    std::fprintf(stderr, "pnlpanel: no cutting data\n");
  }
}

/// Sets up drive C:, the machine and the clock. Returns what is wrong, or an empty text.
QString PrepareRig(pnl::rig::Rig& rig, const panel::Options& options) {
  if (QString problem = PrepareDrive(rig, options); !problem.isEmpty()) return problem;
  const bool started = options.bare ? rig.StartBare() : rig.StartMachine(options.machine.toStdString());
  if (!started) return QStringLiteral("--machine: there is no machine named %1").arg(options.machine);
  if (options.manualTime || !options.guidedInto.isEmpty()) rig.UseManualTime();
  return {};
}

void Speak(const QString& language) {
  if (PnlSetLanguage(qPrintable(language)) == 0) {
    // A missing pack is no reason to stop: the panel works without one.
    std::fprintf(stderr, "pnlpanel: no language pack for %s\n", qPrintable(language));
  }
  panel::UseWords(language);
}

struct KeptSettings {
  QString file;  // empty when this panel keeps none
  panel::PanelSettings known;
};

/// Reads the settings, and sets the language and how wide the screen is. The options go before the settings.
KeptSettings TakeSettings(pnl::rig::Rig& rig, const panel::Options& options) {
  KeptSettings kept{SettingsFile(rig, options), {}};
  if (!kept.file.isEmpty()) kept.known = panel::LoadSettings(kept.file);
  const QString& known = kept.known.language;
  Speak(!options.language.isEmpty() ? options.language : known.isEmpty() ? QStringLiteral("en") : known);
  panel::theme::SetScreenWidth(kept.known.screenMillimetres.value_or(0));
  return kept;
}

/// Gives the demo machine its disc, as drive D: with its files in a hidden folder of drive C:. They are made in the
/// background, because at the first start they are many.
void SetUpDemoDisc(pnl::rig::Rig& rig, const panel::Options& options, panel::Background& maker) {
  pnl::rig::Drive drive;
  const QString folder = RootFolder(options) + QStringLiteral("/.demo-disc");
  drive.letter = 'D';
  drive.dir = QFile::encodeName(folder).toStdString();
  drive.label = u"DEMO";
  if (!QDir().mkpath(folder)) return;
  rig.Files().SetDrive(drive);
  maker.Run<bool>([folder] { return panel::MakeDemoDisc(QStringLiteral(":/demo_disc"), folder); },
                  [folder](bool made) {
                    if (!made) std::fprintf(stderr, "pnlpanel: %s is not whole\n", qPrintable(folder));
                  });
}

panel::PathResolver ResolverOf(pnl::rig::Rig& rig) {
  return [&rig](const QString& path) {
    const auto host = rig.Files().HostPath(path.toStdU16String());
    return host ? QFile::decodeName(QByteArray::fromStdString(*host)) : QString();
  };
}

void SetUpPrograms(pnl::rig::Rig& rig, panel::PanelWindow& window) {
  constexpr std::int32_t kProgramsPath = 101;
  const QString folder = QString::fromStdU16String(rig.Files().Path(kProgramsPath));
  if (folder.isEmpty()) return;
  window.Desk().SetProgramsFolder(folder);
  const auto host = rig.Files().HostPath(folder.toStdU16String());
  if (host) QDir().mkpath(QFile::decodeName(QByteArray::fromStdString(*host)));
}

/// Keeps what isn't saved in a journal among the user's settings. A script decides itself whether it wants that.
void SetUpJournal(pnl::rig::Rig& rig, const panel::Options& options, panel::PanelWindow& window) {
  constexpr std::int32_t kUserSettings = 108;
  if (options.bare || (options.rpc && !options.journal)) return;
  const auto folder = rig.Files().HostPath(rig.Files().Path(kUserSettings));
  if (!folder) return;
  window.KeepJournal(
      {QFile::decodeName(QByteArray::fromStdString(*folder)), ResolverOf(rig), options.manualTime && options.rpc});
}

/// Shows the panel. The tool area gets the size that the options ask for; without one it is 800x600 head-less, and on a
/// display the panel fills the screen.
void ShowPanel(panel::PanelWindow& window, const panel::Options& options) {
  const bool unseen = options.headless;
  if (!options.toolArea.isEmpty() || unseen) {
    window.ResizeToolArea(options.toolArea.isEmpty() ? QSize(800, 600) : options.toolArea);
    window.show();
    return;
  }
  window.showMaximized();
}

/// Runs one guided session in one language, with a panel of its own. Returns the number of the next step, or 0 when a
/// step failed.
int Guide(pnl::rig::Rig& rig, const panel::Options& options, const char* language, panel::Tour tour, int first) {
  PnlSetLanguage(language);
  panel::UseWords(QString::fromLatin1(language));
  panel::HostSession session;
  session.OfferAll();
  panel::Operator op(session, &rig);
  panel::PanelWindow window(session, op, ResolverOf(rig));
  SetUpPrograms(rig, window);
  ShowPanel(window, options);
  op.Desk().StartTools();
  return panel::RunGuidedSession(window, session, op, rig, options.guidedInto, tour, first);
}

/// Runs the whole tour in the language asked for, then a short look in the other one. Returns the exit code.
int RunGuided(pnl::rig::Rig& rig, const panel::Options& options) {
  const bool spanish = options.language == QLatin1String("es");
  const int next = Guide(rig, options, spanish ? "es" : "en", panel::Tour::kWhole, 1);
  if (next == 0) return 1;
  return Guide(rig, options, spanish ? "en" : "es", panel::Tour::kGlance, next) == 0 ? 1 : 0;
}

/// Does something once, after the window's first paint.
class WhenPainted : public QObject {
 public:
  WhenPainted(QWidget& window, std::function<void()> act) : act_(std::move(act)) { window.installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && act_) {
      QMetaObject::invokeMethod(this, std::exchange(act_, nullptr), Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  std::function<void()> act_;
};

/// A guided session types, stores and exports. Without a folder named for it, it does so in one of its own, so that it
/// begins the same every time and changes nothing that an operator has.
panel::Options WithRootOf(const QTemporaryDir& own, panel::Options options) {
  if (!options.guidedInto.isEmpty() && options.root.isEmpty()) options.root = own.path();
  return options;
}

int Run(QApplication& application, const panel::Options& given) {
  const QTemporaryDir own;
  const panel::Options options = WithRootOf(own, given);
  pnl::rig::Rig* rig = PnlRig();
  if (rig == nullptr) return Refuse(QStringLiteral("the library has no simulated CNC"));
  const QString problem = PrepareRig(*rig, options);
  if (!problem.isEmpty()) return Refuse(problem);
  const KeptSettings kept = TakeSettings(*rig, options);
  if (!options.guidedInto.isEmpty()) {
    PlaceCuttingData(*rig, options);
    return RunGuided(*rig, options);
  }
  panel::HostSession session;
  session.SetReacting(!options.bare);
  session.OfferAll();
  panel::Operator op(session, rig);
  panel::PanelWindow window(session, op, ResolverOf(*rig));
  SetUpPrograms(*rig, window);
  window.Touch().SetTouched(options.touch);
  window.SetAsksBeforeClosing(!options.headless && !options.rpc);
  // A script begins with drive C: alone, and sets the answers to passwords itself.
  panel::Background maker;
  if (!options.rpc && !options.bare && rig->SimulatesDrives()) SetUpDemoDisc(*rig, options, maker);
  if (!options.rpc && !options.bare) rig->AskPasswords([&window](std::int32_t) { return window.Password().Ask(); });
  std::unique_ptr<panel::RemoteControl> remote;
  if (options.rpc) {
    remote =
        std::make_unique<panel::RemoteControl>(session, window, panel::RemoteOptions{options.bare, options.manualTime});
  }
  // A signal closes the panel without a question: nobody may be there to answer it.
  const panel::EndSignals endSignals([&session, &window] {
    window.LeaveForNextStart();
    session.CloseAll();
    QCoreApplication::exit(0);
  });
  // What was left is offered once the first start's questions are answered.
  const auto begin = [rig, &options, &window] {
    PlaceCuttingData(*rig, options);
    SetUpJournal(*rig, options, window);
  };
  std::optional<panel::SettingsDesk> settings;
  if (kept.file.isEmpty()) {
    begin();
  } else {
    settings.emplace(window, op, kept.file).Begin(kept.known, begin);
  }
  std::optional<WhenPainted> end;
  if (options.untilPainted) end.emplace(window, [] { QCoreApplication::quit(); });
  // The error tool measures the panel when it is made. On a display the panel has its final size only once it is
  // painted.
  std::optional<WhenPainted> tools;
  if (!options.headless) tools.emplace(window, [&op] { op.Desk().StartTools(); });
  ShowPanel(window, options);
  if (options.headless) op.Desk().StartTools();
  if (remote) remote->Start();
  const int code = application.exec();
  maker.Finish();
  rig->AskPasswords({});
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  // Videos play on threads that come and go. Each would take its memory from an arena of its own, and after a hundred
  // videos all arenas together would be twice as large as they need to be.
  constexpr int kArenas = 2;
  mallopt(M_ARENA_MAX, kArenas);
  panel::KeepStandardDescriptors();
  const auto parsed = panel::ParseOptions(ArgumentsOf(argc, argv));
  if (const auto* error = std::get_if<panel::OptionError>(&parsed)) return Refuse(error->text);
  auto options = std::get<panel::Options>(parsed);
  if (options.help) {
    std::fputs(qPrintable(panel::OptionsHelp()), stdout);
    return 0;
  }
  if (options.keys) {
    panel::UseWords(options.language);
    std::fputs(qPrintable(panel::ShortcutPage()), stdout);
    return 0;
  }
  if (LacksDisplay(options)) return Refuse(QStringLiteral("there is no display; --headless draws off screen"));
  if (options.headless) qputenv("QT_QPA_PLATFORM", "offscreen");
  panel::QuietFontCache();
  QApplication application(argc, argv);
  panel::QuietPixmapCache();
  QApplication::setApplicationName(QStringLiteral("pnlpanel"));
  panel::theme::Apply(application);
  return Run(application, options);
}
