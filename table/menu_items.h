// Menu entries and keys shared by the main window and the forms: a named
// entry, a named entry joined to a handler, an entry that does nothing
// (disabled, saying why), exclusive entries, a form's help key, and the font
// size entries of the text windows.
#pragma once

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QObject>
#include <QString>
#include <QStringList>
#include <array>
#include <functional>

class QWidget;
struct Game;

// An entry of `menu` showing `caption`, named `name` so tests and settings find it.
QAction* MenuItem(QMenu* menu, const char* name, const QString& caption);
// A named entry that holds a check mark, unchecked at first.
QAction* CheckItem(QMenu* menu, const char* name, const QString& caption);
// A named entry whose triggering calls `f` for as long as `owner` lives.
template <class Handler>
QAction* MenuItem(QObject* owner, QMenu* menu, const char* name, const QString& caption,
                  Handler f) {
  QAction* a = MenuItem(menu, name, caption);
  QObject::connect(a, &QAction::triggered, owner, f);
  return a;
}
// A disabled entry whose tool and status tips give the reason it does nothing.
QAction* UnbuiltItem(QMenu* menu, const char* name, const QString& caption, const QString& why);
// Exclusive entries, one per caption, all named `name` and holding their index
// as data; the one at `checked` starts checked, and choosing one calls `chosen(index)`.
template <class Handler>
void RadioItems(QObject* owner, QMenu* menu, const char* name, const QStringList& captions,
                int checked, Handler chosen) {
  auto* group = new QActionGroup(owner);
  for (int i = 0; i < captions.size(); ++i) {
    QAction* a = CheckItem(menu, name, captions[i]);
    a->setChecked(i == checked);
    a->setData(i);
    group->addAction(a);
    QObject::connect(a, &QAction::triggered, owner, [chosen, i] { chosen(i); });
  }
}

// F1 anywhere in `form` opens the help page of `topic()`, asked when the
// key is pressed so that a form of several tabs answers for the tab shown.
void HelpKey(QWidget* form, Game& game, std::function<int()> topic);
// The same for a form with one page.
void HelpKey(QWidget* form, Game& game, int topic);

// The font size entries "&Smaller" (Ctrl -), "&Normal" (Ctrl 0) and "&Larger"
// (Ctrl +, or Ctrl = where + needs Shift), each named `name`: choosing one
// calls `stepped` with -1, 0 (back to normal) or +1.
std::array<QAction*, 3> FontSizeItems(QObject* owner, QMenu* menu, const char* name,
                                      const std::function<void(int step)>& stepped);
// A stored font step after choosing `step` (0: back to normal), held to min..max.
int NextFontStep(int now, int step, int min, int max);
