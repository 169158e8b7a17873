// SPDX-License-Identifier: MIT
// Changes the language while the panel runs. A tool keeps the texts that it was made with, so each tool is made anew
// where that loses nothing: at once when it is closed, else after it closes. The widgets of the panel hear of the
// change from their window.
#pragma once

#include <QObject>
#include <QString>
#include <set>

#include "host/error_desk.h"
#include "host/host_session.h"

namespace panel {

class LanguageDesk : public QObject {
  Q_OBJECT

 public:
  /// rig may be null: then there is no machine that could be running a block.
  LanguageDesk(HostSession& session, ErrorDesk& errors, pnl::rig::Rig* rig);

  /// Changes to English from Spanish, else to Spanish. Returns false, and changes nothing, when there is no such pack.
  bool Switch();
  /// The tools that still speak another language, by number.
  [[nodiscard]] std::set<int> Stale() const;

 private:
  /// Destroys the windows with old texts that nobody needs.
  void Renew();
  [[nodiscard]] bool IsIdle(int tool) const;

  HostSession& session_;
  ErrorDesk& errors_;
  pnl::rig::Rig* rig_;
  std::set<PnlWindow> stale_;
};

}  // namespace panel
