#include "table/numeric_box.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <string>

#include "core/message_dialog.h"

NumericKeyFilter::NumericKeyFilter(QLineEdit* box, int decimals, bool allowMinus)
    : QObject(box), box_(box), decimals_(decimals), allowMinus_(allowMinus) {
  box->installEventFilter(this);
  box->setContextMenuPolicy(Qt::NoContextMenu);  // no paste around the filter
}

bool NumericKeyFilter::eventFilter(QObject* watched, QEvent* event) {
  if (watched != box_ || event->type() != QEvent::KeyPress) return false;
  auto* key = static_cast<QKeyEvent*>(event);
  const QString typed = key->text();
  if (key->key() == Qt::Key_Backspace) {
    const KeyFilterResult r =
        FilterNumericKey(box_->text().toStdString(), box_->selectionStart() < 0
                                                         ? box_->cursorPosition()
                                                         : box_->selectionStart(),
                         static_cast<int>(box_->selectedText().size()), kKeyBackspace, decimals_,
                         allowMinus_);
    box_->setText(QString::fromStdString(r.text));
    box_->setCursorPosition(r.caret);
    return true;
  }
  if (typed.size() != 1 || !typed[0].isPrint() || (key->modifiers() & Qt::ControlModifier))
    return false;  // arrows, Enter, Delete and shortcuts keep their meaning
  const int start = box_->hasSelectedText() ? box_->selectionStart() : box_->cursorPosition();
  const KeyFilterResult r =
      FilterNumericKey(box_->text().toStdString(), start,
                       static_cast<int>(box_->selectedText().size()), typed[0].toLatin1(),
                       decimals_, allowMinus_);
  if (r.accepted) {
    box_->setText(QString::fromStdString(r.text));
    box_->setCursorPosition(r.caret);
  }
  return true;
}

QString GameText(const std::string& text) {
  QString s = QString::fromStdString(text);
  s.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  s.replace(QChar('\r'), QChar('\n'));
  return s;
}
