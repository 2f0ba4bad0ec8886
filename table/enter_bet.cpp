// txtEnterBet: an amount typed over a bet (mnuKeyInBetAmounts). Enter or a
// click elsewhere commits it through CommitKeyedAmount; the arrow keys move
// the box to the neighbouring bet in the direction the key points on screen.
// The bet under the box is the game's EnterBetId, which the game file keeps.
#include <QKeyEvent>
#include <QLineEdit>
#include <cmath>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "engine/place.h"
#include "table/layout.h"
#include "table/numeric_box.h"
#include "table/table_view.h"

namespace {
constexpr int kBoxWidth = 64;
constexpr int kBoxDecimals = 2;
}  // namespace

void TableView::OpenEnterBet(int b) {
  if (!enterBet_) {
    enterBet_ = new QLineEdit(this);
    enterBet_->setObjectName("txtEnterBet");
    enterBet_->setFixedWidth(kBoxWidth);
    enterBet_->setAlignment(Qt::AlignRight);
    new NumericKeyFilter(enterBet_, kBoxDecimals, false);
    connect(enterBet_, &QLineEdit::returnPressed, this, [this] {
      CommitEnterBet();
      enterBet_->hide();
      setFocus();
    });
    enterBet_->installEventFilter(this);
  }
  const int p = game_.betting.CurPlayer;
  game_.gamefile.EnterBetId = b;
  const int spot = IsCheckStack(b) ? 100 + [&] {
    for (int i = 1; i <= 4; ++i)
      if (game_.betting.CheckStackSlot(p, i) == b) return i;
    return 1;
  }()
                                   : b;
  const QPointF at = ToScreen(BasePosition(p, spot));
  enterBet_->setText(QString::fromStdString(FormatMoney(game_.Bet(p, b))));
  enterBet_->adjustSize();
  enterBet_->move(static_cast<int>(at.x()) - kBoxWidth / 2,
                  static_cast<int>(at.y()) - enterBet_->height() / 2);
  enterBet_->show();
  enterBet_->selectAll();
  enterBet_->setFocus();
}

bool TableView::CommitEnterBet() {
  const int b = game_.gamefile.EnterBetId;
  if (!enterBet_ || !enterBet_->isVisible() || b == 0) return false;
  const int p = game_.betting.CurPlayer;
  const std::string text = CommitKeyedAmount(game_, p, b, enterBet_->text().toStdString());
  enterBet_->setText(QString::fromStdString(text));
  emit gameChanged();
  update();
  return true;
}

void TableView::MoveEnterBet(int key) {
  CommitEnterBet();
  const int p = game_.betting.CurPlayer;
  const int at = game_.gamefile.EnterBetId;
  if (!IsRealBet(at)) return;
  // The direction the key points on screen, in layout terms: the keys turn
  // with the table in sectors of 90 degrees starting at 45.
  const int sector = ((game_.table.TableRotation + 45) / 90) % 4;
  int dir = key == Qt::Key_Right ? 0 : key == Qt::Key_Down ? 1 : key == Qt::Key_Left ? 2 : 3;
  dir = (dir - sector + 4) % 4;
  const QPointF want[4] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  const QPointF from = BasePosition(p, at);
  int best = 0;
  double bestScore = 1e9;
  for (int b = 1; b <= kLastRealBet; ++b) {
    if (b == at || !RegionShown(game_, b)) continue;
    const QPointF d = BasePosition(p, b) - from;
    const double along = d.x() * want[dir].x() + d.y() * want[dir].y();
    if (along <= 1) continue;
    const double across = std::abs(d.x() * want[dir].y() - d.y() * want[dir].x());
    const double score = along + 2 * across;
    if (score < bestScore) bestScore = score, best = b;
  }
  if (best) OpenEnterBet(best);
}

bool TableView::eventFilter(QObject* watched, QEvent* event) {
  if (watched != enterBet_ || event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down) {
    MoveEnterBet(key);
    return true;
  }
  if (key == Qt::Key_Escape) {
    enterBet_->hide();
    setFocus();
    return true;
  }
  return false;
}
