// SPDX-License-Identifier: Apache-2.0
#include "editor/StatusLine.h"

#include "controls/PlainTip.h"
#include "ground/Text.h"

#include <QFileInfo>
#include <QLabel>
#include <QStatusBar>

namespace nira {

namespace {

/// Reading and note share the room that is left, whatever they say; without a note the reading has
/// all of it.
constexpr int share = 1;

}  // namespace

StatusLine::StatusLine(Instance& instance, QStatusBar* bar)
    : QObject(bar),
      instance_(instance),
      bar_(bar),
      model_(AddModel()),
      degree_(AddReading()),
      note_(AddNote()),
      changed_(AddChip("StatusChanged")),
      sent_(AddChip("StatusSent")) {
  connect(changed_, &StateChip::Clicked, this, [this] {
    if (instance_.Program.Differs()) Q_EMIT SaveWanted();
  });
}

QLabel* StatusLine::AddModel() {
  auto* label = new QLabel(bar_);
  label->setObjectName(QStringLiteral("StatusModel"));
  label->setTextFormat(Qt::PlainText);
  label->setContentsMargins(8, 0, 8, 0);
  bar_->addWidget(label);
  return label;
}

CamLabel* StatusLine::AddReading() {
  auto* label = new CamLabel(bar_);
  label->setObjectName(QStringLiteral("StatusDegree"));
  label->setContentsMargins(8, 0, 8, 0);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  bar_->addWidget(label, share);
  return label;
}

ElidedLabel* StatusLine::AddNote() {
  auto* label = new ElidedLabel;
  label->setObjectName(QStringLiteral("StatusNote"));
  bar_->addWidget(label, share);
  label->hide();
  return label;
}

StateChip* StatusLine::AddChip(const char* name) {
  auto* chip = new StateChip(name, bar_);
  bar_->addPermanentWidget(chip);
  return chip;
}

void StatusLine::Show() {
  const CamProgram& program = instance_.Program;
  model_->setText(
      QString::number(program.NumCams()) + u' ' + instance_.Text(TextNumber::StatusCams) +
      QStringLiteral("  ") + QString::number(program.NumSizes()) + u' ' +
      instance_.Text(TextNumber::StatusSizes) + QStringLiteral("  ") +
      QString::number(program.NumMessages()) + u' ' + instance_.Text(TextNumber::StatusMessages));
  degree_->setMinimumWidth(degree_->fontMetrics().horizontalAdvance(
                               instance_.Text(TextNumber::StatusDegree) + QStringLiteral(" 000")) +
                           16);
  ShowChips();
}

void StatusLine::ShowChips() {
  const CamProgram& program = instance_.Program;
  const bool differs = program.Differs();
  const QString& changed = instance_.Text(TextNumber::StatusChanged);
  const QString& saved = instance_.Text(TextNumber::StatusSaved);
  const QString& noFile = instance_.Text(TextNumber::StatusNoFile);
  changed_->ShowState(differs   ? changed
                      : onFile_ ? saved
                                : noFile,
                      differs, {changed, saved, noFile});
  changed_->setToolTip(differs ? PlainTip(instance_.Text(TextNumber::ClickToSave)) : QString());

  const QString& notSent = instance_.Text(TextNumber::StatusNotSent);
  const bool same = exchange_ && exchange_->revision == program.Revision();
  const QString time = QStringLiteral("00:00");
  const QString& sent = instance_.Text(TextNumber::StatusSent);
  const QString& received = instance_.Text(TextNumber::StatusReceived);
  sent_->ShowState(same ? (exchange_->received ? received : sent) + exchange_->time : notSent,
                   !same, {notSent, sent + time, received + time});
}

void StatusLine::TakeExchange(bool received) {
  exchange_ = {instance_.Program.Revision(), received,
               instance_.Time.TimeOfDay().toString(QStringLiteral("HH:mm"))};
  ShowChips();
}

void StatusLine::ShowNote(const QString& text) {
  note_->setText(text);
  note_->setToolTip(PlainTip(text));
  note_->setVisible(!text.isEmpty());
}

void StatusLine::ShowFile() {
  onFile_ = QFileInfo::exists(instance_.Settings.CurrentFile);
  Show();
}

void StatusLine::ShowLine(int degree, int difference, const QString& on) {
  degree_->setText(Reading(instance_, degree, difference, on));
}

QString StatusLine::Reading(const Comm& comm, int degree, int difference, const QString& on) {
  QString text;
  if (degree >= 0) text = comm.Text(TextNumber::StatusDegree) + u' ' + ZeroFilled(degree, 3);
  if (difference >= 0) text += QStringLiteral("  +") + QString::number(difference) + u'°';
  if (!on.isEmpty()) text += QStringLiteral("  ON: ") + on;
  return text;
}

}  // namespace nira
