// SPDX-License-Identifier: MIT
#include "facade/mill/machine_plan_motion.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pnl::sim {

namespace {

constexpr double kMillisecondsPerMinute = 60000;
/// How far rounding may lead past a travel limit, in mm.
constexpr double kLimitTolerance = 1e-6;
constexpr std::array<char16_t, kAxisCount> kCentreLetters{u'I', u'J', u'K'};

using Kind = FaultFact::Kind;

template <typename T>
using Result = std::variant<T, Fault>;

class MovePlanner {
 public:
  explicit MovePlanner(const MotionInput& input) : input_(input), request_(input.request) {}

  Result<std::optional<Step>> Run() const {
    const bool arc = input_.modal.motion >= 2;
    if (request_.First(arc ? u"XYZIJKR" : u"XYZ") == nullptr) return std::nullopt;
    Path path{input_.from, Target(), std::nullopt};
    if (arc) {
      Result<Path> round = ArcTo(path.to);
      if (const Fault* fault = std::get_if<Fault>(&round)) return *fault;
      path = std::get<Path>(round);
    }
    const Result<double> feed = Feed();
    if (const Fault* fault = std::get_if<Fault>(&feed)) return *fault;
    if (const std::optional<Fault> fault = CheckTravel(path)) return *fault;
    if (input_.modal.motion == 0) return std::optional<Step>(RapidMove(path.from, path.to));
    Step step;
    step.kind = Step::Kind::kMove;
    step.pace = Step::Pace::kFeed;
    step.duration = path.Length() / std::get<double>(feed) * kMillisecondsPerMinute;
    step.path = path;
    return std::optional<Step>(step);
  }

 private:
  /// The word that a fault of the whole move names: its G code, or the first word of the move when the code comes from
  /// an earlier block.
  const Word& MotionWord() const {
    const Choice* choice = request_.Chosen(Group::kMotion);
    return choice != nullptr ? choice->word : *request_.First(u"XYZIJKR");
  }
  Fault MotionFault(FaultCode code) const { return FaultOf(code, MotionWord()); }

  /// The end of the move. With G53 it counts from the machine's zero point, also in G91.
  Point Target() const {
    Point target = input_.from;
    const bool machine = request_.Chosen(Group::kMachineCoordinates) != nullptr;
    for (std::size_t axis = 0; axis < kAxisCount; ++axis) {
      const Word* word = request_.Find(kAxes[axis].name);
      if (word == nullptr) continue;
      const double value = word->value * input_.unit;
      if (machine) {
        target[axis] = value;
      } else {
        target[axis] = value + (input_.modal.distance == 91 ? input_.from[axis] : input_.offset[axis]);
      }
    }
    return target;
  }

  Result<Path> ArcTo(const Point& to) const {
    const PlaneAxes axes = AxesOf(input_.modal.plane);
    const Word* radius = request_.Find(u'R');
    const Word* centre = request_.First(u"IJK");
    if (radius != nullptr && centre != nullptr) return FaultOf(FaultCode::kArcCentre, *radius);
    if (radius != nullptr) return ArcByRadius(to, axes, *radius);
    if (centre == nullptr) return MotionFault(FaultCode::kArcCentre);
    return ArcByCentre(to, axes, *centre);
  }

  bool Clockwise() const { return input_.modal.motion == 2; }

  Result<Path> ArcByCentre(const Point& to, PlaneAxes axes, const Word& centre) const {
    const double first = CentreOffset(axes.first);
    const double second = CentreOffset(axes.second);
    if (std::hypot(first, second) < kArcTolerance) return FaultOf(FaultCode::kArcRadius, centre);
    Path path =
        MakeArc(input_.from, to, axes, input_.from[axes.first] + first, input_.from[axes.second] + second, Clockwise());
    if (std::abs(path.arc->startRadius - path.arc->endRadius) > kArcTolerance) {
      const char16_t letters[] = {kAxes[axes.first].name, kAxes[axes.second].name};
      const Word* end = request_.First(TextView(letters, 2));
      return end != nullptr ? FaultOf(FaultCode::kArcEnd, *end) : MotionFault(FaultCode::kArcEnd);
    }
    return path;
  }

