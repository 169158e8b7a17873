// SPDX-License-Identifier: MIT
// Random sessions of the whole window: keys, presses, typed and pasted names, commands, messages, dialogs, resizing,
// drives that fail and files that come and go. After each step the window is as it promises to be, and at the end the
// drives are as they were.
#include <QClipboard>
#include <QHeaderView>
#include <random>

#include "explorer/qt/xplr_window_stage.h"
#include "explorer/xplr_names.h"
#include "host/pack_files.h"
#include "places/disc_places.h"
#include "support/folder_snapshot.h"

namespace pnl::test {
namespace {

enum class Over { kSimulatedDrives, kDiscDrives };

/// A session: its first random number, and where the folders come from.
struct Session {
  unsigned seed;
  Over over;
};

const QStringList kNames = {"A.NC",
                            "b.txt",
                            "new",
                            "SUB",
                            "SUB\\DEEP",
                            "..",
                            ".",
                            "...",
                            "a.",
                            "../out",
                            "..\\out",
                            "C:",
                            "C:\\P52",
                            "\\\\srv\\s",
                            "x y.nc",
                            "LOOP",
                            "*",
                            "part?.nc",
                            "D:\\..\\out",
                            "/etc",
                            "new.folder",
                            QString(QChar(0)) + "a",
                            QString(300, 'n'),
                            " ",
                            "D:",
                            "..\\..\\out",
                            "SUB/DEEP",
                            "NUL"};

class XplrRandom : public XplrWindowStage, public testing::WithParamInterface<Session> {
 protected:
  XplrRandom() {
    const std::string program = QCoreApplication::applicationFilePath().toStdString();
    Disc("C:\\P15\\LPNLTOOLS.DLL", *ReadPackFile(PackFolders(nullptr, program), "en"));
    Disc("C:\\P108\\HMI_Settings.ini", "[CALIDAD]\nTest=SI\n");
    MakeDrive();
    noting.onMessage = [](const HostMessage&) {};
    windows.SetBoxAnswerer([this](const BoxSpec&) { return Pick(2) == 0 ? BoxAnswer::kYes : BoxAnswer::kNo; });
  }

  /// Drive D is two folders below the watched one, so that whatever leaves it is seen.
  void MakeDrive() {
    drive_ = disc.Folder("outer/d");
    for (const char* file : {"A.NC", "b.txt", "x y.nc", "a..nc", "noextension", ".hidden", "SUB/C.NC", "SUB/DEEP/D.NC",
                             "name.with.points", "broken_\xFF\xC3.nc", "back\\slash.nc", "EMPTY/.keep"}) {
      disc.Write("outer/d/" + std::string(file), "content of " + std::string(file));
    }
    disc.Write("outer/d/" + std::string(250, 'l') + ".nc", "long");
    std::filesystem::create_directory_symlink(".", disc.Path() / "outer/d/LOOP");
    std::filesystem::create_symlink("nowhere", disc.Path() / "outer/d/DEAD");
    SetDrive(0);
  }
  void SetDrive(int error) {
    rig::Drive drive;
    drive.letter = 'D';
    drive.dir = drive_;
    drive.error = error;
    cnc.Storage().SetDrive(drive);
  }
  [[nodiscard]] int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(std::max(count, 1))); }
  [[nodiscard]] FolderSnapshot Snapshot() const { return SnapshotOf(disc.Path(), {"P52/XPLR7340.ini"}); }

  void OpenAny() {
    request = {};
    SetField(request.Title, u"Pick");
    const TextView paths[] = {u"D:", u"D:\\SUB",  u"D:\\LOOP\\LOOP\\SUB", u"D:\\GONE", u"Z:",
                              u"",   u"C:\\P100", u"\\\\srv\\x"};
    SetField(request.Path, paths[Pick(std::size(paths))]);
    const TextView filters[] = {u"*", u"*.nc,*.txt", u"", u"*.NC, *.txt", u"*.none"};
    SetField(request.Filter, filters[Pick(std::size(filters))]);
    if (Pick(3) == 0) SetField(request.File, Pick(2) == 0 ? u"A.NC" : u"SUB");
    if (Pick(3) == 0) SetField(request.Extension, Pick(2) == 0 ? u"nc" : u"*");
    request.Owner = 1006;
    for (const std::uint32_t flag : {XPLR_MUSTEXIST, XPLR_LISTONLY, XPLR_FOLDERMODE, XPLR_NOBLANKS, XPLR_NOREADONLY,
                                     XPLR_CONFIRMOVERWRITE, XPLR_HIDELOCKED, XPLR_PINNED}) {
      if (Pick(4) == 0) request.Flags |= flag;
    }
    asked_ = request;
    ++opened_;
    TakeHostCalls();
    Begin(GetParam().over == Over::kSimulatedDrives ? context : overDiscs_);
    if (Pick(4) != 0) Idle();
  }

