// frmCrapTable, the main window.
//
// How a click becomes a bet: TableView (picLayout) turns the pointer's
// screen position back into layout coordinates with the inverse of
// zoom, angle and offsets, asks the layout which hot-spot lies there
// (HotSpotAt), maps it by the hover rules (an empty Don't Come odds means
// its flat bet, ...), and hands it to the game: ClickOnBet for a bet (which
// applies a pending menu action or a tool, or lays SelectedCheck down with
// PlaceBet, the one gate of every bet), ClickOnRail for a seat, LiftBet and
// DropLiftedAmount for an Alt drag. Nothing of the bet is kept here.
//
// How a roll becomes a redraw: a right click, F2 or mnuRollDice calls
// RollDice. Inside it the game asks through QtPlatform: settle dialogs and
// notices open modally while the roll waits, and every change of a bet or
// the table asks RequestRedraw, which emits redrawRequested; the window
// answers with update(), so Qt paints once when the roll has returned. The
// paint reads the game's tables afresh (bets into stacks of checks, the
// puck, the dice, the status boxes): what is drawn is always the game.
#include "table/crap_table_window.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMessageBox>

#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "cycle/game_commands.h"
#include "cycle/hyperdrive.h"
#include "cycle/player_names.h"
#include "cycle/recent_games.h"
#include "cycle/sample_games.h"
#include "engine/bankroll.h"
#include "engine/players.h"
#include "script/hot_keys.h"
#include "table/auto_bet_form.h"
#include "table/auto_play_form.h"
#include "table/bankroll_form.h"
#include "table/batch_form.h"
#include "table/check_stacks_form.h"
#include "table/configure_form.h"
#include "table/dice_files_form.h"
#include "table/events_log_form.h"
#include "table/hot_keys_form.h"
#include "table/menu_items.h"
#include "table/move_form.h"
#include "table/new_form.h"
#include "table/path_form.h"
#include "table/qt_platform.h"
#include "table/roll_pad_form.h"
#include "table/sessions_log_form.h"
#include "table/stats_views.h"
#include "table/table_view.h"
#include "table/window_keeper.h"

namespace {
const char* const kStatusViewCaption[5] = {
    "Align at &top of window", "Align at &bottom of window", "Align at &left-side of window",
    "Align at &right-side of window", "Place &near individual players"};
}  // namespace

QString CrapTableWindow::Caption() const {
  const std::string& title = game_.gamefile.WindowTitle;
  return QString::fromStdString(title.empty() ? std::string("Ravelton") : title);
}

CrapTableWindow::CrapTableWindow(Game& game, QtPlatform& platform, QWidget* parent)
    : QMainWindow(parent), game_(game), platform_(platform) {
  setObjectName("frmCrapTable");
  setWindowTitle(Caption());
  view_ = new TableView(game, platform, this);
  mainKeeper_ = new WindowKeeper(game, KeptWindow::Main, *this);
  statsViews_ = new StatsViews(game, this);
  setCentralWidget(view_);
  view_->onWindowKey = [this](int key, Qt::KeyboardModifiers mods) { WindowKey(key, mods); };
  view_->installEventFilter(this);
  connect(view_, &TableView::gameChanged, this, &CrapTableWindow::RefreshMenus);
  connect(&platform, &QtPlatform::redrawRequested, this, [this](int what) {
    view_->update();
    // Minimised, the caption tells how a run stands.
    if (isMinimized() && game_.hyper.RollsThisRun > 0)
      setWindowTitle(game_.HyperDrive ? "Ravelton Hyper-Drive Active"
                                      : "Ravelton Hyper-Drive Stopped");
    // A script or a table click may change a stack while the form is open.
    if (checkStacks_ && checkStacks_->isVisible() &&
        (what == static_cast<int>(Redraw::Table) || what == static_cast<int>(Redraw::OpenViews)))
      checkStacks_->Refresh();
    if (bankroll_ &&
        (what == static_cast<int>(Redraw::Graph) || what == static_cast<int>(Redraw::OpenViews)))
      bankroll_->Refresh();
    if (rollPad_ && rollPad_->isVisible() && what == static_cast<int>(Redraw::OpenViews))
      rollPad_->Refresh();
    // A roll moves the file's positions; opening, closing and the recorder redraw the table.
    if (diceFiles_ && diceFiles_->isVisible() &&
        (what == static_cast<int>(Redraw::OpenViews) || what == static_cast<int>(Redraw::Table)))
      diceFiles_->Refresh();
    if (eventsLog_ && eventsLog_->isVisible() && what == static_cast<int>(Redraw::OpenViews))
      eventsLog_->Refresh();
    // A new session writes the ending one's records, a cash-out its player's.
    if (sessionsLog_ && sessionsLog_->isVisible() &&
        (what == static_cast<int>(Redraw::OpenViews) || what == static_cast<int>(Redraw::Table)))
      sessionsLog_->RefreshIfLogChanged();
    if (what == static_cast<int>(Redraw::OpenViews)) statsViews_->RefreshOpen();
  });
  platform.SetMainWindow(this);
  BuildMenus();
  resize(1280, 900);
  view_->setFocus();
  RefreshMenus();
}