  double CentreOffset(std::size_t axis) const {
    const Word* word = request_.Find(kCentreLetters[axis]);
    return word != nullptr ? word->value * input_.unit : 0;
  }

  /// A positive radius takes the shorter arc, a negative one the longer.
  Result<Path> ArcByRadius(const Point& to, PlaneAxes axes, const Word& word) const {
    const double radius = std::abs(word.value) * input_.unit;
    const double first = to[axes.first] - input_.from[axes.first];
    const double second = to[axes.second] - input_.from[axes.second];
    const double chord = std::hypot(first, second);
    if (chord < kArcTolerance) return FaultOf(FaultCode::kArcCentre, word);
    if (radius < chord / 2 - kArcTolerance) return FaultOf(FaultCode::kArcRadius, word);
    const double height = std::sqrt(std::max(0.0, radius * radius - chord * chord / 4));
    // The centre is to the left of the chord for a short counter-clockwise arc and for a long clockwise one.
    const double side = (Clockwise() == (word.value < 0) ? 1 : -1) * height / chord;
    return MakeArc(input_.from, to, axes, input_.from[axes.first] + first / 2 - second * side,
                   input_.from[axes.second] + second / 2 + first * side, Clockwise());
  }

  /// The feed of the move in mm/min. 0, without meaning, for a rapid move.
  Result<double> Feed() const {
    const Modal& modal = input_.modal;
    if (modal.motion == 0) return 0.0;
    const bool perRevolution = modal.feedMode == 95;
    const double programmed = perRevolution ? modal.feedPerRevolution : modal.feedPerMinute;
    if (programmed <= 0) return MotionFault(FaultCode::kFeedMissing);
    if (!perRevolution) return programmed;
    if (input_.spindle.speed <= 0) return FeedFault(FaultCode::kSpindleStopped);
    const double feed = programmed * input_.spindle.speed;
    if (feed > kHighestFeed) {
      return FeedFault(FaultCode::kFeedTooHigh).With(Kind::kFeed, feed).With(Kind::kFeedLimit, kHighestFeed);
    }
    if (feed < kLowestFeed) return FeedFault(FaultCode::kFeedZero).With(Kind::kFeed, feed);
    return feed;
  }

  Fault FeedFault(FaultCode code) const {
    if (const Word* word = request_.Find(u'F')) return FaultOf(code, *word);
    const Choice* mode = request_.Chosen(Group::kFeedMode);
    return mode != nullptr ? FaultOf(code, mode->word) : MotionFault(code);
  }

  std::optional<Fault> CheckTravel(const Path& path) const {
    for (std::size_t axis = 0; axis < kAxisCount; ++axis) {
      const Path::Range reach = path.Reach(axis);
      if (reach.low >= kAxes[axis].low - kLimitTolerance && reach.high <= kAxes[axis].high + kLimitTolerance) continue;
      const Word* word = request_.Find(kAxes[axis].name);
      const Fault fault =
          word != nullptr ? FaultOf(FaultCode::kTravelLimit, *word) : MotionFault(FaultCode::kTravelLimit);
      const bool below = reach.low < kAxes[axis].low - kLimitTolerance;
      return fault.With(Kind::kAxis, static_cast<double>(axis + 1))
          .With(Kind::kLimit, below ? kAxes[axis].low : kAxes[axis].high)
          .With(Kind::kTarget, below ? reach.low : reach.high);
    }
    return std::nullopt;
  }

  const MotionInput& input_;
  const Request& request_;
};

}  // namespace

std::variant<std::optional<Step>, Fault> PlanMove(const MotionInput& input) { return MovePlanner(input).Run(); }

Step RapidMove(const Point& from, const Point& to) {
  Step step;
  step.kind = Step::Kind::kMove;
  step.pace = Step::Pace::kRapid;
  step.path = {from, to, std::nullopt};
  for (std::size_t axis = 0; axis < kAxisCount; ++axis) {
    const double time = std::abs(to[axis] - from[axis]) / kAxes[axis].rapid * kMillisecondsPerMinute;
    step.duration = std::max(step.duration, time);
  }
  return step;
}

}  // namespace pnl::sim
