// SPDX-License-Identifier: MIT
// The panel's remote control: it reads JSON-RPC requests from standard input, one a line, and answers them on standard
// output. It owns the trace and the answers for message boxes. It knows no tool. Make it before the first tool, so that
// the trace is complete, and call Start once the panel is shown.
#pragma once

#include <QObject>
#include <memory>

#include "host/host_session.h"
#include "remote/panel_face.h"
#include "remote/remote_options.h"

namespace panel {

class RemoteControl : public QObject {
  Q_OBJECT

 public:
  /// From now on it listens to the session, takes the rig's events and answers its message boxes. With options.bare the
  /// session stops reacting to callbacks. session and face must outlive this object.
  RemoteControl(HostSession& session, PanelFace& face, RemoteOptions options, QObject* parent = nullptr);
  ~RemoteControl() override;

  /// Begins to read. At the end of input, and on "quit", it closes every tool in order and ends the application's event
  /// loop with 0. From here on, everything else that is written to standard output goes to standard error.
  void Start();
  /// Returns the reply to one request line, as Start does for every line. Empty when no reply is needed.
  [[nodiscard]] QByteArray Answer(const QByteArray& line);

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace panel
