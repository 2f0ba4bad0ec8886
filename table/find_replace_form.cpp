#include "table/find_replace_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "table/auto_bet_form.h"

FindReplaceForm::FindReplaceForm(AutoBetForm& editor, QWidget* parent)
    : QDialog(parent), editor_(editor) {
  setObjectName("frmFindReplace");
  setWindowTitle("Find/Replace");
  find_ = new QComboBox;
  find_->setObjectName("cmbFind");
  find_->setEditable(true);
  find_->setMinimumContentsLength(28);
  replace_ = new QComboBox;
  replace_->setObjectName("cmbReplace");
  replace_->setEditable(true);
  direction_ = new QComboBox;
  direction_->setObjectName("cmbDirection");
  direction_->addItems({"Down", "Up"});
  matchCase_ = new QCheckBox("&Match case");
  matchCase_->setObjectName("chkMatchCase");
  auto* buttons = new QVBoxLayout;
  // Each button keeps the boxes' texts in their lists, then runs its command.
  const auto addButton = [&](const char* name, const char* caption, auto command) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, [this, command] {
      Remember(find_);
      Remember(replace_);
      command(editor_);
    });
    buttons->addWidget(button);
  };
  addButton("cmdFindNext", "&Find Next", [](AutoBetForm& e) { e.FindNextClicked(); });
  addButton("cmdReplace", "&Replace", [](AutoBetForm& e) { e.ReplaceClicked(); });
  addButton("cmdReplaceAll", "Replace &All", [](AutoBetForm& e) { e.ReplaceAllClicked(); });
  buttons->addStretch(1);
  auto* grid = new QGridLayout;
  grid->addWidget(new QLabel("Find what:"), 0, 0);
  grid->addWidget(find_, 0, 1);
  grid->addWidget(new QLabel("Replace with:"), 1, 0);
  grid->addWidget(replace_, 1, 1);
  grid->addWidget(new QLabel("Direction:"), 2, 0);
  grid->addWidget(direction_, 2, 1, Qt::AlignLeft);
  grid->addWidget(matchCase_, 3, 1);
  auto* layout = new QHBoxLayout(this);
  layout->addLayout(grid, 1);
  layout->addLayout(buttons);
}

void FindReplaceForm::Remember(QComboBox* box) {
  const QString text = box->currentText();
  if (text.isEmpty()) return;
  const int at = box->findText(text, Qt::MatchCaseSensitive | Qt::MatchExactly);
  if (at == 0) return;
  if (at > 0) box->removeItem(at);
  box->insertItem(0, text);
  box->setCurrentIndex(0);
}

std::string FindReplaceForm::What() const { return find_->currentText().toStdString(); }
std::string FindReplaceForm::With() const { return replace_->currentText().toStdString(); }
bool FindReplaceForm::Down() const { return direction_->currentIndex() == 0; }
bool FindReplaceForm::MatchCase() const { return matchCase_->isChecked(); }
