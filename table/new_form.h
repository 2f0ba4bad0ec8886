// frmNew: the choices of a new session. The window asks the questions about
// unsaved work first; OK then starts the new session through the engine's
// StartNewGame with the choices shown, and Cancel leaves the game as it was.
// The form keeps no game state: it reads the dice roll file's mode to word
// its options and writes nothing until OK.
// What must stay true:
// - Cancel, or closing the form, changes nothing in the game.
// - Without a dice roll file the dice options are off and disabled.
#pragma once

#include <QDialog>
#include <array>

#include "cycle/game_commands.h"

class QCheckBox;
class QRadioButton;
struct Game;

class NewForm : public QDialog {
  Q_OBJECT
 public:
  explicit NewForm(Game& game, QWidget* parent = nullptr);
  // The choices as the controls stand.
  NewSessionChoice Choice() const;

 public slots:
  // OK: the new session with the choices shown.
  void accept() override;

 private:
  // Enables what depends on another box (initialize on retain, rewind on retain file).
  void FollowChecks();

  Game& game_;
  QCheckBox* retainAutoBets_ = nullptr;
  QCheckBox* initialize_ = nullptr;
  QCheckBox* preserveGames_ = nullptr;
  QCheckBox* preserveCheckstacks_ = nullptr;
  QCheckBox* preserveSessionsLogs_ = nullptr;
  QCheckBox* retainDiceRollFile_ = nullptr;
  std::array<QRadioButton*, 2> rewind_{};
};
