// SPDX-License-Identifier: MIT
#include "ui/journal_keeper.h"

#include <QDateTime>
#include <QLineEdit>
#include <algorithm>
#include <utility>

#include "common/words.h"
#include "host/operator.h"
#include "host/tool_texts.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/question.h"

namespace panel {

JournalKeeper::JournalKeeper(const JournalParts& parts, JournalSetup setup, QObject* parent)
    : QObject(parent),
      parts_(parts),
      setup_(std::move(setup)),
      track_(parts.editor, parts.desk),
      disc_(std::make_shared<JournalDisc>(setup_.folder)) {
  clock_.start();
  timer_.setSingleShot(true);
  channelStatus_ = parts_.op.Machine().channelStatus;
  connect(&timer_, &QTimer::timeout, this, &JournalKeeper::Write);
  connect(&track_, &ProgramTrack::Changed, this, &JournalKeeper::Touch);
  connect(&parts_.session, &HostSession::ToolsChanged, this, &JournalKeeper::OnTools);
  connect(&parts_.session, &HostSession::MainMenuChanged, this, &JournalKeeper::Touch);
  connect(&parts_.session, &HostSession::SideMenuChanged, this, &JournalKeeper::Touch);
  connect(&parts_.op, &Operator::Changed, this, &JournalKeeper::OnMachine);
}

JournalKeeper::~JournalKeeper() {
  writer_.Finish();
  if (ended_) return;
  // Only what was taken back and never reached its tool stays for the next start; without it the journal is removed.
  JournalContents waiting;
  waiting.written = QDateTime::currentMSecsSinceEpoch();
  waiting.block = pendingBlock_;
  waiting.expression = pendingExpression_;
  (void)disc_->Write(waiting, std::nullopt);
}

void JournalKeeper::OnTools() {
  // The lines of a tool say themselves when they change, whoever changes them.
  for (const int tool : {PNL_TOOL_MDI, PNL_TOOL_CALCULATOR}) {
    const auto* widget = static_cast<const QWidget*>(PnlWidgetOf(parts_.session.ToolWindow(tool)));
    if (widget == nullptr) continue;
    for (const QLineEdit* line : widget->findChildren<QLineEdit*>()) {
      connect(line, &QLineEdit::textChanged, this, &JournalKeeper::Touch, Qt::UniqueConnection);
    }
  }
  // Queued, because the tool may still be opening.
  if (pendingBlock_ || !pendingExpression_.isEmpty()) {
    QMetaObject::invokeMethod(this, &JournalKeeper::PutBackPending, Qt::QueuedConnection);
  }
  Touch();
}

void JournalKeeper::PutBackPending() {
  if (pendingBlock_ && PutBack(parts_.session, *pendingBlock_)) pendingBlock_.reset();
  if (!pendingExpression_.isEmpty() && PutBackExpression(parts_.session, pendingExpression_)) {
    pendingExpression_.clear();
  }
}

void JournalKeeper::OnMachine() {
  const int status = parts_.op.Machine().channelStatus;
  // A block has begun or ended.
  if (std::exchange(channelStatus_, status) != status) WriteAtOnce();
}

void JournalKeeper::Touch() {
  if (ended_) return;
  again_ = true;
  Wait();
}

void JournalKeeper::Wait() { WaitUntil(std::max(Now() + kSoon, last_.value_or(-kInterval) + kInterval)); }

void JournalKeeper::WaitUntil(qint64 due) {
  if (writer_.Working() || (due_ && *due_ <= due)) return;
  due_ = due;
  if (!setup_.manualTime) timer_.start(static_cast<int>(std::max<qint64>(0, *due_ - Now())));
}

void JournalKeeper::Advance(qint64 milliseconds) {
  manualNow_ += milliseconds;
  if (due_ && manualNow_ >= *due_) Write();
}

void JournalKeeper::WriteAtOnce() {
  if (ended_) return;
  again_ = true;
  atOnce_ = writer_.Working();
  if (!atOnce_) Write();
}

JournalContents JournalKeeper::Collect(std::optional<QString>& copy) {
  JournalContents contents;
  contents.written = QDateTime::currentMSecsSinceEpoch();
  if (auto taken = track_.Take()) {
    contents.program = std::move(taken->program);
    copy = std::move(taken->copy);
  }
  contents.block = TypedBlock(parts_.session);
  if (!contents.block) contents.block = pendingBlock_;
  contents.expression = TypedExpression(parts_.session);
  if (contents.expression.isEmpty()) contents.expression = pendingExpression_;
  return contents;
}

void JournalKeeper::Write() {
  timer_.stop();
  due_.reset();
  if (ended_ || !std::exchange(again_, false)) return;
  rowsFailed_ = !StoreToolRows(parts_.session);
  std::optional<QString> copy;
  writing_ = Collect(copy);
  const bool copied = copy.has_value();
  if (writing_.SaysTheSameAs(kept_) && !tookBack_) return LookAtFailures();
  last_ = Now();
  // What this panel has taken back is in its own journal now, so the old one can go with it.
  const auto left = std::exchange(tookBack_, false) ? std::exchange(left_, nullptr) : nullptr;
  writer_.Run<JournalDisc::Written>(
      [disc = disc_, contents = writing_, copy = std::move(copy), left]() {
        const auto written = disc->Write(contents, copy);
        if (written.done && left) left->slot->Clear();
        return written;
      },
      [this, copied](const JournalDisc::Written& written) { OnWritten(written, copied); });
}

void JournalKeeper::OnWritten(const JournalDisc::Written& written, bool copied) {
  if (copied) track_.OnCopyWritten(written.copyHash);
  if (written.done) {
    kept_ = writing_;
    if (kept_.program && written.copyHash) kept_.program->baseHash = *written.copyHash;
  }
  fileFailed_ = !written.done;
  if (std::exchange(atOnce_, false)) return Write();
  if (again_) Wait();
  LookAtFailures();
}

void JournalKeeper::LookAtFailures() {
  const bool failed = fileFailed_ || rowsFailed_;
  if (failed && !warned_) parts_.op.SetHint(Say(Word::kJournalNotKept), true);
  warned_ = failed;
  if (!failed || again_) return;
  again_ = true;
  WaitUntil(Now() + kRetry);
}

void JournalKeeper::LeaveForNextStart() {
  if (std::exchange(ended_, true)) return;
  timer_.stop();
  due_.reset();
  writer_.Finish();
  std::optional<QString> copy;
  const JournalContents contents = Collect(copy);
  (void)disc_->Write(contents, copy);
}

// What a killed panel has left.

void JournalKeeper::Start() {
  finder_.Run<Found>(
      [folder = setup_.folder] { return std::make_shared<std::optional<LeftJournal>>(FindLeftJournal(folder)); },
      [this](const Found& found) { OnFound(found); });
}

void JournalKeeper::OnFound(const Found& found) {
  if (!*found) return;
  left_ = std::make_shared<LeftJournal>(std::move(**found));
  const auto& program = left_->contents.program;
  const QString file = program && !program->path.isEmpty() ? setup_.resolve(program->path) : QString();
  finder_.Run<LeftProgram>([left = left_, file] { return ProgramOf(*left, file); },
                           [this](const LeftProgram& left) { OnProgram(left); });
}

void JournalKeeper::OnProgram(const LeftProgram& program) {
  leftProgram_ = program;
  // It was saved just before the panel was killed.
  if (program.saved) left_->contents.program.reset();
  if (left_->contents.IsEmpty()) return Discard();
  AskAboutLeft();
}

void JournalKeeper::AskAboutLeft() {
  const JournalContents& contents = left_->contents;
  QStringList what;
  if (contents.program) {
    const QString& path = contents.program->path;
    what << (path.isEmpty() ? Say(Word::kLeftNewProgram) : Say(Word::kLeftProgram, path));
  }
  if (contents.block) {
    const bool line = contents.block->kind == JournalBlock::Kind::kLine;
    what << Say(line ? Word::kLeftBlock : Word::kLeftItem, contents.block->text);
  }
  if (!contents.expression.isEmpty()) what << Say(Word::kLeftExpression, contents.expression);
  const QString when = QDateTime::fromMSecsSinceEpoch(contents.written).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
  const QString text = Say(Word::kTakeBackAsked) + QChar(QChar::LineSeparator) +
                       what.join(QChar(QChar::LineSeparator)) + QChar(QChar::LineSeparator) +
                       Say(Word::kLeftSince, when);
  // Taking back is the careful answer: it loses nothing.
  parts_.question.Ask(text, {Say(Word::kDiscard), Say(Word::kTakeBack)}, [this](int index) {
    if (index == 0) return Discard();
    TakeBack();
  });
}

void JournalKeeper::Discard() {
  finder_.Run<bool>(
      [left = std::exchange(left_, nullptr)]() mutable {
        left->slot->Clear();
        left.reset();
        return true;
      },
      // Another panel may have left one, too.
      [this](bool) { Start(); });
}

void JournalKeeper::TakeBack() {
  TakeBackTexts();
  if (left_->contents.program) return TakeBackProgram();
  tookBack_ = true;
  WriteAtOnce();
}

void JournalKeeper::TakeBackTexts() {
  const JournalContents& contents = left_->contents;
  if (contents.expression.isEmpty() && !contents.block) return;
  pendingExpression_ = contents.expression;
  pendingBlock_ = contents.block;
  // If a tool can't open now, its text waits until it does.
  if (!pendingExpression_.isEmpty()) (void)parts_.op.OpenTool(PNL_TOOL_CALCULATOR);
  if (pendingBlock_) (void)parts_.op.OpenTool(PNL_TOOL_MDI);
  PutBackPending();
}

void JournalKeeper::TakeBackProgram() {
  // Something may have been typed already while the question was hidden. If the operator keeps that, the journal is
  // offered again at the next start.
  parts_.desk.AskToDiscard([this] {
    // Under its old name the rest of a program could be saved over the whole one.
    const QString path = leftProgram_.whole ? left_->contents.program->path : QString();
    parts_.desk.TakeBack(path, leftProgram_.text, [this] { OnProgramBack(); });
  });
}

void JournalKeeper::OnProgramBack() {
  track_.TreatAsNew();
  const JournalProgram& program = *left_->contents.program;
  QTextCursor caret = parts_.editor.Edit().textCursor();
  const qint64 last = parts_.editor.Edit().document()->characterCount() - 1;
  caret.setPosition(static_cast<int>(std::clamp<qint64>(leftProgram_.whole ? program.caret : 0, 0, last)));
  parts_.editor.Edit().setTextCursor(caret);
  parts_.editor.setFocus();
  if (!leftProgram_.whole) parts_.op.SetHint(Say(Word::kLeftBaseGone, program.path), true);
  leftProgram_ = {};
  tookBack_ = true;
  WriteAtOnce();
}

}  // namespace panel
