#include "table/message_form.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "core/message_dialog.h"
#include "table/numeric_box.h"

namespace {

constexpr int kPictureSize = 48;
constexpr int kTextWidth = 420;

// cmdButton(i)'s caption and answer.
struct ButtonSpec {
  int bit;
  const char* caption;
  int answer;
};
constexpr ButtonSpec kButtons[5] = {{kMsgOk, "OK", kAnswerOk},
                                    {kMsgYes, "&Yes", kAnswerYes},
                                    {kMsgNo, "&No", kAnswerNo},
                                    {kMsgCancel, "Cancel", kAnswerCancel},
                                    {kMsgHelp, "&Help", 0}};

QStyle::StandardPixmap PictureOf(int style) {
  if (style & kMsgPicStop) return QStyle::SP_MessageBoxCritical;
  if (style & kMsgPicQmark) return QStyle::SP_MessageBoxQuestion;
  if (style & kMsgPicAlert) return QStyle::SP_MessageBoxWarning;
  return QStyle::SP_MessageBoxInformation;  // picOK
}

}  // namespace

int MessageForm::DefaultAnswer(int style) { return DefaultMsgAnswer(style); }

MessageForm::MessageForm(const MessageRequest& request, QWidget* parent)
    : QDialog(parent), request_(request) {
  setObjectName("frmMsg");
  setWindowTitle(QString::fromStdString(request.title));
  setModal(request.modal);
  const int style = request.style;
  answer_ = DefaultAnswer(style);

  auto* top = new QHBoxLayout;
  if (style & (kMsgPicOk | kMsgPicStop | kMsgPicQmark | kMsgPicAlert)) {
    auto* picture = new QLabel;
    picture->setObjectName("picture");
    picture->setPixmap(this->style()->standardIcon(PictureOf(style)).pixmap(kPictureSize));
    picture->setAlignment(Qt::AlignTop);
    top->addWidget(picture);
  }
  auto* body = new QVBoxLayout;
  auto* text = new QLabel(GameText(request.text));
  text->setObjectName("lblMessage");
  text->setWordWrap(true);
  text->setMinimumWidth(kTextWidth / 2);
  text->setMaximumWidth(kTextWidth);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  body->addWidget(text);

  const InputRule rule = MsgInputRule(style);
  auto makeBox = [&](const std::string& initial, const char* name) {
    auto* box = new QLineEdit(QString::fromStdString(initial));
    box->setObjectName(name);
    if (rule.numeric) new NumericKeyFilter(box, rule.decimals, rule.allowMinus);
    box->selectAll();
    body->addWidget(box);
    return box;
  };
  if (style & kMsgInput1) input1_ = makeBox(request.input1, "txtInput1");
  if (style & kMsgInput2) input2_ = makeBox(request.input2, "txtInput2");
  if (style & kMsgHideAny) {
    hide_ = new QCheckBox(QStringLiteral("Hide"));
    hide_->setObjectName("chkHide");
    body->addWidget(hide_);
  }
  top->addLayout(body, 1);

  auto* row = new QHBoxLayout;
  row->addStretch(1);
  QPushButton* focus = nullptr;
  for (int i = 0; i < 5; ++i) {
    if (!(style & kButtons[i].bit)) continue;
    auto* button = new QPushButton(QString::fromLatin1(kButtons[i].caption));
    button->setObjectName(QStringLiteral("cmdButton%1").arg(i));
    buttons_[static_cast<std::size_t>(i)] = button;
    row->addWidget(button);
    if (kButtons[i].answer == answer_ && !focus) focus = button;
    if (i == 4) {
      const int topic = request.helpId;
      connect(button, &QPushButton::clicked, this, [this, topic] {
        if (showHelp_) return showHelp_(topic);
        QMessageBox::information(this, windowTitle(), "Help is not available here.");
      });
    } else {
      const int answer = kButtons[i].answer;
      connect(button, &QPushButton::clicked, this, [this, answer] { Answer(answer); });
    }
  }
  row->addStretch(1);

  auto* outer = new QVBoxLayout(this);
  outer->addLayout(top);
  outer->addLayout(row);
  setLayout(outer);
  if (focus) {
    focus->setDefault(true);
    if (!input1_) focus->setFocus();
  }
  if (input1_) input1_->setFocus();
}

void MessageForm::Answer(int answer) {
  answer_ = answer;
  done(answer);
}

void MessageForm::reject() {
  // Esc and the window's close box: Cancel where the dialog has it, else the
  // default button, for the dialog must always leave an answer.
  Answer(request_.style & kMsgCancel ? kAnswerCancel : DefaultAnswer(request_.style));
}

void MessageForm::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

MessageReply MessageForm::Reply() const {
  MessageReply reply;
  reply.answer = answer_;
  reply.input1 = input1_ ? input1_->text().toStdString() : request_.input1;
  reply.input2 = input2_ ? input2_->text().toStdString() : request_.input2;
  reply.hideChecked = hide_ && hide_->isChecked();
  return reply;
}
