// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/Differences.h"

#include <QString>
#include <QStringList>

namespace nira {

/// "size 3, cam 7: 247-260 in the file, 250-260 in the programmer": `here` and `there` say whose
/// the two sides are.
QString DifferenceWords(const Difference& difference, const QString& here, const QString& there);

/// What the program's cam file does not hold, in words: "size 2, cam 2: 006-009 now, nothing in the
/// file".
QStringList NotKeptInFile(const CamProgram& program);

/// The same of a programmer that it would be sent to.
QStringList NotKeptOnLine(const CamProgram& program);

}  // namespace nira
