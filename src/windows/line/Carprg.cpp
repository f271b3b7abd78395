// SPDX-License-Identifier: Apache-2.0
#include "line/Carprg.h"

#include "controls/InputHold.h"
#include "controls/TabToChecked.h"
#include "ground/Text.h"
#include "line/Identity.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace nira {

namespace {

constexpr int portInterval = 500;  // ms between two looks at the port

QRadioButton* Option(const char* name, int index) {
  auto* button = new QRadioButton;
  button->setObjectName(QString::fromLatin1(name) + u'_' + QString::number(index));
  return button;
}

QGroupBox* Group(const QString& title, const std::array<QRadioButton*, 2>& options) {
  auto* group = new QGroupBox(title);
  auto* layout = new QVBoxLayout(group);
  layout->setContentsMargins(16, 12, 16, 12);
  layout->setSpacing(8);
  for (QRadioButton* option : options) layout->addWidget(option);
  return group;
}

}  // namespace

Carprg::Carprg(Comm& comm, QWidget* parent) : QDialog(parent), comm_(comm), program_(comm.Program) {
  setObjectName(QStringLiteral("Carprg"));
  setWindowTitle(QStringLiteral("Sel Programmer"));
  BuildLayout();
  Form_Load();
  TabToChecked(*this);
  for (int i = 0; i < 2; ++i) {
    const auto index = static_cast<std::size_t>(i);
    connect(O_QX[index], &QRadioButton::clicked, this, [this, i] { O_QX_Click(i); });
    connect(O_F[index], &QRadioButton::clicked, this, [this, i] { O_F_Click(i); });
  }
  auto* timer = new QTimer(this);
  timer->setObjectName(QStringLiteral("Timer1"));
  connect(timer, &QTimer::timeout, this, &Carprg::Timer1_Timer);
  timer->start(portInterval);
  Timer1_Timer();
}

void Carprg::BuildLayout() {
  O_QX = {Option("O_QX", 0), Option("O_QX", 1)};
  O_F = {Option("O_F", 0), Option("O_F", 1)};
  O_QX[0]->setText(QStringLiteral("QX16"));
  O_QX[1]->setText(QStringLiteral("QX32"));
  labCom_ = new QLabel;
  labCom_->setObjectName(QStringLiteral("LabCom"));
  simulated_ = new SimulatedSign(comm_.Text(TextNumber::StatusSimulated));
  QSizePolicy kept = simulated_->sizePolicy();
  kept.setRetainSizeWhenHidden(true);
  simulated_->setSizePolicy(kept);
  auto* automatic = new QPushButton(QStringLiteral("AUTO"));
  automatic->setObjectName(QStringLiteral("AutSel"));
  automatic->setAutoDefault(false);
  connect(automatic, &QPushButton::clicked, this, &Carprg::AutSel_Click);
  auto* ok = new QPushButton(QStringLiteral("OK"));
  ok->setObjectName(QStringLiteral("OKP"));
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::close);

  auto* groups = new QHBoxLayout;
  groups->setSpacing(16);
  groups->addWidget(Group(comm_.Text(TextNumber::FrameCams), O_QX), 1);
  groups->addWidget(Group(comm_.Text(TextNumber::FrameSizes), O_F), 1);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(automatic);
  buttons->addStretch();
  buttons->addWidget(simulated_, 0, Qt::AlignVCenter);
  buttons->addStretch();
  buttons->addWidget(ok);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(16);
  layout->addLayout(groups);
  layout->addWidget(labCom_);
  auto* empties = new QLabel(comm_.Text(TextNumber::ModelEmpties));
  empties->setObjectName(QStringLiteral("Empties"));
  empties->setTextFormat(Qt::PlainText);
  layout->addWidget(empties);
  layout->addLayout(buttons);
  setMinimumWidth(360);
}

void Carprg::Form_Load() {
  O_QX[program_.NumCams() == 32 ? 1 : 0]->setChecked(true);
  FillO_F();
}

/// The two numbers of sizes that the chosen number of cams is built with.
void Carprg::FillO_F() {
  const bool sixteen = program_.NumCams() == 16;
  const int larger = sixteen ? 99 : 89;
  O_F[0]->setText(sixteen ? QStringLiteral("44 FORMATI") : QStringLiteral("22 FORMATI"));
  O_F[1]->setText(QString::number(larger) + QStringLiteral(" FORMATI"));
  O_F[program_.NumSizes() == larger ? 1 : 0]->setChecked(true);
}

void Carprg::O_QX_Click(int index) {
  SetModel(index > 0 ? 32 : 16, program_.NumSizes());
  FillO_F();
}

void Carprg::O_F_Click(int index) {
  const QString caption = O_F[static_cast<std::size_t>(index)]->text();
  SetModel(program_.NumCams(), static_cast<int>(NumericValue(caption.left(2))));
}

int Carprg::ChosenSizes() const {
  return static_cast<int>(NumericValue(O_F[O_F[1]->isChecked() ? 1 : 0]->text().left(2)));
}

void Carprg::SetModel(int cams, int sizes) {
  program_.SetLimits(sizes, cams, program_.NumMessages());
}

/// Takes the model of the connected programmer. A number of sizes that is no choice here becomes
/// one, so that closing keeps it.
void Carprg::AutSel_Click() {
  std::optional<ProgrammerLimits> found;
  {
    const InputHold hold;
    found = AutSelQuery(comm_);
  }
  Timer1_Timer();
  if (!found) return;
  program_.SetLimits(found->Sizes, found->Cams, found->Messages);
  O_QX[found->Cams == 32 ? 1 : 0]->setChecked(true);
  FillO_F();
  if (ChosenSizes() == found->Sizes) return;
  O_F[O_F[1]->isChecked() ? 1 : 0]->setText(QString::number(found->Sizes).rightJustified(2) +
                                            QStringLiteral(" FORMATI"));
}

void Carprg::Timer1_Timer() {
  const QString state = comm_.Port.PortOpen()
                            ? QString(QStringLiteral(" Connected to ") + comm_.Port.Settings())
                            : QStringLiteral(" unconnected");
  labCom_->setText(QStringLiteral("Serial Port COM") + QString::number(comm_.Settings.PortNumber) +
                   state);
  simulated_->Show(comm_.Port.CommPort() == comm_.Settings.PortNumber && comm_.Port.IsSimulated());
}

void Carprg::Form_Unload() {
  SetModel(O_QX[0]->isChecked() ? 16 : 32, ChosenSizes());
  program_.DimensionModel();
}

void Carprg::closeEvent(QCloseEvent* event) {
  Form_Unload();
  event->accept();
}

void Carprg::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) QDialog::keyPressEvent(event);
}

}  // namespace nira
