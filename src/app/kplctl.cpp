#include "app/CommandLine.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  QTextStream out(stdout);
  QTextStream err(stderr);
  const int status = nira::RunKplctl(QCoreApplication::arguments(), out, err);
  out.flush();
  err.flush();
  const bool printed = out.status() == QTextStream::Ok && std::fflush(stdout) == 0;
  return status == 0 && !printed ? 1 : status;
}
