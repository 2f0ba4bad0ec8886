#include "app/cli/probability_options.h"

#include <CLI/CLI.hpp>
#include <filesystem>

#include "core/game.h"
#include "dice/probability_file.h"

void AddProbabilityFileOption(CLI::App& cmd, std::string& path, const std::string& help) {
  cmd.add_option("--prb", path, help);
}

bool ReadProbabilityFileOption(Game& game, const std::string& path, std::string& error) {
  // A name typed on the command line means the current folder, as a file
  // chosen by hand does; only names read from the game go to the data folder.
  std::error_code ec;
  const std::string full = std::filesystem::absolute(path, ec).string();
  switch (ReadProbabilityFile(game, ec ? path : full)) {
    case ProbFileStatus::Ok:
      return true;
    case ProbFileStatus::NotFound:
      error = path + ": no such file";
      return false;
    case ProbFileStatus::Unreadable:
      error = path + ": cannot be read";
      return false;
    case ProbFileStatus::NotProbabilityFile:
      error = path +
              " is either from an older version, has been corrupted, or is not a true Ravelton "
              "Probability File.";
      return false;
  }
  return false;
}

bool UseProbabilityFileOption(Game& game, const std::string& path, std::string& error) {
  if (path.empty()) return true;
  if (!ReadProbabilityFileOption(game, path, error)) return false;
  game.dice.ProbabilityDiceOn = true;
  return true;
}
