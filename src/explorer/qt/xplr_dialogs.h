// SPDX-License-Identifier: MIT
// ZCFind and ZCFolder: the small dialogs over the explorer in which a text to search for, or a whole path, is typed.
// They are children of the frame, so that they need no window of the system, and end when the focus goes elsewhere.
// What a text or path leads to is not decided here.
#pragma once

#include "controls/limited_edit.h"
#include "window/qt/tool_window.h"

class QLineEdit;

namespace pnl {

/// A dialog with one edit.
class XplrDialog : public ToolDialog {
  Q_OBJECT

 public:
  /// fontHeight is that of the headings.
  XplrDialog(int mostCharacters, const QString& title, int fontHeight, QWidget* frame);

  /// Shows the dialog in front of the frame and gives it the focus.
  void Open(const QString& text);
  [[nodiscard]] QString Text() const;
  void TakeFocus();
  /// Ends the dialog: signals Closing, and is gone when control is back at the event loop. A second call does nothing.
  void Close();
  /// The handler of messages to the dialog.
  void SetMessageHandler(std::function<std::intptr_t(const Message&)> handler) { handler_ = std::move(handler); }

 signals:
  /// The dialog is going; its text can still be asked for.
  void Closing();
  /// After a key that changed or may have changed the text.
  void Typed();

 protected:
  /// A key-down before the edit sees it. True consumes it.
  virtual bool OnKey(int key) = 0;
  std::intptr_t OnMessage(const Message& message) override { return handler_ ? handler_(message) : 0; }
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  /// Tab stays in the edit, which is all that the dialog has.
  bool focusNextPrevChild(bool /*next*/) override { return true; }
  void SetText(const QString& text);

 private:
  QLineEdit* edit_;
  bool closing_ = false;  // m_bClosing
  std::function<std::intptr_t(const Message&)> handler_;
};

class ZCFind : public XplrDialog {
  Q_OBJECT

 public:
  ZCFind(const QString& title, int fontHeight, QWidget* frame) : XplrDialog(100, title, fontHeight, frame) {}

 signals:
  /// One of the keys that search; the others are typed.
  void SearchKey(int key);

 protected:
  bool OnKey(int key) override;
};

class ZCFolder : public XplrDialog {
  Q_OBJECT

 public:
  ZCFolder(const QString& title, int fontHeight, QWidget* frame) : XplrDialog(kLongestPath, title, fontHeight, frame) {}
  /// The path that Enter took; empty before, and after Escape.
  [[nodiscard]] QString Folder() const { return m_Folder; }

 protected:
  bool OnKey(int key) override;

 private:
  static constexpr int kLongestPath = 32767;
  QString m_Folder;
};

}  // namespace pnl
