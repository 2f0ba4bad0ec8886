#include "table/stats_views.h"

#include "table/bet_results_form.h"
#include "table/bet_trends_form.h"
#include "table/hands_form.h"
#include "table/roll_freqs_form.h"
#include "table/roll_totals_form.h"
#include "table/stats_form.h"
#include "table/summary_form.h"
#include "table/window_keeper.h"

namespace {
// Where each view's place is kept, in StatsView order.
constexpr KeptWindow kKept[] = {KeptWindow::BetResults, KeptWindow::RollTotals,
                                KeptWindow::RollFreqs,  KeptWindow::Summary,
                                KeptWindow::BetTrends,  KeptWindow::Hands};
static_assert(std::size(kKept) == static_cast<std::size_t>(StatsView::kCount));
}  // namespace

StatsViews::StatsViews(Game& game, QWidget* parent)
    : QObject(parent), game_(game), parent_(parent) {}

StatsForm* StatsViews::Form(StatsView which) {
  QPointer<StatsForm>& form = forms_[static_cast<std::size_t>(which)];
  if (form) return form;
  switch (which) {
    case StatsView::Summary:
      form = new SummaryForm(game_, parent_);
      break;
    case StatsView::BetResults:
      form = new BetResultsForm(game_, parent_);
      break;
    case StatsView::BetTrends:
      form = new BetTrendsForm(game_, parent_);
      break;
    case StatsView::RollFreqs:
      form = new RollFreqsForm(game_, parent_);
      break;
    case StatsView::Hands:
      form = new HandsForm(game_, parent_);
      break;
    case StatsView::RollTotals:
      form = new RollTotalsForm(game_, parent_);
      break;
    case StatsView::kCount:
      return nullptr;
  }
  new WindowKeeper(game_, kKept[static_cast<std::size_t>(which)], *form);
  return form;
}

StatsForm* StatsViews::Open(StatsView which) {
  StatsForm* form = Form(which);
  if (form == nullptr) return nullptr;
  form->show();
  form->raise();
  form->activateWindow();
  form->Refresh();
  return form;
}

void StatsViews::RefreshOpen() {
  for (QPointer<StatsForm>& form : forms_)
    if (form && form->isVisible()) form->Refresh();
}

void StatsViews::RestoreShown() {
  for (std::size_t i = 0; i < forms_.size(); ++i) {
    const bool shown = KeptWindowShown(game_, kKept[i]);
    StatsForm* form = shown ? Form(static_cast<StatsView>(i)) : forms_[i].data();
    if (form == nullptr) continue;
    RestoreKeptWindow(*form, shown);
    if (shown) form->Refresh();
  }
}
