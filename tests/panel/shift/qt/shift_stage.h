// SPDX-License-Identifier: MIT
// The panel on which a shift is worked: the demo machine with its disc, cutting data and a drive that leads to a share,
// all in temporary folders. A process has one machine, so it can have only one stage at a time. The stage records what
// the CNC gets. It knows no test and no benchmark.
#pragma once

#include <pnltools/rig.h>

#include <QSize>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>

#include "host/host_session.h"
#include "host/operator.h"
#include "panel/shift/qt/finger.h"
#include "ui/panel_window.h"

namespace panel::shift {

struct Setting {
  QString language = QStringLiteral("en");
  QSize size{800, 600};  // of the panel's window
  Pointing pointing = Pointing::kTouchScreen;
  bool manualTime = true;  // the machine moves only when the hands let time pass
};

class ShiftStage : public pnl::rig::EventSink {
 public:
  explicit ShiftStage(const Setting& setting);
  ~ShiftStage() override;

  [[nodiscard]] const Setting& Set() const { return setting_; }
  [[nodiscard]] PanelWindow& Window() const { return *window_; }
  [[nodiscard]] HostSession& Session() { return session_; }
  [[nodiscard]] pnl::rig::Rig& Rig() const { return rig_; }
  /// The reason why the shift can't be worked here; empty if it can.
  [[nodiscard]] const QString& Problem() const { return problem_; }
  /// The machine as it is now.
  [[nodiscard]] pnl::rig::MachineState Machine() const { return rig_.Machine()->State(); }
  /// The blocks that the CNC was sent, in order.
  [[nodiscard]] const QStringList& Blocks() const { return blocks_; }
  /// The bytes of a file of the panel; null when there is none.
  [[nodiscard]] QByteArray FileAt(const QString& panelPath) const;
  /// The time in milliseconds by which the panel guards what has just come.
  void PassGuard();

  void Cnc(std::string_view name, const std::vector<pnl::rig::Value>& args, const pnl::rig::Value& result) override;
  void Write(std::u16string_view, const pnl::rig::Value&, bool) override {}
  void MessageToHost(PnlWindow, std::uint32_t, std::intptr_t, std::intptr_t) override {}
  void Box(std::u16string_view, std::u16string_view, std::string_view, std::string_view) override {}

 private:
  void SetUpDrives();
  void RemoveOldWork();
  void SetUpShare();
  void SetUpPanel();
  [[nodiscard]] QString Host(const QString& panelPath) const;

  Setting setting_;
  pnl::rig::Rig& rig_;
  QTemporaryDir folder_;
  QString problem_;
  QStringList blocks_;
  qint64 guardClock_ = 1'000'000;
  HostSession session_;
  std::unique_ptr<Operator> op_;
  std::unique_ptr<PanelWindow> window_;
};

}  // namespace panel::shift
