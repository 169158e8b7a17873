// SPDX-License-Identifier: MIT
#include "zmc/qt/zmc_main_tab.h"

#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"
#include "zmc/qt/zmc_look.h"

namespace pnl {
namespace {

namespace id = zmc_control;

constexpr std::uint32_t kLeft = 0x8864;
constexpr std::uint32_t kCentre = 0x8865;
constexpr int kFirstPicture = 3100;

bool IsOnBand(int control) {
  switch (control) {
    case id::kBandTitle:
    case id::kFLabel:
    case id::kSLabel:
    case id::kPowerLabel:
    case id::kPercent:
    case id::kDmcLabel:
    case id::kReasonOption:
    case id::kReasonDrive:
    case id::kReasonSpindle:
    case id::kReasonTool:
    case id::kFCheck:
    case id::kSCheck:
    case id::kDmcCheck:
    case id::kDmcOffCheck:
      return true;
    default:
      return false;
  }
}

}  // namespace

ZCTabZMCMain::ZCTabZMCMain(const ToolContext& context, QWidget* frame)
    : MessageWindow(frame),
      context_(context),
      focusMessage_(RegisterMessage("ZWCEDIT_SETFOCUS")),
      blurMessage_(RegisterMessage("ZWCEDIT_KILLFOCUS")),
      area_(new ZmcPageArea(this)),
      sheet_(area_->widget()) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  // The page isn't a window of its own to a script: its controls are found in the frame.
  setProperty(property::kWindow, QVariant());
  for (const ZmcControlPlace& place : ControlsOf(ZmcTab::kMain)) Make(place);
  cells_ = std::make_unique<ZmcGridAdapter>(*grid_);
  connect(grid_, &ZCGridXWrap::Moved, area_, [this] { ShowFocused(); });
  connect(qApp, &QApplication::focusChanged, area_, [this] { ShowFocused(); });
}

ZCTabZMCMain::~ZCTabZMCMain() {
  // The controls are destroyed after this object and may lose the focus then.
  qApp->disconnect(area_);
  grid_->disconnect(area_);
  EndMessages();
}

void ZCTabZMCMain::Make(const ZmcControlPlace& place) {
  QWidget* made = nullptr;
  switch (place.kind) {
    case ZmcControlKind::kLabel:
      made = MakeLabel(place.id);
      break;
    case ZmcControlKind::kListBox:
      made = MakeBox(place.id, false);
      break;
    case ZmcControlKind::kToolBox:
      made = MakeBox(place.id, true);
      break;
    case ZmcControlKind::kLine:
      made = MakeLine(place.id);
      break;
    case ZmcControlKind::kCheckBox:
      made = MakePicture(place.id, CMultistatic::Face::kCheckBox);
      break;
    case ZmcControlKind::kPicture:
      made = MakePicture(place.id, CMultistatic::Face::kPicture);
      break;
    case ZmcControlKind::kBand:
      made = MakePicture(place.id, CMultistatic::Face::kBand);
      break;
    case ZmcControlKind::kGrid:
      made = MakeGrid(place.id);
      break;
    case ZmcControlKind::kDataField:
      made = MakeDataField(place.id);
      break;
    case ZmcControlKind::kBar:
      made = new ZmcPowerBar(place.id, sheet_);
      break;
  }
  controls_[place.id] = made;
}

QWidget* ZCTabZMCMain::MakeLabel(int control) {
  auto* label = new ZWCStatic(control, context_.timers, context_.files, sheet_);
  const Color back = control == id::kLine ? zmc_color::kLine : IsOnBand(control) ? zmc_color::kBand : zmc_look::kPage;
  // The dimmer colour of the labels can't be read on the band.
  const bool bright = control == id::kTitle || IsOnBand(control);
  label->SetColors(back, bright ? zmc_look::kTitleText : zmc_look::kLabelText, false);
  label->SetFormat(control == id::kTitle ? kCentre : kLeft);
  const DialogTemplate* dialog = context_.language.Dialog(DialogOf(ZmcTab::kMain));
  const DialogControl* own = dialog != nullptr ? dialog->Find(control) : nullptr;
  if (own != nullptr) label->SetTextW(ToQString(own->text), false);
  return label;
}

QWidget* ZCTabZMCMain::MakeBox(int control, bool typed) {
  auto* box = new ZmcBox(control, typed, sheet_);
  StyleBox(*box);
  // The last signal of a selection: a listener may destroy the box.
  connect(box, &QComboBox::textActivated, this, [this, control] { emit ListSelected(control); });
  if (typed) {
    connect(box->lineEdit(), &QLineEdit::textEdited, this, &ZCTabZMCMain::ToolTyped);
    connect(box, &ZmcBox::LineLeft, this, &ZCTabZMCMain::ToolLeft);
  }
  return box;
}

QWidget* ZCTabZMCMain::MakeLine(int control) {
  auto* line = new ZWCEdit(control, context_.windows, Handle(), sheet_);
  line->SetNormalColors(zmc_look::kFieldBack, zmc_look::kFieldText, false);
  line->SetFocusColors(zmc_look::kFocusBack, zmc_look::kFocusText, false);
  return line;
}

QWidget* ZCTabZMCMain::MakePicture(int control, CMultistatic::Face face) {
  auto* picture = new CMultistatic(control, face, sheet_);
  switch (control) {
    case id::kBand:
      picture->SetBackColor(zmc_color::kBand);
      break;
    case id::kInnerBand:
      picture->SetBackColor(zmc_color::kInnerBand);
      break;
    default:
      picture->SetBackColor(IsOnBand(control) ? zmc_color::kBand : zmc_look::kPage);
  }
  if (face == CMultistatic::Face::kPicture) {
    const Language& language = context_.language;
    picture->SetPictures([&language](int state) { return language.Bitmap(kFirstPicture + state); });
  }
  connect(picture, &CMultistatic::Changed, this, [this, control] { emit CheckChanged(control); });
  return picture;
}

QWidget* ZCTabZMCMain::MakeDataField(int control) {
  auto* field = new ZCDatoWrap(control, sheet_);
  field->SetColors(zmc_look::kFieldBack, zmc_look::kFieldText);
  connect(field, &ZCDatoWrap::Changed, this, [this, control] { emit FieldChanged(control); });
  return field;
}

QWidget* ZCTabZMCMain::MakeGrid(int control) {
  grid_ = new ZCGridXWrap(control, sheet_);
  grid_->Cells().SetRows(kZmcGridRows + 1);
  grid_->Cells().SetColumns(kZmcGridColumns + 1);
  return grid_;
}

std::intptr_t ZCTabZMCMain::OnMessage(const Message& message) {
  if (message.number == focusMessage_ || message.number == blurMessage_) {
    emit LineFocused(static_cast<int>(message.first), message.number == focusMessage_);
  }
  return 0;
}

void ZCTabZMCMain::paintEvent(QPaintEvent* event) { QPainter(this).fillRect(event->rect(), ToQColor(zmc_look::kPage)); }

}  // namespace pnl
