#include "table/roll_pad_form.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "core/game.h"
#include "cycle/hyperdrive.h"
#include "cycle/roll_pad_click.h"
#include "dice/roll_pad.h"
#include "table/menu_items.h"

namespace {

constexpr int kThrottleMax = 10;
constexpr int kStartWidth = 330, kStartHeight = 330;
constexpr double kPipRadius = 0.09;  // of a face's side

const char* const kColorCaption[3] = {"&Multi-color", "&Red and Cyan", "&Gray"};

// A cell's fill by the colour scheme: multi-colour gives each total its own
// hue, red and cyan the two dice (or odd and even totals), gray one shade.
QColor CellColor(int scheme, const PadCell& cell) {
  const int total = cell.what == PadCell::Total  ? cell.total
                    : cell.what == PadCell::Pair ? cell.die1 + cell.die2
                                                 : 0;
  switch (scheme) {
    case 1:
      if (cell.what == PadCell::Face)
        return cell.die == 1 ? QColor(220, 40, 40) : QColor(0, 200, 220);
      return total % 2 ? QColor(220, 40, 40) : QColor(0, 200, 220);
    case 2:
      return QColor(190, 190, 190);
    default: {
      if (cell.what == PadCell::Face)
        return cell.die == 1 ? QColor(120, 170, 255) : QColor(120, 220, 140);
      // 2 to 12 round the colour circle, 7 in the middle.
      return QColor::fromHsv((total - 2) * 30 % 360, 110, 245);
    }
  }
}

// The pips of a face in a square.
void DrawFace(QPainter& p, const QRectF& square, int face) {
  static const int kPips[7][7] = {{0},
                                  {1, 4},
                                  {2, 0, 8},
                                  {3, 0, 4, 8},
                                  {4, 0, 2, 6, 8},
                                  {5, 0, 2, 4, 6, 8},
                                  {6, 0, 2, 3, 5, 6, 8}};
  const double side = square.width(), r = side * kPipRadius;
  p.setBrush(Qt::black);
  p.setPen(Qt::NoPen);
  for (int i = 1; i <= kPips[face][0]; ++i) {
    const int at = kPips[face][i];
    const QPointF c(square.left() + side * (0.2 + 0.3 * (at % 3)),
                    square.top() + side * (0.2 + 0.3 * (at / 3)));
    p.drawEllipse(c, r, r);
  }
}

}  // namespace

PadWidget::PadWidget(Game& game, QWidget* parent) : QWidget(parent), game_(game) {
  setObjectName("picRYON");
  setMinimumSize(60, 60);
}

void PadWidget::paintEvent(QPaintEvent*) {
  const RollPadState& pad = game_.pad;
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  p.fillRect(rect(), palette().window());
  const bool counter = (pad.PadOptions & kPadRollCounter) != 0;
  const int top = counter ? kPadCounterHeight : 0;
  if (counter) {
    p.setPen(palette().windowText().color());
    p.drawText(QRect(0, 0, width(), kPadCounterHeight), Qt::AlignCenter,
               QString::fromStdString(PadCounterText(game_)));
  }
  const PadLayout layout = PadLayoutFor(PadKindOf(pad.PadOptions), width(), height());
  if (layout.rows == 0 || layout.columns == 0) return;
  const double cw = double(width()) / layout.columns, ch = double(height() - top) / layout.rows;
  const int scheme = std::clamp(pad.PadColor, 0, 2);
  QFont font = p.font();
  font.setBold(true);
  font.setPixelSize(std::max(9, static_cast<int>(std::min(cw, ch) * 0.33)));
  p.setFont(font);
  for (int r = 1; r <= layout.rows; ++r)
    for (int c = 1; c <= layout.columns; ++c) {
      const PadCell cell = PadCellAt(layout, r, c);
      if (cell.what == PadCell::Empty) continue;
      const QRectF box = QRectF(cw * (c - 1), top + ch * (r - 1), cw, ch).adjusted(2, 2, -2, -2);
      // The cell of the present dice stands out; a face picked for the
      // next roll shows in its own colour until the other die has one.
      const bool current =
          (cell.what == PadCell::Total && cell.total == game_.Die1 + game_.Die2) ||
          (cell.what == PadCell::Pair && cell.die1 == game_.Die1 && cell.die2 == game_.Die2) ||
          (cell.what == PadCell::Face && cell.face == (cell.die == 1 ? game_.Die1 : game_.Die2));
      const bool picked = cell.what == PadCell::Face &&
                          cell.face == (cell.die == 1 ? pad.PadFacePick1 : pad.PadFacePick2);
      p.setBrush(picked    ? QColor(255, 160, 0)
                 : current ? QColor(255, 255, 110)
                           : CellColor(scheme, cell));
      p.setPen(QPen(current ? Qt::black : QColor(90, 90, 90), current ? 3 : 1));
      p.drawRoundedRect(box, 4, 4);
      p.setPen(Qt::black);
      if (cell.what == PadCell::Total) {
        p.drawText(box, Qt::AlignCenter, QString::number(cell.total));
      } else if (cell.what == PadCell::Pair) {
        p.drawText(box, Qt::AlignCenter, QString("%1-%2").arg(cell.die1).arg(cell.die2));
      } else {
        const double side = std::min(box.width(), box.height()) * 0.8;
        DrawFace(p, QRectF(box.center() - QPointF(side / 2, side / 2), QSizeF(side, side)),
                 cell.face);
      }
    }
}

