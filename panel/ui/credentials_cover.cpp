// SPDX-License-Identifier: MIT
#include "ui/credentials_cover.h"

#include <pnltools/pnltools.h>

#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "common/words.h"
#include "ui/panel_key.h"
#include "ui/theme.h"

namespace panel {
namespace {

constexpr int kPad = 10;
/// More than any server takes.
constexpr int kMostCharacters = 127;
constexpr Word kLabels[CredentialsCover::kFieldCount] = {Word::kUserName, Word::kUserDomain, Word::kPassword};

void OnAsked(void* context, std::uint32_t request, const char16_t* server, int again) {
  static_cast<CredentialsCover*>(context)->Ask(request, QString::fromUtf16(server), again != 0);
}

/// Takes a text out of its field and out of the field's history.
std::u16string TakeText(QLineEdit& edit) {
  std::u16string text = edit.text().toStdU16String();
  edit.setText(QString());
  return text;
}

}  // namespace

CredentialsCover::CredentialsCover(QWidget* parent)
    : Cover(parent, Arrows::kUpDown),
      answer_(&PnlAnswerCredentials),
      ok_(new PanelKey(this)),
      cancel_(new PanelKey(this)) {
  setFocusPolicy(Qt::StrongFocus);
  for (int i = 0; i < kFieldCount; ++i) {
    auto* field = new QLineEdit(this);
    field->setMaxLength(kMostCharacters);
    connect(field, &QLineEdit::returnPressed, this, [this, i] {
      if (i == kPassword) return Accept();
      fields_[static_cast<std::size_t>(i) + 1]->setFocus();
    });
    fields_[static_cast<std::size_t>(i)] = field;
  }
  fields_[kPassword]->setEchoMode(QLineEdit::Password);
  ok_->SetTint(QColor(theme::kGreen));
  ok_->SetFilled(true);
  cancel_->SetKeyName(QStringLiteral("Esc"));
  connect(ok_, &PanelKey::clicked, this, &CredentialsCover::Accept);
  connect(cancel_, &PanelKey::clicked, this, &CredentialsCover::Leave);
  ShowWords();
  hide();
}

void CredentialsCover::ShowWords() {
  for (std::size_t i = 0; i < fields_.size(); ++i) fields_[i]->setAccessibleName(Say(kLabels[i]));
  ok_->setText(Say(Word::kConnect));
  cancel_->setText(Say(Word::kCancel));
  setAccessibleName(Title());
  setAccessibleDescription(Problem());
}

void CredentialsCover::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LanguageChange) ShowWords();
  QWidget::changeEvent(event);
}

CredentialsCover::~CredentialsCover() {
  if (offered_) PnlSetCredentialsAsker(nullptr, nullptr);
}

void CredentialsCover::Offer() {
  offered_ = true;
  PnlSetCredentialsAsker(&OnAsked, this);
}

void CredentialsCover::Ask(std::uint32_t request, const QString& server, bool again) {
  questions_.push_back({request, server, again});
  if (questions_.size() == 1) Show();
}

void CredentialsCover::Show() {
  const Question& question = questions_.front();
  // A name is kept for a second try only: another server may know others.
  if (!question.again || question.server != lastServer_) {
    for (QLineEdit* field : fields_) field->setText(QString());
  }
  lastServer_ = question.server;
  setAccessibleName(Title());
  setAccessibleDescription(Problem());
  Place();
  show();
  raise();
  update();
  FocusFirst();
}

void CredentialsCover::FocusFirst() { fields_[fields_[kUser]->text().isEmpty() ? kUser : kPassword]->setFocus(); }

void CredentialsCover::Accept() {
  // Without a name there is nobody to log on.
  if (fields_[kUser]->text().isEmpty()) return fields_[kUser]->setFocus();
  Finish(true);
}

void CredentialsCover::Leave() { Finish(false); }

void CredentialsCover::Finish(bool accepted) {
  if (!IsOpen()) return;
  const std::uint32_t request = questions_.front().request;
  questions_.pop_front();
  const std::u16string user = fields_[kUser]->text().toStdU16String();
  const std::u16string domain = fields_[kDomain]->text().toStdU16String();
  std::u16string password = TakeText(*fields_[kPassword]);
  const bool more = IsOpen();
  if (!more) hide();
  answer_(request, accepted ? user.c_str() : nullptr, domain.c_str(), password.c_str());
  std::fill(password.begin(), password.end(), u'\0');
  // A question that came with the answer shows itself, one that waited doesn't.
  if (more) Show();
}

QString CredentialsCover::Title() const {
  return IsOpen() ? Say(Word::kCredentialsAsked, questions_.front().server) : QString();
}

QString CredentialsCover::Problem() const {
  return IsOpen() && questions_.front().again ? Say(Word::kCredentialsWrong) : QString();
}

void CredentialsCover::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  for (QLineEdit* field : fields_) field->setFont(theme::MonoFont(pixels * 9 / 8));
  for (PanelKey* key : Keys()) key->SetFontPixels(pixels);
  Place();
}

void CredentialsCover::Place() {
  const int row = std::max(theme::TouchPixels(*this), fontPixels_ * 5 / 2);
  const int box = std::min(width() - 2 * kPad, fontPixels_ * 36);
  const int left = (width() - box) / 2;
  const int label = fontPixels_ * 9;
  int top = fontPixels_ * 6;
  for (QLineEdit* field : fields_) {
    field->setGeometry(left + label, top, box - label, row);
    top += row + kPad;
  }
  // The keys are below the fields, OK at the right, nearest to the thumb.
  const int half = (box - kPad) / 2;
  const int bottom = std::max(top, std::min(height() - kPad - row, top + row));
  cancel_->setGeometry(left, bottom, half, row);
  ok_->setGeometry(left + half + kPad, bottom, box - half - kPad, row);
}

void CredentialsCover::resizeEvent(QResizeEvent*) { Place(); }

void CredentialsCover::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(theme::kBackground));
  theme::DrawField(painter, rect(), QColor(theme::kBackground), QColor(theme::kAccent), 8);
  const int left = cancel_->x();
  const int box = ok_->geometry().right() + 1 - left;
  const int line = fontPixels_ * 5 / 2;
  theme::DrawParagraph(painter, QRect(left, kPad, box, line), Qt::AlignLeft | Qt::AlignVCenter, Title(),
                       theme::Font(fontPixels_ * 9 / 8, true), QColor(theme::kText));
  theme::DrawParagraph(painter, QRect(left, kPad + line, box, fields_[kUser]->y() - 2 * kPad - line),
                       Qt::AlignLeft | Qt::AlignVCenter, Problem(), theme::Font(fontPixels_), QColor(theme::kAmber));
  for (int i = 0; i < kFieldCount; ++i) {
    const QRect field = fields_[static_cast<std::size_t>(i)]->geometry();
    theme::DrawText(painter, QRect(left, field.top(), field.left() - left - kPad, field.height()),
                    Qt::AlignLeft | Qt::AlignVCenter, Say(kLabels[i]), theme::Font(fontPixels_), QColor(theme::kMuted));
  }
}

std::vector<QWidget*> CredentialsCover::TabOrder() const {
  return {fields_[kUser], fields_[kDomain], fields_[kPassword], cancel_, ok_};
}

}  // namespace panel