bool CrapTableWindow::Interrupt() {
  if (!game_.HyperDrive) return false;
  AskStopHyperDrive(game_);
  return true;
}

void CrapTableWindow::BuildMenus() {
  auto key = [this](int k, Qt::KeyboardModifiers m = Qt::NoModifier) {
    return [this, k, m] { view_->HandleTableKey(k, m); };
  };
  auto guarded = [this](auto f) {
    return [this, f] {
      if (Interrupt()) return;
      f();
      RefreshMenus();
      view_->update();
    };
  };

  QMenu* gameMenu = menuBar()->addMenu("&Game");
  gameMenu->setToolTipsVisible(true);
  // New asks about unsaved work, then shows frmNew, whose OK starts the session.
  connect(MenuItem(gameMenu, "mnuNew", "&New"), &QAction::triggered, this, guarded([this] {
            if (!PromptUnsavedWork(game_)) return;
            NewForm form(game_, this);
            if (form.exec() == QDialog::Accepted && bankroll_) bankroll_->Refresh();
          }));
  // The game file commands ask their own questions; the caption then names
  // the file (RefreshMenus).
  // After a file command: an opened game brings its windows with it, open
  // or closed, and the bankroll view shows the game now in play.
  auto afterFileCommand = [this](bool opened) {
    if (opened) RestoreWindows();
    if (bankroll_) bankroll_->Refresh();
  };
  auto fileCommand = [this, guarded, afterFileCommand](bool (*command)(Game&)) {
    return guarded([this, command, afterFileCommand] {
      const bool done = command(game_);
      afterFileCommand(done && command == OpenGameCommand);
    });
  };
  connect(MenuItem(gameMenu, "mnuOpen", "&Open ..."), &QAction::triggered, this,
          fileCommand(OpenGameCommand));
  connect(MenuItem(gameMenu, "mnuSave", "&Save"), &QAction::triggered, this,
          fileCommand(SaveGameCommand));
  connect(MenuItem(gameMenu, "mnuSaveAs", "Sa&ve As ..."), &QAction::triggered, this,
          fileCommand(SaveGameAsCommand));
  // The games opened or saved last, read afresh each time the menu opens.
  QMenu* recent = gameMenu->addMenu("Recent &Games");
  recent->setObjectName("mnuRecentGames");
  // The games that ship with the program, opened as new untitled games.
  QMenu* samples = gameMenu->addMenu("Sa&mple Games");
  samples->setObjectName("mnuSampleGames");
  connect(gameMenu, &QMenu::aboutToShow, this, [this, recent, samples, guarded, afterFileCommand] {
    recent->clear();
    const std::vector<std::string> paths = ReadRecentGames(game_);
    for (std::size_t i = 0; i < paths.size(); ++i) {
      QAction* item = recent->addAction(QString::fromStdString(RecentGameCaption(i, paths[i])));
      item->setObjectName("mnuRecentGame");
      item->setToolTip(QString::fromStdString(paths[i]));
      connect(item, &QAction::triggered, this, guarded([this, afterFileCommand, path = paths[i]] {
                afterFileCommand(OpenRecentGameCommand(game_, path));
              }));
    }
    recent->setEnabled(!paths.empty());
    samples->clear();
    for (const std::string& path : SampleGames(game_)) {
      QAction* item = samples->addAction(QString::fromStdString(SampleGameCaption(path)));
      item->setObjectName("mnuSampleGame");
      connect(item, &QAction::triggered, this, guarded([this, afterFileCommand, path] {
                afterFileCommand(OpenSampleGameCommand(game_, path));
              }));
    }
    samples->setEnabled(!samples->isEmpty());
  });
  connect(MenuItem(gameMenu, "mnuShowPath", "Show &Path"), &QAction::triggered, this, [this] {
    PathForm form(game_, this);
    form.exec();
  });
  connect(MenuItem(gameMenu, "mnuHotKeys", "&Hot-Keys ..."), &QAction::triggered, this,
          guarded([this] {
            HotKeysForm form(game_, this);
            new WindowKeeper(game_, KeptWindow::HotKeys, form);
            form.exec();
          }));
  QMenu* position = gameMenu->addMenu("&Table Position");
  position->setObjectName("mnuTablePosition");
  connect(MenuItem(position, "mnuAutoSize", "&Auto-size/center"), &QAction::triggered, this,
          guarded([this] { view_->AutoSize(); }));
  connect(MenuItem(position, "mnuTableMove", "&Zoom/rotate/move\tZ"), &QAction::triggered, this,
          guarded([this] { Move()->show(); }));
  QMenu* save = position->addMenu("&Save");
  QMenu* restore = position->addMenu("&Restore");
  for (int n = 0; n < kSavedViews; ++n) {
    connect(MenuItem(save, "mnuSaveView", QString("View &%1\tShift+%1").arg(n)),
            &QAction::triggered, this, [this, n] { SaveView(n); });
    connect(MenuItem(restore, "mnuRestoreView", QString("View &%1\tCtrl+%1").arg(n)),
            &QAction::triggered, this, [this, n] { RestoreView(n); });
  }
  connect(MenuItem(gameMenu, "mnuConfigure", "&Configure ..."), &QAction::triggered, this,
          guarded([this] {
            Configure()->Fill();
            Configure()->exec();
          }));
  gameMenu->addSeparator();
  connect(MenuItem(gameMenu, "mnuExit", "E&xit"), &QAction::triggered, this, &QWidget::close);

  QMenu* players = menuBar()->addMenu("&Players");
  players->setToolTipsVisible(true);
  connect(MenuItem(players, "mnuPlayerAdd", "&Add (Buy in)"), &QAction::triggered, this,
          guarded([this] { PromptAddPlayer(game_); }));
  connect(MenuItem(players, "mnuPlayerDelete", "&Remove (Cash out)"), &QAction::triggered, this,
          guarded([this] { CashOutPlayer(game_); }));
  connect(MenuItem(players, "mnuPlayerMove", "&Move"), &QAction::triggered, this,
          guarded([this] { StartMovePlayer(game_); }));
  connect(MenuItem(players, "mnuPlayerRename", "Re&name"), &QAction::triggered, this,
          guarded([this] {
            const int p = game_.betting.CurPlayer;
            if (p < 1 || p > 8 || game_.PlayerName[static_cast<std::size_t>(p)].empty()) return;
            bool chooseLog = false;
            RenamePlayer(game_, p, &chooseLog);
            if (!chooseLog) return;
            std::string& path = game_.roll.SessionLogPath[static_cast<std::size_t>(p)];
            const QString chosen =
                QFileDialog::getSaveFileName(this, "Sessions Log", QString::fromStdString(path),
                                             "Sessions logs (*.slg);;All files (*.*)");
            if (!chosen.isEmpty()) path = chosen.toStdString();
          }));
  // The ATM lives on the Bankroll tab of Configure.
  connect(MenuItem(players, "mnuAtm", "A&TM ..."), &QAction::triggered, this, guarded([this] {
            if (!OpenBankrollTab(game_)) return;
            game_.rules.ConfigureTab = kTabBankroll;
            Configure()->Fill();
            Configure()->exec();
          }));
  QMenu* status = players->addMenu("St&atus boxes");
  status->setObjectName("mnuStatus");
  QAction* shown = CheckItem(status, "mnuStatusShow", "&Show status boxes");
  connect(shown, &QAction::toggled, this, [this](bool on) {
    game_.table.StatusBoxesShown = on;
    if (game_.table.AutoSize) view_->AutoSize();
    view_->update();
  });
  status->addSeparator();
  auto* placements = new QActionGroup(this);
  for (int i = 0; i < 5; ++i) {
    QAction* a = CheckItem(status, "mnuStatusView", kStatusViewCaption[i]);
    a->setData(i);
    placements->addAction(a);
    connect(a, &QAction::triggered, this, [this, i] {
      game_.table.StatusView = i;
      if (game_.table.AutoSize) view_->AutoSize();
      view_->update();
    });
  }

  QMenu* action = menuBar()->addMenu("&Action");
  action->setToolTipsVisible(true);
  connect(MenuItem(action, "mnuRollDice", "&Roll the dice  (Right mouse button)\tF2"),
          &QAction::triggered, this, key(Qt::Key_F2));
  connect(MenuItem(action, "mnuPassDice", "Pass the dice\tP"), &QAction::triggered, this,
          key(Qt::Key_P));
  connect(MenuItem(action, "mnuDiceRollFiles", "&Dice Roll Files ...\tF8"), &QAction::triggered,
          this, guarded([this] { DiceFiles()->show(); }));
  connect(MenuItem(action, "mnuAutoPlay", "Auto-&Play ...\tF3"), &QAction::triggered, this,
          guarded([this] { AutoPlay()->show(); }));
  connect(MenuItem(action, "mnuAutoBet", "Auto-&Bet ...\tF4"), &QAction::triggered, this,
          guarded([this] { ShowAutoBet(); }));
  action->addSeparator();
  connect(MenuItem(action, "mnuBuyPlaceBet", "B&uy Place bet\tF5"), &QAction::triggered, this,
          key(Qt::Key_F5));
  connect(MenuItem(action, "mnuCallBetOn", "Call bet &ON\tF6"), &QAction::triggered, this,
          key(Qt::Key_F6));
  connect(MenuItem(action, "mnuCallAllBetsOn", "Call all bets O&N\tShift+F6"), &QAction::triggered,
          this, key(Qt::Key_F6, Qt::ShiftModifier));
  connect(MenuItem(action, "mnuCallBetOff", "Call bet O&FF\tF7"), &QAction::triggered, this,
          key(Qt::Key_F7));
  connect(MenuItem(action, "mnuCallAllBetsOff", "Call all bets OF&F\tShift+F7"),
          &QAction::triggered, this, key(Qt::Key_F7, Qt::ShiftModifier));
  connect(MenuItem(action, "mnuRemoveBet", "Re&move bet\tDel"), &QAction::triggered, this,
          key(Qt::Key_Delete));
  connect(MenuItem(action, "mnuRemoveAllBets", "Remo&ve all bets\tShift+Del"), &QAction::triggered,
          this, key(Qt::Key_Delete, Qt::ShiftModifier));
  action->addSeparator();
  struct Toggle {
    const char* name;
    const char* caption;
    int key;
  };
  for (const Toggle& t :
       {Toggle{"mnuFlashBets", "&Flash bets\tSpace", Qt::Key_Space},
        Toggle{"mnuKeyInBetAmounts", "&Key-in bet amounts\tF9", Qt::Key_F9},
        Toggle{"mnuDisplayBetAmounts", "D&isplay bets as numbers\tF11", Qt::Key_F11},
        Toggle{"mnuDisplayHopBets", "Display &Hop bets\tH", Qt::Key_H}}) {
    QAction* a = CheckItem(action, t.name, t.caption);
    connect(a, &QAction::triggered, this, key(t.key));
  }
  connect(MenuItem(action, "mnuRollYourOwnNumbers", "Roll your o&wn numbers\tF12"),
          &QAction::triggered, this, guarded([this] { RollPad()->show(); }));

  QMenu* stats = menuBar()->addMenu("&Statistics");
  stats->setToolTipsVisible(true);
  connect(MenuItem(stats, "mnuSessionsLog", "&Sessions Log ..."), &QAction::triggered, this,
          guarded([this] { SessionsLog()->show(); }));
  connect(MenuItem(stats, "mnuEventsLog", "E&vents Log ..."), &QAction::triggered, this,
          guarded([this] { EventsLog()->show(); }));
  auto view = [this, stats](const char* name, const QString& caption, StatsView which) {
    connect(MenuItem(stats, name, caption), &QAction::triggered, this,
            [this, which] { statsViews_->Open(which); });
  };
  view("mnuSummary", "&Summary ...", StatsView::Summary);
  view("mnuHands", "&Hands ...", StatsView::Hands);
  connect(MenuItem(stats, "mnuBankroll", "&Bankroll / Hyper-Drive ..."), &QAction::triggered, this,
          guarded([this] { Bankroll()->show(); }));
  view("mnuRollTotals", "Roll &Totals ...", StatsView::RollTotals);
  view("mnuRollFreqs", "Roll &Frequencies ...", StatsView::RollFreqs);
  view("mnuBetResults", "Bet R&esults ...", StatsView::BetResults);
  view("mnuBetTrends", "Bet T&rends ...", StatsView::BetTrends);
  connect(MenuItem(stats, "mnuCheckStacks", "&CheckStacks ..."), &QAction::triggered, this,
          guarded([this] {
            CheckStacks()->Refresh();
            CheckStacks()->show();
          }));
  stats->addSeparator();
  connect(MenuItem(stats, "mnuBatch", "Batch R&un ..."), &QAction::triggered, this, guarded([this] {
            Batch()->Refresh();
            Batch()->show();
          }));

  QMenu* help = menuBar()->addMenu("&Help");
  help->setToolTipsVisible(true);
  connect(MenuItem(help, "mnuContents", "&Contents ..."), &QAction::triggered, this,
          [this] { platform_.ShowHelp(kHelpNone); });
  connect(
      MenuItem(help, "mnuAboutCraps", "&About Ravelton ..."), &QAction::triggered, this, [this] {
        QMessageBox::about(this, "About Ravelton",
                           "Ravelton\nA casino craps simulator and betting-strategy laboratory.");
      });
}

