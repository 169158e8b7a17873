// SPDX-License-Identifier: MIT
#include "facade/mill/machine_plan.h"

#include <cmath>
#include <numbers>

#include "facade/mill/machine_plan_motion.h"
#include "facade/mill/machine_tools.h"

namespace pnl::sim {

namespace {

constexpr double kMillimetres = 1000;
constexpr int kClockwiseCode = 3;
constexpr int kStopSpindleCode = 5;
constexpr int kCoolantOffCode = 9;
constexpr int kProgramEndCode = 30;
constexpr int kInchCode = 20;

using MaybeFault = std::optional<Fault>;
using Kind = FaultFact::Kind;

/// Plans a request in the order of the checks. The first fault ends it.
class Planner {
 public:
  Planner(const Request& request, const Condition& condition)
      : request_(request), before_(condition), modal_(condition.modal), tool_(condition.tool) {}

  std::variant<Plan, Fault> Run() {
    TakeCodes();
    MaybeFault fault = TakeFeed();
    if (!fault) fault = TakeSpeed();
    if (!fault) fault = TakeToolWords();
    if (!fault) fault = CheckUse();
    if (!fault) fault = PlanFunctions();
    if (!fault) fault = PlanDwell();
    if (!fault) fault = PlanMotion();
    if (fault) {
      fault->inches = modal_.units == kInchCode;
      return *fault;
    }
    PlanEnd();
    return Plan{modal_, std::move(steps_)};
  }

 private:
  bool Has(Group group, int code) const {
    const Choice* choice = request_.Chosen(group);
    return choice != nullptr && choice->code == code;
  }
  double Unit() const { return modal_.units == 20 ? kInch : 1; }

  void TakeCodes() {
    const struct {
      Group group;
      int& code;
    } places[] = {{Group::kMotion, modal_.motion},      {Group::kPlane, modal_.plane},
                  {Group::kUnits, modal_.units},        {Group::kRadius, modal_.radius},
                  {Group::kLength, modal_.length},      {Group::kOffset, modal_.offset},
                  {Group::kDistance, modal_.distance},  {Group::kFeedMode, modal_.feedMode},
                  {Group::kSpeedMode, modal_.speedMode}};
    for (const auto& place : places) {
      if (const Choice* choice = request_.Chosen(place.group)) place.code = choice->code;
    }
  }

  MaybeFault TakeFeed() {
    const Word* word = request_.Find(u'F');
    if (word == nullptr) return std::nullopt;
    const double feed = word->value * Unit();
    const bool perRevolution = modal_.feedMode == 95;
    const Kind kind = perRevolution ? Kind::kFeedPerRevolution : Kind::kFeed;
    if (feed < kLowestFeed) return FaultOf(FaultCode::kFeedZero, *word).With(kind, feed);
    if (feed > kHighestFeed) {
      const Fault fault = FaultOf(FaultCode::kFeedTooHigh, *word).With(kind, feed);
      return perRevolution ? fault : fault.With(Kind::kFeedLimit, kHighestFeed);
    }
    (perRevolution ? modal_.feedPerRevolution : modal_.feedPerMinute) = feed;
    return std::nullopt;
  }

  MaybeFault TakeSpeed() {
    const Word* word = request_.Find(u'S');
    if (word == nullptr) return std::nullopt;
    if (word->value < 0) return FaultOf(FaultCode::kBadValue, *word).With(Kind::kLowest, 0);
    if (modal_.speedMode == 96) {
      modal_.cuttingSpeed = word->value * (modal_.units == 20 ? kFoot : 1);
    } else if (word->value > kHighestSpeed) {
      return TooFast(FaultOf(FaultCode::kSpeedTooHigh, *word), word->value);
    } else {
      modal_.speed = word->value;
    }
    return std::nullopt;
  }

  static Fault TooFast(const Fault& fault, double speed) {
    return fault.With(Kind::kSpeed, speed).With(Kind::kSpeedLimit, kHighestSpeed);
  }

  /// The word's value, if it is a whole number from 0 to highest; else the fault.
  static std::variant<int, Fault> WholeValue(const Word& word, int highest, FaultCode code) {
    const bool fits = word.value >= 0 && word.value <= highest && word.value == std::floor(word.value);
    if (!fits) return FaultOf(code, word).With(Kind::kLowest, 0).With(Kind::kHighest, highest);
    return static_cast<int>(word.value);
  }

  MaybeFault TakeToolWords() {
    int edge = 0;  // the simulated path doesn't depend on it
    const struct {
      char16_t letter;
      int highest;
      FaultCode code;
      int& place;
    } words[] = {{u'T', kHighestTool, FaultCode::kUnknownTool, modal_.nextTool},
                 {u'D', kHighestEdge, FaultCode::kBadValue, edge}};
    for (const auto& entry : words) {
      const Word* word = request_.Find(entry.letter);
      if (word == nullptr) continue;
      const auto value = WholeValue(*word, entry.highest, entry.code);
      if (const Fault* fault = std::get_if<Fault>(&value)) return *fault;
      entry.place = std::get<int>(value);
    }
    return std::nullopt;
  }

  /// The letters that have no meaning together with the block's other words.
  TextView StrayLetters() const {
    if (request_.Chosen(Group::kDwell) != nullptr) return u"YZIJR";
    if (modal_.motion < 2) return u"IJKRP";
    if (modal_.plane == 17) return u"KP";
    return modal_.plane == 18 ? u"JP" : u"IP";
  }

