// SPDX-License-Identifier: MIT
// The test rig of the library's instance. It passes each call on to the part that does it, and turns what the parts
// report into events. Its only state is the sink, which the parts keep.
#pragma once

#include <pnltools/rig.h>

#include "library/library.h"

namespace pnl {

class LibraryRig final : public rig::Rig {
 public:
  explicit LibraryRig(Library& library);

  bool StartBare() override;
  bool StartMachine(std::string_view name) override;
  [[nodiscard]] rig::CncControl& Cnc() override { return *library_.Simulation(); }
  [[nodiscard]] rig::MachineControl* Machine() override { return library_.Machine(); }
  [[nodiscard]] rig::Storage& Files() override { return library_.Simulation()->Storage(); }
  [[nodiscard]] bool SimulatesDrives() const override { return library_.SimulatesDrives(); }
  [[nodiscard]] FileStart NetworkFile(std::u16string_view path) override;
  void UseManualTime() override;
  void Advance(std::int64_t milliseconds) override;
  void SetText(std::int32_t id, std::u16string_view text) override;
  void AnswerBoxes(std::function<std::string(std::string_view style)> answer) override;
  void AskPasswords(std::function<bool(std::int32_t type)> ask) override;
  void SetSink(rig::EventSink* sink) override;
  [[nodiscard]] std::u16string ClipboardText() const override;
  [[nodiscard]] Counts Open() const override;
  [[nodiscard]] bool IsWorking() const override {
    return library_.Jobs().IsBusy() && !library_.Credentials().IsAsking();
  }

 private:
  Library& library_;
};

}  // namespace pnl
