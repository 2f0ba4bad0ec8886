#include "table/probability_matrix.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>

#include "core/game.h"
#include "dice/probability_edit.h"
#include "table/numeric_box.h"

namespace {

constexpr int kLabelWidth = 52;  // the row labels at the left
constexpr int kHeadHeight = 22;  // the column titles
constexpr int kCellWidth = 64;
constexpr int kCellHeight = 34;
constexpr int kFaceGap = 12;                      // between total 12 and the faces
constexpr int kMatrixRows = kLastCellRow;         // rows 1..7
constexpr int kMatrixColumns = kSecondDieColumn;  // columns 1..13
constexpr int kPad = 4;

const QColor kLockedFill(255, 236, 170);
const QColor kEntryFill(Qt::white);
const QColor kTotalFill(232, 240, 250);
const QColor kGrid(170, 170, 170);
const QColor kCaption(120, 120, 120);

// The small caption of an entry: its pair of dice, its face, or nothing.
QString EntryCaption(int a, int b) {
  switch (ProbabilityEntryKind(a, b)) {
    case ProbEntryKind::Cell: {
      const DicePair d = CellDice(a, b);
      return QString("%1-%2").arg(d.die1).arg(d.die2);
    }
    case ProbEntryKind::Face:
      return QString("face %1").arg(a - 1);
    default:
      return {};
  }
}

QColor SignColour(int sign) {
  return sign > 0 ? QColor(Qt::blue) : sign < 0 ? QColor(Qt::red) : QColor(Qt::black);
}

}  // namespace

ProbabilityMatrix::ProbabilityMatrix(Game& game, QWidget* parent)
    : QWidget(parent), game_(game), box_(new QLineEdit(this)) {
  setObjectName("picProbability");
  box_->setObjectName("txtPercent");
  box_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  box_->setToolTip("Type a value and press Enter; L or a right click locks or unlocks the entry.");
  new NumericKeyFilter(box_, kProbEntryDecimals, true);
  // Installed after the key filter, so it sees L, Enter and the arrows first.
  box_->installEventFilter(this);
  setMinimumSize(sizeHint());
  setFocusPolicy(Qt::NoFocus);
}

QSize ProbabilityMatrix::sizeHint() const {
  return {kLabelWidth + kMatrixColumns * kCellWidth + kFaceGap + 1,
          kHeadHeight + kMatrixRows * kCellHeight + 1};
}

QRect ProbabilityMatrix::EntryRect(ProbEntry e) const {
  const int x = kLabelWidth + (e.b - 1) * kCellWidth + (e.b >= kFirstDieColumn ? kFaceGap : 0);
  const int y = kHeadHeight + (e.a - 1) * kCellHeight;
  return {x, y, kCellWidth, kCellHeight};
}

void ProbabilityMatrix::Refresh() {
  PlaceBox();
  update();
}

void ProbabilityMatrix::PlaceBox() {
  const ProbEntry e = SelectedProbabilityEntry(game_);
  box_->setGeometry(EntryRect(e).adjusted(1, 1, 0, 0));
  // The box is typed without thousands separators.
  shownText_ = QString::fromStdString(ProbabilityCellText(game_, e.a, e.b)).remove(',');
  box_->setText(shownText_);
  box_->selectAll();
}

bool ProbabilityMatrix::Commit() {
  const QString text = box_->text();
  if (text == shownText_) return false;
  const ProbEntry e = SelectedProbabilityEntry(game_);
  // A text that is no number leaves the table as it was; the box shows it again.
  const bool set = EnterProbabilityText(game_, e, text.toStdString());
  Refresh();
  if (set) emit tableChanged();
  return set;
}

void ProbabilityMatrix::Select(ProbEntry e) {
  Commit();
  SelectProbabilityEntry(game_, e);
  Refresh();
  box_->setFocus();
}

void ProbabilityMatrix::FlipLock() {
  const ProbEntry e = SelectedProbabilityEntry(game_);
  FlipProbabilityLock(game_, e.a, e.b);
  Refresh();
  emit tableChanged();
}

bool ProbabilityMatrix::eventFilter(QObject* watched, QEvent* event) {
  if (watched != box_) return false;
  if (event->type() == QEvent::FocusOut) {
    Commit();
    return false;
  }
  if (event->type() == QEvent::ContextMenu) {
    FlipLock();
    return true;
  }
  if (event->type() != QEvent::KeyPress) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  const ProbEntry at = SelectedProbabilityEntry(game_);
  switch (key->key()) {
    case Qt::Key_L:
      FlipLock();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      // Enter sets the entry; it never reaches the form's default button.
      Commit();
      return true;
    case Qt::Key_Up:
      Select(MoveProbabilityEntry(at, -1, 0));
      return true;
    case Qt::Key_Down:
      Select(MoveProbabilityEntry(at, 1, 0));
      return true;
    case Qt::Key_Left:
      Select(MoveProbabilityEntry(at, 0, -1));
      return true;
    case Qt::Key_Right:
      Select(MoveProbabilityEntry(at, 0, 1));
      return true;
    default:
      return false;
  }
}

void ProbabilityMatrix::mousePressEvent(QMouseEvent* event) {
  for (int a = kTotalRow; a <= kMatrixRows; ++a)
    for (int b = 1; b <= kMatrixColumns; ++b)
      if (ProbabilityEntryKind(a, b) != ProbEntryKind::None &&
          EntryRect({a, b}).contains(event->position().toPoint())) {
        Select({a, b});
        return;
      }
}

void ProbabilityMatrix::paintEvent(QPaintEvent*) {
  QPainter p(this);
  QFont small = font();
  small.setPointSizeF(font().pointSizeF() * 0.75);
  for (int b = 1; b <= kMatrixColumns; ++b) {
    const QRect head = EntryRect({0, b}).adjusted(0, kCellHeight - kHeadHeight, 0, 0);
    const QString title = b <= kLastTotalColumn  ? QString::number(b + 1)
                          : b == kFirstDieColumn ? QString("1st Die")
                                                 : QString("2nd Die");
    p.drawText(head, Qt::AlignCenter, title);
  }
  p.drawText(QRect(0, kHeadHeight, kLabelWidth - kPad, kCellHeight),
             Qt::AlignRight | Qt::AlignVCenter, "Total");
  p.setPen(kCaption);
  p.drawText(QRect(0, kHeadHeight + kCellHeight, kLabelWidth - kPad, kCellHeight),
             Qt::AlignRight | Qt::AlignVCenter, "Pairs");
  for (int a = kTotalRow; a <= kMatrixRows; ++a) {
    for (int b = 1; b <= kMatrixColumns; ++b) {
      if (ProbabilityEntryKind(a, b) == ProbEntryKind::None) continue;
      const QRect r = EntryRect({a, b});
      const bool locked = ProbFlag(game_, a, b) == kProbLocked;
      p.fillRect(r, locked ? kLockedFill : a == kTotalRow ? kTotalFill : kEntryFill);
      p.setPen(kGrid);
      p.drawRect(r);
      p.setFont(small);
      p.setPen(kCaption);
      const QRect inner = r.adjusted(kPad, 1, -kPad, -1);
      p.drawText(inner, Qt::AlignLeft | Qt::AlignTop,
                 locked ? EntryCaption(a, b) + QString(" L") : EntryCaption(a, b));
      p.setFont(font());
      p.setPen(SignColour(ProbabilityCellSign(game_, a, b)));
      p.drawText(inner, Qt::AlignRight | Qt::AlignBottom,
                 QString::fromStdString(ProbabilityCellText(game_, a, b)));
    }
  }
}
