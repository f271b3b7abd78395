// SPDX-License-Identifier: Apache-2.0
#include "line/Monit_Com.h"

#include "controls/BusyPointer.h"
#include "ground/ProgramTitle.h"
#include "ground/Text.h"
#include "line/TransferJobs.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QTimer>
#include <QVBoxLayout>

namespace nira {

namespace {

/// Time in ms after which the job begins in a window that does not become active: some desktops
/// give no window the focus by itself, or none at all.
constexpr int longestWait = 500;

/// Time in ms in which the focus comes back from a box.
constexpr int focusReturns = 100;

/// A line that takes the place it is given and never asks for more.
QLabel* Line(const char* name, int height) {
  auto* label = new QLabel;
  label->setObjectName(QString::fromLatin1(name));
  label->setTextFormat(Qt::PlainText);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  label->setFixedHeight(height);
  return label;
}

/// What a device sent, as one line.
QString OneLine(QString text) {
  for (QChar& c : text) {
    if (!c.isPrint()) c = u' ';
  }
  return text;
}

}  // namespace

Monit_Com::Monit_Com(Comm& comm, QWidget* parent)
    : QDialog(parent),
      comm_(comm),
      simulated_(new SimulatedSign(comm.Text(TextNumber::StatusSimulated))),
      picture1_(new ProgressPicture) {
  setObjectName(QStringLiteral("Monit_Com"));
  setWindowTitle(QString::fromLatin1(ProgramTitle));
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * 1.4);
  label1_ = Line("Label1", QFontMetrics(large).height());
  label1_->setFont(large);
  label2_ = Line("Label2", fontMetrics().height());
  items_ = Line("Items", fontMetrics().height());
  frames_ = Line("Frames", fontMetrics().height());
  seconds_ = Line("Seconds", fontMetrics().height());
  seconds_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  picture1_->setObjectName(QStringLiteral("Picture1"));
  auto* counts = new QHBoxLayout;
  counts->setSpacing(8);
  counts->addWidget(items_, 5);  // "MESSAGGIO 255 DI 255" is the longest
  counts->addWidget(frames_, 3);
  counts->addWidget(seconds_, 4);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 16, 24, 24);
  layout->setSpacing(8);
  layout->addWidget(label1_);
  layout->addWidget(label2_);
  layout->addLayout(counts);
  layout->addSpacing(8);
  layout->addWidget(picture1_);
  layout->addWidget(simulated_, 0, Qt::AlignRight);
  layout->addStretch();
}

TransferEnd Monit_Com::Run(const Job& job) {
  const PlainPointer pointer;  // a transfer may take minutes
  job_ = job;
  begun_ = false;
  end_ = TransferEnd::Done;
  Label1({});
  Label2(job.Item);
  Count({});
  Progress(0);
  simulated_->Show(comm_.Port.IsSimulated());
  exec();
  return end_;
}

void Monit_Com::Title(const QString& text) {
  setWindowTitle(text);
}

/// At once: the event loop may stand still.
void Monit_Com::Write(QLabel* label, const QString& text) {
  const QString line = OneLine(text);
  label->setText(isVisible() ? label->fontMetrics().elidedText(line, Qt::ElideRight, label->width())
                             : line);
  label->repaint();
}

void Monit_Com::Label1(const QString& text) {
  Write(label1_, text);
}

void Monit_Com::Label2(const QString& text) {
  Write(label2_, text);
}

void Monit_Com::Progress(int percent) {
  picture1_->Show(percent);
}

void Monit_Com::Count(const TransferCount& count) {
  const auto text = [this](TextNumber number, std::initializer_list<int> values) {
    QStringList numbers;
    for (const int value : values) numbers.append(QString::number(value));
    return Filled(comm_.Text(number), numbers);
  };
  const auto item = count.Sizes ? TextNumber::SizeOfSizes : TextNumber::MessageOfMessages;
  Write(items_, count.Item > 0 ? text(item, {count.Item, count.Items}) : QString());
  Write(frames_, count.Frames > 0 ? text(TextNumber::FramesMoved, {count.Frames}) : QString());
  Write(seconds_, count.Seconds >= 0 ? text(TextNumber::SecondsLeft, {count.Seconds}) : QString());
}

void Monit_Com::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  QTimer::singleShot(longestWait, this, &Monit_Com::Form_Activate);
}

void Monit_Com::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) Form_Activate();
}

void Monit_Com::Form_Activate() {
  if (begun_ || !isVisible()) return;
  begun_ = true;
  // Not from within the activation: the job handles events while it waits.
  QMetaObject::invokeMethod(this, &Monit_Com::RunJob, Qt::QueuedConnection);
}

void Monit_Com::RunJob() {
  end_ = TransferJobs(comm_, *this).Run(job_);
  // A box may just have closed: some desktops lose the focus when the window that is to get it
  // closes at once.
  QTimer::singleShot(end_ == TransferEnd::Done ? 0 : focusReturns, this, &QDialog::accept);
}

void Monit_Com::closeEvent(QCloseEvent* event) {
  event->ignore();
}

}  // namespace nira
