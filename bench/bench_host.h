// SPDX-License-Identifier: MIT
// The host of a benchmark of a tool's window: the application, a disc of its own for the simulated machine, and a plain
// widget that is the tools' parent. Make it in main, so that every widget is gone before the application ends; a static
// object would outlive the application and crash.
#pragma once

#include <pnltools/pnltools.h>
#include <pnltools/rig.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QWidget>

/// The only host of the program, from its construction to the end of main.
class BenchHost {
 public:
  BenchHost(int& argc, char** argv) : application_(argc, argv) {
    here_ = this;
    pnl::rig::Drive drive;
    drive.letter = 'C';
    drive.dir = QFile::encodeName(root_.path()).toStdString();
    PnlRig()->Files().SetDrive(drive);
    widget_.resize(800, 600);
    widget_.show();
    window_ = PnlAttachWidget(&widget_, nullptr, nullptr);
  }
  ~BenchHost() { here_ = nullptr; }
  BenchHost(const BenchHost&) = delete;
  BenchHost& operator=(const BenchHost&) = delete;

  static BenchHost& Here() { return *here_; }
  [[nodiscard]] QWidget& Widget() { return widget_; }
  [[nodiscard]] PnlWindow Window() const { return window_; }

 private:
  /// Chooses the platform before the application is made.
  struct OffScreen {
    OffScreen() { qputenv("QT_QPA_PLATFORM", "offscreen"); }
  };

  static inline BenchHost* here_ = nullptr;
  OffScreen offScreen_;
  QApplication application_;
  QTemporaryDir root_;
  QWidget widget_;
  PnlWindow window_ = 0;
};
