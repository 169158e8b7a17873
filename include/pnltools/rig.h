// SPDX-License-Identifier: MIT
// The test rig of the library: how a panel program or a test drives the simulated CNC, the clock, paths, drives, texts
// and message boxes, and hears of everything the tools ask of them. C++ and pure interfaces only: nothing here links.
// A host in a machine needs none of it. Objects belong to the library and live as long as the process.
#ifndef PNLTOOLS_RIG_H
#define PNLTOOLS_RIG_H

#include <pnltools/pnltools.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace pnl::rig {

/// A value of a variable or of a call: nothing, an integer, a real, a text, or a record as name and value pairs.
struct Field;
using Value = std::variant<std::monostate, std::int64_t, double, std::u16string, std::vector<Field>>;
struct Field {
  std::string name;
  Value value;
};

enum class VariableType { kInt, kDouble, kText };

/// What happened, in order. Every entry is called at the moment it happens, on the window thread.
class EventSink {
 public:
  virtual ~EventSink() = default;
  /// A call into the kernel, the tool and PLC tables, the passwords, or the clipboard, black box and block mark
  /// utilities. args holds the arguments in order.
  virtual void Cnc(std::string_view name, const std::vector<Value>& args, const Value& result) = 0;
  /// A write to a CNC variable by a tool.
  virtual void Write(std::u16string_view name, const Value& value, bool ok) = 0;
  /// A message that a tool sends or posts to a window of the host; a posted one is told when it is posted.
  virtual void MessageToHost(PnlWindow window, std::uint32_t message, std::intptr_t first, std::intptr_t second) = 0;
  /// A message box that was answered.
  virtual void Box(std::u16string_view title, std::u16string_view text, std::string_view style,
                   std::string_view answer) = 0;
};

/// A typed value inside an error.
struct ErrorParameterSpec {
  std::int32_t valueType = 0;
  std::int32_t unit = 0;
  std::int32_t meaning = 0;
  Value value;
};

/// An error to push: fields of the record by name (numbers or texts), typed parameters, extra values.
struct ErrorSpec {
  std::vector<Field> fields;
  std::vector<ErrorParameterSpec> parameters;   // at most 5
  std::vector<ErrorParameterSpec> extraValues;  // at most 4; valueType and value only
};

