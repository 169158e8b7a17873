// SPDX-License-Identifier: MIT
#include "zmc/qt/zmc_main_tab.h"

#include <QtGui/QPainter>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QAbstractItemView>
#include <algorithm>
#include <utility>

#include "controls/fonts.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_rect.h"
#include "window/qt/qt_text.h"
#include "zmc/qt/zmc_look.h"

namespace pnl {
namespace {

namespace id = zmc_control;

constexpr std::uint32_t kLeft = 0x8864;
constexpr std::uint32_t kCentre = 0x8865;
constexpr int kFirstPicture = 3100;
constexpr int kLineUnits = 13;
constexpr int kTitleUnits = 16;
constexpr int kSmallestFont = 11;
constexpr int kLabelMargin = 4;  // what a label leaves around its text
constexpr int kWeight = 500;
constexpr int kBold = 700;
constexpr int kGridRows = 5;
constexpr int kGridColumns = 4;

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
      blurMessage_(RegisterMessage("ZWCEDIT_KILLFOCUS")) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  // To whoever looks from outside, the page's controls are the frame's.
  setProperty(property::kWindow, QVariant());
  for (const ZmcControlPlace& place : ControlsOf(ZmcTab::kMain)) Make(place);
  cells_ = std::make_unique<ZmcGridAdapter>(*grid_);
}

ZCTabZMCMain::~ZCTabZMCMain() { EndMessages(); }

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
      made = new ZmcPowerBar(place.id, this);
      break;
  }
  controls_[place.id] = made;
}

QWidget* ZCTabZMCMain::MakeLabel(int control) {
  auto* label = new ZWCStatic(control, context_.timers, context_.files, this);
  const Color back = control == id::kLine ? zmc_color::kLine : IsOnBand(control) ? zmc_color::kBand : zmc_look::kPage;
  label->SetColors(back, control == id::kTitle ? zmc_look::kTitleText : zmc_look::kLabelText, false);
  label->SetFormat(control == id::kTitle ? kCentre : kLeft);
  const DialogTemplate* dialog = context_.language.Dialog(DialogOf(ZmcTab::kMain));
  const DialogControl* own = dialog != nullptr ? dialog->Find(control) : nullptr;
  if (own != nullptr) label->SetTextW(ToQString(own->text), false);
  return label;
}

QWidget* ZCTabZMCMain::MakeBox(int control, bool typed) {
  auto* box = new ZmcBox(control, typed, this);
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
  auto* line = new ZWCEdit(control, context_.windows, Handle(), this);
  line->SetNormalColors(zmc_look::kFieldBack, zmc_look::kFieldText, false);
  line->SetFocusColors(zmc_look::kFocusBack, zmc_look::kFocusText, false);
  return line;
}

QWidget* ZCTabZMCMain::MakePicture(int control, CMultistatic::Face face) {
  auto* picture = new CMultistatic(control, face, this);
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
  auto* field = new ZCDatoWrap(control, this);
  field->SetColors(zmc_look::kFieldBack, zmc_look::kFieldText);
  connect(field, &ZCDatoWrap::Changed, this, [this, control] { emit FieldChanged(control); });
  return field;
}

QWidget* ZCTabZMCMain::MakeGrid(int control) {
  grid_ = new ZCGridXWrap(control, this);
  grid_->Cells().SetRows(kGridRows);
  grid_->Cells().SetColumns(kGridColumns);
  grid_->SetColors(zmc_color::kGrid[0], zmc_color::kGrid[1], zmc_color::kGrid[2]);
  return grid_;
}

// What the logic reads and writes.

QWidget* ZCTabZMCMain::Control(int control) const {
  const auto found = controls_.find(control);
  return found != controls_.end() ? found->second : nullptr;
}

Text ZCTabZMCMain::ControlText(int control) const {
  if (const auto* field = ControlAs<ZCDatoWrap>(control)) return FromQString(field->Written());
  if (const auto* line = ControlAs<QLineEdit>(control)) return FromQString(line->text());
  if (const auto* box = ControlAs<QComboBox>(control)) return FromQString(box->currentText());
  if (const auto* label = ControlAs<ZWCStatic>(control)) return FromQString(label->WindowText());
  return {};
}

void ZCTabZMCMain::SetControlText(int control, TextView text) {
  const QString shown = ToQString(text);
  if (auto* field = ControlAs<ZCDatoWrap>(control)) {
    field->SetText(shown);
  } else if (auto* line = ControlAs<QLineEdit>(control)) {
    line->setText(shown);
    // A line that nobody types in shows its beginning.
    if (!line->hasFocus()) line->setCursorPosition(0);
  } else if (auto* box = ControlAs<QComboBox>(control)) {
    if (box->isEditable()) box->lineEdit()->setText(shown);
  } else if (auto* label = ControlAs<ZWCStatic>(control)) {
    if (label->WindowText() == shown) return;
    label->SetTextW(shown, true);
    FitLabel(control, *label);
  }
}

