// SPDX-License-Identifier: MIT
// The video area with a fake player, and with the real one where its module is built.
#include "controls/c_avi_ctrl.h"

#include <dlfcn.h>
#include <gmock/gmock.h>

#include <filesystem>

#include "paint_counter.h"
#include "support/avi_file.h"
#include "support/event_wait.h"
#include "support/request_traps.h"
#include "support/temp_folder.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Log = std::vector<std::string>;

struct FakeVideo {
  Log log;
  VideoPlayer::Listener listener;
  int made = 0;
  std::int64_t position = 0;
};

class FakePlayer final : public VideoPlayer {
 public:
  explicit FakePlayer(FakeVideo& video) : video_(video) {}
  ~FakePlayer() override { video_.log.push_back("gone"); }
  void Load(const std::string& hostPath) override { video_.log.push_back("load " + hostPath); }
  void Play() override { video_.log.push_back("play"); }
  void Stop() override { video_.log.push_back("stop"); }
  void Rewind() override { video_.log.push_back("rewind"); }
  [[nodiscard]] std::int64_t Position() const override { return video_.position; }

 private:
  FakeVideo& video_;
};

class AviCtrlTest : public testing::Test {
 protected:
  AviCtrlTest() {
    area_.resize(120, 80);
    Activate(area_);
  }
  Log Take() { return std::exchange(video_.log, {}); }
  void Frame(const QColor& color) {
    QImage frame(4, 4, QImage::Format_RGB32);
    frame.fill(color);
    video_.listener.frame(frame);
  }
  FakeVideo video_;
  CAviCtrl area_{3002,
                 [this](VideoPlayer::Listener listener) {
                   ++video_.made;
                   video_.listener = std::move(listener);
                   return std::make_unique<FakePlayer>(video_);
                 },
                 nullptr};
};

TEST_F(AviCtrlTest, ThePlayerIsMadeWhenTheFirstVideoIsLoaded) {
  EXPECT_EQ(video_.made, 0);
  area_.Play(1);
  area_.Stop();
  area_.Rewind();
  area_.Clear();
  EXPECT_EQ(video_.made, 0);
  area_.Load("/v.avi", "v.avi");
  EXPECT_EQ(video_.made, 1);
  EXPECT_THAT(Take(), ElementsAre("load /v.avi"));
}

TEST_F(AviCtrlTest, AScriptSeesWhetherItPlaysAndWhere) {
  video_.position = 1200;
  EXPECT_EQ(area_.property("pnlPosition").toLongLong(), 0) << "no video yet";
  area_.Load("/v.avi", "v.avi");
  EXPECT_FALSE(area_.property("pnlPlaying").toBool());
  area_.Play(1);
  EXPECT_TRUE(area_.property("pnlPlaying").toBool());
  EXPECT_EQ(area_.property("pnlPosition").toLongLong(), 1200);
  area_.Stop();
  EXPECT_FALSE(area_.property("pnlPlaying").toBool());
  area_.Clear();
  EXPECT_EQ(area_.property("pnlPosition").toLongLong(), 0);
}

TEST_F(AviCtrlTest, AVideoThatIsPlayedOnceEndsAtItsEnd) {
  area_.Load("/v.avi", "v.avi");
  area_.Play(1);
  EXPECT_TRUE(area_.IsPlaying());
  video_.listener.ended();
  EXPECT_FALSE(area_.IsPlaying());
  EXPECT_THAT(Take(), ElementsAre("load /v.avi", "play"));
}

TEST_F(AviCtrlTest, AVideoIsRepeatedAsOftenAsAsked) {
  area_.Load("/v.avi", "v.avi");
  area_.Play(3);
  for (int i = 0; i < 5; ++i) video_.listener.ended();
  EXPECT_THAT(Take(), ElementsAre("load /v.avi", "play", "rewind", "play", "rewind", "play"));
}

TEST_F(AviCtrlTest, StopEndsTheRepeats) {
  area_.Load("/v.avi", "v.avi");
  area_.Play(3);
  area_.Stop();
  area_.Rewind();
  video_.listener.ended();
  EXPECT_THAT(Take(), ElementsAre("load /v.avi", "play", "stop", "rewind"));
  area_.Play(0);
  EXPECT_THAT(Take(), IsEmpty());
}

