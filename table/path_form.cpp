#include "table/path_form.h"

#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QTextCursor>
#include <QVBoxLayout>

#include "store/paths_in_use.h"

namespace {

constexpr const char* kIndent = "    ";              // a path sits under its caption
constexpr int kShownColumns = 90, kShownLines = 30;  // eight players fit without scrolling

}  // namespace

PathForm::PathForm(const Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmPath");
  setWindowTitle("Path");
  paths_ = new QPlainTextEdit;
  paths_->setObjectName("txtPath");
  paths_->setReadOnly(true);
  paths_->setLineWrapMode(QPlainTextEdit::NoWrap);  // long paths scroll sideways
  paths_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  const QFontMetrics metrics(paths_->font());
  paths_->setMinimumSize(metrics.averageCharWidth() * kShownColumns,
                         metrics.lineSpacing() * kShownLines);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
  buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(paths_);
  layout->addWidget(buttons);
  Refresh();
}

void PathForm::Refresh() {
  paths_->clear();
  QTextCharFormat plain, bold;
  bold.setFontWeight(QFont::Bold);
  QTextCursor cursor(paths_->document());
  bool first = true;
  for (const PathGroup& group : PathsInUse(game_)) {
    if (!first) cursor.insertBlock();
    first = false;
    cursor.insertText(QString::fromStdString(group.caption), bold);
    for (const std::string& line : group.lines) {
      cursor.insertBlock();
      cursor.insertText(kIndent + QString::fromStdString(line), plain);
    }
  }
  paths_->moveCursor(QTextCursor::Start);
}

QString PathForm::Text() const { return paths_->toPlainText(); }
