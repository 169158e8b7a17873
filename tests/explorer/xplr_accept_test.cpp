// SPDX-License-Identifier: MIT
#include "explorer/xplr_accept.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "explorer/xplr_rig.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A folder with a program in it. What Enter brings is in events_: "show <text> <colour>", "confirm <name>" and
/// "finish <path> | <name>".
template <typename AWorker>
class AcceptStage : public testing::Test {
 protected:
  AcceptStage() {
    Disc().AddFile(u"C:\\CNC\\PART.NC");
    Disc().AddFile(u"C:\\CNC\\LOCKED.NC");
    Disc().AddFolder(u"C:\\CNC\\SUB");
    Disc().readOnly = {u"C:\\CNC\\LOCKED.NC"};
    ground_.state.Path = u"C:\\CNC";
    ground_.state.Filter = u"*";
    ground_.state.Flags = 0;
    ground_.state.Kind = NodeKind::kFolder;
    ground_.view.focused = xplr_control::kList;
  }
  FakeDisc& Disc() { return *ground_.places.disc; }
  Log Take() { return std::exchange(events_, {}); }
  /// Enter with that name, as far as it comes at once.
  Log Enter(TextView file) {
    Disc().asked.clear();
    Disc().looked.clear();
    ground_.state.File = file;
    accept_.Accept();
    return Take();
  }

  XplrGround<AWorker> ground_;
  Log events_;
  bool answer_ = true;
  XplrAccept accept_{{ground_.state, ground_.folders, ground_.access,
                      [this](const XplrNotice& notice) {
                        events_.push_back("show " + std::to_string(notice.text) + " " + std::to_string(notice.color));
                      },
                      [this](const Text& name) { return events_.push_back("confirm " + ToUtf8(name)), answer_; },
                      [this](const Text& path, const Text& name) {
                        events_.push_back("finish " + ToUtf8(path) + " | " + ToUtf8(name));
                      }}};
};

using XplrAcceptTest = AcceptStage<InlineWorker>;
using XplrAcceptSteps = AcceptStage<SteppedWorker>;

Log OneLine(const std::string& line) { return line.empty() ? Log() : Log{line}; }

// ---------------------------------------------------------------- the place

TEST_F(XplrAcceptTest, SomethingCanBePickedInDrivesSharesAndFoldersOnly) {
  const std::pair<int, const char*> kinds[] = {
      {2, ""},
      {3, ""},
      {4, ""},
      {5, "show 26 160"},
      {10, "show 26 160"},
      {11, "show 26 160"},
      {12, "show 26 160"},
      {13, "show 26 160"},
      {14, ""},
      {100, "show 34 160"},
      {0, "show 26 160"},
  };
  for (const std::uint32_t mode : {0u, std::uint32_t{XPLR_FOLDERMODE}}) {
    for (const auto& [kind, refusal] : kinds) {
      ground_.state.Flags = mode;
      ground_.state.Kind = static_cast<NodeKind>(kind);
      const Log accepted{"finish C:\\CNC | SUB"};
      EXPECT_EQ(Enter(u"SUB"), *refusal == '\0' ? accepted : OneLine(refusal)) << kind;
      EXPECT_EQ(Disc().asked.empty(), *refusal != '\0') << "a place that is refused isn't asked for: " << kind;
    }
  }
}

struct FolderCase {
  int error;
  int connectError;
  const char* shown;  // empty when the folder can be used
};

TEST_F(XplrAcceptTest, TheFolderMustBeUsable) {
  const FolderCase cases[] = {
      {place_error::kNone, 1, ""},
      {place_error::kNothingFound, 1, ""},
      {place_error::kPathNotFound, 0, "show 28 160"},
      {place_error::kNoFolder, 0, "show 28 160"},
      {place_error::kNotReady, 0, "show 32 160"},
      {place_error::kAccessDenied, 0, "show 26 160"},
      {place_error::kRemoteNotListening, 0, "show 26 160"},
      {place_error::kWrongPassword, 0, ""},
      {place_error::kWrongPassword, 7, "show 27 6586468"},
      {place_error::kLogonFailed, 0, ""},
      {place_error::kLogonFailed, 7, "show 27 6586468"},
      {place_error::kNotAuthenticated, 0, ""},
      {place_error::kNotAuthenticated, 7, "show 27 6586468"},
      {87, 0, "show 26 160"},
  };
  for (const FolderCase& row : cases) {
    Disc().errors.clear();
    if (row.error != place_error::kNone) Disc().errors[u"C:\\CNC"] = row.error;
    ground_.network.around->connectError = row.connectError;
    ground_.state.Flags = 0;
    const bool usable = *row.shown == '\0';
    EXPECT_EQ(Enter(u"PART.NC"), OneLine(usable ? "finish C:\\CNC | PART.NC" : row.shown)) << row.error;
    ground_.state.Flags = XPLR_FOLDERMODE;
    EXPECT_EQ(Enter(u"SUB"), OneLine(usable ? "finish C:\\CNC | SUB" : row.shown)) << row.error;
  }
}

