// SPDX-License-Identifier: MIT
#include "guided/message_steps.h"

#include <QCoreApplication>
#include <QImage>
#include <QWidget>
#include <algorithm>
#include <optional>

#include "ui/panel_menu.h"
#include "ui/soft_key_bar.h"

namespace panel {
namespace {

constexpr int kTool = PNL_TOOL_PLC_MESSAGES;
// Controls of the message view.
constexpr int kPage = 1001;
constexpr int kText = 1005;
constexpr int kTitle = 1006;
constexpr int kCount = 1102;
constexpr int kVideo = 3002;
// Codes of the demo machine's messages.
constexpr std::uint32_t kErrorType = 1u << 28;
constexpr std::uint32_t kCoolant = 1;
constexpr std::uint32_t kToolChange = 3;
constexpr std::uint32_t kMaintenance = 4;
constexpr std::uint32_t kDoor = kErrorType + 1;
constexpr std::uint32_t kAir = kErrorType + 2;
constexpr std::uint32_t kLubrication = kErrorType + 4;

bool IsOpen(const Hands& hands) { return hands.session_.IsToolOpen(kTool); }

/// The text that the machine has for the message.
QString TextOf(const Hands& hands, std::uint32_t code) {
  const auto messages = hands.op_.PlcMessages();
  const auto row =
      std::find_if(messages.begin(), messages.end(), [code](const auto& each) { return each.code == code; });
  return row == messages.end() ? QString() : QString::fromStdU16String(row->text);
}

bool Shows(const Hands& hands, std::uint32_t code) {
  return IsOpen(hands) && hands.TextIn(kTool, kTitle).endsWith(TextOf(hands, code));
}

bool SeesControl(const Hands& hands, int control) {
  const QWidget* found = hands.Control(kTool, control);
  return found != nullptr && found->isVisible();
}

/// Raises the message with its soft key. Returns false when the panel has no such key now.
bool RaiseByKey(Hands& hands, std::uint32_t code) {
  const auto press = [&] {
    for (const SoftKeyItem& item : hands.window_.MainBar().Items()) {
      if (PlcMessageOfItem(hands.op_, item.id) == code) return hands.PressItem(item.id);
    }
    return false;
  };
  // The keys of the messages stay in the bar after the first one.
  return press() || (hands.PressItem(kPlcItem) && press());
}

/// Leaves the message that is shown and raises another one.
bool Next(Hands& hands, std::uint32_t code) { return hands.PressClose() && !IsOpen(hands) && RaiseByKey(hands, code); }

/// Waits until the video has been played. Returns false when nothing of it was shown: the area is then black but for
/// the name in its middle.
bool WatchToTheEnd(const Hands& hands) {
  QWidget* area = hands.Control(kTool, kVideo);
  if (area == nullptr) return false;
  while (area->property("pnlPlaying").toBool()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  const QImage shown = area->grab().toImage();
  return shown.pixelColor(shown.width() / 2, 2) != QColor(Qt::black);
}

std::vector<Step> DocumentSteps() {
  return {
      {"message-text", "the PLC raises a message, and its window shows the text that belongs to it",
       [](Hands& h) { return RaiseByKey(h, kDoor) && Shows(h, kDoor) && !h.TextIn(kTool, kText).isEmpty(); }},
      {"message-page", "a message with a page, which has pictures and links",
       [](Hands& h) { return Next(h, kCoolant) && Shows(h, kCoolant) && !h.TextIn(kTool, kPage).isEmpty(); }},
      {"message-picture", "a message with a picture",
       [](Hands& h) { return Next(h, kLubrication) && Shows(h, kLubrication) && SeesControl(h, kPage); }},
      {"message-video", "a message with a video, played once",
       [](Hands& h) {
         return Next(h, kToolChange) && Shows(h, kToolChange) && SeesControl(h, kVideo) && WatchToTheEnd(h);
       }},
  };
}

std::vector<Step> QueueSteps() {
  return {
      {"message-queue", "five messages: the title line says which of them is shown",
       [](Hands& h) {
         if (!h.PressClose()) return false;
         for (const std::uint32_t code : {kLubrication, kDoor, kMaintenance, kAir, kCoolant}) {
           h.op_.RaisePlcMessage(code);
           h.Settle();
         }
         const bool lowestFirst = Shows(h, kCoolant);
         h.Key(Qt::Key_Escape);
         return lowestFirst && Shows(h, kMaintenance) && h.TextIn(kTool, kCount).contains(QLatin1Char('5'));
       }},
      {"message-error-help", "the help of an error; a message that is raised meanwhile waits",
       [](Hands& h) {
         for (int i = 0; i < 4; ++i) h.Key(Qt::Key_Escape);
         // From the second page of the messages to the first, and from there to the panel's own keys.
         for (int i = 0; i < 2 && h.window_.MainBar().IsInner(); ++i) h.window_.MainBar().Back();
         if (IsOpen(h) || h.rig_.Machine() == nullptr) return false;
         h.rig_.Machine()->Raise(pnl::rig::MachineControl::Fault::kDriveFault);
         h.Settle();
         h.Press(Action::kHelp);
         h.op_.RaisePlcMessage(kDoor);
         h.Settle();
         return h.op_.Desk().ShowsHelp() && IsOpen(h) && !Shows(h, kDoor) && !h.TextIn(kTool, kText).isEmpty();
       }},
      {"message-error-back", "Escape leads back to the error; the message comes after it",
       [](Hands& h) {
         h.Key(Qt::Key_Escape);
         return h.op_.Desk().WindowShown() && h.session_.FrontTool() == PNL_TOOL_ERRORS && Shows(h, kDoor);
       }},
      {"message-done", "error and message are acknowledged",
       [](Hands& h) {
         h.Press(Action::kClearError);
         const bool left = h.PressClose() && !IsOpen(h) && h.op_.Desk().Standing() == 0;
         return left && h.session_.FrontTool() == PNL_TOOL_MDI;
       }},
  };
}

}  // namespace

std::vector<Step> MessageSteps() {
  std::vector<Step> steps = DocumentSteps();
  for (Step& step : QueueSteps()) steps.push_back(std::move(step));
  return steps;
}

}  // namespace panel
