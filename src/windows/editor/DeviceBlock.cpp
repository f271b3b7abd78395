// SPDX-License-Identifier: Apache-2.0
#include "editor/DeviceBlock.h"

#include "controls/PlainTip.h"
#include "controls/SimulatedSign.h"
#include "line/SerialLink.h"
#include "line/SimulatedMark.h"

#include <QPainter>

#include <algorithm>

namespace nira {

namespace {

constexpr int dotSide = 9;
constexpr int pad = 8;
constexpr QRgb openColour = 0xff008000;
constexpr QRgb failedColour = 0xffb3261e;

}  // namespace

DeviceBlock::DeviceBlock(Instance& instance, const PortNames& ports)
    : instance_(instance), ports_(ports) {
  setObjectName(QStringLiteral("DeviceBlock"));
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  connect(&watch_, &QTimer::timeout, this, &DeviceBlock::ShowPort);
}

DeviceBlock::State DeviceBlock::Now() const {
  if (instance_.Port.PortOpen()) return State::Open;
  return instance_.Settings.PortErrorFlag == 0 ? State::Closed : State::Failed;
}

QString DeviceBlock::Port(const QString& speed) const {
  return QStringLiteral("COM") + QString::number(instance_.Settings.PortNumber) +
         QStringLiteral("  ") + speed;
}

QString DeviceBlock::PortNow() const {
  return Port(Now() == State::Open ? instance_.Port.Settings()
                                   : QString::number(instance_.Settings.BaudRate));
}

/// How it stands: open, or what the last exchange left.
QString DeviceBlock::Word() const {
  if (Now() == State::Open) return instance_.Text(TextNumber::StatusPortOpen);
  const int flag = instance_.Settings.PortErrorFlag;
  if (flag == 0) return instance_.Text(TextNumber::StatusPortNotOpen);
  if (flag == 1) return instance_.Text(TextNumber::StatusNotReady);
  return instance_.Text(TextNumber::StatusPortError) + QString::number(flag);
}

/// The second line is the sign, or the device.
void DeviceBlock::ShowPort() {
  const QString second = simulated_ ? instance_.Text(TextNumber::StatusSimulated) : device_;
  const QString shown =
      PortNow() + QStringLiteral("  ") + Word() + (second.isEmpty() ? QString() : u'\n' + second);
  if (shown == text()) return;
  setText(shown);
  const QString tip = simulated_ ? shown + u'\n' + device_ : shown;
  setToolTip(PlainTip(tip));
  setAccessibleName(shown);
  updateGeometry();
  update();
}

/// Also in the middle of an exchange, when a box of it has closed: the port is still followed then.
void DeviceBlock::LookAtPort() {
  const int number = instance_.Settings.PortNumber;
  device_ = ports_.Device(number);
  simulated_ = IsSimulatedPort(ports_.Link(number));
  ShowPort();
}

void DeviceBlock::WatchPort() {
  constexpr int interval = 100;  // ms
  watch_.start(interval);
}

void DeviceBlock::PortAtRest() {
  watch_.stop();
  LookAtPort();
}

int DeviceBlock::Width(const QString& text) const {
  constexpr int rounding = 1;  // an advance of 164.4 pixels is told as 164, and elided there
  return fontMetrics().horizontalAdvance(text) + rounding + dotSide + 3 * pad;
}

QSize DeviceBlock::sizeHint() const {
  const QString open = Port(LineSettings(instance_.Settings.BaudRate)) + QStringLiteral("  ") +
                       instance_.Text(TextNumber::StatusPortOpen);
  const QStringList lines = text().split(u'\n');
  return {std::max({Width(open), Width(lines.constFirst()), Width(lines.constLast())}),
          minimumSizeHint().height()};
}

QSize DeviceBlock::minimumSizeHint() const {
  return {Width(Port(QString::number(instance_.Settings.BaudRate))),
          2 * fontMetrics().lineSpacing() + 4};
}

void DeviceBlock::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor ink = palette().color(QPalette::WindowText);
  if (simulated_) {
    ink = QColor::fromRgb(SimulatedSign::Ink);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(SimulatedSign::Ground));
    painter.drawRoundedRect(rect(), 3, 3);
  }
  // Open, closed and failed are told by the form as well: a disc, a ring, a disc in a ring.
  const State state = Now();
  const int line = height() / 2;
  const QRectF dot(pad, (line - dotSide) / 2.0 + 1, dotSide, dotSide);
  painter.setPen(QPen(ink, 1));
  painter.setBrush(state == State::Open ? QBrush(QColor::fromRgb(openColour))
                                        : QBrush(Qt::NoBrush));
  painter.drawEllipse(dot);
  if (state == State::Failed) {
    painter.setBrush(QColor::fromRgb(failedColour));
    painter.drawEllipse(dot.adjusted(2, 2, -2, -2));
  }
  painter.setPen(ink);
  const QRect first(2 * pad + dotSide, 1, width() - 3 * pad - dotSide, line);
  for (int k = 0; k < 2; ++k) {
    painter.drawText(
        first.translated(0, k * (line - 1)), Qt::AlignVCenter | Qt::TextSingleLine,
        fontMetrics().elidedText(text().section(u'\n', k, k), Qt::ElideRight, first.width()));
  }
}

}  // namespace nira
