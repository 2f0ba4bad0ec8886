// The help window: Help > Contents and F1 open it on the contents page, a
// message's Help button opens it on the message's topic, links are followed
// and Back and Contents return.
#include <QTextBrowser>
#include <QToolButton>

#include "core/help.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "desktop_fixture.h"
#include "table/help_window.h"

class HelpTest : public QObject {
  Q_OBJECT
 private slots:
  void contentsOpensTheContentsAndFollowsLinks();
  void f1OpensTheContents();
  void messageHelpButtonOpensItsTopic();
};

namespace {

// The pages of the source tree, so the test does not depend on the copy.
void UseSourcePages(DesktopTable& t) { t.game->roll.AppPath = RAVELTON_SOURCE_DIR "/"; }

}  // namespace

void HelpTest::contentsOpensTheContentsAndFollowsLinks() {
  DesktopTable t;
  UseSourcePages(t);
  QAction* contents = t.window->findChild<QAction*>("mnuContents");
  QVERIFY(contents);
  QVERIFY(contents->isEnabled());
  contents->trigger();
  auto* help = t.window->findChild<HelpWindow*>("frmHelp");
  QVERIFY(help);
  QVERIFY(help->isVisible());
  QCOMPARE(help->CurrentPage(), QString("index.html"));
  QVERIFY(help->Browser()->toPlainText().contains("Hyper-Drive"));

  // A link of the contents, then Back and Contents.
  // A click on a link resolves it against the page shown.
  help->Browser()->setSource(help->Browser()->source().resolved(QUrl("hyper-drive.html")));
  QCOMPARE(help->CurrentPage(), QString("hyper-drive.html"));
  QVERIFY(help->Browser()->toPlainText().contains("100 million rolls"));
  QCOMPARE(help->windowTitle(), QString("Hyper-Drive"));
  auto* back = FormChild<QToolButton>(*help, "cmdBack");
  QVERIFY(back->isEnabled());
  QTest::mouseClick(back, Qt::LeftButton);
  QCOMPARE(help->CurrentPage(), QString("index.html"));
  help->ShowPage("players.html");
  QTest::mouseClick(FormChild<QToolButton>(*help, "cmdContents"), Qt::LeftButton);
  QCOMPARE(help->CurrentPage(), QString("index.html"));

  // Asking again reuses the one window.
  contents->trigger();
  QCOMPARE(t.window->findChildren<HelpWindow*>().size(), 1);
}

void HelpTest::f1OpensTheContents() {
  DesktopTable t;
  UseSourcePages(t);
  QTest::keyClick(t.View(), Qt::Key_F1);
  auto* help = t.window->findChild<HelpWindow*>("frmHelp");
  QVERIFY(help);
  QCOMPARE(help->CurrentPage(), QString("index.html"));
}

void HelpTest::messageHelpButtonOpensItsTopic() {
  DesktopTable t;
  UseSourcePages(t);
  QString page;
  bool isWindow = false;
  t.answers.push_back([&](QDialog& d) {
    auto* form = dynamic_cast<MessageForm*>(&d);
    QVERIFY(form && form->Button(4));
    QTest::mouseClick(form->Button(4), Qt::LeftButton);
    if (auto* help = form->findChild<HelpWindow*>("frmHelp")) {
      page = help->CurrentPage();
      isWindow = help->isWindow() && help->isVisible();
    }
    d.done(0);
  });
  MessageRequest request;
  request.text = "You may only buy Place bets.";
  request.title = "Action not allowed";
  request.helpId = kHelpBuyBets;
  request.style = kMsgOk | kMsgHelp;
  t.platform.ShowMessage(request);
  QCOMPARE(page, QString("buy-bets.html"));
  QVERIFY(isWindow);
}

QTEST_MAIN(HelpTest)
#include "help_qtest.moc"
