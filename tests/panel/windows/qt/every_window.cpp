// SPDX-License-Identifier: MIT
// The table of every window, and the walk through it.
#include "panel/windows/qt/every_window.h"

#include <QToolTip>

#include "ui/error_list.h"
#include "ui/question.h"
#include "ui/reserved_row.h"
#include "ui/theme.h"
#include "ui/touch_desk.h"

namespace panel {
namespace {

constexpr EveryWindow::Row kRows[] = {
    {"panel at rest", &EveryWindow::Rest},
    {"second page of keys", &EveryWindow::NextKeys},
    {"last page of keys", &EveryWindow::LastKeys},
    {"keys of the faults", &EveryWindow::Faults},
    {"state of the channel", &EveryWindow::States},
    {"running block", &EveryWindow::Running},
    {"open door", &EveryWindow::DoorOpen},
    {"count of errors", &EveryWindow::ErrorsCounted},
    {"messages", &EveryWindow::Messages},
    {"pressed keys", &EveryWindow::KeysPressed},
    {"keys with the focus", &EveryWindow::KeysFocused},
    {"tip", &EveryWindow::Tip},
    {"program", &EveryWindow::Program},
    {"selection in the program", &EveryWindow::Selection},
    {"find bar", &EveryWindow::Find},
    {"find bar without a place", &EveryWindow::FindNothing},
    {"replace bar", &EveryWindow::Replace},
    {"line bar", &EveryWindow::GoToLine},
    {"opening bar", &EveryWindow::Opening},
    {"empty list of errors", &EveryWindow::EmptyErrorList},
    {"list of errors", &EveryWindow::ErrorList},
    {"question", &EveryWindow::Question},
    {"password", &EveryWindow::Password},
    {"wrong password", &EveryWindow::WrongPassword},
    {"credentials", &EveryWindow::Credentials},
    {"wrong credentials", &EveryWindow::WrongCredentials},
    {"offer to put back", &EveryWindow::Undo},
    {"touch keyboard for blocks", &EveryWindow::BlockKeys},
    {"touch keyboard for letters", &EveryWindow::LetterKeys},
    {"touch keyboard for signs", &EveryWindow::SignKeys},
    {"command line", &EveryWindow::CommandLine},
    {"history of the command line", &EveryWindow::CommandHistory},
    {"command line while a block runs", &EveryWindow::CommandRuns},
    {"MDA list", &EveryWindow::MdaList},
    {"item of the MDA list", &EveryWindow::MdaItem},
    {"calculator", &EveryWindow::Calculator},
    {"calculator after a failure", &EveryWindow::CalculatorFails},
    {"compact calculator", &EveryWindow::CompactCalculator},
    {"lists of the calculator", &EveryWindow::CalculatorLists},
    {"machining calculator", &EveryWindow::Machining},
    {"machining calculator with a choice", &EveryWindow::MachiningChosen},
    {"drop list of the machining calculator", &EveryWindow::MachiningList},
    {"materials", &EveryWindow::Materials},
    {"new material", &EveryWindow::MaterialEdited},
    {"operations", &EveryWindow::Operations},
    {"message box", &EveryWindow::MachiningBox},
    {"error window", &EveryWindow::ErrorWindows},
    {"help of an error", &EveryWindow::ErrorHelp},
    {"PLC messages", &EveryWindow::PlcMessages},
    {"explorer", &EveryWindow::Explorer},
    {"list of the explorer", &EveryWindow::ExplorerList},
    {"explorer for a name", &EveryWindow::SaveAs},
    {"search in the explorer", &EveryWindow::ExplorerFind},
    {"help", &EveryWindow::Help},
    {"index of the help", &EveryWindow::HelpIndex},
    {"search in the help", &EveryWindow::HelpSearch},
    {"search in a page of the help", &EveryWindow::HelpInPage},
    {"manuals", &EveryWindow::Manuals},
};

}  // namespace

std::span<const EveryWindow::Row> EveryWindowRows() { return kRows; }

EveryWindow::EveryWindow(const QSize& size, const char* language) {
  theme::Apply(*qApp);
  window_->resize(size);
  if (WordsInUse() != QLatin1String(language)) window_->Row().Key(RowKey::kLanguage)->click();
  EXPECT_EQ(WordsInUse(), QLatin1String(language));
  Settle();
}

EveryWindow::~EveryWindow() {
  rig_.AnswerBoxes({});
  UseWords("en");
  PnlSetLanguage("en");
}

void EveryWindow::Walk(const std::function<void(const std::string& name)>& look) {
  for (const Row& row : EveryWindowRows()) {
    SCOPED_TRACE(row.name);
    int looks = 0;
    Home();
    (this->*row.show)([&] {
      ++looks;
      Settle();
      look(row.name);
    });
    EXPECT_GT(looks, 0) << "it was never on the screen";
  }
  Home();
}

QList<QWidget*> EveryWindow::Windows() const {
  QList<QWidget*> windows{window_.get()};
  for (QWidget* each : QApplication::topLevelWidgets()) {
    if (each->isVisible() && each != window_.get()) windows << each;
  }
  return windows;
}

void EveryWindow::Home() {
  QToolTip::hideText();
  window_->Touch().SetTouched(false);
  if (window_->TouchKeys().isVisible()) window_->Touch().Toggle();
  window_->ErrorsShown().Leave();
  if (window_->Asking().IsOpen()) window_->Asking().Answer(0);
  Mend();
  op_->Files().Leave();
  session_.CloseAll();
  rig_.Machine()->Reset();
  rig_.Machine()->FeedOverride(100);
  rig_.Machine()->SingleBlock(false);
  rig_.Advance(1000);
  rig_.Cnc().ClearErrors();
  // What the tools remember would be on the screen the next time.
  for (const char16_t* file : {u"Calc7340.ini", u"MDAC1.DAT", u"MDIC1.DAT", u"XPLR7340.ini"}) {
    const auto path = rig_.Files().HostPath(std::u16string(u"C:\\CNC\\USER\\") + file);
    if (path) std::remove(path->c_str());
  }
  op_->SetHint({});
  window_->Editor().SetProgram({}, {});
  Settle();
  op_->Desk().StartTools();
  window_->Editor().setFocus();
  Settle();
}

}  // namespace panel
