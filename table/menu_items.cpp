#include "table/menu_items.h"

QAction* MenuItem(QMenu* menu, const char* name, const QString& caption) {
  QAction* a = menu->addAction(caption);
  a->setObjectName(name);
  return a;
}

QAction* CheckItem(QMenu* menu, const char* name, const QString& caption) {
  QAction* a = MenuItem(menu, name, caption);
  a->setCheckable(true);
  return a;
}

QAction* UnbuiltItem(QMenu* menu, const char* name, const QString& caption, const QString& why) {
  QAction* a = MenuItem(menu, name, caption);
  a->setEnabled(false);
  a->setToolTip(why);
  a->setStatusTip(why);
  return a;
}
