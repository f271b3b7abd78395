// SPDX-License-Identifier: Apache-2.0
#include "functions/BNKRTN.h"

#include "controls/Digits.h"
#include "controls/FocusScrollBar.h"
#include "controls/PlainLabel.h"
#include "files/MessageTable.h"
#include "files/TextNumbers.h"
#include "functions/CamLamp.h"
#include "functions/DegreeCircle.h"
#include "ground/Clock.h"
#include "ground/Text.h"
#include "model/PhaseList.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include <algorithm>

namespace nira {

namespace {

constexpr int DemoStart = 0;  // degree at which a run starts and every turn begins
constexpr int fastest = 2000;
constexpr int passesPerMs = 10;    // a degree takes 1 at the fastest setting, 2000 at the slowest
constexpr int mostCaughtUp = 250;  // ms: what a desktop that stood still for longer is turned after
constexpr int speedInterval = 1000;  // ms
constexpr int degreeInterval = 50;   // ms
constexpr int lampColumns = 8;
constexpr int widestPanel = 480;       // pixels
constexpr double readingDigits = 2.6;  // times the desktop's text
constexpr double targetDigits = 1.4;

QPushButton* DemoButton(const char* name, const char* caption) {
  auto* button = new QPushButton(QString::fromLatin1(caption));
  button->setObjectName(QString::fromLatin1(name));
  button->setMinimumHeight(36);
  return button;
}

}  // namespace

BNKRTN::BNKRTN(CamProgram& program, const MessageTable& texts, const Clock& clock, QWidget* parent)
    : QDialog(parent), program_(program), texts_(texts), clock_(clock) {
  setObjectName(QStringLiteral("BNKRTN"));
  setWindowTitle(QStringLiteral("PROVA FORMATO"));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  BuildControls();
  BuildLayout();
  connect(vScrForm_, &QScrollBar::valueChanged, this, &BNKRTN::VScrForm_Change);
  connect(scrolVel_, &QScrollBar::valueChanged, this, &BNKRTN::ShowTarget);
  connect(circle_, &DegreeCircle::Asked, this, &BNKRTN::Circle_Asked);
  connect(strt_, &QPushButton::clicked, this, &BNKRTN::Strt_Click);
  connect(stp_, &QPushButton::clicked, this, &BNKRTN::Stp_Click);
  connect(command1_, &QPushButton::clicked, this, &QDialog::close);
  connect(turn_, &QTimer::timeout, this, &BNKRTN::Turn);
  connect(timer1_, &QTimer::timeout, this, &BNKRTN::Timer1_Timer);
  connect(timer2_, &QTimer::timeout, this, &BNKRTN::Timer2_Timer);
  Form_Load();
}

void BNKRTN::BuildControls() {
  circle_ = new DegreeCircle;
  circle_->setObjectName(QStringLiteral("Circle"));
  circle_->setAccessibleName(texts_.Text(TextNumber::DemoCircle));
  vScrForm_ = new FocusScrollBar("VScrForm", Qt::Vertical);
  scrolVel_ = new FocusScrollBar("ScrolVel", Qt::Horizontal);
  lnFor_ = NumberLabel("LNFor", 2 * readingDigits, QStringLiteral("00"));
  vgradi_ = NumberLabel("Vgradi", readingDigits, QStringLiteral("000"));
  lVeloc_ = NumberLabel("lVeloc", readingDigits, QStringLiteral("0000.00"));
  lVeloc_->setText(QStringLiteral("00.00"));
  target_ = NumberLabel("LTarget", targetDigits, QStringLiteral("0000.00"));
  strt_ = DemoButton("Strt", "&START");
  stp_ = DemoButton("Stp", "S&TOP");
  command1_ = DemoButton("Command1", "&Close");
  turn_ = new QTimer(this);
  turn_->setObjectName(QStringLiteral("Turn"));
  turn_->setTimerType(Qt::PreciseTimer);
  turn_->setInterval(1);
  timer1_ = new QTimer(this);
  timer1_->setObjectName(QStringLiteral("Timer1"));
  timer1_->setInterval(speedInterval);
  timer2_ = new QTimer(this);
  timer2_->setObjectName(QStringLiteral("Timer2"));
  timer2_->setInterval(degreeInterval);
}

QVBoxLayout* BNKRTN::BuildSizeChoice() {
  auto* caption = PlainLabel(QStringLiteral("SELEZIONE FORMATO"));
  vScrForm_->setAccessibleName(caption->text());
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  row->addWidget(vScrForm_);
  row->addWidget(lnFor_, 0, Qt::AlignVCenter);
  row->addStretch();
  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  column->addWidget(caption);
  column->addLayout(row, 1);
  return column;
}

QVBoxLayout* BNKRTN::BuildReadings() {
  auto* column = new QVBoxLayout;
  column->setSpacing(0);
  column->addWidget(PlainLabel(QStringLiteral("GRADI")), 0, Qt::AlignRight);
  column->addWidget(vgradi_, 0, Qt::AlignRight);
  column->addStretch();
  column->addWidget(PlainLabel(QStringLiteral("VELOCITA'  GIRI/MIN")), 0, Qt::AlignRight);
  column->addWidget(lVeloc_, 0, Qt::AlignRight);
  auto* target = new QHBoxLayout;
  target->setSpacing(8);
  target->addStretch();
  target->addWidget(PlainLabel(texts_.Text(TextNumber::DemoTarget)));
  target->addWidget(target_);
  column->addLayout(target);
  return column;
}

QWidget* BNKRTN::BuildPanel() {
  auto* top = new QHBoxLayout;
  top->setSpacing(32);
  top->addLayout(BuildSizeChoice(), 1);
  top->addLayout(BuildReadings());
  auto* speed = PlainLabel(texts_.Text(TextNumber::DemoSpeed));
  scrolVel_->setAccessibleName(speed->text());
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(strt_, 1);
  buttons->addWidget(stp_, 1);
  buttons->addSpacing(16);
  buttons->addWidget(command1_, 1);
  auto* widget = new QWidget;
  widget->setMaximumWidth(widestPanel);
  auto* panel = new QVBoxLayout(widget);
  panel->setContentsMargins(0, 0, 0, 0);
  panel->setSpacing(8);
  panel->addStretch();
  panel->addLayout(top);
  panel->addSpacing(16);
  panel->addWidget(speed);
  panel->addWidget(scrolVel_);
  panel->addSpacing(16);
  panel->addLayout(buttons);
  panel->addStretch();
  return widget;
}

QGridLayout* BNKRTN::BuildLamps() {
  auto* grid = new QGridLayout;
  grid->setSpacing(8);
  for (int cam = 0; cam < program_.NumCams(); ++cam) {
    auto* lamp = new CamLamp(cam, program_.CamText(cam));
    connect(lamp, &CamLamp::DblClick, this, [this, cam] { Label1_DblClick(cam); });
    connect(lamp, &CamLamp::Moved, this,
            [this, cam](int columns, int rows) { FocusLamp(cam + columns + rows * lampColumns); });
    grid->addWidget(lamp, cam / lampColumns, cam % lampColumns);
    label1_.push_back(lamp);
  }
  for (int column = 0; column < lampColumns; ++column) grid->setColumnStretch(column, 1);
  return grid;
}

void BNKRTN::BuildLayout() {
  auto* cycle = new QVBoxLayout;
  cycle->setSpacing(0);
  auto* caption = PlainLabel(texts_.Text(TextNumber::DemoCircle));
  caption->setObjectName(QStringLiteral("CERCHIO"));
  cycle->addWidget(caption, 0, Qt::AlignHCenter);
  cycle->addWidget(circle_, 1);
  auto* top = new QHBoxLayout;
  top->setSpacing(32);
  top->addStretch(1);
  top->addLayout(cycle, 100);
  top->addWidget(BuildPanel(), 100);
  top->addStretch(1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(16);
  const int rows = (program_.NumCams() + lampColumns - 1) / lampColumns;
  layout->addLayout(top, 6);
  layout->addLayout(BuildLamps(), rows);
  strt_->setDefault(true);  // in the window: else another one would be chosen when it opens
  setTabOrder(vScrForm_, scrolVel_);
  setTabOrder(scrolVel_, strt_);
  setTabOrder(strt_, stp_);
  setTabOrder(stp_, command1_);
  setTabOrder(command1_, circle_);
  CamLamp* lamp = label1_.at(static_cast<std::size_t>(program_.CurrentCam()));
  lamp->setFocusPolicy(Qt::TabFocus);  // one of them; the arrow keys lead to the others
  setTabOrder(circle_, lamp);
  constexpr QSize frame(8, 40);  // what borders and title bar take, on the generous side
  resize(QSize(1100, 860).boundedTo(screen()->availableSize() - frame));
}

void BNKRTN::Form_Load() {
  scrolVel_->SetRange(1, fastest, 100);
  scrolVel_->setValue(fastest);
  vScrForm_->SetRange(1, program_.NumSizes(), 10);
  vScrForm_->setValue(program_.CurrentSize());
  VScrForm_Change();
  ShowTarget();
  Timer2_Timer();
  timer2_->start();
  ShowTurning(false);
  strt_->setFocus();
}

/// While the pointer turns the next degree shows the size.
void BNKRTN::VScrForm_Change() {
  program_.SelectSize(vScrForm_->value());
  lnFor_->setText(ZeroFilled(vScrForm_->value(), 2));
  if (!IsTurning()) ShowDegree();
}

void BNKRTN::Strt_Click() {
  DemoSteps = 0;
  DemoAngle = DemoStart;
  ShowDegree();
  turnedTo_ = clock_.Now();
  passes_ = 0;
  turn_->start();
  timer1_->start();
  ShowTurning(true);
}

void BNKRTN::ShowTurning(bool turning) {
  // The focus follows the hand: from one button to the one that is needed next.
  const bool onButton = strt_->hasFocus() || stp_->hasFocus();
  (turning ? stp_ : strt_)->setEnabled(true);
  if (onButton) (turning ? stp_ : strt_)->setFocus();
  (turning ? strt_ : stp_)->setEnabled(false);
}

bool BNKRTN::IsTurning() const {
  return turn_->isActive();
}

std::int64_t BNKRTN::PassesPerDegree() const {
  return scrolVel_->maximum() - scrolVel_->value() + 1;
}

/// The speed that is set, beside the one that is reached.
void BNKRTN::ShowTarget() {
  constexpr double passesPerMinute = 60'000.0 * passesPerMs;
  const auto perTurn = static_cast<double>(CamProgram::Degrees * PassesPerDegree());
  target_->setText(QString::number(passesPerMinute / perTurn, 'f', 2));
}

/// Turns over the degrees whose time has passed. A degree that has stood for longer than a new
/// setting asks ends at once, and no more of them with it.
void BNKRTN::Turn() {
  const std::int64_t perDegree = PassesPerDegree();
  const std::int64_t now = clock_.Now();
  passes_ = std::min(passes_, perDegree) +
            std::min<std::int64_t>(now - turnedTo_, mostCaughtUp) * passesPerMs;
  turnedTo_ = now;
  for (; passes_ >= perDegree; passes_ -= perDegree) {
    ++DemoSteps;
    DemoAngle = DemoAngle + 1 < CamProgram::Degrees ? DemoAngle + 1 : DemoStart;
  }
  ShowDegree();
}

/// The pointer, and what the selected size does where it stands.
void BNKRTN::ShowDegree() {
  circle_->Point(DemoAngle);
  const auto degree = static_cast<std::size_t>(DemoAngle);
  for (int cam = 0; cam < static_cast<int>(label1_.size()); ++cam) {
    label1_[static_cast<std::size_t>(cam)]->Light(
        program_.CamMap(program_.CurrentSize(), cam)[degree] == 1);
  }
}

void BNKRTN::Stp_Click() {
  DemoStop();
}

void BNKRTN::DemoStop() {
  turn_->stop();
  timer1_->stop();
  ShowTurning(false);
}

/// Degrees in a second, divided by 6, are revolutions in a minute.
void BNKRTN::Timer1_Timer() {
  lVeloc_->setText(QString::number(DemoSteps / 6.0, 'f', 2));
  DemoSteps = 0;
}

void BNKRTN::Timer2_Timer() {
  vgradi_->setText(ZeroFilled(DemoAngle, PhaseList::EntryWidth));
  SpeakLamps();
}

void BNKRTN::SpeakLamps() {
  for (CamLamp* lamp : label1_) lamp->Speak();
}

/// A pointer that turns goes its own way.
void BNKRTN::Circle_Asked(int degree) {
  if (IsTurning()) return;
  circle_->setFocus();  // the arrow keys go on from here
  DemoAngle = degree;
  ShowDegree();
  Timer2_Timer();
}

void BNKRTN::Label1_DblClick(int cam) {
  program_.SelectCam(cam);
  close();
}

void BNKRTN::FocusLamp(int cam) {
  if (cam < 0 || cam >= static_cast<int>(label1_.size())) return;
  label1_[static_cast<std::size_t>(cam)]->setFocus();
}

void BNKRTN::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (!event->spontaneous()) DemoStop();  // however the window goes
}

}  // namespace nira
