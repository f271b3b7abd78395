// SPDX-License-Identifier: Apache-2.0
#include "line/UpdFlsh.h"

#include "controls/BusyPointer.h"
#include "controls/ElidedLabel.h"
#include "controls/PlainTip.h"
#include "dialogs/clsCommonDialog.h"
#include "line/FlashUpdate.h"

#include <QEvent>
#include <QFontDatabase>
#include <QFrame>
#include <QHBoxLayout>
#include <QTimer>
#include <QVBoxLayout>

namespace nira {

namespace {

constexpr int startAnyway = 300;  // ms after which a window that does not become active starts too
// The question comes up in the middle: the lines above it are what it is about.
constexpr QSize updateSize(680, 344);
constexpr double updateTextSize = 1.15;  // of the lines of text, beside the usual

QFrame* Separator() {
  auto* line = new QFrame;
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  return line;
}

}  // namespace

UpdFlsh::UpdFlsh(Comm& comm, const QString& path, QWidget* parent)
    : QDialog(parent), comm_(comm), path_(path) {
  setObjectName(QStringLiteral("UpdFlsh"));
  setWindowTitle(QStringLiteral("Update FLASH"));
  setWindowFlag(Qt::WindowCloseButtonHint, false);
  BuildLayout();
  file_->setToolTip(PlainTip(path));
}

QLabel* UpdFlsh::AddLine(QLayout* layout, const char* name) {
  auto* line = new ElidedLabel;
  line->setObjectName(QString::fromLatin1(name));
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPointSizeF(fixed.pointSizeF() * updateTextSize);
  line->setFont(fixed);
  layout->addWidget(line);
  return line;
}

QLayout* UpdFlsh::BuildReady() {
  lamp_ = new ReadyLamp;
  lamp_->setObjectName(QStringLiteral("Shape1"));
  lamp_->hide();
  readyText_ = new QLabel;
  readyText_->setObjectName(QStringLiteral("LabReady"));
  readyText_->setTextFormat(Qt::PlainText);
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(lamp_);
  row->addWidget(readyText_, 1);
  return row;
}

/// From top to bottom what happens one after the other: the file, the programmer, the transfer.
void UpdFlsh::BuildLayout() {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(8);
  file_ = AddLine(layout, "LabFile");
  testing_ = AddLine(layout, "LabTest");
  program_ = AddLine(layout, "LabProg");
  layout->addStretch();
  layout->addWidget(Separator());
  layout->addStretch();
  layout->addLayout(BuildReady());
  layout->addStretch();
  layout->addWidget(Separator());
  layout->addStretch();
  transmit_ = AddLine(layout, "LabTrans");
  progress_ = new QProgressBar;
  progress_->setObjectName(QStringLiteral("Progress"));
  progress_->setRange(0, 100);
  progress_->setValue(0);
  layout->addWidget(progress_);
  layout->addSpacing(8);
  message_ = AddLine(layout, "LabMsg");
  for (QLabel* line : {file_, message_}) {
    QFont bold = line->font();
    bold.setBold(true);
    line->setFont(bold);
  }
  setMinimumSize(updateSize);
}

bool UpdFlsh::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) QTimer::singleShot(0, this, &UpdFlsh::Start);
  if (event->type() == QEvent::Show) QTimer::singleShot(startAnyway, this, &UpdFlsh::Start);
  return QDialog::event(event);
}

void UpdFlsh::Start() {
  if (started_) return;
  started_ = true;
  end_ = FlashUpdate(comm_, *this, path_).Run();
  done(end_ == TransferEnd::Done ? Accepted : Rejected);
}

void UpdFlsh::Show(FlashLine line, const QString& text) {
  switch (line) {
    case FlashLine::File:
      return file_->setText(text);
    case FlashLine::Testing:
      return testing_->setText(text);
    case FlashLine::Program:
      return program_->setText(text);
    case FlashLine::Transmit:
      return transmit_->setText(text);
    case FlashLine::Message:
      return message_->setText(text);
  }
}

void UpdFlsh::Ready(bool ready) {
  lamp_->Show(ready);
  const QString& text = comm_.Text(ready ? TextNumber::FlashReady : TextNumber::FlashNotReady);
  readyText_->setText(text);
  lamp_->setAccessibleName(text);
}

void UpdFlsh::Refused(int times) {
  message_->setText(times == 0
                        ? comm_.Text(TextNumber::FlashKeepOn)
                        : QString(comm_.Text(TextNumber::FlashRefused) + QString::number(times)));
}

void UpdFlsh::Progress(int percent) {
  progress_->setValue(percent);
}

TransferEnd Upd_Flash_Click(Comm& comm, clsCommonDialog& dialog, QWidget* window) {
  if (comm.Busy) return TransferEnd::Busy;
  const PlainPointer pointer;
  const QString camFiles = dialog.InitDir;  // the folder of the other dialogs stays theirs
  dialog.DialogTitle = comm.Text(TextNumber::FlashOpenTitle);
  dialog.Filter = QStringLiteral("File Absolute HEX(*.Abs)|*.abs|All Files (*.*)|*.*");
  dialog.Flags = clsCommonDialog::FileMustExist;
  dialog.FileName.clear();
  dialog.InitDir = comm.Folder.Path();
  const bool chosen = dialog.ShowOpen(window);
  dialog.InitDir = camFiles;
  if (!chosen || dialog.FileName.isEmpty()) return TransferEnd::Cancelled;
  UpdFlsh update(comm, dialog.FileName, window);
  update.exec();
  return update.End();
}

}  // namespace nira
