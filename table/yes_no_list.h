// A list of bets that each read " - Yes" or " - No", with the buttons Yes, No,
// Select All and Default under it, as the Bets tab (working on the come-out)
// and the Comps tab (bets figured in comps) both show one. The list keeps no
// state: each row carries its bet id, the game says Yes or No, and every
// change goes to the game through the caller's procedure before the rows are
// written again.
// What must stay true:
// - A refill keeps the current row and the selected rows.
#pragma once

#include <QString>
#include <functional>
#include <vector>

class QGroupBox;
class QListWidget;

// What a button or a double click asks of the selected rows.
enum class YesNoChange { No = 0, Yes = 1, Flip = 2, Default = 3 };

struct YesNoListNames {
  const char* list;
  const char* yes;
  const char* no;
  const char* selectAll;
  const char* standard;  // the Default button
};

// Builds the box with its list and buttons; `change` is called once per
// selected bet, then `refill` once.
QGroupBox* BuildYesNoList(const QString& title, const YesNoListNames& names,
                          std::function<void(int bet, YesNoChange)> change,
                          std::function<void()> refill, QListWidget** list);
// Writes the rows: each bet's name & " - Yes" or " - No" as `yes` tells.
void FillYesNoList(QListWidget* list, const std::vector<int>& bets,
                   const std::function<bool(int bet)>& yes);
