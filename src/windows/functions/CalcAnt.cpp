// SPDX-License-Identifier: Apache-2.0
#include "functions/CalcAnt.h"

#include "controls/CamLabel.h"
#include "controls/Digits.h"
#include "controls/FocusScrollBar.h"
#include "controls/NumberBox.h"
#include "controls/PlainLabel.h"
#include "files/MessageTable.h"
#include "files/TextNumbers.h"
#include "functions/RangeNote.h"
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
constexpr double typedDigits = 1.25;

/// A caption over what it names: the value, the bar that sets it, and the box to type it.
QVBoxLayout* Captioned(QLabel* caption, QLabel* value, FocusScrollBar* bar, NumberBox* box) {
  caption->setBuddy(bar);
  bar->setAccessibleName(caption->text());
  box->setAccessibleName(caption->text());
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  row->addWidget(value);
  row->addWidget(bar, 1);
  row->addWidget(box);
  auto* column = new QVBoxLayout;
  column->setSpacing(0);
  column->addWidget(caption);
  column->addLayout(row);
  return column;
}

}  // namespace

CalcAnt::CalcAnt(const CamProgram& program, const MessageTable& texts, QWidget* parent)
    : QDialog(parent), program_(program), texts_(texts) {
  setObjectName(QStringLiteral("CalcAnt"));
  setWindowTitle(QStringLiteral("CALCOLO ANTICIPI"));
  BuildControls();
  BuildLayout();
  for (const Setting& setting : {speed_, time_, wanted_}) {
    connect(setting.bar, &QScrollBar::valueChanged, this, setting.change);
  }
  connect(timer1_, &QTimer::timeout, this, &CalcAnt::Timer1_Timer);
  Form_Load();
}

/// A box that still has the focus loses it only after this.
CalcAnt::~CalcAnt() {
  for (const Setting& setting : {speed_, time_, wanted_}) setting.box->disconnect(this);
}

/// What is typed counts at Enter, and when the box is left.
NumberBox* CalcAnt::BuildBox(const char* name, const Setting& setting) {
  const auto filter = [this, &setting](char16_t& code) {
    if (code != DegreeBox::Enter) return NumberBox::IsDigit(code);
    TakeTyped(setting);
    setting.box->SelectAllText();
    return false;
  };
  const QString widest = QStringLiteral("0000");
  auto* box = new NumberBox(static_cast<int>(widest.size()), filter, this);
  box->setObjectName(QString::fromLatin1(name));
  box->setFont(Digits(typedDigits));
  box->setFixedWidth(QFontMetrics(box->font()).horizontalAdvance(widest) + 18);
  note_->Watch(box);
  connect(box, &DegreeBox::FocusLost, this, [this, &setting](Qt::FocusReason reason) {
    const bool changed = setting.box->text() != QString::number(setting.bar->value());
    if (NumberBox::IsLeft(reason) && changed) TakeTyped(setting);
  });
  return box;
}

CalcAnt::Setting CalcAnt::BuildSetting(const char* barName, const char* valueName, NumberBox* box,
                                       void (CalcAnt::*change)()) {
  auto* bar = new FocusScrollBar(barName, Qt::Horizontal);
  return {bar, NumberLabel(valueName, valueDigits, QStringLiteral("0000")), box, change};
}