void PadWidget::mousePressEvent(QMouseEvent* event) {
  emit pressed(event->button(), event->position().toPoint(), event->globalPosition().toPoint());
}

RollPadForm::RollPadForm(Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmRYON");
  setWindowTitle("Dice Rolls");
  pad_ = new PadWidget(game, this);
  connect(pad_, &PadWidget::pressed, this, &RollPadForm::Click);
  random_ = new QPushButton("&Random Roll");
  random_->setObjectName("cmdRandomRoll");
  connect(random_, &QPushButton::clicked, this, &RollPadForm::RandomRoll);
  hyperDrive_ = new QPushButton("Start Hyper-&Drive");
  hyperDrive_->setObjectName("cmdHyperDrive");
  connect(hyperDrive_, &QPushButton::clicked, this, &RollPadForm::ToggleHyperDrive);
  throttle_ = new QScrollBar(Qt::Horizontal);
  throttle_->setObjectName("hsbThrottle");
  throttle_->setRange(0, kThrottleMax);
  throttle_->setPageStep(1);
  connect(throttle_, &QScrollBar::valueChanged, this,
          [this](int v) { game_.hyper.HyperThrottle = v; });
  // Keys belong to the table, not to the buttons.
  for (QWidget* w : {static_cast<QWidget*>(random_), static_cast<QWidget*>(hyperDrive_),
                     static_cast<QWidget*>(throttle_)})
    w->setFocusPolicy(Qt::NoFocus);
  random_->setAutoDefault(false);
  hyperDrive_->setAutoDefault(false);
  setFocusPolicy(Qt::StrongFocus);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(random_);
  buttons->addWidget(hyperDrive_);
  buttons->addWidget(throttle_, 1);
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(4, 4, 4, 4);
  outer->addWidget(pad_, 1);
  outer->addLayout(buttons);
  BuildMenu();
  resize(kStartWidth, kStartHeight);
}

void RollPadForm::BuildMenu() {
  display_ = new QMenu(this);
  display_->setObjectName("mnuDisplay");
  QMenu* kinds = display_->addMenu("&Display");
  kinds->setObjectName("mnuDisplayRYON");
  auto* kindGroup = new QActionGroup(this);
  for (const PadKindInfo& k : kPadKinds) {
    QAction* a = kinds->addAction(QString::fromUtf8(k.menuText.data(), int(k.menuText.size())));
    a->setObjectName("mnuDisplayRYON");
    a->setCheckable(true);
    a->setData(static_cast<int>(k.kind));
    kindGroup->addAction(a);
    connect(a, &QAction::triggered, this, [this, k] {
      SetPadKind(game_.pad, k.kind);
      Refresh();
    });
  }
  QMenu* colors = display_->addMenu("&Color");
  colors->setObjectName("mnuColorMenu");
  QStringList colorCaptions;
  for (const char* c : kColorCaption) colorCaptions << c;
  RadioItems(this, colors, "mnuColor", colorCaptions, game_.pad.PadColor, [this](int i) {
    game_.pad.PadColor = i;
    Refresh();
  });
  display_->addSeparator();
  auto option = [this](const char* name, const char* caption, std::int32_t bit) {
    QAction* a = CheckItem(display_, name, caption);
    connect(a, &QAction::triggered, this, [this, bit](bool on) { SetOption(bit, on); });
  };
  option("mnuRollCounter", "Roll &Counter", kPadRollCounter);
  option("mnuHyperDriveButton", "&Hyper-Drive Button", kPadHyperDriveButton);
  option("mnuRandomButton", "&Random Roll Button", kPadRandomButton);
  display_->addSeparator();
  QAction* delay = display_->addAction("Set Hyper-Drive &Time Delay ...");
  delay->setObjectName("mnuSetHyperDriveTimeDelay");
  connect(delay, &QAction::triggered, this, [this] { SetTimeDelay(game_); });
  QAction* stop = display_->addAction("Set Hyper-Drive &Auto-Stop ...");
  stop->setObjectName("mnuSetHyperDriveAutoStop");
  connect(stop, &QAction::triggered, this, [this] { SetAutoStop(game_); });
  display_->addSeparator();
  QAction* hide = display_->addAction("&Hide");
  hide->setObjectName("mnuHide");
  connect(hide, &QAction::triggered, this, &QWidget::close);
}

