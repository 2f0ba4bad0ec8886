// frmCrapTable: the main window, its menu and the forms it opens.
#pragma once

#include <QMainWindow>
#include <QPointer>

class QAction;
class QMenu;
class QtPlatform;
class TableView;
class BankrollForm;
class ConfigureForm;
class MoveForm;
class CheckStacksForm;
class AutoPlayForm;
class RollPadForm;
class DiceFilesForm;
class EventsLogForm;
class SessionsLogForm;
class BatchForm;
class AutoBetForm;
class WindowKeeper;
class StatsViews;
struct Game;

class CrapTableWindow : public QMainWindow {
  Q_OBJECT
 public:
  CrapTableWindow(Game& game, QtPlatform& platform, QWidget* parent = nullptr);

  TableView* View() const { return view_; }
  // The bankroll / Hyper-Drive form, opened on first use.
  BankrollForm* Bankroll();
  // frmConfigure, made on first use.
  ConfigureForm* Configure();
  MoveForm* Move();
  // frmCheckStacks, made on first use.
  CheckStacksForm* CheckStacks();
  // frmAutoPlay, made on first use (F3, mnuAutoPlay).
  AutoPlayForm* AutoPlay();
  // frmRYON, the roll pad, made on first use (F12, mnuRollYourOwnNumbers).
  RollPadForm* RollPad();
  // frmDiceRollFiles, made on first use (F8, mnuDiceRollFiles).
  DiceFilesForm* DiceFiles();
  // frmEventsLog, made on first use (mnuEventsLog).
  EventsLogForm* EventsLog();
  // frmGames, the sessions log, made on first use (mnuSessionsLog).
  SessionsLogForm* SessionsLog();
  // frmBatch, Statistics > Batch Run, made on first use (mnuBatch).
  BatchForm* Batch();
  // The statistics views (Summary, Hands, Roll Totals, ...).
  StatsViews& Views() { return *statsViews_; }
  // frmAutoBet, the script editor, made on first use (F4, mnuAutoBet).
  AutoBetForm* AutoBet();
  void ShowAutoBet();
  // mnuSaveView(n) and mnuRestoreView(n).
  void SaveView(int n);
  void RestoreView(int n);
  // Refreshes the checks of the menu and the caption after any change.
  void RefreshMenus();

 protected:
  // The caption: the game's title, which names the game file in play.
  QString Caption() const;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  // Ctrl and a letter on the table fires a Hot-Key.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildMenus();
  bool Interrupt();
  void WindowKey(int key, Qt::KeyboardModifiers mods);

  Game& game_;
  QtPlatform& platform_;
  TableView* view_;
  // Puts the main window and the open forms where the game's layout has them.
  void RestoreWindows();

  WindowKeeper* mainKeeper_ = nullptr;
  QPointer<BankrollForm> bankroll_;
  QPointer<ConfigureForm> configure_;
  QPointer<MoveForm> move_;
  QPointer<CheckStacksForm> checkStacks_;
  QPointer<AutoPlayForm> autoPlay_;
  QPointer<RollPadForm> rollPad_;
  QPointer<DiceFilesForm> diceFiles_;
  QPointer<EventsLogForm> eventsLog_;
  QPointer<SessionsLogForm> sessionsLog_;
  QPointer<BatchForm> batch_;
  StatsViews* statsViews_ = nullptr;
  QPointer<AutoBetForm> autoBet_;
};
