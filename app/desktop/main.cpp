// ravelton: the desktop table. With --screenshot it renders the main window
// (or the bankroll graph) to a PNG under the offscreen platform and exits.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QSpinBox>
#include <QTableWidget>
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "analysis/advantage_print.h"
#include "app/cli/player_options.h"
#include "app/cli/probability_options.h"
#include "app/desktop/scene.h"
#include "automation/autoplay_selection.h"
#include "core/game.h"
#include "core/help.h"
#include "cycle/hyperdrive.h"
#include "cycle/session.h"
#include "cycle/startup.h"
#include "dice/dice_file.h"
#include "dice/dice_file_edit.h"
#include "dice/dice_file_print.h"
#include "dice/rng.h"
#include "engine/check_stacks_print.h"
#include "logs/events_log_view.h"
#include "script/files.h"
#include "script/hot_keys.h"
#include "stats/bankroll_printout.h"
#include "stats/graph_view.h"
#include "stats/sessions_log.h"
#include "stats/sessions_printouts.h"
#include "stats/summary_printouts.h"
#include "store/game_file.h"
#include "table/auto_bet_form.h"
#include "table/auto_play_form.h"
#include "table/bankroll_form.h"
#include "table/batch_form.h"
#include "table/check_stacks_form.h"
#include "table/configure_form.h"
#include "table/crap_table_window.h"
#include "table/dice_files_form.h"
#include "table/events_log_form.h"
#include "table/help_window.h"
#include "table/hot_keys_form.h"
#include "table/new_form.h"
#include "table/path_form.h"
#include "table/print_pages.h"
#include "table/qt_platform.h"
#include "table/roll_pad_form.h"
#include "table/sessions_log_form.h"
#include "table/stats_form.h"
#include "table/stats_views.h"
#include "table/table_colors.h"
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
  std::string eventsLog;
  std::string sessionsLog;
  int sessions = 0;
  int graphAdjust = -1;
  int graphAverage = -1;
  bool graphScroll = false;
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
  // A fixed day (the Tuesday of the file name), so that the pictures of the
  // printouts come out the same whenever they are made.
  constexpr CalendarDate kPreviewDate{2026, 11, 24};
  const CalendarDate today = kPreviewDate;
  PrintDocument doc;
  if (what == "checkstacks") {
    ShowSomeCheckStacks(game);
    doc = CheckStacksPrintout(game, 1, 0, kCheckStackCount - 1, today, "Tuesday.rvg");
  } else if (what == "advantage") {
    doc = AdvantagePrintout(game, today, "Tuesday.rvg");
  } else if (what == "payoffs") {
    doc = PayoffsPrintout(game, today, "Tuesday.rvg");
  } else if (what == "summary") {
    // The two seated players of the demonstration game.
    doc = SummaryPrintout(game, FigureSummary(game, 2, 6), today, "Tuesday.rvg");
  } else if (what == "hands") {
    doc = HandsPrintout(FigureHands(game, 2, 0, false), today, "Tuesday.rvg");
  } else if (what == "freqs") {
    doc = RollFreqsPrintout(FigureRollFreqs(game, 7, false), today, "Tuesday.rvg");
  } else if (what == "sessions" || what == "sessionsraw") {
    // The first seated player's sessions log, all sessions included.
    int p = 1;
    while (p < 8 && game.PlayerName[static_cast<std::size_t>(p)].empty()) ++p;
    game.views.SessionsPlayer = p;
    const std::string& name = game.PlayerName[static_cast<std::size_t>(p)];
    const SessionsRequest rq = SessionsRequestOf(game, SessionLogPathOf(game, p));
    std::string error;
    doc = what == "sessions" ? SessionsHistogramPrintout(game, FigureSessionsLog(rq), name, rq.path, today)
                             : SessionsRawDataPrintout(game, rq, name, today, error);
  } else if (what == "bankroll") {
    // A sheet of graphs, one for each seated player (as many as it holds),
    // each scaled as its window would show it.
    doc = BankrollGraphSheet(GraphsPerSheet(kLetterPrintableTwips));
    for (int p = 1, added = 0; p <= 8 && added < GraphsPerSheet(kLetterPrintableTwips); ++p) {
      if (game.PlayerName[static_cast<std::size_t>(p)].empty()) continue;
      game.graph.GraphPlayer = p;
      RebuildGraphTrend(game);
      FigureGraphScale(game, true);
      AddBankrollGraph(doc, game, FigureBankrollGraph(game, p), today, "Tuesday.rvg");
      ++added;
    }
  } else if (what == "dicefile") {
    // The whole file, the sevens highlighted.
    ToggleHighlightTotal(game, 7);
    std::string error;
    doc = DiceRollsPrintout(game, 1, DiceRollTotal(game), 1, today, error);
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

// The statistics view of a --view name.
std::optional<StatsView> StatsViewNamed(const std::string& name) {
  const std::pair<const char*, StatsView> kNames[] = {
      {"summary", StatsView::Summary},       {"hands", StatsView::Hands},
      {"totals", StatsView::RollTotals},     {"freqs", StatsView::RollFreqs},
      {"results", StatsView::BetResults},    {"trends", StatsView::BetTrends}};
  for (const auto& [word, view] : kNames)
    if (name == word) return view;
  return std::nullopt;
}

// The selection a statistics view opens with: a player bit set, or for the
// bet trends the seat shown.
void SelectForView(Game& game, StatsView view, int n) {
  ViewsState& v = game.views;
  switch (view) {
    case StatsView::Summary: v.SummaryPlayers = n; break;
    case StatsView::Hands: v.HandsPlayers = n; break;
    case StatsView::RollTotals: v.RollTotalsPlayers = n; break;
    case StatsView::BetResults: v.BetResultsPlayers = n; break;
    case StatsView::BetTrends: v.BetTrendsPlayer = n; break;
    default: break;
  }
}

}  // namespace