void RollPadForm::SetOption(std::int32_t bit, bool on) {
  std::int32_t& o = game_.pad.PadOptions;
  o = on ? (o | bit) : (o & ~bit);
  Refresh();
}

void RollPadForm::Refresh() {
  const std::int32_t o = game_.pad.PadOptions;
  const int kind = static_cast<int>(PadKindOf(o));
  for (QAction* a : display_->findChildren<QAction*>("mnuDisplayRYON"))
    if (a->isCheckable()) a->setChecked(a->data().toInt() == kind);
  for (QAction* a : display_->findChildren<QAction*>("mnuColor"))
    a->setChecked(a->data().toInt() == game_.pad.PadColor);
  auto check = [this](const char* name, bool on) {
    if (QAction* a = display_->findChild<QAction*>(name)) a->setChecked(on);
  };
  check("mnuRollCounter", o & kPadRollCounter);
  check("mnuHyperDriveButton", o & kPadHyperDriveButton);
  check("mnuRandomButton", o & kPadRandomButton);
  random_->setVisible(o & kPadRandomButton);
  hyperDrive_->setVisible(o & kPadHyperDriveButton);
  throttle_->setVisible(o & kPadHyperDriveButton);
  hyperDrive_->setText(game_.HyperDrive ? "Stop Hyper-&Drive" : "Start Hyper-&Drive");
  throttle_->setValue(game_.hyper.HyperThrottle);
  pad_->update();
}

void RollPadForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  CheckPadOptions(game_.pad);
  optionsAtShow_ = game_.pad.PadOptions;
  Refresh();
}

void RollPadForm::hideEvent(QHideEvent* event) {
  // The picks of single faces live only while the pad is open.
  game_.pad.PadFacePick1 = game_.pad.PadFacePick2 = 0;
  if (game_.pad.PadOptions != optionsAtShow_) game_.roll.SessionDirty = true;
  QDialog::hideEvent(event);
}

void RollPadForm::keyPressEvent(QKeyEvent* event) {
  emit tableKey(event->key(), event->modifiers());
}

void RollPadForm::Click(Qt::MouseButton button, QPoint at, QPoint global) {
  const long before = game_.RollTally(kTableSession, kEventRolls);
  const double rnd = QRandomGenerator::global()->generateDouble();
  const PadClickOutcome outcome = PadClick(game_, button == Qt::RightButton, at.x(), at.y(),
                                           pad_->width(), pad_->height(), rnd);
  if (outcome == PadClickOutcome::ShowMenu) {
    Refresh();
    display_->popup(global);
    return;
  }
  if (game_.RollTally(kTableSession, kEventRolls) != before) emit rolled();
  Refresh();
}

void RollPadForm::RandomRoll() {
  const long before = game_.RollTally(kTableSession, kEventRolls);
  PadRandomRoll(game_);
  if (game_.RollTally(kTableSession, kEventRolls) != before) emit rolled();
  Refresh();
  setFocus();
}

void RollPadForm::ToggleHyperDrive() {
  // A second press stops the run in progress; the run itself returns when it ends.
  if (!game_.HyperDrive) hyperDrive_->setText("Stop Hyper-&Drive");
  RunHyperDrive(game_);
  Refresh();
}
