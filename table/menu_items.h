// Menu entries shared by the main window and the forms: a named entry, a named
// entry joined to a handler, and an entry not built yet (disabled, saying why).
#pragma once

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QString>

// An entry of `menu` showing `caption`, named `name` so tests and settings find it.
QAction* MenuItem(QMenu* menu, const char* name, const QString& caption);
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
