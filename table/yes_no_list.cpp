#include "table/yes_no_list.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/catalogue.h"

QGroupBox* BuildYesNoList(const QString& title, const YesNoListNames& names,
                          std::function<void(int bet, YesNoChange)> change,
                          std::function<void()> refill, QListWidget** out) {
  auto* box = new QGroupBox(title);
  auto* layout = new QVBoxLayout(box);
  auto* list = new QListWidget;
  list->setObjectName(names.list);
  list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  layout->addWidget(list);
  auto apply = [list, change, refill](YesNoChange what) {
    for (QListWidgetItem* item : list->selectedItems())
      change(item->data(Qt::UserRole).toInt(), what);
    refill();
  };
  QObject::connect(list, &QListWidget::itemDoubleClicked, list,
                   [apply] { apply(YesNoChange::Flip); });
  auto* buttons = new QHBoxLayout;
  // Their Alt keys (Y, O, L, F) are none of the form's tab keys.
  struct Button {
    const char* name;
    const char* caption;
    int what;  // a YesNoChange, or -1 for Select All
  };
  for (const Button& b :
       {Button{names.yes, "&Yes", static_cast<int>(YesNoChange::Yes)},
        Button{names.no, "N&o", static_cast<int>(YesNoChange::No)},
        Button{names.selectAll, "Select A&ll", -1},
        Button{names.standard, "De&fault", static_cast<int>(YesNoChange::Default)}}) {
    auto* button = new QPushButton(b.caption);
    button->setObjectName(b.name);
    button->setAutoDefault(false);
    const int what = b.what;
    QObject::connect(button, &QPushButton::clicked, list, [list, apply, what] {
      if (what < 0)
        list->selectAll();
      else
        apply(static_cast<YesNoChange>(what));
    });
    buttons->addWidget(button);
  }
  layout->addLayout(buttons);
  *out = list;
  return box;
}

void FillYesNoList(QListWidget* list, const std::vector<int>& bets,
                   const std::function<bool(int bet)>& yes) {
  const int keep = list->currentRow();
  QList<int> selected;
  for (QListWidgetItem* item : list->selectedItems()) selected.push_back(list->row(item));
  list->clear();
  for (int b : bets) {
    const std::string_view name = BetName(b);
    auto* item = new QListWidgetItem(QString::fromUtf8(name) +
                                         (yes(b) ? " - Yes" : " - No"),
                                     list);
    item->setData(Qt::UserRole, b);
  }
  list->setCurrentRow(keep);
  for (int row : selected)
    if (row < list->count()) list->item(row)->setSelected(true);
  if (keep < 0) list->scrollToTop();
}
