#include "table/auto_bet_text.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <QRegularExpression>
#include <QSyntaxHighlighter>
#include <QTextBlock>

namespace {

// Colours of the script text: structure words, comments, quoted strings,
// and the second band of the highlight.
const QColor kStructureColour(0, 0, 160);
const QColor kCommentColour(0, 128, 0);
const QColor kStringColour(128, 0, 0);
const QColor kSecondBand(232, 240, 255);
const QColor kNumberBackground(236, 236, 236);
constexpr int kNumberPadding = 6;
// The widest line number the column makes room for.
const char* const kNumberSample = "6666";

class LineNumberArea : public QWidget {
 public:
  explicit LineNumberArea(ScriptTextEdit* edit) : QWidget(edit), edit_(edit) {}
  QSize sizeHint() const override { return {edit_->NumberWidth(), 0}; }

 protected:
  void paintEvent(QPaintEvent* event) override { edit_->PaintNumbers(event); }

 private:
  ScriptTextEdit* edit_;
};

// Structure words in blue and bold, strings and comments in their colours;
// nothing inside a string or a comment is taken for a word.
class ScriptColours : public QSyntaxHighlighter {
 public:
  explicit ScriptColours(QTextDocument* doc) : QSyntaxHighlighter(doc) {
    words_.setForeground(kStructureColour);
    words_.setFontWeight(QFont::Bold);
    comment_.setForeground(kCommentColour);
    string_.setForeground(kStringColour);
  }

 protected:
  void highlightBlock(const QString& text) override {
    static const QRegularExpression kWord(
        "\\b(if|then|elseif|else|endif|goto|gosub|return|and|or|xor|not|do|loop|exitdo)\\b",
        QRegularExpression::CaseInsensitiveOption);
    int i = 0;
    const int n = static_cast<int>(text.size());
    while (i < n) {
      if (text[i] == '"') {
        int end = static_cast<int>(text.indexOf('"', i + 1));
        end = end < 0 ? n : end + 1;
        setFormat(i, end - i, string_);
        i = end;
      } else if (text[i] == '\'') {
        setFormat(i, n - i, comment_);
        return;
      } else {
        int stop = i;
        while (stop < n && text[stop] != '"' && text[stop] != '\'') ++stop;
        auto it = kWord.globalMatch(text.mid(i, stop - i));
        while (it.hasNext()) {
          const auto m = it.next();
          setFormat(i + static_cast<int>(m.capturedStart()), static_cast<int>(m.capturedLength()),
                    words_);
        }
        i = stop;
      }
    }
  }

 private:
  QTextCharFormat words_, comment_, string_;
};

}  // namespace

ScriptTextEdit::ScriptTextEdit(QWidget* parent) : QPlainTextEdit(parent) {
  setObjectName("picLoggedBets");
  setLineWrapMode(QPlainTextEdit::NoWrap);
  QFont mono("DejaVu Sans Mono");
  mono.setStyleHint(QFont::Monospace);
  setFont(mono);
  numbers_ = new LineNumberArea(this);
  numbers_->hide();
  new ScriptColours(document());
  connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& rect, int dy) {
    if (!lineNumbers_) return;
    if (dy != 0)
      numbers_->scroll(0, dy);
    else
      numbers_->update(0, rect.y(), numbers_->width(), rect.height());
  });
  connect(this, &QPlainTextEdit::blockCountChanged, this, [this] { UpdateMargins(); });
}

int ScriptTextEdit::TopLine() const { return firstVisibleBlock().blockNumber() + 1; }

void ScriptTextEdit::SetLineNumbers(bool on) {
  lineNumbers_ = on;
  numbers_->setVisible(on);
  UpdateMargins();
}

int ScriptTextEdit::NumberWidth() const {
  return fontMetrics().horizontalAdvance(kNumberSample) + 2 * kNumberPadding;
}

void ScriptTextEdit::UpdateMargins() {
  setViewportMargins(lineNumbers_ ? NumberWidth() : 0, 0, 0, 0);
  const QRect r = contentsRect();
  numbers_->setGeometry(r.left(), r.top(), NumberWidth(), r.height());
}

void ScriptTextEdit::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  UpdateMargins();
}

void ScriptTextEdit::PaintNumbers(QPaintEvent* event) {
  QPainter painter(numbers_);
  painter.fillRect(event->rect(), kNumberBackground);
  painter.setPen(Qt::darkGray);
  QTextBlock block = firstVisibleBlock();
  int top = qRound(blockBoundingGeometry(block).translated(contentOffset()).top());
  while (block.isValid() && top <= event->rect().bottom()) {
    const int height = qRound(blockBoundingRect(block).height());
    if (block.isVisible())
      painter.drawText(0, top, numbers_->width() - kNumberPadding, height, Qt::AlignRight,
                       QString::number(block.blockNumber() + 1));
    top += height;
    block = block.next();
  }
}

void ScriptTextEdit::SetBands(const std::vector<std::int32_t>& bands) {
  bands_ = bands;
  UpdateBands();
}

void ScriptTextEdit::UpdateBands() {
  QList<QTextEdit::ExtraSelection> marks;
  QTextBlock block = document()->firstBlock();
  for (; block.isValid(); block = block.next()) {
    const auto line = static_cast<std::size_t>(block.blockNumber() + 1);
    if (line >= bands_.size() || bands_[line] != 2) continue;
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(block);
    mark.format.setBackground(kSecondBand);
    mark.format.setProperty(QTextFormat::FullWidthSelection, true);
    marks.append(mark);
  }
  setExtraSelections(marks);
}

void ScriptTextEdit::SelectSpan(int line, int column, int endLine, int endColumn) {
  auto position = [this](int l, int c) {
    const QTextBlock b = document()->findBlockByNumber(std::max(0, l - 1));
    if (!b.isValid()) return static_cast<int>(document()->characterCount()) - 1;
    return b.position() + std::clamp(c, 0, static_cast<int>(b.length()) - 1);
  };
  QTextCursor c = textCursor();
  c.setPosition(position(line, column));
  c.setPosition(position(endLine, endColumn), QTextCursor::KeepAnchor);
  setTextCursor(c);
  ensureCursorVisible();
}
