// SPDX-License-Identifier: MIT
#include "ui/program_track.h"

#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>

#include "ui/program_desk.h"
#include "ui/program_editor.h"

namespace panel {
namespace {

QString WithLineFeeds(QString text) { return text.replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n')); }

}  // namespace

ProgramTrack::ProgramTrack(ProgramEditor& editor, ProgramDesk& desk, QObject* parent)
    : QObject(parent), editor_(editor), desk_(desk) {
  // Saved, but typed in meanwhile: the file is no longer the base.
  connect(&desk_, &ProgramDesk::Stored, this, [this] {
    if (editor_.IsModified()) TreatAsNew();
  });
  // Each program that is opened has a document of its own.
  connect(&editor_, &ProgramEditor::Replaced, this, &ProgramTrack::Follow);
  Follow();
}

void ProgramTrack::Follow() {
  if (document_) document_->disconnect(this);
  document_ = editor_.Edit().document();
  connect(document_, &QTextDocument::contentsChange, this, &ProgramTrack::OnContents);
  connect(document_, &QTextDocument::modificationChanged, this, &ProgramTrack::OnModified);
  edits_.Reset(Length());
  OnModified(document_->isModified());
}

// A document ends with a separator that isn't part of the text.
qint64 ProgramTrack::Length() const { return editor_.Edit().document()->characterCount() - 1; }

void ProgramTrack::OnContents(int at, int removed, int added) {
  if (editor_.Filling()) return;
  const qint64 length = Length();
  const qint64 gone = std::clamp<qint64>(removed, 0, std::max<qint64>(0, edits_.Length() - at));
  const qint64 come = std::clamp<qint64>(added, 0, std::max<qint64>(0, length - at));
  if (come > kMostTyped || edits_.Length() - gone + come != length) {
    TreatAsNew();
    return;
  }
  QTextCursor cursor(editor_.Edit().document());
  cursor.setPosition(at);
  cursor.setPosition(at + static_cast<int>(come), QTextCursor::KeepAnchor);
  edits_.Replace(at, gone, WithLineFeeds(cursor.selectedText()));
  emit Changed();
}

void ProgramTrack::OnModified(bool modified) {
  // A program without changes is its file.
  if (!modified) {
    hasher_.Drop();
    hash_.reset();
    baseLength_ = Length();
    edits_.Reset(baseLength_);
    base_ = JournalProgram::Base::kFile;
    if (baseLength_ > kWhole) {
      hasher_.Run<quint64>([text = editor_.RawText()] { return HashOf(text); }, [this](quint64 hash) { hash_ = hash; });
    }
  }
  emit Changed();
}

void ProgramTrack::TreatAsNew() {
  hasher_.Drop();
  hash_.reset();
  base_ = JournalProgram::Base::kNone;
  edits_.Reset(Length());
  emit Changed();
}

JournalProgram ProgramTrack::Whole() const {
  JournalProgram program;
  program.path = desk_.Path();
  program.caret = editor_.Edit().textCursor().position();
  return program;
}

std::optional<ProgramTrack::Taken> ProgramTrack::Take() {
  if (!editor_.IsModified() || editor_.Filling()) return std::nullopt;
  Taken taken{Whole(), std::nullopt};
  if (Length() <= kWhole) {
    const QString text = editor_.Text();
    if (!text.isEmpty()) taken.program.pieces.push_back({0, 0, text});
    return taken;
  }
  const bool small = edits_.Typed() <= kMostTyped && edits_.Pieces().size() <= kMostPieces;
  // The path is asked for only here: it may be set after the program has arrived.
  const bool hasFile = base_ != JournalProgram::Base::kFile || !desk_.Path().isEmpty();
  if (base_ == JournalProgram::Base::kNone || !hasFile || !hash_ || !small) return Copied();
  taken.program.base = base_;
  taken.program.copy = copy_;
  taken.program.baseLength = baseLength_;
  taken.program.baseHash = *hash_;
  taken.program.pieces = edits_.Pieces();
  return taken;
}

ProgramTrack::Taken ProgramTrack::Copied() {
  hasher_.Drop();
  hash_.reset();
  base_ = JournalProgram::Base::kCopy;
  // The last copy stays until the journal refers to the new one.
  copy_ = 1 - copy_;
  baseLength_ = Length();
  edits_.Reset(baseLength_);
  Taken taken{Whole(), editor_.RawText()};
  taken.program.base = base_;
  taken.program.copy = copy_;
  taken.program.baseLength = baseLength_;
  taken.program.pieces = edits_.Pieces();
  return taken;
}

void ProgramTrack::OnCopyWritten(std::optional<quint64> hash) {
  // The program may have been saved meanwhile.
  if (base_ != JournalProgram::Base::kCopy) return;
  hash_ = hash;
  if (hash) return;
  base_ = JournalProgram::Base::kNone;
  // The journal may refer to the other copy, so the next one must not take its place.
  copy_ = 1 - copy_;
}

}  // namespace panel
