#include "table/menu_items.h"

#include <QKeySequence>
#include <QShortcut>
#include <QWidget>
#include <algorithm>

#include "core/game.h"
#include "core/platform.h"

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

void HelpKey(QWidget* form, Game& game, std::function<int()> topic) {
  auto* key = new QShortcut(QKeySequence(Qt::Key_F1), form);
  key->setContext(Qt::WindowShortcut);
  QObject::connect(key, &QShortcut::activated, form,
                   [&game, topic = std::move(topic)] { game.platform->ShowHelp(topic()); });
}

void HelpKey(QWidget* form, Game& game, int topic) {
  HelpKey(form, game, [topic] { return topic; });
}

std::array<QAction*, 3> FontSizeItems(QObject* owner, QMenu* menu, const char* name,
                                      const std::function<void(int step)>& stepped) {
  struct Size {
    const char* caption;
    QList<QKeySequence> keys;
    int step;
  };
  const Size sizes[] = {
      {"&Smaller", {QKeySequence(Qt::CTRL | Qt::Key_Minus)}, -1},
      {"&Normal", {QKeySequence(Qt::CTRL | Qt::Key_0)}, 0},
      {"&Larger",
       {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
       1},
  };
  std::array<QAction*, 3> items{};
  for (std::size_t i = 0; i < items.size(); ++i) {
    const Size& s = sizes[i];
    QAction* a = MenuItem(menu, name, s.caption);
    a->setShortcuts(s.keys);
    const int step = s.step;
    QObject::connect(a, &QAction::triggered, owner, [stepped, step] { stepped(step); });
    items[i] = a;
  }
  return items;
}

int NextFontStep(int now, int step, int min, int max) {
  return step == 0 ? 0 : std::clamp(now + step, min, max);
}
