// Platform: everything the engine needs of a window or the operating
// system. The engine never draws, asks or sounds by itself; it calls these
// operations, and every one of them is guarded by the caller's HyperDrive
// test where the roll path is concerned. The desktop front end implements
// them with real dialogs (opened modally from inside a roll); the headless
// implementation in engine/headless_platform.h answers by rule for the CLI
// and the tests.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/print_document.h"

struct SettleDialog;

// What the message dialog is asked to show. Text pieces are joined by CR
// ('\r'), which the dialog shows as a line break.
struct MessageRequest {
  std::string text;
  std::string title;
  int helpId = 0;
  int style = 1;    // bit set of the message dialog (kMsgOk.., core/message_dialog.h)
  bool modal = true;
  std::string input1;  // initial texts of the answer boxes (style bits 0x40, 0x80)
  std::string input2;
};

// What the user did with the message dialog.
struct MessageReply {
  int answer = 1;           // 1 OK, 6 Yes, 7 No, 2 Cancel
  std::string input1;       // the answer boxes as typed
  std::string input2;
  bool hideChecked = false; // the "Hide" check box was checked at closing
};

// What the one file chooser is asked: its caption says what the file is for.
struct FileChooserRequest {
  std::string caption;             // "Open Session File", "Save Session File As", ...
  std::vector<std::string> types;  // "Session files (*.rvg)", "All files (*.*)"
  std::string folder;              // the folder it opens in
  bool writing = false;            // a file to be written (the caller asks before overwriting)
};

// One step of a script run for the Steps view: whose script, the view's
// caption, the step note, and the span of source the statement came from
// (the editor selects it).
struct ScriptStep {
  int player = 0;
  std::string caption;
  std::string note;
  int startLine = 0, startCol = 0, endLine = 0, endCol = 0;
};

// Which part of the window the engine asks to be redrawn.
enum class Redraw : int {
  Table,          // the drawn table with its status line
  StatusBoxes,    // the players' status boxes
  OpenViews,      // every open statistics view, in their fixed order
  Graph,          // the bankroll graph from its start
  kCount
};

class Platform {
 public:
  virtual ~Platform() = default;

  // Shows the one message dialog and waits for it when modal.
  virtual MessageReply ShowMessage(const MessageRequest& request) = 0;
  // Shows the settle dialog modally; the user may edit its rows; returns the
  // index of the button pressed (0 to 6).
  virtual int ShowSettleDialog(SettleDialog& dialog) = 0;
  // Plays a wave file by path. flags: 0 asynchronous, 2 synchronous without
  // default sound, 11 asynchronous looping. An empty path cuts any sound.
  virtual void PlaySound(std::string_view path, int flags) = 0;
  // The millisecond clock.
  virtual std::uint32_t TimeGetTime() = 0;
  // Lets pending window events run (Hyper-Drive pacing, between script
  // statements).
  virtual void DoEvents() = 0;
  // Asks for part of the window to be redrawn.
  virtual void RequestRedraw(Redraw what) = 0;
  // True when the main window is minimised.
  virtual bool MainWindowMinimized() = 0;
  // Shows the file chooser; the name typed or picked, nothing on Cancel.
  virtual std::optional<std::string> ChooseFile(const FileChooserRequest&) { return std::nullopt; }
  // Shows a step of a script run and returns when the next step is wanted:
  // true for Next, false when the user stopped auto-betting.
  virtual bool ShowScriptStep(const ScriptStep& step) {
    (void)step;
    return true;
  }
  // Prints a document (the desktop asks for the printer first); false when
  // nothing was printed: no printer, or the user cancelled.
  virtual bool Print(const PrintDocument& document) {
    (void)document;
    return false;
  }
  // Shows a short notice while slow work runs (the printouts' "Preparing
  // output for printer."), without waiting for the user; an empty text
  // takes it down.
  virtual void ShowProgressNotice(std::string_view text) { (void)text; }
  // Opens the help on a topic's page (core/help_topics.h); false when no
  // help can be shown here.
  virtual bool ShowHelp(int topic) {
    (void)topic;
    return false;
  }
  // Today's date on the local calendar.
  virtual CalendarDate Today();
  // The local time of day, in seconds after midnight (0 to 86399).
  virtual int SecondsOfDay();
};
