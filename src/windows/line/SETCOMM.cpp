// SPDX-License-Identifier: Apache-2.0
#include "line/SETCOMM.h"

#include "controls/OkCancelRow.h"
#include "controls/PlainTip.h"
#include "controls/Shades.h"
#include "controls/TabToChecked.h"
#include "files/OptionsFile.h"
#include "line/FaultText.h"
#include "line/SerialLink.h"

#include <QEvent>
#include <QFontDatabase>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace nira {

namespace {

constexpr int longestNote = 40;  // characters

QString PortButton(int number) {
  return QStringLiteral("OpCOM_") + QString::number(number);
}

QGroupBox* Frame(const QString& title) {
  auto* frame = new QGroupBox(title);
  frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  return frame;
}

}  // namespace

SETCOMM::SETCOMM(Instance& instance, const PortNames& ports, QWidget* parent)
    : QDialog(parent), instance_(instance), ports_(ports), settPort_(new QLabel) {
  setObjectName(QStringLiteral("SETCOMM"));
  setWindowTitle(instance.Text(TextNumber::SetComTitle));
  settPort_->setObjectName(QStringLiteral("SettPort"));
  settPort_->setTextFormat(Qt::PlainText);
  QFont large = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  large.setPointSizeF(font().pointSizeF() * 1.6);
  settPort_->setFont(large);

  auto* frames = new QHBoxLayout;
  frames->setSpacing(16);
  frames->addWidget(BuildPorts(), 1);
  frames->addWidget(BuildSpeeds());
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(16);
  layout->addWidget(settPort_);
  layout->addLayout(frames, 1);
  layout->addLayout(BuildButtons());
  const QString chosen = PortButton(instance.Settings.PortNumber);
  if (auto* port = findChild<QRadioButton*>(chosen)) port->setFocus();
  ShowSettPort();
}

QWidget* SETCOMM::BuildPorts() {
  auto* frame = Frame(instance_.Text(TextNumber::SetComPort));
  auto* rows = new QGridLayout(frame);
  rows->setContentsMargins(16, 12, 16, 12);
  rows->setHorizontalSpacing(16);
  rows->setVerticalSpacing(8);
  rows->setColumnStretch(2, 1);
  rows->setColumnMinimumWidth(2, fontMetrics().averageCharWidth() * 24);
  std::vector<PortInfo> ports = ports_.Offered();
  const auto others =
      std::stable_partition(ports.begin(), ports.end(), [this](const PortInfo& port) {
        return port.Present || port.Number == instance_.Settings.PortNumber;
      });
  for (auto port = ports.begin(); port != others; ++port) AddPort(rows, *port);
  if (others != ports.end()) AddOthers(rows, {others, ports.end()});
  rows->setRowStretch(rows->rowCount(), 1);
  TabToChecked(*frame);
  return frame;
}

/// The ports that are not there can be chosen all the same, but do not stand in the way; they are
/// shown at once when there is nothing else.
void SETCOMM::AddOthers(QGridLayout* rows, const std::vector<PortInfo>& others) {
  auto* fold = new QToolButton;
  fold->setObjectName(QStringLiteral("OtherPorts"));
  fold->setText(instance_.Text(TextNumber::OtherPorts));
  fold->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  fold->setAutoRaise(true);
  fold->setCheckable(true);
  rows->addWidget(fold, rows->rowCount(), 0, 1, 2, Qt::AlignLeft);
  std::vector<QWidget*> folded;
  for (const PortInfo& port : others) {
    const int row = AddPort(rows, port);
    for (int column = 0; column < rows->columnCount(); ++column) {
      folded.push_back(rows->itemAtPosition(row, column)->widget());
    }
  }
  const auto show = [this, fold, folded](bool open) {
    fold->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
    for (QWidget* widget : folded) widget->setVisible(open);
    if (isVisible()) QTimer::singleShot(0, this, [this] { resize(size().expandedTo(sizeHint())); });
  };
  connect(fold, &QToolButton::toggled, this, show);
  fold->setChecked(others.size() == PortNames::Ports);
  show(fold->isChecked());
}