void CrapTableWindow::RefreshMenus() {
  auto check = [this](const char* name, bool on) {
    if (QAction* a = findChild<QAction*>(name)) a->setChecked(on);
  };
  check("mnuFlashBets", game_.table.FlashBets);
  check("mnuKeyInBetAmounts", game_.betting.KeyInBetAmounts);
  check("mnuDisplayBetAmounts", game_.table.DisplayBetAmounts);
  check("mnuDisplayHopBets", game_.table.HopBetsShown);
  check("mnuStatusShow", game_.table.StatusBoxesShown);
  for (QAction* a : findChildren<QAction*>("mnuStatusView"))
    a->setChecked(a->data().toInt() == game_.table.StatusView);
  if (!isMinimized()) setWindowTitle(Caption());
  if (checkStacks_) checkStacks_->Refresh();
  if (bankroll_) bankroll_->Refresh();
  if (autoPlay_) autoPlay_->Refresh();
  statsViews_->RefreshOpen();
  if (autoBet_ && autoBet_->isVisible()) autoBet_->Refresh();
}

void CrapTableWindow::SaveView(int n) {
  TableState& t = game_.table;
  t.SavedView[static_cast<std::size_t>(n)] = {t.TableZoom, t.TableRotation, t.TableOffsetA,
                                              t.TableOffsetB};
  game_.roll.SessionDirty = true;
}

