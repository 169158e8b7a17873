// SPDX-License-Identifier: MIT
// A CNC that knows nothing: every answer is the one of a machine that has no such thing.
#pragma once

#include "facade/cnc_facade.h"

namespace pnl::test {

class TinyBackend : public CncFacade,
                    public Variables,
                    public Kernel,
                    public ToolTables,
                    public Utilities,
                    public Passwords {
 public:
  Variables& Vars() override { return *this; }
  Kernel& Kapi() override { return *this; }
  ToolTables& Tapi() override { return *this; }
  Utilities& Util() override { return *this; }
  Passwords& Psw() override { return *this; }

  VariableInfo Bind(TextView) override { return {}; }
  int ReadInt(std::int32_t, std::int32_t&) override { return -1; }
  int WriteInt(std::int32_t, std::int32_t, int) override { return -1; }
  int ReadDouble(std::int32_t, double&) override { return -1; }
  int WriteDouble(std::int32_t, double) override { return -1; }
  int ReadTxt(std::int32_t, Text&) override { return -1; }
  int WriteTxt(std::int32_t, TextView) override { return -1; }
  int UpdateCache(std::int32_t) override { return -1; }
  int OpenReport(std::int32_t, WindowHandle) override { return -1; }
  int CloseReport(std::int32_t, WindowHandle) override { return -1; }
  int GeneraReport(std::int32_t, WindowHandle) override { return -1; }

  int ExisteKernel() override { return 1; }
  int IsNewInspecAllowed(int) override { return 0; }
  int EnProcesoInspec(int) override { return 0; }
  int IsMDIAllowedInResetInspect(int) override { return 0; }
  int CogerPlcFree(int, int) override { return 0; }
  int LiberarPlcFree(int, int, int) override { return 0; }
  int SetMdi(int, int) override { return 0; }
  int EndMDIMode(int) override { return 0; }
  int SetMode(int, int) override { return 0; }
  int MDILine(int, TextView, int, int, int) override { return -1; }
  int NextSingleStep(int) override { return 0; }
  int ClearFeedhold(int) override { return 0; }
  int MDICancel(int) override { return 0; }
  int PosibleMDICancel(int) override { return 0; }
  int WriteTxtInBlackBox(TextView, int) override { return 0; }
  int SWOption_IsZMCON() override { return 0; }
  int ReadError(int, ErrorRecord&) override { return -1; }
  int ResetError(int, int) override { return 0; }
  int ResetErrorWithEnter(int, const ErrorRecord&) override { return 0; }
  int AddLogOnInfo(TextView) override { return 0; }
  int ChannelNumber() override { return 1; }
  int ConvertLogToName(int, Text&) override { return -1; }
  int GetTextoMlinkError(int, Text&) override { return -1; }
  int GetTextoSercosError(int, Text&) override { return -1; }

  ZCPlcMsgTable* Connect() override { return nullptr; }
  std::vector<std::int32_t> TAPI_Tools_GetList(std::int32_t) override { return {}; }
  int TAPI_Tools_GetToolData(std::int32_t, ToolData&) override { return 0; }
  int PSW_ConfirmarAcceso(int, int, int) override { return 0; }

  Text Get7340Path(int) override { return {}; }
  int ErrorText(ErrorTextFunction, std::int32_t, Z7340ERRORINFO_ST&) override { return -1; }
  bool desc_to_txt(std::int32_t, Text&, TextView) override { return false; }
  int UTIL7340_DriveStatus(int) override { return 1; }
  void UTIL7340_CopyToClipboard_Text(WindowHandle, TextView) override {}
  int Util7340_MarcaHelpAsignadaABloque(TextView, Text&) override { return -1; }
  Rect UTIL7340_GetCNCRect() override { return {0, 0, 800, 600}; }
  bool UTIL7340_AreSoftkeyMetricsStandard() override { return true; }
  int UTIL7340_FitFontSize(int height) override { return height; }
  int UTIL7340_FitHeight(int height) override { return height; }
  bool UTIL7340_Is7335() override { return false; }
};

}  // namespace pnl::test
