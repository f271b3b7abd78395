// SPDX-License-Identifier: Apache-2.0
// How long the test pass of a firmware update takes on a HEX file of 4 MB, beside `srec_info` on
// the same file.

#include "../samples/HexText.h"
#include "Measure.h"
#include "ground/SystemClock.h"
#include "line/FlashUpdate.h"
#include "line/PortNames.h"
#include "line/QtSerialControl.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <random>

namespace {

using namespace nira;
using namespace nira_bench;

/// A good file asks and shows nothing that matters.
class Nobody : public Prompts, public FlashReport {
 public:
  Answer MsgBox(const QString& text, Buttons, Icon, const QString&) override { Fail(text); }
  std::optional<QString> InputBox(const QString&, const QString&, const QString&) override {
    return std::nullopt;
  }
  void Show(FlashLine, const QString&) override {}
  void Ready(bool) override {}
  void Refused(int) override {}
  void Progress(int) override {}
};

/// A file of 4 MB of text, lines of 16 bytes that look like code.
double WriteFile(const QString& path) {
  constexpr std::size_t imageBytes = 1'430'000;
  HexBytes image(imageBytes);
  std::minstd_rand row(4);
  for (unsigned char& byte : image) byte = static_cast<unsigned char>(row() >> 8U);
  const QByteArray text = QByteArray::fromStdString(HexFileText(image, 0, 16));
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) Fail(path);
  return static_cast<double>(text.size()) / 1e6;
}

/// The test pass alone; the port stays closed.
double TestPass(const QString& path, const QString& folder) {
  CamProgram program;
  Globals settings;
  MessageTable texts;
  FileWriter writer;
  const WorkingFolder working(folder);
  const PortNames names(working);
  SystemClock clock;
  Nobody nobody;
  QtSerialControl serial(names, texts, clock);
  Comm comm{serial, clock, program, settings, texts, writer, working, nobody};
  return Median([&] {
    if (FlashUpdate(comm, nobody, path).Test() != TransferEnd::Done) Fail(path);
  });
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QTemporaryDir folder;
  if (!folder.isValid()) Fail(folder.errorString());
  const QString path = folder.filePath(QStringLiteral("firmware.abs"));
  const double megabytes = WriteFile(path);
  QTextStream(stdout) << "HEX file of " << QString::number(megabytes, 'f', 2) << " MB\n";
  const double test = TestPass(path, folder.path());
  Report("test pass", test, megabytes);
  const QString kplctl = QCoreApplication::applicationDirPath() + QStringLiteral("/kplctl");
  const bool hasKplctl = QFile::exists(kplctl);
  const double check = hasKplctl ? ProcessMedian(kplctl, {QStringLiteral("check"), path}) : 0;
  if (hasKplctl) Report("kplctl check as a process", check, megabytes);
  const QString info = QStringLiteral("srec_info");
  if (!HasProgram(info)) {
    QTextStream(stdout) << "  srec_info is missing (Debian's package srecord): no ratio\n";
    return 0;
  }
  const double other = ProcessMedian(info, {path, QStringLiteral("-intel")});
  Report("srec_info as a process", other, megabytes);
  ReportRatio("test pass / srec_info", test / other);
  if (hasKplctl) ReportRatio("kplctl check / srec_info", check / other);
  return 0;
}
