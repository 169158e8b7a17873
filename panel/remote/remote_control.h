// SPDX-License-Identifier: MIT
// The panel's remote control: reads JSON-RPC requests from standard input, one a line, and answers them on standard
// output. It owns the trace and the queue of answers for message boxes; it is no tool and knows none. Make it before
// the first tool, so that the trace misses nothing, and Start it once the panel stands.
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
  /// Listens to the session, takes the rig's events and answers its message boxes from now on. Under bare the session
  /// no longer reacts to callbacks. Session and face must outlive the object.
  RemoteControl(HostSession& session, PanelFace& face, RemoteOptions options, QObject* parent = nullptr);
  ~RemoteControl() override;

  /// Begins to read. At the end of input, and on "quit", every tool is closed in order and the application's event
  /// loop ends with 0. Whatever else writes to standard output goes to standard error from here on.
  void Start();
  /// Answers one request line; empty when there is nothing to say. What Start does for every line read.
  [[nodiscard]] QByteArray Answer(const QByteArray& line);

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace panel