void CrapTableWindow::RestoreView(int n) {
  TableState& t = game_.table;
  const SavedTableView& v = t.SavedView[static_cast<std::size_t>(n)];
  if (v.zoom < kTableZoomMin) return;  // never saved
  t.TableZoom = v.zoom;
  t.TableRotation = v.rotation;
  t.TableOffsetA = v.offsetA;
  t.TableOffsetB = v.offsetB;
  t.AutoSize = false;
  game_.roll.SessionDirty = true;
  view_->update();
}

void CrapTableWindow::WindowKey(int key, Qt::KeyboardModifiers mods) {
  static const QString kShiftedDigits = QStringLiteral(")!@#$%^&*(");
  int digit = -1;
  if (key >= Qt::Key_0 && key <= Qt::Key_9) digit = key - Qt::Key_0;
  // Arrow and function keys lie beyond a character's range: only ASCII keys
  // can be a shifted digit.
  const int shifted = key < 0x80 ? kShiftedDigits.indexOf(QChar(key)) : -1;
  if (shifted >= 0) digit = shifted, mods |= Qt::ShiftModifier;
  if (digit >= 0 && (mods & Qt::ShiftModifier)) return SaveView(digit);
  if (digit >= 0 && (mods & Qt::ControlModifier)) return RestoreView(digit);
  if (key == Qt::Key_Z) Move()->show();
  if (key == Qt::Key_F3) AutoPlay()->show();
  if (key == Qt::Key_F12) RollPad()->show();
  if (key == Qt::Key_F8) DiceFiles()->show();
  if (key == Qt::Key_F4) ShowAutoBet();
  if (key == Qt::Key_F1) platform_.ShowHelp(kHelpNone);
}