/// The simulated CNC's controls. Names that don't exist are answered with false.
class CncControl {
 public:
  virtual ~CncControl() = default;
  /// Makes or replaces a variable, without a report. Handles bound to it and reports open on it stay.
  virtual void Define(std::u16string_view name, VariableType type, const Value& value, bool readable,
                      bool writable) = 0;
  virtual bool Undefine(std::u16string_view name) = 0;
  /// Sets the value and reports to every window with a report open, also when equal.
  virtual bool Set(std::u16string_view name, const Value& value) = 0;
  [[nodiscard]] virtual std::optional<Value> Get(std::u16string_view name) const = 0;
  /// Calls changed after every Set or write of that variable, and after the machine changed it; for a host that shows
  /// it. The number ends it with Unwatch.
  virtual int Watch(std::u16string_view name, std::function<void()> changed) = 0;
  virtual void Unwatch(int watch) = 0;
  [[nodiscard]] virtual std::vector<PnlWindow> Reports(std::u16string_view name) const = 0;
  /// What a kernel, utility or password function answers: the values in turn, the last one stays. False when there is
  /// no such function, or none whose answer can be set.
  virtual bool Returns(std::string_view function, std::vector<std::int32_t> values) = 0;
  virtual void Axis(std::int32_t logical, std::u16string_view name) = 0;
  /// False for an unknown function name.
  virtual bool ErrorText(std::string_view function, std::int32_t number, std::u16string_view text,
                         std::u16string_view helpRef, bool hasHelp) = 0;
  virtual void Description(std::u16string_view file, std::int32_t number, std::u16string_view text) = 0;
  /// False, and nothing pushed, when a field's name or value is wrong; problem then names it.
  virtual bool PushError(const ErrorSpec& spec, std::string& problem) = 0;
  /// Exactly 4048 bytes.
  virtual bool PushErrorRecord(std::string_view bytes) = 0;
  [[nodiscard]] virtual std::vector<std::int32_t> ErrorQueue() const = 0;
  virtual void ClearErrors() = 0;
  /// How the error window sorts errors, as it numbers them.
  enum class ErrorClass { kError, kMarked, kWarning, kFatal, kConfirm };
  /// What stands in the queue for an operator to read. Where no table has a text for the number, the rest still tells
  /// what happened.
  struct ErrorSummary {
    std::int32_t number = 0;
    std::int32_t channel = 0;
    std::int32_t severity = 0;
    ErrorClass errorClass = ErrorClass::kWarning;  // the class that the error window gives it
    std::u16string text;                           // empty when no table and no field of the record has one
    std::int32_t source = 0;
    std::int32_t identifier = 0;
    std::u16string module;
    std::vector<std::u16string> parameters;  // the plain values of the typed parameters that are there
    std::int64_t serial = 0;                 // never used twice
  };
  [[nodiscard]] virtual std::vector<ErrorSummary> Errors() const = 0;
  /// What becomes of an error: it enters the queue, or leaves it by ResetError, by ResetErrorWithEnter, or with all
  /// others when the queue is cleared.
  enum class ErrorFate { kRaised, kAcknowledged, kConfirmed, kCleared };
  /// Calls back at once for each error of the queue from now on, for a host that keeps a list. The number ends it with
  /// UnwatchErrors.
  virtual int WatchErrors(std::function<void(const ErrorSummary&, ErrorFate)> changed) = 0;
  virtual void UnwatchErrors(int watch) = 0;
  /// The long description behind a reference "file#number"; nothing when there is none.
  [[nodiscard]] virtual std::optional<std::u16string> DescriptionBehind(std::u16string_view helpRef) const = 0;
  virtual void PlcMessage(std::int32_t type, std::int32_t id, std::u16string_view message,
                          std::u16string_view info) = 0;
  virtual void Tool(std::int32_t number, std::int32_t type, std::int32_t family, std::int32_t subfamily,
                    std::int32_t diameter, std::int32_t teeth) = 0;
  virtual void BlockMark(std::u16string_view block, std::u16string_view mark) = 0;
};

/// What an axis, the spindle and the channel of the machine show at this moment.
struct MachineState {
  struct Axis {
    std::u16string name;
    double position = 0;  // mm in workpiece coordinates
    double machine = 0;   // mm in machine coordinates
    double toGo = 0;      // mm
  };
  std::vector<Axis> axes;
  bool inches = false;             // G20: programmed lengths, feeds and what an operator reads are inches
  bool feedPerRevolution = false;  // G95
  bool cuttingSpeed = false;       // G96: S is a cutting speed
  double feed = 0;                 // mm/min, what is being moved with
  double programmedFeed = 0;       // as F says, in the unit of its G code
  int feedOverride = 100;          // percent
  double spindleSpeed = 0;         // rpm, turning
  double programmedSpeed = 0;
  int spindleDirection = 0;  // 1 clockwise (M3), -1 counter-clockwise (M4), 0 stopped
  int tool = 0;
  int channelStatus = 1;  // status byte: 1 ready, 2 running, 4 interrupted, 8 aborted
  int channelDetail = 0;
  bool feedHold = false;
  bool singleBlock = false;
  bool inspecting = false;
  bool coolant = false;
  bool emergencyStop = false;  // it is pressed; its error may be cleared already
  std::u16string block;        // in hand
  std::u16string gCodes;       // modal, "G01 G17 G90 …"
};

/// Where a fault of a program lies.
struct ProgramSpot {
  std::u16string folder;  // panel path
  std::u16string file;
  std::int32_t position = 0;  // of the block, in bytes of the file
  std::int32_t span = 0;      // from the block's start to the word at fault, in UTF-16 units
};

