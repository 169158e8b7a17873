// SPDX-License-Identifier: MIT
// From the touch to the painted answer, over a whole shift by touch: every press and every release of the finger, on
// the keys of the panel, on the touch keyboard, in lists and in fields. In the same run the finger touches a plain Qt
// window with as many buttons, a line and a text as often, each button with the same kind of work. Prints the time that
// 99 of 100 touches stay below for both, and the ratio.
#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QGridLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <algorithm>
#include <cstdio>
#include <string_view>
#include <utility>
#include <vector>

#include "panel/shift/qt/shift_steps.h"
#include "remote/settle.h"
#include "ui/quiet_caches.h"
#include "ui/theme.h"
#include "ui/touch_keyboard.h"

namespace {

using panel::shift::Finger;
using panel::shift::Hands;
using panel::shift::Pointing;
using panel::shift::Setting;
using panel::shift::ShiftStage;

/// Measures from each stroke to the end of the first painting after it.
class AnswerClock : public QObject, public panel::shift::StrokeWatch {
 public:
  AnswerClock() { qApp->installEventFilter(this); }
  void OnStroke(QWidget& widget, bool press) override {
    if (press) keys_.push_back(qobject_cast<panel::TouchKeyboard*>(&widget) != nullptr);
    painted_ = noted_ = false;
    clock_.start();
  }
  void OnAnswered() override {
    if (noted_) times_.push_back(static_cast<double>(answer_) / 1e6);
    clock_.invalidate();
  }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::Paint || !clock_.isValid() || std::exchange(painted_, true)) return false;
    // Comes when everything that is to be painted now has been.
    QMetaObject::invokeMethod(
        this,
        [this] {
          if (!clock_.isValid() || std::exchange(noted_, true)) return;
          answer_ = clock_.nsecsElapsed();
        },
        Qt::QueuedConnection);
    return false;
  }
  /// The answers to all strokes that had something painted, in ms.
  [[nodiscard]] std::vector<double> Times() const { return times_; }
  /// For each touch whether it was on the touch keyboard.
  [[nodiscard]] const std::vector<bool>& Keys() const { return keys_; }

 private:
  QElapsedTimer clock_;
  bool painted_ = false;
  bool noted_ = false;
  qint64 answer_ = 0;
  std::vector<double> times_;
  std::vector<bool> keys_;
};

/// Above the last percent.
double Percentile99(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[(times.size() * 99 - 1) / 100];
}

/// The plain window: its buttons type into the text, or write into the line.
class PlainPanel : public QWidget {
 public:
  explicit PlainPanel(const QSize& size) {
    constexpr int kColumns = 12, kRows = 6;
    auto* grid = new QGridLayout(this);
    auto* line = new QLineEdit;
    auto* text = new QPlainTextEdit;
    grid->addWidget(line, 0, 0, 1, kColumns);
    grid->addWidget(text, 1, 0, 1, kColumns);
    for (int i = 0; i < kColumns * kRows; ++i) {
      auto* button = new QPushButton(QString::number(i));
      button->setFocusPolicy(Qt::NoFocus);
      button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
      grid->addWidget(button, 2 + i / kColumns, i % kColumns);
      const bool types = i % 2 == 0;
      connect(button, &QPushButton::clicked, this, [=] {
        if (types) return text->insertPlainText(QStringLiteral("G"));
        line->setText(QString::number(line->text().toInt() + 1));
      });
      (types ? typing_ : acting_).push_back(button);
    }
    resize(size);
    show();
  }
  /// The next button that types, or that acts.
  QPushButton& Next(bool types) {
    const auto& buttons = types ? typing_ : acting_;
    return *buttons[next_++ % buttons.size()];
  }

 private:
  std::vector<QPushButton*> typing_;
  std::vector<QPushButton*> acting_;
  std::size_t next_ = 0;
};

/// Works the shift. Returns false when it gets stuck.
bool Work(const Setting& setting, AnswerClock& clock) {
  ShiftStage stage(setting);
  if (!stage.Problem().isEmpty()) {
    std::printf("ERROR OCCURRED: %s\n", qPrintable(stage.Problem()));
    return false;
  }
  Hands hands(stage, {});
  hands.TheFinger().SetWatch(&clock);
  for (const auto& step : panel::shift::Shift()) {
    const QString problem = Play(step, hands);
    if (problem.isEmpty()) continue;
    std::printf("ERROR OCCURRED: %s\n", qPrintable(problem));
    return false;
  }
  return true;
}

void TouchPlain(const Setting& setting, const std::vector<bool>& keys, AnswerClock& clock) {
  PlainPanel plain(setting.size);
  plain.activateWindow();
  panel::Settle();
  Finger finger(setting.pointing, [] { panel::Settle(); });
  finger.SetWatch(&clock);
  for (const bool types : keys) {
    QPushButton& button = plain.Next(types);
    if (!finger.Touch(button, button.rect().center())) std::printf("ERROR OCCURRED: a button is covered\n");
  }
}

bool Measure(const Setting& setting) {
  AnswerClock ours;
  if (!Work(setting, ours)) return false;
  AnswerClock theirs;
  TouchPlain(setting, ours.Keys(), theirs);
  const auto panel = ours.Times();
  const auto plain = theirs.Times();
  if (panel.empty() || plain.empty()) {
    std::printf("ERROR OCCURRED: nothing was painted\n");
    return false;
  }
  std::printf("%4dx%-4d  %zu touches   p99 panel %.1f ms (50)   plain Qt %.1f ms   ratio %.2f   longest %.1f ms\n",
              setting.size.width(), setting.size.height(), ours.Keys().size(), Percentile99(panel), Percentile99(plain),
              Percentile99(panel) / Percentile99(plain), *std::max_element(panel.begin(), panel.end()));
  return true;
}

}  // namespace

// With --brief the shift is worked once, at the smallest size and by manual time.
int main(int argc, char** argv) {
  const bool brief = argc == 2 && std::string_view(argv[1]) == "--brief";
  qputenv("QT_QPA_PLATFORM", "offscreen");
  panel::QuietFontCache();
  QApplication application(argc, argv);
  panel::QuietPixmapCache();
  panel::theme::Apply(application);
  std::vector<QSize> sizes{{800, 600}};
  if (!brief) sizes.insert(sizes.end(), {QSize(1024, 768), QSize(1920, 1080)});
  return std::all_of(sizes.begin(), sizes.end(),
                     [brief](const QSize& size) {
                       return Measure({QStringLiteral("en"), size, Pointing::kTouchScreen, brief});
                     })
             ? 0
             : 1;
}
