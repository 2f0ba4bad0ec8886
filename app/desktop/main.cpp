// ravelton: the desktop table. With --screenshot it renders the main window
// (or the bankroll graph) to a PNG under the offscreen platform and exits.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>

#include "app/cli/player_options.h"
#include "app/cli/probability_options.h"
#include "analysis/advantage_print.h"
#include "app/desktop/scene.h"
#include "automation/autoplay_selection.h"
#include "cycle/hyperdrive.h"
#include "dice/dice_file.h"
#include "dice/rng.h"
#include "engine/check_stacks_print.h"
#include "core/game.h"
#include "cycle/startup.h"
#include "script/files.h"
#include "script/hot_keys.h"
#include "store/game_file.h"
#include "table/bankroll_form.h"
#include "table/check_stacks_form.h"
#include "table/auto_bet_form.h"
#include "table/auto_play_form.h"
#include "table/hot_keys_form.h"
#include "table/configure_form.h"
#include "table/table_colors.h"
#include "table/crap_table_window.h"
#include "table/new_form.h"
#include "table/path_form.h"
#include "table/print_pages.h"
#include "table/qt_platform.h"
#include "table/table_view.h"

namespace {

struct Options {
  std::string screenshot;
  std::string size = "1280x900";
  std::string load;
  std::string view = "table";  // table | bankroll
  int rotate = 0;
  bool hops = false;
  bool amounts = false;
  long rolls = 0;
  double seed = 0;
  int bettor = 0;
  bool fullTable = false;
  std::string diceFile;
  int graphAdjust = -1;
  int graphAverage = -1;
  int skin = 0;
  std::string prb;
  int probMode = -1;
  PlayerOptions players;
};

bool HasDisplay() {
  for (const char* v : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* s = std::getenv(v);
    if (s && *s) return true;
  }
  return false;
}

bool ParseSize(const std::string& text, int& w, int& h) {
  const auto x = text.find('x');
  if (x == std::string::npos) return false;
  try {
    w = std::stoi(text.substr(0, x));
    h = std::stoi(text.substr(x + 1));
  } catch (...) {
    return false;
  }
  return w >= 200 && h >= 150 && w <= 8000 && h <= 8000;
}

// Page 1 of a printout (checkstacks, advantage or payoffs) as it lands on
// a letter-size sheet at 96 dots an inch, white, with inch margins.
int SavePrintPreview(Game& game, const std::string& what, const std::string& path) {
  constexpr int kDpi = 96, kSheetWidth = 816, kSheetHeight = 1056, kMargin = 72;
  const CalendarDate today = game.platform->Today();
  PrintDocument doc;
  if (what == "checkstacks") {
    ShowSomeCheckStacks(game);
    doc = CheckStacksPrintout(game, 1, 0, kCheckStackCount - 1, today, "Tuesday.rvg");
  } else if (what == "advantage") {
    doc = AdvantagePrintout(game, today, "Tuesday.rvg");
  } else if (what == "payoffs") {
    doc = PayoffsPrintout(game, today, "Tuesday.rvg");
  } else {
    std::cerr << "ravelton: no printout named " << what << "\n";
    return 1;
  }
  const int width = doc.landscape ? kSheetHeight : kSheetWidth;
  const int height = doc.landscape ? kSheetWidth : kSheetHeight;
  QImage sheet(width, height, QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  const PrintPages pages(doc, QRect(kMargin, kMargin, width - 2 * kMargin, height - 2 * kMargin),
                         kDpi);
  pages.Paint(painter, 0);
  painter.end();
  if (!sheet.save(QString::fromStdString(path), "PNG")) {
    std::cerr << "ravelton: cannot write " << path << "\n";
    return 1;
  }
  return 0;
}

// A screenshot runs unattended: every dialog is answered by its default
// button and its text goes to standard error.
void AnswerDialogsByDefault(QtPlatform& platform) {
  platform.onDialogShown = [&platform](QDialog& dialog) {
    std::cerr << "ravelton: " << platform.lastMessageTitle << ": " << platform.lastMessageText
              << "\n";
    // Closing leaves the default answer (or the default settle button) standing.
    dialog.done(0);
  };
}

}  // namespace

int main(int argc, char** argv) {
  Options o;
  CLI::App cli{"Ravelton: the craps table"};
  cli.add_option("--screenshot", o.screenshot, "Render the window to this PNG file and exit");
  cli.add_option("--size", o.size, "Window size WxH for the screenshot");
  cli.add_option("--load", o.load, "Game file to open");
  cli.add_option("--view", o.view, "What the screenshot shows: table, bankroll, checkstacks, autoplay[:PLAYER_BITS], new, path, configure[:TAB], autobet[:SCRIPT], hotkeys, or print:checkstacks|advantage|payoffs (page 1 of the printout)");
  cli.add_option("--rotate", o.rotate, "Table rotation in degrees");
  cli.add_flag("--hops", o.hops, "Show the Hop bets");
  cli.add_flag("--amounts", o.amounts, "Show bets as numbers");
  cli.add_option("--rolls", o.rolls, "Run Hyper-Drive this many rolls first");
  cli.add_option("--seed", o.seed, "Seed of the dice");
  cli.add_option("--bettor", o.bettor, "Seat of the selected player");
  cli.add_option("--dice-file", o.diceFile, "Open (or create) a dice roll file and record to it");
  cli.add_flag("--full-table", o.fullTable, "Seat eight players with bets of every kind");
  cli.add_option("--graph-adjust", o.graphAdjust, "Bankroll graph: 0 manual, 1 auto-shift, 2 expanding, 3 snap-back")
      ->check(CLI::Range(0, 3));
  cli.add_option("--graph-average", o.graphAverage, "Bankroll graph: show the moving average over N rolls (0 all)")
      ->check(CLI::Range(0, 525));
  cli.add_option("--skin", o.skin, "Colour the table with ready-made skin N (1-8)")
      ->check(CLI::Range(1, kTableSkins));
  AddProbabilityFileOption(cli, o.prb, "Play with the dice of this probability file");
  cli.add_option("--prob-mode", o.probMode, "Probability tab: 0 percent, 1 +/- true %, 2 rolls out of N, 3 +/- true rolls")
      ->check(CLI::Range(0, 3));
  AddPlayerOptions(cli, o.players);
  try {
    cli.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return cli.exit(e) == 0 ? 0 : 1;
  }
  int width = 0, height = 0;
  if (!ParseSize(o.size, width, height)) {
    std::cerr << "ravelton: --size must be WxH, e.g. 1280x900\n";
    return 1;
  }
  if (!o.screenshot.empty()) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
  } else if (!HasDisplay()) {
    std::cerr << "ravelton: no display available (set DISPLAY or use --screenshot)\n";
    return 2;
  }

