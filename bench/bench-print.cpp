// SPDX-License-Identifier: Apache-2.0
// How fast the sizes of a program become a PDF, and how the memory grows with the pages. Without
// arguments it measures itself in processes of their own, so that each peak stands alone.

#include "ListingPainter.h"
#include "Programs.h"
#include "listing/Listing.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QTextStream>

#include <cstdlib>

namespace {

using namespace nira;

/// Peak memory of this process in MB; 0 where the system does not tell it.
double PeakMemory() {
  QFile status(QStringLiteral("/proc/self/status"));
  if (!status.open(QIODevice::ReadOnly)) return 0;
  const QList<QByteArray> lines = status.readAll().split('\n');
  for (const QByteArray& line : lines) {
    if (line.startsWith("VmHWM:"))
      return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
  }
  return 0;
}

/// Prints how long `sizes` sizes of a program took as a PDF.
void Measure(const CamProgram& program, int sizes, const QString& file) {
  MessageTable texts;
  ListingOptions options;
  options.LastSize = sizes;
  const Listing listing(program, texts, QStringLiteral("bench.cam"), QDateTime(), options);
  ListingPainter painter(listing);
  const double before = PeakMemory();
  QElapsedTimer timer;
  timer.start();
  const QPageLayout paper(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF());
  const QByteArray pdf = PdfOf(painter, paper);
  const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
  timer.restart();
  const int pages = painter.LayOut(QSizeF(5950, 8420));
  const double layout = static_cast<double>(timer.nsecsElapsed()) / 1e6;
  const double megabytes = double(pdf.size()) / (1 << 20);
  QTextStream(stdout) << QStringLiteral(
                             "%1 sizes: %2 pages laid out in %8 ms, %3 s, %4 pages/s, file %5 MB, "
                             "peak %6 MB, of it %7 MB for the document\n")
                             .arg(sizes, 2)
                             .arg(pages, 4)
                             .arg(seconds, 0, 'f', 2)
                             .arg(pages / seconds, 0, 'f', 0)
                             .arg(megabytes, 0, 'f', 2)
                             .arg(PeakMemory(), 0, 'f', 1)
                             .arg(PeakMemory() - before, 0, 'f', 1)
                             .arg(layout, 0, 'f', 1);
  if (file.isEmpty()) return;
  QFile out(file);
  if (!out.open(QIODevice::WriteOnly) || out.write(pdf) != pdf.size()) std::exit(1);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() > 2) {
    const bool full = arguments.at(1) == QStringLiteral("full");
    const CamProgram program =
        full ? nira_bench::FullProgram(99, 16) : nira_bench::UsualProgram(99, 16);
    Measure(program, arguments.at(2).toInt(), arguments.value(3));
    return 0;
  }
  for (const char* kind : {"usual", "full"}) {
    QTextStream(stdout) << kind << " program\n" << Qt::flush;
    for (const char* sizes : {"1", "10", "50", "99"}) {
      const QStringList one{QString::fromLatin1(kind), QString::fromLatin1(sizes)};
      if (QProcess::execute(QGuiApplication::applicationFilePath(), one) != 0) return 1;
    }
  }
  return 0;
}
