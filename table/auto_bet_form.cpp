#include "table/auto_bet_form.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTime>
#include <QVBoxLayout>
#include <algorithm>

#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/platform.h"
#include "cycle/auto_bet_commands.h"
#include "script/activation.h"
#include "script/auto_bet_editor.h"
#include "script/auto_bet_find.h"
#include "script/files.h"
#include "script/script_printouts.h"
#include "table/auto_bet_text.h"
#include "table/find_replace_form.h"
#include "table/menu_items.h"
#include "table/permissions_form.h"
#include "table/steps_form.h"

namespace {

struct ListButton {
  const char* name;
  const char* caption;
  const char* list;  // the picklist's own name
};
constexpr std::array<ListButton, static_cast<int>(Picklist::kCount)> kListButtons = {{
    {"cmdLogic", "&Logic", "listLogic"},
    {"cmdVariables", "&Variables", "listVariables"},
    {"cmdModifiers", "&Modifiers", "listModifiers"},
    {"cmdAction", "A&ctions", "listAction"},
    {"cmdFunctions", "F&unctions", "listFunctions"},
}};

constexpr int kFontStepMin = -4;
constexpr int kFontStepMax = 10;
constexpr int kPicklistRows = 24;  // rows a picklist shows before it scrolls
const char* const kSeparatorText = "────────────";

// A stored option is -1 when on.
bool On(Long value) { return value != 0; }
Long Stored(bool on) { return on ? -1 : 0; }

std::vector<std::string> Lines(const QString& text) {
  std::vector<std::string> lines;
  for (const QString& line : text.split('\n')) lines.push_back(line.toStdString());
  return lines;
}

}  // namespace

std::string PrintDateTime(Platform& platform) {
  return MediumDate(platform.Today()) + ", " +
         QTime::currentTime().toString("h:mm:ss AP").toStdString();
}

AutoBetForm::AutoBetForm(Game& game, QWidget* parent) : QWidget(parent, Qt::Window), game_(game) {
  setObjectName("frmAutoBet");
  setWindowTitle("Auto-Bet");
  auto* layout = new QVBoxLayout(this);
  auto* bar = new QMenuBar(this);
  BuildMenus(bar);
  layout->setMenuBar(bar);

  player_ = new QComboBox;
  player_->setObjectName("cmbPlayer");
  player_->setMinimumContentsLength(16);
  connect(player_, &QComboBox::activated, this, &AutoBetForm::PlayerChosen);
  active_ = new QCheckBox("&Active");
  active_->setObjectName("chkAutoBetsActive");
  connect(active_, &QCheckBox::clicked, this, [this] {
    if (FormLoading) return;
    ToggleScriptActive(game_, game_.scriptSource.EdPlayer);
    Refresh();
    emit changed();
  });
  check_ = new QPushButton("Check &Script");
  check_->setObjectName("cmdCheckScript");
  connect(check_, &QPushButton::clicked, this, &AutoBetForm::CheckScriptClicked);
  auto* top = new QHBoxLayout;
  auto* playerLabel = new QLabel("&Player:");
  playerLabel->setBuddy(player_);
  top->addWidget(playerLabel);
  top->addWidget(player_);
  top->addSpacing(12);
  top->addWidget(active_);
  top->addStretch(1);
  top->addWidget(check_);
  layout->addLayout(top);

  lists_ = new QWidget;
  auto* buttons = new QHBoxLayout(lists_);
  buttons->setContentsMargins(0, 0, 0, 0);
  for (int i = 0; i < static_cast<int>(Picklist::kCount); ++i) {
    auto* b = new QPushButton(kListButtons[static_cast<std::size_t>(i)].caption);
    b->setObjectName(kListButtons[static_cast<std::size_t>(i)].name);
    connect(b, &QPushButton::clicked, this, [this, i] { OpenPicklist(static_cast<Picklist>(i)); });
    buttons->addWidget(b);
    listButtons_[static_cast<std::size_t>(i)] = b;
  }
  buttons->addStretch(1);
  layout->addWidget(lists_);

  empty_ = new QLabel("No players present");
  empty_->setObjectName("lblNoPlayers");
  layout->addWidget(empty_);
  text_ = new ScriptTextEdit;
  connect(text_, &QPlainTextEdit::textChanged, this, &AutoBetForm::TextEdited);
  connect(text_, &QPlainTextEdit::cursorPositionChanged, this, &AutoBetForm::SelectionMoved);
  connect(text_, &QPlainTextEdit::selectionChanged, this, &AutoBetForm::SelectionMoved);
  text_->viewport()->installEventFilter(this);
  text_->installEventFilter(this);
  layout->addWidget(text_, 1);

  picklist_ = new QListWidget(this);
  picklist_->setWindowFlags(Qt::Popup);
  connect(picklist_, &QListWidget::itemClicked, this,
          [this](QListWidgetItem* item) { PickRow(picklist_->row(item)); });
  connect(picklist_, &QListWidget::itemActivated, this,
          [this](QListWidgetItem* item) { PickRow(picklist_->row(item)); });
  resize(780, 560);
}

