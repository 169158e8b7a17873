// SPDX-License-Identifier: MIT
// The simulated CNC, for use without a control. Without a machine it is a table of variables, kernel calls that are
// recorded, and answers that are set. An attached machine runs the blocks. It owns its parts but no machine. Everything
// happens on the window thread.
#pragma once

#include <pnltools/rig.h>

#include "base/files.h"
#include "facade/cnc_facade.h"
#include "facade/sim/machine_seam.h"
#include "facade/sim/sim_answers.h"
#include "facade/sim/sim_error_queue.h"
#include "facade/sim/sim_error_texts.h"
#include "facade/sim/sim_kernel.h"
#include "facade/sim/sim_recorder.h"
#include "facade/sim/sim_storage.h"
#include "facade/sim/sim_tables.h"
#include "facade/sim/sim_utilities.h"
#include "facade/sim/sim_variables.h"

namespace pnl::sim {

class SimulatedCnc final : public CncFacade, public rig::CncControl {
 public:
  SimulatedCnc(WindowSystem& windows, Timers& timers, Files& files, DriveMap& drives);

  /// Sets who gets the calls and writes; null for nobody.
  void SetSink(rig::EventSink* sink) { recorder_.SetSink(sink); }
  /// Attaches a machine; null detaches it. The machine must be detached before it is destroyed.
  void AttachMachine(KernelMachine* machine) {
    kernel_.AttachMachine(machine);
    utilities_.AttachMachine(machine);
  }
  /// The environment with which a machine is made.
  [[nodiscard]] MachineEnvironment& Environment() { return machineSide_; }
  [[nodiscard]] SimStorage& Storage() { return storage_; }
  /// The number of reports that were opened and not closed, for leak checks.
  [[nodiscard]] std::size_t OpenReports() const { return variables_.OpenReports(); }

  // CncFacade
  [[nodiscard]] Variables& Vars() override { return variables_; }
  [[nodiscard]] Kernel& Kapi() override { return kernel_; }
  [[nodiscard]] ToolTables& Tapi() override { return tables_; }
  [[nodiscard]] Utilities& Util() override { return utilities_; }
  [[nodiscard]] Passwords& Psw() override { return tables_; }
  [[nodiscard]] SimTables& Tables() { return tables_; }

  // rig::CncControl
  void Define(std::u16string_view name, rig::VariableType type, const rig::Value& value, bool readable,
              bool writable) override;
  bool Undefine(std::u16string_view name) override;
  bool Set(std::u16string_view name, const rig::Value& value) override;
  [[nodiscard]] std::optional<rig::Value> Get(std::u16string_view name) const override;
  int Watch(std::u16string_view name, std::function<void()> changed) override;
  void Unwatch(int watch) override;
  [[nodiscard]] std::vector<PnlWindow> Reports(std::u16string_view name) const override;
  bool Returns(std::string_view function, std::vector<std::int32_t> values) override;
  void Axis(std::int32_t logical, std::u16string_view name) override;
  bool ErrorText(std::string_view function, std::int32_t number, std::u16string_view text, std::u16string_view helpRef,
                 bool hasHelp) override;
  void Description(std::u16string_view file, std::int32_t number, std::u16string_view text) override;
  bool PushError(const rig::ErrorSpec& spec, std::string& problem) override;
  bool PushErrorRecord(std::string_view bytes) override;
  [[nodiscard]] std::vector<std::int32_t> ErrorQueue() const override;
  void ClearErrors() override;
  [[nodiscard]] std::vector<ErrorSummary> Errors() const override;
  /// Watchers are called in the order in which they were added. One that is removed meanwhile isn't called.
  int WatchErrors(std::function<void(const ErrorSummary&, ErrorFate)> changed) override;
  void UnwatchErrors(int watch) override;
  [[nodiscard]] std::optional<std::u16string> DescriptionBehind(std::u16string_view helpRef) const override;
  void PlcMessage(std::int32_t type, std::int32_t id, std::u16string_view message, std::u16string_view info) override;
  void Tool(std::int32_t number, std::int32_t type, std::int32_t family, std::int32_t subfamily, std::int32_t diameter,
            std::int32_t teeth) override;
  void BlockMark(std::u16string_view block, std::u16string_view mark) override;

 private:
  class MachineSide final : public MachineEnvironment {
   public:
    MachineSide(SimulatedCnc& cnc, Timers& timers) : cnc_(cnc), timers_(timers) {}
    void Define(TextView name, rig::VariableType type, const rig::Value& value) override;
    void Set(TextView name, const rig::Value& value) override;
    [[nodiscard]] std::int32_t GetInt(TextView name) const override;
    void SetTool(std::int32_t number, std::int32_t type, const ToolData& data) override;
    void PushError(const ErrorRecord& record) override;
    void SetErrorText(std::string_view function, std::int32_t number, TextView text, TextView helpRef) override;
    void SetPlcMessage(std::int32_t type, std::int32_t id, TextView message, TextView info) override;
    [[nodiscard]] Timers& Clock() override { return timers_; }

   private:
    SimulatedCnc& cnc_;
    Timers& timers_;
  };

  void TellErrorWatchers(const ErrorRecord& record, std::int64_t serial, ErrorFate fate);

  SimRecorder recorder_;
  SimAnswers answers_;
  SimStorage storage_;
  SimErrorTexts texts_;
  SimVariables variables_;
  SimErrorQueue errors_;
  SimKernel kernel_;
  SimTables tables_;
  SimUtilities utilities_;
  MachineSide machineSide_;
  using ErrorWatcher = std::function<void(const ErrorSummary&, ErrorFate)>;
  std::map<int, ErrorWatcher> errorWatchers_;
  int lastErrorWatch_ = 0;
};

}  // namespace pnl::sim
