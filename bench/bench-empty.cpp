// SPDX-License-Identifier: Apache-2.0
// An empty window of Qt and nothing else: what bench-window compares the program's start with.

#include "FirstPaint.h"

#include <QApplication>

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QWidget empty;
  empty.resize(1280, 960);
  new FirstPaint(&empty);
  empty.show();
  return QApplication::exec();
}