/// The operator's panel of the simulated machine. Without one (--bare) Machine() is null.
class MachineControl {
 public:
  virtual ~MachineControl() = default;
  [[nodiscard]] virtual MachineState State() const = 0;
  /// Called whenever something in State changed; while axes move, at most 25 times a second.
  virtual void OnChanged(std::function<void()> changed) = 0;
  virtual void FeedHold(bool on) = 0;
  /// 0 to 200 percent.
  virtual void FeedOverride(int percent) = 0;
  virtual void SingleBlock(bool on) = 0;
  /// The cancel key: cancels an interrupted block.
  virtual void Cancel() = 0;
  /// The reset key: aborts what runs and goes back to the modal start values. An emergency stop that is still pressed
  /// raises its error again.
  virtual void Reset() = 0;
  /// Inspection of an interrupted block, on or off.
  virtual void Inspection(bool on) = 0;
  virtual void EmergencyStop(bool on) = 0;
  /// Faults that the machine can show without a real one: what the PLC, a drive, a bus and the kernel may raise.
  enum class Fault { kDoorOpen, kDriveWarning, kDriveFault, kBusFault, kProgramLine, kConfirm, kFatal };
  using ProgramSpot = rig::ProgramSpot;
  /// Only kProgramLine looks at the spot.
  virtual void Raise(Fault fault, const ProgramSpot& spot = {}) = 0;
  /// A manual mode is chosen (1) or left (0).
  virtual void ManualMode(bool on) = 0;
};

/// A node of the network neighbourhood.
struct NetworkNode {
  int display = 0;
  std::u16string remote;
  std::u16string local;
  std::u16string comment;
  std::u16string provider;
  std::string dir;
  bool connected = false;
  int error = 0;
  bool hasError = false;
  std::vector<NetworkNode> children;
};

struct Drive {
  char letter = 'C';
  std::string dir;  // folder of this machine; empty takes the drive away
  int type = 3;     // 2 removable, 3 fixed, 4 network, 5 CD
  std::u16string label;
  std::u16string remote;
  int error = 0;
  bool labelFails = false;
};

/// Paths, drives and files of the panel.
class Storage {
 public:
  virtual ~Storage() = default;
  virtual void SetPath(std::int32_t id, std::u16string_view path) = 0;
  [[nodiscard]] virtual std::u16string Path(std::int32_t id) const = 0;
  virtual void SetDrive(const Drive& drive) = 0;
  virtual void SetDriveMasks(std::string_view noDrives, std::string_view remembered, std::string_view locked) = 0;
  virtual void SetNetwork(std::vector<NetworkNode> roots) = 0;
  /// The path of this machine; nothing when the drive isn't mapped.
  [[nodiscard]] virtual std::optional<std::string> HostPath(std::u16string_view panelPath) const = 0;
  /// Replaces or makes a file of this machine as the tools do: whole, so that a kill leaves the old content or the new
  /// one. False on failure; the old file stays then. Any thread may call it.
  [[nodiscard]] virtual bool Replace(const std::string& hostPath, std::string_view bytes) const = 0;
};

/// Everything at once.
class Rig {
 public:
  virtual ~Rig() = default;
  /// Bare: no machine, no variable. Else the machine of that name ("demo"). False for an unknown name. Call it before
  /// the first tool.
  virtual bool StartBare() = 0;
  virtual bool StartMachine(std::string_view name) = 0;
  [[nodiscard]] virtual CncControl& Cnc() = 0;
  [[nodiscard]] virtual MachineControl* Machine() = 0;
  [[nodiscard]] virtual Storage& Files() = 0;
  /// Timers and the machine move only by Advance from now on.
  virtual void UseManualTime() = 0;
  /// Fires every timer that falls due, in order, and what each one posts before the next. Nothing with real time.
  virtual void Advance(std::int64_t milliseconds) = 0;
  virtual void SetText(std::int32_t id, std::u16string_view text) = 0;
  /// Who answers the message boxes instead of the operator: style "info", "error" or "question"; the answer is "ok",
  /// "yes", "no" or "cancel". An empty function gives them back to the operator.
  virtual void AnswerBoxes(std::function<std::string(std::string_view style)> answer) = 0;
  virtual void SetSink(EventSink* sink) = 0;
  [[nodiscard]] virtual std::u16string ClipboardText() const = 0;
  /// How many reports, menus, timers and records are open, for leak checks.
  struct Counts {
    std::size_t reports = 0;
    std::size_t menus = 0;
    std::size_t timers = 0;
    std::size_t records = 0;
    std::size_t windows = 0;
  };
  [[nodiscard]] virtual Counts Open() const = 0;
};

}  // namespace pnl::rig

/// The rig, or null when a backend library took the simulation's place.
extern "C" PNL_API pnl::rig::Rig* PnlRig(void);

#endif