TEST_F(AviCtrlTest, FramesArePaintedInTheirShape) {
  area_.Load("/v.avi", "v.avi");
  Frame(Qt::red);
  EXPECT_EQ(Count(Paint(area_), 0x0000FF), 80 * 80);
  EXPECT_EQ(Count(Paint(area_), 0), 40 * 80) << "black beside it";
}

TEST_F(AviCtrlTest, AFileThatCannotBeDecodedShowsItsName) {
  area_.Load("/v.avi", "v.avi");
  Frame(Qt::red);
  area_.Play(2);
  video_.listener.failed();
  EXPECT_FALSE(area_.IsPlaying());
  EXPECT_EQ(area_.Name(), "v.avi");
  const QImage painted = Paint(area_);
  EXPECT_EQ(Count(painted, 0x0000FF), 0);
  EXPECT_GT(Count(painted, 0xFFFFFF), 0) << "the name";
}

TEST_F(AviCtrlTest, WithoutAPlayerTheAreaShowsTheName) {
  CAviCtrl bare(
      3002, [](const VideoPlayer::Listener&) { return nullptr; }, nullptr);
  bare.resize(120, 80);
  bare.Load("/v.avi", "v.avi");
  bare.Play(1);
  bare.Stop();
  bare.Rewind();
  EXPECT_FALSE(bare.IsPlaying());
  EXPECT_GT(Count(Paint(bare), 0xFFFFFF), 0);
}

TEST_F(AviCtrlTest, AMissingModuleGivesNoPlayer) { EXPECT_EQ(VideoPlayerFrom("/no/such/module.so")({}), nullptr); }

TEST_F(AviCtrlTest, AHiddenAreaDoesNotPlay) {
  area_.Load("/v.avi", "v.avi");
  area_.Play(1);
  Take();
  area_.hide();
  area_.show();
  EXPECT_THAT(Take(), ElementsAre("stop", "play"));
  area_.hide();
  Take();
  area_.Stop();
  area_.Play(1);
  EXPECT_THAT(Take(), ElementsAre("stop"));
  area_.show();
  EXPECT_THAT(Take(), ElementsAre("play"));
}

TEST_F(AviCtrlTest, ClearForgetsPlayerNameAndFrame) {
  area_.Load("/v.avi", "v.avi");
  Frame(Qt::red);
  area_.Clear();
  EXPECT_THAT(Take(), ElementsAre("load /v.avi", "gone"));
  EXPECT_EQ(Count(Paint(area_), 0), 120 * 80);
  EXPECT_EQ(area_.Name(), "");
}

TEST_F(AviCtrlTest, ANewVideoTakesThePlaceOfTheOldOne) {
  area_.Load("/v.avi", "v.avi");
  area_.Play(3);
  Frame(Qt::red);
  Take();
  area_.Load("/w.avi", "w.avi");
  EXPECT_THAT(Take(), ElementsAre("gone", "load /w.avi"));
  EXPECT_FALSE(area_.IsPlaying());
  EXPECT_TRUE(area_.Frame().isNull());
  EXPECT_EQ(area_.Name(), "w.avi");
  area_.Play(-1);
  EXPECT_FALSE(area_.IsPlaying());
  EXPECT_THAT(Take(), IsEmpty());
}

TEST_F(AviCtrlTest, EveryChangeIsPainted) {
  area_.Load("/v.avi", "v.avi");
  Settle();
  PaintCounter paints(area_);
  const std::function<void()> changes[] = {[this] { Frame(Qt::red); }, [this] { video_.listener.failed(); },
                                           [this] { area_.Clear(); }, [this] { area_.Load("/w.avi", "w.avi"); }};
  int expected = 0;
  for (const auto& change : changes) {
    change();
    Settle();
    EXPECT_EQ(paints.Count(), ++expected);
  }
}

TEST_F(AviCtrlTest, AnEndThatIsReportedTwiceCountsOnce) {
  area_.Load("/v.avi", "v.avi");
  area_.Play(1);
  video_.listener.ended();
  video_.listener.ended();
  area_.Play(2);
  video_.listener.ended();
  EXPECT_TRUE(area_.IsPlaying());
  EXPECT_THAT(Take(), ElementsAre("load /v.avi", "play", "play", "rewind", "play"));
}