int main(int argc, char** argv) {
  Options o;
  CLI::App cli{"Ravelton: the craps table"};
  cli.add_option("--screenshot", o.screenshot, "Render the window to this PNG file and exit");
  cli.add_option("--size", o.size, "Window size WxH for the screenshot");
  cli.add_option("--load", o.load, "Game file to open");
  cli.add_option(
      "--view", o.view,
      "What the screenshot shows: table, bankroll, checkstacks, autoplay[:PLAYER_BITS], new, path, "
      "configure[:TAB], dicefiles, eventslog, sessionslog, batch, pad[:OPTIONS:WxH], summary, "
      "hands, totals, freqs, results, trends, autobet[:SCRIPT], hotkeys, help[:TOPIC], or "
      "print:checkstacks|advantage|payoffs|summary|hands|freqs|sessions|sessionsraw|dicefile|"
      "bankroll (page 1 of the printout)");
  cli.add_option("--rotate", o.rotate, "Table rotation in degrees");
  cli.add_flag("--hops", o.hops, "Show the Hop bets");
  cli.add_flag("--amounts", o.amounts, "Show bets as numbers");
  cli.add_option("--rolls", o.rolls, "Run Hyper-Drive this many rolls first");
  cli.add_option("--seed", o.seed, "Seed of the dice");
  cli.add_option("--bettor", o.bettor, "Seat of the selected player");
  cli.add_option("--dice-file", o.diceFile, "Open (or create) a dice roll file and record to it");
  cli.add_option("--events-log", o.eventsLog, "Record every kind of event into this events log file");
  cli.add_option("--sessions-log", o.sessionsLog, "The first seated player's sessions log file");
  cli.add_option("--sessions", o.sessions, "Play this many sessions of --rolls rolls first, each recorded in the sessions logs")
      ->check(CLI::Range(0, 100000));
  cli.add_flag("--full-table", o.fullTable, "Seat eight players with bets of every kind");
  cli.add_option("--graph-adjust", o.graphAdjust, "Bankroll graph: 0 manual, 1 auto-shift, 2 expanding, 3 snap-back")
      ->check(CLI::Range(0, 3));
  cli.add_option("--graph-average", o.graphAverage, "Bankroll graph: show the moving average over N rolls (0 all)")
      ->check(CLI::Range(0, 525));
  cli.add_flag("--graph-scroll", o.graphScroll, "Bankroll graph: scroll by one roll once the page is full");
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
  if (!o.sessionsLog.empty())
    for (int p = 1; p <= 8; ++p)
      if (!game->PlayerName[static_cast<std::size_t>(p)].empty()) {
        game->roll.SessionLogPath[static_cast<std::size_t>(p)] = o.sessionsLog;
        break;
      }
  if (!o.eventsLog.empty()) {
    OpenEventsLog(*game, o.eventsLog);
    game->roll.LogOn = true;
  }
  // A loaded game keeps its own view unless an option says otherwise.
  const bool fresh = o.load.empty();
  if (fresh || cli.count("--rotate")) game->table.TableRotation = ((o.rotate % 360) + 360) % 360;
  if (fresh || o.hops) game->table.HopBetsShown = o.hops;
  if (fresh || o.amounts) game->table.DisplayBetAmounts = o.amounts;
  if (o.bettor >= 1 && o.bettor <= 8) game->betting.CurPlayer = o.bettor;
  if (o.skin > 0) ApplyTableSkin(game->table, o.skin);
  if (o.graphAdjust >= 0) game->graph.GraphAdjustType = o.graphAdjust;
  if (o.graphScroll) game->roll.GraphPlotType = 1;
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
  for (int n = 0; n < std::max(o.sessions, 1); ++n) {
    if (o.rolls > 0) {
      game->hyper.RunRollLimit = o.rolls;
      RunHyperDrive(*game);
    }
    // A new session writes the one just played into the sessions logs.
    if (o.sessions > 0) {
      NewSession(*game, true, true, true, 2);
      // A new session may reseed from the clock; a seeded picture must not.
      if (o.seed > 0) SeedRngWith(*game, o.seed + n + 1);
      if (!PlacePlayerBets(*game, o.players, error)) std::cerr << "ravelton: " << error << "\n";
    }
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
  } else if (const auto shown = StatsViewNamed(o.view.substr(0, o.view.find(':')))) {
    // NAME:N selects the players of bit set N (the player of seat N in trends)
    const std::size_t colon = o.view.find(':');
    if (colon != std::string::npos) SelectForView(*game, *shown, std::atoi(o.view.c_str() + colon + 1));
    StatsForm* form = window.Views().Open(*shown);
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
  } else if (o.view.rfind("help", 0) == 0) {
    // help or help:TOPIC, the help window on that topic's page
    const std::size_t colon = o.view.find(':');
    const int topic = colon == std::string::npos ? 0 : std::atoi(o.view.c_str() + colon + 1);
    target = HelpWindow::Open(&window, QString::fromStdString(HelpFolder(game->roll.AppPath)),
                              QString::fromStdString(HelpPageName(topic)));
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
  } else if (o.view == "dicefiles") {
    // Rolls 5 to 9 selected and the sevens highlighted, to show both.
    if (!game->diceFile.DiceFilePath.empty()) {
      game->diceFile.DiceFilePos = 5;
      game->diceFile.DiceSelEnd = 9;
      ToggleHighlightTotal(*game, 7);
    }
    DiceFilesForm* form = window.DiceFiles();
    form->show();
    form->resize(form->sizeHint().width(), 560);
    form->Refresh();
    target = form;
  } else if (o.view == "batch") {
    // 2,000 sessions of at most 100 rolls from the seeded table on two
    // threads, each player stopping at +$100.
    BatchForm* form = window.Batch();
    form->show();
    form->findChild<QSpinBox*>("txtSessions")->setValue(2000);
    form->findChild<QSpinBox*>("txtRolls")->setValue(100);
    form->findChild<QSpinBox*>("txtThreads")->setValue(2);  // the same picture on any machine
    auto* stops = form->findChild<QTableWidget*>("grdStops");
    for (int row = 0; row < stops->rowCount(); ++row) stops->item(row, 1)->setText("100");
    form->Run();
    form->resize(form->sizeHint().width(), 560);
    target = form;
  } else if (o.view == "sessionslog") {
    SessionsLogForm* form = window.SessionsLog();
    form->show();
    form->adjustSize();
    target = form;
  } else if (o.view == "eventslog") {
    EventsLogForm* form = window.EventsLog();
    form->show();
    form->resize(720, 520);
    form->Refresh();
    target = form;
  } else if (o.view.rfind("pad", 0) == 0) {
    // pad or pad:OPTIONS:WxH, OPTIONS the roll pad's option bits, WxH its size
    RollPadForm* form = window.RollPad();
    const std::size_t colon = o.view.find(':');
    if (colon != std::string::npos) game->pad.PadOptions = std::atoi(o.view.c_str() + colon + 1);
    const std::size_t size = o.view.find(':', colon == std::string::npos ? 0 : colon + 1);
    int w = 0, h = 0;
    form->show();
    if (size != std::string::npos && ParseSize(o.view.substr(size + 1), w, h)) form->resize(w, h);
    target = form;
  }
  QApplication::processEvents();
  if (!target->grab().save(QString::fromStdString(o.screenshot), "PNG")) {
    std::cerr << "ravelton: cannot write " << o.screenshot << "\n";
    return 1;
  }
  return 0;
}
