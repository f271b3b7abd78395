// SPDX-License-Identifier: Apache-2.0
// How long the largest cam files take to read and to write, beside `wc -l` on the same file.

#include "Measure.h"
#include "Programs.h"
#include "files/CamFile.h"
#include "files/CamLines.h"
#include "files/FileWriter.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace nira;
using namespace nira_bench;

qint64 CountLines(const QString& path) {
  static std::vector<char> buffer(1 << 17);
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) Fail(file.errorString());
  qint64 lines = 0;
  qint64 got = 0;
  while ((got = file.read(buffer.data(), static_cast<qint64>(buffer.size()))) > 0) {
    const char* from = buffer.data();
    const char* end = from + got;
    const auto next = [&] {
      return static_cast<const char*>(
          std::memchr(from, '\n', static_cast<std::size_t>(end - from)));
    };
    for (const char* found = next(); found != nullptr; found = next()) {
      ++lines;
      from = found + 1;
    }
  }
  return lines;
}

/// `wc -l` as a process; 0 where there is none.
double WordCount(const QString& path) {
  const QString wc = QStringLiteral("wc");
  return HasProgram(wc) ? ProcessMedian(wc, {QStringLiteral("-l"), path}) : 0;
}

void Measure(const QString& path, int sizes, int cams) {
  CamProgram program = FullProgram(sizes, cams);
  const std::string expected = WriteCamFile(program);
  const double megabytes = static_cast<double>(expected.size()) / 1e6;
  QTextStream(stdout) << sizes << " sizes, " << cams
                      << " cams: " << QString::number(megabytes, 'f', 2) << " MB, "
                      << std::count(expected.begin(), expected.end(), '\n') << " lines\n";

  FileWriter writer;
  std::string bytes;
  const double building = Median([&] { bytes = WriteCamFile(program); });
  const double saving = Median([&] {
    if (writer.Write(path, WriteCamFile(program), FileWriter::Backup::No)) Fail(path);
  });

  CamProgram loaded;
  loaded.SetLimits(sizes, cams, CamProgram::MaxMessages);
  const double loading = Median([&] {
    if (!LoadCamFile(loaded, path)) Fail(path);
  });
  if (bytes != expected || WriteCamFile(loaded) != expected) Fail(QStringLiteral("not the same"));

  const qint64 lines = std::count(expected.begin(), expected.end(), '\n');
  const double counting = Median([&path, lines] {
    if (CountLines(path) != lines) Fail(QStringLiteral("lines are missing"));
  });
  const double process = WordCount(path);
  Report("load", loading, megabytes);
  Report("write in memory", building, megabytes);
  Report("write to the file", saving, megabytes);
  Report("count lines in this process", counting, megabytes);
  if (process > 0) Report("wc -l as a process", process, megabytes);
  ReportRatio("load / count in this process", loading / counting);
  if (process > 0) ReportRatio("load / wc -l as a process", loading / process);
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QTemporaryDir folder;
  if (!folder.isValid()) Fail(folder.errorString());
  Measure(folder.filePath(QStringLiteral("wide.CAM")), 99, 16);
  Measure(folder.filePath(QStringLiteral("deep.CAM")), 89, 32);
  return 0;
}
