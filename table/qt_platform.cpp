#include "table/qt_platform.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include "core/game.h"
#include "core/help.h"
#include "table/help_window.h"
#include "table/message_form.h"
#include "table/print_pages.h"
#include "table/settle_form.h"

QtPlatform::QtPlatform(QObject* parent) : QObject(parent) { clock_.start(); }

int QtPlatform::RunModal(QDialog& dialog) {
  if (onDialogShown) {
    // Runs once the dialog's own event loop has started.
    QTimer::singleShot(0, &dialog, [this, &dialog] { onDialogShown(dialog); });
  }
  return dialog.exec();
}

bool QtPlatform::ShowHelp(int topic) {
  if (!game_) return false;
  QWidget* owner = QApplication::activeModalWidget();
  if (!owner) owner = mainWindow_;
  const std::string folder = HelpFolder(game_->roll.AppPath);
  HelpWindow::Open(owner, QString::fromStdString(folder),
                   QString::fromStdString(HelpPageName(topic)));
  return true;
}

MessageReply QtPlatform::ShowMessage(const MessageRequest& request) {
  ++messagesShown;
  lastMessageText = request.text;
  lastMessageTitle = request.title;
  if (!request.modal) {
    // A message that does not wait: shown, and answered as its default.
    auto* form = new MessageForm(request, mainWindow_);
    form->SetHelp([this](int topic) { ShowHelp(topic); });
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->show();
    MessageReply reply;
    reply.answer = MessageForm::DefaultAnswer(request.style);
    reply.input1 = request.input1;
    reply.input2 = request.input2;
    return reply;
  }
  MessageForm form(request, mainWindow_);
  form.SetHelp([this](int topic) { ShowHelp(topic); });
  RunModal(form);
  return form.Reply();
}

int QtPlatform::ShowSettleDialog(SettleDialog& dialog) {
  ++settleDialogsShown;
  SettleForm form(game_, dialog, mainWindow_);
  RunModal(form);
  return form.Pressed();
}

bool QtPlatform::Print(const PrintDocument& document) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(QString::fromStdString(document.jobName));
  if (document.landscape) printer.setPageOrientation(QPageLayout::Landscape);
  if (!printToFile.isEmpty()) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(printToFile);
  } else if (document.unattended && !chosenPrinter.isEmpty()) {
    printer.setPrinterName(chosenPrinter);
  } else {
    QPrintDialog dialog(&printer, mainWindow_);
    if (RunModal(dialog) != QDialog::Accepted) return false;
    chosenPrinter = printer.printerName();
  }
  if (!document.sendingNotice.empty()) ShowProgressNotice(document.sendingNotice);
  const bool painted = PaintDocument(document, printer);
  if (!document.sendingNotice.empty()) ShowProgressNotice({});
  if (!painted) return false;
  ++documentsPrinted;
  return true;
}

void QtPlatform::ShowProgressNotice(std::string_view text) {
  if (text.empty()) {
    if (progressNotice_) progressNotice_->hide();
    return;
  }
  const QString shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  progressNoticesShown << shown;
  if (!progressNotice_) {
    constexpr int kPadding = 16;
    progressNotice_ = new QLabel(mainWindow_, Qt::Tool | Qt::FramelessWindowHint);
    progressNotice_->setObjectName("lblProgressNotice");
    progressNotice_->setFrameStyle(QFrame::Panel | QFrame::Raised);
    progressNotice_->setMargin(kPadding);
    progressNotice_->setAlignment(Qt::AlignCenter);
  }
  progressNotice_->setText(shown);
  progressNotice_->adjustSize();
  if (mainWindow_) {
    const QPoint centre = mainWindow_->mapToGlobal(mainWindow_->rect().center());
    progressNotice_->move(centre - progressNotice_->rect().center());
  }
  progressNotice_->show();
  progressNotice_->raise();
  // The work that follows holds the event loop: paint the notice now.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

std::optional<std::string> QtPlatform::ChooseFile(const FileChooserRequest& request) {
  if (onChooseFile) return onChooseFile(request);
  QStringList filters;
  for (const std::string& type : request.types) filters << QString::fromStdString(type);
  const QString caption = QString::fromStdString(request.caption);
  const QString folder = QString::fromStdString(request.folder);
  // The game asks its own question before overwriting a file.
  const QString picked =
      request.writing
          ? QFileDialog::getSaveFileName(mainWindow_, caption, folder, filters.join(";;"), nullptr,
                                         QFileDialog::DontConfirmOverwrite)
          : QFileDialog::getOpenFileName(mainWindow_, caption, folder, filters.join(";;"));
  if (picked.isEmpty()) return std::nullopt;
  return picked.toStdString();
}

void QtPlatform::PlaySound(std::string_view path, int flags) { sounds_.Play(path, flags); }

std::uint32_t QtPlatform::TimeGetTime() { return static_cast<std::uint32_t>(clock_.elapsed()); }

void QtPlatform::DoEvents() { QCoreApplication::processEvents(QEventLoop::AllEvents); }

void QtPlatform::RequestRedraw(Redraw what) { emit redrawRequested(static_cast<int>(what)); }

bool QtPlatform::MainWindowMinimized() { return mainWindow_ && mainWindow_->isMinimized(); }
