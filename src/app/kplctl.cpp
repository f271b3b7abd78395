#include "app/CommandLine.h"

#include <QGuiApplication>
#include <QTextStream>

#include <cstdio>
#include <memory>

namespace {

/// Few commands draw text; the others start without looking for fonts. None needs a display.
std::unique_ptr<QCoreApplication> MakeApplication(int& argc, char** argv) {
  if (argc > 1 && nira::NeedsFonts(QString::fromLocal8Bit(argv[1]))) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
  }
  return std::make_unique<QCoreApplication>(argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
  const auto application = MakeApplication(argc, argv);
  QTextStream out(stdout);
  QTextStream err(stderr);
  const int status = nira::RunKplctl(QCoreApplication::arguments(), out, err);
  out.flush();
  err.flush();
  const bool printed = out.status() == QTextStream::Ok && std::fflush(stdout) == 0;
  return status == 0 && !printed ? 1 : status;
}
