// frmAutoBet: the script editor. It shows the script of EdPlayer from the
// game's tables and writes every change of the text, the selection and the
// caret straight back (script/auto_bet_editor.h), so it holds no script of
// its own: closing it, a roll or a saved game sees what the user sees. The
// file commands are cycle/auto_bet_commands.h, Check Script and the
// switches script/activation.h; the picklists' rows and picks come from
// script/picklists.h.
// What must stay true:
// - Nothing is written to the game while FormLoading is set.
// - A command that would change a script's text during a run asks to
//   interrupt the run first and is not carried out.
#pragma once

#include <QWidget>
#include <array>
#include <string>

#include "script/picklists.h"

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class ScriptTextEdit;
class StepsForm;
class FindReplaceForm;
struct ScriptStep;
struct Game;
class Platform;

// The date and time a printout's heading shows: "23-Nov-26, 9:15:00 PM".
std::string PrintDateTime(Platform& platform);

class AutoBetForm : public QWidget {
  Q_OBJECT
 public:
  explicit AutoBetForm(Game& game, QWidget* parent = nullptr);
  // Players, switch, options and text from the game (the text only when
  // the game's differs from what is shown).
  void Refresh();
  ScriptTextEdit* Text() const { return text_; }
  // Selects a span of the text (Check Script's error, a step of a run).
  void SelectSpan(int line, int column, int endLine, int endColumn);
  // cmdCheckScript.
  void CheckScriptClicked();
  // Opens picklist `list` under its button.
  void OpenPicklist(Picklist list);
  QListWidget* PicklistView() const { return picklist_; }
  // A step of a run of this editor's player: the statement selected, the
  // Steps view shown, and back when the user wants the next step; false
  // when auto-betting was stopped.
  bool ShowStep(const ScriptStep& step);
  StepsForm* Steps() const { return steps_; }
  // Find/Replace: the dialog's three commands, and the next or previous
  // match without the dialog (mnuFindNext, mnuFindPrevious).
  FindReplaceForm* FindReplace();
  void FindNextClicked() { FindNext(false); }
  void FindNext(bool reverse);
  void ReplaceClicked();
  void ReplaceAllClicked();

 signals:
  // Something the table shows may have changed (a script's first cycle).
  void changed();

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildMenus(class QMenuBar* bar);
  // The text of the game's EdLines into the pane, under FormLoading.
  void ShowText();
  // The pane's text and selection to the game.
  void TextEdited();
  void SelectionMoved();
  // A file command; first the question about a run in progress.
  void FileCommand(bool (*command)(Game&), bool editing);
  // An edit of the pane's text, refused during a run.
  bool MayEdit();
  // The font from the stored size, italic and bold; the option checks.
  void ApplyOptions();
  void PlayerChosen(int index);
  void PickRow(int row);

  Game& game_;
  bool FormLoading = false;
  QComboBox* player_;
  QCheckBox* active_;
  QPushButton* check_;
  QWidget* lists_;  // the five picklist buttons
  std::array<QPushButton*, static_cast<int>(Picklist::kCount)> listButtons_{};
  ScriptTextEdit* text_;
  QListWidget* picklist_;
  Picklist openList_ = Picklist::Logic;
  QLabel* empty_;
  StepsForm* steps_ = nullptr;
  FindReplaceForm* find_ = nullptr;
  int caretBlock_ = 0;
};
