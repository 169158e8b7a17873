// SPDX-License-Identifier: MIT
#include "explorer/qt/xplr_form.h"

#include <QtCore/QPointer>
#include <QtGui/QResizeEvent>

#include "window/qt/control_properties.h"
#include "window/qt/qt_rect.h"

namespace pnl {
namespace {

const QString kFace = QStringLiteral("Arial");
constexpr int kWeight = 600;
constexpr int kLongestName = 256;
constexpr std::uint32_t kLeft = 0x8864;
constexpr std::uint32_t kRight = 0x8866;
constexpr Color kFrame = 12569043;
constexpr Color kBack = 8621463;
constexpr Color kWhite = 0xffffff;
constexpr Color kBlack = 0;
constexpr Color kNameBack = 10595253;
constexpr Color kNameBackFocus = 660510;

}  // namespace

ZCEdit::ZCEdit(int id, WindowSystem& windows, WindowHandle form, QWidget* parent) : ZWCEdit(id, windows, form, parent) {
  SetNormalColors(kNameBack, kBlack, false);
  SetFocusColors(kNameBackFocus, kWhite, false);
  SetForbidden(QStringLiteral("\\/:*?\"<>|"));
  setMaxLength(kLongestName);
}

void ZCEdit::focusInEvent(QFocusEvent* event) {
  const QPointer<ZCEdit> alive = this;
  ZWCEdit::focusInEvent(event);
  if (alive) emit Focused();
}

ZCXPLRView::ZCXPLRView(const ToolContext& context, QWidget* frame)
    : MessageWindow(frame),
      tree(new ZCFolderTree(xplr_control::kTree, this)),
      list(new ZCXPLRList(xplr_control::kList, this)),
      name(new ZCEdit(xplr_control::kName, context.windows, Handle(), this)),
      path(new XplrPathHeading(xplr_control::kFolder, context.timers, context.files, this)),
      caption_(new ZWCStatic(xplr_control::kCaption, context.timers, context.files, this)),
      filter_(new ZWCStatic(xplr_control::kFilter, context.timers, context.files, this)),
      label_(new ZWCStatic(xplr_control::kLabel, context.timers, context.files, this)) {
  caption_->SetColors(kFrame, kBack, kWhite, false);
  for (ZWCStatic* heading : std::initializer_list<ZWCStatic*>{filter_, path, label_})
    heading->SetColors(kFrame, kBack, kBlack, false);
}

void ZCXPLRView::Style(const XplrFonts& fonts, const std::string* icons) {
  struct {
    ZWCStatic* control;
    std::uint32_t format;
    int height;
  } const styles[] = {{caption_, kLeft, fonts.caption},
                      {filter_, kRight, fonts.headings},
                      {path, kLeft, fonts.headings},
                      {label_, kLeft, fonts.headings}};
  for (const auto& style : styles) {
    style.control->SetFormat(style.format);
    style.control->SetFont(kFace, style.height, kWeight);
  }
  name->SetFont(kFace, fonts.headings, kWeight);
  const ImageList pictures = MakeXplrIcons(icons, devicePixelRatioF());
  tree->SetLook(fonts.panes, pictures);
  list->SetLook(fonts.panes, pictures);
}

void ZCXPLRView::Place(const XplrLayout& layout) {
  caption_->setGeometry(ToQRect(layout.caption));
  filter_->setGeometry(ToQRect(layout.filter));
  path->setGeometry(ToQRect(layout.folder));
  path->SetLeads(layout.pathLeads);
  label_->setGeometry(ToQRect(layout.label));
  name->setGeometry(ToQRect(layout.name));
  tree->setGeometry(ToQRect(layout.tree));
  list->setGeometry(ToQRect(layout.list));
  filter_->setVisible(layout.showsTree);
  // A widget that is hidden or disabled gives the focus to the next one. The logic decides who gets it.
  if (!layout.showsTree && tree->hasFocus()) list->setFocus(Qt::OtherFocusReason);
  tree->setVisible(layout.showsTree);
  tree->setEnabled(layout.showsTree);
}

ZWCStatic* ZCXPLRView::Label(int id) const {
  switch (id) {
    case xplr_control::kCaption:
      return caption_;
    case xplr_control::kFilter:
      return filter_;
    case xplr_control::kFolder:
      return path;
    default:
      return label_;
  }
}

void ZCXPLRView::End() {
  EndMessages();
  tree->EndMessages();
  list->EndMessages();
}

void ZCXPLRView::resizeEvent(QResizeEvent* /*event*/) { emit Resized(width(), height()); }

}  // namespace pnl
