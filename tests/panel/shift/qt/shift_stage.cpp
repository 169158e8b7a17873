// SPDX-License-Identifier: MIT
#include "panel/shift/qt/shift_stage.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <tuple>

#include "common/words.h"
#include "host/cutting_data.h"
#include "host/demo_disc.h"
#include "remote/settle.h"
#include "ui/key_guard.h"
#include "ui/keyboard.h"
#include "ui/program_desk.h"
#include "ui/quiet_caches.h"
#include "ui/theme.h"
#include "ui/touch_desk.h"

namespace panel::shift {
namespace {

constexpr std::int32_t kCuttingDataPath = 24;
constexpr std::int32_t kProgramsPath = 101;
constexpr char kShare = 'N';
constexpr int kNetworkDrive = 4;

/// The machine's drive. The machine puts its documents there once, when it starts.
const QTemporaryDir& MachineDrive() {
  static const QTemporaryDir drive;
  return drive;
}

/// Starts the machine of this process, once. Its first drive must be there already.
bool HasMachine(pnl::rig::Rig& rig, bool manualTime) {
  if (rig.Machine() == nullptr && !rig.StartMachine("demo")) return false;
  if (manualTime) rig.UseManualTime();
  return true;
}

}  // namespace

ShiftStage::ShiftStage(const Setting& setting) : setting_(setting), rig_(*PnlRig()) {
  SetUpDrives();
  PnlSetLanguage(setting_.language.toLatin1().constData());
  UseWords(setting_.language);
  if (!HasMachine(rig_, setting_.manualTime)) problem_ = QStringLiteral("no machine");
  if (!problem_.isEmpty()) return;
  RemoveOldWork();
  if (!PlaceCuttingData(rig_.Files(), QStringLiteral(PNL_SHARE_FOLDER "/cutting"), setting_.language)) {
    problem_ = QStringLiteral("no cutting data");
  }
  SetUpShare();
  rig_.SetSink(this);
  SetUpPanel();
}

ShiftStage::~ShiftStage() {
  window_.reset();
  op_.reset();
  Settle();
  rig_.SetSink(nullptr);
  pnl::rig::Drive gone;
  gone.letter = kShare;
  rig_.Files().SetDrive(gone);
  if (rig_.Machine() != nullptr) rig_.Machine()->Reset();
  rig_.Cnc().ClearErrors();
  rig_.Advance(1000);
  PnlSetLanguage("en");
  UseWords("en");
}

void ShiftStage::SetUpDrives() {
  const QString disc = folder_.filePath(QStringLiteral("disc"));
  for (const auto& [letter, label, folder] :
       {std::tuple{'C', u"", MachineDrive().path()}, std::tuple{'D', u"DEMO", disc}}) {
    pnl::rig::Drive drive;
    drive.letter = letter;
    drive.label = label;
    drive.dir = QFile::encodeName(folder).toStdString();
    rig_.Files().SetDrive(drive);
  }
  if (!QDir().mkpath(disc) || !MakeDemoDisc(QStringLiteral(PNL_SOURCE_FOLDER "/share/demo_disc"), disc)) {
    problem_ = QStringLiteral("no demo disc");
  }
}

void ShiftStage::RemoveOldWork() {
  // What the tools remember, cutting data in another language, the operator's own too, and what was saved.
  for (const QString& path :
       {QStringLiteral("C:\\CNC\\USER"), QString::fromStdU16String(rig_.Files().Path(kProgramsPath)),
        QString::fromStdU16String(rig_.Files().Path(kCuttingDataPath))}) {
    QDir folder(Host(path));
    if (folder.exists() && !folder.removeRecursively()) problem_ = QStringLiteral("old work stays in ") + path;
  }
}

void ShiftStage::SetUpShare() {
  const QString folder = folder_.filePath(QStringLiteral("office"));
  QDir().mkpath(folder);
  QFile file(folder + QStringLiteral("/ORDER 27.NC"));
  if (!file.open(QIODevice::WriteOnly) || file.write("(ORDER 27)\r\nG90 G54\r\nG0 X10 Y10\r\nM30\r\n") < 0) {
    problem_ = QStringLiteral("no share");
  }
  pnl::rig::Drive drive;
  drive.letter = kShare;
  drive.dir = QFile::encodeName(folder).toStdString();
  drive.type = kNetworkDrive;
  drive.remote = u"\\\\OFFICE\\ORDERS";
  rig_.Files().SetDrive(drive);
}

void ShiftStage::SetUpPanel() {
  theme::Apply(*qApp);
  QuietPixmapCache();
  session_.OfferAll();
  op_ = std::make_unique<Operator>(session_, &rig_);
  window_ = std::make_unique<PanelWindow>(session_, *op_, [this](const QString& path) { return Host(path); });
  const QString programs = QString::fromStdU16String(rig_.Files().Path(kProgramsPath));
  if (!QDir().mkpath(Host(programs))) problem_ = QStringLiteral("no folder for programs");
  window_->Desk().SetProgramsFolder(programs);
  window_->SetAsksBeforeClosing(false);
  if (setting_.manualTime) window_->KeyboardOwner().SetClock([this] { return guardClock_; });
  // A screen that reports itself as a touch screen needs no option for its keyboard to rise.
  window_->Touch().SetTouched(setting_.pointing == Pointing::kMouse);
  window_->resize(setting_.size);
  window_->show();
  window_->activateWindow();
  Settle();
  op_->Desk().StartTools();
  Settle();
}

QString ShiftStage::Host(const QString& panelPath) const {
  const auto host = rig_.Files().HostPath(panelPath.toStdU16String());
  return host ? QFile::decodeName(QByteArray::fromStdString(*host)) : QString();
}

QByteArray ShiftStage::FileAt(const QString& panelPath) const {
  QFile file(Host(panelPath));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void ShiftStage::PassGuard() {
  guardClock_ += kGuardMilliseconds;
  if (!setting_.manualTime) WaitWhile([] { return true; }, kGuardMilliseconds);
}

void ShiftStage::Cnc(std::string_view name, const std::vector<pnl::rig::Value>& args, const pnl::rig::Value&) {
  if (name != "MDILine") return;
  for (const auto& arg : args) {
    if (const auto* text = std::get_if<std::u16string>(&arg)) blocks_ << QString::fromStdU16String(*text);
  }
}

}  // namespace panel::shift