std::vector<QWidget*> ZCTabZMCMain::KeyReceivers() const {
  std::vector<QWidget*> receivers;
  for (const auto& [control, widget] : controls_) {
    if (control == id::kGrid) continue;  // it has a hook of its own
    receivers.push_back(widget);
    if (auto* box = qobject_cast<QComboBox*>(widget)) {
      receivers.push_back(box->view());
      if (box->lineEdit() != nullptr) receivers.push_back(box->lineEdit());
    }
  }
  return receivers;
}

std::intptr_t ZCTabZMCMain::OnMessage(const Message& message) {
  if (message.number == focusMessage_ || message.number == blurMessage_) {
    emit LineFocused(static_cast<int>(message.first), message.number == focusMessage_);
  }
  return 0;
}

// Layout.

void ZCTabZMCMain::resizeEvent(QResizeEvent* event) {
  MessageWindow::resizeEvent(event);
  Place();
}

void ZCTabZMCMain::Place() {
  const DialogTemplate* dialog = context_.language.Dialog(DialogOf(ZmcTab::kMain));
  const ZmcPage page = PageOf(ZmcTab::kMain, dialog, width(), height());
  const int font = page.FontHeight(kLineUnits);
  for (const ZmcControlPlace& place : ControlsOf(ZmcTab::kMain)) {
    Rect units = UnitsOf(place, dialog);
    // A list's height is that of the open list; closed it is a line.
    if (place.kind == ZmcControlKind::kListBox || place.kind == ZmcControlKind::kToolBox) {
      units.bottom = units.top + kLineUnits + 1;
    }
    QWidget* control = controls_.at(place.id);
    const QRect pixels = ToQRect(page.Pixels(units));
    control->setGeometry(pixels);
    if (auto* label = qobject_cast<ZWCStatic*>(control)) {
      FitLabel(place.id, *label);
    } else {
      SetControlFont(control, font);
    }
    if (place.kind == ZmcControlKind::kGrid) PlaceGrid(pixels);
  }
  // The fields lie on the left edges of their units.
  for (const auto& [field, unit] : {std::pair(id::kF, id::kFUnit), std::pair(id::kS, id::kSUnit)}) {
    controls_.at(field)->raise();
    const int covered = controls_.at(field)->geometry().right() + 1 - controls_.at(unit)->x();
    ControlAs<ZmcBox>(unit)->SetTextIndent(std::max(0, covered));
  }
}

void ZCTabZMCMain::SetControlFont(QWidget* control, int height) {
  const QString face = QStringLiteral("Arial");
  if (auto* field = qobject_cast<ZCDatoWrap*>(control)) {
    field->SetFont(face, height, kWeight);
  } else if (auto* line = qobject_cast<ZWCEdit*>(control)) {
    line->SetFont(face, height, kWeight);
  } else if (auto* grid = qobject_cast<ZCGridXWrap*>(control)) {
    grid->SetFont(face, height, kWeight);
  } else if (const auto font = MakeFont(face, height, kWeight)) {
    control->setFont(*font);
  }
}

/// Gives a label the largest font up to its page's in which its text fits; a text that fits in none is cut.
void ZCTabZMCMain::FitLabel(int control, ZWCStatic& label) const {
  const bool title = control == id::kTitle;
  const int weight = title || control == id::kBandTitle ? kBold : kWeight;
  const DialogTemplate* dialog = context_.language.Dialog(DialogOf(ZmcTab::kMain));
  int height = PageOf(ZmcTab::kMain, dialog, width(), this->height()).FontHeight(title ? kTitleUnits : kLineUnits);
  const QString face = QStringLiteral("Arial");
  const QString text = label.WindowText();
  for (; height > kSmallestFont && !text.isEmpty(); --height) {
    const auto font = MakeFont(face, height, weight);
    if (font && QFontMetrics(*font).horizontalAdvance(text) + kLabelMargin <= label.width()) break;
  }
  label.SetFont(face, height, weight);
  label.update();
}

/// The names take two fifths of the width, the values share the rest.
void ZCTabZMCMain::PlaceGrid(const QRect& place) {
  const int frame = 2 * grid_->frameWidth();
  const int names = (place.width() - frame) * 2 / 5;
  const int value = (place.width() - frame - names) / (kGridColumns - 1);
  grid_->SetColumnWidth(0, place.width() - frame - value * (kGridColumns - 1));
  for (int col = 1; col < kGridColumns; ++col) grid_->SetColumnWidth(col, value);
  const int row = (place.height() - frame) / kGridRows;
  grid_->SetRowHeight(0, place.height() - frame - row * (kGridRows - 1));
  for (int line = 1; line < kGridRows; ++line) grid_->SetRowHeight(line, row);
}

void ZCTabZMCMain::paintEvent(QPaintEvent* event) { QPainter(this).fillRect(event->rect(), ToQColor(zmc_look::kPage)); }

}  // namespace pnl
