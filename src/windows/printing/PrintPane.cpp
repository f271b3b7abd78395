// SPDX-License-Identifier: Apache-2.0
#include "printing/PrintPane.h"

#include "controls/BusyPointer.h"
#include "controls/ElidedLabel.h"
#include "controls/PlainTip.h"
#include "dialogs/clsCommonDialog.h"
#include "line/FaultText.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QPrinter>
#include <QVBoxLayout>

namespace nira {

void SelectPrinter(Instance& instance, QWidget* parent) {
  if (instance.Dialog.HasPrinter()) {
    instance.Dialog.DialogTitle = instance.Text(TextNumber::ChoosePrinter);
    instance.Dialog.ShowPrinter(parent);
    return;
  }
  instance.Ask.MsgBox(instance.Text(TextNumber::NoPrinter), Buttons::Ok, Icon::Exclamation);
}

PrintPane::PrintPane(Instance& instance, QWidget* parent)
    : QWidget(parent),
      instance_(instance),
      preview_(new QPrintPreviewWidget(&instance.Dialog.Printer())),
      page_(new QLabel) {
  instance.Dialog.Printer().setFullPage(true);
  preview_->setObjectName(QStringLiteral("Preview"));
  preview_->setAccessibleName(instance.Text(TextNumber::PrintWindow));
  preview_->setZoomMode(QPrintPreviewWidget::FitInView);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(8);
  layout->addWidget(BuildTools());
  layout->addWidget(preview_, 1);
  layout->addLayout(BuildButtons());
  connect(preview_, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* printer) {
    if (document_ != nullptr) {
      PrintPages(*document_, *printer, printer->resolution(), shown_, shown_);
    }
  });
}

QToolButton* PrintPane::AddTool(QLayout* row, const char* name, TextNumber text) {
  auto* button = new QToolButton;
  button->setObjectName(QString::fromLatin1(name));
  button->setToolTip(PlainTip(instance_.Text(text)));
  button->setAccessibleName(instance_.Text(text));
  button->setAutoRaise(true);
  row->addWidget(button);
  return button;
}

QWidget* PrintPane::BuildTools() {
  auto* tools = new QWidget;
  auto* row = new QHBoxLayout(tools);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  back_ = AddTool(row, "PagBack", TextNumber::PreviousPage);
  back_->setArrowType(Qt::LeftArrow);
  row->addWidget(page_);
  forth_ = AddTool(row, "PagNext", TextNumber::NextPage);
  forth_->setArrowType(Qt::RightArrow);
  row->addSpacing(16);
  QToolButton* smaller = AddTool(row, "ZoomOut", TextNumber::ZoomOut);
  smaller->setText(QStringLiteral("\u2212"));
  QToolButton* larger = AddTool(row, "ZoomIn", TextNumber::ZoomIn);
  larger->setText(QStringLiteral("+"));
  QToolButton* whole = AddTool(row, "ZoomPage", TextNumber::ZoomPage);
  whole->setText(instance_.Text(TextNumber::ZoomPage));
  QToolButton* width = AddTool(row, "ZoomWidth", TextNumber::ZoomWidth);
  width->setText(instance_.Text(TextNumber::ZoomWidth));
  row->addStretch();
  page_->setObjectName(QStringLiteral("Pag"));
  page_->setTextFormat(Qt::PlainText);
  page_->setAlignment(Qt::AlignCenter);
  page_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0000 / 0000")) + 8);
  connect(back_, &QToolButton::clicked, this, [this] { ShowPage(shown_ - 1); });
  connect(forth_, &QToolButton::clicked, this, [this] { ShowPage(shown_ + 1); });
  connect(smaller, &QToolButton::clicked, this, [this] { preview_->zoomOut(); });
  connect(larger, &QToolButton::clicked, this, [this] { preview_->zoomIn(); });
  connect(whole, &QToolButton::clicked, preview_, &QPrintPreviewWidget::fitInView);
  connect(width, &QToolButton::clicked, preview_, &QPrintPreviewWidget::fitToWidth);
  return tools;
}

QPushButton* PrintPane::AddButton(QLayout* row, const char* name, TextNumber text) {
  auto* button = new QPushButton(instance_.Text(text));
  button->setObjectName(QString::fromLatin1(name));
  button->setAutoDefault(false);
  row->addWidget(button);
  return button;
}

