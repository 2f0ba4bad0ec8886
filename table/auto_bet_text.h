// picLoggedBets: the script editor's text pane. A plain text editor with an
// optional column of line numbers, the colouring of comments, strings and
// structure words, and the two alternating bands of the highlight. It draws
// only: the text belongs to the game (the form writes every change there).
#pragma once

#include <QPlainTextEdit>
#include <cstdint>
#include <vector>

class ScriptTextEdit : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit ScriptTextEdit(QWidget* parent = nullptr);
  // Shows or hides the line numbers.
  void SetLineNumbers(bool on);
  bool LineNumbers() const { return lineNumbers_; }
  // The band of each line (1-based, 1 or 2); empty for no highlight.
  void SetBands(const std::vector<std::int32_t>& bands);
  // Selects from (line, column) to (line, column), lines from 1, columns from 0.
  void SelectSpan(int line, int column, int endLine, int endColumn);
  // The first line shown (from 1).
  int TopLine() const;
  // Width of the line-number column; paints it.
  int NumberWidth() const;
  void PaintNumbers(QPaintEvent* event);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void UpdateMargins();
  void UpdateBands();

  QWidget* numbers_;
  bool lineNumbers_ = false;
  std::vector<std::int32_t> bands_;
};
