// SPDX-License-Identifier: Apache-2.0
#include "dialogs/About.h"

#include "controls/ThemedIcon.h"
#include "files/TextNumbers.h"
#include "ground/ProgramTitle.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace nira {

About::About(const MessageTable& texts, Prompts& prompts, QWidget* parent)
    : QDialog(parent), texts_(texts), prompts_(prompts) {
  setObjectName(QStringLiteral("About"));
  setWindowTitle(texts.Text(TextNumber::AboutTitle));

  auto* picture = new QLabel;
  picture->setPixmap(ThemedIcon(QStringLiteral("nira-kpl"), palette()).pixmap(64, 64));
  auto* name = new QLabel(QString::fromLatin1(ProgramTitle));
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * 1.6);
  large.setBold(true);
  name->setFont(large);
  auto* version =
      new QLabel(texts.Text(TextNumber::AboutVersion) + QApplication::applicationVersion());
  version->setObjectName(QStringLiteral("Version"));
  auto* purpose = new QLabel(texts.Text(TextNumber::AboutPurpose));
  for (QLabel* label : {name, version, purpose}) label->setTextFormat(Qt::PlainText);

  auto* words = new QVBoxLayout;
  words->setSpacing(8);
  words->addWidget(name);
  words->addWidget(version);
  words->addWidget(purpose);
  words->addStretch();
  auto* head = new QHBoxLayout;
  head->setSpacing(16);
  head->addWidget(picture, 0, Qt::AlignTop);
  head->addLayout(words, 1);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
  auto* system =
      buttons->addButton(texts.Text(TextNumber::AboutSystemInfo), QDialogButtonBox::ActionRole);
  system->setObjectName(QStringLiteral("SystemInformation"));
  system->setAutoDefault(false);
  connect(system, &QPushButton::clicked, this, [this] { ShowSystemInformation(SystemTools()); });
  auto* manual =
      buttons->addButton(texts.Text(TextNumber::ManualButton), QDialogButtonBox::HelpRole);
  manual->setObjectName(QStringLiteral("ManualButton"));
  manual->setToolTip(QStringLiteral("F1"));
  manual->setAutoDefault(false);
  connect(manual, &QPushButton::clicked, this, [this] {
    accept();  // the manual answers only when no dialog is open
    Q_EMIT ManualWanted();
  });
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 12);
  layout->setSpacing(16);
  layout->addLayout(head);
  layout->addWidget(buttons);
}

void About::ShowSystemInformation(const QStringList& tools) {
  for (const QString& tool : tools) {
    const QString program = QStandardPaths::findExecutable(tool);
    if (!program.isEmpty() && QProcess::startDetached(program, {})) return;
  }
  prompts_.MsgBox(texts_.Text(TextNumber::NoSystemTool), Buttons::Ok, Icon::Information);
}

}  // namespace nira
