// SPDX-License-Identifier: Apache-2.0
#include "dialogs/clsCommonDialog.h"

#include "dialogs/QtPrompts.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

namespace nira {

namespace {

/// A printer that starts with what is set on another one: a dialog writes into its printer even
/// when it is cancelled.
std::unique_ptr<QPrinter> CopyOf(const QPrinter& printer) {
  auto copy = std::make_unique<QPrinter>(QPrinter::HighResolution);
  copy->setOutputFormat(printer.outputFormat());
  copy->setPrinterName(printer.printerName());
  copy->setPageLayout(printer.pageLayout());
  copy->setCopyCount(printer.copyCount());
  copy->setCollateCopies(printer.collateCopies());
  copy->setPageOrder(printer.pageOrder());
  copy->setColorMode(printer.colorMode());
  copy->setDuplex(printer.duplex());
  return copy;
}

/// A file dialog that stays open while the folder of the typed name does not exist, where it must.
/// One of the platform's own looks after its folders itself.
class FileDialog : public QFileDialog {
 public:
  FileDialog(QWidget* parent, const QString& title, bool folderMustExist, const QString& notFound)
      : QFileDialog(parent, title), folderMustExist_(folderMustExist), notFound_(notFound) {}

 protected:
  void accept() override {
    const bool platform = layout() == nullptr;
    const QDir folder = QFileInfo(selectedFiles().value(0)).dir();
    if (!folderMustExist_ || platform || folder.exists()) return QFileDialog::accept();
    QtPrompts().MsgBox(notFound_ + folder.path(), Buttons::Ok, Icon::Exclamation, {});
  }

 private:
  bool folderMustExist_;
  QString notFound_;
};

/// A dialog that only chooses says OK where Qt's own says Print. One of the platform's own has no
/// such row of buttons.
void SayOk(const QPrintDialog& dialog) {
  const auto* row = dialog.findChild<QDialogButtonBox*>();
  if (row == nullptr) return;
  if (QPushButton* confirm = row->button(QDialogButtonBox::Ok)) {
    confirm->setText(QCoreApplication::translate("QPlatformTheme", "OK"));
  }
}

}  // namespace

QStringList NameFilters(const QString& filter) {
  const QStringList parts = filter.split(u'|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString& pattern = parts.at(i + 1);
    QString patterns = QStringLiteral("*");
    if (pattern != QLatin1String("*.*")) {
      patterns = pattern.toLower() + u' ' + pattern.toUpper();
    }
    filters.append(parts.at(i) + QStringLiteral(" (") + patterns + u')');
  }
  return filters;
}

clsCommonDialog::clsCommonDialog() = default;
clsCommonDialog::~clsCommonDialog() = default;

QString clsCommonDialog::FileTitle() const {
  return QFileInfo(FileName).fileName();
}

bool clsCommonDialog::HasPrinter() const {
  return !QPrinterInfo::availablePrinterNames().isEmpty();
}

QPrinter& clsCommonDialog::Printer() {
  if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  // A PDF stands in where the machine had no printer yet.
  if (printer_->outputFormat() == QPrinter::PdfFormat && HasPrinter()) {
    printer_->setOutputFormat(QPrinter::NativeFormat);
  }
  return *printer_;
}

bool clsCommonDialog::ShowOpen(QWidget* parent) {
  return ShowFile(parent, false);
}

bool clsCommonDialog::ShowSave(QWidget* parent) {
  return ShowFile(parent, true);
}

bool clsCommonDialog::ShowFile(QWidget* parent, bool save) {
  FileDialog dialog(parent, DialogTitle, (Flags & PathMustExist) != 0, FolderNotFound);
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  const bool mustExist = (Flags & FileMustExist) != 0;
  dialog.setFileMode(mustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, (Flags & OverwritePrompt) == 0);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setNameFilters(NameFilters(Filter));
  if (!FileName.isEmpty()) {
    dialog.setDirectory(QFileInfo(FileName).absolutePath());
    dialog.selectFile(QFileInfo(FileName).fileName());
  } else if (!InitDir.isEmpty()) {
    dialog.setDirectory(InitDir);
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
  FileName = dialog.selectedFiles().constFirst();
  InitDir = QFileInfo(FileName).absolutePath();
  return true;
}

bool clsCommonDialog::ShowFont(QWidget* parent) {
  bool ok = false;
  const QFont chosen = QFontDialog::getFont(&ok, Font, parent, DialogTitle);
  if (ok) Font = chosen;
  return ok;
}

bool clsCommonDialog::ShowPrinter(QWidget* parent) {
  auto chosen = CopyOf(Printer());
  QPrintDialog dialog(chosen.get(), parent);
  for (const auto option : {QPrintDialog::PrintToFile, QPrintDialog::PrintPageRange,
                            QPrintDialog::PrintSelection, QPrintDialog::PrintCurrentPage}) {
    dialog.setOption(option, false);
  }
  if (!DialogTitle.isEmpty()) dialog.setWindowTitle(DialogTitle);
  SayOk(dialog);
  if (dialog.exec() != QDialog::Accepted) return false;
  printer_ = std::move(chosen);
  return true;
}

}  // namespace nira
