#include "files/Carprg.h"

#include "model/Text.h"

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

QGroupBox* Group(const std::array<QRadioButton*, 2>& options) {
  auto* group = new QGroupBox;
  auto* layout = new QVBoxLayout(group);
  layout->setContentsMargins(16, 12, 16, 12);
  layout->setSpacing(8);
  for (QRadioButton* option : options) layout->addWidget(option);
  return group;
}

}  // namespace

Carprg::Carprg(CamProgram& program, const Globals& settings, QWidget* parent)
    : QDialog(parent), program_(program), settings_(settings) {
  setObjectName(QStringLiteral("Carprg"));
  setWindowTitle(QStringLiteral("Sel Programmer"));
  BuildLayout();
  Form_Load();
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
  auto* automatic = new QPushButton(QStringLiteral("AUTO"));
  automatic->setObjectName(QStringLiteral("AutSel"));
  automatic->setEnabled(false);  // asks the programmer, whose line is not built yet
  automatic->setAutoDefault(false);
  auto* ok = new QPushButton(QStringLiteral("OK"));
  ok->setObjectName(QStringLiteral("OKP"));
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::close);

  auto* groups = new QHBoxLayout;
  groups->setSpacing(16);
  groups->addWidget(Group(O_QX), 1);
  groups->addWidget(Group(O_F), 1);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(automatic);
  buttons->addStretch();
  buttons->addWidget(ok);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(16);
  layout->addLayout(groups);
  layout->addWidget(labCom_);
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

/// The port opens only for an exchange, so far never: it is unconnected whenever this looks.
void Carprg::Timer1_Timer() {
  labCom_->setText(QStringLiteral("Serial Port COM") + QString::number(settings_.PortNumber) +
                   QStringLiteral(" unconnected"));
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
