// SPDX-License-Identifier: MIT
// The part of the session that handles the line: what buttons and characters write to it, its previews, and its
// confirmation. A preview works on a copy of the variables and changes only the status line and the note. The variables
// change only when a confirmation has ended. They don't change while it runs or if it is cancelled.
#include <algorithm>
#include <utility>

#include "calc/calc_ids.h"
#include "calc/calc_session.h"

namespace pnl {

namespace {

constexpr TextView kResultVariable = u"E.CALCRESUL";
constexpr std::size_t kLongestPreview = 199;

PreviewExtent ExtentOf(CalcTask task) {
  return task == CalcTask::kSelectionPreview ? PreviewExtent::kSelection : PreviewExtent::kLine;
}

}  // namespace

// The line.

/// The text of the line up to the first NUL, if there is one.
Text CalcSession::LineText() const {
  Text line = View().LineText();
  line.resize(std::min(line.find(u'\0'), line.size()));
  return line;
}

/// Replaces the line and puts the caret at its end.
void CalcSession::WriteLine(TextView text) {
  View().SetLineText(text);
  const int end = static_cast<int>(text.size());
  View().SetLineSelection({end, end});
}

/// Shows the line after a key. The limit is the same as for typing: if the new line is longer, nothing is changed. A
/// line that is already longer, for example a row of the history, must not become still longer.
void CalcSession::ShowEdit(const Text& line, const CalcEdit& edit) {
  if (edit.text.size() > std::max(line.size(), kLongestExpression)) return View().FocusLine();
  View().SetLineText(edit.text);
  View().FocusLine();
  View().SetLineSelection({edit.caret, edit.caret});
}

/// Inserts the text at the caret or in place of the selection.
void CalcSession::InsertText(TextView text) {
  const int caret = static_cast<int>(text.size());
  const Text line = View().LineText();
  ShowEdit(line, InsertPlainly(line, View().LineSelection(), text, caret));
}

void CalcSession::OnButton(int id) {
  if (id == calc_id::kShowBases) ToggleNote(CalcNote::kBases);
  if (id == calc_id::kShowSolver) ToggleNote(CalcNote::kSolver);
  // While a confirmation runs, nothing may change the line, the lists or the variables.
  if (run_.IsConfirming()) return;
  if (id == calc_id::kOpenList) ToggleHistory();
  if (id == calc_id::kShowVariables) ToggleVariables();
  if (id == calc_id::kConfirm) {
    CloseVariables();
    Confirm(CalcTask::kConfirm);
    View().FocusLine();
  }
  if (!IsInsertion(id)) return;
  CloseVariables();
  const Text line = View().LineText();
  ShowEdit(line, InsertAtCaret(line, View().LineSelection(), id));
}

bool CalcSession::OnCharacter(char16_t character) {
  if (run_.IsConfirming()) return true;
  // An open list uses the character to search for a row.
  if (openList_ != OpenList::kNone) return false;
  const auto command = CommandOfCharacter(character);
  if (command) OnButton(*command);
  return command.has_value();
}

void CalcSession::OnLineChanged() {
  if (run_.IsConfirming()) {
    // The line may change without a key of ours, by pasting or by a key that is held down. It must stay what is being
    // confirmed.
    const Text line = run_.Line();
    if (View().LineText() != line) WriteLine(line);
    return;
  }
  notes_.DropHint();
  PreviewLine();
}

void CalcSession::OnLinePressed() {
  if (run_.IsConfirming()) return;
  CloseHistory(Keep::kSelectedRow);
  CloseVariables();
}

void CalcSession::OnHandleValue() {
  if (run_.IsConfirming()) return;
  const ZCVariable handed(Context().cnc.Vars(), kResultVariable);
  double value = 0;
  if (!handed.IsValid() || handed.ReadDouble(value) != 0 || value == 0) return;
  WriteLine(FormatValue(value));
}

// Previews.

void CalcSession::PreviewLine() {
  const Text text = LineText().substr(0, kLongestPreview);
  if (!text.empty()) return Preview(text, CalcTask::kLinePreview);
  DropWork();
  previewValue_.reset();
  View().SetStatus(texts_.empty);
  RefreshNote();
}

/// Previews the selection. Returns false if nothing is selected in the part of the line that is previewed.
bool CalcSession::PreviewSelection() {
  const Text selected = SelectedText(LineText().substr(0, kLongestPreview), View().LineSelection());
  if (selected.empty()) return false;
  Preview(selected, CalcTask::kSelectionPreview);
  return true;
}

/// Previews the selection if there is one, else the line.
void CalcSession::RefreshPreview() {
  if (run_.IsConfirming()) return;
  if (!PreviewSelection()) PreviewLine();
}

/// Handles a tick of the timer: if the selection has changed since the last tick, makes a new preview.
void CalcSession::CompareSelection() {
  if (run_.IsConfirming()) return;
  Text selected = SelectedText(LineText(), View().LineSelection());
  if (selected == lastSelectedText_) return;
  RefreshPreview();
  lastSelectedText_ = std::move(selected);
}

void CalcSession::Preview(const Text& text, CalcTask task) {
  DropWork();
  auto work = std::make_unique<CalcWork>(SharedCalcStore());
  if (const auto place = work->Compile(text)) {
    View().SetStatus(SyntaxStatus(texts_, ExtentOf(task), text, *place));
    return RefreshNote();
  }
  work->Begin(radians_);
  if (StartWork(std::move(work), task, {})) return EndPreview();
  View().SetStatus(Context().language.LoadToolText(calc_id::kTextComputing));
  RefreshNote();
}

void CalcSession::EndPreview() {
  const CalcRun::Ended ended = run_.Take();
  const std::optional<double> value = ended.work->Finish();
  const PreviewExtent extent = ExtentOf(ended.task);
  if (value) previewValue_ = value;
  notes_.TakeReport(value ? ended.work->Solver() : SolverReport());
  View().SetStatus(value ? ValueStatus(texts_, extent, *value, numberBase_) : FailureStatus(texts_, extent));
  RefreshNote();
}

// Confirming.

/// Starts to confirm the line. If it doesn't compile, nothing changes: the status line already shows the failing place.
void CalcSession::Confirm(CalcTask task) {
  const Text line = LineText();
  auto work = std::make_unique<CalcWork>(SharedCalcStore());
  if (work->Compile(line)) return;
  work->Begin(radians_);
  if (StartWork(std::move(work), task, line)) return EndConfirm();
  View().SetStatus(Context().language.LoadToolText(calc_id::kTextConfirming));
}

void CalcSession::EndConfirm() {
  const CalcRun::Ended ended = run_.Take();
  const std::optional<double> value = ended.work->Finish();
  // This is done after a failure too: the assignments before the failure stay.
  ended.work->StoreTo(SharedCalcStore());
  if (!value) {
    View().SetStatus(ConfirmFailureStatus(texts_, ended.work->Description()));
    return RefreshNote();
  }
  value_ = *value;
  history_.NoteAdded(ended.line);
  View().SetResultText(FormatResult(value_, numberBase_));
  values_.Rows().Insert(0, value_);
  View().InsertListItem(0, ended.line);
  View().SetLineText({});
  // This comes after the change of the line, because that change drops the hint.
  notes_.TakeReport(ended.work->Solver());
  RefreshNote();
  if (ended.task == CalcTask::kConfirmAndClose) InsertAndClose();
}

/// Drops the confirmation. The line is previewed again.
void CalcSession::CancelConfirm() { PreviewLine(); }

void CalcSession::InsertAndClose() {
  ZCVariable result(Context().cnc.Vars(), kResultVariable);
  if (result.IsValid()) result.WriteDouble(value_);
  Close(PNL_CLOSED_ACCEPTED);
}

void CalcSession::OnInsert() {
  if (LineText().empty()) return InsertAndClose();
  Confirm(CalcTask::kConfirmAndClose);
}

// The running evaluation.

/// Starts an evaluation and computes its first steps. Returns true if it has ended with them. Else it goes on later.
bool CalcSession::StartWork(std::unique_ptr<CalcWork> work, CalcTask task, const Text& line) {
  DropWork();
  if (run_.Start(std::move(work), task, line)) return true;
  View().SetWorking(true);
  return false;
}

void CalcSession::DropWork() {
  if (!run_.IsRunning()) return;
  run_.Drop();
  View().SetWorking(false);
}

void CalcSession::Work() {
  if (!run_.Continue()) return;
  View().SetWorking(false);
  if (run_.IsConfirming()) {
    EndConfirm();
  } else {
    EndPreview();
  }
}

// The note.

void CalcSession::ToggleNote(CalcNote note) {
  notes_.Toggle(note);
  RefreshNote();
}

void CalcSession::CloseNote() {
  notes_.Close();
  RefreshNote();
}

void CalcSession::RefreshNote() {
  Text text = notes_.Words(Context().language, SharedCalcStore(), previewValue_.value_or(value_));
  if (text == shownNote_) return;
  shownNote_ = std::move(text);
  View().SetNote(shownNote_);
}

}  // namespace pnl
