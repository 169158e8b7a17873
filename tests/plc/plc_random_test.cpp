// SPDX-License-Identifier: MIT
// Long random sessions of reports, files, help, keys and commands beside a plain model of the modes and queues. After
// every step window and model agree.
#include <deque>
#include <random>
#include <set>

#include "plc/plc_rig.h"

namespace pnl::test {
namespace {

constexpr int kSteps = 4000;
constexpr std::uint32_t kNone = 2'000'000'000;

/// The rules in as few words as possible. It knows titles only.
struct Model {
  int mode = -1;
  std::uint32_t current = kNone;
  std::set<std::uint32_t> codes;
  std::deque<std::string> files;
  std::string help;
  bool visible = false;
  int forwarded = 0;
  int closed = 0;

  void Report(std::uint32_t value, bool mayOpen) {
    if (value != 0) codes.insert(value);
    if (!mayOpen) return;
    visible = true;
    if (mode == 1 || codes.empty() || *codes.begin() >= current) return;
    current = *codes.begin();
    mode = 0;
  }
  void File(const std::string& title, bool mayOpen) {
    files.push_back(title);
    if (mode != -1) return;
    mode = 2;
    visible |= mayOpen;
  }
  void Help(const std::string& title, bool mayOpen) {
    mode = 1;
    help = title;
    visible |= mayOpen;
  }
  void Advance(bool mayOpen) {
    current = kNone;
    if (!codes.empty()) {
      current = *codes.begin();
      mode = 0;
    } else if (!files.empty()) {
      mode = 2;
      visible |= mayOpen;
    } else {
      mode = -1;
      visible = false;
      ++closed;
    }
  }
  void Close(bool mayOpen) {
    const bool helped = mode == 1;
    if (mode == 0) codes.erase(current);
    if (mode == 2) files.pop_front();
    Advance(mayOpen);
    forwarded += helped ? 1 : 0;
  }
  [[nodiscard]] std::string Title() const {
    if (mode == 0) return ": message " + std::to_string(current);
    if (mode == 1) return help;
    return mode == 2 ? files.front() : "";
  }
};

class PlcRandom : public PlcToolTest, public testing::WithParamInterface<unsigned> {
 protected:
  PlcRandom() : random_(GetParam()) {
    for (const std::uint32_t code : kCodes) {
      const Text text = FromUtf8("message " + std::to_string(code));
      Message(static_cast<std::int32_t>(code >> 28), static_cast<std::int32_t>(code & 0x0FFFFFFF), text, Document());
    }
    MakeTool();
  }
  /// Of types without a title word.
  static constexpr std::uint32_t kCodes[] = {0x20000001, 0x20000002, 0x30000001, 0x70000009,
                                             kNone - 1,  kNone,      0x80000001, 0xFFFFFFFF};

  int Any(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  TextView Document() {
    static constexpr TextView kDocuments[] = {u"text.txt#1", u"page.htm", u"plan.bmp", u"film.avi",
                                              u"photo.jpg",  u"none.htm", u"",         u"other.htm#x"};
    return kDocuments[Any(std::size(kDocuments))];
  }

  void Step() {
    const std::string title = "title " + std::to_string(++titles_);
    switch (Any(12)) {
      case 0:
      case 1:
      case 2: {
        const std::uint32_t code = Any(8) == 0 ? 0 : kCodes[Any(std::size(kCodes))];
        model_.Report(code, mayOpen);
        return Report(static_cast<std::int32_t>(code));
      }
      case 3:
      case 4:
        model_.File(title, mayOpen);
        return File(Document(), FromUtf8(title));
      case 5:
        model_.Help(title, mayOpen);
        return Help(Document(), FromUtf8(title));
      case 6:
        if (model_.mode == 1) model_.Advance(mayOpen);
        return HideHelp();
      case 7:
      case 8:
        model_.Close(mayOpen);
        return Escape();
      case 9:
        return Other();
      case 10:
        model_.Close(mayOpen);
        return ToolCommand(Any(2) == 0 ? 20 : 34);
      default:
        mayOpen = Any(4) != 0;
        return;
    }
  }
  void Other() {
    switch (Any(5)) {
      case 0:
        model_.visible = false;
        return ToolCommand(6);
      case 1:
        view->parent = {0, 0, Any(1000), Any(700)};
        return Call(&PlcSession::OnAreaResized);
      case 2:
        Key(static_cast<PlcKey>(1 + Any(3)));
        return;
      case 3:
        view->refusal = Any(2) == 0 ? PageRefusal::kNone : PageRefusal::kTooLarge;
        view->goodPictures = Any(2) == 0;
        return;
      default:
        view->scroll[plc_id::kText] = Any(100);
        view->scroll[plc_id::kPage] = Any(100);
        return Command(32771 + Any(3));
    }
  }
  void Check() {
    ASSERT_EQ(static_cast<int>(Mode()), model_.mode);
    ASSERT_EQ(tool->Queue().CurrentCode(), model_.current);
    ASSERT_EQ(std::set<std::uint32_t>(tool->Queue().Codes().begin(), tool->Queue().Codes().end()), model_.codes);
    ASSERT_EQ(tool->Queue().Codes().size(), model_.codes.size());
    ASSERT_EQ(tool->Queue().Files().size(), model_.files.size());
    ASSERT_EQ(view->visible, model_.visible);
    if (model_.mode != -1) {
      ASSERT_EQ(Title(), model_.Title());
    }
    const std::string area = view->Area();
    ASSERT_EQ(area.find(" and "), std::string::npos) << "two views at once: " << area;
    ASSERT_EQ(view->video.empty(), area != "video") << "a video plays unseen";
  }

  std::mt19937 random_;
  Model model_;
  int titles_ = 0;
};

TEST_P(PlcRandom, WindowAndModelAgreeAfterEveryStep) {
  for (int step = 0; step < kSteps; ++step) {
    ASSERT_NO_FATAL_FAILURE(Step()) << "step " << step;
    ASSERT_NO_FATAL_FAILURE(Check()) << "step " << step;
  }
  const Log calls = All();
  const auto count = [&calls](const char* line) {
    return static_cast<int>(std::count(calls.begin(), calls.end(), line));
  };
  EXPECT_EQ(count("HostForwardKey(27)"), model_.forwarded);
  EXPECT_EQ(count("HostToolClosed(1,2)"), model_.closed);
}

INSTANTIATE_TEST_SUITE_P(Seeds, PlcRandom, testing::Range(1u, 9u));

}  // namespace
}  // namespace pnl::test
