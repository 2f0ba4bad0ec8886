#include "table/roll_totals_form.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPainter>
#include <QRadioButton>
#include <QScrollBar>
#include <QTimer>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/game.h"
#include "stats/roll_totals.h"
#include "stats/view_printouts.h"
#include "table/menu_items.h"

namespace {

enum Column { kColText, kColProbable, kColActual, kColCount, kColSince, kColGraph, kColumns };
constexpr int kBarMargin = 8;  // room left and right of the 223 units of a bar
constexpr int kGraphWidth = static_cast<int>(kBarLength) + 2 * kBarMargin;
constexpr int kRowHeight = 20;
constexpr int kProbableRole = Qt::UserRole, kActualRole = Qt::UserRole + 1;
constexpr int kVisibleRows = 21;  // the window opens tall enough for 21 rows

const char* const kBackCaptions[] = {"&Black", "&Cyan", "&White", "&Gray"};
const QColor kBackColors[] = {Qt::black, Qt::cyan, Qt::white, QColor(128, 128, 128)};
const char* const kGraphCaptions[] = {"&Multi-Color",   "&Black",        "&White",
                                      "&Red",           "&Yellow",       "B&lack and Blue",
                                      "Bl&ack and Red", "R&ed and Blue", "Yell&ow and Blue"};
constexpr int kMultiColor = 0, kFirstPair = 5;
// The single colours (schemes 1..4) and the pairs (5..8): probable, actual.
const QColor kSingleColors[] = {Qt::black, Qt::white, QColor(255, 0, 0), QColor(255, 255, 0)};
const QColor kPairColors[][2] = {{Qt::black, Qt::blue},
                                 {Qt::black, QColor(255, 0, 0)},
                                 {QColor(255, 0, 0), Qt::blue},
                                 {QColor(255, 255, 0), Qt::blue}};
// Multi-colour: the probable bars grey, the actual bars by row.
const QColor kMultiProbable(170, 170, 170);
const QColor kMultiActual[] = {QColor(255, 64, 64), QColor(255, 160, 0), QColor(240, 240, 0),
                               QColor(0, 200, 0),   QColor(0, 200, 255), QColor(80, 110, 255),
                               QColor(200, 90, 255)};

struct BarColors {
  QColor probable, actual;
  bool hollowProbable = false;  // a single colour tells the bars apart by fill
};

BarColors ColorsOf(int scheme, int row) {
  if (scheme >= kFirstPair && scheme < kFirstPair + 4) {
    const QColor* pair = kPairColors[scheme - kFirstPair];
    return {pair[0], pair[1]};
  }
  if (scheme > kMultiColor && scheme < kFirstPair) {
    const QColor c = kSingleColors[scheme - 1];
    return {c, c, true};
  }
  return {kMultiProbable, kMultiActual[row % std::size(kMultiActual)]};
}

QColor BackOf(int back) { return kBackColors[std::clamp(back, 0, 3)]; }

// The graph column: two bars a row, probable above and actual below, with
// the axis marks at a quarter, a half, three quarters and the top.
class BarDelegate : public QStyledItemDelegate {
 public:
  BarDelegate(const Game& game, QObject* parent) : QStyledItemDelegate(parent), game_(game) {}
  void paint(QPainter* p, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const QRect r = option.rect;
    p->fillRect(r, BackOf(game_.gamefile.RollTotalsBackColor));
    p->setPen(QColor(128, 128, 128));
    for (int k = 1; k <= 4; ++k) {
      const int x = r.left() + kBarMargin + static_cast<int>(kBarLength * k / 4);
      p->drawLine(x, r.top(), x, r.bottom());
    }
    const BarColors c = ColorsOf(game_.gamefile.RollTotalsGraphColor, index.row());
    const int half = (r.height() - 4) / 2;
    const int probable = static_cast<int>(index.data(kProbableRole).toDouble() + 0.5);
    const int actual = static_cast<int>(index.data(kActualRole).toDouble() + 0.5);
    const QRect top(r.left() + kBarMargin, r.top() + 2, probable, half);
    const QRect bottom(r.left() + kBarMargin, r.top() + 2 + half, actual, half);
    if (c.hollowProbable) {
      p->setPen(c.probable);
      p->setBrush(Qt::NoBrush);
      if (probable > 0) p->drawRect(top.adjusted(0, 0, -1, -1));
    } else {
      p->fillRect(top, c.probable);
    }
    p->fillRect(bottom, c.actual);
  }

 private:
  const Game& game_;
};

}  // namespace

// The header above the graph column shows the axis marks in place.
class TotalsHeader : public QHeaderView {
 public:
  TotalsHeader(const Game& game, QWidget* parent)
      : QHeaderView(Qt::Horizontal, parent), game_(game) {}
  void SetScale(double top, const std::array<double, 4>& marks) {
    top_ = top;
    marks_ = marks;
    viewport()->update();
  }

