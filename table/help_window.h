// frmHelp: the help pages in a window of their own that does not block the
// table. Links between pages are followed; Back returns to the page before,
// Contents to the contents page. One window serves each owner: asking again
// brings it forward on the new page.
#pragma once

#include <QWidget>

class QTextBrowser;
class QToolButton;

class HelpWindow : public QWidget {
  Q_OBJECT
 public:
  // helpFolder: the folder of the pages (core/help.h HelpFolder).
  HelpWindow(const QString& helpFolder, QWidget* owner);

  // The owner's help window, made on first use, showing `page` (a file name
  // in the help folder) in front.
  static HelpWindow* Open(QWidget* owner, const QString& helpFolder, const QString& page);

  // Shows a page of the help folder by file name.
  void ShowPage(const QString& page);
  // The file name of the page shown.
  QString CurrentPage() const;
  QTextBrowser* Browser() const { return browser_; }

 private:
  QString folder_;
  QTextBrowser* browser_ = nullptr;
  QToolButton* back_ = nullptr;
};