TEST_F(XplrAcceptTest, WithoutAFolderNothingIsFound) {
  ground_.state.Path.clear();
  EXPECT_THAT(Enter(u"PART.NC"), ElementsAre("show 28 160"));
  EXPECT_THAT(Disc().asked, IsEmpty());
}

TEST_F(XplrAcceptTest, TheFirstThingThatIsWrongIsShown) {
  // From a request in which everything is wrong, the first fault is mended each time.
  ground_.state.Flags = XPLR_NOBLANKS | XPLR_MUSTEXIST | XPLR_NOREADONLY | XPLR_CONFIRMOVERWRITE;
  ground_.state.Filter = u"*.NC";
  ground_.state.Kind = NodeKind::kUnavailable;
  Disc().errors[u"C:\\CNC"] = place_error::kNotReady;
  EXPECT_THAT(Enter(u"MY PART.TXT"), ElementsAre("show 34 160"));
  ground_.state.Kind = NodeKind::kFixed;
  EXPECT_THAT(Enter(u"MY PART.TXT"), ElementsAre("show 32 160"));
  Disc().errors.clear();
  EXPECT_THAT(Enter(u"MY PART.TXT"), ElementsAre("show 35 160"));
  EXPECT_THAT(Enter(u"OTHER.TXT"), ElementsAre("show 30 160"));
  EXPECT_THAT(Enter(u"OTHER.NC"), ElementsAre("show 31 160"));
  EXPECT_THAT(Enter(u"LOCKED.NC"), ElementsAre("show 33 160"));
  EXPECT_THAT(Enter(u"PART.NC"), ElementsAre("confirm PART.NC", "finish C:\\CNC | PART.NC"));
}

// ---------------------------------------------------------------- files

struct FileCase {
  TextView file;
  TextView filter;
  TextView extension;
  std::uint32_t flags;
  Log events;
};

