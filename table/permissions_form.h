// frmPermissions: "Auto-Bet Permissions", one row for each seated player and
// a column of check boxes for each permission of the player's script. A
// click sets the flag in the game at once (script/run_state.h) and marks
// the session changed; the form keeps nothing of its own.
#pragma once

#include <QDialog>

struct Game;

class PermissionsForm : public QDialog {
  Q_OBJECT
 public:
  explicit PermissionsForm(Game& game, QWidget* parent = nullptr);
};
