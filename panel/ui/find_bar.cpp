// SPDX-License-Identifier: MIT
#include "ui/find_bar.h"

#include <QPainter>
#include <algorithm>

#include "common/words.h"
#include "ui/panel_key.h"
#include "ui/program_search.h"
#include "ui/theme.h"

namespace panel {

FindBar::FindBar(ProgramSearch& search, QWidget* parent)
    : EditorBar(parent),
      search_(search),
      what_(AddField(Word::kFind)),
      with_(AddField(Word::kReplaceWith)),
      previous_(AddArrowKey(Qt::UpArrow, Word::kFindPrevious)),
      next_(AddArrowKey(Qt::DownArrow, Word::kFindNext)),
      case_(AddKey(Word::kCase)),
      close_(AddKey(Word::kClose)),
      replace_(AddKey(Word::kReplace)),
      all_(AddKey(Word::kReplaceAll)) {
  case_->setCheckable(true);
  ShowWords();
  connect(what_, &QLineEdit::textChanged, this, &FindBar::Look);
  connect(what_, &BarField::Entered, this, [this](bool back) { back ? search_.Previous() : search_.Next(); });
  connect(with_, &BarField::Entered, this, [this] { search_.Replace(with_->text()); });
  connect(next_, &PanelKey::clicked, &search_, &ProgramSearch::Next);
  connect(previous_, &PanelKey::clicked, &search_, &ProgramSearch::Previous);
  connect(case_, &PanelKey::clicked, this, [this] {
    case_->setChecked(!case_->isChecked());
    Look();
  });
  connect(close_, &PanelKey::clicked, this, &FindBar::LeaveWanted);
  connect(replace_, &PanelKey::clicked, this, [this] { search_.Replace(with_->text()); });
  connect(all_, &PanelKey::clicked, this, [this] { search_.ReplaceAll(with_->text()); });
  connect(&search_, &ProgramSearch::Changed, this, &FindBar::UpdateKeys);
  UpdateKeys();
}

void FindBar::ShowWords() {
  EditorBar::ShowWords();
  case_->setAccessibleName(Say(Word::kMatchCase));
  case_->SetTip(Say(Word::kMatchCase));
}

void FindBar::Begin(bool replace, const QString& what) {
  replaces_ = replace;
  if (!what.isEmpty() && what != what_->text()) {
    what_->setText(what);
  } else if (search_.What().isEmpty()) {
    Look();
  }
  what_->selectAll();
  what_->setFocus();
  with_->setVisible(replace);
  replace_->setVisible(replace);
  all_->setVisible(replace);
  Place();
}

void FindBar::Leave() { search_.Look({}, false); }

void FindBar::Look() { search_.Look(what_->text(), case_->isChecked()); }

void FindBar::UpdateKeys() {
  const bool some = search_.Count() > 0 && !search_.Replacing();
  next_->setEnabled(some);
  previous_->setEnabled(some);
  replace_->setEnabled(some);
  // What waits for the end of the search may be asked for before.
  all_->setEnabled(some);
  update();
}

QString FindBar::CountText() const {
  if (search_.What().isEmpty()) return {};
  if (search_.Searching()) return Say(Word::kSearching, QStringLiteral("%1 %").arg(search_.Percent()));
  if (search_.Count() == 0) return Say(Word::kNotFound);
  const QString count = QString::number(search_.Count());
  if (search_.Current() == 0) return Say(Word::kFoundCount, count);
  return Say(Word::kFoundAt).arg(QString::number(search_.Current()), count);
}

QRect FindBar::CountPlace() const {
  const QRect row = Row(0);
  const int width = std::min(row.width() / 4, FontPixels() * 9);
  return {previous_->x() - kGap - width, row.top(), width, row.height()};
}

void FindBar::Place() {
  PlaceAtRight(0, {previous_, next_, case_, close_});
  const QRect first = Row(0);
  what_->setGeometry(first.left(), first.top(), std::max(0, CountPlace().left() - kGap - first.left()), first.height());
  const QRect second = Row(1);
  const int right = PlaceAtRight(1, {replace_, all_});
  with_->setGeometry(second.left(), second.top(), std::max(0, right - kGap - second.left()), second.height());
  update();
}

void FindBar::paintEvent(QPaintEvent* event) {
  EditorBar::paintEvent(event);
  QPainter painter(this);
  const QString text = CountText();
  const QRect place = CountPlace();
  const QFont font = theme::FittingFont(text, place.width(), FontPixels() * 7 / 8, 9, true);
  const bool none = !search_.What().isEmpty() && !search_.Searching() && search_.Count() == 0;
  theme::DrawText(painter, place, Qt::AlignCenter, text, font, QColor(none ? theme::kAmber : theme::kText));
}

}  // namespace panel
