// A desktop table for the Qt tests: a started game behind a real main
// window under the offscreen platform, and helpers that answer the modal
// dialogs the game opens by pressing their real buttons.
#pragma once

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "core/game.h"
#include "engine/players.h"
#include "cycle/startup.h"
#include "table/configure_form.h"
#include "table/crap_table_window.h"
#include "table/layout.h"
#include "table/message_form.h"
#include "table/qt_platform.h"
#include "table/settle_form.h"
#include "table/table_view.h"

// The control `name` of a form; the test stops when it is missing.
template <typename T>
T* FormChild(QWidget& form, const char* name) {
  T* w = form.findChild<T*>(name);
  if (w == nullptr) qFatal("no control %s", name);
  return w;
}

// Replaces a box's text by typing, so the key filter sees every key.
inline void TypeInto(QLineEdit* box, const QString& text) {
  box->selectAll();
  QTest::keyClick(box, Qt::Key_Backspace);
  QTest::keyClicks(box, text);
}

struct DesktopTable {
  QtPlatform platform;
  std::unique_ptr<Game> game;
  std::unique_ptr<CrapTableWindow> window;
  // What each dialog showed (title, text), in order.
  std::vector<std::pair<std::string, std::string>> shown;
  // How the next dialogs are answered; empty: by their default (closing them).
  std::deque<std::function<void(QDialog&)>> answers;

  explicit DesktopTable(int players = 0) {
    game = MakeGame(platform);
    StartUp(*game);
    platform.SetGame(game.get());
    platform.onDialogShown = [this](QDialog& d) {
      shown.emplace_back(platform.lastMessageTitle, platform.lastMessageText);
      if (answers.empty()) {
        d.done(0);  // the default answer stands
        return;
      }
      auto answer = std::move(answers.front());
      answers.pop_front();
      answer(d);
    };
    static const char* const kNames[8] = {"Ann", "Bo", "Cy", "Di", "Ed", "Flo", "Gus", "Hal"};
    for (int p = 1; p <= players; ++p)
      SeatPlayer(*game, p, kNames[p - 1], Currency::FromWhole(5000));
    window = std::make_unique<CrapTableWindow>(*game, platform);
    window->resize(1280, 900);
    window->show();
    QApplication::processEvents();
    View()->AutoSize();
  }

  TableView* View() { return window->View(); }

  // frmConfigure filled and shown on `tab` (-1: on the tab the game holds).
  ConfigureForm* OpenConfigure(int tab = -1) {
    if (tab >= 0) game->rules.ConfigureTab = tab;
    ConfigureForm* form = window->Configure();
    form->Fill();
    form->show();
    QApplication::processEvents();
    return form;
  }

  // The screen pixel (as the mouse delivers it) of a layout point.
  QPoint Pixel(QPointF layout) { return View()->ToScreen(layout).toPoint(); }

  void Click(QPointF layout, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers mods = Qt::NoModifier) {
    QTest::mouseClick(View(), button, mods, Pixel(layout));
  }

  // Answers the next message dialog by pressing cmdButton(index), after
  // typing `input` into its first answer box when given.
  void AnswerMessage(int index, const QString& input = {}, bool hide = false) {
    answers.push_back([index, input, hide](QDialog& d) {
      auto* form = dynamic_cast<MessageForm*>(&d);
      QVERIFY(form);
      if (!input.isNull()) {
        QVERIFY(form->Input(0));
        form->Input(0)->clear();
        QTest::keyClicks(form->Input(0), input);
      }
      if (hide) {
        QVERIFY(form->HideBox());
        form->HideBox()->setChecked(true);
      }
      QVERIFY(form->Button(index));
      QTest::mouseClick(form->Button(index), Qt::LeftButton);
    });
  }
  // Answers the next settle dialog with its button `index`, after `edit`.
  void AnswerSettle(int index, std::function<void(SettleForm&)> edit = {}) {
    answers.push_back([index, edit](QDialog& d) {
      auto* form = dynamic_cast<SettleForm*>(&d);
      QVERIFY(form);
      if (edit) edit(*form);
      QTest::mouseClick(form->Handle(index), Qt::LeftButton);
    });
  }
};
