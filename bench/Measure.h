// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <vector>

/// What the measurements share: how often they run and how they print.
namespace nira_bench {

[[noreturn]] inline void Fail(const QString& reason) {
  QTextStream(stderr) << reason << '\n';
  std::exit(1);
}

/// The median of several runs in milliseconds, after one that fills the caches.
inline double Median(const std::function<void()>& work) {
  constexpr int runs = 21;
  work();
  std::vector<double> times;
  for (int run = 0; run < runs; ++run) {
    QElapsedTimer timer;
    timer.start();
    work();
    times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  std::nth_element(times.begin(), times.begin() + runs / 2, times.end());
  return times[runs / 2];
}

inline bool HasProgram(const QString& program) {
  return !QStandardPaths::findExecutable(program).isEmpty();
}

/// The same for a program that is started and ends well.
inline double ProcessMedian(const QString& program, const QStringList& arguments) {
  return Median([&program, &arguments] {
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0) Fail(program + u" failed");
  });
}

inline void Report(const char* what, double ms, double megabytes) {
  QTextStream(stdout) << "  " << qSetFieldWidth(32) << Qt::left << what << qSetFieldWidth(0)
                      << QString::asprintf("%8.2f ms %8.1f MB/s\n", ms, megabytes / ms * 1000);
}

inline void ReportRatio(const char* what, double ratio) {
  QTextStream(stdout) << "  " << qSetFieldWidth(32) << Qt::left << what << qSetFieldWidth(0)
                      << QString::asprintf("%8.2f\n", ratio);
}

}  // namespace nira_bench
