// SPDX-License-Identifier: MIT
#include "ui/error_list_model.h"

#include <QDateTime>
#include <algorithm>
#include <utility>

#include "common/words.h"
#include "ui/error_indicator.h"
#include "ui/theme.h"

namespace panel {
namespace {

QDateTime LocalTime(ErrorTime time) {
  const auto since = std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch());
  return QDateTime::fromMSecsSinceEpoch(since.count());
}

QString IdOf(const ErrorHistory::Summary& error) {
  const QString number = QString::number(error.identifier);
  return error.module.empty() ? number : QString::fromStdU16String(error.module) + QLatin1Char('-') + number;
}

QString ParametersOf(const ErrorHistory::Summary& error) {
  QStringList values;
  for (const std::u16string& value : error.parameters) values << QString::fromStdU16String(value).trimmed();
  return values.join(QStringLiteral(", "));
}

QString Joined(const QStringList& parts) { return parts.join(QStringLiteral("  ·  ")); }

/// What became of a row's errors, with counts when there are several.
QString FatesOf(const ErrorRow& row) {
  QStringList fates;
  const auto add = [&](int count, Word one, Word several) {
    if (count > 1) fates << Say(several, QString::number(count));
    if (count == 1) fates << (row.times > 1 ? QStringLiteral("1 ") : QString()) + Say(one);
  };
  add(static_cast<int>(row.standing.size()), Word::kErrorStanding, Word::kErrorsStanding);
  add(row.acknowledged, Word::kErrorAcknowledged, Word::kErrorsAcknowledged);
  add(row.confirmed, Word::kErrorConfirmed, Word::kErrorsConfirmed);
  add(row.cleared, Word::kErrorCleared, Word::kErrorsCleared);
  return fates.join(QStringLiteral(", "));
}

constexpr std::pair<std::int32_t, Word> kSources[] = {
    {0, Word::kSourceControl},       {1, Word::kSourceProgram},  {2, Word::kSourcePreparation},
    {3, Word::kSourcePartner},       {9, Word::kSourceScript},   {10, Word::kSourcePlc},
    {11, Word::kSourceControl},      {12, Word::kSourceControl}, {13, Word::kSourceDrive},
    {14, Word::kSourceUnknownDrive}, {15, Word::kSourceControl}, {16, Word::kSourceDriveBus},
    {17, Word::kSourceFieldBus},     {19, Word::kSourceCanOpen},
};

}  // namespace

QString NameOfSource(std::int32_t source) {
  for (const auto& [number, word] : kSources) {
    if (number == source) return Say(word);
  }
  return QString::number(source);
}

QString TextOfTime(ErrorTime time, ErrorTime now) {
  const QDateTime local = LocalTime(time);
  const bool today = local.date() == LocalTime(now).date();
  return local.toString(today ? QStringLiteral("HH:mm:ss") : QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

ErrorRowText TextOfRow(const ErrorRow& row, ErrorTime now) {
  const ErrorHistory::Summary& error = row.error;
  const ErrorKind kind = error.errorClass;
  QString text = QString::fromStdU16String(error.text).simplified();
  const QString source = Say(Word::kErrorSource, NameOfSource(error.source));
  const QString id = Say(Word::kErrorId, IdOf(error));
  QStringList parameters;
  if (!error.parameters.empty()) parameters << Say(Word::kErrorParameters, ParametersOf(error));
  QStringList details;
  if (error.channel > 0) details << Say(Word::kErrorChannel, QString::number(error.channel));
  if (text.isEmpty()) {
    text = Joined(QStringList{Say(Word::kErrorWithoutText), source, id} + parameters);
  } else {
    details << source;
  }
  if (error.program) details << Say(Word::kErrorProgram, QString::fromStdU16String(error.program->file));
  if (row.times > 1) {
    details << Say(Word::kErrorTimes).arg(QString::number(row.times), TextOfTime(row.first, now));
  }
  details << FatesOf(row);
  return {TextOfTime(row.last, now), QStringLiteral("%1 %2").arg(NameOfKind(kind)).arg(error.number), text,
          Joined(details), theme::FromColorRef(ColorOfKind(kind))};
}

QStringList NotesOf(const ErrorHistory& history) {
  QStringList notes;
  if (const auto flood = history.Flood()) notes << Say(Word::kErrorFlood, QString::number(*flood));
  const QString left = QString::number(history.Dropped());
  if (history.DroppedInQueue() > 0) {
    notes << Say(Word::kErrorsLeftOutStanding).arg(left, QString::number(history.DroppedInQueue()));
  } else if (history.Dropped() > 0) {
    notes << Say(Word::kErrorsLeftOut, left);
  }
  return notes;
}

void ErrorListModel::Take(const ErrorHistory& history, ErrorTime now) {
  beginResetModel();
  rows_.clear();
  ids_.clear();
  errors_.clear();
  for (const ErrorRow& row : history.Rows()) {
    rows_.push_back(TextOfRow(row, now));
    ids_.push_back(row.id);
    errors_.push_back(row.error);
  }
  endResetModel();
}

int ErrorListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ErrorListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const ErrorRowText& row = rows_[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      return row.text;
    case Qt::AccessibleTextRole:
      return QStringList{row.time, row.name, row.text, row.details}.join(QLatin1Char(' '));
    case kTimeRole:
      return row.time;
    case kNameRole:
      return row.name;
    case kDetailsRole:
      return row.details;
    case kColorRole:
      return row.color;
    default:
      return {};
  }
}

int ErrorListModel::RowOf(std::int64_t id) const {
  const auto found = std::find(ids_.begin(), ids_.end(), id);
  return found == ids_.end() ? -1 : static_cast<int>(found - ids_.begin());
}

std::int64_t ErrorListModel::IdAt(int row) const {
  return row >= 0 && row < rowCount() ? ids_[static_cast<std::size_t>(row)] : 0;
}

const ErrorHistory::Summary* ErrorListModel::ErrorAt(int row) const {
  return row >= 0 && row < rowCount() ? &errors_[static_cast<std::size_t>(row)] : nullptr;
}

}  // namespace panel
