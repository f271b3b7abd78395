// SPDX-License-Identifier: Apache-2.0
#include "messages/PrnMsg.h"

#include <QFileInfo>
#include <QVBoxLayout>

namespace nira {

namespace {

constexpr QSize previewSize(760, 700);

QFont FontOf(const Globals& settings) {
  QFont font;
  font.fromString(settings.MsgFont);
  return font;
}

/// What the heading names: the file, with a word when the messages are no longer what it holds, or
/// what the messages are when they are in none.
QString HeadingOf(const Instance& instance) {
  const QString& file = instance.Settings.MsgFile;
  if (file.isEmpty()) return instance.Text(TextNumber::AlarmMessages);
  return instance.Settings.MsgSaved ? file : file + instance.Text(TextNumber::PrintedModified);
}

}  // namespace

PrnMsg::PrnMsg(Instance& instance, QWidget* parent)
    : QDialog(parent),
      listing_(instance.Program, instance.Texts, HeadingOf(instance), QDateTime::currentDateTime(),
               FontOf(instance.Settings)) {
  setObjectName(QStringLiteral("PrnMsg"));
  setWindowTitle(instance.Text(TextNumber::AlarmMessages));
  auto* pane = new PrintPane(instance);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->addWidget(pane);
  if (const QString& file = instance.Settings.MsgFile; !file.isEmpty()) {
    const QFileInfo info(file);
    pane->ProposeName(info.absolutePath() + u'/' + info.completeBaseName() +
                      QStringLiteral(".pdf"));
  }
  connect(pane, &PrintPane::Closed, this, &QDialog::close);
  resize(previewSize);
  pane->Show(&listing_);
}

}  // namespace nira
