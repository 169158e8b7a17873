// SPDX-License-Identifier: MIT
// The question for name and password on a server of the network, a cover over the panel. It is asked by the library and
// answers it; the panel and the tools go on meanwhile. The password is hidden while it is typed, and gone from the
// cover once it is answered. Enter leads from field to field and answers in the last one; Escape refuses.
#pragma once

#include <QLineEdit>
#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

#include "ui/cover.h"

namespace panel {

class PanelKey;

class CredentialsCover : public Cover {
  Q_OBJECT

 public:
  /// The answer to a question: the library's PnlAnswerCredentials, or what a test puts in its place.
  using Answer = std::function<void(std::uint32_t request, const char16_t* user, const char16_t* domain,
                                    const char16_t* password)>;

  explicit CredentialsCover(QWidget* parent);
  /// If it was offered, questions that are open are refused.
  ~CredentialsCover() override;

  /// Lets the library ask this cover. There is one such cover at a time.
  void Offer();
  void SetAnswer(Answer answer) { answer_ = std::move(answer); }
  /// Asks. If a question is open already, this one waits for its turn. again: the last answer for the server was wrong;
  /// its name stays in the field.
  void Ask(std::uint32_t request, const QString& server, bool again);
  /// What the keys do.
  void Accept();
  void Leave() override;

  [[nodiscard]] bool IsOpen() const override { return !questions_.empty(); }
  /// Gives the keyboard to the first field that is empty.
  void FocusFirst();
  /// What is asked, and what was wrong; empty when nothing was.
  [[nodiscard]] QString Title() const;
  [[nodiscard]] QString Problem() const;
  enum Field { kUser, kDomain, kPassword, kFieldCount };
  [[nodiscard]] QLineEdit& Edit(Field field) const { return *fields_[field]; }
  [[nodiscard]] std::vector<PanelKey*> Keys() const { return {ok_, cancel_}; }
  void SetFontPixels(int pixels);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  [[nodiscard]] std::vector<QWidget*> TabOrder() const override;

 private:
  struct Question {
    std::uint32_t request;
    QString server;
    bool again;
  };
  void Show();
  void ShowWords();
  void Finish(bool accepted);
  void Place();

  Answer answer_;
  std::deque<Question> questions_;  // the first one is shown
  QString lastServer_;
  std::array<QLineEdit*, kFieldCount> fields_{};
  PanelKey* ok_;
  PanelKey* cancel_;
  bool offered_ = false;
  int fontPixels_ = 16;
};

}  // namespace panel