void AutoBetForm::BuildMenus(QMenuBar* bar) {
  QMenu* file = bar->addMenu("&File");
  file->setToolTipsVisible(true);
  connect(MenuItem(file, "mnuNew", "&New"), &QAction::triggered, this,
          [this] { FileCommand(NewAutoBetCommand, false); });
  connect(MenuItem(file, "mnuOpen", "&Open ..."), &QAction::triggered, this,
          [this] { FileCommand(OpenAutoBetCommand, false); });
  connect(MenuItem(file, "mnuSave", "&Save"), &QAction::triggered, this,
          [this] { FileCommand(SaveAutoBetCommand, false); });
  connect(MenuItem(file, "mnuSaveAs", "Save &As ..."), &QAction::triggered, this,
          [this] { FileCommand(SaveAutoBetAsCommand, false); });
  file->addSeparator();
  connect(MenuItem(file, "mnuPrint", "&Print ..."), &QAction::triggered, this, [this] {
    const GameFileState& f = game_.gamefile;
    game_.platform->Print(AutoBetPrintout(game_, PrintDateTime(*game_.platform),
                                          On(f.EditorLineNumbers), On(f.EditorHighlight)));
  });

  QMenu* edit = bar->addMenu("&Edit");
  edit->setToolTipsVisible(true);
  connect(MenuItem(edit, "mnuCut", "Cu&t\tCtrl+X"), &QAction::triggered, this, [this] {
    if (MayEdit()) text_->cut();
  });
  connect(MenuItem(edit, "mnuCopy", "&Copy\tCtrl+C"), &QAction::triggered, this,
          [this] { text_->copy(); });
  connect(MenuItem(edit, "mnuPaste", "&Paste\tCtrl+V"), &QAction::triggered, this, [this] {
    if (MayEdit()) text_->paste();
  });
  connect(MenuItem(edit, "mnuDelete", "&Delete\tDel"), &QAction::triggered, this, [this] {
    if (MayEdit()) text_->textCursor().removeSelectedText();
  });
  connect(MenuItem(edit, "mnuSelectAll", "Select &All\tCtrl+A"), &QAction::triggered, this,
          [this] { text_->selectAll(); });
  edit->addSeparator();
  connect(MenuItem(edit, "mnuCopyTo", "C&opy To File ..."), &QAction::triggered, this,
          [this] { CopyToFileCommand(game_); });
  connect(MenuItem(edit, "mnuPasteFrom", "P&aste From File ..."), &QAction::triggered, this,
          [this] { FileCommand(PasteFromAutoBetCommand, true); });
  edit->addSeparator();
  connect(MenuItem(edit, "mnuFind", "&Find/Replace ..."), &QAction::triggered, this, [this] {
    FindReplace()->show();
    find_->raise();
  });
  connect(MenuItem(edit, "mnuFindNext", "Find &Next"), &QAction::triggered, this,
          [this] { FindNext(false); });
  connect(MenuItem(edit, "mnuFindPrevious", "Find Pre&vious"), &QAction::triggered, this,
          [this] { FindNext(true); });

  QMenu* options = bar->addMenu("&Options");
  options->setToolTipsVisible(true);
  connect(CheckItem(options, "mnuShowSteps", "Show &Steps During Play"), &QAction::toggled, this,
          [this](bool on) {
            if (FormLoading) return;
            game_.scriptRun.ShowSteps = on;
            game_.roll.SessionDirty = true;
          });
  auto noticeBit = [this](Long bit) {
    return [this, bit](bool on) {
      if (FormLoading) return;
      Long& flags = game_.rules.NoticeFlags;
      flags = on ? (flags | bit) : (flags & ~bit);
      game_.roll.SessionDirty = true;
    };
  };
  connect(
      CheckItem(options, "mnuShowLoggedMessagesNormal", "Show Logged &Messages During Normal Play"),
      &QAction::toggled, this, noticeBit(kNoticeScriptNormal));
  connect(
      CheckItem(options, "mnuShowLoggedMessagesHyper", "Show Logged Messages During H&yper-Drive"),
      &QAction::toggled, this, noticeBit(kNoticeScriptHyper));
  options->addSeparator();
  auto stored = [this](Long GameFileState::*field) {
    return [this, field](bool on) {
      if (FormLoading) return;
      game_.gamefile.*field = Stored(on);
      ApplyOptions();
    };
  };
  connect(CheckItem(options, "mnuShowLineNumbers", "Show &Line Numbers"), &QAction::toggled, this,
          stored(&GameFileState::EditorLineNumbers));
  connect(CheckItem(options, "mnuShowSyntaxLists", "Show Synta&x Lists"), &QAction::toggled, this,
          stored(&GameFileState::EditorSyntaxLists));
  QMenu* font = options->addMenu("&Font");
  font->menuAction()->setObjectName("mnuFont");
  connect(CheckItem(font, "mnuFontItalic", "&Italic"), &QAction::toggled, this,
          stored(&GameFileState::EditorItalic));
  connect(CheckItem(font, "mnuFontBold", "&Bold"), &QAction::toggled, this,
          stored(&GameFileState::EditorBold));
  for (QAction* a : FontSizeItems(this, font, "mnuFontSize", [this](int step) {
         Long& size = game_.gamefile.EditorFontSize;
         size = NextFontStep(static_cast<int>(size), step, kFontStepMin, kFontStepMax);
         ApplyOptions();
       })) {
    a->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(a);
  }
  connect(CheckItem(options, "mnuAutoIndent", "Auto-&Indent"), &QAction::toggled, this,
          stored(&GameFileState::EditorAutoIndent));
  connect(CheckItem(options, "mnuHighlight", "&Highlight"), &QAction::toggled, this,
          stored(&GameFileState::EditorHighlight));
  options->addSeparator();
  connect(MenuItem(options, "mnuPermissions", "&Permissions ..."), &QAction::triggered, this,
          [this] {
            PermissionsForm form(game_, this);
            form.exec();
          });
  connect(MenuItem(options, "mnuActivateAllScripts", "&Activate All Players' Scripts"),
          &QAction::triggered, this, [this] {
            ActivateAllScripts(game_);
            Refresh();
            emit changed();
          });
  connect(MenuItem(options, "mnuDeactivateAllScripts", "&Deactivate All Players' Scripts"),
          &QAction::triggered, this, [this] {
            DeactivateAllScripts(game_);
            Refresh();
          });

  QMenu* help = bar->addMenu("&Help");
  help->setToolTipsVisible(true);
  connect(MenuItem(help, "mnuHelp", "&Help"), &QAction::triggered, this,
          [this] { game_.platform->ShowHelp(kHelpScriptEmpty); });
}

