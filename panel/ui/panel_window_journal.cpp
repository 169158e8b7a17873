// SPDX-License-Identifier: MIT
// The window's part in what is kept for the operator: the journal of what isn't saved, and the key that puts back what
// was removed.
#include <algorithm>

#include "ui/journal_keeper.h"
#include "ui/message_zone.h"
#include "ui/panel_window.h"
#include "ui/program_desk.h"
#include "ui/undo_offer.h"

namespace panel {

bool PanelWindow::Working() const { return desk_->Working() || (journal_ && journal_->Working()); }

void PanelWindow::KeepJournal(JournalSetup setup) {
  journal_ =
      std::make_unique<JournalKeeper>(JournalParts{session_, op_, *editor_, *desk_, *question_}, std::move(setup));
  journal_->Start();
}

void PanelWindow::LeaveForNextStart() {
  if (journal_) journal_->LeaveForNextStart();
}

void PanelWindow::TimeAdvanced(qint64 milliseconds) {
  // Whoever moves the time by hand does so from the start.
  undo_->UseManualTime();
  undo_->Advance(milliseconds);
  if (journal_) journal_->Advance(milliseconds);
}

void PanelWindow::PlaceMessages() {
  constexpr int kGap = 4;
  QRect zone = layout_.messages;
  if (undo_->IsOpen()) {
    const int wide = std::clamp(undo_->sizeHint().width(), zone.width() / 4, zone.width() / 2);
    undo_->setGeometry(zone.right() + 1 - wide, zone.top(), wide, zone.height());
    zone.setWidth(zone.width() - wide - kGap);
  }
  zone_->setGeometry(zone);
}

}  // namespace panel