ConfigureForm* CrapTableWindow::Configure() {
  if (!configure_) configure_ = new ConfigureForm(game_, this);
  return configure_;
}

BankrollForm* CrapTableWindow::Bankroll() {
  if (!bankroll_) {
    bankroll_ = new BankrollForm(game_, this);
    new WindowKeeper(game_, KeptWindow::Bankroll, *bankroll_);
  }
  return bankroll_;
}

MoveForm* CrapTableWindow::Move() {
  if (!move_) {
    move_ = new MoveForm(game_, *view_, this);
    new WindowKeeper(game_, KeptWindow::Move, *move_);
  }
  return move_;
}

CheckStacksForm* CrapTableWindow::CheckStacks() {
  if (!checkStacks_) {
    checkStacks_ = new CheckStacksForm(game_, this);
    new WindowKeeper(game_, KeptWindow::CheckStacks, *checkStacks_);
    connect(checkStacks_, &CheckStacksForm::changed, view_, qOverload<>(&QWidget::update));
  }
  return checkStacks_;
}

AutoPlayForm* CrapTableWindow::AutoPlay() {
  if (!autoPlay_) {
    autoPlay_ = new AutoPlayForm(game_, this);
    new WindowKeeper(game_, KeptWindow::AutoPlay, *autoPlay_);
    connect(autoPlay_, &AutoPlayForm::changed, view_, qOverload<>(&QWidget::update));
  }
  autoPlay_->Refresh();
  return autoPlay_;
}