void AutoBetForm::showEvent(QShowEvent* event) {
  OpenAutoBetEditor(game_);
  Refresh();
  QWidget::showEvent(event);
}

void AutoBetForm::closeEvent(QCloseEvent* event) {
  if (game_.scriptRun.ScriptRunning && game_.scriptRun.StepWaiting &&
      !AskInterruptAutoBetting(game_)) {
    event->ignore();
    return;
  }
  if (steps_ != nullptr) steps_->hide();
  CloseAutoBetEditor(game_);
  QWidget::closeEvent(event);
}

void AutoBetForm::Refresh() {
  const ScriptSource& ss = game_.scriptSource;
  int first = 0;
  bool seated = false;
  for (int p = 1; p <= 8; ++p) {
    if (game_.PlayerName[static_cast<std::size_t>(p)].empty()) continue;
    if (first == 0) first = p;
    seated |= p == ss.EdPlayer;
  }
  if (!seated && first > 0) ChangeEditorPlayer(game_, first);
  FormLoading = true;
  player_->clear();
  for (int p = 1; p <= 8; ++p) {
    const std::string& name = game_.PlayerName[static_cast<std::size_t>(p)];
    if (name.empty()) continue;
    player_->addItem(QString::fromStdString(name), p);
    if (p == ss.EdPlayer) player_->setCurrentIndex(player_->count() - 1);
  }
  const bool anyone = first > 0;
  for (QWidget* w : {static_cast<QWidget*>(player_), static_cast<QWidget*>(active_),
                     static_cast<QWidget*>(check_), static_cast<QWidget*>(text_), lists_})
    w->setEnabled(anyone);
  empty_->setVisible(!anyone);
  active_->setChecked(game_.roll.ScriptActive[static_cast<std::size_t>(ss.EdPlayer)]);
  FormLoading = false;
  ApplyOptions();
  ShowText();
}