  // The steps.

  void PressAnyKey() {
    static constexpr int kKeys[] = {Qt::Key_Up,     Qt::Key_Down,  Qt::Key_PageUp, Qt::Key_PageDown,  Qt::Key_Home,
                                    Qt::Key_End,    Qt::Key_Left,  Qt::Key_Right,  Qt::Key_Tab,       Qt::Key_Backtab,
                                    Qt::Key_Space,  Qt::Key_Plus,  Qt::Key_Minus,  Qt::Key_Backspace, Qt::Key_Delete,
                                    Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape};
    const int key = kKeys[Pick(std::size(kKeys))];
    // What ends the session comes less often.
    if ((key == Qt::Key_Escape || key == Qt::Key_Return) && Pick(3) != 0) return;
    Key(key);
  }
  void PressList() {
    const int row = Pick(12) - 1;
    QWidget* viewport = List()->viewport();
    const QRect place = List()->visualRect(List()->model()->index(row, 0));
    const QPoint at =
        place.isValid() && viewport->rect().contains(place.center()) ? place.center() : viewport->rect().bottomLeft();
    PressMouse(viewport, at);
    if (explorer.isNull() || Pick(3) != 0) return;
    PressMouse(viewport, at, QEvent::MouseButtonRelease);
    if (Pick(2) == 0) Idle();
    if (!explorer.isNull()) PressMouse(List()->viewport(), at, QEvent::MouseButtonDblClick);
  }
  void PressTree() {
    if (!Tree()->isVisible()) return;
    QWidget* viewport = Tree()->viewport();
    const QPoint at(Pick(120), Pick(viewport->height() / 2));
    PressMouse(viewport, at);
    PressMouse(viewport, at, Pick(3) == 0 ? QEvent::MouseButtonDblClick : QEvent::MouseButtonRelease);
  }
  void PressHeader() {
    QWidget* viewport = List()->header()->viewport();
    const QPoint at(Pick(viewport->width()), viewport->height() / 2);
    PressMouse(viewport, at);
    PressMouse(viewport, at, QEvent::MouseButtonRelease);
  }
  void EnterName() {
    const QString before = Name()->text();
    const QString name = kNames[Pick(static_cast<int>(kNames.size()))];
    Name()->setFocus();
    if (explorer.isNull()) return;
    Name()->selectAll();
    if (Pick(2) == 0) {
      QGuiApplication::clipboard()->setText(name);
      Name()->paste();
    } else {
      for (const QChar c : name) Key(0, {}, c);
    }
    if (explorer.isNull() || Focus() != Name() || Name()->text() == before) return;
    // Before an answer to an earlier step comes, which may empty the caption.
    // A caption ends at its terminator.
    const QString shown = Name()->text().section(QChar(0), 0, 0);
    EXPECT_EQ(TextOf(xplr_control::kCaption), " Pick = " + shown.toStdString());
    if (Pick(2) == 0) Key(Qt::Key_Return);
  }
  void SendCommand() {
    static constexpr int kCommands[] = {32770, 32771, 32772, 32773, 32774, 32774, 32775, 32775,
                                        32777, 32778, 32779, 32790, 32791, 32900, 32901, 0};
    Send(PNL_MSG_COMMAND, kCommands[Pick(std::size(kCommands))]);
  }
  void SendMessageToAny() {
    static constexpr XplrMessage kMessages[] = {
        XplrMessage::kUpdateMenu, XplrMessage::kUpdate,     XplrMessage::kUpdatePinState, XplrMessage::kUpdateFolder,
        XplrMessage::kUpdateList, XplrMessage::kUpdateTree, XplrMessage::kUpdateEdit,     XplrMessage::kResetList,
        XplrMessage::kFind,       XplrMessage::kFindNext,   XplrMessage::kFindPrevious,   XplrMessage::kFindResult,
        XplrMessage::kEndFind};
    const auto message = static_cast<std::size_t>(kMessages[Pick(std::size(kMessages))]);
    const std::uint32_t number = RegisterMessage(kXplrMessageNames[message]);
    std::vector<WindowHandle> targets = {handle};
    for (const QWidget* window :
         {List()->parentWidget(), static_cast<QWidget*>(List()), static_cast<QWidget*>(Tree())}) {
      targets.push_back(WindowRegistry::Instance().HandleOf(window));
    }
    windows.Post(targets[Pick(static_cast<int>(targets.size()))], {number, Pick(5), 0});
  }
  void SendToolCommand() {
    static constexpr int kCodes[] = {1, 2, 5, 6, 7, 7, 7, 20, 34, 99};
    Send(PNL_MSG_TOOL_COMMAND, kCodes[Pick(std::size(kCodes))]);
  }
  void TypeIntoDialog() {
    Send(PNL_MSG_COMMAND, Pick(2) == 0 ? 32774 : 32775);
    Settle();
    if (explorer.isNull() || explorer->findChildren<XplrDialog*>().isEmpty()) return;
    for (const QChar c : Pick(2) == 0 ? QString("nc") : kNames[Pick(static_cast<int>(kNames.size()))]) {
      Key(0, {}, c);
    }
    static constexpr int kKeys[] = {Qt::Key_Return, Qt::Key_Down, Qt::Key_Up, Qt::Key_Escape, Qt::Key_Backspace};
    Key(kKeys[Pick(std::size(kKeys))]);
  }
  /// Somebody else changes the drive. What that changes is no fault of the explorer's.
  void ChangeDrive() {
    if (GetParam().over == Over::kSimulatedDrives && Pick(2) == 0) {
      const int errors[] = {0, 0, 5, 21, 3, 51};
      SetDrive(errors[Pick(std::size(errors))]);
      return;
    }
    ASSERT_EQ(Snapshot(), before_);
    const std::string name = "outer/d/visitor" + std::to_string(Pick(3)) + ".nc";
    if (disc.Has(name)) {
      std::filesystem::remove(disc.Path() / name);
    } else {
      disc.Write(name, "visitor");
    }
    before_ = Snapshot();
  }
  void Resize() { area->resize(200 + Pick(700), 150 + Pick(500)); }
  void Refresh() { Send(PNL_MSG_COMMAND, xplr_command::kRefresh); }
  void Step() {
    static constexpr struct {
      int weight;
      void (XplrRandom::*step)();
    } kSteps[] = {
        {8, &XplrRandom::PressAnyKey},      {6, &XplrRandom::PressList},      {4, &XplrRandom::PressTree},
        {2, &XplrRandom::PressHeader},      {2, &XplrRandom::EnterName},      {2, &XplrRandom::SendCommand},
        {2, &XplrRandom::SendMessageToAny}, {2, &XplrRandom::TypeIntoDialog}, {1, &XplrRandom::SendToolCommand},
        {1, &XplrRandom::ChangeDrive},      {1, &XplrRandom::Resize},         {1, &XplrRandom::Refresh}};
    int left = Pick(32);
    for (const auto& each : kSteps) {
      if ((left -= each.weight) < 0) return (this->*each.step)();
    }
  }

