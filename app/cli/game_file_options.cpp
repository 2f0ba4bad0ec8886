#include "app/cli/game_file_options.h"

#include <stdlib.h>

#include <CLI/CLI.hpp>
#include <iostream>

#include "core/data_folder.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "core/text.h"
#include "store/game_file.h"

void PrintMessages(const HeadlessPlatform& platform, std::size_t from) {
  for (std::size_t i = from; i < platform.messages.size(); ++i)
    std::cerr << platform.messages[i].title << ": " << MessageLine(platform.messages[i].text)
              << '\n';
}

void AddDataOption(CLI::App& cmd, GameFileOptions& o) {
  cmd.add_option("--data", o.data,
                 "Data folder (default $RAVELTON_DATA, else $XDG_DATA_HOME/ravelton)");
}

void AddGameFileOptions(CLI::App& cmd, GameFileOptions& o) {
  cmd.add_option("--load", o.load, "Start from a saved game instead of a fresh table");
  cmd.add_option("--save", o.save, "Save the game to this file after the run");
  AddDataOption(cmd, o);
}

void ApplyDataOption(const GameFileOptions& o) {
  if (!o.data.empty()) ::setenv(kDataFolderVariable, o.data.c_str(), 1);
}

bool LoadGameOption(Game& game, HeadlessPlatform& platform, const GameFileOptions& o) {
  if (o.load.empty()) return true;
  const std::size_t before = platform.messages.size();
  const bool opened = OpenGame(game, o.load);
  // Warnings of a game that opened (a changed script, a missing log) are
  // told too; a game that did not open has told why.
  PrintMessages(platform, before);
  return opened;
}

bool SaveGameOption(Game& game, HeadlessPlatform& platform, const GameFileOptions& o) {
  if (o.save.empty()) return true;
  const std::size_t before = platform.messages.size();
  const bool saved = SaveGame(game, o.save);
  PrintMessages(platform, before);
  return saved;
}
