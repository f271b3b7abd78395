// SPDX-License-Identifier: Apache-2.0
#include "CommandLine.h"

#include <QGuiApplication>
#include <QTextStream>

#include <cstdio>
#include <memory>

namespace {

QStringList ArgumentsOf(int argc, char** argv) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
  return arguments;
}

/// While Qt starts, its remarks on the session (that a folder is not set) are nothing to a script.
void TellFailures(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(text));
}

/// Few commands draw text; the others start without looking for fonts. None needs a display. Qt
/// sees the program's name alone: what else stands there is no option of Qt's.
std::unique_ptr<QCoreApplication> MakeApplication(int& argc, char** argv, bool fonts) {
  if (!fonts) return std::make_unique<QCoreApplication>(argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(TellFailures);
  auto application = std::make_unique<QGuiApplication>(argc, argv);
  qInstallMessageHandler(nullptr);
  return application;
}

}  // namespace

int main(int argc, char** argv) {
  const QStringList arguments = ArgumentsOf(argc, argv);
  int named = argc > 0 ? 1 : 0;
  const auto application = MakeApplication(named, argv, nira::NeedsFonts(arguments));
  QTextStream out(stdout);
  QTextStream err(stderr);
  const int status = nira::RunKplctl(arguments, out, err);
  out.flush();
  err.flush();
  const bool printed = out.status() == QTextStream::Ok && std::fflush(stdout) == 0;
  return status == 0 && !printed ? 1 : status;
}