 protected:
  void paintSection(QPainter* p, const QRect& r, int logical) const override {
    if (logical != kColGraph) {
      QHeaderView::paintSection(p, r, logical);
      return;
    }
    p->save();
    p->fillRect(r, BackOf(game_.gamefile.RollTotalsBackColor));
    const QColor ink = game_.gamefile.RollTotalsBackColor == 0 ? Qt::white : Qt::black;
    p->setPen(ink);
    p->drawText(r.adjusted(kBarMargin, 2, 0, -r.height() / 2), Qt::AlignLeft | Qt::AlignTop,
                "Percent");
    const int y = r.bottom() - 2;
    p->drawText(r.left() + kBarMargin - 3, y, "0");
    if (top_ > 0)
      for (int k = 0; k < 4; ++k) {
        const QString text = QString::number(marks_[static_cast<std::size_t>(k)], 'g', 4);
        const int x = r.left() + kBarMargin + static_cast<int>(kBarLength * (k + 1) / 4);
        const int w = p->fontMetrics().horizontalAdvance(text);
        p->drawText(std::min(x - w / 2, r.right() - w), y, text);
        p->drawLine(x, y + 1, x, r.bottom());
      }
    p->restore();
  }

 private:
  const Game& game_;
  double top_ = 0;
  std::array<double, 4> marks_{};
};

RollTotalsForm::RollTotalsForm(Game& game, QWidget* parent)
    : StatsForm(game, "frmRollTotals", "Roll Totals", parent) {
  ViewsState& v = game.views;
  QMenuBar* bar = MakeMenuBar(PrintRollTotals);
  MakeMenus(bar);
  QComboBox* frames = MakeFrameList(v.RollTotalsFrame);
  QListWidget* players = MakePlayerList(v.RollTotalsPlayers);

  showProb_ = new QButtonGroup(this);
  auto* skewed = new QRadioButton(" Show % vs. current skewed probability");
  skewed->setObjectName("optShowProb0");
  auto* truth = new QRadioButton(" Show % vs. true probability");
  truth->setObjectName("optShowProb1");
  showProb_->addButton(skewed, 0);
  showProb_->addButton(truth, 1);
  connect(showProb_, &QButtonGroup::idClicked, this, [this](int id) {
    if (filling_) return;
    game_.views.RollTotalsVsSkewed = id == 0;
    game_.roll.SessionDirty = true;
    Refresh();
  });

  totalRolls_ = MakeFigure("lblTotalRolls", 70);
  auto* total = new QHBoxLayout;
  total->addWidget(new QLabel("Total rolls:"));
  total->addWidget(totalRolls_);
  explain_ = new QLabel;
  explain_->setObjectName("lblExplain");
  explain_->setWordWrap(true);
  explain_->setFixedWidth(220);
  explain_->setAlignment(Qt::AlignTop | Qt::AlignLeft);

  QVBoxLayout* side = SelectionColumn(frames, players);
  side->addSpacing(8);
  side->addWidget(skewed);
  side->addWidget(truth);
  side->addSpacing(8);
  side->addLayout(total);
  side->addWidget(explain_);
  side->addStretch(1);

  grid_ = new QTableWidget(0, kColumns);
  grid_->setObjectName("grdTotals");
  header_ = new TotalsHeader(game, grid_);
  grid_->setHorizontalHeader(header_);
  grid_->setHorizontalHeaderLabels(
      {"", "Prob %", "Actual %", "# of rolls", "# of rolls since last", ""});
  header_->setDefaultAlignment(Qt::Alignment(Qt::AlignCenter | Qt::TextWordWrap));
  header_->setSectionResizeMode(QHeaderView::Fixed);
  header_->setMinimumHeight(2 * fontMetrics().height() + 8);
  grid_->verticalHeader()->hide();
  grid_->verticalHeader()->setDefaultSectionSize(kRowHeight);
  grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid_->setSelectionMode(QAbstractItemView::NoSelection);
  grid_->setFocusPolicy(Qt::NoFocus);
  grid_->setItemDelegateForColumn(kColGraph, new BarDelegate(game, grid_));
  const int widths[kColumns] = {190, 60, 64, 70, 80, kGraphWidth};
  int width = 0;
  for (int k = 0; k < kColumns; ++k) {
    grid_->setColumnWidth(k, widths[k]);
    width += widths[k];
  }
  grid_->setMinimumWidth(width + grid_->verticalScrollBar()->sizeHint().width() + 4);
  grid_->setMinimumHeight(kVisibleRows * kRowHeight + header_->minimumHeight() + 4);
  grid_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // The list's scroll position is kept with the game.
  connect(grid_->verticalScrollBar(), &QScrollBar::valueChanged, this,
          [this](int y) { game_.gamefile.RollTotalsScrollY = y; });

  // "Probable" and "Actual": which bar is which.
  auto* legend = new QHBoxLayout;
  auto swatch = [&](const char* name) {
    auto* l = new QLabel;
    l->setObjectName(name);
    l->setTextFormat(Qt::RichText);
    legend->addWidget(l);
    return l;
  };
  legend->addStretch(1);
  probableKey_ = swatch("lblProbable");
  legend->addSpacing(16);
  actualKey_ = swatch("lblActual");
  legend->addSpacing(kBarMargin);

  auto* right = new QVBoxLayout;
  right->addLayout(legend);
  right->addWidget(grid_, 1);
  auto* outer = new QHBoxLayout(this);
  outer->setMenuBar(bar);
  outer->addLayout(side);
  outer->addLayout(right, 1);
}