DiceFilesForm* CrapTableWindow::DiceFiles() {
  if (!diceFiles_) {
    diceFiles_ = new DiceFilesForm(game_, this);
    new WindowKeeper(game_, KeptWindow::DiceFiles, *diceFiles_);
    connect(diceFiles_, &DiceFilesForm::changed, this, [this] {
      RefreshMenus();
      view_->update();
    });
  }
  return diceFiles_;
}

BatchForm* CrapTableWindow::Batch() {
  if (!batch_) batch_ = new BatchForm(game_, this);
  return batch_;
}

SessionsLogForm* CrapTableWindow::SessionsLog() {
  if (!sessionsLog_) {
    sessionsLog_ = new SessionsLogForm(game_, this);
    new WindowKeeper(game_, KeptWindow::SessionsLog, *sessionsLog_);
  }
  return sessionsLog_;
}

EventsLogForm* CrapTableWindow::EventsLog() {
  if (!eventsLog_) {
    eventsLog_ = new EventsLogForm(game_, this);
    new WindowKeeper(game_, KeptWindow::EventsLog, *eventsLog_);
  }
  return eventsLog_;
}

RollPadForm* CrapTableWindow::RollPad() {
  if (!rollPad_) {
    rollPad_ = new RollPadForm(game_, this);
    new WindowKeeper(game_, KeptWindow::RollPad, *rollPad_);
    connect(rollPad_, &RollPadForm::rolled, this, [this] {
      view_->PlaceDice();
      RefreshMenus();
      view_->update();
    });
    connect(rollPad_, &RollPadForm::tableKey, view_, &TableView::HandleTableKey);
  }
  return rollPad_;
}

