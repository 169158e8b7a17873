// SPDX-License-Identifier: MIT
#include "explorer/xplr_list.h"

#include <algorithm>
#include <utility>

#include "explorer/xplr_sort.h"

namespace pnl {
namespace {

/// So many rows are sorted within the pause between two frames; more are sorted beside the window's thread.
constexpr std::size_t kSortedAtOnce = 3000;

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

}  // namespace

XplrLoadRequest XplrList::Request() const {
  const XplrState& state = links_.state;
  return {state.Path, state.Filter, state.IsFolderMode() ? ListFor::kFolders : ListFor::kFiles, sort_};
}

void XplrList::Clear() {
  ++loads_;
  links_.jobs.Drop(std::exchange(loading_, 0));
  selected_ = -1;
  rows_ = std::make_shared<const XplrRows>();
  links_.view().OnRowsReset(rows_);
}

void XplrList::Load(ListMode mode, std::function<void()> then) {
  loaded_ = true;
  Clear();
  const auto done = [this, then = std::move(then)] {
    links_.updateMenus();
    then();
  };
  if (mode == ListMode::kNothing || links_.state.Kind == NodeKind::kUnavailable) {
    done();
  } else {
    Start(mode, done);
  }
}

void XplrList::Start(ListMode mode, std::function<void()> then) {
  const auto show = [this, load = loads_](XplrRows rows) {
    if (load == loads_) Show(std::move(rows));
  };
  const auto work = [mode, request = Request(), reader = links_.places.Reader(), network = links_.network.Reader(), show,
                     then, load = loads_, steps = links_.jobs.Steps(), this](Job& job) {
    const auto partial = [&](XplrRows rows) {
      job.Post(steps([show, rows = std::move(rows)]() mutable { show(std::move(rows)); }));
      return !job.IsCancelled();
    };
    XplrRows rows = mode == ListMode::kShares ? LoadShares(*reader, *network, request)
                                              : LoadFolder(*reader, request, partial);
    if (job.IsCancelled()) return;
    job.Post(steps([this, show, then, load, rows = std::move(rows), sorted = request.sort]() mutable {
      if (load != loads_) return;
      loading_ = 0;
      show(std::move(rows));
      if (sorted != sort_) SortRowsNow();
      then();
    }));
  };
  const unsigned load = loads_;
  const JobId job = links_.jobs.Start(work);
  if (job == 0) {
    then();
  } else if (load == loads_ && links_.jobs.IsUnderWay(job)) {
    loading_ = job;
  }
}

/// The row that was selected stays selected.
void XplrList::Show(XplrRows rows) {
  const std::optional<std::uint32_t> index = Has(selected_) ? std::optional(At(selected_).index) : std::nullopt;
  rows_ = std::make_shared<const XplrRows>(std::move(rows));
  selected_ = RowOf(index);
  links_.view().OnRowsReset(rows_);
  if (selected_ < 0) return;
  links_.view().SelectRow(selected_);
  links_.view().ScrollToRow(selected_);
}

int XplrList::RowOf(std::optional<std::uint32_t> index) const {
  if (!index) return -1;
  const auto found =
      std::find_if(rows_->begin(), rows_->end(), [&](const XplrRow& row) { return row.index == *index; });
  return found == rows_->end() ? -1 : static_cast<int>(found - rows_->begin());
}

void XplrList::FirstFill(std::function<void()> then) {
  Load(ListMode::kFolder, [this, then = std::move(then)] {
    XplrState& state = links_.state;
    const bool treeDecides = state.IsFolderMode() && !state.Has(XPLR_LISTONLY);
    if (!treeDecides && state.File.empty()) {
      Take(0);
    } else if (!treeDecides) {
      const auto named = std::find_if(rows_->begin(), rows_->end(),
                                      [&](const XplrRow& row) { return EqualNoCase(row.name, state.File); });
      if (named != rows_->end()) {
        Take(static_cast<int>(named - rows_->begin()));
      } else {
        state.ResultFlags |= state.IsFolderMode() ? xplr_result::kElsewhere : xplr_result::kNoSuchRow;
      }
    }
    then();
  });
}

void XplrList::SortBy(int command) {
  sort_.SortBy(command);
  SortRowsNow();
}

void XplrList::OnHeaderClicked(int column) {
  if (column >= 0 && column <= 2) SortBy(xplr_command::kSortByName + column);
}

void XplrList::SortRowsNow() {
  // A load that is under way is sorted at its end.
  if (rows_->size() <= kSortedAtOnce) {
    XplrRows rows = *rows_;
    SortRows(rows, sort_);
    Show(std::move(rows));
    links_.updateMenus();
    return;
  }
  links_.jobs.Ask(
      [rows = rows_, sort = sort_] {
        XplrRows sorted = *rows;
        SortRows(sorted, sort);
        return sorted;
      },
      [this, of = rows_, sort = sort_](XplrRows sorted) {
        // Other rows have come, or another order was asked for.
        if (of == rows_ && sort == sort_) Show(std::move(sorted));
      });
  links_.updateMenus();
}

void XplrList::Take(int row) {
  if (!Has(row)) return;
  links_.view().SelectRow(row);
  OnRowSelected(row);
}

void XplrList::OnRowSelected(int row) {
  if (!Has(row)) return;
  selected_ = row;
  SyncNameFromSelection();
}

void XplrList::OnFocus() {
  if (selected_ < 0 && Has(0)) {
    selected_ = 0;
    links_.view().SelectRow(0);
    links_.view().ScrollToRow(0);
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
    selected_ = static_cast<int>(answer->row);
    links_.view().SelectRow(selected_);
    links_.view().ScrollToRow(selected_);
    SyncNameFromSelection();
  }
  links_.posts.Send(XplrWindow::kFind, XplrMessage::kFindResult, static_cast<std::intptr_t>(answer->result));
}

}  // namespace pnl
