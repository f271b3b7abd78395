// SPDX-License-Identifier: Apache-2.0
#include "functions/ValueEditor.h"

#include "controls/CamLabel.h"
#include "controls/Digits.h"
#include "controls/NumberBox.h"
#include "controls/PlainLabel.h"
#include "files/MessageTable.h"
#include "files/TextNumbers.h"
#include "functions/ValueScroll.h"
#include "ground/Text.h"

#include <QGridLayout>
#include <QVBoxLayout>

namespace nira {

namespace {

TextNumber TitleOf(FunctionValue value) {
  if (IsRatio(value)) return TextNumber::RatioOnCams;
  return value == FunctionValue::Advance ? TextNumber::AdvanceOnCam : TextNumber::DelayOnCams;
}

/// "5" for a cam, "17 - 20" for a group.
QString CamsText(const CamGroup& group) {
  const QString first = QString::number(group.first + 1);
  if (group.first == group.last) return first;
  return first + QStringLiteral(" - ") + QString::number(group.last + 1);
}

int WidthOf(const QFont& font, const char* widest) {
  return QFontMetrics(font).horizontalAdvance(QString::fromLatin1(widest));
}

}  // namespace

ValueEditor::ValueEditor(const MessageTable& texts, ValueScroll* bar, NumberBox* box,
                         QWidget* parent)
    : QWidget(parent),
      texts_(texts),
      scrVal_(bar),
      tmsec_(box),
      lantc_(Label("Lantc", texts.Text(TextNumber::AdvanceOnCam))),
      description_(new CamLabel(this)),
      lNcam_(Label("LNcam", QStringLiteral("00"))),
      lmsec_(Label("Lmsec", QStringLiteral("msec."))) {
  description_->setObjectName(QStringLiteral("Description"));
  description_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  lNcam_->setFont(DigitsLike(font(), 2.8));
  lNcam_->setFixedWidth(WidthOf(lNcam_->font(), "00 - 00 "));
  scrVal_->setFixedHeight(32);
  tmsec_->setFont(DigitsLike(font(), 2.2));
  tmsec_->setFixedWidth(WidthOf(tmsec_->font(), "0000") + 18);
  lmsec_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  lmsec_->setMinimumWidth(lmsec_->sizeHint().width());
  BuildLayout();
}

QLabel* ValueEditor::Label(const char* name, const QString& text) {
  QLabel* label = PlainLabel(text);
  label->setObjectName(QString::fromLatin1(name));
  label->setParent(this);
  return label;
}

void ValueEditor::BuildLayout() {
  auto* head = new QVBoxLayout;
  head->setSpacing(2);
  head->addWidget(lantc_);
  head->addWidget(description_);
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setHorizontalSpacing(8);
  layout->setVerticalSpacing(16);
  layout->addLayout(head, 0, 0, 1, 4);
  layout->addWidget(lNcam_, 1, 0, 2, 1, Qt::AlignVCenter);
  layout->addWidget(scrVal_, 1, 1, 1, 3);
  layout->addWidget(lmsec_, 2, 1);
  layout->addWidget(tmsec_, 2, 2);
  layout->setColumnStretch(3, 1);
  layout->setRowStretch(3, 1);
}

void ValueEditor::Show(FunctionValue value, const CamGroup& cams) {
  lantc_->setText(texts_.Text(TitleOf(value)));
  lNcam_->setText(CamsText(cams));
  ShowUnit(value);
}

void ValueEditor::ShowUnit(FunctionValue value) {
  lmsec_->setText(IsRatio(value) ? QStringLiteral("1 /") : QStringLiteral("msec."));
}

void ValueEditor::ShowCam(int cam, const QString& description) {
  const QString number = texts_.Text(TextNumber::CamWord).left(1) + ZeroFilled(cam + 1, 2);
  description_->setText(QString(number + u' ' + description).trimmed());
}

QString ValueEditor::Title() const {
  return lantc_->text() + u' ' + lNcam_->text();
}

}  // namespace nira