  QApplication app(argc, argv);
  QtPlatform platform;
  std::unique_ptr<Game> game = MakeGame(platform);
  StartUp(*game);
  platform.SetGame(game.get());
  if (!o.screenshot.empty()) AnswerDialogsByDefault(platform);
  LoadHotKeys(*game);
  // A game that does not open has told why in its message.
  if (!o.load.empty() && !OpenGame(*game, o.load)) return 1;
  if (o.seed > 0) SeedRngWith(*game, o.seed);

  std::string error;
  if (!SetUpPlayerOptions(*game, o.players, error)) {
    std::cerr << "ravelton: " << error << "\n";
    return 1;
  }
  if (!UseProbabilityFileOption(*game, o.prb, error)) {
    std::cerr << "ravelton: " << error << "\n";
    return 1;
  }
  if (o.probMode >= 0) game->probability.ProbDisplayMode = o.probMode;
  if (o.fullTable) SeatFullTable(*game);
  // A refused file has told why in its message.
  if (!o.diceFile.empty() &&
      !(OpenDiceRollFile(*game, o.diceFile) && SetDiceFileMode(*game, kDiceFileRecording)))
    return 1;
  // A loaded game keeps its own view unless an option says otherwise.
  const bool fresh = o.load.empty();
  if (fresh || cli.count("--rotate")) game->table.TableRotation = ((o.rotate % 360) + 360) % 360;
  if (fresh || o.hops) game->table.HopBetsShown = o.hops;
  if (fresh || o.amounts) game->table.DisplayBetAmounts = o.amounts;
  if (o.bettor >= 1 && o.bettor <= 8) game->betting.CurPlayer = o.bettor;
  if (o.skin > 0) ApplyTableSkin(game->table, o.skin);
  if (o.graphAdjust >= 0) game->graph.GraphAdjustType = o.graphAdjust;
  if (o.graphAverage >= 0) {
    game->roll.GraphShowAverage = true;
    game->graph.GraphAverageSpan = o.graphAverage;
  }