void RollTotalsForm::MakeMenus(QMenuBar* bar) {
  QMenu* display = bar->addMenu("&Display");
  auto radio = [this](QMenu* menu, const char* name, const QStringList& texts, auto& field) {
    RadioItems(this, menu, name, texts, field, [this, &field](int i) {
      field = i;
      game_.roll.SessionDirty = true;
      Refresh();
    });
  };
  QStringList kinds;
  for (int k = 0; k < kRollTotalsKinds; ++k)
    kinds << QString::fromUtf8(KindCaption(k));
  radio(display, "mnuDisplayTotals", kinds, game_.views.RollTotalsKind);
  QMenu* colors = bar->addMenu("&Colors");
  QStringList backs, graphs;
  for (const char* c : kBackCaptions) backs << c;
  for (const char* c : kGraphCaptions) graphs << c;
  radio(colors->addMenu("&Background Color"), "mnuBackgroundColor", backs,
        game_.gamefile.RollTotalsBackColor);
  radio(colors->addMenu("&Graph Color"), "mnuGraphColor", graphs,
        game_.gamefile.RollTotalsGraphColor);
}

void RollTotalsForm::ShowFigures() {
  const ViewsState& v = game_.views;
  const std::pair<const char*, int> menus[] = {
      {"mnuDisplayTotals", v.RollTotalsKind},
      {"mnuBackgroundColor", game_.gamefile.RollTotalsBackColor},
      {"mnuGraphColor", game_.gamefile.RollTotalsGraphColor}};
  for (const auto& [name, chosen] : menus)
    for (QAction* a : findChildren<QAction*>(name)) a->setChecked(a->data().toInt() == chosen);
  filling_ = true;
  showProb_->button(v.RollTotalsVsSkewed ? 0 : 1)->setChecked(true);
  filling_ = false;

  const RollTotalsFigures f = FigureRollTotals(game_, v.RollTotalsKind, v.RollTotalsFrame,
                                               v.RollTotalsPlayers, v.RollTotalsVsSkewed);
  SetShown(totalRolls_, f.totalRolls);
  explain_->setText(QString::fromStdString(f.explanation));
  header_->SetScale(f.graphTop, f.axisMarks);
  // The key shows the bars' colours on the graph's background.
  const BarColors colors = ColorsOf(game_.gamefile.RollTotalsGraphColor, 0);
  auto key = [&](QLabel* label, const QColor& c, bool hollow, const char* text) {
    const QString back = BackOf(game_.gamefile.RollTotalsBackColor).name();
    const QString fill = hollow ? back : c.name();
    label->setText(
        QStringLiteral(
            "<span style='background:%1'>&nbsp;<span style='background:%2; "
            "color:%2; border:1px solid %3'>&#9608;&#9608;&#9608;</span>&nbsp;</span> %4")
            .arg(back, fill, c.name(), text));
  };
  key(probableKey_, colors.probable, colors.hollowProbable, "Probable");
  key(actualKey_, colors.actual, false, "Actual");
  const auto rows = static_cast<int>(f.rows.size());
  if (grid_->rowCount() != rows) grid_->setRowCount(rows);
  auto cell = [this](int row, int col) {
    QTableWidgetItem* item = grid_->item(row, col);
    if (item == nullptr) {
      item = new QTableWidgetItem;
      item->setTextAlignment(col == kColText ? Qt::AlignLeft | Qt::AlignVCenter
                                             : Qt::AlignRight | Qt::AlignVCenter);
      grid_->setItem(row, col, item);
    }
    return item;
  };
  for (int r = 0; r < rows; ++r) {
    const RollTotalsRow& row = f.rows[static_cast<std::size_t>(r)];
    cell(r, kColText)->setText(QString::fromStdString(row.text));
    cell(r, kColProbable)->setText(QString::fromStdString(row.probablePct.text));
    cell(r, kColActual)->setText(QString::fromStdString(row.actualPct.text));
    cell(r, kColCount)->setText(QString::fromStdString(row.count.text));
    cell(r, kColSince)->setText(QString::fromStdString(row.rollsSince.text));
    QTableWidgetItem* bars = cell(r, kColGraph);
    bars->setData(kProbableRole, row.probableBar);
    bars->setData(kActualRole, row.actualBar);
  }
  // Put back once the list has laid out its new rows and knows its range.
  QTimer::singleShot(0, grid_, [this] {
    grid_->verticalScrollBar()->setValue(game_.gamefile.RollTotalsScrollY);
  });
  grid_->viewport()->update();
}
