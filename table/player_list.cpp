#include "table/player_list.h"

#include <QComboBox>

#include "core/game.h"
#include "engine/players.h"

int FillPlayerList(QComboBox* list, const Game& game, std::int32_t& chosen) {
  list->clear();
  for (int p = 1; p <= 8; ++p) {
    if (!Seated(game, p)) continue;
    list->addItem(QString::fromStdString(game.PlayerName[static_cast<std::size_t>(p)]), p);
    if (!Seated(game, chosen)) chosen = p;
  }
  if (!Seated(game, chosen)) chosen = 0;
  list->setCurrentIndex(list->findData(chosen));
  return chosen;
}
