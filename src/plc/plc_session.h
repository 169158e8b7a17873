// SPDX-License-Identifier: MIT
// The PLC message view without its window: what the PLC raises, the help of errors and the documents that the host
// sends compete for one window. PlcQueue decides which of them is shown; this class reads it, finds its document and
// has it shown. It keeps nothing on the disc.
#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include "facade/variables.h"
#include "host/tool_session.h"
#include "plc/plc_document.h"
#include "plc/plc_queue.h"
#include "plc/plc_view.h"

namespace pnl {

enum class PlcKey { kEscape, kEnter, kSpace, kHome };

class PlcSession final : public ToolSession<PlcView> {
 public:
  PlcSession(const ToolContext& context, PlcView& view);

  /// Gives the window the size of its dialog and opens the report of the PLC messages.
  void Start();
  /// Ends the tool before its window is destroyed.
  void End();

  /// Handles PNL_MSG_VARIABLE_REPORT.
  void OnReport(std::intptr_t first, std::intptr_t second);
  /// Handle "ZM_SHOW_ERRORHELP", "ZM_HIDE_ERRORHELP" and "ZM_SHOW_FILE". A null record does nothing.
  void ShowErrorHelp(const ShowFileRecord* record);
  void HideErrorHelp();
  void ShowFile(std::intptr_t first, const ShowFileRecord* record);
  /// Handles PNL_MSG_TOOL_COMMAND.
  void OnToolCommand(std::intptr_t command);
  /// Handles the commands of the video, PNL_VIDEO_PLAY and so on.
  void OnCommand(int command);
  /// Returns false for a key that the view doesn't use now; the control with the focus gets it.
  bool OnKey(PlcKey key);
  /// A link of the shown page leads where nothing is read.
  void OnLinkRefused(TextView reference);
  void OnResized();
  /// The host has resized the area of the tools.
  void OnAreaResized();
  /// Leaves what is on the screen and shows what comes next.
  void Close();

  [[nodiscard]] const PlcQueue& Queue() const { return queue_; }
  [[nodiscard]] const Text& DocumentFile() const { return documentFile_; }
  [[nodiscard]] const Text& DocumentExt() const { return documentExt_; }

 private:
  using ItemKey = std::int64_t;

  [[nodiscard]] bool Open();
  void ShowMessage();
  void ReadMessage(Text& message, Text& reference) const;
  void ShowRecord(PlcMode mode, const PlcFile& file);
  void Advance();
  void CloseWindow();
  void SetColors(std::uint32_t back, std::uint32_t text);
  void ShowCount();
  // The document.
  void FindDocument(TextView reference);
  void ShowDocument();
  void ShowOnly(int id);
  void ShowText(const DocumentReference& parts);
  void ShowPage(const DocumentReference& parts);
  void ShowPicture(const DocumentReference& parts);
  void ShowVideo(const DocumentReference& parts);
  void HideDocument();
  void ShowNote(int text, TextView name);
  // The places in documents that were displaced.
  void BeginItem(std::optional<ItemKey> item);
  void KeepPlace();
  void RestorePlace();
  [[nodiscard]] Rect Area() const;

  PlcQueue queue_;
  ZCVariable messageVariable_;
  Text documentFile_;
  Text documentExt_;
  Text messageText_;
  std::uint32_t titleBack_ = 0xC0C0C0;
  std::optional<DocumentKind> shownKind_;
  std::optional<ItemKey> item_;  // the message or file on the screen; nothing for help
  std::map<ItemKey, PlcPlace> places_;
  bool linkMessage_ = false;
};

}  // namespace pnl