void AutoBetForm::ApplyOptions() {
  const GameFileState& f = game_.gamefile;
  FormLoading = true;
  auto check = [this](const char* name, bool on) {
    if (QAction* a = findChild<QAction*>(name)) a->setChecked(on);
  };
  check("mnuShowSteps", game_.scriptRun.ShowSteps);
  check("mnuShowLoggedMessagesNormal", (game_.rules.NoticeFlags & kNoticeScriptNormal) != 0);
  check("mnuShowLoggedMessagesHyper", (game_.rules.NoticeFlags & kNoticeScriptHyper) != 0);
  check("mnuShowLineNumbers", On(f.EditorLineNumbers));
  check("mnuShowSyntaxLists", On(f.EditorSyntaxLists));
  check("mnuFontItalic", On(f.EditorItalic));
  check("mnuFontBold", On(f.EditorBold));
  check("mnuAutoIndent", On(f.EditorAutoIndent));
  check("mnuHighlight", On(f.EditorHighlight));
  FormLoading = false;
  QFont font = text_->font();
  font.setPointSizeF(
      std::max(4.0, QApplication::font().pointSizeF() +
                        std::clamp<Long>(f.EditorFontSize, kFontStepMin, kFontStepMax)));
  font.setItalic(On(f.EditorItalic));
  font.setBold(On(f.EditorBold));
  text_->setFont(font);
  text_->SetLineNumbers(On(f.EditorLineNumbers));
  lists_->setVisible(On(f.EditorSyntaxLists));
  text_->SetBands(On(f.EditorHighlight) ? game_.scriptSource.EdBandMark
                                        : std::vector<std::int32_t>{});
}

void AutoBetForm::ShowText() {
  const ScriptSource& ss = game_.scriptSource;
  setWindowTitle(QString::fromStdString(UndoubleAmpersands(AutoBetCaption(game_, ss.EdPlayer))));
  QString shown;
  const std::vector<std::string> lines = EditorText(game_);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) shown += '\n';
    shown += QString::fromStdString(lines[i]);
  }
  if (text_->toPlainText() == shown) return;
  FormLoading = true;
  text_->setPlainText(shown);
  text_->SelectSpan(ss.EdSelStartLine, ss.EdSelStartColumn, ss.EdSelEndLine, ss.EdSelEndColumn);
  caretBlock_ = text_->textCursor().blockNumber();
  text_->SetBands(On(game_.gamefile.EditorHighlight) ? ss.EdBandMark : std::vector<std::int32_t>{});
  FormLoading = false;
}