TEST_F(AviCtrlTest, AFrameIsInTheMiddleAndTheNameToo) {
  area_.Load("/v.avi", "v.avi");
  const QRect name = Ink(Paint(area_), 0);
  EXPECT_NEAR(name.center().x(), 60, 2);
  EXPECT_NEAR(name.center().y(), 40, 4);
  Frame(Qt::red);
  EXPECT_EQ(Ink(Paint(area_), 0), QRect(20, 0, 80, 80));
  EXPECT_EQ(area_.focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(area_.property("pnlId").toInt(), 3002);
}

// The real player.

class RealVideo : public testing::Test {
 protected:
  RealVideo() {
    area_.resize(128, 96);
    Activate(area_);
  }
  void Load(const std::string& bytes) {
    disc_.Write("v.avi", bytes);
    area_.Load((disc_.Path() / "v.avi").string(), "v.avi");
  }
  [[nodiscard]] bool Shows(int red, int blue) {
    const QColor middle = Paint(area_).pixelColor(64, 48);
    return std::abs(middle.red() - red) < 40 && std::abs(middle.blue() - blue) < 40 && middle.green() < 60;
  }
  TempFolder disc_;
  CAviCtrl area_{3002, VideoPlayerFrom(PNL_VIDEO_MODULE), nullptr};
};

TEST_F(RealVideo, FramesOfAFileArePaintedAndItsEndIsNoticed) {
  std::vector<QColor> colors(5, Qt::red);
  colors.resize(10, Qt::blue);
  Load(AviFile(colors, 10));
  area_.Play(1);
  EXPECT_TRUE(RunUntil([this] { return Shows(255, 0); }));
  EXPECT_TRUE(RunUntil([this] { return Shows(0, 255); }));
  EXPECT_TRUE(RunUntil([this] { return !area_.IsPlaying(); }));
}

TEST_F(RealVideo, AVideoIsRepeatedByHand) {
  std::vector<QColor> colors(5, Qt::red);
  colors.resize(10, Qt::blue);
  Load(AviFile(colors, 10));
  area_.Play(2);
  for (int round = 0; round < 2; ++round) {
    EXPECT_TRUE(RunUntil([this] { return Shows(255, 0); })) << round;
    EXPECT_TRUE(RunUntil([this] { return Shows(0, 255); })) << round;
  }
  EXPECT_TRUE(RunUntil([this] { return !area_.IsPlaying(); }));
}

// Enter plays it once more, and nobody rewinds it.
TEST_F(RealVideo, AVideoThatHasEndedPlaysFromItsBeginning) {
  std::vector<QColor> colors(5, Qt::red);
  colors.resize(10, Qt::blue);
  Load(AviFile(colors, 10));
  for (int time = 0; time < 2; ++time) {
    area_.Play(1);
    EXPECT_TRUE(RunUntil([this] { return Shows(255, 0); })) << time;
    EXPECT_TRUE(RunUntil([this] { return !area_.IsPlaying(); })) << time;
    EXPECT_TRUE(Shows(0, 255)) << "the last frame stays";
  }
}

TEST_F(RealVideo, AVideoThatIsStoppedAndRewoundShowsItsFirstFrame) {
  std::vector<QColor> colors(5, Qt::red);
  colors.resize(100, Qt::blue);
  Load(AviFile(colors, 10));
  area_.Play(1);
  EXPECT_TRUE(RunUntil([this] { return Shows(0, 255); }));
  area_.Stop();
  area_.Rewind();
  EXPECT_TRUE(RunUntil([this] { return Shows(255, 0); }));
  Settle();
  EXPECT_TRUE(Shows(255, 0)) << "and goes no further";
}

TEST_F(RealVideo, AVideoThatIsRewoundWhilePlayingGoesOnFromItsBeginning) {
  std::vector<QColor> colors(5, Qt::red);
  colors.resize(10, Qt::blue);
  colors.resize(100, Qt::red);
  Load(AviFile(colors, 10));
  area_.Play(1);
  EXPECT_TRUE(RunUntil([this] { return Shows(0, 255); }));
  area_.Rewind();
  EXPECT_TRUE(RunUntil([this] { return Shows(255, 0); }));
  EXPECT_TRUE(RunUntil([this] { return Shows(0, 255); })) << "without another Play";
  EXPECT_GT(area_.Position(), 0);
}

TEST(VideoModule, MakesPlayersOfItsOwnVersionOnly) {
  void* const module = dlopen(PNL_VIDEO_MODULE, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(module, nullptr) << dlerror();
  const auto make = reinterpret_cast<MakeVideoPlayerFn>(dlsym(module, kVideoPlayerMaker));
  ASSERT_NE(make, nullptr);
  const VideoPlayer::Listener listener;
  for (const int version : {kVideoPlayerVersion - 1, kVideoPlayerVersion + 1, 0}) {
    EXPECT_EQ(make(version, &listener), nullptr) << version;
  }
  const std::unique_ptr<VideoPlayer> player(make(kVideoPlayerVersion, &listener));
  ASSERT_NE(player, nullptr);
  EXPECT_EQ(player->Position(), 0) << "no file yet";
  player->Play();
  player->Stop();
  player->Rewind();
}

TEST(VideoModule, ThatIsMissingIsAWordOnStandardError) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(VideoPlayerFrom("/no/such/module.so")({}), nullptr);
  EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("pnltools: no videos: /no/such/module.so"));
}

