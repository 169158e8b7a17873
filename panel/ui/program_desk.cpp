// SPDX-License-Identifier: MIT
#include "ui/program_desk.h"

#include <QTextBlock>
#include <utility>

#include "common/words.h"
#include "ui/program_editor.h"
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

/// A size in units of 1024 * 1024 bytes, rounded up to a tenth, so that a size above the limit reads as more.
QString Megabytes(qint64 bytes) {
  constexpr qint64 kUnit = qint64{1024} * 1024;
  const qint64 tenths = (bytes * 10 + kUnit - 1) / kUnit;
  const QString whole = QString::number(tenths / 10);
  return tenths % 10 == 0 ? whole : whole + QLatin1Char('.') + QString::number(tenths % 10);
}

}  // namespace

ProgramDesk::ProgramDesk(ProgramEditor& editor, FileAsker& asker, Question& question, PathResolver resolve,
                         QObject* parent)
    : QObject(parent), editor_(editor), asker_(asker), question_(question), resolve_(std::move(resolve)) {
  connect(&editor_, &ProgramEditor::CancelWanted, this, &ProgramDesk::CancelOpening);
}

ProgramDesk::~ProgramDesk() { writer_.Finish(); }

bool ProgramDesk::Working() const {
  return reader_.Working() || locator_.Working() || writer_.Working() || editor_.Working();
}

void ProgramDesk::AskToDiscard(std::function<void()> go) {
  if (writer_.Working()) {
    atRest_.push_back([this, go = std::move(go)] { AskToDiscard(go); });
    return;
  }
  if (!editor_.IsModified()) return go();
  question_.Ask(Say(Word::kDiscardChanges), {Say(Word::kDiscard), Say(Word::kCancel)},
                [this, go = std::move(go)](int index) {
                  if (index == 0) return go();
                  editor_.setFocus();
                });
}

void ProgramDesk::DropReading() {
  reader_.Drop();
  editor_.CancelOpening();
}

void ProgramDesk::CancelOpening() {
  if (!editor_.Opening()) return;
  DropReading();
  emit Said(Say(Word::kOpeningCancelled, opening_), false);
  Rest();
}

FileRequest ProgramDesk::RequestFor(const QString& title, quint32 flags) const {
  FileRequest request;
  request.title = title;
  const bool saves = (flags & XPLR_CONFIRMOVERWRITE) != 0;
  const bool elsewhere = path_.isEmpty() || (saves && IsNetworkPath(path_));
  request.folder = elsewhere ? programsFolder_ : FolderAbove(path_);
  request.flags = flags;
  return request;
}

void ProgramDesk::New() {
  AskToDiscard([this] {
    FileRequest request = RequestFor(Say(Word::kNew), XPLR_CONFIRMOVERWRITE | XPLR_NOREADONLY);
    request.extension = QStringLiteral("nc");
    asker_.Ask(
        request, [this](const QString& folder, const QString& file) { StartNew(JoinPath(folder, file)); }, [] {});
  });
}

void ProgramDesk::StartNew(const QString& panelPath) {
  DropReading();
  editor_.Fill({}, panelPath, [this, panelPath] {
    path_ = panelPath;
    stored_ = false;
    layout_ = {};
    Rest();
  });
  editor_.setFocus();
}

void ProgramDesk::TakeBack(const QString& panelPath, const QString& text, std::function<void()> shown) {
  DropReading();
  path_ = panelPath;
  stored_ = false;
  layout_ = {};
  editor_.Fill(text, panelPath, [this, shown = std::move(shown)] {
    editor_.Edit().document()->setModified(true);
    shown();
    Rest();
  });
}

void ProgramDesk::Open() {
  AskToDiscard([this] {
    asker_.Ask(
        RequestFor(Say(Word::kOpen), XPLR_MUSTEXIST),
        [this](const QString& folder, const QString& file) {
          Load(JoinPath(folder, file));
          editor_.setFocus();
        },
        [] {});
  });
}

void ProgramDesk::Browse() {
  asker_.Ask(
      RequestFor({}, XPLR_MUSTEXIST),
      [this](const QString& folder, const QString& file) {
        editor_.setFocus();
        AskToDiscard([this, path = JoinPath(folder, file)] { Load(path); });
      },
      [] {});
}

void ProgramDesk::Save() {
  const bool onNetwork = IsNetworkPath(path_);
  if (onNetwork) emit Said(Say(Word::kNotOnNetwork, path_), true);
  if (path_.isEmpty() || onNetwork) return SaveAs();
  Store(path_);
}

void ProgramDesk::SaveAs() {
  FileRequest request = RequestFor(Say(Word::kSaveAs), XPLR_CONFIRMOVERWRITE | XPLR_NOREADONLY);
  request.file = path_.section(QLatin1Char('\\'), -1);
  request.extension = QStringLiteral("nc");
  asker_.Ask(
      request,
      [this](const QString& folder, const QString& file) {
        Store(JoinPath(folder, file));
        editor_.setFocus();
      },
      [] {});
}

std::function<ProgramText(const ReadTell& tell)> ProgramDesk::SourceOf(const QString& panelPath) const {
  if (!IsNetworkPath(panelPath)) {
    return [host = resolve_(panelPath)](const ReadTell& tell) { return ReadProgram(host, tell); };
  }
  pnl::rig::Rig* rig = PnlRig();
  const auto file = rig == nullptr ? pnl::rig::Rig::FileStart() : rig->NetworkFile(panelPath.toStdU16String());
  return [file](const ReadTell& /*tell*/) { return ReadProgram(file); };
}

