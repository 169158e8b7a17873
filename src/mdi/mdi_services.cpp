// SPDX-License-Identifier: MIT
#include "mdi/mdi_services.h"

#include <algorithm>

#include "base/format.h"

namespace pnl::mdi {

namespace {

constexpr TextView kOwnMark = u"OPT0130";

Text SelectedInEdit(const MdiView& view) {
  Text text = view.EditText();
  const int length = static_cast<int>(text.size());
  const MdiSelection selection = view.EditSelection();
  const int start = std::clamp(std::min(selection.start, selection.end), 0, length);
  const int end = std::clamp(std::max(selection.start, selection.end), 0, length);
  if (start == end) return text;
  return text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
}

Text BlockInHand(MdiSession& session) {
  const MDIDATA_ST* record = session.Current();
  if (record == nullptr) return {};
  const MdiView& view = session.View();
  if (record->TypesInEdit()) return SelectedInEdit(view);
  const int selected = view.ListSelection();
  return selected >= 0 ? view.ListItem(selected) : Text();
}

}  // namespace

void PasteCalcResult(MdiSession& session) {
  ZCVariable result(session.context.cnc.Vars(), u"E.CALCRESUL");
  double value = 0;
  if (result.IsValid()) {
    result.UpdateCache();
    result.ReadDouble(value);
  }
  const MDIDATA_ST* record = session.Current();
  if (record == nullptr || !record->IsReady()) return;
  if (!record->TypesInEdit()) {
    session.View().FocusList();
    return;
  }
  session.View().FocusEdit();
  session.View().ReplaceEditSelection(Format(u"%g", value));
}

std::intptr_t AskHelp(MdiSession& session) {
  Text mark(kOwnMark);
  const Text block = BlockInHand(session);
  if (!block.empty()) session.context.cnc.Util().Util7340_MarcaHelpAsignadaABloque(block, mark);
  ZCVariable help(session.context.cnc.Vars(), u"E.HELPDATA");
  if (!help.IsValid()) return kRefused;
  help.WriteTxt(mark);
  return kDone;
}

}  // namespace pnl::mdi
