// SPDX-License-Identifier: MIT
#include "ui/panel_parts.h"

#include <utility>

#include "host/host_session.h"
#include "host/operator.h"
#include "ui/axis_display.h"
#include "ui/credentials_cover.h"
#include "ui/error_list.h"
#include "ui/first_start.h"
#include "ui/message_zone.h"
#include "ui/operator_keys.h"
#include "ui/password_box.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/question.h"
#include "ui/readings.h"
#include "ui/reserved_row.h"
#include "ui/soft_key_bar.h"
#include "ui/status_strip.h"
#include "ui/touch_keyboard.h"
#include "ui/undo_offer.h"

namespace panel {

PanelParts::PanelParts(QWidget& window, HostSession& session, Operator& op, PathResolver resolve)
    : status_(new StatusStrip(&window)),
      readings_(new Readings(&window)),
      axes_(new AxisDisplay(&window)),
      modal_(new ModalLine(&window)),
      toolArea_(new QWidget(&window)),
      editor_(new ProgramEditor(toolArea_)),
      sideBar_(new SoftKeyBar(Qt::Vertical, kSideKeys, &SideKey, &window)),
      zone_(new MessageZone(&window)),
      mainBar_(new SoftKeyBar(Qt::Horizontal, kMainKeys, &MainKey, &window)),
      row_(new ReservedRow(&window)),
      keys_(new OperatorKeys(&window)),
      question_(new Question(&window)),
      password_(new PasswordBox(&window)),
      desk_(new ProgramDesk(*editor_, op.Files(), *question_, std::move(resolve), &window)),
      errorList_(new ErrorListCover(op.Desk(), &window)),
      credentials_(new CredentialsCover(&window)),
      first_(new FirstStart(&window)),
      undo_(new UndoOffer(session, &window)),
      touchKeys_(new TouchKeyboard(&window)) {}

std::array<Cover*, 5> PanelParts::Covers() const { return {question_, password_, credentials_, errorList_, first_}; }

}  // namespace panel
