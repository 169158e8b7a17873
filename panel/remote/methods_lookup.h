// SPDX-License-Identifier: MIT
// Finds the control that a request names by "window" and "id", and the place in it by "index" and "column". A problem
// is noted in the parameters.
#pragma once

#include <optional>

#include "remote/operator_input.h"
#include "remote/params.h"

class QWidget;

namespace panel {

struct FoundControl {
  QWidget* window = nullptr;
  QWidget* control = nullptr;
};
/// Both null when the parameters have a problem.
[[nodiscard]] FoundControl ReadControl(Params& params);
/// Returns nothing without "index". The header (index -1) also needs "column".
[[nodiscard]] std::optional<PressPlace> ReadPlace(Params& params);

}  // namespace panel
