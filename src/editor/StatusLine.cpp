#include "editor/StatusLine.h"

#include "model/Text.h"

namespace nira {

StatusLine::StatusLine(Instance& instance, QStatusBar* bar)
    : QObject(bar),
      instance_(instance),
      bar_(bar),
      port_(Add("StatusPort", false)),
      model_(Add("StatusModel", false)),
      degree_(Add("StatusDegree", true)),
      changed_(Add("StatusChanged", true)) {}

QLabel* StatusLine::Add(const char* name, bool right) {
  auto* label = new QLabel(bar_);
  label->setObjectName(QString::fromLatin1(name));
  label->setTextFormat(Qt::PlainText);
  label->setContentsMargins(8, 0, 8, 0);
  if (right) {
    bar_->addPermanentWidget(label);
  } else {
    bar_->addWidget(label);
  }
  return label;
}

void StatusLine::Show() {
  const CamProgram& program = instance_.Program;
  const Globals& settings = instance_.Settings;
  port_->setText(QStringLiteral("COM%1  %2  ").arg(settings.PortNumber).arg(settings.BaudRate) +
                 instance_.Text(TextNumber::StatusPortNotOpen));
  model_->setText(
      QString::number(program.NumCams()) + u' ' + instance_.Text(TextNumber::StatusCams) +
      QStringLiteral("  ") + QString::number(program.NumSizes()) + u' ' +
      instance_.Text(TextNumber::StatusSizes) + QStringLiteral("  ") +
      QString::number(program.NumMessages()) + u' ' + instance_.Text(TextNumber::StatusMessages));
  const bool changed = program.Revision() != savedRevision_;
  const QString& yes = instance_.Text(TextNumber::StatusChanged);
  const QString& no = instance_.Text(TextNumber::StatusSaved);
  const QFontMetrics metrics(changed_->font());
  changed_->setText(changed ? yes : no);
  changed_->setMinimumWidth(
      std::max(metrics.horizontalAdvance(yes), metrics.horizontalAdvance(no)) + 16);
  degree_->setMinimumWidth(
      metrics.horizontalAdvance(instance_.Text(TextNumber::StatusDegree) + QStringLiteral(" 000")) +
      16);
}

void StatusLine::TakeAsSaved() {
  savedRevision_ = instance_.Program.Revision();
  Show();
}

void StatusLine::ShowDegree(int degree) {
  degree_->setText(degree < 0
                       ? QString()
                       : instance_.Text(TextNumber::StatusDegree) + u' ' + ZeroFilled(degree, 3));
}

}  // namespace nira
