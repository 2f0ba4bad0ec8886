// The statistics views of the main window's Statistics menu: each is made
// on first use, shown non-modally, and refreshed while it is open after
// every roll and whenever the main window refreshes, in the fixed order the
// roll refreshes its views.
#pragma once

#include <QObject>
#include <QPointer>
#include <array>

class QWidget;
class StatsForm;
struct Game;

enum class StatsView { BetResults, RollTotals, RollFreqs, Summary, BetTrends, Hands, kCount };

class StatsViews : public QObject {
  Q_OBJECT
 public:
  StatsViews(Game& game, QWidget* parent);
  // The view, made on first use (not shown).
  StatsForm* Form(StatsView which);
  // Shows the view, raised and refreshed.
  StatsForm* Open(StatsView which);
  // Refreshes every open view.
  void RefreshOpen();
  // Opens or closes each view as the game's layout has it, at its place.
  void RestoreShown();

 private:
  Game& game_;
  QWidget* parent_;
  std::array<QPointer<StatsForm>, static_cast<std::size_t>(StatsView::kCount)> forms_;
};
