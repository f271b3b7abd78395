// SPDX-License-Identifier: Apache-2.0
#include "controls/OkCancelRow.h"

namespace nira {

OkCancelRow::OkCancelRow(QDialog* dialog, const char* okName, const char* cancelName,
                         const QString& cancel)
    : Ok(new QPushButton(QStringLiteral("OK"))),
      Cancel(new QPushButton(cancel)),
      Layout(new QHBoxLayout) {
  Ok->setObjectName(QString::fromLatin1(okName));
  Ok->setDefault(true);
  Cancel->setObjectName(QString::fromLatin1(cancelName));
  QObject::connect(Cancel, &QPushButton::clicked, dialog, &QDialog::reject);
  Layout->setSpacing(8);
  Layout->addStretch();
  Layout->addWidget(Ok);
  Layout->addWidget(Cancel);
}

}  // namespace nira
