// SPDX-License-Identifier: MIT
#include "ui/program_desk.h"

#include <QFileInfo>
#include <QTextBlock>
#include <utility>

#include "ui/file_chooser.h"
#include "ui/program_editor.h"
#include "ui/program_file.h"
#include "ui/question.h"

namespace panel {
namespace {

Word WordFor(FileOutcome outcome) {
  switch (outcome) {
    case FileOutcome::kCannotSave:
      return Word::kCannotSave;
    case FileOutcome::kNotAText:
      return Word::kNotAText;
    case FileOutcome::kTooBig:
      return Word::kTooBig;
    default:
      return Word::kCannotOpen;
  }
}

}  // namespace

ProgramDesk::ProgramDesk(ProgramEditor& editor, FileChooser& chooser, Question& question, PathResolver resolve,
                         QObject* parent)
    : QObject(parent), editor_(editor), chooser_(chooser), question_(question), resolve_(std::move(resolve)) {}

QString ProgramDesk::FolderOrPrograms(const QString& folder) const {
  const QString path = folder.isEmpty() ? QString() : resolve_(folder);
  return !path.isEmpty() && QFileInfo(path).isDir() ? folder : programsFolder_;
}

void ProgramDesk::AskToDiscard(std::function<void()> go) {
  if (!editor_.IsModified()) return go();
  question_.Ask(Say(Word::kDiscardChanges), {Say(Word::kDiscard), Say(Word::kCancel)},
                [this, go = std::move(go)](int index) {
                  if (index == 0) return go();
                  editor_.setFocus();
                });
}

void ProgramDesk::New() {
  AskToDiscard([this] {
    path_.clear();
    carriageReturns_ = false;
    editor_.SetProgram({}, {});
    editor_.setFocus();
  });
}

void ProgramDesk::Open() {
  AskToDiscard([this] {
    FileRequest request;
    request.title = Say(Word::kOpen);
    request.folder = path_.isEmpty() ? programsFolder_ : FolderAbove(path_);
    request.flags = XPLR_MUSTEXIST;
    chooser_.Ask(
        request,
        [this](const QString& folder, const QString& file) {
          Load(JoinPath(folder, file));
          editor_.setFocus();
        },
        [this] { editor_.setFocus(); });
  });
}

void ProgramDesk::Save() {
  if (path_.isEmpty()) return SaveAs();
  Store(path_);
}

void ProgramDesk::SaveAs() {
  FileRequest request;
  request.title = Say(Word::kSaveAs);
  request.folder = path_.isEmpty() ? programsFolder_ : FolderAbove(path_);
  request.file = path_.section(QLatin1Char('\\'), -1);
  request.extension = QStringLiteral("nc");
  request.flags = XPLR_CONFIRMOVERWRITE | XPLR_NOREADONLY;
  chooser_.Ask(
      request,
      [this](const QString& folder, const QString& file) {
        Store(JoinPath(folder, file));
        editor_.setFocus();
      },
      [this] { editor_.setFocus(); });
}

bool ProgramDesk::Load(const QString& panelPath) {
  const ProgramText program = ReadProgram(resolve_(panelPath));
  if (program.outcome != FileOutcome::kDone) {
    emit Said(Say(WordFor(program.outcome), panelPath), true);
    return false;
  }
  path_ = panelPath;
  carriageReturns_ = program.carriageReturns;
  editor_.SetProgram(program.text, panelPath);
  emit Said(Say(Word::kOpened, panelPath), false);
  return true;
}

bool ProgramDesk::Store(const QString& panelPath) {
  const FileOutcome outcome = WriteProgram(resolve_(panelPath), editor_.Text(), carriageReturns_);
  if (outcome != FileOutcome::kDone) {
    emit Said(Say(WordFor(outcome), panelPath), true);
    return false;
  }
  path_ = panelPath;
  editor_.SetName(panelPath);
  editor_.SetSaved();
  emit Said(Say(Word::kSaved, panelPath), false);
  return true;
}

std::optional<pnl::rig::ProgramSpot> ProgramDesk::CaretSpot() const {
  if (path_.isEmpty() || editor_.IsModified()) return std::nullopt;
  const QTextCursor caret = editor_.Edit().textCursor();
  const QTextBlock block = caret.block();
  // The editor counts one unit for a line's end, the file has two with carriage returns.
  const int extra = carriageReturns_ ? block.blockNumber() : 0;
  const QString before = block.text().left(caret.positionInBlock());
  pnl::rig::ProgramSpot spot;
  spot.folder = FolderAbove(path_).toStdU16String();
  spot.file = path_.section(QLatin1Char('\\'), -1).toStdU16String();
  spot.position = block.position() + extra;
  spot.span = static_cast<std::int32_t>(before.lastIndexOf(QLatin1Char(' ')) + 1);
  return spot;
}

}  // namespace panel
