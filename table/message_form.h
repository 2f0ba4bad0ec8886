// frmMsg: the one message dialog. Its buttons, picture, answer boxes and
// "Hide" box follow the style bits of the request; its answer goes back as a
// MessageReply (1 OK, 6 Yes, 7 No, 2 Cancel).
#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "core/platform.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

class MessageForm : public QDialog {
  Q_OBJECT
 public:
  MessageForm(const MessageRequest& request, QWidget* parent = nullptr);

  // What the dialog answered when it closed.
  MessageReply Reply() const;
  // The answer of the button the focus opens on.
  static int DefaultAnswer(int style);
  // cmdButton(0..4): OK, Yes, No, Cancel, Help; null when the style hides it.
  QPushButton* Button(int index) const { return buttons_[static_cast<std::size_t>(index)]; }
  QLineEdit* Input(int index) const { return index == 0 ? input1_ : input2_; }
  QCheckBox* HideBox() const { return hide_; }
  // What the Help button does with the message's topic (the help window).
  void SetHelp(std::function<void(int)> showHelp) { showHelp_ = std::move(showHelp); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void reject() override;

 private:
  void Answer(int answer);

  MessageRequest request_;
  int answer_ = 1;
  std::array<QPushButton*, 5> buttons_{};
  QLineEdit* input1_ = nullptr;
  QLineEdit* input2_ = nullptr;
  QCheckBox* hide_ = nullptr;
  std::function<void(int)> showHelp_;
};
