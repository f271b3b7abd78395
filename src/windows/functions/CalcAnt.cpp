// SPDX-License-Identifier: Apache-2.0
#include "functions/CalcAnt.h"

#include "controls/CamLabel.h"
#include "controls/Digits.h"
#include "controls/FocusScrollBar.h"
#include "files/MessageTable.h"
#include "files/TextNumbers.h"
#include "functions/ShiftDiagram.h"
#include "ground/Text.h"
#include "model/AdvanceCalculator.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace nira {

namespace {

constexpr double valueDigits = 2.2;  // times the desktop's text
constexpr double resultDigits = 3.6;

/// A caption over what it names: the value, and the bar that sets it.
QVBoxLayout* Setting(QLabel* caption, QLabel* value, FocusScrollBar* bar) {
  caption->setBuddy(bar);
  bar->setAccessibleName(caption->text());
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  row->addWidget(value);
  row->addWidget(bar, 1);
  auto* column = new QVBoxLayout;
  column->setSpacing(0);
  column->addWidget(caption);
  column->addLayout(row);
  return column;
}

QLabel* PlainLabel(const QString& text) {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  return label;
}

}  // namespace

CalcAnt::CalcAnt(const CamProgram& program, const MessageTable& texts, QWidget* parent)
    : QDialog(parent), program_(program), texts_(texts) {
  setObjectName(QStringLiteral("CalcAnt"));
  setWindowTitle(QStringLiteral("CALCOLO ANTICIPI"));
  BuildControls();
  BuildLayout();
  connect(scrollRpm_, &QScrollBar::valueChanged, this, &CalcAnt::ScrollRPM_Change);
  connect(scrollAnt_, &QScrollBar::valueChanged, this, &CalcAnt::ScrollAnt_Change);
  connect(scrAntRis_, &QScrollBar::valueChanged, this, &CalcAnt::ScrAntRis_Change);
  connect(timer1_, &QTimer::timeout, this, &CalcAnt::Timer1_Timer);
  Form_Load();
}

void CalcAnt::BuildControls() {
  using A = AdvanceCalculator;
  scrollRpm_ = new FocusScrollBar("ScrollRPM", Qt::Horizontal);
  scrollRpm_->SetRange(A::MinSpeed, A::MaxSpeed, 100);
  scrollAnt_ = new FocusScrollBar("ScrollAnt", Qt::Horizontal);
  scrollAnt_->SetRange(0, A::MaxTime, 20);
  scrAntRis_ = new FocusScrollBar("ScrAntRis", Qt::Horizontal);
  scrAntRis_->SetRange(A::MinWanted, A::MaxWanted, 10);
  const QString widest = QStringLiteral("0000");
  speed_ = NumberLabel("LRPM", valueDigits, widest);
  lAntImp_ = NumberLabel("LAntImp", valueDigits, widest);
  wanted_ = NumberLabel("LAntDes", valueDigits, widest);
  lAntRis_ = NumberLabel("LAntRis", resultDigits, QStringLiteral("000"));
  lGirAnt_ = NumberLabel("LGirAnt", valueDigits, QStringLiteral("000"));
  label14_ = PlainLabel(QStringLiteral("F00  C00"));
  label14_->setObjectName(QStringLiteral("Label14"));
  label14_->setFont(Digits(valueDigits));
  diagram_ = new ShiftDiagram(texts_.Text(TextNumber::CalculatorProgrammed),
                              texts_.Text(TextNumber::CalculatorShifted));
  timer1_ = new QTimer(this);
  timer1_->setObjectName(QStringLiteral("Timer1"));
}

/// The cam: its size and number, and its description.
QHBoxLayout* CalcAnt::BuildHead() {
  auto* description = new CamLabel(nullptr);
  description->setObjectName(QStringLiteral("Description"));
  description->setText(program_.CamText(program_.CurrentCam()));
  description->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  auto* head = new QHBoxLayout;
  head->setSpacing(16);
  head->addWidget(label14_);
  head->addWidget(description, 1);
  return head;
}

