#include "engine/startup.h"

#include "engine/game.h"

std::unique_ptr<Game> MakeGame(Platform& platform) {
  auto game = std::make_unique<Game>();
  game->platform = &platform;
  return game;
}
void StartUp(Game&) {}
void StartUp(Game&, const std::string&) {}
int MeasureLoopsPerTick(Game&) { return 0; }
