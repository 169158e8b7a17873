// SPDX-License-Identifier: MIT
// The key beside the messages that offers, for ten seconds, to put back what was removed in a tool: a cleared list, a
// deleted item, rows of the history. The tool keeps what was removed; the key only says what it is and asks for it
// back.
#pragma once

#include <QTimer>
#include <optional>

#include "host/host_session.h"
#include "host/tool_texts.h"
#include "ui/panel_key.h"

namespace panel {

class UndoOffer : public PanelKey {
  Q_OBJECT

 public:
  UndoOffer(HostSession& session, QWidget* parent);
  /// Puts back the rows that are offered. Does nothing without an offer. Emits Refused if it isn't possible now.
  void Undo();
  [[nodiscard]] bool IsOpen() const { return tool_ >= 0; }
  /// From now on time goes by Advance.
  void UseManualTime();
  void Advance(qint64 milliseconds);

  static constexpr int kMilliseconds = 10'000;

 signals:
  /// The offer has come or gone.
  void Changed();
  void Refused();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  /// Ends the offer, too, when its tool has closed.
  void WatchTools();
  /// Looks at the tool's removals and offers the last one, or ends the offer.
  void Look(int tool);
  void Offer(int tool, int number);
  void ShowCaption();
  /// Ends the offer. The tool forgets what was removed.
  void Expire();
  void Close();

  HostSession& session_;
  QTimer timer_;
  int tool_ = -1;
  int number_ = 0;  // of the removal that is offered
  RemovedRows removed_;
  std::optional<qint64> left_;  // of the manual time
  bool manual_ = false;
};

}  // namespace panel
