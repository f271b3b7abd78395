// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>
#include <QTextStream>

namespace nira {

/// Runs kplctl with its command line (the program's name first) and returns the exit status: that
/// of the command, or 2 when the command line is not understood.
int RunKplctl(const QStringList& arguments, QTextStream& out, QTextStream& err);

/// True when this command line runs a command that draws text, for which the process needs a
/// QGuiApplication. Wants no application itself.
bool NeedsFonts(const QStringList& arguments);

}  // namespace nira
