// SPDX-License-Identifier: Apache-2.0
// How long the sample firmware takes to the programmer at 19200 baud, from its first line to the
// last acknowledgement, beside what the line needs for these bytes: on the simulator's virtual
// time, and over a pseudo-terminal on which bench-programmer is the programmer.

#include "Measure.h"
#include "SimulatedSerial.h"
#include "ground/SystemClock.h"
#include "line/FlashUpdate.h"
#include "line/PortNames.h"
#include "line/QtSerialControl.h"

#include <QCoreApplication>
#include <QTemporaryDir>

namespace {

using namespace nira;
using namespace nira_bench;

const QString sample = QStringLiteral(NIRA_SOURCE_FOLDER "/samples/firmware.abs");

/// The operator who says yes, and the watch that he holds.
class Watch : public Prompts, public FlashReport {
 public:
  explicit Watch(const Clock& clock) : clock_(clock) {}

  Answer MsgBox(const QString& text, Buttons buttons, Icon, const QString&) override {
    if (buttons != Buttons::YesNo) Fail(text);
    return Answer::Yes;
  }
  std::optional<QString> InputBox(const QString&, const QString&, const QString&) override {
    return std::nullopt;
  }
  void Show(FlashLine line, const QString&) override {
    if (line == FlashLine::Message) Milliseconds = clock_.Now() - begun_;
  }
  void Ready(bool) override {}
  void Refused(int) override { begun_ = clock_.Now(); }  // the first line has just been written
  void Progress(int) override {}

  std::int64_t Milliseconds = 0;  ///< of the transfer

 private:
  const Clock& clock_;
  std::int64_t begun_ = 0;
};

/// Milliseconds that the line needs: each line with its CR, and an acknowledgement.
double Least() {
  constexpr double byteTime = 10.0 / 19200 * 1000;
  double bytes = 0;
  HexFile file(sample);
  while (const HexLine* line = file.Next()) bytes += static_cast<double>(line->Text.size()) + 2;
  return bytes * byteTime;
}

void Transfer(const char* what, SerialControl& port, Clock& clock, const QString& folder) {
  CamProgram program;
  Globals settings;
  MessageTable texts;
  FileWriter writer;
  const WorkingFolder working(folder);
  Watch watch(clock);
  Comm comm{port, clock, program, settings, texts, writer, working, watch};
  if (FlashUpdate(comm, watch, sample).Run() != TransferEnd::Done) Fail(sample);
  const auto ms = static_cast<double>(watch.Milliseconds);
  QTextStream(stdout) << QString::asprintf("  %-32s%8.0f ms, the line alone %.0f ms, ratio %.4f\n",
                                           what, ms, Least(), ms / Least());
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QTemporaryDir folder;
  if (!folder.isValid()) Fail(folder.errorString());
  Programmer device;
  SimulatedSerial simulated(device);
  Transfer("on virtual time", simulated, simulated, folder.path());

  QProcess programmer;
  programmer.setWorkingDirectory(folder.path());
  programmer.start(QCoreApplication::applicationDirPath() + QStringLiteral("/bench-programmer"),
                   QStringList());
  if (!programmer.waitForReadyRead()) Fail(QStringLiteral("bench-programmer does not start"));
  MessageTable texts;
  const WorkingFolder working(folder.path());
  const PortNames names(working);
  SystemClock clock;
  QtSerialControl serial(names, texts, clock);
  Transfer("over a pseudo-terminal", serial, clock, folder.path());
  programmer.terminate();
  programmer.waitForFinished();
  return 0;
}
