// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTextStream>
#include <QTimer>
#include <QWidget>

#include <chrono>

/// Milliseconds since 1970, for times that two processes compare.
inline double Now() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration<double, std::milli>(now).count();
}

/// Prints when the widget has been painted for the first time, and ends the program.
class FirstPaint : public QObject {
 public:
  explicit FirstPaint(QWidget* widget) : QObject(widget) { widget->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      watched->removeEventFilter(this);
      QTimer::singleShot(0, this, [] {
        QTextStream(stdout) << QString::number(Now(), 'f', 3) << Qt::endl;
        QCoreApplication::exit(0);
      });
    }
    return false;
  }
};
