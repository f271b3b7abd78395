// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/TransferReport.h"

#include <QTextStream>

namespace nira {

/// Shows a job on the command line: on a terminal as a bar that grows in its line, otherwise as a
/// line at each tenth of the job.
class LineProgress : public TransferReport {
 public:
  LineProgress(QTextStream& lines, bool terminal) : lines_(lines), terminal_(terminal) {}

  void Title(const QString& text) override { title_ = text; }
  void Label1(const QString& text) override;
  void Label2(const QString& text) override;
  void Progress(int percent) override;
  void Count(const TransferCount& count) override;

  /// Ends the line of the bar, so that something else can be printed.
  void Break();

 private:
  void Draw();

  QTextStream& lines_;
  bool terminal_;
  bool drawn_ = false;  // the cursor stands behind a bar
  QString title_;
  QString item_;
  QString left_;  // how long it will still take
  int percent_ = 0;
};

/// True when what is written to the stream is shown on a terminal.
bool IsTerminal(const QTextStream& stream);

}  // namespace nira