void AutoBetForm::TextEdited() {
  if (FormLoading) return;
  SetEditorText(game_, Lines(text_->toPlainText()), true);
}

void AutoBetForm::SelectionMoved() {
  if (FormLoading) return;
  const QTextCursor c = text_->textCursor();
  const QTextDocument* doc = text_->document();
  auto at = [doc](int position) {
    const QTextBlock b = doc->findBlock(position);
    return std::pair<int, int>{b.blockNumber() + 1, position - b.position()};
  };
  const auto [startLine, startColumn] = at(c.selectionStart());
  const auto [endLine, endColumn] = at(c.selectionEnd());
  const auto [caretLine, caretColumn] = at(c.position());
  const int charWidth = std::max(1, text_->fontMetrics().horizontalAdvance('0'));
  SetEditorSelection(game_, {startLine, startColumn, endLine, endColumn, caretLine, caretColumn,
                             text_->TopLine(), text_->horizontalScrollBar()->value() / charWidth});
  // A line the caret leaves gets its structure words in their capitals.
  const int block = caretLine - 1;
  if (block == caretBlock_) return;
  const QTextBlock left = doc->findBlockByNumber(caretBlock_);
  caretBlock_ = block;
  if (!left.isValid()) return;
  std::string line = left.text().toStdString();
  if (!CapitalizeStructureWords(line)) return;
  QTextCursor fix(left);
  fix.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
  fix.insertText(QString::fromStdString(line));
}

