// SPDX-License-Identifier: Apache-2.0
#include "editor/SpeedBox.h"

#include "controls/NumberBox.h"
#include "controls/PlainTip.h"
#include "model/AdvanceCalculator.h"

#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>
#include <utility>

namespace nira {

SpeedBox::SpeedBox(QWidget* parent)
    : QWidget(parent),
      box_(new NumberBox(
          4, [this](char16_t& code) { return Filter(code); }, this)) {
  box_->setObjectName(QStringLiteral("Speed"));
  box_->setText(QString::number(speed_));
  constexpr int padding = 16;  // pixels beside the digits
  box_->setFixedWidth(box_->fontMetrics().horizontalAdvance(QStringLiteral("00000")) + padding);
  auto* caption = new QLabel(QStringLiteral("R.P.M."));
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(caption);
  layout->addStretch();
  layout->addWidget(box_);
  connect(box_, &DegreeBox::FocusLost, this, [this](Qt::FocusReason reason) {
    if (NumberBox::IsLeft(reason)) Take();
  });
}

void SpeedBox::ShowPurpose(const QString& text) {
  setToolTip(PlainTip(text));
  box_->setAccessibleName(text);
}

void SpeedBox::SetSpeed(int speed) {
  const int taken = std::clamp(speed, 0, AdvanceCalculator::MaxSpeed);
  box_->setText(QString::number(taken));
  if (std::exchange(speed_, taken) != taken) Q_EMIT SpeedChanged(taken);
}

/// Whatever is typed stands until it is taken: nothing of it is left out unseen.
bool SpeedBox::Filter(char16_t& code) {
  if (code != DegreeBox::Enter) return true;
  Take();
  box_->SelectAllText();
  return false;
}

void SpeedBox::Take() {
  bool number = false;
  const int speed = static_cast<int>(box_->text().trimmed().toUInt(&number));
  SetSpeed(number ? speed : speed_);
}

}  // namespace nira
