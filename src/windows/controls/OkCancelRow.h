// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>

namespace nira {

/// The last row of a dialog: its default button "OK" and the one that closes it without a change,
/// named as the dialog names them. Pressing OK is the dialog's to answer.
struct OkCancelRow {
  OkCancelRow(QDialog* dialog, const char* okName, const char* cancelName, const QString& cancel);

  QPushButton* Ok;
  QPushButton* Cancel;
  QHBoxLayout* Layout;
};

}  // namespace nira
