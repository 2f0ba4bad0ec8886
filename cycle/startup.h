// Start-up of a game without a window: folders, the clock measure, the
// generators, the House, the defaults of rules, payoffs and working states,
// the CheckStack spots. A Game is about a megabyte, so it is made on the
// heap.
#pragma once

#include <memory>
#include <string>

class Platform;
struct Game;

// A new Game on the heap, bound to platform, with its tables at zero (not started up).
std::unique_ptr<Game> MakeGame(Platform& platform);
// Start-up from the folder of the running program, with the user's data
// folder ($RAVELTON_DATA, else the XDG data folder; core/data_folder.h).
void StartUp(Game& game);
// Start-up with a given program folder and data folder.
void StartUp(Game& game, const std::string& appFolder, const std::string& dataFolder);
// Start-up with one folder serving as program and data folder (tests).
void StartUp(Game& game, const std::string& appFolder);
// Start-up with a given program folder and data folder.
void StartUp(Game& game, const std::string& appFolder, const std::string& dataFolder);
// Counts clock calls for 100 ms; returns Int(count / 10).
int MeasureLoopsPerTick(Game& game);
