// SPDX-License-Identifier: MIT
#include "facade/sim/sim_answers.h"

#include <algorithm>
#include <iterator>

namespace pnl::sim {

namespace {

struct Function {
  std::string_view name;
  std::int32_t start;
};

constexpr Function kFunctions[] = {
    {"ExisteKernel", 0},
    {"IsNewInspecAllowed", 0},
    {"EnProcesoInspec", 0},
    {"IsMDIAllowedInResetInspect", 0},
    {"CogerPlcFree", 1},
    {"LiberarPlcFree", 1},
    {"SetMdi", 1},
    {"EndMDIMode", 1},
    {"SetMode", 1},
    {"MDILine", 0},
    {"NextSingleStep", 0},
    {"ClearFeedhold", 0},
    {"MDICancel", 0},
    {"PosibleMDICancel", 0},
    {"WriteTxtInBlackBox", 0},
    {"SWOption_IsZMCON", 1},
    {"ReadError", 0},
    {"ResetError", 0},
    {"ResetErrorWithEnter", 0},
    {"AddLogOnInfo", 0},
    {"ChannelNumber", 1},
    {"ConvertLogToName", 0},
    {"GetTextoMlinkError", 0},
    {"GetTextoSercosError", 0},
    {"Connect", 1},
    {"ReadMsg", 0},
    {"TAPI_Tools_GetToolData", 0},
    {"PSW_ConfirmarAcceso", 1},
    {"UTIL7340_DriveStatus", 1},
    {"UTIL7340_AreSoftkeyMetricsStandard", 1},
    {"UTIL7340_FitFontSize", 0},
    {"UTIL7340_FitHeight", 0},
    {"UTIL7340_Is7335", 0},
    {"Util7340_MarcaHelpAsignadaABloque", 0},
};

const Function* FindFunction(std::string_view name) {
  const auto* found =
      std::find_if(std::begin(kFunctions), std::end(kFunctions), [name](const Function& f) { return f.name == name; });
  return found == std::end(kFunctions) ? nullptr : found;
}

}  // namespace

bool SimAnswers::Set(std::string_view function, std::vector<std::int32_t> values) {
  if (FindFunction(function) == nullptr) return false;
  if (values.empty()) {
    presets_.erase(std::string(function));
  } else {
    presets_[std::string(function)] = {std::move(values), 0};
  }
  return true;
}

std::optional<std::int32_t> SimAnswers::TakePreset(std::string_view function) {
  const auto preset = presets_.find(function);
  if (preset == presets_.end()) return std::nullopt;
  Values& values = preset->second;
  const std::int32_t value = values.values[values.next];
  if (values.next + 1 < values.values.size()) ++values.next;
  return value;
}

std::int32_t SimAnswers::Take(std::string_view function) {
  const auto preset = TakePreset(function);
  return preset ? *preset : StartValue(function);
}

std::int32_t SimAnswers::StartValue(std::string_view function) {
  const Function* found = FindFunction(function);
  return found == nullptr ? 0 : found->start;
}

}  // namespace pnl::sim