void CalcAnt::BuildControls() {
  using A = AdvanceCalculator;
  note_ = new RangeNote(texts_);
  speed_ = BuildSetting("ScrollRPM", "LRPM", BuildBox("TRPM", speed_), &CalcAnt::ScrollRPM_Change);
  time_ =
      BuildSetting("ScrollAnt", "LAntImp", BuildBox("TAntImp", time_), &CalcAnt::ScrollAnt_Change);
  wanted_ = BuildSetting("ScrAntRis", "LAntDes", BuildBox("TAntDes", wanted_),
                         &CalcAnt::ScrAntRis_Change);
  speed_.bar->SetRange(A::MinSpeed, A::MaxSpeed, 100);
  time_.bar->SetRange(0, A::MaxTime, 20);
  wanted_.bar->SetRange(A::MinWanted, A::MaxWanted, 10);
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
  const auto add = [settings](QLabel* caption, const Setting& setting) {
    settings->addLayout(Captioned(caption, setting.value, setting.bar, setting.box));
  };
  add(speed, speed_);
  add(PlainLabel(QStringLiteral("ANTICIPO SELEZIONATO (msec.)")), time_);
  add(PlainLabel(texts_.Text(TextNumber::CalculatorWanted)), wanted_);

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
  auto* foot = new QHBoxLayout;
  foot->setSpacing(16);
  foot->addWidget(note_, 1);
  foot->addWidget(exit);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(16);
  layout->addLayout(BuildHead());
  layout->addLayout(values);
  layout->addWidget(diagram_, 1);
  layout->addLayout(foot);
  QWidget* before = speed_.bar;
  for (QWidget* next : std::initializer_list<QWidget*>{speed_.box, time_.bar, time_.box,
                                                       wanted_.bar, wanted_.box, exit}) {
    setTabOrder(before, next);
    before = next;
  }
  speed_.bar->setFocus();
  resize(sizeHint().expandedTo({840, 480}));
}

void CalcAnt::Form_Load() {
  const int size = program_.CurrentSize();
  const int cam = program_.CurrentCam();
  programmed_ = program_.CamMap(size, cam);
  ShiftedRow = programmed_;
  timer1_->start(1);  // until its tick nothing is drawn
  time_.bar->setValue(program_.Functions().CamFunc[static_cast<std::size_t>(cam)]);
  label14_->setText(texts_.Text(TextNumber::SizeWord).left(1) + ZeroFilled(size, 2) + u' ' +
                    texts_.Text(TextNumber::CamWord).left(1) + ZeroFilled(cam + 1, 2));
  for (const Setting& setting : {speed_, time_, wanted_}) Show(setting);
  ShowAdvance();
}

void CalcAnt::Show(const Setting& setting) {
  setting.value->setNum(setting.bar->value());
  setting.box->setText(QString::number(setting.bar->value()));
}

void CalcAnt::ScrollRPM_Change() {
  Show(speed_);
  ShowAdvance();
}

void CalcAnt::ScrollAnt_Change() {
  Show(time_);
  ShowAdvance();
}

/// An angle whose time is too long steps down to the first one that fits.
void CalcAnt::ScrAntRis_Change() {
  const auto fitting = AdvanceCalculator::Fitting(speed_.bar->value(), wanted_.bar->value());
  if (fitting.degrees != wanted_.bar->value()) {
    wanted_.bar->setValue(fitting.degrees);  // comes back here, and fits
    return;
  }
  Show(wanted_);
  time_.bar->setValue(fitting.time);
}

/// The bar does the rest. The value that it has already counts all the same: the speed may have
/// changed what a wanted angle takes.
void CalcAnt::TakeTyped(const Setting& setting) {
  FocusScrollBar* bar = setting.bar;
  const std::int64_t typed = NumericValue(setting.box->text());
  if (setting.box->text().isEmpty() || typed < bar->minimum() || typed > bar->maximum()) {
    note_->Refuse(setting.box, bar->minimum(), bar->maximum());
  } else if (typed == bar->value()) {
    (this->*setting.change)();
  } else {
    bar->setValue(static_cast<int>(typed));
  }
}

void CalcAnt::Timer1_Timer() {
  timer1_->stop();
  diagram_->Draw(programmed_, ShiftedRow, shiftedBy_);
}

void CalcAnt::ShowAdvance() {
  const int angle = AdvanceCalculator::Angle(speed_.bar->value(), time_.bar->value());
  lGirAnt_->setNum(AdvanceCalculator::Turns(angle));
  const QString degrees = QString::number(AdvanceCalculator::Degrees(angle));
  if (degrees == lAntRis_->text()) return;
  lAntRis_->setText(degrees);
  LAntRis_Change(AdvanceCalculator::Degrees(angle));
}

void CalcAnt::LAntRis_Change(int degrees) {
  shiftedBy_ = degrees;
  ShiftedRow = AdvanceCalculator::Shifted(programmed_, degrees);
  if (!timer1_->isActive()) diagram_->Draw(programmed_, ShiftedRow, shiftedBy_);
}

}  // namespace nira