  MaybeFault CheckUse() const {
    const Word* stray = request_.First(StrayLetters());
    if (stray != nullptr) return FaultOf(FaultCode::kUnusedWord, *stray);
    return std::nullopt;
  }

  MaybeFault PlanFunctions() {
    Functions functions;
    spindle_ = before_.spindle;
    if (request_.Chosen(Group::kToolChange) != nullptr) {
      // The tool changer needs spindle and coolant off.
      tool_ = modal_.nextTool;
      functions.tool = tool_;
      functions.coolant = false;
      spindle_.direction = 0;
    }
    const Choice* coolant = request_.Chosen(Group::kCoolant);
    if (coolant != nullptr && coolant->code != kCoolantOffCode) functions.coolant = true;
    const bool starts = Starts();
    if (starts) spindle_.direction = Has(Group::kSpindle, kClockwiseCode) ? 1 : -1;
    if (MaybeFault fault = FindSpeed(starts)) return fault;
    const Spindle& now = before_.spindle;
    if (starts || spindle_.direction != now.direction || spindle_.speed != now.speed) functions.spindle = spindle_;
    Append(functions);
    return std::nullopt;
  }

  /// True for M3 and M4.
  bool Starts() const { return request_.Chosen(Group::kSpindle) != nullptr && !Has(Group::kSpindle, kStopSpindleCode); }

  /// Makes a fault of the spindle about the word that causes it.
  Fault SpeedFault(FaultCode code) const {
    if (const Word* word = request_.Find(u'S'); word != nullptr && code != FaultCode::kSpeedMissing) {
      return FaultOf(code, *word);
    }
    for (const Group group : {Group::kSpindle, Group::kSpeedMode}) {
      if (const Choice* choice = request_.Chosen(group)) return FaultOf(code, choice->word);
    }
    return {code, {}, 0, 0};
  }

  /// Finds the speed of a turning spindle. S0 may stop a spindle that turns, but not start one.
  MaybeFault FindSpeed(bool starts) {
    const bool cutting = modal_.speedMode == 96;
    const double programmed = cutting ? modal_.cuttingSpeed : modal_.speed;
    spindle_.speed = 0;
    if (spindle_.direction == 0) return std::nullopt;
    const bool newMode = request_.Chosen(Group::kSpeedMode) != nullptr && request_.Find(u'S') == nullptr;
    if (programmed == 0 && (starts || newMode)) return SpeedFault(FaultCode::kSpeedMissing);
    spindle_.speed = programmed;
    if (!cutting) return std::nullopt;
    const double diameter = DiameterOf(ToolOf(tool_), before_.measure);
    if (diameter == 0) return SpeedFault(FaultCode::kNoToolDiameter).With(Kind::kTool, tool_);
    spindle_.speed = programmed * kMillimetres / (std::numbers::pi * diameter);
    if (spindle_.speed > kHighestSpeed) return TooFast(SpeedFault(FaultCode::kSpeedTooHigh), spindle_.speed);
    return std::nullopt;
  }

  MaybeFault PlanDwell() {
    const Choice* dwell = request_.Chosen(Group::kDwell);
    if (dwell == nullptr) return std::nullopt;
    const Word* time = request_.First(u"KPX");
    if (time == nullptr) return FaultOf(FaultCode::kDwellTime, dwell->word);
    for (const char16_t letter : TextView(u"KPX")) {
      const Word* other = request_.Find(letter);
      if (other != nullptr && other != time) return FaultOf(FaultCode::kUnusedWord, *other);
    }
    if (time->value < 0 || time->value > kLongestDwell) {
      return FaultOf(FaultCode::kBadValue, *time).With(Kind::kLowest, 0).With(Kind::kHighestTime, kLongestDwell);
    }
    Step step;
    step.kind = Step::Kind::kDwell;
    step.duration = time->value * 1000;
    steps_.push_back(step);
    return std::nullopt;
  }

  MaybeFault PlanMotion() {
    if (request_.Chosen(Group::kDwell) != nullptr) return std::nullopt;
    const MotionInput input{request_, modal_, spindle_, before_.position, WorkOffset(modal_, tool_), Unit()};
    const auto move = PlanMove(input);
    if (const Fault* fault = std::get_if<Fault>(&move)) return *fault;
    if (const std::optional<Step>& step = std::get<std::optional<Step>>(move)) steps_.push_back(*step);
    return std::nullopt;
  }

  void PlanEnd() {
    const Choice* stop = request_.Chosen(Group::kStop);
    Functions functions;
    if (Has(Group::kSpindle, kStopSpindleCode)) functions.spindle = Spindle{};
    if (Has(Group::kCoolant, kCoolantOffCode)) functions.coolant = false;
    functions.programEnd = stop != nullptr && stop->code == kProgramEndCode;
    Append(functions);
    if (stop == nullptr || stop->code == kProgramEndCode) return;
    Step step;
    step.kind = Step::Kind::kStop;
    step.stopCode = stop->code;
    steps_.push_back(step);
  }

  void Append(const Functions& functions) {
    if (!functions.Any()) return;
    Step step;
    step.functions = functions;
    steps_.push_back(step);
  }

  const Request& request_;
  const Condition& before_;
  Modal modal_;
  int tool_;
  Spindle spindle_;
  std::vector<Step> steps_;
};

}  // namespace

std::variant<Plan, Fault> PlanBlock(const Request& request, const Condition& condition) {
  return Planner(request, condition).Run();
}

}  // namespace pnl::sim