  // What holds after each step.

  void CheckOpen() const {
    EXPECT_EQ(std::memcmp(&request, &asked_, sizeof request), 0) << "the record is written only on acceptance";
    int dialogs = 0;
    for (const XplrDialog* dialog : explorer->findChildren<XplrDialog*>()) dialogs += dialog->isVisible() ? 1 : 0;
    EXPECT_LE(dialogs, 1);
    const std::string caption = TextOf(xplr_control::kCaption);
    if (caption.empty()) {
      EXPECT_TRUE(worker.IsBusy()) << "it has a caption once it is known whether the pinned folder is there";
    } else {
      EXPECT_EQ(caption.rfind(" Pick = ", 0), 0u) << caption;
    }
    EXPECT_LE(Name()->text().size(), 256);
    EXPECT_LE(List()->selectionModel()->selectedRows().size(), 1);
    for (const QString& row : Rows()) EXPECT_FALSE(row.startsWith('.') && row != "..nc") << row.toStdString();
  }
  void CheckClosed() {
    const Log calls = TakeHostCalls();
    const auto count = [&](const char* call) { return std::count(calls.begin(), calls.end(), call); };
    const bool folderMode = (asked_.Flags & XPLR_FOLDERMODE) != 0;
    const auto accepted = count("HostToolClosed(5,1)");
    EXPECT_LE(accepted + count("HostToolClosed(5,2)"), 1);
    EXPECT_EQ(count("HostExplorerAcceptedAlt"), folderMode ? accepted : 0);
    EXPECT_EQ(count("HostExplorerAccepted"), folderMode ? 0 : accepted);
    if (accepted == 0) {
      EXPECT_EQ(std::memcmp(&request, &asked_, sizeof request), 0);
      EXPECT_EQ(Snapshot(), before_);
      return;
    }
    CheckAnswer(folderMode);
  }
  void CheckAnswer(bool folderMode) {
    const Text path = FieldText(request.Path);
    const Text name = FieldText(request.File);
    const std::string answer = ToUtf8(path) + " and " + ToUtf8(name);
    EXPECT_TRUE(IsPlainName(name)) << answer;
    EXPECT_EQ(path.find(u".."), Text::npos) << answer;
    EXPECT_TRUE(path.size() >= 2 && path[1] == u':' && path.back() != u'\\') << answer;
    const bool mustExist = (asked_.Flags & XPLR_MUSTEXIST) != 0;
    if (mustExist && !folderMode) {
      EXPECT_TRUE(files.Query(path + u"\\" + name).exists) << answer;
    }
    FolderSnapshot after = Snapshot();
    for (const auto& [entry, what] : before_) EXPECT_EQ(after[entry], what) << entry;
    if (after.size() == before_.size()) return;
    // The folder that may be made, and nothing else.
    EXPECT_TRUE(folderMode && mustExist) << answer;
    EXPECT_EQ(after.size(), before_.size() + 1) << answer;
    EXPECT_TRUE(files.Query(path + u"\\" + name).folder) << answer;
    before_ = after;
  }
  void Play(int steps) {
    before_ = Snapshot();
    for (int step = 0; step < steps && !HasFailure(); ++step) {
      SCOPED_TRACE("step " + std::to_string(step));
      if (explorer.isNull()) {
        SetDrive(0);
        OpenAny();
      } else {
        Step();
        if (Pick(3) != 0) Idle();
      }
      Settle();
      // An answer of the worker's that came last has closed the explorer, and only its deletion is left to do.
      if (!explorer.isNull() && !explorer->isVisible()) Settle();
      if (explorer.isNull()) {
        CheckClosed();
      } else {
        CheckOpen();
      }
    }
    delete explorer;
    Idle();
    EXPECT_EQ(Snapshot(), before_);
  }

  std::mt19937 random_{GetParam().seed};
  std::string drive_;
  DiscPlaces discPlaces_{drives};
  ToolContext overDiscs_{host, cnc, windows, timers, language, files, discPlaces_, network, worker};
  FolderSnapshot before_;
  XPLRDATA_ST asked_{};
  int opened_ = 0;
};

TEST_P(XplrRandom, SessionsKeepTheirPromisesAndChangeNothing) {
  Play(400);
  EXPECT_GT(opened_, 2);
}

std::vector<Session> Sessions() {
  std::vector<Session> sessions;
  for (unsigned seed = 1; seed <= 8; ++seed) {
    sessions.push_back({seed, seed % 2 == 0 ? Over::kSimulatedDrives : Over::kDiscDrives});
  }
  return sessions;
}

INSTANTIATE_TEST_SUITE_P(Seeds, XplrRandom, testing::ValuesIn(Sessions()));

}  // namespace
}  // namespace pnl::test
