// SPDX-License-Identifier: Apache-2.0
#include "editor/StatusLine.h"

#include "ground/Text.h"
#include "line/SerialLink.h"
#include "line/SimulatedMark.h"

#include <QFileInfo>
#include <QLabel>
#include <QStatusBar>

#include <algorithm>

namespace nira {

StatusLine::StatusLine(Instance& instance, const PortNames& ports, QStatusBar* bar)
    : QObject(bar),
      instance_(instance),
      ports_(ports),
      bar_(bar),
      port_(Add("StatusPort", false)),
      model_(Add("StatusModel", false)),
      simulated_(AddSign()),
      degree_(AddReading()),
      changed_(Add("StatusChanged", true)) {
  connect(&watch_, &QTimer::timeout, this, &StatusLine::ShowPort);
}

QLabel* StatusLine::Add(const char* name, bool right) {
  auto* label = new QLabel(bar_);
  label->setObjectName(QString::fromLatin1(name));
  label->setTextFormat(Qt::PlainText);
  label->setContentsMargins(8, 0, 8, 0);
  if (right) {
    bar_->addPermanentWidget(label);
  } else {
    bar_->addWidget(label);
  }
  return label;
}

/// Takes the room that is left, so that nothing moves with its text.
CamLabel* StatusLine::AddReading() {
  auto* label = new CamLabel(bar_);
  label->setObjectName(QStringLiteral("StatusDegree"));
  label->setContentsMargins(8, 0, 8, 0);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  bar_->addWidget(label, 1);
  return label;
}

SimulatedSign* StatusLine::AddSign() {
  auto* sign = new SimulatedSign({}, bar_);
  sign->setObjectName(QStringLiteral("StatusSimulated"));
  bar_->addPermanentWidget(sign);
  sign->hide();
  return sign;
}

void StatusLine::Show() {
  const CamProgram& program = instance_.Program;
  ShowPort();
  model_->setText(
      QString::number(program.NumCams()) + u' ' + instance_.Text(TextNumber::StatusCams) +
      QStringLiteral("  ") + QString::number(program.NumSizes()) + u' ' +
      instance_.Text(TextNumber::StatusSizes) + QStringLiteral("  ") +
      QString::number(program.NumMessages()) + u' ' + instance_.Text(TextNumber::StatusMessages));
  const QString& changed = instance_.Text(TextNumber::StatusChanged);
  const QString& saved = instance_.Text(TextNumber::StatusSaved);
  const QString& noFile = instance_.Text(TextNumber::StatusNoFile);
  const QFontMetrics metrics(changed_->font());
  changed_->setText(program.Differs() ? changed : onFile_ ? saved : noFile);
  changed_->setMinimumWidth(
      std::max({metrics.horizontalAdvance(changed), metrics.horizontalAdvance(saved),
                metrics.horizontalAdvance(noFile)}) +
      16);
  degree_->setMinimumWidth(
      metrics.horizontalAdvance(instance_.Text(TextNumber::StatusDegree) + QStringLiteral(" 000")) +
      16);
}

/// The port as it stands with these settings; `state` is "port open", or what the last exchange
/// left.
QString StatusLine::PortText(const QString& settings, const QString& state) const {
  QStringList parts = {QStringLiteral("COM") + QString::number(instance_.Settings.PortNumber),
                       settings, device_, state};
  parts.removeAll(QString());
  return parts.join(QStringLiteral("  "));
}

QString StatusLine::ClosedState() const {
  const int flag = instance_.Settings.PortErrorFlag;
  if (flag == 0) return instance_.Text(TextNumber::StatusPortNotOpen);
  if (flag == 1) return instance_.Text(TextNumber::StatusNotReady);
  return instance_.Text(TextNumber::StatusPortError) + QString::number(flag);
}

/// The place is wide enough for both states, so that nothing moves when the port opens.
void StatusLine::ShowPort() {
  const int baud = instance_.Settings.BaudRate;
  const QString closed = PortText(QString::number(baud), ClosedState());
  const QString& openState = instance_.Text(TextNumber::StatusPortOpen);
  const QFontMetrics metrics(port_->font());
  const QString open = PortText(LineSettings(baud), openState);
  port_->setMinimumWidth(
      std::max(metrics.horizontalAdvance(closed), metrics.horizontalAdvance(open)) + 18);
  port_->setText(instance_.Port.PortOpen() ? PortText(instance_.Port.Settings(), openState)
                                           : closed);
}

/// Also in the middle of an exchange, when a box of it has closed: the port is still followed then.
void StatusLine::LookAtPort() {
  const int number = instance_.Settings.PortNumber;
  device_ = ports_.Device(number);
  simulated_->setText(instance_.Text(TextNumber::StatusSimulated));
  simulated_->Show(IsSimulatedPort(ports_.Link(number)));
  ShowPort();
}

void StatusLine::WatchPort() {
  constexpr int interval = 100;  // ms
  watch_.start(interval);
}

void StatusLine::PortAtRest() {
  watch_.stop();
  LookAtPort();
}

void StatusLine::ShowFile() {
  onFile_ = QFileInfo::exists(instance_.Settings.CurrentFile);
  Show();
}

void StatusLine::ShowLine(int degree, int difference, const QString& on) {
  degree_->ShowText(Reading(instance_, degree, difference, on));
}

QString StatusLine::Reading(const Comm& comm, int degree, int difference, const QString& on) {
  QString text;
  if (degree >= 0) text = comm.Text(TextNumber::StatusDegree) + u' ' + ZeroFilled(degree, 3);
  if (difference >= 0) text += QStringLiteral("  +") + QString::number(difference) + u'°';
  if (!on.isEmpty()) text += QStringLiteral("  ON: ") + on;
  return text;
}

}  // namespace nira
