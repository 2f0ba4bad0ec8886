// frmConfigure, the Payoffs tab: the list of payoffs with the Field list
// beside it, the editor of the row last chosen in either list, Field
// presets and the restore button.

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include "config/payoffs.h"
#include "core/game.h"
#include "core/money.h"
#include "table/configure_form.h"
#include "table/configure_tabs.h"
#include "table/numeric_box.h"

namespace {

using configure_tabs::kAmountDecimals;
using configure_tabs::Money;
constexpr int kFieldListWidth = 230;  // room for "10   (4.6) (6.4)" and its payoff
constexpr int kPayoffTextRole = Qt::UserRole + 1;
constexpr int kPayoffTextMargin = 6;

// A row of a payoff list: its label, and its payoff at the right edge.
class PayoffRowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const QString payoff = index.data(kPayoffTextRole).toString();
    if (payoff.isEmpty()) return;
    painter->save();
    const bool selected = option.state & QStyle::State_Selected;
    painter->setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(option.rect.adjusted(0, 0, -kPayoffTextMargin, 0),
                      Qt::AlignRight | Qt::AlignVCenter, payoff);
    painter->restore();
  }
};

}  // namespace

QWidget* ConfigureForm::BuildPayoffs() {
  auto* page = new QWidget;
  auto* layout = new QHBoxLayout(page);
  payoffs_ = new QListWidget;
  payoffs_->setObjectName("lstPayoffs");
  for (int i = 0; i < kPayoffListRows; ++i) {
    const int code = PayoffRowCode(i);
    auto* item = new QListWidgetItem(QString::fromStdString(PayoffRowLabel(code)), payoffs_);
    item->setData(Qt::UserRole, code);
    if (IsPayoffHeading(code)) {
      QFont f = item->font();
      f.setBold(true);
      item->setFont(f);
    }
  }
  payoffs_->setItemDelegate(new PayoffRowDelegate(payoffs_));
  // vsbPayoffs: where the list stands is the game's PayoffsScroll, which the
  // game file keeps; the list takes it again whenever its range is laid out.
  QScrollBar* scroll = payoffs_->verticalScrollBar();
  connect(scroll, &QScrollBar::valueChanged, this, [this](int top) {
    if (!FormLoading) game_.gamefile.PayoffsScroll = top;
  });
  connect(scroll, &QScrollBar::rangeChanged, this,
          [this, scroll] { scroll->setValue(game_.gamefile.PayoffsScroll); });
  layout->addWidget(payoffs_, 1);
  // The Field pays by dice combination: its 21 rows stand beside the bets.
  fieldList_ = new QListWidget;
  fieldList_->setObjectName("lstField");
  fieldList_->setMaximumWidth(kFieldListWidth);
  fieldList_->setItemDelegate(new PayoffRowDelegate(fieldList_));
  for (int row = 1; row <= kFieldRows; ++row) {
    const std::string_view label = kFieldRowLabel[row];
    auto* item = new QListWidgetItem(QString::fromUtf8(label),
                                     fieldList_);
    item->setData(Qt::UserRole, row);
  }
  auto* fieldColumn = new QVBoxLayout;
  fieldColumn->addWidget(new QLabel("Field"));
  fieldColumn->addWidget(fieldList_);
  layout->addLayout(fieldColumn);
  auto* right = new QVBoxLayout;
  payoffShown_ = new QLabel;
  payoffShown_->setObjectName("lblPayoff");
  right->addWidget(payoffShown_);
  auto* edit = new QHBoxLayout;
  payoffFirst_ = new QLineEdit;
  payoffFirst_->setObjectName("txtPayoff0");
  new NumericKeyFilter(payoffFirst_, kAmountDecimals, true);
  payoffFlag_ = new QLineEdit;
  payoffFlag_->setObjectName("txtPayoff1");
  payoffFlag_->setMaximumWidth(40);
  payoffDen_ = new QLineEdit;
  payoffDen_->setObjectName("txtPayoff2");
  new NumericKeyFilter(payoffDen_, kAmountDecimals, false);
  edit->addWidget(payoffFirst_);
  edit->addWidget(payoffFlag_);
  edit->addWidget(payoffDen_);
  right->addLayout(edit);
  auto cell = [this] { return EditedPayoffCell(); };
  // The editor follows the list the user chose a row in last.
  auto choose = [this](bool field) {
    editingField_ = field;
    // Only the chosen list shows its row as selected.
    (field ? payoffs_ : fieldList_)->clearSelection();
    QListWidget* chosen = field ? fieldList_ : payoffs_;
    if (chosen->currentItem()) chosen->currentItem()->setSelected(true);
    FillPayoffRow();
  };
  connect(payoffs_, &QListWidget::currentRowChanged, this, [choose] { choose(false); });
  connect(payoffs_, &QListWidget::itemClicked, this, [choose] { choose(false); });
  connect(fieldList_, &QListWidget::currentRowChanged, this, [choose] { choose(true); });
  connect(fieldList_, &QListWidget::itemClicked, this, [choose] { choose(true); });
  connect(payoffFirst_, &QLineEdit::textChanged, this, [this, cell] {
    if (auto c = cell(); c && !FormLoading) {
      EnterPayoffFirst(game_, *c, ParseAmount(payoffFirst_->text().toStdString()));
      FillPayoffTexts();
    }
  });
  connect(payoffDen_, &QLineEdit::editingFinished, this, [this, cell] {
    auto c = cell();
    if (!c || FormLoading) return;
    // A denominator of 0 is refused: the box shows the game's value again.
    EnterPayoffDenominator(game_, *c, ParseAmount(payoffDen_->text().toStdString()));
    FillPayoffRow();
  });
  connect(payoffFlag_, &QLineEdit::textEdited, this, [this, cell](const QString& text) {
    auto c = cell();
    if (c && !FormLoading && !text.isEmpty()) PayoffFlagKey(game_, *c, text.back().toLatin1());
    FillPayoffRow();
  });
  auto* presets = new QComboBox;
  presets->setObjectName("cmbFieldPreset");
  presets->addItem("Set Field payoffs to");
  for (std::string_view c : kFieldPresetCaption)
    presets->addItem(QString::fromUtf8(c));
  connect(presets, &QComboBox::activated, this, [this, presets](int i) {
    if (i <= 0) return;
    SetFieldPreset(game_, static_cast<FieldPreset>(i - 1));
    presets->setCurrentIndex(0);
    FillPayoffRow();
  });
  right->addWidget(presets);
  auto* restore = new QPushButton("Restore default payoffs");
  restore->setObjectName("cmdRestorePayoffs");
  restore->setAutoDefault(false);
  connect(restore, &QPushButton::clicked, this, [this] {
    if (RestoreDefaultPayoffs(game_)) Fill();
  });
  right->addWidget(restore);
  right->addStretch();
  layout->addLayout(right, 1);
  return page;
}