/// A button of the array `OpCOM`: its index is the number of the port. Beside it what is there.
/// Returns its row.
int SETCOMM::AddPort(QGridLayout* rows, const PortInfo& port) {
  const int number = port.Number;
  auto* button = new QRadioButton(QStringLiteral("COM") + QString::number(number));
  button->setObjectName(PortButton(number));
  button->setChecked(number == instance_.Settings.PortNumber);
  connect(button, &QRadioButton::clicked, this, [this, number] { OpCOM_Click(number); });
  const QString note = Note(port);
  button->setAccessibleDescription(port.Device + u' ' + note);
  const int row = rows->rowCount();
  rows->addWidget(button, row, 0);
  rows->addWidget(PortLabel(port.Device, port.Present, button), row, 1);
  rows->addWidget(PortLabel(note, port.Present, button), row, 2);
  return row;
}

/// Text beside a port; a click on it is one on its button.
QLabel* SETCOMM::PortLabel(const QString& text, bool present, QRadioButton* port) {
  auto* label =
      new QLabel(text.size() > longestNote ? QString(text.left(longestNote) + u'…') : text);
  label->setTextFormat(Qt::PlainText);
  if (text.size() > longestNote) label->setToolTip(PlainTip(text));
  if (!present) {
    QPalette quiet = label->palette();
    quiet.setColor(QPalette::WindowText, SecondaryText(quiet));
    label->setPalette(quiet);
  }
  label->setBuddy(port);
  label->installEventFilter(this);
  return label;
}

/// What the machine says of a port, beyond its device.
QString SETCOMM::Note(const PortInfo& port) const {
  if (port.Simulated) return instance_.Text(TextNumber::StatusSimulated);
  if (!port.Present) return instance_.Text(TextNumber::PortAbsent);
  if (!port.Permitted) return instance_.Text(TextNumber::PortNotPermitted);
  return port.Description;
}

bool SETCOMM::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::MouseButtonPress) return false;
  auto* port = qobject_cast<QRadioButton*>(qobject_cast<QLabel*>(watched)->buddy());
  port->setFocus(Qt::MouseFocusReason);
  port->click();
  return true;
}

QWidget* SETCOMM::BuildSpeeds() {
  auto* frame = Frame(instance_.Text(TextNumber::SetComSpeed));
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(16, 12, 16, 12);
  column->setSpacing(8);
  constexpr std::array names = {"Baud3", "Baud6", "Baud12", "Baud24", "Baud96", "Baud192"};
  static_assert(names.size() == LineSpeeds.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    const int baud = LineSpeeds.at(i);
    auto* button = new QRadioButton(QString::number(baud));
    button->setObjectName(QString::fromLatin1(names.at(i)));
    button->setChecked(baud == instance_.Settings.BaudRate);
    connect(button, &QRadioButton::clicked, this, [this, baud] { Baud_Click(baud); });
    column->addWidget(button);
  }
  column->addStretch();
  TabToChecked(*frame);
  return frame;
}

QLayout* SETCOMM::BuildButtons() {
  const OkCancelRow row(this, "OKButton", "CancelButton",
                        instance_.Text(TextNumber::CancelCaption));
  connect(row.Ok, &QPushButton::clicked, this, &SETCOMM::OKButton_Click);
  return row.Layout;
}

void SETCOMM::Baud_Click(int baud) {
  instance_.Settings.BaudRate = baud;
  ShowSettPort();
}

/// The flag of the last exchange says nothing about another port.
void SETCOMM::OpCOM_Click(int number) {
  Globals& settings = instance_.Settings;
  if (settings.PortNumber != number) settings.PortErrorFlag = 0;
  settings.PortNumber = number;
  ShowSettPort();
}

/// "COM1:  9600": the port up to the colon, the speed in five places after a blank.
void SETCOMM::ShowSettPort() {
  const Globals& settings = instance_.Settings;
  settPort_->setText(QStringLiteral("COM") + QString::number(settings.PortNumber) +
                     QStringLiteral(": ") + QString::number(settings.BaudRate).rightJustified(5));
}

void SETCOMM::OKButton_Click() {
  const Refusal refusal = WriteOptions(instance_.Settings, instance_.Folder, instance_.Writer);
  if (refusal) TellFault(instance_.Ask, instance_.Texts, *refusal);  // it holds for this run
  accept();
}

}  // namespace nira
