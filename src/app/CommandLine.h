#pragma once

#include <QStringList>
#include <QTextStream>

namespace nira {

/// Runs kplctl with its command line (the program's name first) and returns the exit status: that
/// of the command, or 2 when the command line is not understood.
int RunKplctl(const QStringList& arguments, QTextStream& out, QTextStream& err);

/// True when the command of that name draws text, for which the process needs a QGuiApplication.
bool NeedsFonts(const QString& command);

}  // namespace nira