std::optional<PayoffCell> ConfigureForm::EditedPayoffCell() const {
  if (editingField_) {
    QListWidgetItem* item = fieldList_->currentItem();
    if (item == nullptr) return std::nullopt;
    return PayoffCell{PayoffTable::Field, item->data(Qt::UserRole).toInt()};
  }
  QListWidgetItem* item = payoffs_->currentItem();
  return item ? PayoffCellOf(item->data(Qt::UserRole).toInt()) : std::nullopt;
}

void ConfigureForm::FillPayoffTexts() {
  for (int i = 0; i < payoffs_->count(); ++i) {
    QListWidgetItem* item = payoffs_->item(i);
    const auto cell = PayoffCellOf(item->data(Qt::UserRole).toInt());
    item->setData(kPayoffTextRole,
                  cell ? QString::fromStdString(PayoffText(game_, *cell)) : QString());
  }
  for (int i = 0; i < fieldList_->count(); ++i) {
    QListWidgetItem* item = fieldList_->item(i);
    const PayoffCell cell{PayoffTable::Field, item->data(Qt::UserRole).toInt()};
    item->setData(kPayoffTextRole, QString::fromStdString(PayoffText(game_, cell)));
  }
}

void ConfigureForm::FillPayoffRow() {
  FillPayoffTexts();  // every row shows its payoff, so a change shows at once
  const bool was = FormLoading;
  FormLoading = true;
  QListWidgetItem* item = editingField_ ? fieldList_->currentItem() : payoffs_->currentItem();
  const auto c = EditedPayoffCell();
  for (QLineEdit* box : {payoffFirst_, payoffFlag_, payoffDen_}) box->setEnabled(c.has_value());
  if (c) {
    const bool to = PayoffValue(game_, *c, 2) != Currency{};
    payoffFirst_->setText(Money(PayoffShownFirst(game_, *c)));
    payoffFlag_->setText(to ? "to" : "for");
    payoffDen_->setText(Money(PayoffValue(game_, *c, 3)));
    payoffShown_->setText(editingField_ ? "Field " + item->text().simplified() : item->text());
  } else {
    for (QLineEdit* box : {payoffFirst_, payoffFlag_, payoffDen_}) box->clear();
    payoffShown_->setText(item ? item->text() : QString());
  }
  FormLoading = was;
}
