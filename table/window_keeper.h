// Keeps a window's place in the game's window layout (records 2 and 3 of
// the game file): where the window stands and how large it is, and whether
// it is open. A keeper watches its window: when a form is shown it is put
// where the game last had it (the main window when a game is opened), and
// every move, resize, show and hide is written back, so a saved game keeps
// the windows where the user left them.
//
// What must stay true:
// - A place never written (all zero) leaves the window where Qt put it.
// - A place is put back only inside the screen the window is on, so a game
//   saved on a larger screen cannot open a window out of reach.
#pragma once

#include <QObject>

struct Game;
class QWidget;

// The windows whose places the game keeps.
enum class KeptWindow {
  Main, AutoPlay, Bankroll, CheckStacks, Move,
  Summary, RollTotals, RollFreqs, BetResults, BetTrends, Hands,
  DiceFiles, AutoBet, RollPad, SessionsLog, EventsLog, HotKeys
};

// Whether the game's layout has a tool window open (its shown flag).
bool KeptWindowShown(const Game& game, KeptWindow which);
// Puts a kept window at the game's place for it, then opens or closes it.
void RestoreKeptWindow(QWidget& window, bool shown);

class WindowKeeper : public QObject {
  Q_OBJECT
 public:
  // Watches `window` (and is owned by it).
  WindowKeeper(Game& game, KeptWindow which, QWidget& window);
  // Puts the window where the game's layout has it (after a game is opened).
  void Restore();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Writes the window's place, its size where kept, and the shown flag.
  void Store(bool shown);

  Game& game_;
  KeptWindow which_;
  QWidget& window_;
  bool restoring_ = false;
};
