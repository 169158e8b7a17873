// SPDX-License-Identifier: MIT
// Opens an explorer for any bytes as its request (short inputs are filled with zeros), with fields that need not end,
// and plays the bytes after the record as an operator: rows, nodes, names, commands, keys. An explorer that is left
// must leave the record as it was. One that hands a choice back must write path and name only, and a name that stays in
// its folder. Only the explorer may make a folder, with such a name.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <span>

#include "explorer/xplr_names.h"
#include "explorer/xplr_stage.h"
#include "fuzz_check.h"

namespace {

using pnl::NodeId;
using pnl::Text;
using pnl::XplrSession;

constexpr std::size_t kMostSteps = 60;

class Operator : public pnl::test::XplrStage {
 public:
  explicit Operator(std::span<const std::uint8_t> bytes) : bytes_(bytes) {
    for (const char16_t* file : {u"D:\\a.nc", u"D:\\SUB\\b", u"D:\\\uFFFD.nc", u"D:\\x y.nc"})
      places.disc->AddFile(file);
    places.types['D'] = pnl::drive_type::kRemovable;
    places.types['E'] = pnl::drive_type::kCd;
    places.disc->AddFolder(u"E:");
    places.disc->errors[u"E:"] = pnl::place_error::kNotReady;
    places.locked = pnl::DriveBit(u'D');
    noting.onMessage = [](const HostMessage&) {};
    onHostCall = [this](const std::string& call) { accepted_ = accepted_ || call == "HostToolClosed(5,1)"; };
    windows.boxAnswer = pnl::BoxAnswer::kYes;
    if (!bytes_.empty()) std::memcpy(&request, bytes_.data(), std::min(bytes_.size(), sizeof request));
    bytes_ = bytes_.subspan(std::min(bytes_.size(), sizeof request));
    asked_ = request;
  }

  void Play() {
    places.disc->asked.clear();
    Open();
    for (std::size_t step = 0; step < kMostSteps && !bytes_.empty() && !IsOver(); ++step) Step(Take());
    if (!IsOver()) Enter();
    if (!IsOver()) Escape();
    if (!IsOver()) CloseDialogs();
    if (!IsOver()) Escape();
    FUZZ_CHECK(IsOver());
    Check();
  }

 private:
  [[nodiscard]] bool IsOver() const { return view->closing || view->dead; }
  [[nodiscard]] std::uint8_t Take() {
    if (bytes_.empty()) return 0;
    const std::uint8_t first = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return first;
  }
  void TypeAnyName() {
    Text name;
    for (std::size_t left = Take() % 40; left > 0; --left) {
      const auto high = static_cast<char16_t>(Take());
      // Mostly plain letters; sometimes any unit.
      name += high < 0xE0 ? high : static_cast<char16_t>((high & 0xF) << 12 | Take());
    }
    Focus(pnl::xplr_control::kName);
    if (!IsOver()) TypeName(name);
  }
  void PickAnyNode() {
    std::vector<Text> names;
    for (const char16_t* name : {u"D:", u"SUB"}) {
      if (names.size() <= Take() % 2u) names.emplace_back(name);
    }
    PickNode(names);
  }
  void Step(std::uint8_t kind) {
    static constexpr int kControls[] = {pnl::xplr_control::kTree, pnl::xplr_control::kList, pnl::xplr_control::kName};
    static constexpr int kCommands[] = {32770, 32771, 32772, 32773, 32774, 32775, 32777,
                                        32778, 32779, 32790, 32791, 32900, 32901};
    switch (kind % 8) {
      case 0:
        return Enter();
      case 1:
        return Focus(kControls[Take() % std::size(kControls)]);
      case 2:
        return TypeAnyName();
      case 3:
        return PickAnyNode();
      case 4:
        return Menu(kCommands[Take() % std::size(kCommands)]);
      case 5:
        Call(&XplrSession::OnRowClicked, static_cast<int>(Take() % 8) - 1);
        return Drain();
      case 6:
        Call(&XplrSession::OnRowDoubleClicked, static_cast<int>(Take() % 8) - 1);
        return Drain();
      default:
        Message(static_cast<pnl::XplrWindow>(Take() % 4), pnl::XplrMessage::kUpdateList, Take() % 3);
    }
  }
  /// The window would do it when it gets the Escape that was for the dialog.
  void CloseDialogs() {
    Call(&XplrSession::OnFindClosed);
    Call(&XplrSession::OnFolderClosed);
    Drain();
  }
  void Check() {
    for (const Text& asked : places.disc->asked) {
      if (!asked.starts_with(u"make ")) continue;
      FUZZ_CHECK(accepted_ && pnl::IsPlainName(asked.substr(asked.rfind(u'\\') + 1)));
    }
    if (accepted_) {
      FUZZ_CHECK(pnl::IsPlainName(pnl::FieldText(request.File)));
      FUZZ_CHECK(!pnl::FieldText(request.Path).ends_with(u'\\'));
      std::copy(std::begin(request.Path), std::end(request.Path), std::begin(asked_.Path));
      std::copy(std::begin(request.File), std::end(request.File), std::begin(asked_.File));
    }
    FUZZ_CHECK(std::memcmp(&request, &asked_, sizeof request) == 0);
  }

  std::span<const std::uint8_t> bytes_;
  XPLRDATA_ST asked_{};
  bool accepted_ = false;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Operator({data, size}).Play();
  // What the fakes don't allow counts as a failure too.
  FUZZ_CHECK(testing::UnitTest::GetInstance()->ad_hoc_test_result().Passed());
  return 0;
}
