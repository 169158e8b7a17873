/* SPDX-License-Identifier: MIT */
/*
 * The interface between a host and the tool library: the library's two entries, the callbacks that the host offers,
 * the records that pass between host and tools, and the few calls that take the place of a window system's own.
 * Plain C; it needs no Qt header. Text is UTF-16 and colours are 0x00BBGGRR unless a comment says otherwise.
 * The host must call everything on its window thread (the thread of its QApplication). Callbacks come on that thread.
 */
#ifndef PNLTOOLS_PNLTOOLS_H
#define PNLTOOLS_PNLTOOLS_H

#include <stddef.h>
#include <stdint.h>
#include <uchar.h>

#if defined(__cplusplus)
#include <cstddef>
#define PNL_STATIC_ASSERT static_assert
extern "C" {
#else
#define PNL_STATIC_ASSERT _Static_assert
#endif

#define PNL_API __attribute__((visibility("default")))

/* The number of a window of the tool library or of the host. 0 is no window. A number is never used twice. */
typedef int32_t PnlWindow;

/* ---------------------------------------------------------------- tools */

enum PnlToolId {
  PNL_TOOL_ERRORS = 0,
  PNL_TOOL_PLC_MESSAGES = 1,
  PNL_TOOL_HELP = 2,
  PNL_TOOL_CALCULATOR = 3,
  PNL_TOOL_MACHINING_CALCULATOR = 4,
  PNL_TOOL_EXPLORER = 5,
  PNL_TOOL_MDI = 6
};

/* The reasons of HostToolClosed: the tool has handed over a value or a file, or it hasn't. */
enum PnlCloseReason { PNL_CLOSED_ACCEPTED = 1, PNL_CLOSED = 2 };

/* Results of PNL_MSG_TOOL_COMMAND and PNL_MSG_CYCLE_START. Other results are described with their message. */
enum PnlResult {
  PNL_DONE = 0,          /* also the result of a code that the tool doesn't know */
  PNL_CLOSES_LATER = 1,  /* the command line closes when the running block has ended */
  PNL_CLOSED_ITSELF = 2, /* the tool has closed itself on PNL_COMMAND_CLOSE_TOOL */
  PNL_UNSAVED_WORK = 5,  /* a result of PNL_COMMAND_ASK_UNSAVED */
  PNL_REFUSED = -200,    /* not possible now, or an unknown channel */
  PNL_CLOSE_REFUSED = -202,
  PNL_RESERVED = -203
};

/* ---------------------------------------------------------------- records */

/* A soft-key menu for a bar of the host. menu 0 clears the bar. Passed by value. */
typedef struct HostMenuRef {
  int32_t zero;    /* always 0 */
  uint32_t menu;   /* menu handle, read with PnlMenuItemCount and PnlMenuItemAt; 0 for no menu */
  uint8_t one;     /* always 1 */
  uint8_t another; /* always 1 */
  uint16_t unused; /* not written */
} HostMenuRef;
PNL_STATIC_ASSERT(sizeof(HostMenuRef) == 12, "HostMenuRef is 12 bytes");
PNL_STATIC_ASSERT(offsetof(HostMenuRef, menu) == 4, "HostMenuRef.menu");
PNL_STATIC_ASSERT(offsetof(HostMenuRef, one) == 8, "HostMenuRef.one");
PNL_STATIC_ASSERT(offsetof(HostMenuRef, another) == 9, "HostMenuRef.another");
PNL_STATIC_ASSERT(offsetof(HostMenuRef, unused) == 10, "HostMenuRef.unused");

/* One line of the host's message zone. An empty text clears the line. */
typedef struct HostMessage {
  int32_t line;       /* 1, or 1 to 3 for the machining calculator */
  int32_t one;        /* 1 */
  int32_t another;    /* 1 */
  char16_t text[256]; /* terminated */
  uint32_t back;      /* 0x00BBGGRR */
  uint32_t fore;      /* 0x00BBGGRR */
  int32_t ten;        /* always 10 */
  uint8_t rest[1584]; /* zero */
} HostMessage;
PNL_STATIC_ASSERT(sizeof(HostMessage) == 2120, "HostMessage is 2120 bytes");
PNL_STATIC_ASSERT(offsetof(HostMessage, text) == 12, "HostMessage.text");
PNL_STATIC_ASSERT(offsetof(HostMessage, back) == 524, "HostMessage.back");
PNL_STATIC_ASSERT(offsetof(HostMessage, fore) == 528, "HostMessage.fore");
PNL_STATIC_ASSERT(offsetof(HostMessage, ten) == 532, "HostMessage.ten");
PNL_STATIC_ASSERT(offsetof(HostMessage, rest) == 536, "HostMessage.rest");

/* The error that the error tool offers to the host for display. The texts are valid during the call only. */
typedef struct HostErrorLine {
  uint32_t backColor;         /* the colour of the error's class */
  uint32_t textColor;         /* white */
  const char16_t* helpRef;    /* path and number separated by '#', or empty */
  const char16_t* headerText; /* "word number : text" */
} HostErrorLine;

/* Second argument of a cycle start (message 0x800, first 1 or 2). */
typedef struct PnlCycleStart {
  int32_t reserved;
  int8_t channel; /* from 1; 0 means the tool's present channel */
  int8_t unused[3];
} PnlCycleStart;
PNL_STATIC_ASSERT(offsetof(PnlCycleStart, channel) == 4, "PnlCycleStart.channel");

/* Second argument of PNL_NOTIFY_CHANNEL_TAKEN and PNL_NOTIFY_CHANNEL_GIVEN, valid during the call only. */
typedef struct PnlToolNotify {
  int32_t channel;
  PnlWindow window; /* the tool's window */
} PnlToolNotify;
PNL_STATIC_ASSERT(sizeof(PnlToolNotify) == 8, "PnlToolNotify is 8 bytes");
PNL_STATIC_ASSERT(offsetof(PnlToolNotify, window) == 4, "PnlToolNotify.window");

/* Second argument of "ZM_SHOW_FILE" and "ZM_SHOW_ERRORHELP"; the texts are valid during the call only. */
typedef struct ShowFileRecord {
  uint32_t backColor;
  uint32_t textColor;
  const char16_t* file;
  const char16_t* title;
} ShowFileRecord;

/* Request to the explorer and its answer. The requesting tool must keep it alive until the explorer has ended. */
typedef struct XPLRDATA_ST {
  int32_t Owner;          /* 1000 + id of the requesting tool */
  char16_t Title[100];    /* empty keeps the explorer's own title */
  char16_t Path[260];     /* in: start folder; out: chosen folder, no trailing backslash */
  char16_t File[256];     /* in: proposed name; out: chosen name */
  char16_t Filter[256];   /* patterns separated by commas */
  char16_t Extension[10]; /* default extension without the point; "*" means none */
  uint32_t Flags;         /* XPLR_... */
} XPLRDATA_ST;
PNL_STATIC_ASSERT(sizeof(XPLRDATA_ST) == 1772, "XPLRDATA_ST is 1772 bytes");
PNL_STATIC_ASSERT(offsetof(XPLRDATA_ST, Title) == 4, "XPLRDATA_ST.Title");
PNL_STATIC_ASSERT(offsetof(XPLRDATA_ST, Path) == 204, "XPLRDATA_ST.Path");
PNL_STATIC_ASSERT(offsetof(XPLRDATA_ST, File) == 724, "XPLRDATA_ST.File");
PNL_STATIC_ASSERT(offsetof(XPLRDATA_ST, Filter) == 1236, "XPLRDATA_ST.Filter");
PNL_STATIC_ASSERT(offsetof(XPLRDATA_ST, Extension) == 1748, "XPLRDATA_ST.Extension");
PNL_STATIC_ASSERT(offsetof(XPLRDATA_ST, Flags) == 1768, "XPLRDATA_ST.Flags");

/* What an operator has typed in a tool and not finished; see PNL_NAME_READ_UNFINISHED. */
enum PnlUnfinishedKind {
  PNL_UNFINISHED_NOTHING = 0,
  PNL_UNFINISHED_LINE = 1,        /* the line of the command line in MDI role, or of the calculator */
  PNL_UNFINISHED_NEW_ITEM = 2,    /* a new item of the MDA list */
  PNL_UNFINISHED_CHANGED_ITEM = 3 /* another text for an item of the MDA list */
};
typedef struct PnlUnfinished {
  int32_t kind;           /* a PnlUnfinishedKind */
  int32_t item;           /* the place of a changed item in the list; else -1 */
  char16_t text[512];     /* terminated */
  char16_t original[512]; /* terminated; the changed item as the list has it */
} PnlUnfinished;
PNL_STATIC_ASSERT(sizeof(PnlUnfinished) == 2056, "PnlUnfinished is 2056 bytes");
PNL_STATIC_ASSERT(offsetof(PnlUnfinished, text) == 8, "PnlUnfinished.text");
PNL_STATIC_ASSERT(offsetof(PnlUnfinished, original) == 1032, "PnlUnfinished.original");

/* What an operator has removed last in a tool; see PNL_NAME_REMOVED. */
typedef struct PnlRemoved {
  int32_t rows;       /* how many rows */
  int32_t whole;      /* 1 when a whole list was cleared */
  char16_t text[256]; /* terminated; the beginning of the first row */
} PnlRemoved;
PNL_STATIC_ASSERT(sizeof(PnlRemoved) == 520, "PnlRemoved is 520 bytes");
PNL_STATIC_ASSERT(offsetof(PnlRemoved, text) == 8, "PnlRemoved.text");

enum PnlExplorerFlags {
  XPLR_FOLDERMODE = 0x1,
  XPLR_CONFIRMOVERWRITE = 0x2,
  XPLR_LISTONLY = 0x8,
  XPLR_HIDELOCKED = 0x10,
  XPLR_NOBLANKS = 0x20,
  XPLR_MUSTEXIST = 0x1000,
  XPLR_NOREADONLY = 0x8000,
  XPLR_PINNED = 0x800000
};

/* ---------------------------------------------------------------- the host's callbacks */

/* The slots, in the order of SetPNLApi. */
enum PnlHostSlot {
  PNL_SLOT_MAY_OPEN_TOOL = 0,
  PNL_SLOT_TOOL_OPENING = 1,
  PNL_SLOT_TOOL_CLOSED = 2,
  PNL_SLOT_SET_MAIN_MENU = 3,
  PNL_SLOT_SET_SIDE_MENU = 4,
  PNL_SLOT_UPDATE_MAIN_MENU = 5,
  PNL_SLOT_UPDATE_SIDE_MENU = 6,
  PNL_SLOT_SHOW_MESSAGE = 7,
  PNL_SLOT_EXPLORER_REQUEST = 8,
  PNL_SLOT_CALC_RESULT_ACCEPTED = 9,
  PNL_SLOT_EXPLORER_ACCEPTED = 10,
  PNL_SLOT_EXPLORER_ACCEPTED_ALT = 11,
  PNL_SLOT_INSERT_BLOCK = 12,
  PNL_SLOT_SHOW_ERROR = 13,
  PNL_SLOT_ERRORS_GONE = 14,
  PNL_SLOT_FORWARD_KEY = 15,
  PNL_SLOT_TOOL_WANTS_CLOSE = 16,
  PNL_SLOT_OPEN_CALCULATOR = 17,
  PNL_SLOT_OPEN_MACHINING_CALCULATOR = 18,
  PNL_SLOT_COUNT = 19
};

/* Slot 0: returns non-zero when the tool may come to the front. Only the PLC message view asks. */
typedef int (*HostMayOpenToolFn)(int tool);
/* Slot 1: a tool is about to appear. */
typedef void (*HostToolOpeningFn)(int tool);
/* Slot 2: a tool has gone away; reason is a PnlCloseReason. */
typedef void (*HostToolClosedFn)(int tool, int reason);
/* Slots 3 and 4: install a soft-key menu in the main or the side bar; menu handle 0 clears it. */
typedef void (*HostSetMainMenuFn)(int tool, HostMenuRef menu);
typedef void (*HostSetSideMenuFn)(int tool, HostMenuRef menu);
/* Slots 5 and 6: the items of the installed menu have changed, so draw it again. The second argument is 0. */
typedef void (*HostUpdateMainMenuFn)(int tool, int zero);
typedef void (*HostUpdateSideMenuFn)(int tool, int zero);
/* Slot 7: show or clear a line of the message zone. */
typedef void (*HostShowMessageFn)(int tool, const HostMessage* message);
/* Slot 8: open the explorer for the record whose number is in the variable E.XPLRDATA. */
typedef void (*HostExplorerRequestFn)(void);
/* Slot 9: the calculator was closed with a value, which is in E.CALCRESUL. */
typedef void (*HostCalcResultAcceptedFn)(void);
/* Slots 10 and 11: the explorer was closed with a file, or with a folder. */
typedef void (*HostExplorerAcceptedFn)(void);
typedef void (*HostExplorerAcceptedAltFn)(void);
/* Slot 12: the machining calculator has put a block on the clipboard; insert it into the program that is edited. */
typedef void (*HostInsertBlockFn)(void);
/* Slot 13: the error tool offers the present error for display. */
typedef int (*HostShowErrorFn)(const HostErrorLine* line);
/* Slot 14: the error tool has nothing left to show. */
typedef void (*HostErrorsGoneFn)(void);
/* Slot 15: a key for the host (27), after the PLC message view has left an error help text. */
typedef void (*HostForwardKeyFn)(int key);
/* Slot 16: the operator pressed the tool's close key; the host decides. */
typedef void (*HostToolWantsCloseFn)(int tool);
/* Slots 17 and 18: one calculator asks the host to open the other. */
typedef void (*HostOpenCalculatorFn)(void);
typedef void (*HostOpenMachiningCalculatorFn)(void);

/* ---------------------------------------------------------------- the two entries */

/*
 * Sets the 19 callbacks, in slot order. A null callback means that the host doesn't offer that service. Copies the
 * pointers and checks nothing. May be called again: the new table applies from the next callback on.
 */
PNL_API void SetPNLApi(HostMayOpenToolFn mayOpenTool, HostToolOpeningFn toolOpening, HostToolClosedFn toolClosed,
                       HostSetMainMenuFn setMainMenu, HostSetSideMenuFn setSideMenu,
                       HostUpdateMainMenuFn updateMainMenu, HostUpdateSideMenuFn updateSideMenu,
                       HostShowMessageFn showMessage, HostExplorerRequestFn explorerRequest,
                       HostCalcResultAcceptedFn calcResultAccepted, HostExplorerAcceptedFn explorerAccepted,
                       HostExplorerAcceptedAltFn explorerAcceptedAlt, HostInsertBlockFn insertBlock,
                       HostShowErrorFn showError, HostErrorsGoneFn errorsGone, HostForwardKeyFn forwardKey,
                       HostToolWantsCloseFn toolWantsClose, HostOpenCalculatorFn openCalculator,
                       HostOpenMachiningCalculatorFn openMachiningCalculator);

/*
 * Makes the tool with that number as a child of parent and returns its window. Returns 0 for a number without a tool,
 * a parent that isn't alive, or a window that couldn't be made. Two calls with one number make two tools. The tool is
 * freed with its window, which ends with PnlDestroyWindow or with the parent.
 */
PNL_API PnlWindow LoadPNLTool(int toolId, PnlWindow parent);

/* ---------------------------------------------------------------- windows and messages */

/* Fixed message numbers between host and tools. The result of a message that a tool doesn't know is 0. */
enum PnlMessage {
  /* To the tool that installed the menu. first: the item's id. */
  PNL_MSG_COMMAND = 0x111,
  /* From the CNC to a tool: a variable on which the window has an open report has changed. */
  PNL_MSG_VARIABLE_REPORT = 0x700,
  /* To the command line. first: a PnlCycleStartKind; second: address of a PnlCycleStart. */
  PNL_MSG_CYCLE_START = 0x800,
  /* In both directions. first: a PnlNotify. */
  PNL_MSG_TOOL_NOTIFY = 0x801,
  /* To a tool. first: a PnlToolCommand; second: its argument. Returns a PnlResult. */
  PNL_MSG_TOOL_COMMAND = 0x802,
  /* To the tool that waits for the result. first: a PnlReady. */
  PNL_MSG_RESULT_READY = 0x804,
  /* The help key, to the tool in front, which writes its help mark to E.HELPDATA. The error display offers its error
     with HostShowError instead and returns 1, or 0 when it has nothing to offer. */
  PNL_MSG_HELP_KEY = 0x805,
  /* To the tool that asked for a file. first: PNL_TOOL_EXPLORER; second: the PnlCloseReason of the explorer. */
  PNL_MSG_EXPLORER_ENDED = 0x806
};

/* Codes of PNL_MSG_TOOL_COMMAND. A tool returns 0 for a code that it doesn't know. */
enum PnlToolCommand {
  PNL_COMMAND_OPEN = 2,          /* opens the command line in the channel (second), or the help viewer */
  PNL_COMMAND_HIDE = 3,          /* hides the command line, whose channel (second) stays taken, or the help viewer */
  PNL_COMMAND_SHOW = 4,          /* shows the command line that PNL_COMMAND_HIDE has hidden */
  PNL_COMMAND_CLOSE = 5,         /* closes the command line in any state */
  PNL_COMMAND_LEAVE = 6,         /* closes the command line during an inspection only; hides or ends other tools */
  PNL_COMMAND_RESTORE_FOCUS = 7, /* gives the command line its caret back; elsewhere a Tab */
  PNL_COMMAND_SWITCH_ROLE = 8,   /* switches the command line between MDI and MDA */
  PNL_COMMAND_MANUAL_MODE_CHANGED = 10, /* command line: low byte of second is the channel, its high half the mode */
  PNL_COMMAND_ASK_UNSAVED = 14,         /* asks the machining calculator for unsaved work */
  PNL_COMMAND_CLOSE_TOOL = 20,          /* closes with PNL_CLOSED */
  PNL_COMMAND_CLOSE_FOR_OTHER = 34      /* does the same, because another tool comes */
};

/* First argument of PNL_MSG_CYCLE_START. */
enum PnlCycleStartKind {
  PNL_START_KEY = 1,     /* the start key was pressed */
  PNL_START_QUERY = 2,   /* asks whether an inspection is on; returns a PnlStartAnswer */
  PNL_START_RESERVED = 3 /* returns PNL_RESERVED */
};
enum PnlStartAnswer { PNL_START_ALLOWED = 1, PNL_START_DURING_INSPECTION = 4 };

/* First argument of PNL_MSG_TOOL_NOTIFY. */
enum PnlNotify {
  /* From the command line. second: address of a PnlToolNotify. */
  PNL_NOTIFY_CHANNEL_TAKEN = 41,
  PNL_NOTIFY_CHANNEL_GIVEN = 42,
  /* To the command line. second: a channel. If it is taken, PNL_NOTIFY_CHANNEL_TAKEN is sent again for it. */
  PNL_NOTIFY_REPEAT = 1,
  /* To the error display. second: if non-zero, errors that needn't be confirmed don't open it. */
  PNL_NOTIFY_SUPPRESS_ERRORS = 1,
  /* To the error display. second: 1 makes it listen to Alt+W, another value stops that. */
  PNL_NOTIFY_ERROR_HOT_KEY = 2,
  /* To the error display. second: if non-zero, it stays hidden whatever comes. */
  PNL_NOTIFY_BLOCK_ERRORS = 79
};

/* First argument of PNL_MSG_RESULT_READY. */
enum PnlReady {
  PNL_READY_CALC_RESULT = 1,  /* a value is in E.CALCRESUL */
  PNL_READY_FILE = 2,         /* Path and File of the requesting tool's record are filled */
  PNL_READY_EXPLORER_LEFT = 3 /* the explorer was left without a file */
};

/*
 * Commands (PNL_MSG_COMMAND) that the machining calculator takes beside those of its menus. A host may have keys for
 * them. Export and import ask the host for the explorer (slot 8).
 */
enum PnlMachiningCommand {
  PNL_ZMC_EXPORT = 33001, /* the user's materials and operations into a table for a spreadsheet */
  PNL_ZMC_IMPORT = 33002, /* from such a table: all of it or nothing */
  PNL_ZMC_CHANGES = 33003 /* shows what the user's data change against the machine maker's */
};

/*
 * Commands (PNL_MSG_COMMAND) to the PLC message view, for its video. The view has no menu; a host may have keys. They
 * do nothing while no video is shown. The property "pnlVideo" of the view's widget is true while one is.
 */
enum PnlVideoCommand {
  PNL_VIDEO_PLAY = 32771,
  PNL_VIDEO_STOP = 32772,
  PNL_VIDEO_REWIND = 32773 /* stops too */
};

/* Messages with a registered name, to the main window. */
/* Asks the panel to close. first: 1; second: 0. */
#define PNL_NAME_CLOSE_PANEL "ZM_CLOSE7340"
/*
 * The number of errors in the hidden error display has changed. If both arguments are 0, there is nothing to show.
 * Otherwise each contains two 16-bit numbers. first: the error's number (low half) and its class, a PnlErrorClass
 * (high half); second: the flash period in milliseconds (low half) and the number of errors (high half).
 */
#define PNL_NAME_ERRORS_CHANGED "ZM_UPDATE_NERRORS"
/* Messages with a registered name, to a tool. */
/* To the error display: the help that the host opened for HostShowError has ended. */
#define PNL_NAME_ERROR_HELP_ENDED "ZM_END_ERRORHELP"
/* Three messages to the PLC message view. second of the first and the last one: address of a ShowFileRecord. */
#define PNL_NAME_SHOW_ERROR_HELP "ZM_SHOW_ERRORHELP"
#define PNL_NAME_HIDE_ERROR_HELP "ZM_HIDE_ERRORHELP"
#define PNL_NAME_SHOW_FILE "ZM_SHOW_FILE"
/* To the calculator: E.CALCRESUL has a value for its line. */
#define PNL_NAME_HANDLE_VALUE "TM_HANDLEVALUE"
/*
 * Two messages to the command line and to the calculator, for a host that keeps what isn't finished when the power
 * fails. second: address of a PnlUnfinished. The first one fills it and returns 1; it changes nothing, and a text that
 * is too long for the record isn't offered. The second one puts the text back as if the operator had typed it, and
 * returns 1; it returns 0 and changes nothing when something else is typed there, when a block or a computation is
 * under way, or while the command line isn't open.
 */
#define PNL_NAME_READ_UNFINISHED "PNL_READ_UNFINISHED"
#define PNL_NAME_RESTORE_UNFINISHED "PNL_RESTORE_UNFINISHED"
/*
 * To the command line and to the calculator, for such a host: stores the history and the MDA list now, as the tool does
 * when it ends. Nothing is written when nothing has changed since they were stored, when a file was out of reach when it
 * was read, or when it would be longer than PNL_MOST_STORED_NOW bytes: these wait for the tool's end. Returns 0 when a
 * file couldn't be written, which is tried again with the next message, otherwise 1.
 */
#define PNL_NAME_STORE_ROWS "PNL_STORE_ROWS"
#define PNL_MOST_STORED_NOW 1048576
/*
 * To the command line, for items of the MDA list, and to the calculator, for rows of its history. first: a
 * PnlRemovedOrder. The property "pnlRemoved" of the tool's widget is the number of the last removal that can be put
 * back, 0 for none. Each removal has a number of its own.
 */
#define PNL_NAME_REMOVED "PNL_REMOVED"
enum PnlRemovedOrder {
  PNL_REMOVED_READ = 0,     /* second: address of a PnlRemoved. Fills it for that removal; returns its rows, or 0 */
  PNL_REMOVED_PUT_BACK = 1, /* puts it back; returns its rows, or 0 when that isn't possible now */
  PNL_REMOVED_FORGET = 2    /* forgets all removals, because nobody wants them back any more */
};

enum PnlErrorClass {
  PNL_ERROR = 0,
  PNL_ERROR_MARKED = 1,
  PNL_ERROR_WARNING = 2,
  PNL_ERROR_FATAL = 3,
  PNL_ERROR_CONFIRM = 4 /* only Enter confirms it */
};

/* The two 16-bit numbers in one argument of PNL_NAME_ERRORS_CHANGED. */
static inline uint16_t PnlLowHalf(intptr_t argument) { return (uint16_t)(uintptr_t)argument; }
static inline uint16_t PnlHighHalf(intptr_t argument) { return (uint16_t)((uintptr_t)argument >> 16); }

/* Receives the messages to a window of the host. A sender gets the result; for a posted message it is ignored. */
typedef intptr_t (*PnlMessageProc)(void* context, PnlWindow window, uint32_t message, intptr_t first, intptr_t second);

/*
 * Registers a widget of the host (a QWidget*), so that tools can be its children and send it messages. Returns its
 * window, 0 for null. proc may be null. A second call for the same widget keeps the number and replaces proc and
 * context.
 */
PNL_API PnlWindow PnlAttachWidget(void* qwidget, PnlMessageProc proc, void* context);
/* Sets the window that gets the messages to the whole panel ("ZM_UPDATE_NERRORS", "ZM_CLOSE7340"). */
PNL_API void PnlSetMainWindow(PnlWindow window);
/* The QWidget* of a window; null when the window isn't alive. */
PNL_API void* PnlWidgetOf(PnlWindow window);
/* Returns non-zero while the window exists. */
PNL_API int PnlIsAlive(PnlWindow window);
/* Destroys a tool's window and the tool with it. Does nothing for a dead window and for a window of the host. */
PNL_API void PnlDestroyWindow(PnlWindow window);
/* Delivers a message now and returns the result; 0 for a dead window. */
PNL_API intptr_t PnlSendMessage(PnlWindow window, uint32_t message, intptr_t first, intptr_t second);
/* Queues a message. It is dropped if the window is dead when its turn comes. */
PNL_API void PnlPostMessage(PnlWindow window, uint32_t message, intptr_t first, intptr_t second);
/* Registers a name (ASCII) and returns its number, from 0xC000 up, the same for every caller in the process. Returns
   0 for null and for an empty name. */
PNL_API uint32_t PnlRegisterMessage(const char* name);

/* ---------------------------------------------------------------- records by number */

/* Gives a record a number, because the 32 bits of E.XPLRDATA can't hold an address. The number is valid until it is
   withdrawn. A record that has a number already keeps it. Returns 0 for null. */
PNL_API int32_t PnlPublishRecord(void* record);
/* The address of the record with that number; null when its owner has withdrawn it or there never was one. */
PNL_API void* PnlResolveRecord(int32_t number);
/* Ends the number of a record. Does nothing for a number that isn't in use. */
PNL_API void PnlWithdrawRecord(int32_t number);

/* ---------------------------------------------------------------- menus */

/* One item of a menu in its present state. */
typedef struct PnlMenuItem {
  int32_t id;
  int32_t enabled;
  int32_t checked;
  int32_t visible;
  int32_t bitmap;       /* resource number for PnlBitmap; 0 for none */
  uint32_t subMenu;     /* menu handle, 0 for none */
  char16_t text[128];   /* terminated */
  char16_t helper[128]; /* terminated; a word with which a host can look up help on the key */
} PnlMenuItem;

/* The number of items, hidden ones included; -1 for a menu that doesn't exist. */
PNL_API int PnlMenuItemCount(uint32_t menu);
/* Fills *item and returns non-zero. Returns 0, and *item stays as it was, when there is no such menu or item. */
PNL_API int PnlMenuItemAt(uint32_t menu, int index, PnlMenuItem* item);

/* ---------------------------------------------------------------- language and CNC */

/*
 * Sets the language of texts, menus, dialogs and bitmaps: "en" (the start value), "es", or "none" (text n is "Tn", the
 * rest is "en"). Returns non-zero when the pack was found; otherwise the language stays as it was. Call it before the
 * first tool: an open tool keeps the texts and menus that it has. Packs are in <prefix>/share/pnltools/lang for a
 * library in <prefix>/lib; the environment variable PNLTOOLS_LANG_DIR sets another folder.
 */
PNL_API int PnlSetLanguage(const char* code);
/* Returns non-zero when the library has a tool with that number, so that LoadPNLTool can make it. */
PNL_API int PnlHasTool(int32_t tool);
/* Finds the SVG of a bitmap by number. It is valid until the language or the backend changes. Returns non-zero when
   there is one; otherwise *data and *size stay as they were. */
PNL_API int PnlBitmap(int32_t number, const unsigned char** data, size_t* size);

/*
 * Sets the CNC with which the tools work: "sim" (the start value) or the absolute path of a backend library. Such a
 * library exports what facade/backend.h describes (headers in pnltools/backend/): a mark of the interface for which it
 * was built, which is checked before the first call, and the function
 * `extern "C" pnl::CncFacade* PnlMakeBackend(pnl::WindowSystem&, pnl::Timers&)`.
 * Returns non-zero on success. On failure, or while a tool exists, the backend stays as it was. The environment
 * variable PNLTOOLS_DRIVES maps the drives of panel paths ("C=/srv/cnc;D=/media/usb"). If it doesn't name C:, drive C:
 * is the folder pnltools among the user's data.
 */
PNL_API int PnlSetBackend(const char* name);

/* ---------------------------------------------------------------- network */

/*
 * Asks the operator for name and password on a server of the network ("server" is its name). It should show a question
 * and return at once; PnlAnswerCredentials brings the answer, also from within this call. again is non-zero when the
 * last answer was wrong. The panel goes on meanwhile; only what waits for the server waits. server is valid during the
 * call only.
 */
typedef void (*PnlAskCredentialsFn)(void* context, uint32_t request, const char16_t* server, int again);

/*
 * Sets who asks for credentials. With null, as at the start, every server that wants them is refused, and so are the
 * questions that are still open: a host calls it so before what it asks with goes away. The network is the one of the
 * file that the environment variable PNLTOOLS_NETWORK_FILE names, and empty with a backend library and no file.
 * Otherwise it is the simulated one, which asks for nothing. The module pnl-shares.so, in the library's own folder,
 * reads Windows shares; it is loaded when a server is first asked. Without it no server can be connected.
 */
PNL_API void PnlSetCredentialsAsker(PnlAskCredentialsFn ask, void* context);
/*
 * Answers a question. A null user cancels it; a null domain is the server's own. The texts are copied. What a server
 * accepts is kept in memory for the session, is used for all its shares, and is never written or logged. After a wrong
 * answer the operator is asked again, three times in all. Does nothing for a question that isn't open.
 */
PNL_API void PnlAnswerCredentials(uint32_t request, const char16_t* user, const char16_t* domain,
                                  const char16_t* password);

/* ---------------------------------------------------------------- files */

enum PnlFileResult {
  PNL_FILE_DONE = 0,
  PNL_FILE_OUT_OF_REACH = 1, /* the folder of the file, or of a link's target, is missing */
  PNL_FILE_DENIED = 2,       /* the file or its folder can't be written, or it isn't a regular file */
  PNL_FILE_IS_FOLDER = 3,
  PNL_FILE_DISC_FULL = 4,
  PNL_FILE_FAILED = 5
};

/*
 * Replaces a file of this machine whole, as the tools do with theirs: writes a temporary file beside it, flushes it to
 * the disc, and renames it over the old one, whose mode, owner and symbolic link stay. After a failure the old file is
 * still there; a process killed at any instant leaves the old content or the new one. path is UTF-8. bytes may be null
 * when size is 0. Any thread may call it. Returns a PnlFileResult.
 */
PNL_API int PnlReplaceFile(const char* path, const void* bytes, size_t size);

#if defined(__cplusplus)
}
#endif

#endif