QLayout* PrintPane::BuildButtons() {
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  note_ = new ElidedLabel;
  note_->setObjectName(QStringLiteral("Note"));
  row->addWidget(note_, 1);
  pdf_ = AddButton(row, "tPDF", TextNumber::WritePdf);
  print_ = AddButton(row, "tPRN", TextNumber::PrintNow);
  QPushButton* close = AddButton(row, "tCHI", TextNumber::ClosePrint);
  const bool printer = instance_.Dialog.HasPrinter();
  (printer ? print_ : pdf_)->setDefault(true);
  if (!printer) Note(instance_.Text(TextNumber::NoPrinter));
  connect(pdf_, &QPushButton::clicked, this, &PrintPane::tPDF_Click);
  connect(print_, &QPushButton::clicked, this, &PrintPane::tPRN_Click);
  connect(close, &QPushButton::clicked, this, &PrintPane::Closed);
  return row;
}

void PrintPane::Show(PagedDocument* document) {
  const BusyPointer pointer;
  document_ = document;
  pages_ = LayOutFor(*document_, instance_.Dialog.Printer());
  ShowPage(1);
}

void PrintPane::ShowPage(int page) {
  shown_ = page;
  preview_->updatePreview();
  page_->setText(QString::number(page) + QStringLiteral(" / ") + QString::number(pages_));
  back_->setEnabled(page > 1);
  forth_->setEnabled(page < pages_);
}

void PrintPane::Note(const QString& text) {
  note_->setText(text);
  note_->setToolTip(PlainTip(text));
}

void PrintPane::Tell(TextNumber number, const QString& more, Icon icon) {
  QString text = instance_.Text(number);
  if (!more.isEmpty()) text += u'\n' + more;
  instance_.Ask.MsgBox(text, Buttons::Ok, icon);
}

void PrintPane::tPRN_Click() {
  Q_EMIT Starting();
  if (document_ == nullptr) return;
  if (!instance_.Dialog.HasPrinter()) {
    Tell(TextNumber::NoPrinter, {}, Icon::Exclamation);
    return;
  }
  const BusyPointer pointer;
  QPrinter& printer = instance_.Dialog.Printer();
  printer.setDocName(document_->Title());
  const bool printed = PrintOn(*document_, printer, printer.resolution()) &&
                       printer.printerState() != QPrinter::Error;
  if (printed) {
    Note(instance_.Text(TextNumber::Printed) + printer.printerName());
  } else {
    Tell(TextNumber::PrintFailed, printer.printerName(), Icon::Critical);
  }
}

/// Empty when the operator gave it up.
QString PrintPane::ChoosePdf() {
  clsCommonDialog& dialog = instance_.Dialog;
  dialog.DialogTitle = instance_.Text(TextNumber::PdfTitle);
  dialog.Filter = QStringLiteral("PDF (*.Pdf)|*.pdf|") + instance_.Text(TextNumber::AllFiles) +
                  QStringLiteral("(*.*)|*.*");
  dialog.Flags = clsCommonDialog::OverwritePrompt + clsCommonDialog::PathMustExist;
  dialog.FileName = proposal_;
  if (!dialog.ShowSave(this) || dialog.FileName.isEmpty()) return {};
  const bool named = QFileInfo(dialog.FileName).suffix().toLower() == QLatin1String("pdf");
  const QString path = named ? dialog.FileName : dialog.FileName + QStringLiteral(".pdf");
  return MayReplace(path) ? path : QString();
}

bool PrintPane::MayReplace(const QString& path) {
  if (!QFileInfo::exists(path)) return true;
  if (QFileInfo(path) == QFileInfo(instance_.Settings.CurrentFile)) {
    Tell(TextNumber::CannotWrite, path + u'\n' + instance_.Text(TextNumber::IsOpenCamFile),
         Icon::Critical);
    return false;
  }
  // The dialog has asked about the name that was chosen, but knows nothing of one made from it.
  if (path == instance_.Dialog.FileName) return true;
  return instance_.Ask.MsgBox(instance_.Text(TextNumber::ReplaceFile) + u'\n' + path,
                              Buttons::NoYes, Icon::Exclamation) == Answer::Yes;
}

void PrintPane::tPDF_Click() {
  Q_EMIT Starting();
  if (document_ == nullptr) return;
  const QString path = ChoosePdf();
  if (path.isEmpty()) return;
  const BusyPointer pointer;
  const QByteArray bytes = PdfOf(*document_, instance_.Dialog.Printer().pageLayout());
  const Refusal refusal = instance_.Writer.Write(
      path, {bytes.constData(), static_cast<std::size_t>(bytes.size())}, FileWriter::Backup::No);
  if (!refusal) {
    proposal_ = path;
    Note(instance_.Text(TextNumber::FileSaved) + path);
  } else {
    TellFault(instance_.Ask, instance_.Texts, *refusal);
  }
}

}  // namespace nira
