// SPDX-License-Identifier: MIT
// The test rig of the library. With it a panel program or a test drives the simulated CNC, the clock, paths, drives,
// texts and message boxes, and gets to know everything that the tools ask of them. C++ and pure interfaces only, so a
// user needs nothing from it but PnlRig at link time. A host on a real machine doesn't need it. The library owns the
// objects; they live as long as the process.
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

/// A value of a variable or of a call: nothing, an integer, a real, a text, or a record as pairs of name and value.
struct Field;
using Value = std::variant<std::monostate, std::int64_t, double, std::u16string, std::vector<Field>>;
struct Field {
  std::string name;
  Value value;
};

enum class VariableType { kInt, kDouble, kText };

/// Gets every event at the moment when it happens, in order, on the window thread.
class EventSink {
 public:
  virtual ~EventSink() = default;
  /// A call of the kernel, the tool and PLC tables, the passwords, or the utilities for the clipboard and block marks.
  /// args are the arguments in order.
  virtual void Cnc(std::string_view name, const std::vector<Value>& args, const Value& result) = 0;
  /// A tool's write to a CNC variable. ok is false when the variable refused it.
  virtual void Write(std::u16string_view name, const Value& value, bool ok) = 0;
  /// A message that is sent or posted to a window of the host. A posted one is reported when it is posted.
  virtual void MessageToHost(PnlWindow window, std::uint32_t message, std::intptr_t first, std::intptr_t second) = 0;
  /// A message box has been answered.
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

/// An error for PushError: fields of the record by name (numbers or texts), typed parameters, extra values.
struct ErrorSpec {
  std::vector<Field> fields;
  std::vector<ErrorParameterSpec> parameters;   // at most 5
  std::vector<ErrorParameterSpec> extraValues;  // at most 4; only valueType and value are used
};

/// The place of a fault in a program.
struct ProgramSpot {
  std::u16string folder;  // panel path
  std::u16string file;
  std::int32_t position = 0;  // start of the block, in bytes from the start of the file
  std::int32_t span = 0;      // from the block's start to the word at fault, in UTF-16 units
};

/// The controls of the simulated CNC. An operation with a name that doesn't exist returns false.
class CncControl {
 public:
  virtual ~CncControl() = default;
  /// Makes or replaces a variable, without a report. Its bound handles and open reports stay valid.
  virtual void Define(std::u16string_view name, VariableType type, const Value& value, bool readable,
                      bool writable) = 0;
  virtual bool Undefine(std::u16string_view name) = 0;
  /// Sets the value and reports to every window with an open report, even if the value is the same.
  virtual bool Set(std::u16string_view name, const Value& value) = 0;
  [[nodiscard]] virtual std::optional<Value> Get(std::u16string_view name) const = 0;
  /// Calls changed after every Set or write of that variable, and after the machine changed it, for a host that shows
  /// it. Returns the number with which Unwatch ends this.
  virtual int Watch(std::u16string_view name, std::function<void()> changed) = 0;
  virtual void Unwatch(int watch) = 0;
  [[nodiscard]] virtual std::vector<PnlWindow> Reports(std::u16string_view name) const = 0;
  /// Sets the results of a kernel, table, utility or password function: it returns the values in turn and then keeps
  /// returning the last one. An empty list removes the setting. Returns false when no function of that name has a
  /// result that can be set.
  virtual bool Returns(std::string_view function, std::vector<std::int32_t> values) = 0;
  virtual void Axis(std::int32_t logical, std::u16string_view name) = 0;
  /// Sets the text that an error text function returns for a number. Returns false for an unknown function name.
  virtual bool ErrorText(std::string_view function, std::int32_t number, std::u16string_view text,
                         std::u16string_view helpRef, bool hasHelp) = 0;
  virtual void Description(std::u16string_view file, std::int32_t number, std::u16string_view text) = 0;
  /// Appends an error to the queue. Returns false, and appends nothing, when a field's name or value is wrong; problem
  /// then names the field.
  virtual bool PushError(const ErrorSpec& spec, std::string& problem) = 0;
  /// Appends a record of exactly 4048 bytes to the queue. Returns false for another size.
  virtual bool PushErrorRecord(std::string_view bytes) = 0;
  [[nodiscard]] virtual std::vector<std::int32_t> ErrorQueue() const = 0;
  virtual void ClearErrors() = 0;
  /// The classes into which the error window sorts errors, with its numbers.
  enum class ErrorClass { kError, kMarked, kWarning, kFatal, kConfirm };
  /// An error of the queue in a form for operators. Even without a text for the number the other fields say what
  /// happened.
  struct ErrorSummary {
    std::int32_t number = 0;
    std::int32_t channel = 0;
    std::int32_t severity = 0;
    ErrorClass errorClass = ErrorClass::kWarning;  // the same class as in the error window
    std::u16string text;                           // empty when no table and no field of the record has one
    std::int32_t source = 0;
    std::int32_t identifier = 0;
    std::u16string module;
    std::vector<std::u16string> parameters;  // the plain values of the typed parameters that aren't absent
    std::int64_t serial = 0;                 // never used twice
    std::u16string helpRef;                  // for DescriptionBehind; empty when the error has no description
    std::optional<ProgramSpot> program;      // where the error lies; nothing when it lies in no program
  };
  [[nodiscard]] virtual std::vector<ErrorSummary> Errors() const = 0;
  /// What has happened to an error: it has entered the queue, or left it by ResetError, by ResetErrorWithEnter, or with
  /// all others by ClearErrors.
  enum class ErrorFate { kRaised, kAcknowledged, kConfirmed, kCleared };
  /// Calls changed at once for each error that enters or leaves the queue from now on, for a host that keeps a list.
  /// Returns the number with which UnwatchErrors ends this.
  virtual int WatchErrors(std::function<void(const ErrorSummary&, ErrorFate)> changed) = 0;
  virtual void UnwatchErrors(int watch) = 0;
  /// The long description to which a reference "file#number" leads; nothing when there is none.
  [[nodiscard]] virtual std::optional<std::u16string> DescriptionBehind(std::u16string_view helpRef) const = 0;
  virtual void PlcMessage(std::int32_t type, std::int32_t id, std::u16string_view message,
                          std::u16string_view info) = 0;
  virtual void Tool(std::int32_t number, std::int32_t type, std::int32_t family, std::int32_t subfamily,
                    std::int32_t diameter, std::int32_t teeth) = 0;
  virtual void BlockMark(std::u16string_view block, std::u16string_view mark) = 0;
};

/// The faults of the PLC, a drive, a bus and the kernel that the machine can show.
enum class MachineFault { kDoorOpen, kDriveWarning, kDriveFault, kBusFault, kProgramLine, kConfirm, kFatal };

/// The state of the machine's axes, spindle and channel at one moment.
struct MachineState {
  struct Axis {
    std::u16string name;
    double position = 0;  // mm in workpiece coordinates
    double machine = 0;   // mm in machine coordinates
    double toGo = 0;      // mm
  };
  std::vector<Axis> axes;
  bool inches = false;             // G20: programmed lengths and feeds are in inches, and so is what an operator reads
  bool feedPerRevolution = false;  // G95
  bool cuttingSpeed = false;       // G96: S is a cutting speed
  double feed = 0;                 // of the present move, mm/min
  bool rapid = false;              // the present move is a rapid: no F is in force for it
  double programmedFeed = 0;       // the value of F, in the unit that its G codes give
  int feedOverride = 100;          // percent
  double spindleSpeed = 0;         // the actual speed, rpm
  double programmedSpeed = 0;
  int spindleDirection = 0;  // 1 clockwise (M3), -1 counter-clockwise (M4), 0 stopped
  int tool = 0;
  int channelStatus = 1;  // status byte: 1 ready, 2 running, 4 interrupted, 8 aborted
  int channelDetail = 0;
  bool feedHold = false;
  bool singleBlock = false;
  bool inspecting = false;
  bool coolant = false;
  bool emergencyStop = false;        // the button is pressed; its error may be cleared already
  std::vector<MachineFault> causes;  // the faults whose cause stands, in the order of the enumeration; see SetCause
  std::u16string block;              // the block in hand
  std::u16string gCodes;             // modal, "G01 G17 G90 …"
  std::u16string frame;              // the workpiece offset to which the positions refer, "G54"
};

/// The operator's panel of the simulated machine. Without a machine (StartBare) Machine() is null.
class MachineControl {
 public:
  virtual ~MachineControl() = default;
  [[nodiscard]] virtual MachineState State() const = 0;
  /// Sets who is called when something in State has changed. While axes move, it is called 25 times a second.
  virtual void OnChanged(std::function<void()> changed) = 0;
  virtual void FeedHold(bool on) = 0;
  /// 0 to 200 percent.
  virtual void FeedOverride(int percent) = 0;
  virtual void SingleBlock(bool on) = 0;
  /// Presses the cancel key, which cancels an interrupted block.
  virtual void Cancel() = 0;
  /// Presses the reset key: aborts the running block and restores the modal start values. An emergency stop that is
  /// still pressed, and every cause that still stands, raises its error again.
  virtual void Reset() = 0;
  /// Begins or ends the inspection of an interrupted block.
  virtual void Inspection(bool on) = 0;
  virtual void EmergencyStop(bool on) = 0;
  using Fault = MachineFault;
  using ProgramSpot = rig::ProgramSpot;
  /// Makes the cause of a fault stand, which raises its error, or ends the cause. kDoorOpen, kDriveFault, kBusFault and
  /// kFatal have a cause; any other fault is ignored. While a cause stands, no block begins or goes on. An open door
  /// holds the block in hand and stops the spindle; the other causes abort the block.
  virtual void SetCause(Fault fault, bool stands) = 0;
  /// Raises a fault as an event without a cause: only its error enters the queue. Only kProgramLine uses the spot.
  virtual void Raise(Fault fault, const ProgramSpot& spot = {}) = 0;
  /// A message of the machine's PLC.
  struct PlcMessage {
    std::uint32_t code = 0;  // as in "E.PLCMSGDATA": the type in the top four bits, the identifier below
    std::u16string text;
  };
  /// The messages that the PLC knows, in the panel's language.
  [[nodiscard]] virtual std::vector<PlcMessage> PlcMessages() const = 0;
  /// The PLC raises a message.
  virtual void RaisePlcMessage(std::uint32_t code) = 0;
  /// Chooses (true) or leaves (false) a manual mode.
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
  std::string dir;  // folder of this machine; an empty one removes the drive
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
  /// Converts a panel path to a path of this machine. Returns nothing when the drive isn't mapped.
  [[nodiscard]] virtual std::optional<std::string> HostPath(std::u16string_view panelPath) const = 0;
  /// Replaces or makes a file of this machine whole, as the tools do: a process killed at any instant leaves the old
  /// content or the new one. Returns false on failure; the old file stays then. May be called on any thread.
  [[nodiscard]] virtual bool Replace(const std::string& hostPath, std::string_view bytes) const = 0;
};

/// The rig: the way to all parts.
class Rig {
 public:
  virtual ~Rig() = default;
  /// One of these two must be called before the first tool. StartBare starts without machine and variables; it returns
  /// false after StartMachine. StartMachine starts the machine of that name ("demo", "demo-dual",
  /// "demo-inch"); it returns false for an unknown name and for a second machine.
  virtual bool StartBare() = 0;
  virtual bool StartMachine(std::string_view name) = 0;
  [[nodiscard]] virtual CncControl& Cnc() = 0;
  [[nodiscard]] virtual MachineControl* Machine() = 0;
  [[nodiscard]] virtual Storage& Files() = 0;
  /// Gives the first bytes of a file, at most so many; nothing when it can't be read. May be called on any thread, and
  /// may take as long as the file's server needs.
  using FileStart = std::function<std::optional<std::string>(std::size_t most)>;
  /// The way to a file of the network, "\\server\share\folder\file", by which the explorer reads it.
  [[nodiscard]] virtual FileStart NetworkFile(std::u16string_view path) = 0;
  /// False when the explorer walks the drives of this machine, by the drive file: then SetDrive sets only the folder of
  /// a drive, and SetDriveMasks does nothing.
  [[nodiscard]] virtual bool SimulatesDrives() const = 0;
  /// Stops the real clock: from now on timers and machine move only by Advance.
  virtual void UseManualTime() = 0;
  /// Moves the clock. Fires every timer that falls due, in order, and delivers what each one posts before the next.
  /// Does nothing in real time.
  virtual void Advance(std::int64_t milliseconds) = 0;
  virtual void SetText(std::int32_t id, std::u16string_view text) = 0;
  /// Sets a function that answers the message boxes instead of the operator. style is "info", "error" or "question";
  /// the result is "ok", "yes", "no" or "cancel". An empty function gives the boxes back to the operator.
  virtual void AnswerBoxes(std::function<std::string(std::string_view style)> answer) = 0;
  /// Sets a function that a tool's question for a password goes to; its result says whether the password was given.
  /// type is the kind of protection, 4 for the explorer's pin. The tool waits meanwhile. An empty function: the answer
  /// is that of CncControl::Returns for "PSW_ConfirmarAcceso".
  virtual void AskPasswords(std::function<bool(std::int32_t type)> ask) = 0;
  virtual void SetSink(EventSink* sink) = 0;
  [[nodiscard]] virtual std::u16string ClipboardText() const = 0;
  /// How many reports, menus, timers, records and windows are open, for leak checks.
  struct Counts {
    std::size_t reports = 0;
    std::size_t menus = 0;
    std::size_t timers = 0;
    std::size_t records = 0;
    std::size_t windows = 0;
  };
  [[nodiscard]] virtual Counts Open() const = 0;
  /// True while a tool reads a folder or a line of a program, or asks the network, beside the window's thread. False
  /// while the operator is asked for credentials, which may take any time.
  [[nodiscard]] virtual bool IsWorking() const = 0;
};

}  // namespace pnl::rig

/// The rig; null when a backend library has taken the simulation's place.
extern "C" PNL_API pnl::rig::Rig* PnlRig(void);

#endif
