// SPDX-License-Identifier: MIT
#include "host/tool_texts.h"

#include "common/record_fields.h"

namespace panel {
namespace {

/// Sends a message with the address of a record.
template <typename Record>
intptr_t SendRecord(PnlWindow tool, const char* name, intptr_t first, Record& record) {
  return PnlSendMessage(tool, PnlRegisterMessage(name), first, reinterpret_cast<intptr_t>(&record));
}

PnlUnfinished Unfinished(PnlWindow tool) {
  PnlUnfinished record{};
  if (tool == 0 || SendRecord(tool, PNL_NAME_READ_UNFINISHED, 0, record) == 0) return {};
  return record;
}

bool PutBackInto(PnlWindow tool, PnlUnfinished record) {
  return tool != 0 && SendRecord(tool, PNL_NAME_RESTORE_UNFINISHED, 0, record) != 0;
}

}  // namespace

std::optional<JournalBlock> TypedBlock(const HostSession& session) {
  const PnlUnfinished record = Unfinished(session.ToolWindow(PNL_TOOL_MDI));
  JournalBlock block;
  switch (record.kind) {
    case PNL_UNFINISHED_LINE:
      block.kind = JournalBlock::Kind::kLine;
      break;
    case PNL_UNFINISHED_NEW_ITEM:
      block.kind = JournalBlock::Kind::kNewItem;
      break;
    case PNL_UNFINISHED_CHANGED_ITEM:
      block.kind = JournalBlock::Kind::kChangedItem;
      break;
    default:
      return std::nullopt;
  }
  block.item = record.item;
  block.text = FromField(record.text);
  block.original = FromField(record.original);
  return block;
}

QString TypedExpression(const HostSession& session) {
  return FromField(Unfinished(session.ToolWindow(PNL_TOOL_CALCULATOR)).text);
}

bool PutBack(const HostSession& session, const JournalBlock& block) {
  PnlUnfinished record{};
  record.kind = block.kind == JournalBlock::Kind::kLine      ? PNL_UNFINISHED_LINE
                : block.kind == JournalBlock::Kind::kNewItem ? PNL_UNFINISHED_NEW_ITEM
                                                             : PNL_UNFINISHED_CHANGED_ITEM;
  record.item = block.item;
  PutIntoField(block.text, record.text);
  PutIntoField(block.original, record.original);
  return PutBackInto(session.ToolWindow(PNL_TOOL_MDI), record);
}

bool PutBackExpression(const HostSession& session, const QString& expression) {
  PnlUnfinished record{};
  record.kind = PNL_UNFINISHED_LINE;
  record.item = -1;
  PutIntoField(expression, record.text);
  return PutBackInto(session.ToolWindow(PNL_TOOL_CALCULATOR), record);
}

bool StoreToolRows(const HostSession& session) {
  bool stored = true;
  for (const int tool : {PNL_TOOL_MDI, PNL_TOOL_CALCULATOR}) {
    const PnlWindow window = session.ToolWindow(tool);
    if (window == 0) continue;
    stored = PnlSendMessage(window, PnlRegisterMessage(PNL_NAME_STORE_ROWS), 0, 0) != 0 && stored;
  }
  return stored;
}

RemovedRows LastRemoval(PnlWindow tool) {
  PnlRemoved record{};
  if (tool == 0 || SendRecord(tool, PNL_NAME_REMOVED, PNL_REMOVED_READ, record) == 0) return {};
  return {record.rows, record.whole != 0, FromField(record.text)};
}

bool PutBackRemoval(PnlWindow tool) {
  return tool != 0 && PnlSendMessage(tool, PnlRegisterMessage(PNL_NAME_REMOVED), PNL_REMOVED_PUT_BACK, 0) != 0;
}

void ForgetRemovals(PnlWindow tool) {
  if (tool != 0) PnlSendMessage(tool, PnlRegisterMessage(PNL_NAME_REMOVED), PNL_REMOVED_FORGET, 0);
}

}  // namespace panel
