// A key filter for the numeric text boxes of the forms: every printable key
// goes through FilterNumericKey with the box's decimals and sign rule, so a
// box never holds what the game could not read as an amount.
#pragma once

#include <QObject>

class QLineEdit;

class NumericKeyFilter : public QObject {
 public:
  NumericKeyFilter(QLineEdit* box, int decimals, bool allowMinus);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* box_;
  int decimals_;
  bool allowMinus_;
};

// Text of a game string for a control: CR pieces become line breaks.
class QString;
QString GameText(const std::string& text);
