// SPDX-License-Identifier: MIT
// A host that deletes the tool's parent inside one of its callbacks. Every slot of the table records its name.
// PlayWithEachCallFatal plays a scene once for each call that the scene makes, with a deletion in that call.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host/host_api.h"

namespace pnl::test {

class DeletingHost {
 public:
  /// Fills all slots of the table. Only one such host may exist at a time.
  explicit DeletingHost(HostApiTable& table);
  ~DeletingHost() { current_ = nullptr; }
  DeletingHost(const DeletingHost&) = delete;
  DeletingHost& operator=(const DeletingHost&) = delete;

  /// Forgets the recorded calls. From now on call number fatal, counted from 1, deletes; with 0 none does.
  void Begin(std::size_t fatal, std::function<void()> destroy) {
    fatal_ = fatal;
    destroy_ = std::move(destroy);
    struck_ = false;
    calls_.clear();
  }
  /// Records a call. The slots of the table call it. A test also calls it for what else reaches the host: a message, a
  /// box.
  void Called(const std::string& name) {
    calls_.push_back(name);
    if (calls_.size() != fatal_) return;
    struck_ = true;
    destroy_();
  }
  [[nodiscard]] bool HasStruck() const { return struck_; }
  [[nodiscard]] const std::vector<std::string>& Calls() const { return calls_; }

 private:
  template <std::size_t slot, typename Result, typename... Args>
  static Result OnCall(Args...) {
    if (current_ != nullptr) current_->Called(std::string(kHostSlotNames[slot]));
    // 1 is the answer yes for a tool that asks whether it may open.
    if constexpr (!std::is_void_v<Result>) return Result{1};
  }
  template <std::size_t slot, typename Result, typename... Args>
  static void Fill(Result (*&entry)(Args...)) {
    entry = &OnCall<slot, Result, Args...>;
  }

  static inline DeletingHost* current_ = nullptr;
  std::size_t fatal_ = 0;
  std::function<void()> destroy_;
  bool struck_ = false;
  std::vector<std::string> calls_;
};

inline DeletingHost::DeletingHost(HostApiTable& table) {
  current_ = this;
  Fill<0>(table.mayOpenTool);
  Fill<1>(table.toolOpening);
  Fill<2>(table.toolClosed);
  Fill<3>(table.setMainMenu);
  Fill<4>(table.setSideMenu);
  Fill<5>(table.updateMainMenu);
  Fill<6>(table.updateSideMenu);
  Fill<7>(table.showMessage);
  Fill<8>(table.explorerRequest);
  Fill<9>(table.calcResultAccepted);
  Fill<10>(table.explorerAccepted);
  Fill<11>(table.explorerAcceptedAlt);
  Fill<12>(table.insertBlock);
  Fill<13>(table.showError);
  Fill<14>(table.errorsGone);
  Fill<15>(table.forwardKey);
  Fill<16>(table.toolWantsClose);
  Fill<17>(table.openCalculator);
  Fill<18>(table.openMachiningCalculator);
}

/// A part of a tool's life that is played many times.
struct FatalScene {
  /// Makes the parent and the tool. It may call the host already, and so end with the tool gone.
  std::function<void()> open;
  /// Each step is one event: a message, a key, a report. The steps after the deletion are skipped.
  std::vector<std::function<void()>> steps;
  /// What the host does in the fatal call: it deletes the parent at once.
  std::function<void()> destroy;
  /// Handles what is queued and checks what is left. It also destroys what is left when nothing was deleted.
  std::function<void()> close;
};

/// Plays the scene without a deletion to see which calls it makes, then once for each call with a deletion in it.
/// Expects that a deleted tool calls nobody. Returns the names of the calls, so that a test can check that every slot
/// of its tool was among them.
inline std::set<std::string> PlayWithEachCallFatal(DeletingHost& host, const FatalScene& scene) {
  const auto play = [&host, &scene](std::size_t fatal) {
    host.Begin(fatal, scene.destroy);
    scene.open();
    for (const auto& step : scene.steps) {
      if (host.HasStruck()) break;
      step();
    }
    scene.close();
    return host.Calls();
  };
  const std::vector<std::string> calls = play(0);
  for (std::size_t fatal = 1; fatal <= calls.size(); ++fatal) {
    SCOPED_TRACE("deleted in call " + std::to_string(fatal) + ", " + calls[fatal - 1]);
    const std::vector<std::string> made = play(fatal);
    EXPECT_TRUE(host.HasStruck());
    EXPECT_EQ(made, std::vector<std::string>(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(fatal)))
        << "what a dead tool still called";
  }
  return {calls.begin(), calls.end()};
}

}  // namespace pnl::test
