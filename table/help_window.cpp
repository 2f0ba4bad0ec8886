#include "table/help_window.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QTextBrowser>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include "core/help.h"

namespace {

constexpr int kWidth = 620;
constexpr int kHeight = 560;

}  // namespace

HelpWindow::HelpWindow(const QString& helpFolder, QWidget* owner)
    : QWidget(owner, Qt::Window), folder_(helpFolder) {
  setObjectName("frmHelp");
  setWindowTitle("Ravelton Help");
  setAttribute(Qt::WA_DeleteOnClose);
  resize(kWidth, kHeight);

  back_ = new QToolButton;
  back_->setObjectName("cmdBack");
  back_->setText("&Back");
  back_->setEnabled(false);
  auto* contents = new QToolButton;
  contents->setObjectName("cmdContents");
  contents->setText("&Contents");
  auto* row = new QHBoxLayout;
  row->addWidget(back_);
  row->addWidget(contents);
  row->addStretch(1);

  browser_ = new QTextBrowser;
  browser_->setObjectName("txtHelp");
  browser_->setOpenLinks(true);
  browser_->setSearchPaths({folder_});

  auto* outer = new QVBoxLayout(this);
  outer->addLayout(row);
  outer->addWidget(browser_, 1);

  connect(back_, &QToolButton::clicked, browser_, &QTextBrowser::backward);
  connect(browser_, &QTextBrowser::backwardAvailable, back_, &QToolButton::setEnabled);
  connect(contents, &QToolButton::clicked, this,
          [this] { ShowPage(QString::fromLatin1(kHelpContentsPage)); });
  connect(browser_, &QTextBrowser::sourceChanged, this, [this] {
    const QString title = browser_->documentTitle();
    setWindowTitle(title.isEmpty() ? QStringLiteral("Ravelton Help") : title);
  });
}

HelpWindow* HelpWindow::Open(QWidget* owner, const QString& helpFolder, const QString& page) {
  auto* window =
      owner ? owner->findChild<HelpWindow*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
  if (!window) window = new HelpWindow(helpFolder, owner);
  window->ShowPage(page);
  window->show();
  window->raise();
  window->activateWindow();
  return window;
}

void HelpWindow::ShowPage(const QString& page) {
  const QString path = QDir(folder_).filePath(page);
  if (!QFileInfo::exists(path)) {
    browser_->setHtml(QStringLiteral("<h2>Help is not installed</h2><p>The help page %1 "
                                     "was not found.</p>")
                          .arg(path.toHtmlEscaped()));
    return;
  }
  browser_->setSource(QUrl::fromLocalFile(path));
}

QString HelpWindow::CurrentPage() const {
  return QFileInfo(browser_->source().toLocalFile()).fileName();
}