TEST_F(XplrAcceptTest, ANameIsAcceptedByItsExtensionAndByWhatIsThere) {
  const std::uint32_t all = XPLR_MUSTEXIST | XPLR_NOREADONLY | XPLR_CONFIRMOVERWRITE;
  const FileCase cases[] = {
      // The name itself.
      {u"NEW.NC", u"*", u"", 0, {"finish C:\\CNC | NEW.NC"}},
      {u"", u"*", u"", 0, {"show 29 160"}},
      {u".NC", u"*", u"", 0, {"show 29 160"}},
      {u"MY PART.NC", u"*", u"", 0, {"finish C:\\CNC | MY PART.NC"}},
      {u"MY PART.NC", u"*", u"", XPLR_NOBLANKS, {"show 35 160"}},
      {u" ", u"*", u"", XPLR_NOBLANKS, {"show 35 160"}},
      // The filter.
      {u"NEW.TXT", u"*.NC", u"", 0, {"show 30 160"}},
      {u"NEW.TXT", u"*.NC, *.TXT", u"", 0, {"finish C:\\CNC | NEW.TXT"}},
      {u"new.nc", u"*.NC", u"", 0, {"finish C:\\CNC | new.nc"}},
      // No extension: the default one, which the filter isn't asked about.
      {u"NEW", u"*.NC", u"NC", 0, {"finish C:\\CNC | NEW.NC"}},
      {u"NEW.", u"*.NC", u"NC", 0, {"finish C:\\CNC | NEW.NC"}},
      {u"NEW", u"*.NC", u"", 0, {"finish C:\\CNC | NEW"}},
      {u"NEW.", u"*.NC", u"*", 0, {"finish C:\\CNC | NEW"}},
      {u"NEW", u"*.NC", u"*", 0, {"finish C:\\CNC | NEW"}},
      {u"NEW.TXT", u"*", u"NC", 0, {"finish C:\\CNC | NEW.TXT"}},
      // What must exist.
      {u"NEW.NC", u"*", u"", XPLR_MUSTEXIST, {"show 31 160"}},
      {u"PART.NC", u"*", u"", XPLR_MUSTEXIST, {"finish C:\\CNC | PART.NC"}},
      {u"part.nc", u"*", u"", XPLR_MUSTEXIST, {"finish C:\\CNC | part.nc"}},
      {u"PART", u"*", u"NC", XPLR_MUSTEXIST, {"finish C:\\CNC | PART.NC"}},
      {u"PART", u"*", u"", XPLR_MUSTEXIST, {"show 31 160"}},
      {u"SUB", u"*", u"", XPLR_MUSTEXIST, {"finish C:\\CNC | SUB"}},  // a folder exists, too
      // What may not be written.
      {u"LOCKED.NC", u"*", u"", XPLR_NOREADONLY, {"show 33 160"}},
      {u"LOCKED", u"*", u"NC", XPLR_NOREADONLY, {"show 33 160"}},
      {u"LOCKED.NC", u"*", u"", 0, {"finish C:\\CNC | LOCKED.NC"}},
      {u"PART.NC", u"*", u"", XPLR_NOREADONLY, {"finish C:\\CNC | PART.NC"}},
      {u"NEW.NC", u"*", u"", XPLR_NOREADONLY, {"finish C:\\CNC | NEW.NC"}},
      {u"LOCKED.NC", u"*", u"", all, {"show 33 160"}},
      // What would be overwritten.
      {u"PART.NC", u"*", u"", XPLR_CONFIRMOVERWRITE, {"confirm PART.NC", "finish C:\\CNC | PART.NC"}},
      {u"PART", u"*", u"NC", XPLR_CONFIRMOVERWRITE, {"confirm PART.NC", "finish C:\\CNC | PART.NC"}},
      {u"LOCKED.NC", u"*", u"", XPLR_CONFIRMOVERWRITE, {"confirm LOCKED.NC", "finish C:\\CNC | LOCKED.NC"}},
      {u"NEW.NC", u"*", u"", XPLR_CONFIRMOVERWRITE, {"finish C:\\CNC | NEW.NC"}},
      {u"NEW.NC", u"*", u"", all, {"show 31 160"}},
      {u"PART.NC", u"*", u"", all, {"confirm PART.NC", "finish C:\\CNC | PART.NC"}},
  };
  for (const FileCase& row : cases) {
    ground_.state.Filter = row.filter;
    ground_.state.DefaultExtension = row.extension;
    ground_.state.Flags = row.flags;
    EXPECT_EQ(Enter(row.file), row.events) << ToUtf8(row.file) << " of " << ToUtf8(row.filter) << ", " << row.flags;
  }
}

TEST_F(XplrAcceptTest, ANameThatEndsInALonePointGetsTheDefaultExtension) {
  ground_.state.DefaultExtension = u"NC";
  EXPECT_THAT(Enter(u"PART."), ElementsAre("finish C:\\CNC | PART.NC"));
}

TEST_F(XplrAcceptTest, WithADefaultExtensionOfAStarANameWithoutExtensionIsAcceptedAsItsTitle) {
  ground_.state.DefaultExtension = u"*";
  EXPECT_THAT(Enter(u"PART"), ElementsAre("finish C:\\CNC | PART"));
  EXPECT_THAT(Disc().looked, ElementsAre(u"C:\\CNC\\PART"));
}

TEST_F(XplrAcceptTest, AFilterIsCutAtBlanksTooWhenANameIsAccepted) {
  ground_.state.Filter = u"*.NC, *.TXT *.CYC";
  EXPECT_THAT(Enter(u"A.CYC"), ElementsAre("finish C:\\CNC | A.CYC"));
}

TEST_F(XplrAcceptTest, NoToTheQuestionAcceptsNothingAndShowsNothing) {
  ground_.state.Flags = XPLR_CONFIRMOVERWRITE;
  answer_ = false;
  EXPECT_THAT(Enter(u"PART.NC"), ElementsAre("confirm PART.NC"));
}

TEST_F(XplrAcceptTest, TheFocusOnTheTreeMattersOnlyForFolders) {
  ground_.view.focused = xplr_control::kTree;
  EXPECT_THAT(Enter(u"PART.NC"), ElementsAre("finish C:\\CNC | PART.NC"));
}

