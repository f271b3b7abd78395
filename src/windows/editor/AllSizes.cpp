// SPDX-License-Identifier: Apache-2.0
#include "editor/AllSizes.h"

#include "controls/CamLabel.h"
#include "editor/CamDiagram.h"
#include "editor/StatusLine.h"
#include "ground/Text.h"
#include "model/SizeUse.h"
#include "model/Switching.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace nira {

namespace {

/// "FASI 2   ON 34°", nothing without a phase.
QString Summary(const PhaseList& phases, const QString& heading) {
  if (phases.phases.empty()) return {};
  int sum = 0;
  for (const Phase& phase : phases.phases) sum += phase.Length();
  return heading + u' ' + QString::number(phases.phases.size()) +
         QStringLiteral("   ON %1°").arg(sum);
}

}  // namespace

AllSizes::AllSizes(Instance& instance, int speed, QWidget* parent)
    : QDialog(parent), instance_(instance), speed_(speed) {
  setObjectName(QStringLiteral("AllSizes"));
  setWindowTitle(instance.Text(TextNumber::AllSizesTitle));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  BuildControls();
  BuildLayout();
  ConnectAll();
  ListSizes();
  constexpr QSize frame(80, 80);  // of the main window that stays in sight
  resize((parent->size() - frame).expandedTo(minimumSizeHint()));
  Select(Selected());
}

void AllSizes::BuildControls() {
  CamDiagram::Kind kind;
  kind.most = instance_.Program.NumSizes();
  kind.number = "SizeNumber";
  kind.description = "SizePhases";
  kind.bar = "SizeBar";
  kind.letter = instance_.Text(TextNumber::SizeWord).left(1);
  kind.described = false;
  kind.enterPins = false;
  diagram_ = new CamDiagram(std::move(kind), this);
  diagram_->setObjectName(QStringLiteral("SizesDiagram"));
  diagram_->setAccessibleName(windowTitle());
  diagram_->SetWords({instance_.Text(TextNumber::SizeWord), instance_.Text(TextNumber::PhaseWord),
                      instance_.Text(TextNumber::PhasesWord), instance_.Text(TextNumber::NoPhase)});
  diagram_->setFocusPolicy(Qt::StrongFocus);
  constexpr int scalePixels = 12;
  diagram_->Rescale(scalePixels);
  scroll_ = new QScrollBar(Qt::Vertical);
  scroll_->setObjectName(QStringLiteral("SizesScroll"));
  hideEmpty_ = new QCheckBox(instance_.Text(TextNumber::HideEmptySizes));
  hideEmpty_->setObjectName(QStringLiteral("HideEmpty"));
  hideEmpty_->setFocusPolicy(Qt::TabFocus);  // a click leaves the arrow keys to the sizes
  reading_ = new CamLabel(this);
  reading_->setObjectName(QStringLiteral("SizesReading"));
  reading_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void AllSizes::ConnectAll() {
  const auto select = [this](int row) { Select(scroll_->value() + row); };
  connect(diagram_, &CamDiagram::LabCam_Click, this, select);
  connect(diagram_, &CamDiagram::Run_Click, this, select);
  connect(diagram_, &CamDiagram::LabCam_DblClick, this, &QDialog::accept);
  connect(diagram_, &CamDiagram::LDefC_DblClick, this, &QDialog::accept);
  connect(diagram_, &CamDiagram::Run_DblClick, this, &QDialog::accept);
  connect(diagram_, &CamDiagram::Bar_DblClick, this, &QDialog::accept);
  connect(diagram_, &CamDiagram::LineRead, this,
          [this](int degree, int difference, const QString& on) {
            reading_->setText(StatusLine::Reading(instance_, degree, difference, on));
          });
  connect(scroll_, &QScrollBar::valueChanged, this, &AllSizes::ShowRows);
  connect(hideEmpty_, &QCheckBox::toggled, this, [this] {
    ListSizes();
    Select(Selected());
  });
}

void AllSizes::BuildLayout() {
  const CamProgram& program = instance_.Program;
  const int cam = program.CurrentCam();
  auto* title = new QLabel;
  title->setObjectName(QStringLiteral("SizesCam"));
  title->setTextFormat(Qt::PlainText);
  title->setText(instance_.Text(TextNumber::CamWord).left(1) + ZeroFilled(cam + 1, 2) +
                 QStringLiteral("  ") + program.CamText(cam));
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);  // in the script's language
  QPushButton* close = buttons->button(QDialogButtonBox::Close);
  close->setObjectName(QStringLiteral("SizesClose"));
  close->setAutoDefault(false);  // Enter is for the size
  connect(close, &QPushButton::clicked, this, &QDialog::close);

  auto* head = new QHBoxLayout;
  head->addWidget(title, 1);
  head->addWidget(hideEmpty_);
  auto* rows = new QHBoxLayout;
  rows->setSpacing(8);
  rows->addWidget(diagram_, 1);
  rows->addWidget(scroll_);
  auto* foot = new QHBoxLayout;
  foot->addWidget(reading_, 1);
  foot->addWidget(buttons);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(8);
  layout->addLayout(head);
  layout->addLayout(rows, 1);
  layout->addLayout(foot);
  diagram_->setFocus();
}

