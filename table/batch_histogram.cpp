#include "table/batch_histogram.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "core/money.h"

namespace {

constexpr int kHeight = 170;
constexpr int kMargin = 6;
constexpr int kLeftLabels = 56;  // room for the fullest bin's count
constexpr int kBottomLabels = 34;
constexpr int kTopCaption = 18;
const QColor kWonBar(0, 0, 255), kLostBar(255, 0, 0), kZeroLine(0, 150, 0);

// "$150", "-$550".
QString Dollars(Currency amount) {
  const QString sign = amount < Currency{} ? "-" : "";
  return sign + "$" + QString::fromStdString(FormatMoney(amount < Currency{} ? -amount : amount));
}

Currency Edge(const NetHistogram& h, std::size_t bin) {
  return h.low + Currency{h.width.raw * static_cast<std::int64_t>(bin)};
}

}  // namespace

BatchHistogram::BatchHistogram(QWidget* parent) : QWidget(parent) {
  setObjectName("picNets");
  setMinimumHeight(kHeight);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void BatchHistogram::Show(const NetHistogram& nets, const QString& name) {
  nets_ = nets;
  name_ = name;
  update();
}

QRect BatchHistogram::Plot() const {
  return QRect(kLeftLabels, kTopCaption + kMargin, width() - kLeftLabels - kMargin,
               height() - kTopCaption - kBottomLabels - kMargin);
}

int BatchHistogram::BinAt(int x) const {
  const QRect plot = Plot();
  if (nets_.counts.empty() || x < plot.left() || x > plot.right()) return -1;
  const auto bins = static_cast<int>(nets_.counts.size());
  return std::min(bins - 1, (x - plot.left()) * bins / std::max(plot.width(), 1));
}

QString BatchHistogram::BarTip(int x) const {
  const int bin = BinAt(x);
  if (bin < 0) return {};
  const auto at = static_cast<std::size_t>(bin);
  std::int64_t sessions = 0;
  for (std::int64_t c : nets_.counts) sessions += c;
  const Currency first = Edge(nets_, at), last = Edge(nets_, at + 1) - nets_.step;
  const std::int64_t count = nets_.counts[at];
  const QString range =
      last == first ? Dollars(first) : QString("%1 to %2").arg(Dollars(first), Dollars(last));
  return QString("%1: %2 sessions (%3 %)")
      .arg(range, QString::number(count),
           QString::number(100.0 * static_cast<double>(count) / static_cast<double>(sessions), 'f',
                           1));
}

bool BatchHistogram::event(QEvent* e) {
  if (e->type() == QEvent::ToolTip) {
    auto* help = static_cast<QHelpEvent*>(e);
    const QString tip = BarTip(help->pos().x());
    if (tip.isEmpty())
      QToolTip::hideText();
    else
      QToolTip::showText(help->globalPos(), tip, this);
    return true;
  }
  return QWidget::event(e);
}

void BatchHistogram::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), Qt::white);
  const QRect plot = Plot();
  p.setPen(Qt::black);
  const QString caption = nets_.counts.empty()
                              ? QString("Session nets: run a batch to see them.")
                              : QString("Session nets of %1: sessions in each range").arg(name_);
  p.drawText(QRect(kMargin, 0, width() - 2 * kMargin, kTopCaption + kMargin),
             Qt::AlignLeft | Qt::AlignVCenter, caption);
  p.drawRect(plot.adjusted(0, 0, -1, -1));
  if (nets_.counts.empty()) return;

  const std::int64_t fullest = *std::max_element(nets_.counts.begin(), nets_.counts.end());
  const std::size_t bins = nets_.counts.size();
  const double binWidth = static_cast<double>(plot.width()) / static_cast<double>(bins);
  for (std::size_t i = 0; i < bins; ++i) {
    if (nets_.counts[i] == 0) continue;
    const int left = plot.left() + static_cast<int>(binWidth * static_cast<double>(i));
    const int right = plot.left() + static_cast<int>(binWidth * static_cast<double>(i + 1));
    const int barHeight = std::max<int>(
        1, static_cast<int>(static_cast<double>(plot.height() - 1) *
                            static_cast<double>(nets_.counts[i]) / static_cast<double>(fullest)));
    // A bin that holds nets below 0 shows as lost, as the Sessions Log does.
    const QColor color = Edge(nets_, i) < Currency{} ? kLostBar : kWonBar;
    p.fillRect(QRect(left + 1, plot.bottom() - barHeight, std::max(right - left - 1, 1), barHeight),
               color);
  }
  // The line of a net of 0 where it falls inside the bins.
  const Currency end = Edge(nets_, bins);
  if (nets_.low <= Currency{} && end > Currency{}) {
    const double share =
        static_cast<double>(-nets_.low.raw) / static_cast<double>((end - nets_.low).raw);
    const int x = plot.left() + static_cast<int>(share * plot.width());
    p.setPen(QPen(kZeroLine, 1, Qt::DashLine));
    p.drawLine(x, plot.top(), x, plot.bottom());
    p.setPen(Qt::black);
  }
  const QRect below(plot.left(), plot.bottom() + 2, plot.width(), kBottomLabels / 2);
  p.drawText(below, Qt::AlignLeft | Qt::AlignTop, Dollars(nets_.low));
  p.drawText(below, Qt::AlignRight | Qt::AlignTop, Dollars(end));
  p.drawText(below.translated(0, kBottomLabels / 2), Qt::AlignHCenter | Qt::AlignTop,
             QString("Each bar: %1 of session net").arg(Dollars(nets_.width)));
  p.drawText(QRect(0, plot.top(), kLeftLabels - 4, 20), Qt::AlignRight | Qt::AlignTop,
             QString::number(fullest));
  p.drawText(QRect(0, plot.bottom() - 20, kLeftLabels - 4, 20), Qt::AlignRight | Qt::AlignBottom,
             "0");
}
