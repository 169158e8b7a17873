// SPDX-License-Identifier: MIT
#include "explorer/xplr_list.h"

#include <algorithm>
#include <utility>

#include "explorer/xplr_sort.h"

namespace pnl {
namespace {

/// So many rows are sorted or destroyed within the pause between two frames; more are beside the window's thread.
constexpr std::size_t kDoneAtOnce = 3000;

class Names final : public SearchRows {
 public:
  Names(const XplrRows& rows, int selected) : rows_(rows), selected_(selected) {}
  [[nodiscard]] std::size_t Count() const override { return rows_.size(); }
  [[nodiscard]] TextView Name(std::size_t row) const override { return rows_[row].name; }
  [[nodiscard]] std::optional<std::size_t> Selected() const override {
    return selected_ < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(selected_));
  }

 private:
  const XplrRows& rows_;
  const int selected_;
};

bool IsSameEntry(const XplrRow& a, const XplrRow& b) { return a.flags == b.flags && a.name == b.name; }

/// How many rows of the same entry were added before it: a file may be in the list more than once.
std::ptrdiff_t TurnOf(const XplrRow& row, const XplrRows& rows) {
  return std::count_if(rows.begin(), rows.end(),
                       [&](const XplrRow& other) { return IsSameEntry(other, row) && other.index < row.index; });
}

template <typename IsIt>
int PlaceOf(const XplrRows& rows, IsIt isIt) {
  const auto found = std::find_if(rows.begin(), rows.end(), isIt);
  return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

/// Where a row is in another list of the same folder, in which its index may be another; -1 when it isn't there.
int PlaceInOther(const XplrRows& others, const XplrRow& row, const XplrRows& rows) {
  const std::ptrdiff_t turn = TurnOf(row, rows);
  return PlaceOf(others,
                 [&](const XplrRow& other) { return IsSameEntry(other, row) && TurnOf(other, others) == turn; });
}

/// Where a row is in another order of the same list.
int PlaceInOrder(const XplrRows& sorted, const XplrRow& row) {
  return PlaceOf(sorted, [&](const XplrRow& other) { return other.index == row.index; });
}

}  // namespace

XplrLoadRequest XplrList::Request() const {
  const XplrState& state = links_.state;
  return {state.Path, state.Filter, state.IsFolderMode() ? ListFor::kFolders : ListFor::kFiles, sort_};
}

XplrList::Ended XplrList::Empty() {
  links_.jobs.Drop(loading_);
  SetLoading(0);
  Show({}, -1);
  return std::exchange(ended_, {});
}

void XplrList::Clear() {
  if (const Ended dropped = Empty()) dropped(false);
}

void XplrList::Load(ListMode mode, Ended ended) {
  loaded_ = true;
  const Ended dropped = Empty();
  ended_ = std::move(ended);
  if (mode == ListMode::kNothing || links_.state.Kind == NodeKind::kUnavailable) {
    EndLoad();
  } else {
    Start(mode);
  }
  if (dropped) dropped(false);
}

void XplrList::Start(ListMode mode) {
  // Whatever touches the list is in a step: the work itself runs on another thread.
  const auto work = [this, mode, patience = patience_, request = Request(), reader = links_.places.Reader(),
                     network = links_.network.Reader(), steps = links_.jobs.Steps()](Job& job) {
    const XplrProgress progress{[&job] { return !job.IsCancelled(); },
                                [&](XplrRows rows) {
                                  job.Post(steps([this, rows = std::move(rows), sorted = request.sort]() mutable {
                                    ShowLoaded(std::move(rows), sorted);
                                  }));
                                },
                                patience};
    XplrRows rows = mode == ListMode::kShares ? LoadShares(*reader, *network, request, progress)
                                              : LoadFolder(*reader, request, progress);
    job.Post(steps([this, rows = std::move(rows), sorted = request.sort]() mutable {
      SetLoading(0);
      ShowLoaded(std::move(rows), sorted);
      EndLoad();
    }));
  };
  const JobId job = links_.jobs.Start(work);
  if (job == 0) {
    EndLoad();
  } else if (links_.jobs.IsUnderWay(job)) {
    SetLoading(job);
  }
}

void XplrList::SetLoading(JobId job) {
  const bool before = IsLoading();
  loading_ = job;
  if (IsLoading() != before) links_.loading(IsLoading());
}

void XplrList::EndLoad() {
  links_.updateMenus();
  if (const Ended ended = std::exchange(ended_, {})) ended(true);
  if (std::exchange(focusWaits_, false) && links_.view().FocusedControl() == xplr_control::kList) OnFocus();
}

void XplrList::ShowLoaded(XplrRows rows, const SortState& sorted) {
  const int selected = Has(selected_) ? PlaceInOther(rows, At(selected_), *rows_) : -1;
  Show(std::move(rows), selected);
  if (sorted != sort_) SortRowsNow();
}

void XplrList::Show(XplrRows rows, int selected) {
  selected_ = selected;
  auto before = std::exchange(rows_, std::make_shared<const XplrRows>(std::move(rows)));
  links_.view().OnRowsReset(rows_);
  // To destroy the names of many rows takes longer than the pause between two frames.
  if (before->size() > kDoneAtOnce) links_.jobs.Start([gone = std::move(before)](Job&) mutable { gone.reset(); });
  if (selected_ >= 0) {
    links_.view().SelectRow(selected_);
    links_.view().ScrollToRow(selected_);
  } else {
    EndTyping();
  }
  links_.selected();
}

void XplrList::FirstFill(std::function<void()> then) {
  Load(ListMode::kFolder, [this, wanted = links_.state.File, then = std::move(then)](bool rowsCame) {
    if (rowsCame) SelectFirst(wanted);
    then();
  });
}

void XplrList::SelectFirst(const Text& wanted) {
  XplrState& state = links_.state;
  const bool treeDecides = state.IsFolderMode() && !state.Has(XPLR_LISTONLY);
  if (treeDecides || selected_ >= 0 || state.File != wanted) return;
  if (wanted.empty()) {
    Take(0);
    return;
  }
  const auto named =
      std::find_if(rows_->begin(), rows_->end(), [&](const XplrRow& row) { return EqualNoCase(row.name, wanted); });
  if (named != rows_->end()) {
    Take(static_cast<int>(named - rows_->begin()));
  } else {
    state.ResultFlags |= state.IsFolderMode() ? xplr_result::kElsewhere : xplr_result::kNoSuchRow;
  }
}

void XplrList::SortBy(int command) {
  EndTyping();
  sort_.SortBy(command);
  SortRowsNow();
  links_.updateMenus();
}

void XplrList::OnHeaderClicked(int column) {
  if (column >= 0 && column <= 2) SortBy(xplr_command::kSortByName + column);
}

void XplrList::SortRowsNow() {
  const auto work = [rows = rows_, sort = sort_] {
    XplrRows sorted = *rows;
    SortRows(sorted, sort);
    return sorted;
  };
  const auto show = [this, of = std::weak_ptr(rows_), sort = sort_](XplrRows sorted) {
    // Other rows have come, or another order was asked for.
    if (of.lock() != rows_ || sort != sort_) return;
    const int selected = Has(selected_) ? PlaceInOrder(sorted, At(selected_)) : -1;
    Show(std::move(sorted), selected);
  };
  if (rows_->size() <= kDoneAtOnce || links_.jobs.Ask(work, show) == 0) show(work());
}

void XplrList::Take(int row) {
  if (!Has(row)) return;
  links_.view().SelectRow(row);
  OnRowSelected(row);
}

void XplrList::OnRowSelected(int row) {
  if (!Has(row)) return;
  EndTyping();
  selected_ = row;
  SyncNameFromSelection();
  links_.selected();
}

void XplrList::GoTo(int row) {
  selected_ = row;
  links_.view().SelectRow(row);
  links_.view().ScrollToRow(row);
  SyncNameFromSelection();
  links_.selected();
}

void XplrList::OnTyped(TextView letters) {
  const auto row = typed_.Add(letters, *rows_);
  if (!row) return;
  GoTo(static_cast<int>(*row));
  links_.view().MarkTyped(typed_.Letters().size());
}

void XplrList::OnBackspace() {
  if (typed_.Letters().empty()) return;
  if (const auto row = typed_.TakeBack(*rows_)) GoTo(static_cast<int>(*row));
  links_.view().MarkTyped(typed_.Letters().size());
}

void XplrList::EndTyping() {
  if (typed_.Letters().empty()) return;
  typed_.Clear();
  links_.view().MarkTyped(0);
}

void XplrList::OnFocus() {
  focusWaits_ = IsLoading() && rows_->empty();
  if (focusWaits_) return;
  if (selected_ < 0 && Has(0)) {
    selected_ = 0;
    links_.view().SelectRow(0);
    links_.view().ScrollToRow(0);
    links_.selected();
  }
  SyncNameFromSelection();
}

void XplrList::OnClick(int row) {
  if (Has(row) && row != selected_) Take(row);
  links_.view().FocusControl(xplr_control::kList);
}

void XplrList::OnDoubleClick(int row) {
  XplrState& state = links_.state;
  if (state.FindDialog != 0) {
    links_.view().FocusDialog();
  } else if (!Has(row)) {
    links_.view().FocusControl(xplr_control::kList);
  } else if (row != selected_) {
    OnClick(row);
  } else if (At(row).IsFolder()) {
    if (state.Has(XPLR_LISTONLY)) return;
    state.File = At(row).name;
    links_.posts.Post(XplrWindow::kForm, XplrMessage::kUpdateTree);
  } else if (At(row).IsSelectable()) {
    links_.view().PostEnter();
  }
}

void XplrList::SyncNameFromSelection() {
  if (!loaded_) return;
  XplrState& state = links_.state;
  if (Has(selected_) && At(selected_).IsSelectable()) {
    state.File = At(selected_).name;
  } else {
    state.File.clear();
  }
  links_.posts.SendCaption(state.Caption(state.File));
}

void XplrList::SearchList(bool forward) {
  const auto answer = pnl::SearchList(Names(*rows_, selected_), search_, forward);
  if (!answer) return;
  if (answer->result == FindResult::kFound) {
    EndTyping();
    GoTo(static_cast<int>(answer->row));
  }
  links_.posts.Send(XplrWindow::kFind, XplrMessage::kFindResult, static_cast<std::intptr_t>(answer->result));
}

}  // namespace pnl
