#include "table/bankroll_form.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <cmath>

#include "core/game.h"
#include "core/graph_rows.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "cycle/hyperdrive.h"
#include "script/activation.h"
#include "stats/bankroll_graph.h"
#include "stats/bankroll_printout.h"
#include "stats/graph_view.h"
#include "table/menu_items.h"

namespace {

constexpr int kLiveMs = 250;
constexpr int kScaleWidth = 64;
constexpr int kScaleOverhang = 16;  // a label's height, centred on its row

// Colour schemes: background, bankroll line, band above, band below, reference 1 and 2.
struct Scheme {
  QColor back, line, above, below, ref1, ref2;
};
const Scheme kSchemes[kGraphColorSchemes] = {
    {{0, 0, 0}, {0, 255, 0}, {0, 128, 128}, {128, 0, 128}, {255, 0, 0}, {255, 255, 0}},
    {{0, 255, 255}, {0, 0, 0}, {0, 0, 255}, {255, 0, 0}, {0, 0, 0}, {255, 0, 255}},
    {{255, 255, 255}, {0, 0, 0}, {0, 0, 255}, {255, 0, 0}, {0, 128, 128}, {128, 0, 128}},
    {{255, 0, 0}, {255, 255, 255}, {0, 0, 255}, {0, 0, 0}, {0, 255, 255}, {255, 255, 0}},
    {{0, 255, 128}, {0, 0, 128}, {0, 0, 255}, {255, 0, 0}, {0, 0, 0}, {255, 255, 255}},
    {{255, 255, 0}, {0, 0, 0}, {0, 0, 255}, {255, 0, 0}, {0, 128, 0}, {255, 0, 0}},
    {{33, 89, 150}, {255, 255, 255}, {0, 255, 255}, {0, 0, 0}, {255, 0, 0}, {255, 255, 0}},
    {{128, 128, 128}, {255, 255, 255}, {0, 128, 128}, {0, 0, 0}, {0, 0, 255}, {128, 0, 0}},
    {{200, 180, 119}, {255, 255, 255}, {128, 128, 0}, {0, 0, 0}, {255, 0, 0}, {0, 128, 128}},
    {{138, 91, 56}, {255, 255, 255}, {185, 159, 83}, {0, 0, 0}, {255, 0, 0}, {255, 255, 0}}};
const char* const kColorCaption[10] = {"&Black", "&Cyan", "&White", "&Red", "&Green",
                                       "&Yellow", "Bl&ue", "Gr&ay", "&Tan", "Br&own"};

}  // namespace

GraphWidget::GraphWidget(Game& game, QWidget* parent) : QWidget(parent), game_(game) {
  setObjectName("picGraph");
  setFixedSize(kGraphColumns, kGraphRows);
}

QSize GraphWidget::sizeHint() const { return {kGraphColumns, kGraphRows}; }

void GraphWidget::paintEvent(QPaintEvent*) {
  const Game& g = game_;
  const GraphViewState& v = g.graph;
  const Scheme& c = kSchemes[std::clamp(v.GraphColor, 0, kGraphColorSchemes - 1)];
  QPainter p(this);
  p.fillRect(rect(), c.back);
  const int pl = v.GraphPlayer;
  if (pl < 1 || pl > 8) return;
  if (v.GraphShowGrid) {
    p.setPen(v.GraphColor == 7 ? QColor(64, 64, 64) : QColor(192, 192, 192));
    for (int row = kGraphBlockRows; row < kGraphRows - 1; row += kGraphBlockRows)
      p.drawLine(0, row, kGraphColumns, row);
  }
  auto row = [&](Currency a) { return static_cast<int>(std::clamp<std::int64_t>(GraphRow(g, a), -2, kGraphRows + 1)); };
  int lastY = row(g.Bet(pl, bet::kBankroll));
  for (int x = 1; x <= g.GraphRollCount; ++x) {
    const int y = row(GraphPage(g, pl, x));
    const int b = row(g.roll.GraphShowAverage ? GraphTrendAt(g, pl, x) : g.InvestedBankroll(pl));
    const int e = v.GraphStyle == 0 ? b : y;
    const bool skip = (v.GraphStyle == 0 && (e < 0 || e > kGraphRows - 1)) ||
                      (v.GraphStyle == 1 && x % 2 == 1);
    if (!skip) {
      p.setPen(b <= y ? c.below : c.above);
      p.drawLine(x - 1, b, x - 1, e);
    }
    p.setPen(c.line);
    p.drawLine(x == 1 ? x - 1 : x - 2, x == 1 ? y : lastY, x - 1, y);
    lastY = y;
  }
  p.setPen(c.line);
  p.drawPoint(std::max(0, g.GraphRollCount - 1), row(g.Bet(pl, bet::kBankroll)));
  if (v.GraphShowRefLines) {
    const int lines[2] = {v.RefLine1, v.RefLine2};
    const QColor colors[2] = {c.ref1, c.ref2};
    for (int i = 0; i < 2; ++i) {
      p.setPen(colors[i]);
      p.drawLine(lines[i], 0, lines[i], kGraphRows - 1);
      if (lines[i] < g.GraphRollCount) {
        const int y = row(GraphPage(g, pl, lines[i] + 1));
        p.drawLine(0, y, kGraphColumns, y);
      }
    }
  }
}