/// Names that would lead out of the folder, or that no folder can have.
const Text kForeignNames[] = {u"..",
                              u"...",
                              u"....",
                              u"..\\SECRET.NC",
                              u"../SECRET.NC",
                              u"SUB\\X.NC",
                              u"SUB/X.NC",
                              u"\\X.NC",
                              u"/X.NC",
                              u"D:",
                              u"D:X.NC",
                              u"d:\\X.NC",
                              u"\\\\SRV\\DATA\\X.NC",
                              u"X.NC\\",
                              u"X\\..\\..\\Y.NC",
                              Text(u"X\0.NC", 5),
                              Text(u"\0", 1)};

TEST_F(XplrAcceptTest, ANameThatLeadsOutOfItsFolderIsRefusedWithoutAskingTheDisc) {
  for (const std::uint32_t flags : {0u, std::uint32_t{XPLR_MUSTEXIST | XPLR_NOREADONLY | XPLR_CONFIRMOVERWRITE}}) {
    ground_.state.Flags = flags;
    for (const Text& name : kForeignNames) {
      EXPECT_THAT(Enter(name), ElementsAre("show 26 160")) << ToUtf8(name);
      EXPECT_THAT(Disc().looked, IsEmpty()) << ToUtf8(name);
      EXPECT_THAT(Disc().asked, ElementsAre(u"probe C:\\CNC")) << "the folder itself";
    }
  }
}

TEST_F(XplrAcceptTest, ADefaultExtensionCannotLeadOutOfTheFolderEither) {
  for (const TextView extension : {u"\\..\\..\\X", u"NC\\X", u"/../X", u"NC/X"}) {
    ground_.state.DefaultExtension = extension;
    EXPECT_THAT(Enter(u"A"), ElementsAre("show 26 160")) << ToUtf8(extension);
    EXPECT_THAT(Disc().looked, IsEmpty());
  }
}

TEST_F(XplrAcceptTest, PointsThatAreNotAWholeNameAreAllowed) {
  ground_.state.DefaultExtension = u"NC";
  EXPECT_THAT(Enter(u".."), ElementsAre("finish C:\\CNC | ..NC"));
  EXPECT_THAT(Enter(u"..A"), ElementsAre("finish C:\\CNC | ..A"));
  EXPECT_THAT(Enter(u"A..B"), ElementsAre("finish C:\\CNC | A..B"));
}

// ---------------------------------------------------------------- folders

class FolderAcceptTest : public XplrAcceptTest {
 protected:
  FolderAcceptTest() { ground_.state.Flags = XPLR_FOLDERMODE; }
};

struct TreeCase {
  TextView path;
  std::string events;
};

TEST_F(FolderAcceptTest, AFolderThatIsChosenInTheTreeComesBackAsParentAndLeaf) {
  Disc().AddFolder(u"\\\\SRV\\DATA");
  Disc().folders[u"\\\\SRV\\DATA\\X"];
  const TreeCase cases[] = {
      {u"C:\\CNC\\SUB", "finish C:\\CNC | SUB"},
      {u"C:\\CNC", "finish C: | CNC"},  // the bare drive, with its colon
      {u"C:", "finish C: | "},
      {u"\\\\SRV\\DATA", "finish \\\\SRV | DATA"},
      {u"\\\\SRV\\DATA\\X", "finish \\\\SRV\\DATA | X"},
      {u"C:\\GONE", "show 28 160"},
  };
  ground_.view.focused = xplr_control::kTree;
  for (const TreeCase& row : cases) {
    for (const TextView file : {u"", u"OTHER", u"..\\OTHER"}) {
      ground_.state.Path = row.path;
      EXPECT_EQ(Enter(file), Log{row.events}) << "whatever the name is: " << ToUtf8(file);
    }
  }
}

TEST_F(FolderAcceptTest, AOneLevelFolderOfTheTreeComesBackAsBareDriveAndName) {
  ground_.view.focused = xplr_control::kTree;
  EXPECT_THAT(Enter(u""), ElementsAre("finish C: | CNC"));
}

TEST_F(FolderAcceptTest, EnterWithoutANameDoesNothingUnlessTheTreeHasTheFocus) {
  for (const int control : {xplr_control::kList, xplr_control::kName, 0}) {
    ground_.view.focused = control;
    EXPECT_THAT(Enter(u""), IsEmpty());
  }
}

struct NamedCase {
  TextView file;
  std::uint32_t flags;
  int error;      // of the folder C:\CNC\<file>
  int makeError;  // of the disc
  Log events;
  bool made;
};

