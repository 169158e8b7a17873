// SPDX-License-Identifier: MIT
// The windows of the panel itself, each in its main states.
#include <QToolTip>

#include "panel/windows/qt/every_window.h"
#include "ui/channel_look.h"
#include "ui/credentials_cover.h"
#include "ui/error_list.h"
#include "ui/find_bar.h"
#include "ui/message_zone.h"
#include "ui/operator_keys.h"
#include "ui/password_box.h"
#include "ui/program_desk.h"
#include "ui/question.h"
#include "ui/reserved_row.h"
#include "ui/status_strip.h"
#include "ui/touch_desk.h"

namespace panel {
namespace {

using Fault = pnl::rig::MachineControl::Fault;

const QString kProgram = QStringLiteral(
    "% (PART 12)\nN10 G54 G90 T3 D1\nN20 G0 X0 Y0 (to the start)\nN30 G1 X50.5 F800 S1200 M3\nN40 X100 Y25\nN50 M30\n");

}  // namespace

void EveryWindow::Rest(const Look& look) {
  look();
  Do(Action::kCoordinates);
  look();
  Do(Action::kCoordinates);
}

void EveryWindow::NextKeys(const Look& look) {
  Do(Action::kMainMore);
  look();
  Do(Action::kMainBack);
}

void EveryWindow::LastKeys(const Look& look) {
  Do(Action::kMainMore);
  Do(Action::kMainMore);
  look();
  Do(Action::kMainBack);
}

void EveryWindow::Faults(const Look& look) {
  for (int page = 0; page < 2; ++page) window_->MainBar().NextPage();
  const auto& items = window_->MainBar().Items();
  const auto faults = std::find_if(items.begin(), items.end(),
                                   [](const SoftKeyItem& item) { return item.text == Say(Word::kDemoFaults); });
  ASSERT_NE(faults, items.end());
  const int slot = static_cast<int>(faults - items.begin()) % kMainKeys;
  ASSERT_EQ(window_->MainBar().Key(slot)->text(), Say(Word::kDemoFaults));
  window_->PressMain(slot);
  SetCause(Fault::kDoorOpen);
  look();
  Do(Action::kMainBack);
  Do(Action::kMainBack);
}

void EveryWindow::States(const Look& look) {
  for (const LookRow& row : LookTable()) {
    window_->Status().Show(row.look, Say(op_->Mode()));
    look();
  }
  window_->Status().Show(LookWithoutMachine(), Say(op_->Mode()));
  look();
  window_->UpdateDisplay();
}

void EveryWindow::Running(const Look& look) {
  Do(Action::kOpenMdi);
  Type("G1 X80 F500 M3 S900");
  Do(Action::kSingleBlock);
  Do(Action::kCycleStart);
  Advance(300);
  look();
  Do(Action::kFeedHold);
  look();
  Do(Action::kSingleBlock);
}

void EveryWindow::DoorOpen(const Look& look) {
  SetCause(Fault::kDoorOpen);
  if (ErrorsShown()) window_->Row().Key(RowKey::kErrors)->click();
  Settle();
  Do(Action::kCycleStart);
  look();
}

void EveryWindow::ErrorsCounted(const Look& look) {
  for (int kind = 0; kind < kErrorClasses; ++kind) {
    window_->Status().Indicator().Show({5, static_cast<ErrorKind>(kind), 0, 2}, 2);
    look();
  }
  window_->UpdateDisplay();
}

void EveryWindow::Messages(const Look& look) {
  op_->SetHint(QStringLiteral("Saved: C:\\PART.NC"));
  look();
  op_->SetHint(QStringLiteral("C:\\PART.NC"), true);
  look();
  Do(Action::kOpenMdi);
  Do(Action::kCycleStart);
  look();
}

void EveryWindow::KeysPressed(const Look& look) {
  const QList<PanelKey*> keys = window_->findChildren<PanelKey*>();
  for (PanelKey* key : keys) key->setDown(true);
  window_->Status().Indicator().setDown(true);
  look();
  for (PanelKey* key : keys) key->setDown(false);
  window_->Status().Indicator().setDown(false);
}

void EveryWindow::KeysFocused(const Look& look) {
  for (const Action action : {Action::kCycleStart, Action::kReset}) {
    window_->Keys().Key(action)->setFocus();
    look();
  }
  window_->Status().Indicator().setFocus();
  look();
}

void EveryWindow::Tip(const Look& look) {
  QToolTip::showText(window_->mapToGlobal(QPoint(50, 50)), QStringLiteral("Start (F9)"), window_.get());
  look();
  for (QWidget* tip : QApplication::topLevelWidgets()) {
    if (tip->inherits("QTipLabel")) tip->hide();
  }
}

void EveryWindow::TypeProgram() {
  QString program = kProgram;
  for (int line = 0; line < 60; ++line) program += QStringLiteral("N%1 X%2\n").arg(60 + line).arg(line);
  window_->Editor().SetProgram(program, QStringLiteral("C:\\PART.NC"));
  Settle();
}

void EveryWindow::Program(const Look& look) {
  TypeProgram();
  look();
  window_->Editor().GoToLine(3);
  Type("G");
  look();
}

void EveryWindow::Selection(const Look& look) {
  TypeProgram();
  window_->Editor().Edit().selectAll();
  look();
  window_->Keys().Key(Action::kReset)->setFocus();
  look();
}

void EveryWindow::Find(const Look& look) {
  TypeProgram();
  Do(Action::kFind);
  look();
  Type("X");
  look();
  Key(Qt::Key_Escape);
}

void EveryWindow::FindNothing(const Look& look) {
  TypeProgram();
  Do(Action::kFind);
  Type("QQ");
  look();
  Key(Qt::Key_Escape);
}

void EveryWindow::Replace(const Look& look) {
  TypeProgram();
  Do(Action::kReplace);
  look();
  Type("X");
  for (QLineEdit* field : window_->Editor().Finding().findChildren<QLineEdit*>()) field->selectAll();
  look();
  Key(Qt::Key_Escape);
}

void EveryWindow::GoToLine(const Look& look) {
  TypeProgram();
  Do(Action::kGoToLine);
  look();
  Type("12");
  look();
  Key(Qt::Key_Escape);
}

void EveryWindow::Opening(const Look& look) {
  window_->Editor().BeginOpening(QStringLiteral("C:\\BIG.NC"));
  window_->Editor().ShowFirst(kProgram);
  for (const int percent : {0, 50, 90}) {
    window_->Editor().ShowReading(percent, true);
    look();
  }
  window_->Editor().CancelOpening();
}

void EveryWindow::PushErrors(int kinds) {
  const std::int64_t severities[] = {1, 7, 0, 7, 1};
  for (int i = 0; i < kinds; ++i) {
    pnl::rig::ErrorSpec spec;
    spec.fields = {{"number", std::int64_t{3000 + i}},
                   {"severity", severities[i % 5]},
                   {"marked", std::int64_t{i % 5 == 1}},
                   {"source", std::int64_t{12}},
                   {"messageText", std::u16string(u"Something is wrong in the block")}};
    if (i % 5 == 4) spec.fields[0].value = std::int64_t{3753};
    std::string problem;
    ASSERT_TRUE(rig_.Cnc().PushError(spec, problem)) << problem;
    Settle();
  }
}

void EveryWindow::EmptyErrorList(const Look& look) {
  Do(Action::kErrorList);
  look();
  Do(Action::kErrorList);
}

void EveryWindow::ErrorList(const Look& look) {
  PushErrors(15);
  rig_.Cnc().ClearErrors();
  Settle();
  Do(Action::kErrorList);
  ASSERT_TRUE(window_->ErrorsShown().isVisible());
  look();
  window_->ErrorsShown().List().clearSelection();
  look();
  Do(Action::kErrorList);
}

void EveryWindow::Question(const Look& look) {
  window_->Asking().Ask(QStringLiteral("C:\\PART.NC?"), {Say(Word::kDiscard), Say(Word::kKeepRunning)}, [](int) {});
  look();
  window_->Asking().Answer(1);
}

void EveryWindow::WithPassword(bool wrong, const Look& look) {
  QMetaObject::invokeMethod(
      window_.get(),
      [&] {
        if (wrong) {
          window_->Password().Edit().setText(QStringLiteral("9"));
          window_->Password().Enter();
          EXPECT_TRUE(window_->Password().WasWrong());
        }
        look();
        window_->Password().Leave();
      },
      Qt::QueuedConnection);
  EXPECT_FALSE(window_->Password().Ask());
}

void EveryWindow::Password(const Look& look) { WithPassword(false, look); }

void EveryWindow::WrongPassword(const Look& look) { WithPassword(true, look); }

void EveryWindow::Credentials(const Look& look) {
  window_->CredentialsAsked().Ask(1, QStringLiteral("SERVER"), false);
  look();
  Type("anna");
  look();
  window_->CredentialsAsked().Leave();
}

void EveryWindow::WrongCredentials(const Look& look) {
  window_->CredentialsAsked().Ask(1, QStringLiteral("SERVER"), true);
  look();
  window_->CredentialsAsked().Leave();
}

void EveryWindow::WithKeyboard(TouchLayout layout, const Look& look) {
  TypeProgram();
  window_->Touch().SetTouched(true);
  Do(Action::kOpenMdi);
  ASSERT_TRUE(window_->TouchKeys().isVisible());
  window_->TouchKeys().Use(layout);
  look();
  const auto press = [this](TouchAct act, QEvent::Type type) {
    TouchKeyboard& keys = window_->TouchKeys();
    for (const TouchKeyboard::Cell& cell : keys.Cells()) {
      if (cell.key.act != act) continue;
      const QPoint place = cell.place.center();
      QMouseEvent event(type, place, keys.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
      QCoreApplication::sendEvent(&keys, &event);
      return;
    }
  };
  press(TouchAct::kShift, QEvent::MouseButtonPress);
  look();
  for (int times = 0; times < 2; ++times) {
    press(TouchAct::kShift, QEvent::MouseButtonRelease);
    look();
    press(TouchAct::kShift, QEvent::MouseButtonPress);
  }
  press(TouchAct::kShift, QEvent::MouseButtonRelease);
  for (int page = 1; page < window_->TouchKeys().PageCount(); ++page) {
    press(TouchAct::kMore, QEvent::MouseButtonPress);
    press(TouchAct::kMore, QEvent::MouseButtonRelease);
    look();
  }
}

void EveryWindow::BlockKeys(const Look& look) { WithKeyboard(TouchLayout::kBlock, look); }

void EveryWindow::LetterKeys(const Look& look) { WithKeyboard(TouchLayout::kLetters, look); }

void EveryWindow::SignKeys(const Look& look) { WithKeyboard(TouchLayout::kSigns, look); }

}  // namespace panel