void ProgramDesk::Load(const QString& panelPath) {
  DropReading();
  spot_.reset();
  opening_ = panelPath;
  editor_.BeginOpening(panelPath);
  reader_.Run<ProgramText, ReadNews>(
      SourceOf(panelPath), [this](const ReadNews& news) { OnNews(news); },
      [this, panelPath](ProgramText program) { OnRead(panelPath, std::move(program)); });
}

void ProgramDesk::ShowSpot(const pnl::rig::ProgramSpot& spot) {
  const QString path = JoinPath(QString::fromStdU16String(spot.folder), QString::fromStdU16String(spot.file));
  // Names of files are compared as the control compares them.
  if (stored_ && !editor_.Opening() && path.compare(path_, Qt::CaseInsensitive) == 0) return Locate(spot);
  AskToDiscard([this, path, spot] {
    Load(path);
    spot_ = spot;
  });
}

void ProgramDesk::Locate(const pnl::rig::ProgramSpot& spot) {
  // The file is what the control has read, and counting the bytes of a big one takes its time.
  locator_.Run<int>(
      [read = SourceOf(path_), position = spot.position] {
        const ProgramText program = read({});
        return program.outcome == FileOutcome::kDone ? LineAt(program, position) : -1;
      },
      [this, path = path_, column = spot.span](int line) {
        if (path != path_ || editor_.Opening()) return;
        if (line < 0) return emit Said(Say(Word::kCannotOpen, path), true);
        editor_.MarkWord(line, column);
      });
}

void ProgramDesk::OnNews(const ReadNews& news) {
  constexpr qint64 kBig = qint64{1024} * 1024;
  editor_.ShowFirst(news.first);
  editor_.ShowReading(news.percent, news.bytes >= kBig);
}

void ProgramDesk::Refuse(const QString& panelPath, const ProgramText& program) {
  editor_.CancelOpening();
  if (program.outcome != FileOutcome::kTooBig) {
    emit Said(Say(WordFor(program.outcome)).arg(panelPath), true);
  } else if (IsNetworkPath(panelPath)) {
    emit Said(Say(Word::kTooBigOnNetwork).arg(panelPath, Megabytes(kMostProgramBytes)), true);
  } else {
    emit Said(Say(Word::kTooBig).arg(panelPath, Megabytes(program.bytes), Megabytes(kMostProgramBytes)), true);
  }
  Rest();
}

void ProgramDesk::OnRead(const QString& panelPath, ProgramText program) {
  if (program.outcome != FileOutcome::kDone) return Refuse(panelPath, program);
  editor_.Fill(program.text, panelPath, [this, panelPath, layout = std::move(program.layout)] {
    path_ = panelPath;
    stored_ = true;
    layout_ = layout;
    emit Said(Say(Word::kOpened, panelPath), false);
    if (const auto spot = std::exchange(spot_, std::nullopt)) Locate(*spot);
    Rest();
  });
}

void ProgramDesk::Store(const QString& panelPath) {
  if (IsNetworkPath(panelPath)) {
    emit Said(Say(Word::kNotOnNetwork, panelPath), true);
    return;
  }
  if (reader_.Working() || editor_.Opening()) {
    emit Said(Say(Word::kStillOpening), true);
    return;
  }
  if (editor_.Changing()) {
    emit Said(Say(Word::kStillChanging), true);
    return;
  }
  if (writer_.Working()) {
    storeNext_ = panelPath;
    return;
  }
  pnl::rig::Rig* rig = PnlRig();
  if (rig == nullptr) {
    emit Said(Say(Word::kCannotSave, panelPath), true);
    return;
  }
  writer_.Run<FileOutcome>([&storage = rig->Files(), host = resolve_(panelPath),
                            text = editor_.RawText()] { return WriteProgram(storage, host, text); },
                           [this, panelPath, revision = editor_.Revision()](FileOutcome outcome) {
                             OnWritten(panelPath, revision, outcome);
                           });
}

void ProgramDesk::OnWritten(const QString& panelPath, int revision, FileOutcome outcome) {
  if (outcome == FileOutcome::kDone) {
    path_ = panelPath;
    stored_ = true;
    layout_ = {};
    editor_.SetName(panelPath);
    // Text that was typed while the file was written isn't saved yet.
    if (editor_.Revision() == revision) editor_.SetSaved();
    emit Stored();
    emit Said(Say(Word::kSaved, panelPath), false);
  } else {
    emit Said(Say(WordFor(outcome), panelPath), true);
  }
  if (const QString next = std::exchange(storeNext_, QString()); !next.isEmpty()) return Store(next);
  Rest();
}

void ProgramDesk::Rest() {
  for (const auto& go : std::exchange(atRest_, {})) go();
}

std::optional<pnl::rig::ProgramSpot> ProgramDesk::CaretSpot() const {
  if (!stored_ || editor_.IsModified() || Working()) return std::nullopt;
  const QTextCursor caret = editor_.Edit().textCursor();
  qint64 position = layout_.markBytes;
  for (QTextBlock block = caret.document()->begin(); block != caret.block(); block = block.next()) {
    position += layout_.BytesOf(block.text()) + layout_.EndBytes(block.blockNumber());
  }
  const QString before = caret.block().text().left(caret.positionInBlock());
  const QString upToWord = before.left(before.lastIndexOf(QLatin1Char(' ')) + 1);
  pnl::rig::ProgramSpot spot;
  spot.folder = FolderAbove(path_).toStdU16String();
  spot.file = path_.section(QLatin1Char('\\'), -1).toStdU16String();
  spot.position = static_cast<std::int32_t>(position);
  spot.span = static_cast<std::int32_t>(upToWord.size());
  return spot;
}

}  // namespace panel
