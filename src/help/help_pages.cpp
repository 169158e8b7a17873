// SPDX-License-Identifier: MIT
// The part of the session that works in an open manual: rows and lines, the search, and the pages that are shown.
#include <utility>

#include "base/format.h"
#include "help/help_ids.h"
#include "help/help_session.h"

namespace pnl {

// Rows and lines.

void HelpSession::OnLineChanged(HelpPart line) {
  if (line != HelpPart::kIndexLine || m_hHelp == nullptr) return;
  View().SelectRow(HelpPart::kIndexList, TypedRow(m_hHelp->index, View().LineText(line)));
}

void HelpSession::OnLineEntered(HelpPart line) {
  if (m_hHelp == nullptr) return;
  if (line == HelpPart::kFindLine) return OnFindKey(false);
  if (line == HelpPart::kIndexLine) return OnRowChosen(HelpPart::kIndexList, View().SelectedRow(HelpPart::kIndexList));
  if (line != HelpPart::kSearchLine) return;
  // A second Enter opens the row that the arrow keys have selected.
  const bool again = !m_hHelp->results.empty() && View().LineText(line) == m_hHelp->query;
  if (again) return OnRowChosen(HelpPart::kResults, View().SelectedRow(HelpPart::kResults));
  RunSearch();
}

void HelpSession::OnRowChosen(HelpPart list, int row) {
  if (m_hHelp == nullptr || row < 0) return;
  const auto at = static_cast<std::size_t>(row);
  if (list == HelpPart::kContents && at < m_hHelp->contents.size()) return ShowAt(m_hHelp->contents[at].place);
  if (list == HelpPart::kIndexList && at < m_hHelp->index.size()) return ShowAt(m_hHelp->index[at].place);
  if (list == HelpPart::kResults && at < m_hHelp->results.size()) ShowAt({m_hHelp->results[at].page, {}});
}

// The search.

void HelpSession::OnSearchKey() {
  if (m_hHelp == nullptr) return;
  Search();
}

void HelpSession::Search() {
  RunSearch();
  TidyResults();
}

void HelpSession::RunSearch() {
  HelpFrame& frame = *m_hHelp;
  frame.query = View().LineText(HelpPart::kSearchLine);
  frame.results.clear();
  frame.waitsForIndex = frame.book == nullptr || !frame.book->CanSearch();
  if (!frame.waitsForIndex) {
    for (SearchRow& row : frame.book->Find(frame.query)) {
      const auto data = static_cast<std::intptr_t>(frame.results.size());
      frame.results.push_back({std::move(row.title), std::move(row.page), data});
    }
  }
  View().SetResults(frame.results);
  if (frame.waitsForIndex) return View().SetSearchStatus(TextOf(help_text::kIndexing));
  View().SetSearchStatus(frame.results.empty()
                             ? Format(TextOf(help_text::kNothingFound), frame.query)
                             : Format(TextOf(help_text::kFound), static_cast<std::int64_t>(frame.results.size())));
}

void HelpSession::TidyResults() {
  if (m_hHelp == nullptr || m_hHelp->results.empty()) return;
  std::vector<ResultRow>& results = m_hHelp->results;
  const std::vector<ResultRow> before = results;
  SortResults(results);
  if (results != before) View().SetResults(results);
  if (View().SelectedRow(HelpPart::kResults) < 0) View().SelectRow(HelpPart::kResults, 0);
}

// Pages.

void HelpSession::ShowAt(const ManualPlace& place) {
  if (Book() == nullptr || place.page.empty()) return;
  // A copy: the page comes back as an event.
  const ManualPlace shown = place;
  if (!View().ShowPage(Book()->Pages(), shown.page, shown.anchor)) {
    SetPageNote(Format(TextOf(help_text::kNoPage), shown.page));
  }
}

void HelpSession::OnPageShown(TextView page, TextView anchor) {
  if (Book() == nullptr || page.empty()) return;
  const HelpFrame& frame = *m_hHelp;
  const Text known = Book()->TitleOf(page);
  const Text title = known.empty() ? Text(page) : known;
  recent_.Add({frame.path, Text(page), Text(anchor), Format(u"%s - %s", title, Book()->Title())});
  View().SelectRow(HelpPart::kContents, ContentsRowOf(frame.contents, page, anchor));
  SetPageNote({});
}

void HelpSession::OnPageRefused(TextView reference) {
  if (m_hHelp != nullptr) SetPageNote(Format(TextOf(help_text::kNoAddress), reference));
}

void HelpSession::SetPageNote(Text note) {
  if (m_hHelp == nullptr) return;
  m_hHelp->pageNote = std::move(note);
  ShowNotes();
}

void HelpSession::ShowNotes() {
  const HelpFrame& frame = *m_hHelp;
  const bool both = !frame.damagedNote.empty() && !frame.pageNote.empty();
  View().ShowNote(frame.damagedNote + (both ? u"\n" : u"") + frame.pageNote);
}

}  // namespace pnl
