// SPDX-License-Identifier: Apache-2.0
// An empty window of Qt and nothing else: what bench-window compares the program's start with. With
// the argument "word" there is one word in it: the least that any window costs which shows text,
// because Qt reads the fonts of the system for it.

#include "FirstPaint.h"

#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QWidget empty;
  empty.resize(1280, 960);
  QWidget* painted = &empty;
  if (QApplication::arguments().contains(QStringLiteral("word"))) {
    painted = new QLabel(QStringLiteral("word"), &empty);
  }
  new FirstPaint(painted);
  empty.show();
  return QApplication::exec();
}
