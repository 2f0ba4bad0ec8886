// A started-up game whose program and data folder is a fresh temporary
// folder, with a headless platform that records every message, for the game
// file tests.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/startup.h"
#include "engine/players.h"

class StoreFixture : public ::testing::Test {
 protected:
  StoreFixture() {
    dir = std::filesystem::temp_directory_path() /
          ("ravelton-store-" + std::to_string(::getpid()) + "-" +
           ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir);
    game = NewGame(platform);
  }
  ~StoreFixture() override { std::filesystem::remove_all(dir); }

  std::unique_ptr<Game> NewGame(HeadlessPlatform& on) {
    on.fixedTime = 0;
    on.clockStep = 1000;  // start-up's clock measure ends at once
    auto g = MakeGame(on);
    StartUp(*g, dir.string());
    return g;
  }
  std::string Path(const std::string& name) const { return (dir / name).string(); }
  static std::string Read(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static void Write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
  }
  // The last message shown, as "title: text".
  std::string LastMessage() const {
    if (platform.messages.empty()) return "(none)";
    return platform.messages.back().title + ": " + platform.messages.back().text;
  }

  std::filesystem::path dir;
  HeadlessPlatform platform;
  std::unique_ptr<Game> game;
};