bool AutoBetForm::eventFilter(QObject* watched, QEvent* event) {
  // During a run a click or a key on the script first asks to interrupt it.
  const QEvent::Type type = event->type();
  if (game_.scriptRun.ScriptRunning &&
      (type == QEvent::MouseButtonPress || type == QEvent::KeyPress)) {
    AskInterruptAutoBetting(game_, type == QEvent::KeyPress);
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

bool AutoBetForm::MayEdit() {
  if (!game_.scriptRun.ScriptRunning) return true;
  AskInterruptAutoBetting(game_, true);
  return false;
}

void AutoBetForm::FileCommand(bool (*command)(Game&), bool editing) {
  if (game_.scriptRun.ScriptRunning) {
    AskInterruptAutoBetting(game_, editing);
    return;
  }
  SelectionMoved();
  command(game_);
  Refresh();
}

void AutoBetForm::PlayerChosen(int index) {
  if (FormLoading || index < 0) return;
  ChangeEditorPlayer(game_, player_->itemData(index).toInt());
  Refresh();
}

void AutoBetForm::SelectSpan(int line, int column, int endLine, int endColumn) {
  text_->SelectSpan(line, column, endLine, endColumn);
  text_->setFocus();
}

void AutoBetForm::CheckScriptClicked() {
  SelectionMoved();
  const CheckScriptResult result = CheckScript(game_);
  if (result.ok) {
    ApplyCompiledIndents(game_, On(game_.gamefile.EditorAutoIndent));
    ShowText();
    ApplyOptions();
  } else if (result.line > 0) {
    SelectSpan(result.line, result.col, result.endLine, result.endCol);
  }
}

void AutoBetForm::OpenPicklist(Picklist list) {
  openList_ = list;
  const auto index = static_cast<std::size_t>(list);
  picklist_->setObjectName(kListButtons[index].list);
  picklist_->clear();
  for (const std::string& row : PicklistRows(list)) {
    const bool separator = row == kPicklistSeparator;
    auto* item =
        new QListWidgetItem(separator ? QString(kSeparatorText) : QString::fromStdString(row));
    if (!PickText(list, row)) {
      item->setFlags(Qt::NoItemFlags);
      if (!separator) {
        QFont bold = item->font();
        bold.setBold(true);
        item->setFont(bold);
      }
    }
    picklist_->addItem(item);
  }
  const int rowHeight = std::max(1, picklist_->sizeHintForRow(0));
  const int rows = std::min(kPicklistRows, picklist_->count());
  picklist_->resize(std::max(220, picklist_->sizeHintForColumn(0) + 40),
                    rows * rowHeight + 2 * picklist_->frameWidth());
  QPushButton* button = listButtons_[index];
  picklist_->move(button->mapToGlobal(QPoint(0, button->height())));
  picklist_->show();
  picklist_->setFocus();
}

void AutoBetForm::PickRow(int row) {
  const auto& rows = PicklistRows(openList_);
  if (row < 0 || row >= static_cast<int>(rows.size())) return;
  const auto text = PickText(openList_, rows[static_cast<std::size_t>(row)]);
  if (!text) return;
  picklist_->hide();
  if (!MayEdit()) return;
  text_->insertPlainText(QString::fromStdString(*text));
  text_->setFocus();
}

bool AutoBetForm::ShowStep(const ScriptStep& step) {
  ScriptRunState& r = game_.scriptRun;
  if (!isVisible()) return true;
  const EditorSelection span =
      StepSpan(game_, step.startLine, step.startCol, step.endLine, step.endCol);
  FormLoading = true;
  text_->SelectSpan(span.startLine, span.startColumn, span.endLine, span.endColumn);
  FormLoading = false;
  if (steps_ == nullptr) {
    steps_ = new StepsForm(game_, this);
    connect(steps_, &StepsForm::stepsEnded, this, &AutoBetForm::ApplyOptions);
  }
  steps_->ShowStep(QString::fromStdString(step.caption), QString::fromStdString(step.note));
  // The run waits here, the window going on, until Next, Stop or a close.
  while (r.StepWaiting && r.ScriptRunning && steps_->isVisible())
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  return r.ScriptRunning;
}

FindReplaceForm* AutoBetForm::FindReplace() {
  if (find_ == nullptr) find_ = new FindReplaceForm(*this, this);
  return find_;
}

void AutoBetForm::FindNext(bool reverse) {
  if (find_ == nullptr || find_->What().empty()) {
    FindReplace()->show();
    return;
  }
  SelectionMoved();
  const ScriptSource& ss = game_.scriptSource;
  const bool down = find_->Down() != reverse;
  const auto match = FindInScript(game_, find_->What(), find_->MatchCase(), down,
                                  down ? ss.EdSelEndLine : ss.EdSelStartLine,
                                  down ? ss.EdSelEndColumn : ss.EdSelStartColumn);
  // Nothing else to find: the search came back to where it started.
  const bool same = match && match->line == ss.EdSelStartLine &&
                    match->column == ss.EdSelStartColumn && match->line == ss.EdSelEndLine &&
                    match->endColumn == ss.EdSelEndColumn;
  if (!match || same) {
    ShowNotice(game_, "All text has been searched.", "Search Results", 0, kMsgOk);
    return;
  }
  SelectSpan(match->line, match->column, match->line, match->endColumn);
}

void AutoBetForm::ReplaceClicked() {
  if (!MayEdit()) return;
  QTextCursor c = text_->textCursor();
  const QString what = QString::fromStdString(find_->What());
  const Qt::CaseSensitivity cs = find_->MatchCase() ? Qt::CaseSensitive : Qt::CaseInsensitive;
  if (c.hasSelection() && c.selectedText().compare(what, cs) == 0) {
    c.insertText(QString::fromStdString(find_->With()));
    text_->setTextCursor(c);
  }
  FindNext(false);
}

void AutoBetForm::ReplaceAllClicked() {
  if (!MayEdit()) return;
  const int made = ReplaceAllInScript(game_, find_->What(), find_->With(), find_->MatchCase());
  ShowText();
  ShowNotice(game_, ReplacementsMadeText(made), "Find/Replace", 0, kMsgOk);
}
