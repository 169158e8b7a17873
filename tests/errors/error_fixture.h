// SPDX-License-Identifier: MIT
// The kernel's queue of errors on a simulated CNC, and a composer over it whose words read "Tn".
#pragma once

#include <map>
#include <string>

#include "errors/error_composer.h"
#include "errors/error_values.h"
#include "support/error_records.h"
#include "support/memory_files.h"
#include "support/sim_fixture.h"

namespace pnl::test {

/// The kernel's queue, and the texts of some errors.
inline void DefineErrors(rig::CncControl& cnc) {
  for (const char16_t* name : {u"E.NERRORS", u"E.ERRORPRI"}) {
    cnc.Define(name, rig::VariableType::kInt, std::int64_t{0}, true, true);
  }
  for (const int number : {1000, 1001, 1002, 2000, 201, 3753}) {
    cnc.ErrorText("error_to_txt", number, u"|fault " + FromUtf8(std::to_string(number)), u"", false);
  }
}

class ErrorFixture : public SimFixture {
 protected:
  ErrorFixture() {
    for (int id = 200; id < 270; ++id) texts[id] = FromUtf8("T" + std::to_string(id));
    for (int id = 57340; id < 57360; ++id) texts[id] = FromUtf8("T" + std::to_string(id));
  }

  ComposedError Compose(const ErrorRecord& record) { return ComposeError(record, Around()); }
  std::string DescriptionOf(const ErrorRecord& record) { return ToUtf8(Compose(record).Description()); }
  std::string Line(const ErrorParameter& parameter) { return ToUtf8(ComposeParameter(parameter, words, cnc.Kapi())); }
  ErrorSurroundings Around() { return {cnc.Kapi(), cnc.Util(), disc, words, widths}; }

  std::map<int, Text> texts;
  ErrorWords words{texts};
  TextWidths widths{[](TextView text) { return static_cast<int>(text.size()) * 8; }, 4000};
  MemoryFiles disc;
};

}  // namespace pnl::test