  CrapTableWindow window(*game, platform);
  window.resize(width, height);
  window.show();
  if (o.screenshot.empty()) return app.exec();

  QApplication::processEvents();
  window.View()->AutoSize();
  if (o.rolls > 0) {
    game->hyper.RunRollLimit = o.rolls;
    RunHyperDrive(*game);
  }
  if (o.view.rfind("print:", 0) == 0) return SavePrintPreview(*game, o.view.substr(6), o.screenshot);
  QWidget* target = &window;
  if (o.view == "bankroll") {
    BankrollForm* form = window.Bankroll();
    form->show();
    form->adjustSize();
    target = form;
  } else if (o.view.rfind("configure", 0) == 0) {
    // configure or configure:N, N the tab shown (the Bets tab by default)
    ConfigureForm* form = window.Configure();
    const std::size_t colon = o.view.find(':');
    game->rules.ConfigureTab = colon == std::string::npos ? kTabBets : std::atoi(o.view.c_str() + colon + 1);
    form->Fill();
    form->show();
    form->adjustSize();
    target = form;
  } else if (o.view == "checkstacks") {
    ShowSomeCheckStacks(*game);
    CheckStacksForm* form = window.CheckStacks();
    form->Refresh();
    form->show();
    target = form;
  } else if (o.view == "new" || o.view == "path") {
    QDialog* form = o.view == "new" ? static_cast<QDialog*>(new NewForm(*game, &window))
                                    : new PathForm(*game, &window);
    form->show();
    form->adjustSize();
    target = form;
  } else if (o.view.rfind("autobet", 0) == 0) {
    // autobet or autobet:FILE, FILE a script loaded for the first seated
    // player, shown with its line numbers, lists and bands after a check
    const std::size_t colon = o.view.find(':');
    int seat = 1;
    while (seat < 8 && game->PlayerName[static_cast<std::size_t>(seat)].empty()) ++seat;
    game->scriptSource.EdPlayer = seat;
    if (colon != std::string::npos && !OpenAutoBets(*game, seat, o.view.substr(colon + 1))) {
      std::cerr << "ravelton: cannot read " << o.view.substr(colon + 1) << "\n";
      return 1;
    }
    game->gamefile.EditorLineNumbers = game->gamefile.EditorSyntaxLists = -1;
    game->gamefile.EditorHighlight = -1;
    AutoBetForm* form = window.AutoBet();
    form->show();
    form->CheckScriptClicked();
    target = form;
  } else if (o.view == "hotkeys") {
    // A fixed table of two examples, so the picture does not depend on the
    // user's HotKeys.dta.
    game->scriptSource.HotKeyTable = {
          {'M', "examples/three_point_molly.bet", "Three Point Molly", false},
          {'I', "examples/iron_cross.bet", "Iron Cross once", false}};
    auto* form = new HotKeysForm(*game, &window);
    form->show();
    target = form;
  } else if (o.view.rfind("autoplay", 0) == 0) {
    // autoplay or autoplay:BITS, BITS the selected players (bit p for player p)
    const std::size_t colon = o.view.find(':');
    if (colon != std::string::npos) SetAutoPlaySelection(*game, std::atoi(o.view.c_str() + colon + 1));
    QWidget* form = window.AutoPlay();
    form->show();
    form->adjustSize();
    target = form;
  }
  QApplication::processEvents();
  if (!target->grab().save(QString::fromStdString(o.screenshot), "PNG")) {
    std::cerr << "ravelton: cannot write " << o.screenshot << "\n";
    return 1;
  }
  return 0;
}