AutoBetForm* CrapTableWindow::AutoBet() {
  if (!autoBet_) {
    autoBet_ = new AutoBetForm(game_, this);
    new WindowKeeper(game_, KeptWindow::AutoBet, *autoBet_);
    platform_.onScriptStep = [this](const ScriptStep& step) {
      return autoBet_ ? autoBet_->ShowStep(step) : true;
    };
    connect(autoBet_, &AutoBetForm::changed, view_, qOverload<>(&QWidget::update));
  }
  return autoBet_;
}

void CrapTableWindow::ShowAutoBet() {
  AutoBet()->show();
  autoBet_->raise();
  autoBet_->activateWindow();
}

bool CrapTableWindow::eventFilter(QObject* watched, QEvent* event) {
  // Ctrl and a letter, nothing else held: a Hot-Key, before the table's own
  // keys; a letter without a Hot-Key goes on to them.
  if (watched == view_ && event->type() == QEvent::KeyPress && !game_.HyperDrive &&
      !game_.scriptRun.ScriptRunning) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() == Qt::ControlModifier && key->key() >= Qt::Key_A &&
        key->key() <= Qt::Key_Z &&
        FireHotKey(game_, static_cast<char>('A' + (key->key() - Qt::Key_A)))) {
      RefreshMenus();
      view_->update();
      return true;
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

void CrapTableWindow::closeEvent(QCloseEvent* event) {
  if (game_.HyperDrive) {
    // Closing during a run only offers to stop it.
    AskStopHyperDrive(game_);
    event->ignore();
    return;
  }
  // The questions about a running script and unsaved work; default.rvg is
  // written for the next start.
  if (!CloseProgram(game_, false)) {
    event->ignore();
    return;
  }
  event->accept();
}

void CrapTableWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || isMinimized()) return;
  // tmrResize's work: a run that ended while minimised shows its stop message now.
  setWindowTitle(Caption());
  if (!game_.HyperDrive && !game_.StopMessage.empty()) {
    const std::string message = game_.StopMessage;
    game_.StopMessage.clear();
    ShowNotice(game_, message, "Hyper-Drive Stopped", kHelpHyperDrive, kMsgOk | kMsgPicStop);
  }
}

void CrapTableWindow::RestoreWindows() {
  mainKeeper_->Restore();
  // A window the game has open is made if need be; one it has closed is
  // closed only if it exists.
  const auto restore = [this](KeptWindow which, QWidget* existing, auto make) {
    const bool shown = KeptWindowShown(game_, which);
    QWidget* form = shown ? static_cast<QWidget*>((this->*make)()) : existing;
    if (form != nullptr) RestoreKeptWindow(*form, shown);
  };
  restore(KeptWindow::Bankroll, bankroll_, &CrapTableWindow::Bankroll);
  restore(KeptWindow::Move, move_, &CrapTableWindow::Move);
  restore(KeptWindow::CheckStacks, checkStacks_, &CrapTableWindow::CheckStacks);
  restore(KeptWindow::AutoPlay, autoPlay_, &CrapTableWindow::AutoPlay);
  restore(KeptWindow::DiceFiles, diceFiles_, &CrapTableWindow::DiceFiles);
  restore(KeptWindow::AutoBet, autoBet_, &CrapTableWindow::AutoBet);
  restore(KeptWindow::RollPad, rollPad_, &CrapTableWindow::RollPad);
  restore(KeptWindow::SessionsLog, sessionsLog_, &CrapTableWindow::SessionsLog);
  restore(KeptWindow::EventsLog, eventsLog_, &CrapTableWindow::EventsLog);
  statsViews_->RestoreShown();
  // The keyed-in amount box stands again over the bet it was left on.
  if (game_.betting.KeyInBetAmounts && game_.betting.CurPlayer > 0)
    view_->OpenEnterBet(game_.gamefile.EnterBetId);
}
