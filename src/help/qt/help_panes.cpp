// SPDX-License-Identifier: MIT
#include "help/qt/help_panes.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>
#include <iterator>

#include "help/help_ids.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr std::pair<int, int> kTabs[] = {{help_id::kContentsTab, help_text::kContents},
                                         {help_id::kIndexTab, help_text::kIndex},
                                         {help_id::kSearchTab, help_text::kSearch}};
constexpr int kIndentBlanks = 4;
/// A deeper row isn't shown further to the right.
constexpr int kMostIndents = 6;

template <typename Layout>
Layout* Tight(Layout* layout) {
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(help_look::kGap);
  return layout;
}

}  // namespace

HelpPanes::HelpPanes(const Language& language, const HelpScale& scale, QWidget* parent)
    : QWidget(parent),
      contents(new HelpTree(help_id::kContents, scale, this)),
      indexLine(MakeHelpLine(help_id::kIndexLine, scale, this)),
      indexList(MakeHelpList(help_id::kIndexList, scale, this)),
      searchLine(MakeHelpLine(help_id::kSearchLine, scale, this)),
      searchKey(
          new HelpKeyButton(help_id::kSearchKey, ToQString(language.LoadToolText(help_text::kFind)), scale, this)),
      results(MakeHelpList(help_id::kResults, scale, this)),
      status_(new QLabel(this)),
      stack_(new QStackedWidget(this)) {
  auto* column = Tight(new QVBoxLayout(this));
  auto* row = Tight(new QHBoxLayout);
  for (std::size_t i = 0; i < tabs.size(); ++i) {
    tabs[i] = new HelpKeyButton(kTabs[i].first, ToQString(language.LoadToolText(kTabs[i].second)), scale, this);
    row->addWidget(tabs[i], 1);
  }
  column->addLayout(row);
  column->addWidget(stack_, 1);

  stack_->addWidget(contents);
  auto* index = new QWidget(this);
  auto* indexColumn = Tight(new QVBoxLayout(index));
  indexColumn->addWidget(indexLine);
  indexColumn->addWidget(indexList, 1);
  stack_->addWidget(index);

  auto* search = new QWidget(this);
  auto* searchColumn = Tight(new QVBoxLayout(search));
  auto* searchRow = Tight(new QHBoxLayout);
  searchRow->addWidget(searchLine, 1);
  searchRow->addWidget(searchKey);
  searchKey->GiveFocusTo(searchLine);
  searchColumn->addLayout(searchRow);
  searchColumn->addWidget(status_);
  searchColumn->addWidget(results, 1);
  stack_->addWidget(search);

  MarkControl(status_, help_id::kSearchStatus, control_kind::kStatic);
  status_->setTextFormat(Qt::PlainText);
  status_->setWordWrap(true);
  status_->setFont(scale.MakeText());
  SetStatus({});
  ShowPane(HelpPane::kContents);
}

void HelpPanes::ShowPane(HelpPane pane) {
  const auto shown = static_cast<std::size_t>(pane);
  stack_->setCurrentIndex(static_cast<int>(shown));
  for (std::size_t i = 0; i < tabs.size(); ++i) tabs[i]->SetChosen(i == shown);
}

void HelpPanes::SetIndex(const std::vector<HelpRow>& rows) {
  TextRows items;
  for (const HelpRow& row : rows) {
    items.push_back(Text(static_cast<std::size_t>(std::min(row.depth, kMostIndents) * kIndentBlanks), u' ') + row.text);
  }
  indexList->SetItems(std::move(items));
}

void HelpPanes::SetResults(const std::vector<ResultRow>& rows) {
  TextRows items;
  for (const ResultRow& row : rows) items.push_back(row.title);
  results->SetItems(std::move(items));
}

void HelpPanes::SetStatus(const QString& text) {
  status_->setText(text);
  status_->setProperty("pnlText", text);
  status_->setVisible(!text.isEmpty());
}

}  // namespace pnl