void GraphWidget::mousePressEvent(QMouseEvent* event) {
  // A left click moves reference line 1 to the column, a right click line 2.
  GraphViewState& v = game_.graph;
  if (!v.GraphShowRefLines) return;
  const int col = std::clamp(static_cast<int>(event->position().x()), 0, kGraphColumns - 1);
  (event->button() == Qt::RightButton ? v.RefLine2 : v.RefLine1) = col;
  if (auto* form = qobject_cast<BankrollForm*>(parentWidget())) form->Refresh();
  update();
}

BankrollForm::BankrollForm(Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmBankroll");
  HelpKey(this, game_, kHelpStatistics);
  setWindowTitle("Bankroll / Hyper-Drive");
  auto* menu = new QMenuBar(this);
  QMenu* options = menu->addMenu("&Options");
  MenuItem(this, options, "mnuSetAutoStop", "Set Hyper-Drive Auto-Stop ...",
           [this] { SetAutoStop(game_); });
  MenuItem(this, options, "mnuSetTimeDelay", "Set Hyper-Drive &Time Delay ...",
           [this] { SetTimeDelay(game_); });
  options->addSeparator();
  QAction* grid =
      MenuItem(this, options, "mnuDisplayGridLines", "Display &Grid Lines", [this](bool on) {
        game_.graph.GraphShowGrid = on;
        Redraw(false);
      });
  grid->setCheckable(true);
  grid->setChecked(game_.graph.GraphShowGrid);
  QAction* avg = MenuItem(this, options, "mnuDisplayAverage", "Display &Average", [this](bool on) {
    game_.roll.GraphShowAverage = on;
    if (on)
      RebuildGraphTrend(game_);
    else
      FigureGraphRange(game_, game_.graph.GraphPlayer);
    Redraw(false);
  });
  avg->setCheckable(true);
  MenuItem(this, options, "mnuSetAverage", "Set &Moving Average ...", [this] {
    GraphViewState& v = game_.graph;
    game_.msg.MsgInput1 = std::to_string(v.GraphAverageSpan);
    ShowNotice(game_,
               "Enter the number of rolls (max 525) that you'd like to include in the bankroll "
               "moving average (a value of 0 will display an average of all rolls since the "
               "beginning of the session):",
               "Set Bankroll Moving Average", 0,
               kMsgOk | kMsgCancel | kMsgInput1 | kMsgPicQmark);
    if (game_.msg.MsgAnswer != kAnswerOk) return;
    const double span = std::floor(LeadingValue(game_.msg.MsgInput1));
    v.GraphAverageSpan = static_cast<std::int32_t>(std::clamp(span, 0.0, double(kGraphColumns)));
    if (game_.roll.GraphShowAverage) RebuildGraphTrend(game_);
    Redraw(false);
  });
  QAction* refs =
      MenuItem(this, options, "mnuDisplayRefLines", "Display &Reference Lines", [this](bool on) {
        game_.graph.GraphShowRefLines = on;
        Redraw(false);
      });
  refs->setCheckable(true);
  QMenu* type = options->addMenu("Graph &Type");
  QMenu* color = options->addMenu("Set &Color");
  QMenu* adjust = options->addMenu("Auto-Adjust &Type");
  QMenu* plot = options->addMenu("&Plot Type");
  auto radio = [this](QMenu* m, const char* name, const QStringList& texts, std::int32_t& field) {
    RadioItems(this, m, name, texts, field, [this, &field](int i) {
      field = i;
      Redraw(false);
    });
  };
  radio(type, "mnuGraphType", {"&Plain", "&Striped", "S&olid"}, game_.graph.GraphStyle);
  QStringList colors;
  for (const char* c : kColorCaption) colors << c;
  radio(color, "mnuSetColor", colors, game_.graph.GraphColor);
  radio(adjust, "mnuAutoAdjustType",
        {"&Manual", "Auto-&Shift ", "Auto-Shift with &Expanding Scale",
         "Auto-Shift with S&nap-back Scale"},
        game_.graph.GraphAdjustType);
  radio(plot, "mnuBRTypePlot", {"Page", "Scroll"}, game_.roll.GraphPlotType);
  QMenu* print = menu->addMenu("&Print");
  MenuItem(this, print, "mnuPrintNow", "Print &Now", [this] {
    // During a script run the print waits for the user's leave to interrupt it.
    if (game_.scriptRun.ScriptRunning && !AskInterruptAutoBetting(game_)) return;
    PrintBankrollGraph(game_, game_.graph.GraphPlayer);
    PromptGraphPrint(game_);
  });
  autoPrint_ = MenuItem(this, print, "mnuAutoPrint", "&Auto-Print", [this](bool on) {
    SetGraphAutoPrint(game_, on);
    Refresh();
  });
  autoPrint_->setCheckable(true);

  player_ = new QComboBox;
  player_->setObjectName("cmbPlayer");
  connect(player_, &QComboBox::currentIndexChanged, this, [this] { ChoosePlayer(); });
  graph_ = new GraphWidget(game, this);

  // The seven scale labels stand level with rows 0, 50, ... 300 of the graph.
  auto* scales = new QWidget;
  scales->setFixedSize(kScaleWidth, kGraphRows + kScaleOverhang);
  for (std::size_t i = 0; i < scale_.size(); ++i) {
    scale_[i] = new QLabel(scales);
    scale_[i]->setObjectName(QStringLiteral("lblScale%1").arg(i));
    scale_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    scale_[i]->setGeometry(0, static_cast<int>(i) * kGraphBlockRows, kScaleWidth - 4,
                           kScaleOverhang);
  }
  rollsLeft_ = new QLabel;
  rollsLeft_->setObjectName("lblRollsLeft");
  rollsRight_ = new QLabel;
  rollsRight_->setObjectName("lblRollsRight");
  auto* rolls = new QHBoxLayout;
  rolls->addWidget(rollsLeft_);
  rolls->addStretch(1);
  rolls->addWidget(new QLabel("ROLLS"));
  rolls->addStretch(1);
  rolls->addWidget(rollsRight_);

  figures_ = new QLabel;
  figures_->setObjectName("lblFigures");
  figures_->setTextFormat(Qt::RichText);
  average_ = new QLabel;
  average_->setObjectName("lblMovingAverage");
  autoPrintLabel_ = new QLabel;
  autoPrintLabel_->setObjectName("lblAutoPrint");
  auto button = [&](const char* name, const QString& text, auto f) {
    auto* b = new QPushButton(text);
    b->setObjectName(name);
    connect(b, &QPushButton::clicked, this, f);
    return b;
  };
  auto* larger = button("lblLarger", "Larger scale", [this] {
    game_.roll.GraphScale = NextGraphScale(game_.roll.GraphScale, 1);
    game_.roll.GraphBaseScale = game_.roll.GraphScale;
    Redraw(true);
  });
  auto* smaller = button("lblSmaller", "Smaller scale", [this] {
    game_.roll.GraphScale = NextGraphScale(game_.roll.GraphScale, -1);
    game_.roll.GraphBaseScale = game_.roll.GraphScale;
    Redraw(true);
  });
  auto* up = button("cmdShiftUp", QString::fromUtf8("Shift \u2191"), [this] {
    game_.roll.GraphTop += CurMulInt(game_.roll.GraphScale, kGraphBlockRows);
    Redraw(false);
  });
  auto* down = button("cmdShiftDown", QString::fromUtf8("Shift \u2193"), [this] {
    game_.roll.GraphTop -= CurMulInt(game_.roll.GraphScale, kGraphBlockRows);
    Redraw(false);
  });
  hyperDrive_ = button("cmdHyperDriveActive", "Start Hyper-&Drive", [this] { ToggleHyperDrive(); });
  throttle_ = new QScrollBar(Qt::Horizontal);
  throttle_->setObjectName("hsbThrottle");
  throttle_->setRange(0, 10);
  throttle_->setPageStep(1);
  connect(throttle_, &QScrollBar::valueChanged, this, [this](int v) { game_.hyper.HyperThrottle = v; });

  auto* side = new QVBoxLayout;
  side->addWidget(new QLabel("Player:"));
  side->addWidget(player_);
  side->addWidget(figures_);
  side->addWidget(average_);
  side->addWidget(autoPrintLabel_);
  side->addStretch(1);
  auto* scaleButtons = new QGridLayout;
  scaleButtons->addWidget(larger, 0, 0);
  scaleButtons->addWidget(smaller, 0, 1);
  scaleButtons->addWidget(up, 1, 0);
  scaleButtons->addWidget(down, 1, 1);
  side->addLayout(scaleButtons);
  side->addWidget(new QLabel("Hyper-Drive speed (fastest to slowest):"));
  side->addWidget(throttle_);
  side->addWidget(hyperDrive_);

  auto* plotArea = new QGridLayout;
  plotArea->setVerticalSpacing(0);
  plotArea->addWidget(scales, 0, 0, Qt::AlignTop);
  auto* graphBox = new QVBoxLayout;
  graphBox->addSpacing(kScaleOverhang / 2);
  graphBox->addWidget(graph_);
  graphBox->addStretch(1);
  plotArea->addLayout(graphBox, 0, 1);
  plotArea->addLayout(rolls, 1, 1);
  auto* body = new QHBoxLayout;
  body->addLayout(plotArea);
  body->addLayout(side);
  auto* outer = new QVBoxLayout(this);
  outer->setMenuBar(menu);
  outer->addLayout(body);

  live_.setInterval(kLiveMs);
  connect(&live_, &QTimer::timeout, this, [this] {
    if (game_.HyperDrive) Refresh();
  });
}

void BankrollForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  game_.roll.GraphOpen = true;
  live_.start();
  GraphViewState& v = game_.graph;
  if (v.GraphPlayer < 1 || game_.PlayerName[static_cast<std::size_t>(v.GraphPlayer)].empty())
    for (int p = 8; p >= 1; --p)
      if (!game_.PlayerName[static_cast<std::size_t>(p)].empty()) v.GraphPlayer = p;
  RebuildGraphTrend(game_);
  Redraw(true);
}

void BankrollForm::hideEvent(QHideEvent* event) {
  game_.roll.GraphOpen = false;
  live_.stop();
  QDialog::hideEvent(event);
}

void BankrollForm::ChoosePlayer() {
  if (filling_) return;
  const int p = player_->currentData().toInt();
  if (p == game_.graph.GraphPlayer) return;
  game_.roll.SessionDirty = true;
  game_.graph.GraphPlayer = p;
  RebuildGraphTrend(game_);
  if (game_.graph.GraphAdjustType == 3) game_.roll.GraphScale = game_.roll.GraphBaseScale;
  Redraw(true);
}

void BankrollForm::Redraw(bool recentre) {
  FigureGraphScale(game_, recentre);
  Refresh();
}

void BankrollForm::Refresh() {
  filling_ = true;
  player_->clear();
  for (int p = 1; p <= 8; ++p)
    if (!game_.PlayerName[static_cast<std::size_t>(p)].empty())
      player_->addItem(QString::fromStdString(game_.PlayerName[static_cast<std::size_t>(p)]), p);
  player_->setCurrentIndex(player_->findData(game_.graph.GraphPlayer));
  filling_ = false;
  throttle_->setValue(game_.hyper.HyperThrottle);
  hyperDrive_->setText(game_.HyperDrive ? "Stop Hyper-&Drive" : "Start Hyper-&Drive");
  autoPrint_->setChecked(game_.roll.GraphAutoPrint);
  autoPrintLabel_->setText(game_.roll.GraphAutoPrint ? "Auto-Print ON" : QString());
  const int p = game_.graph.GraphPlayer;
  // A run moves the bankroll out of the picture: the scale follows by its rules.
  if (p >= 1 && p <= 8 && game_.graph.GraphAdjustType > 0) {
    const std::int64_t r = GraphRow(game_, game_.Bet(p, bet::kBankroll));
    if (r < 0 || r > kGraphRows - 1) FigureGraphScale(game_, false);
  }
  // The texts beside the graph are the report's own figures.
  const BankrollGraphFigures f = FigureBankrollGraph(game_, p);
  const auto text = [](const Shown& shown) { return QString::fromStdString(shown.text); };
  for (std::size_t n = 0; n < scale_.size(); ++n) scale_[n]->setText(text(f.scaleLabels[n]));
  rollsLeft_->setText(text(f.rollsLeft));
  rollsRight_->setText(text(f.rollsRight));
  QString figures = QString("Total rolls:  %1<br>Rolls / hr:  %2<br>Sim hrs:  %3")
                        .arg(text(f.totalRolls), text(f.rollsPerHour), text(f.simHours));
  if (!f.playerName.empty()) {
    auto money = [&](const char* label, const Shown& amount) {
      const char* color = amount.value < 0 ? "#ff0000" : "#0000ff";
      return QString("<br>%1  <span style='color:%2'>%3</span>").arg(label, color, text(amount));
    };
    figures += money("High:", f.high) + money("Low:", f.low) + money("Current:", f.current);
  }
  // picRefDif: the two reference lines measured against each other.
  if (!f.refRolls.empty()) {
    figures += "<br><br>" + QString::fromStdString(f.refRolls);
    if (!f.refBankroll.empty()) figures += "<br>" + QString::fromStdString(f.refBankroll);
  }
  figures_->setText(figures);
  average_->setText(QString::fromStdString(f.averageLabel));
  graph_->update();
}

void BankrollForm::ToggleHyperDrive() {
  if (game_.HyperDrive) {
    RunHyperDrive(game_);  // a second press stops the run in progress
    return;
  }
  hyperDrive_->setText("Stop Hyper-&Drive");
  RunHyperDrive(game_);
  RebuildGraphTrend(game_);
  Redraw(false);
}
