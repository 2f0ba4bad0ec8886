// frmConfigure, the Comps tab: the comp rate, what the comps are figured on,
// whether skewed dice count, and which bets are figured in comps.

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QVBoxLayout>

#include "config/settings.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "table/configure_form.h"
#include "table/yes_no_list.h"

namespace {

const char* const kCompBaseCaption[3] = {" Theoretical house vig", " Total comp action",
                                         " Average comp action and time"};

}  // namespace

QWidget* ConfigureForm::BuildComps() {
  auto* page = new QWidget;
  auto* layout = new QHBoxLayout(page);
  auto* left = new QVBoxLayout;
  auto* rate = new QHBoxLayout;
  rate->addWidget(new QLabel("Comp rate:"));
  QLineEdit* rateBox = AmountBox("txtCompRate", &game_.rules.CompRate);
  rateBox->setMaximumWidth(120);
  rate->addWidget(rateBox);
  rate->addWidget(new QLabel("%"));
  rate->addStretch();
  left->addLayout(rate);
  auto* base = new QGroupBox("Figure comps based on:");
  auto* bl = new QVBoxLayout(base);
  for (int i = 0; i < 3; ++i) {
    compBase_[i] = new QRadioButton(kCompBaseCaption[i]);
    compBase_[i]->setObjectName(QString("optBaseComps%1").arg(i));
    connect(compBase_[i], &QRadioButton::toggled, this, [this, i](bool on) {
      if (on && !FormLoading) game_.rules.CompBase = i;
    });
    bl->addWidget(compBase_[i]);
  }
  left->addWidget(base);
  auto* trueProbs = new QCheckBox(" Always figure with the true dice probabilities");
  trueProbs->setObjectName("chkCompsUseTrueProbs");
  connect(trueProbs, &QCheckBox::toggled, this, [this](bool on) {
    if (!FormLoading) game_.rules.CompsUseTrueProbs = on;
  });
  left->addWidget(trueProbs);
  left->addStretch();
  layout->addLayout(left);
  layout->addWidget(BuildYesNoList(
      "Bets figured in comps", {"lstCompBets", "cmdYes", "cmdNo", "cmdSelectAll", "cmdDefault"},
      [this](int b, YesNoChange what) {
        TableSettings& r = game_.rules;
        const bool counted = what == YesNoChange::Flip      ? !CompBetCounted(r, b)
                             : what == YesNoChange::Default ? CompBetDefault(b)
                                                            : what == YesNoChange::Yes;
        SetCompBet(r, b, counted);
      },
      [this] { FillComps(); }, &compBets_));
  return page;
}

void ConfigureForm::FillComps() {
  const bool was = FormLoading;
  FormLoading = true;
  const TableSettings& r = game_.rules;
  compBase_[std::clamp<Long>(r.CompBase, 0, 2)]->setChecked(true);
  findChild<QCheckBox*>("chkCompsUseTrueProbs")->setChecked(r.CompsUseTrueProbs);
  std::vector<int> bets;
  for (int b = 1; b <= kLastRealBet; ++b) bets.push_back(b);
  FillYesNoList(compBets_, bets, [&r](int b) { return CompBetCounted(r, b); });
  FormLoading = was;
}
