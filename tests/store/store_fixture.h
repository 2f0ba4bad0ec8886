// A started-up game whose program and data folder is a fresh temporary
// folder, with a headless platform that records every message, for the game
// file tests.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/startup.h"
#include "engine/players.h"
#include "tests/support/file_text.h"
#include "tests/support/temp_folder.h"

class StoreFixture : public ::testing::Test {
 protected:
  StoreFixture() { game = NewGame(platform); }

  std::unique_ptr<Game> NewGame(HeadlessPlatform& on) {
    on.fixedTime = 0;
    on.clockStep = 1000;  // start-up's clock measure ends at once
    auto g = MakeGame(on);
    StartUp(*g, dir.Path());
    return g;
  }
  std::string Path(const std::string& name) const { return dir / name; }
  // The last message shown, as "title: text".
  std::string LastMessage() const {
    if (platform.messages.empty()) return "(none)";
    return platform.messages.back().title + ": " + platform.messages.back().text;
  }

  TempFolder dir;
  HeadlessPlatform platform;
  std::unique_ptr<Game> game;
};
