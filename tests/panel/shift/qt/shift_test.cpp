// SPDX-License-Identifier: MIT
// A shift by touch alone, in both languages and at three sizes. With the environment variable PNL_SHIFT_CAPTURES each
// run leaves its captures in a folder of that folder, named "en-800" and so on.
#include <gtest/gtest.h>

#include <QDir>

#include "panel/shift/qt/key_watch.h"
#include "panel/shift/qt/shift_steps.h"

namespace panel::shift {
namespace {

struct Run {
  const char* language;
  QSize size;
  Pointing pointing;
};

QString NameOf(const Run& run) {
  return QStringLiteral("%1-%2").arg(QLatin1String(run.language)).arg(run.size.width());
}

/// The folder for the captures of a run; empty when none are wanted.
QString CapturesOf(const Run& run) {
  const QString all = qEnvironmentVariable("PNL_SHIFT_CAPTURES");
  if (all.isEmpty()) return {};
  const QString folder = all + QLatin1Char('/') + NameOf(run);
  return QDir().mkpath(folder) ? folder : QString();
}

class ShiftTest : public testing::TestWithParam<Run> {};

TEST_P(ShiftTest, EachStepShowsTheOperatorWhatItDidAndNeedsNoKeyboard) {
  ShiftStage stage({QLatin1String(GetParam().language), GetParam().size, GetParam().pointing});
  ASSERT_EQ(stage.Problem().toStdString(), "");
  Hands hands(stage, CapturesOf(GetParam()));
  const KeyWatch watch(hands.TheFinger());
  for (const ShiftStep& step : Shift()) {
    const QString problem = Play(step, hands);
    if (!problem.isEmpty()) hands.Capture(QStringLiteral("stuck"));
    ASSERT_EQ(problem.toStdString(), "") << hands.Messages().toStdString();
    ASSERT_EQ(watch.Strangers().join(u',').toStdString(), "") << step.name;
  }
  EXPECT_GT(watch.Typed(), 80) << "the keys of the screen did the typing";
}

INSTANTIATE_TEST_SUITE_P(AllPanels, ShiftTest,
                         testing::Values(Run{"en", QSize(800, 600), Pointing::kTouchScreen},
                                         Run{"en", QSize(1024, 768), Pointing::kMouse},
                                         Run{"en", QSize(1920, 1080), Pointing::kTouchScreen},
                                         Run{"es", QSize(800, 600), Pointing::kTouchScreen},
                                         Run{"es", QSize(1024, 768), Pointing::kMouse},
                                         Run{"es", QSize(1920, 1080), Pointing::kTouchScreen}),
                         [](const auto& run) { return NameOf(run.param).replace(u'-', u'_').toStdString(); });

}  // namespace
}  // namespace panel::shift