/// The current size is always listed.
void AllSizes::ListSizes() {
  const CamProgram& program = instance_.Program;
  SizeUse use;
  use.Follow(program);
  sizes_.clear();
  for (int size = 1; size <= program.NumSizes(); ++size) {
    const bool hidden = hideEmpty_->isChecked() && size != program.CurrentSize();
    if (!hidden || use.Of(size).phases > 0) sizes_.push_back(size);
  }
  Arrange();
}

/// As many rows as can be read, the others by the scroll bar.
void AllSizes::Arrange() {
  const int listed = static_cast<int>(sizes_.size());
  const int rows = std::min(listed, diagram_->ReadableRows());
  diagram_->ShowRows(rows);
  scroll_->setRange(0, listed - rows);
  scroll_->setPageStep(rows);
  scroll_->setVisible(listed > rows);
  ShowRows();
}

void AllSizes::ShowRows() {
  for (int row = 0; row < scroll_->pageStep(); ++row) ShowRow(row);
  const Switching cam =
      speed_ == 0 ? Switching()
                  : Switching::Of(instance_.Program, instance_.Program.CurrentCam(), speed_);
  diagram_->ShowSpeed(speed_, std::vector(static_cast<std::size_t>(scroll_->pageStep()), cam));
}

void AllSizes::ShowRow(int row) {
  const CamProgram& program = instance_.Program;
  const int index = scroll_->value() + row;
  const int size = sizes_[static_cast<std::size_t>(index)];
  const PhaseList phases = PhaseList::Of(program.CamMap(size, program.CurrentCam()));
  diagram_->ShowNumber(row, size);
  diagram_->ShowCam(row, phases, size == program.CurrentSize(),
                    Summary(phases, instance_.Text(TextNumber::PhasesHeading)));
}

int AllSizes::Selected() const {
  const auto found = std::find(sizes_.begin(), sizes_.end(), instance_.Program.CurrentSize());
  return static_cast<int>(found - sizes_.begin());
}

/// Selects the size that is listed there, from 0, or the nearest one, and brings its row in sight.
void AllSizes::Select(int index) {
  const int listed = std::clamp(index, 0, static_cast<int>(sizes_.size()) - 1);
  const int size = sizes_[static_cast<std::size_t>(listed)];
  const bool other = size != instance_.Program.CurrentSize();
  instance_.Program.SelectSize(size);
  const int lowest = listed - scroll_->pageStep() + 1;
  scroll_->setValue(std::clamp(scroll_->value(), lowest, listed));
  ShowRows();
  if (other) Q_EMIT SizeSelected();
}

void AllSizes::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
      return Select(Selected() - 1);
    case Qt::Key_Down:
      return Select(Selected() + 1);
    case Qt::Key_PageUp:
      return Select(Selected() - scroll_->pageStep());
    case Qt::Key_PageDown:
      return Select(Selected() + scroll_->pageStep());
    case Qt::Key_Home:
      return Select(0);
    case Qt::Key_End:
      return Select(static_cast<int>(sizes_.size()) - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return accept();
    default:
      QDialog::keyPressEvent(event);
  }
}

void AllSizes::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  Arrange();
}

void AllSizes::wheelEvent(QWheelEvent* event) {
  constexpr int delta = 40;  // of a row: a notch of a wheel is 120, a touchpad gives less
  turned_ += event->angleDelta().y();
  const int rows = std::exchange(turned_, turned_ % delta) / delta;
  scroll_->setValue(scroll_->value() - rows);
}

}  // namespace nira
