// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"

#include <QString>
#include <QStringList>

#include <algorithm>

namespace nira {

/// The row of the runs "10-20 350-360": each from its first degree to the one after its last.
inline CamRow RowOf(const QString& runs) {
  CamRow row{};
  for (const QString& run : runs.split(u' ', Qt::SkipEmptyParts)) {
    const int first = run.section(u'-', 0, 0).toInt();
    const int last = run.section(u'-', 1).toInt();
    std::fill(row.begin() + first, row.begin() + last, std::uint8_t{1});
  }
  return row;
}

/// The same the other way round; a cell that is neither 0 nor 1 is named.
inline QString RunsOf(const CamRow& row) {
  QStringList runs;
  for (auto cell = row.begin(); cell != row.end();) {
    const auto end = std::find_if(cell, row.end(), [&cell](auto other) { return other != *cell; });
    const auto degree = [&row](auto place) { return QString::number(place - row.begin()); };
    if (*cell > 1) runs.append(QStringLiteral("cell holds ") + QString::number(*cell));
    if (*cell != 0) runs.append(degree(cell) + u'-' + degree(end));
    cell = end;
  }
  return runs.join(u' ');
}

/// All that is not empty, "1.2: 10-20" for cam 2 of size 1 and "2 = text" for its description.
inline QString ContentOf(const CamProgram& program) {
  QStringList parts;
  for (int size = 1; size <= program.NumSizes(); ++size) {
    for (int cam = 0; cam < program.NumCams(); ++cam) {
      const QString runs = RunsOf(program.CamMap(size, cam));
      if (runs.isEmpty()) continue;
      parts.append(QString::number(size) + u'.' + QString::number(cam + 1) + u": " + runs);
    }
  }
  for (int cam = 0; cam < program.NumCams(); ++cam) {
    const QString& text = program.CamText(cam);
    if (!text.isEmpty()) parts.append(QString::number(cam + 1) + u" = " + text);
  }
  return parts.join(QStringLiteral("; "));
}

}  // namespace nira
