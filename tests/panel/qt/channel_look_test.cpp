// SPDX-License-Identifier: MIT
// The decision table of the state line: each of its rows, in both languages, and that it has exactly one row for each
// combination; and that the strip shows every line whole.
#include "ui/channel_look.h"

#include <gtest/gtest.h>

#include "support/text_catcher.h"
#include "ui/panel_layout.h"
#include "ui/status_strip.h"
#include "ui/theme.h"

namespace panel {
namespace {

using pnl::rig::MachineFault;
using pnl::rig::MachineState;
using pnl::test::TextsOf;

struct StateRow {
  const char* stands;  // s emergency stop, f drive fault, b bus, k kernel, d door
  bool inspecting;
  int status;
  bool held;
  int percent;
  const char* english;
  const char* spanish;
  QRgb color;
};

// In the order of the table.
const StateRow kRows[] = {
    {"s", false, 1, false, 100, "EMERGENCY STOP", "PARADA DE EMERGENCIA", theme::kRed},
    {"fk", false, 1, false, 100, "FAULT", "FALLO", theme::kRed},
    {"f", true, 1, false, 0, "FAULT, INSPECTION", "FALLO, INSPECCIÓN", theme::kRed},
    {"b", true, 2, false, 0, "FAULT, RUNNING", "FALLO, EN MARCHA", theme::kRed},
    {"k", false, 4, false, 100, "FAULT, INTERRUPTED", "FALLO, INTERRUMPIDO", theme::kRed},
    {"f", false, 4, true, 100, "FAULT, FEED HOLD", "FALLO, RETENCIÓN", theme::kRed},
    {"f", true, 8, true, 100, "FAULT, ABORTED", "FALLO, ABORTADO", theme::kRed},
    {"d", false, 1, false, 0, "DOOR OPEN", "PUERTA ABIERTA", theme::kAmber},
    {"d", true, 1, false, 100, "DOOR OPEN, INSPECTION", "PUERTA ABIERTA, INSPECCIÓN", theme::kAmber},
    {"d", true, 2, false, 100, "DOOR OPEN, RUNNING", "PUERTA ABIERTA, EN MARCHA", theme::kRed},
    {"d", false, 4, false, 100, "DOOR OPEN, INTERRUPTED", "PUERTA ABIERTA, INTERRUMPIDO", theme::kAmber},
    {"d", false, 4, true, 100, "DOOR OPEN, FEED HOLD", "PUERTA ABIERTA, RETENCIÓN", theme::kAmber},
    {"d", false, 8, false, 100, "DOOR OPEN, ABORTED", "PUERTA ABIERTA, ABORTADO", theme::kRed},
    {"", false, 1, false, 0, "FEED 0 %", "AVANCE 0 %", theme::kAmber},
    {"", false, 1, false, 1, "READY", "LISTO", theme::kSteel},
    {"", false, 2, false, 0, "RUNNING, FEED 0 %", "EN MARCHA, AVANCE 0 %", theme::kAmber},
    {"", false, 2, false, 200, "RUNNING", "EN MARCHA", theme::kGreen},
    {"", false, 4, false, 0, "INTERRUPTED", "INTERRUMPIDO", theme::kAmber},
    {"", false, 4, true, 0, "FEED HOLD", "RETENCIÓN", theme::kAmber},
    {"", false, 8, false, 100, "ABORTED", "ABORTADO", theme::kRed},
    {"", true, 1, false, 0, "INSPECTION, FEED 0 %", "INSPECCIÓN, AVANCE 0 %", theme::kAmber},
    {"", true, 1, false, 100, "INSPECTION", "INSPECCIÓN", theme::kViolet},
    {"", true, 2, false, 0, "INSPECTION, FEED 0 %", "INSPECCIÓN, AVANCE 0 %", theme::kAmber},
    {"", true, 2, false, 100, "INSPECTION, RUNNING", "INSPECCIÓN, EN MARCHA", theme::kGreen},
    {"", true, 4, false, 100, "INSPECTION, INTERRUPTED", "INSPECCIÓN, INTERRUMPIDO", theme::kAmber},
    {"", true, 4, true, 100, "INSPECTION, FEED HOLD", "INSPECCIÓN, RETENCIÓN", theme::kAmber},
    {"", true, 8, false, 100, "INSPECTION, ABORTED", "INSPECCIÓN, ABORTADO", theme::kRed},
};

MachineState StateOf(const StateRow& row) {
  MachineState state;
  for (const char sign : std::string(row.stands)) {
    if (sign == 's') state.emergencyStop = true;
    if (sign == 'd') state.causes.push_back(MachineFault::kDoorOpen);
    if (sign == 'f') state.causes.push_back(MachineFault::kDriveFault);
    if (sign == 'b') state.causes.push_back(MachineFault::kBusFault);
    if (sign == 'k') state.causes.push_back(MachineFault::kFatal);
  }
  state.inspecting = row.inspecting;
  state.channelStatus = row.status;
  state.feedHold = row.held;
  state.feedOverride = row.percent;
  return state;
}

class ChannelLookTest : public ::testing::Test {
 protected:
  ~ChannelLookTest() override { UseWords("en"); }
};

TEST_F(ChannelLookTest, EveryRowOfTheTableSaysWhatKeepsTheAxesFromMoving) {
  ASSERT_EQ(std::size(kRows), LookTable().size());
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    const ChannelLook look = LookOf(StateOf(kRows[i]));
    EXPECT_EQ(look, LookTable()[i].look) << kRows[i].english;
    UseWords("es");
    EXPECT_EQ(TextOf(look), kRows[i].spanish);
    UseWords("en");
    EXPECT_EQ(TextOf(look), kRows[i].english);
    EXPECT_EQ(look.color, kRows[i].color) << kRows[i].english;
  }
}

TEST_F(ChannelLookTest, ExactlyOneRowAppliesToEachCombination) {
  for (const Obstacle obstacle : {Obstacle::kEmergencyStop, Obstacle::kFault, Obstacle::kDoor, Obstacle::kNone}) {
    for (const Doing doing : {Doing::kRest, Doing::kRunning, Doing::kInterrupted, Doing::kHeld, Doing::kAborted}) {
      for (int flags = 0; flags < 4; ++flags) {
        int rows = 0;
        for (const LookRow& row : LookTable()) {
          if (Applies(row, obstacle, (flags & 1) != 0, doing, (flags & 2) != 0)) ++rows;
        }
        EXPECT_EQ(rows, 1) << static_cast<int>(obstacle) << static_cast<int>(doing) << flags;
      }
    }
  }
}

TEST_F(ChannelLookTest, AFaultGoesBeforeTheDoorAndTheStopBeforeBoth) {
  EXPECT_EQ(LookOf(StateOf({"df", false, 1, false, 100, "", "", 0})).word, Word::kFault);
  EXPECT_EQ(LookOf(StateOf({"sdfbk", true, 2, true, 0, "", "", 0})), LookTable()[0].look);
}

TEST_F(ChannelLookTest, AnUnknownStatusIsRestAndOnlyReadyWithNothingInTheWay) {
  EXPECT_EQ(LookOf(StateOf({"", false, 99, false, 100, "", "", 0})).word, Word::kReady);
  EXPECT_EQ(LookOf(StateOf({"d", false, 99, false, 100, "", "", 0})).word, Word::kDoorOpen);
  int ready = 0;
  for (const LookRow& row : LookTable()) ready += row.look.word == Word::kReady ? 1 : 0;
  EXPECT_EQ(ready, 1);
}

class StripAt : public ::testing::TestWithParam<QSize> {
 protected:
  ~StripAt() override { UseWords("en"); }
};

TEST_P(StripAt, EveryStateIsShownWhole) {
  const PanelLayout layout = LayOutWithin(GetParam(), theme::TouchPixels(96));
  for (const char* language : {"en", "es"}) {
    UseWords(language);
    StatusStrip strip(nullptr);
    strip.resize(layout.status.size());
    strip.SetFontPixels(static_cast<int>(std::lround(14 * layout.scale)));
    for (const LookRow& row : LookTable()) {
      strip.Show(row.look, QStringLiteral("AUTO"));
      QString shown = TextsOf(strip).join(QLatin1Char(' '));
      EXPECT_FALSE(shown.contains(QChar(0x2026))) << shown.toStdString();
      EXPECT_TRUE(shown.remove(QLatin1Char(',')).contains(TextOf(row.look).remove(QLatin1Char(','))))
          << shown.toStdString();
    }
  }
}

// "Errores: 12" was cut on the smallest panel.
TEST_P(StripAt, TheCountOfErrorsIsShownWholeInLettersOfAnySize) {
  const PanelLayout layout = LayOutWithin(GetParam(), theme::TouchPixels(96));
  for (const char* language : {"en", "es"}) {
    UseWords(language);
    for (const int pixels : {14, 18, 22, 30}) {
      StatusStrip strip(nullptr);
      strip.resize(layout.status.size());
      strip.SetFontPixels(pixels);
      for (const int count : {0, 7, 12, 250}) {
        strip.Indicator().Show({1101, ErrorKind::kError, 0, count}, count);
        const QString shown = TextsOf(strip.Indicator()).join(QLatin1Char(' '));
        EXPECT_FALSE(shown.contains(QChar(0x2026))) << shown.toStdString();
        EXPECT_TRUE(count == 0 || shown.contains(QString::number(count))) << shown.toStdString();
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, StripAt,
                         ::testing::Values(QSize(640, 480), QSize(800, 600), QSize(1024, 768), QSize(1600, 860),
                                           QSize(1920, 1080)));

}  // namespace
}  // namespace panel
