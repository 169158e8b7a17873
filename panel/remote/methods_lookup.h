// SPDX-License-Identifier: MIT
// Finds what a request names by "window" and "id", and the place in it by "index" and "column". What is wrong stands in
// the parameters.
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
/// Nothing when no "index" is given. The header (index -1) needs a "column".
[[nodiscard]] std::optional<PressPlace> ReadPlace(Params& params);

}  // namespace panel