TEST_F(FolderAcceptTest, ANamedFolderIsUsedOrMade) {
  const NamedCase cases[] = {
      {u"SUB", 0, 0, 0, {"finish C:\\CNC | SUB"}, false},
      {u"sub", XPLR_MUSTEXIST, 0, 0, {"finish C:\\CNC | sub"}, false},
      {u"NEW", 0, 0, 0, {"finish C:\\CNC | NEW"}, false},  // it needn't exist
      {u"MADE", XPLR_MUSTEXIST, 0, 0, {"finish C:\\CNC | MADE"}, true},
      {u"TWICE", XPLR_MUSTEXIST, 0, place_error::kAlreadyExists, {"finish C:\\CNC | TWICE"}, true},
      {u"FAILS", XPLR_MUSTEXIST, 0, place_error::kAccessDenied, {"show 28 160"}, true},
      {u"FAILS", XPLR_MUSTEXIST, 0, place_error::kNotReady, {"show 28 160"}, true},
      {u"MY NEW", XPLR_NOBLANKS, 0, 0, {"finish C:\\CNC | MY NEW"}, false},  // the rules for files don't count
      // A path that exists counts as a folder that was made, also that of a file.
      {u"PART.NC", XPLR_MUSTEXIST, 0, 0, {"finish C:\\CNC | PART.NC"}, false},
      {u"PART.NC", 0, 0, 0, {"finish C:\\CNC | PART.NC"}, false},
      // Anything else that is wrong with it.
      {u"SUB", 0, place_error::kNotReady, 0, {"show 32 160"}, false},
      {u"SUB", XPLR_MUSTEXIST, place_error::kNotReady, 0, {"show 32 160"}, false},
      {u"SUB", 0, place_error::kAccessDenied, 0, {"show 26 160"}, false},
      {u"SUB", XPLR_MUSTEXIST, place_error::kLogonFailed, 0, {"show 27 6586468"}, false},
      {u"SUB", 0, place_error::kNoFolder, 0, {"finish C:\\CNC | SUB"}, false},
  };
  ground_.network.around->connectError = 1;
  for (const NamedCase& row : cases) {
    const Text full = u"C:\\CNC\\" + Text(row.file);
    ground_.state.Flags = XPLR_FOLDERMODE | row.flags;
    Disc().errors.clear();
    if (row.error != 0) Disc().errors[full] = row.error;
    Disc().makeError = row.makeError;
    EXPECT_EQ(Enter(row.file), row.events) << ToUtf8(row.file) << " " << row.flags << " " << row.error;
    EXPECT_EQ(Disc().asked.back() == u"make " + full, row.made) << ToUtf8(row.file) << " " << row.flags;
  }
  EXPECT_EQ(Disc().folders.count(u"C:\\CNC\\MADE"), 1u);
  EXPECT_EQ(Disc().folders.count(u"C:\\CNC\\NEW"), 0u);
}

TEST_F(FolderAcceptTest, AFolderIsMadeOnlyWhenItMustExist) {
  EXPECT_THAT(Enter(u"NEW"), ElementsAre("finish C:\\CNC | NEW"));
  EXPECT_THAT(Disc().asked, ElementsAre(u"probe C:\\CNC", u"probe C:\\CNC\\NEW"));
  ground_.state.Flags |= XPLR_MUSTEXIST;
  EXPECT_THAT(Enter(u"NEW"), ElementsAre("finish C:\\CNC | NEW"));
  EXPECT_THAT(Disc().asked, ElementsAre(u"probe C:\\CNC", u"probe C:\\CNC\\NEW", u"make C:\\CNC\\NEW"));
}

TEST_F(FolderAcceptTest, ANameThatLeadsOutOfItsFolderIsNeitherAskedForNorMade) {
  for (const std::uint32_t flags : {0u, std::uint32_t{XPLR_MUSTEXIST}}) {
    ground_.state.Flags = XPLR_FOLDERMODE | flags;
    for (const Text& name : kForeignNames) {
      if (name == u"..." || name == u"....") continue;  // as a folder's name they are what they are
      EXPECT_THAT(Enter(name), ElementsAre("show 26 160")) << ToUtf8(name);
      EXPECT_THAT(Disc().asked, ElementsAre(u"probe C:\\CNC")) << ToUtf8(name);
    }
    EXPECT_THAT(Enter(u"."), ElementsAre("show 26 160"));
  }
}

// ---------------------------------------------------------------- between question and answer

