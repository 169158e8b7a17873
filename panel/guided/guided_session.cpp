// SPDX-License-Identifier: MIT
#include "guided/guided_session.h"

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPixmap>
#include <cstdio>
#include <functional>
#include <vector>

#include "host/host_session.h"
#include "host/operator.h"
#include "ui/file_chooser.h"
#include "ui/message_zone.h"
#include "ui/panel_key.h"
#include "ui/panel_window.h"
#include "ui/program_editor.h"
#include "ui/question.h"
#include "ui/soft_key_bar.h"

namespace panel {
namespace {

const char* const kProgram =
    "(POCKET 60 X 40)\n"
    "G90 G17 G54\n"
    "T3 M6\n"
    "S1800 M3\n"
    "G0 X0 Y0 Z5\n"
    "G1 Z-4 F300\n"
    "G1 X60 F1000\n"
    "G1 Y40\n"
    "G1 X0\n"
    "G1 Y0\n"
    "G0 Z50\n"
    "M30\n";

/// The operator's hands: keys to whatever has the focus, time that passes, and eyes on what came of it.
class Hands {
 public:
  Hands(PanelWindow& window, HostSession& session, Operator& op, pnl::rig::Rig& rig, const QString& folder)
      : window_(window), session_(session), op_(op), rig_(rig), folder_(folder) {}

  void Settle() {
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }

  void Key(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr) focus = &window_;
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, modifiers, text);
      QCoreApplication::sendEvent(focus, &event);
      // A press may take the focus, or the widget, away.
      focus = QApplication::focusWidget();
      if (focus == nullptr) focus = &window_;
    }
    Settle();
  }

  void Type(const QString& text) {
    for (const QChar c : text) Key(c.toUpper().unicode(), QString(c));
  }

  void Advance(int milliseconds) {
    rig_.Advance(milliseconds);
    Settle();
  }

  /// Presses start, and waits until the channel is at rest again.
  bool Start() {
    Press(Action::kCycleStart);
    return true;
  }

  void Press(Action action) {
    window_.Trigger(action);
    Settle();
  }

  bool WaitForRest() {
    for (int i = 0; i < 600 && op_.Machine().channelStatus != 1; ++i) Advance(100);
    return op_.Machine().channelStatus == 1;
  }

  bool RunBlock(const QString& block) {
    Type(block);
    Start();
    return WaitForRest();
  }

  /// The key that shows this menu item, on whatever page; false when there is none.
  bool PressItem(int id) {
    SoftKeyBar& bar = window_.MainBar();
    for (int page = 0; page < bar.PageCount(); ++page) {
      for (int slot = 0; slot < kMainKeys; ++slot) {
        const int index = bar.Page() * kMainKeys + slot;
        if (index < static_cast<int>(bar.Items().size()) && bar.Items().at(static_cast<std::size_t>(index)).id == id) {
          window_.PressMain(slot);
          Settle();
          return true;
        }
      }
      bar.NextPage();
    }
    return false;
  }

  [[nodiscard]] QLineEdit* MdiEdit() const {
    const auto* tool = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_MDI)));
    return tool == nullptr ? nullptr : tool->findChild<QLineEdit*>();
  }

  bool Capture(int number, const QString& name) {
    Settle();
    const QString file = QStringLiteral("%1/%2-%3.png").arg(folder_).arg(number, 2, 10, QLatin1Char('0')).arg(name);
    return window_.grab().save(file);
  }

  PanelWindow& window_;
  HostSession& session_;
  Operator& op_;
  pnl::rig::Rig& rig_;

 private:
  QString folder_;
};

/// One step: what is done, and whether it came out as told.
struct Step {
  const char* name;
  const char* text;
  std::function<bool(Hands&)> run;
};

double PositionX(const Hands& hands) {
  const auto state = hands.op_.Machine();
  return state.axes.empty() ? 0 : state.axes.front().position;
}

bool MdiStands(const Hands& hands) { return hands.session_.IsToolOpen(PNL_TOOL_MDI); }

