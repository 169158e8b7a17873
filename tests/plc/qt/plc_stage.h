// SPDX-License-Identifier: MIT
// The PLC message view in a panel's window, off screen, with documents on a disc and a player that only notes its
// calls.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "plc/plc_ids.h"
#include "plc/qt/plc_window.h"
#include "support/picture_bytes.h"
#include "support/window_stage.h"

namespace pnl::test {

inline constexpr std::uint32_t kRed = 0x0000FF;
inline constexpr std::uint32_t kBlue = 0xFF0000;

class StillPlayer final : public VideoPlayer {
 public:
  explicit StillPlayer(Log& log) : log_(log) { ++living; }
  ~StillPlayer() override { --living; }
  void Load(const std::string& hostPath) override {
    log_.push_back("load " + hostPath.substr(hostPath.rfind('/') + 1));
  }
  void Play() override { log_.push_back("play"); }
  void Stop() override { log_.push_back("stop"); }
  void Rewind() override { log_.push_back("rewind"); }
  [[nodiscard]] std::int64_t Position() const override { return 0; }
  inline static int living = 0;

 private:
  Log& log_;
};

class PlcStage : public WindowStage {
 protected:
  PlcStage() : WindowStage({900, 700}, {20, 10, 800, 600}) {
    cnc.Define(u"E.PLCMSGDATA", rig::VariableType::kInt, std::int64_t{0}, true, true);
    for (const int id : {3, 5, 7}) {
      cnc.PlcMessage(0, id, u"message " + FromUtf8(std::to_string(id)),
                     id == 3 ? u"text.txt#3" : (id == 5 ? u"page.htm" : u"plan.bmp"));
    }
    std::string lines;
    for (int i = 0; i < 300; ++i) lines += "line " + std::to_string(i) + "\n";
    cnc.Description(u"C:\\P61\\text.txt", 3, FromUtf8(lines));
    Disc("C:\\P61\\text.txt", "");
    Disc("C:\\P61\\page.htm", "<p>page</p><p><a href=next.htm>next</a></p>" + Paragraphs());
    Disc("C:\\P61\\next.htm", "<p>next page</p>" + Paragraphs());
    Disc("C:\\P61\\plan.bmp", PictureBytes({4, 4}, Qt::red, "BMP"));
    Disc("C:\\P61\\photo.jpg", PictureBytes({4, 4}, Qt::blue, "PNG"));
    Disc("C:\\P61\\moving.gif", GifBytes());
    Disc("C:\\P61\\film.avi", "avi");
    Open();
  }
  static std::string Paragraphs() {
    std::string all;
    for (int i = 0; i < 100; ++i) all += "<p>paragraph</p>";
    return all;
  }
  void Open() {
    Use(tool = new ZCPLCMsgView(context, area, [this](VideoPlayer::Listener listener) {
          player = std::move(listener);
          return std::make_unique<StillPlayer>(video);
        }));
    tool->Start();
    Settle();
    // Larger than its dialog, as when the host has resized its area.
    area->resize(area->width() - 1, area->height());
    area->resize(area->width() + 1, area->height());
    TakeHostCalls();
  }
  void Report(std::int64_t code) {
    EXPECT_TRUE(cnc.Set(u"E.PLCMSGDATA", code));
    Settle();
  }
  void SendRecord(const char* name, TextView file, TextView title) {
    const Text fileText(file);
    const Text titleText(title);
    const ShowFileRecord record{0x00FF00, 0x000000, fileText.c_str(), titleText.c_str()};
    WindowStage::Send(RegisterMessage(name), 0, reinterpret_cast<std::intptr_t>(&record));
    Settle();
  }
  void Help(TextView file) { SendRecord(PNL_NAME_SHOW_ERROR_HELP, file, u"Help"); }
  void File(TextView file, TextView title = u"File") { SendRecord(PNL_NAME_SHOW_FILE, file, title); }
  void Escape() {
    EXPECT_TRUE(Key(Qt::Key_Escape));
    Settle();
  }
  [[nodiscard]] std::string Title() const { return TextOf(plc_id::kTitle); }
  [[nodiscard]] PageBrowser& Page() const { return *static_cast<PageBrowser*>(Control(plc_id::kPage)); }
  [[nodiscard]] bool Shows(int id) const { return Control(id)->isVisible(); }

  Log video;
  VideoPlayer::Listener player;
  QPointer<ZCPLCMsgView> tool;
};

}  // namespace pnl::test
