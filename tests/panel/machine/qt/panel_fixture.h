// SPDX-License-Identifier: MIT
// The whole panel on the demo machine, as an operator has it. A test presses keys, by the focus or as the window system
// does, touches widgets and asks what is in front.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <cstdio>
#include <memory>

#include "common/shortcuts.h"
#include "host/host_session.h"
#include "host/operator.h"
#include "panel/machine/qt/demo_machine.h"
#include "remote/settle.h"
#include "support/platform_events.h"
#include "ui/message_zone.h"
#include "ui/panel_window.h"
#include "ui/program_editor.h"

namespace panel {

class PanelFixture : public ::testing::Test {
 protected:
  PanelFixture() : rig_(DemoMachine()) {
    UseWords("en");
    Mend();
    rig_.Machine()->Reset();
    rig_.Advance(1000);
    rig_.Cnc().ClearErrors();
    // The tools remember what was typed and where they stood.
    for (const char16_t* file : {u"Calc7340.ini", u"MDAC1.DAT", u"MDIC1.DAT", u"XPLR7340.ini"}) {
      const auto path = rig_.Files().HostPath(std::u16string(u"C:\\CNC\\USER\\") + file);
      if (path) std::remove(path->c_str());
    }
    session_.OfferAll();
    op_ = std::make_unique<Operator>(session_, &rig_);
    window_ = std::make_unique<PanelWindow>(session_, *op_, [this](const QString& path) {
      const auto host = rig_.Files().HostPath(path.toStdU16String());
      return host ? QString::fromStdString(*host) : QString();
    });
    window_->SetAsksBeforeClosing(false);
    window_->show();
    window_->activateWindow();
    Settle();
    op_->Desk().StartTools();
    Settle();
  }
  ~PanelFixture() override {
    window_.reset();
    op_.reset();
    Mend();
    rig_.Machine()->FeedOverride(100);
    rig_.Machine()->SingleBlock(false);
    rig_.Machine()->Reset();
    rig_.Cnc().ClearErrors();
    rig_.Advance(1000);
  }

  /// Ends every fault that stops the machine.
  void Mend() {
    using Fault = pnl::rig::MachineFault;
    rig_.Machine()->EmergencyStop(false);
    for (const Fault fault : {Fault::kDoorOpen, Fault::kDriveFault, Fault::kBusFault, Fault::kFatal}) {
      rig_.Machine()->SetCause(fault, false);
    }
  }
  static void Settle() {
    // A listing comes from a thread.
    ASSERT_TRUE(WaitWhile([] { return PnlRig()->IsWorking(); }, 60'000));
    for (int i = 0; i < 5; ++i) {
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      QCoreApplication::processEvents();
    }
  }
  void Do(Action action) {
    window_->Trigger(action);
    Settle();
  }
  void Advance(int milliseconds) {
    rig_.Advance(milliseconds);
    Settle();
  }
  void SetCause(pnl::rig::MachineFault fault, bool stands = true) {
    rig_.Machine()->SetCause(fault, stands);
    Settle();
  }
  void Raise(pnl::rig::MachineControl::Fault fault) {
    rig_.Machine()->Raise(fault);
    Settle();
  }
  /// A key of a script or of the panel itself: to whatever has the focus.
  void Key(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QWidget* focus = QApplication::focusWidget();
    QCoreApplication::sendEvent(focus == nullptr ? window_.get() : focus, &event);
    Settle();
  }
  /// A key of the keyboard, pressed and not let go.
  void RealKey(int key, bool repeated = false) {
    const QString text = key == Qt::Key_Return ? QStringLiteral("\r") : QString();
    pnl::test::PressPlatformKey(*window_, key, text, {}, repeated);
    Settle();
  }
  void Type(const QString& text) {
    for (const QChar c : text) Key(c.toUpper().unicode(), QString(c));
  }
  /// A finger on a widget.
  void Touch(QWidget* widget, const QPoint& place) {
    // Each at another time, so that two touches are never a double one.
    constexpr int kPause = 10000;
    pnl::test::ClickPlatformButton(pnl::test::PlatformPlaceOf(*widget, place), now_, kPause);
    Settle();
  }
  [[nodiscard]] QWidget* Tool(int tool) const { return static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(tool))); }
  [[nodiscard]] QWidget* Errors() const { return Tool(PNL_TOOL_ERRORS); }
  [[nodiscard]] bool ErrorsShown() const { return Errors() != nullptr && Errors()->isVisible(); }
  [[nodiscard]] bool ExplorerShown() const {
    return Tool(PNL_TOOL_EXPLORER) != nullptr && Tool(PNL_TOOL_EXPLORER)->isVisible();
  }
  /// Types a name into the explorer's field and accepts it.
  void AcceptName(const QString& name) {
    Line(PNL_TOOL_EXPLORER)->setFocus();
    Line(PNL_TOOL_EXPLORER)->selectAll();
    Type(name);
    Key(Qt::Key_Return);
  }
  [[nodiscard]] QLineEdit* Line(int tool) const { return Tool(tool)->findChild<QLineEdit*>(); }
  [[nodiscard]] QAbstractItemView* MdaList() const { return Tool(PNL_TOOL_MDI)->findChild<QAbstractItemView*>(); }
  [[nodiscard]] QWidget* Program() const { return &window_->Editor().Edit(); }
  [[nodiscard]] std::size_t Queue() const { return rig_.Cnc().ErrorQueue().size(); }
  [[nodiscard]] QString ZoneText() const {
    QStringList lines;
    for (const auto& line : window_->Zone().Lines()) lines << line.text;
    return lines.join('|');
  }
  /// Whether the keyboard belongs to that widget or to one in it.
  [[nodiscard]] static bool Has(const QWidget* widget) {
    const QWidget* focus = QApplication::focusWidget();
    return focus != nullptr && widget != nullptr && (focus == widget || widget->isAncestorOf(focus));
  }
  /// Three blocks that ran, in the list, and the second one selected.
  void OpenListAtSecond() {
    Do(Action::kOpenMdi);
    for (const char* block : {"G0 X1", "G0 X2", "G0 X3"}) {
      Type(block);
      Do(Action::kCycleStart);
      Advance(5000);
    }
    Do(Action::kSwitchRole);
    ASSERT_EQ(MdaList()->model()->rowCount(), 3);
    MdaList()->setCurrentIndex(MdaList()->model()->index(1, 0));
    Settle();
  }
  [[nodiscard]] int SelectedInList() const {
    const auto rows = MdaList()->selectionModel()->selectedRows();
    return rows.size() == 1 ? rows.first().row() : -1;
  }

  pnl::rig::Rig& rig_;
  HostSession session_;
  std::unique_ptr<Operator> op_;
  std::unique_ptr<PanelWindow> window_;
  int now_ = 0;
};

}  // namespace panel