std::vector<Step> FirstSteps() {
  return {
      {"panel", "the panel at rest, with a program in its editor",
       [](Hands& h) {
         h.window_.Editor().SetProgram(QString::fromLatin1(kProgram), {});
         return !h.window_.MainBar().Items().empty();
       }},
      {"mdi", "the MDI key opens the command line",
       [](Hands& h) {
         h.Press(Action::kOpenMdi);
         return MdiStands(h);
       }},
      {"typed", "a block is typed: G1 X100 F1000",
       [](Hands& h) {
         h.Type(QStringLiteral("G1 X100 F1000"));
         return true;
       }},
      {"running", "cycle start: the axis moves",
       [](Hands& h) {
         h.Start();
         h.Advance(3000);
         return PositionX(h) > 1 && PositionX(h) < 99;
       }},
      {"hold", "feed hold stops it on the way",
       [](Hands& h) {
         h.Press(Action::kFeedHold);
         h.Advance(500);
         const double at = PositionX(h);
         h.Advance(1000);
         return at == PositionX(h);
       }},
      {"done", "cycle start again: the block runs to its end",
       [](Hands& h) {
         h.Start();
         return h.WaitForRest() && PositionX(h) > 99.9;
       }},
  };
}

std::vector<Step> LaterSteps() {
  constexpr int kSaveAsProgram = 32775;
  return {
      {"history", "two more blocks, then the list of what ran before drops down",
       [](Hands& h) {
         const bool ran = h.RunBlock(QStringLiteral("G1 Y50")) && h.RunBlock(QStringLiteral("G0 X0 Y0"));
         h.Key(Qt::Key_Down);
         return ran;
       }},
      {"refused", "a block the machine doesn't know is refused, and the panel says why",
       [](Hands& h) {
         h.Key(Qt::Key_Escape);
         h.Type(QStringLiteral("G999"));
         h.Start();
         return !h.op_.Errors().empty() && !h.window_.Zone().Lines().empty();
       }},
      {"cleared", "the error is acknowledged",
       [](Hands& h) {
         h.Press(Action::kClearError);
         for (int i = 0; i < 4; ++i) h.Key(Qt::Key_Backspace);
         return h.op_.Errors().empty();
       }},
      {"mda", "the MDA list holds every block that ran",
       [](Hands& h) {
         h.Press(Action::kSwitchRole);
         return h.window_.MainBar().Menu() != 0;
       }},
      {"save-as", "the list is saved as a program: the panel asks for a name",
       [](Hands& h) {
         if (!h.PressItem(kSaveAsProgram)) return false;
         h.Type(QStringLiteral("GUIDED.NC"));
         return h.window_.Chooser().Stands();
       }},
      {"saved", "the program is there",
       [](Hands& h) {
         const QString folder = h.window_.Chooser().Folder();
         h.window_.Chooser().Accept();
         h.Settle();
         if (h.window_.Chooser().Confirm().Stands()) h.window_.Chooser().Confirm().Answer(0);
         h.Settle();
         const auto path = h.rig_.Files().HostPath(JoinPath(folder, QStringLiteral("GUIDED.NC")).toStdU16String());
         return path && QFile::exists(QFile::decodeName(QByteArray::fromStdString(*path)));
       }},
  };
}

std::vector<Step> GlanceSteps() {
  return {
      {"language", "the same panel in another language",
       [](Hands& h) {
         h.window_.Editor().SetProgram(QString::fromLatin1(kProgram), {});
         h.Press(Action::kOpenMdi);
         return MdiStands(h);
       }},
      {"language-refused", "a refusal in another language",
       [](Hands& h) {
         h.Type(QStringLiteral("G999"));
         h.Start();
         return !h.window_.Zone().Lines().empty();
       }},
  };
}

}  // namespace

int RunGuidedSession(PanelWindow& window, HostSession& session, Operator& op, pnl::rig::Rig& rig, const QString& folder,
                     Tour tour, int first) {
  if (!QDir().mkpath(folder)) {
    std::fprintf(stderr, "pnlpanel: --guided: the folder %s can't be made\n", qPrintable(folder));
    return 0;
  }
  Hands hands(window, session, op, rig, folder);
  window.activateWindow();
  hands.Settle();
  auto steps = tour == Tour::kWhole ? FirstSteps() : GlanceSteps();
  if (tour == Tour::kWhole) {
    for (auto& step : LaterSteps()) steps.push_back(std::move(step));
  }
  int number = first;
  for (const Step& step : steps) {
    const bool done = step.run(hands) && hands.Capture(number, QString::fromLatin1(step.name));
    std::printf("%02d %s%s\n", number, step.text, done ? "" : "  -- FAILED");
    std::fflush(stdout);
    if (!done) return 0;
    ++number;
  }
  return number;
}

}  // namespace panel
