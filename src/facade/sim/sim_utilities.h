// SPDX-License-Identifier: MIT
// The panel's utilities on the simulated CNC: paths from the storage, error texts from their tables, help marks by
// exact block text and from the machine, clipboard and panel size from the window system.
#pragma once

#include <map>

#include "facade/sim/machine_seam.h"
#include "facade/sim/sim_answers.h"
#include "facade/sim/sim_error_texts.h"
#include "facade/sim/sim_recorder.h"
#include "facade/sim/sim_storage.h"
#include "facade/utilities.h"

namespace pnl::sim {

class SimUtilities final : public Utilities {
 public:
  SimUtilities(WindowSystem& windows, const SimRecorder& recorder, SimAnswers& answers, const SimErrorTexts& texts,
               const SimStorage& storage)
      : windows_(windows), recorder_(recorder), answers_(answers), texts_(texts), storage_(storage) {}

  /// Attaches the machine that knows the marks of blocks; null detaches it.
  void AttachMachine(const KernelMachine* machine) { machine_ = machine; }
  void SetBlockMark(TextView block, TextView mark) { marks_[Text(block)] = Text(mark); }

  [[nodiscard]] Text Get7340Path(int id) override { return storage_.Path(id); }
  /// Returns 0 when the number has a text, else -1.
  int ErrorText(ErrorTextFunction function, std::int32_t number, Z7340ERRORINFO_ST& info) override;
  bool desc_to_txt(std::int32_t number, Text& text, TextView file) override;
  int UTIL7340_DriveStatus(int drive) override;
  void UTIL7340_CopyToClipboard_Text(WindowHandle window, TextView text) override;
  /// The mark is the one that was given to exactly this block, else the machine's. Returns -1 for a block without a
  /// mark, unless an answer is set.
  int Util7340_MarcaHelpAsignadaABloque(TextView block, Text& mark) override;
  [[nodiscard]] Rect UTIL7340_GetCNCRect() override { return windows_.PanelRect(); }
  [[nodiscard]] bool UTIL7340_AreSoftkeyMetricsStandard() override;
  /// Returns height · panel height / 600, rounded to the nearest whole number, halves away from zero, but never a font
  /// smaller than height or than can be read: a cell of 15 pixels, or letters of 13. A panel without a height counts as
  /// 600 high. The sign stays, because a negative font height has a meaning of its own.
  [[nodiscard]] int UTIL7340_FitFontSize(int height) override;
  /// Returns height · panel height / 600, rounded in the same way; nothing limits it.
  [[nodiscard]] int UTIL7340_FitHeight(int height) override;
  [[nodiscard]] bool UTIL7340_Is7335() override;

 private:
  [[nodiscard]] Text MarkOf(TextView block) const;
  [[nodiscard]] int Fit(int height) const;

  WindowSystem& windows_;
  const SimRecorder& recorder_;
  SimAnswers& answers_;
  const SimErrorTexts& texts_;
  const SimStorage& storage_;
  const KernelMachine* machine_ = nullptr;
  std::map<Text, Text, std::less<>> marks_;
};

}  // namespace pnl::sim
