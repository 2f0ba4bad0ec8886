// QtPlatform: the Platform of the desktop program. Messages and the settle
// dialog open as real modal dialogs from inside a roll (their own event
// loop runs while the roll waits); DoEvents lets pending window events run
// during Hyper-Drive's pacing and between script statements; the clock is a
// monotonic millisecond timer; a redraw request becomes a signal that the
// main window turns into a repaint (coalesced by Qt, so a roll that asks
// many times paints once).
//
// What must stay true: nothing here holds game state. The dialogs are built
// from the request or from the SettleDialog data and write their answers
// back into them.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <functional>

#include "core/platform.h"
#include "table/sound_player.h"

class QDialog;
class QLabel;
class QWidget;
struct Game;

class QtPlatform : public QObject, public Platform {
  Q_OBJECT
 public:
  explicit QtPlatform(QObject* parent = nullptr);

  // The game whose settle dialog rows the dialog steps; the main window.
  void SetGame(Game* game) { game_ = game; }
  void SetMainWindow(QWidget* window) { mainWindow_ = window; }

  MessageReply ShowMessage(const MessageRequest& request) override;
  int ShowSettleDialog(SettleDialog& dialog) override;
  // Wave files through the sound player (table/sound_player.h).
  void PlaySound(std::string_view path, int flags) override;
  SoundPlayer& Sounds() { return sounds_; }
  std::uint32_t TimeGetTime() override;
  void DoEvents() override;
  void RequestRedraw(Redraw what) override;
  bool MainWindowMinimized() override;
  // A Qt file dialog with the request's caption, types and folder.
  std::optional<std::string> ChooseFile(const FileChooserRequest& request) override;
  // The printer dialog, then the document's pages on the chosen printer;
  // with printToFile set, straight into that PDF file instead. A document
  // sent unattended goes to chosenPrinter without the dialog once one was
  // chosen, so that an auto-print never stops a run to ask.
  bool Print(const PrintDocument& document) override;
  // A small frameless window over the main window with the text, painted
  // at once; an empty text hides it.
  void ShowProgressNotice(std::string_view text) override;
  // The help window on the topic's page, over the modal dialog open (so
  // that it takes input) or else the main window.
  bool ShowHelp(int topic) override;
  // A step of a script run goes to onScriptStep when set (the script
  // editor's Steps view); without it the run goes on.
  bool ShowScriptStep(const ScriptStep& step) override {
    return onScriptStep ? onScriptStep(step) : true;
  }
  std::function<bool(const ScriptStep&)> onScriptStep;

  // Called with every modal dialog just after it is shown (tests answer
  // dialogs through it by clicking their real buttons); empty in play.
  std::function<void(QDialog&)> onDialogShown;
  // Answers the file chooser instead of the Qt file dialog when set (tests).
  std::function<std::optional<std::string>(const FileChooserRequest&)> onChooseFile;
  // A PDF file that printouts go to without the printer dialog (tests,
  // --print-to); empty in play.
  QString printToFile;
  // The printer of the last print dialog accepted; empty until then.
  QString chosenPrinter;
  int documentsPrinted = 0;
  // Every progress notice shown, in order (tests).
  QStringList progressNoticesShown;
  // Counts of what was shown, for tests and the status line.
  int messagesShown = 0;
  int settleDialogsShown = 0;
  std::string lastMessageText;
  std::string lastMessageTitle;

 signals:
  void redrawRequested(int what);

 private:
  int RunModal(QDialog& dialog);

  Game* game_ = nullptr;
  QPointer<QWidget> mainWindow_;
  QElapsedTimer clock_;
  SoundPlayer sounds_;
  QPointer<QLabel> progressNotice_;
};
