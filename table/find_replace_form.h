// frmFindReplace: "Find/Replace" over the script editor's text. The form
// holds only what is typed into it; the search and the replacing are the
// editor's (script/auto_bet_find.h through AutoBetForm).
#pragma once

#include <QDialog>
#include <string>

class QCheckBox;
class QComboBox;
class AutoBetForm;

class FindReplaceForm : public QDialog {
  Q_OBJECT
 public:
  FindReplaceForm(AutoBetForm& editor, QWidget* parent = nullptr);
  std::string What() const;
  std::string With() const;
  bool Down() const;
  bool MatchCase() const;

 private:
  // The typed text joins its list, newest first.
  static void Remember(QComboBox* box);

  AutoBetForm& editor_;
  QComboBox* find_;
  QComboBox* replace_;
  QComboBox* direction_;
  QCheckBox* matchCase_;
};
