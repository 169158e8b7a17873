// SPDX-License-Identifier: MIT
// Refuses what must not be typed into a cell or a data field: what its number format doesn't allow, and what its owner
// doesn't. A text that was there from the start may be against the rules; the operator can then only delete from it.
#pragma once

#include <QtGui/QValidator>
#include <functional>
#include <optional>

#include "controls/number_format.h"

namespace pnl {

/// Whether an owner accepts a typed text.
using TextCheck = std::function<bool(const QString&)>;

class EntryValidator : public QValidator {
  Q_OBJECT

 public:
  using QValidator::QValidator;

  void SetFormat(std::optional<NumberFormat> format) { format_ = format; }
  void SetCheck(TextCheck check) { check_ = std::move(check); }
  /// The text with which an edit begins.
  void SetStart(const QString& start) { start_ = start; }
  /// Whether the text may be stored.
  [[nodiscard]] bool Accepts(const QString& text) const;

  /// Acceptable: may be stored. Intermediate: may be typed. Invalid: is refused.
  [[nodiscard]] State validate(QString& text, int& caret) const override;

 private:
  std::optional<NumberFormat> format_;
  TextCheck check_;
  QString start_;
};

}  // namespace pnl
