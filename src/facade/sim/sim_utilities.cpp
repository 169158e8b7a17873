// SPDX-License-Identifier: MIT
#include "facade/sim/sim_utilities.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"

namespace pnl::sim {

namespace {
/// The panel height for which the tools give their sizes.
constexpr double kBaseHeight = 600;
/// The least height of a font: a cell of so many pixels, in which letters are 13 pixels high, or such letters.
constexpr int kLeastCell = 15;
constexpr int kLeastLetters = 13;
}  // namespace

int SimUtilities::ErrorText(ErrorTextFunction function, std::int32_t number, Z7340ERRORINFO_ST& info) {
  return texts_.Fill(ErrorTextFunctionName(function), number, info) ? 0 : -1;
}

bool SimUtilities::desc_to_txt(std::int32_t number, Text& text, TextView file) {
  const Text* found = texts_.FindDescription(file, number);
  if (found != nullptr) text = *found;
  return found != nullptr;
}

int SimUtilities::UTIL7340_DriveStatus(int drive) {
  constexpr int kUsersDrive = 1;
  constexpr int kNoDrive = 2;
  // There is only one drive, so another one is never reported as ready.
  return drive == kUsersDrive ? answers_.Take("UTIL7340_DriveStatus") : kNoDrive;
}

void SimUtilities::UTIL7340_CopyToClipboard_Text(WindowHandle window, TextView text) {
  recorder_.Cnc("UTIL7340_CopyToClipboard_Text", {Recorded(window), Recorded(text)}, rig::Value{});
  windows_.SetClipboardText(text);
}

Text SimUtilities::MarkOf(TextView block) const {
  const auto given = marks_.find(block);
  if (given != marks_.end()) return given->second;
  return machine_ == nullptr ? Text() : machine_->MarkOfBlock(block);
}

int SimUtilities::Util7340_MarcaHelpAsignadaABloque(TextView block, Text& mark) {
  constexpr std::string_view kName = "Util7340_MarcaHelpAsignadaABloque";
  const Text found = MarkOf(block);
  const auto preset = answers_.TakePreset(kName);
  const int result = preset ? *preset : (found.empty() ? -1 : SimAnswers::StartValue(kName));
  rig::Value filled;
  if (result == 0 && !found.empty()) {
    mark = found;
    filled = Recorded(mark);
  }
  recorder_.Cnc(kName, {Recorded(block), filled}, Recorded(result));
  return result;
}

bool SimUtilities::UTIL7340_AreSoftkeyMetricsStandard() {
  return answers_.Take("UTIL7340_AreSoftkeyMetricsStandard") != 0;
}

int SimUtilities::UTIL7340_FitFontSize(int height) {
  if (const auto preset = answers_.TakePreset("UTIL7340_FitFontSize")) return *preset;
  const int fitted = Fit(height);
  if (height > 0) return std::max({fitted, height, kLeastCell});
  return height < 0 ? std::min({fitted, height, -kLeastLetters}) : 0;
}

int SimUtilities::UTIL7340_FitHeight(int height) {
  const auto preset = answers_.TakePreset("UTIL7340_FitHeight");
  return preset ? *preset : Fit(height);
}

bool SimUtilities::UTIL7340_Is7335() { return answers_.Take("UTIL7340_Is7335") != 0; }

int SimUtilities::Fit(int height) const {
  const int panel = windows_.PanelRect().Height();
  if (panel <= 0) return height;
  return TruncateToInt32(std::round(static_cast<double>(height) * panel / kBaseHeight));
}

}  // namespace pnl::sim
