// SPDX-License-Identifier: MIT
// The parts of the panel's window: its widgets and the program's desk. PanelParts makes them and gives access to them.
// PanelWindow places and connects them, and deletes them with its other children.
#pragma once

#include <array>

#include "host/file_request.h"

class QWidget;

namespace panel {

class AxisDisplay;
class Cover;
class CredentialsCover;
class ErrorListCover;
class FirstStart;
class HostSession;
class MessageZone;
class ModalLine;
class Operator;
class OperatorKeys;
class PasswordBox;
class ProgramDesk;
class ProgramEditor;
class Question;
class Readings;
class ReservedRow;
class SoftKeyBar;
class StatusStrip;
class TouchKeyboard;
class UndoOffer;

class PanelParts {
 public:
  [[nodiscard]] SoftKeyBar& MainBar() const { return *mainBar_; }
  [[nodiscard]] SoftKeyBar& SideBar() const { return *sideBar_; }
  [[nodiscard]] OperatorKeys& Keys() const { return *keys_; }
  [[nodiscard]] ReservedRow& Row() const { return *row_; }
  [[nodiscard]] MessageZone& Zone() const { return *zone_; }
  [[nodiscard]] StatusStrip& Status() const { return *status_; }
  [[nodiscard]] Readings& ReadingsShown() const { return *readings_; }
  [[nodiscard]] AxisDisplay& Axes() const { return *axes_; }
  [[nodiscard]] ProgramEditor& Editor() const { return *editor_; }
  [[nodiscard]] ErrorListCover& ErrorsShown() const { return *errorList_; }
  [[nodiscard]] Question& Asking() const { return *question_; }
  [[nodiscard]] PasswordBox& Password() const { return *password_; }
  [[nodiscard]] CredentialsCover& CredentialsAsked() const { return *credentials_; }
  [[nodiscard]] FirstStart& First() const { return *first_; }
  [[nodiscard]] ProgramDesk& Desk() const { return *desk_; }
  [[nodiscard]] UndoOffer& Undo() const { return *undo_; }
  [[nodiscard]] TouchKeyboard& TouchKeys() const { return *touchKeys_; }

 protected:
  /// window is the parent of all parts. session and op must outlive it.
  PanelParts(QWidget& window, HostSession& session, Operator& op, PathResolver resolve);
  /// Everything that is shown as a cover over the tools and the program.
  [[nodiscard]] std::array<Cover*, 5> Covers() const;

  StatusStrip* status_;
  Readings* readings_;
  AxisDisplay* axes_;
  ModalLine* modal_;
  QWidget* toolArea_;
  ProgramEditor* editor_;
  SoftKeyBar* sideBar_;
  MessageZone* zone_;
  SoftKeyBar* mainBar_;
  ReservedRow* row_;
  OperatorKeys* keys_;
  Question* question_;
  PasswordBox* password_;
  ProgramDesk* desk_;
  ErrorListCover* errorList_;
  CredentialsCover* credentials_;
  FirstStart* first_;
  UndoOffer* undo_;
  TouchKeyboard* touchKeys_;
};

}  // namespace panel