TEST_F(RealVideo, AFileThatIsNoVideoShowsItsName) {
  Load("no video at all");
  area_.Play(1);
  EXPECT_TRUE(RunUntil([this] { return !area_.IsPlaying(); }));
  EXPECT_TRUE(area_.Frame().isNull());
}

// A list of addresses is no video, whatever its name.
TEST_F(RealVideo, AListOfAddressesConnectsToNobody) {
  const ConnectionTrap network;
  const std::string address = "http://" + network.Host() + "/a.ts";
  for (const std::string& list :
       {"#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\n" + address + "\n#EXT-X-ENDLIST\n",
        "[Reference]\nRef1=" + address, "<ASX version=\"3\"><Entry><Ref href=\"" + address + "\"/></Entry></ASX>",
        "<?xml version=\"1.0\"?><smil><body><video src=\"" + address + "\"/></body></smil>", address + "\n",
        "RTSPtext" + address + "\n"}) {
    SCOPED_TRACE(list);
    Load(list);
    area_.Play(1);
    EXPECT_TRUE(RunUntil([this] { return !area_.IsPlaying(); }));
    EXPECT_EQ(network.Connections(), 0);
  }
}

long OpenFiles() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator());
}

TEST_F(RealVideo, VideosLeaveNoOpenFilesBehind) {
  const auto play = [this] {
    Load(AviFile(std::vector<QColor>(5, Qt::red), 10));
    area_.Play(1);
    EXPECT_TRUE(RunUntil([this] { return Shows(255, 0); }));
    area_.Clear();
  };
  for (int i = 0; i < 3; ++i) play();
  Settle();
  const auto files = OpenFiles();
  for (int i = 0; i < 20; ++i) play();
  EXPECT_TRUE(RunUntil([files] { return OpenFiles() <= files; }));
}

// A player that ended while its threads were still opening the file waited for them for ever, and the panel with it.
TEST_F(RealVideo, AVideoMayBeLeftWhileItIsOpened) {
  const auto files = OpenFiles();
  for (int i = 0; i < 60; ++i) {
    Load(AviFile(std::vector<QColor>(5, Qt::red), 10));
    area_.Play(1);
    if (i % 3 != 0) QCoreApplication::processEvents();
    if (i % 5 == 0) area_.Rewind();
    area_.Clear();
  }
  Load(AviFile(std::vector<QColor>(5, Qt::red), 10));
  area_.Play(1);
  EXPECT_TRUE(RunUntil([this] { return Shows(255, 0); }));
  area_.Clear();
  constexpr long kOfTheLibrary = 12;  // what the first video opens for good
  EXPECT_TRUE(RunUntil([files] { return OpenFiles() <= files + kOfTheLibrary; }));
}

TEST_F(RealVideo, AVideoMayBeClearedWhileItPlays) {
  Load(AviFile(std::vector<QColor>(20, Qt::red), 10));
  area_.Play(1);
  EXPECT_TRUE(RunUntil([this] { return Shows(255, 0); }));
  area_.Clear();
  Settle();
  EXPECT_TRUE(area_.Frame().isNull());
}

TEST(VideoModule, IsBesideTheLibrary) {
  const std::filesystem::path module = VideoModuleBesideLibrary();
  EXPECT_EQ(module.filename(), "pnl-video.so");
  EXPECT_TRUE(module.has_parent_path());
}

}  // namespace
}  // namespace pnl::test