TEST_F(XplrAcceptSteps, AChoiceThatChangesBeforeTheAnswerIsDropped) {
  const std::uint32_t makes = XPLR_FOLDERMODE | XPLR_MUSTEXIST;
  const struct {
    std::uint32_t flags;
    TextView file;
    int questions;
  } cases[] = {{XPLR_CONFIRMOVERWRITE, u"PART.NC", 2},
               {XPLR_MUSTEXIST, u"GONE.NC", 2},
               {XPLR_FOLDERMODE, u"SUB", 2},
               {makes, u"NEW", 3}};
  for (const auto& row : cases) {
    for (int answered = 0; answered < row.questions; ++answered) {
      for (const bool path : {false, true}) {
        ground_.state.Flags = row.flags;
        ground_.state.Path = u"C:\\CNC";
        Disc().folders.erase(u"C:\\CNC\\NEW");
        EXPECT_THAT(Enter(row.file), IsEmpty());
        for (int i = 0; i < answered; ++i) EXPECT_TRUE(ground_.worker.RunNext());
        EXPECT_EQ(ground_.worker.Waits(), 1u) << "the next question has been asked";
        (path ? ground_.state.Path : ground_.state.File) += u"X";
        ground_.worker.RunAll();
        EXPECT_THAT(Take(), IsEmpty()) << ToUtf8(row.file) << " after " << answered << " answers";
      }
    }
  }
}

TEST_F(XplrAcceptSteps, AFailureOfAChoiceThatChangedIsNotShown) {
  ground_.state.Flags = XPLR_FOLDERMODE | XPLR_MUSTEXIST;
  Disc().makeError = place_error::kAccessDenied;
  Enter(u"NEW");
  ground_.worker.RunNext();
  ground_.worker.RunNext();
  ground_.state.File = u"OTHER";
  ground_.worker.RunAll();
  EXPECT_THAT(Take(), IsEmpty());
  ground_.state.Flags = 0;
  Disc().errors[u"C:\\CNC"] = place_error::kNotReady;
  Enter(u"A");
  ground_.state.File = u"B";
  ground_.worker.RunAll();
  EXPECT_THAT(Take(), IsEmpty());
}

TEST_F(XplrAcceptSteps, EnterTwiceAcceptsOnce) {
  ground_.state.Flags = XPLR_CONFIRMOVERWRITE;
  Enter(u"PART.NC");
  Enter(u"PART.NC");
  ground_.worker.RunAll();
  EXPECT_THAT(Take(), ElementsAre("confirm PART.NC", "finish C:\\CNC | PART.NC"));
}

TEST_F(XplrAcceptSteps, EnterInARefusedPlaceForgetsTheOneBefore) {
  Enter(u"PART.NC");
  ground_.state.Kind = NodeKind::kCd;
  EXPECT_THAT(Enter(u"PART.NC"), ElementsAre("show 26 160"));
  ground_.worker.RunAll();
  EXPECT_THAT(Take(), IsEmpty());
}

TEST_F(XplrAcceptSteps, TheFocusAtEnterCounts) {
  ground_.state.Flags = XPLR_FOLDERMODE;
  ground_.view.focused = xplr_control::kTree;
  Enter(u"SUB");
  ground_.view.focused = xplr_control::kList;
  ground_.worker.RunAll();
  EXPECT_THAT(Take(), ElementsAre("finish C: | CNC"));
  Enter(u"SUB");
  ground_.view.focused = xplr_control::kTree;
  ground_.worker.RunAll();
  EXPECT_THAT(Take(), ElementsAre("finish C:\\CNC | SUB"));
}

TEST_F(XplrAcceptSteps, WhatCannotBeAskedIsRefused) {
  ground_.worker.refuses = true;
  EXPECT_THAT(Enter(u"PART.NC"), ElementsAre("show 26 160"));
  const struct {
    std::uint32_t flags;
    TextView file;
    int answered;
    const char* shown;
  } cases[] = {{XPLR_CONFIRMOVERWRITE, u"PART.NC", 1, "show 26 160"},  // it might be overwritten unasked
               {XPLR_MUSTEXIST, u"PART.NC", 1, "show 26 160"},
               {XPLR_FOLDERMODE, u"SUB", 1, "show 26 160"},
               {XPLR_FOLDERMODE | XPLR_MUSTEXIST, u"NEW", 2, "show 28 160"}};
  for (const auto& row : cases) {
    ground_.worker.refuses = false;
    ground_.state.Flags = row.flags;
    Enter(row.file);
    for (int i = 1; i < row.answered; ++i) ground_.worker.RunNext();
    ground_.worker.refuses = true;
    ground_.worker.RunAll();
    EXPECT_THAT(Take(), ElementsAre(row.shown)) << ToUtf8(row.file);
  }
}

}  // namespace
}  // namespace pnl::test