QVBoxLayout* CalcAnt::BuildResult() {
  auto* column = new QVBoxLayout;
  column->setSpacing(0);
  column->addWidget(PlainLabel(QStringLiteral("ANTICIPO RISULTANTE (GRADI)")), 0, Qt::AlignRight);
  column->addWidget(lAntRis_, 0, Qt::AlignRight);
  column->addStretch();
  column->addWidget(PlainLabel(texts_.Text(TextNumber::CalculatorTurns)), 0, Qt::AlignRight);
  column->addWidget(lGirAnt_, 0, Qt::AlignRight);
  return column;
}

void CalcAnt::BuildLayout() {
  auto* speed = PlainLabel(QStringLiteral("R.P.M."));
  speed->setObjectName(QStringLiteral("Label11"));
  auto* settings = new QVBoxLayout;
  settings->setSpacing(8);
  settings->addLayout(Setting(speed, speed_, scrollRpm_));
  settings->addLayout(
      Setting(PlainLabel(QStringLiteral("ANTICIPO SELEZIONATO (msec.)")), lAntImp_, scrollAnt_));
  settings->addLayout(
      Setting(PlainLabel(texts_.Text(TextNumber::CalculatorWanted)), wanted_, scrAntRis_));

  auto* line = new QFrame;
  line->setFrameShape(QFrame::VLine);
  line->setFrameShadow(QFrame::Sunken);
  auto* values = new QHBoxLayout;
  values->setSpacing(16);
  values->addLayout(settings, 1);
  values->addWidget(line);
  values->addLayout(BuildResult());

  auto* exit = new QPushButton(QStringLiteral("&EXIT"));
  exit->setObjectName(QStringLiteral("Command1"));
  exit->setDefault(true);
  connect(exit, &QPushButton::clicked, this, &QDialog::close);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(16);
  layout->addLayout(BuildHead());
  layout->addLayout(values);
  layout->addWidget(diagram_, 1);
  layout->addWidget(exit, 0, Qt::AlignRight);
  resize(sizeHint().expandedTo({840, 480}));
}

void CalcAnt::Form_Load() {
  const int size = program_.CurrentSize();
  const int cam = program_.CurrentCam();
  programmed_ = program_.CamMap(size, cam);
  ShiftedRow = programmed_;
  timer1_->start(1);  // until its tick nothing is drawn
  scrollAnt_->setValue(program_.Functions().CamFunc[static_cast<std::size_t>(cam)]);
  label14_->setText(texts_.Text(TextNumber::SizeWord).left(1) + ZeroFilled(size, 2) + u' ' +
                    texts_.Text(TextNumber::CamWord).left(1) + ZeroFilled(cam + 1, 2));
  wanted_->setNum(scrAntRis_->value());
  ShowAdvance();
}

void CalcAnt::ScrollRPM_Change() {
  ShowAdvance();
}

void CalcAnt::ScrollAnt_Change() {
  ShowAdvance();
}

/// An angle whose time is too long steps down to the first one that fits.
void CalcAnt::ScrAntRis_Change() {
  const auto setting = AdvanceCalculator::Fitting(scrollRpm_->value(), scrAntRis_->value());
  if (setting.degrees != scrAntRis_->value()) {
    scrAntRis_->setValue(setting.degrees);  // comes back here, and fits
    return;
  }
  wanted_->setNum(setting.degrees);
  scrollAnt_->setValue(setting.time);
}

void CalcAnt::Timer1_Timer() {
  timer1_->stop();
  diagram_->Draw(programmed_, ShiftedRow);
}

void CalcAnt::ShowAdvance() {
  const int angle = AdvanceCalculator::Angle(scrollRpm_->value(), scrollAnt_->value());
  speed_->setNum(scrollRpm_->value());
  lAntImp_->setNum(scrollAnt_->value());
  lGirAnt_->setNum(AdvanceCalculator::Turns(angle));
  const QString degrees = QString::number(AdvanceCalculator::Degrees(angle));
  if (degrees == lAntRis_->text()) return;
  lAntRis_->setText(degrees);
  LAntRis_Change(AdvanceCalculator::Degrees(angle));
}

void CalcAnt::LAntRis_Change(int degrees) {
  ShiftedRow = AdvanceCalculator::Shifted(programmed_, degrees);
  if (!timer1_->isActive()) diagram_->Draw(programmed_, ShiftedRow);
}

}  // namespace nira
