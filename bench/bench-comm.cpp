// SPDX-License-Identifier: Apache-2.0
// How long whole transfers take on a line that is paced to the baud rate, beside the least time
// that the wire allows, and what they cost of the processor; then frames with faults.

#include "SimulatedSerial.h"
#include "files/CamFile.h"
#include "ground/SystemClock.h"
#include "line/QtSerialControl.h"
#include "line/SerialLink.h"
#include "line/SizeImport.h"
#include "line/SizeTransfer.h"
#include "line/TransferJobs.h"
#include "line/WireFunctions.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <ctime>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

namespace {

using namespace nira;

constexpr double mostRatio = 1.02;
constexpr double mostProcessor = 0.03;
bool allHeld = true;

/// Ends the measurement, and the simulator with it.
[[noreturn]] void Fail(const QString& reason) {
  throw std::runtime_error(reason.toStdString());
}

QString Sample(const char* name) {
  return QStringLiteral(NIRA_SOURCE_FOLDER "/samples/") + QLatin1String(name);
}

/// Counts the bytes both ways.
class CountingPort : public SerialControl {
 public:
  explicit CountingPort(SerialControl& port) : port_(port) {}

  std::int64_t Sent = 0;
  std::int64_t Received = 0;

  int CommPort() const override { return port_.CommPort(); }
  void CommPort(int number) override { port_.CommPort(number); }
  void InBufferSize(int bytes) override { port_.InBufferSize(bytes); }
  bool PortOpen() const override { return port_.PortOpen(); }
  void PortOpen(bool open) override { port_.PortOpen(open); }
  QString Settings() const override { return port_.Settings(); }
  void Settings(const QString& settings) override { port_.Settings(settings); }
  void InputLen(int characters) override { port_.InputLen(characters); }
  void RThreshold(int characters) override { port_.RThreshold(characters); }
  void Handshaking(int handshake) override { port_.Handshaking(handshake); }
  bool CTSHolding() override { return port_.CTSHolding(); }
  int InBufferCount() override { return port_.InBufferCount(); }
  void DiscardInput() override { port_.DiscardInput(); }
  void DiscardOutput() override { port_.DiscardOutput(); }
  QByteArray Input() override {
    const QByteArray bytes = port_.Input();
    Received += bytes.size();
    return bytes;
  }
  void Output(const QByteArray& bytes) override {
    Sent += bytes.size();
    port_.Output(bytes);
  }
  bool WaitForInput(std::int64_t deadline, Yield yield) override {
    return port_.WaitForInput(deadline, yield);
  }

 private:
  SerialControl& port_;
};

/// Adds up the pauses that the protocol makes.
class CountingClock : public SystemClock {
 public:
  std::int64_t Paused = 0;  ///< milliseconds
  void Pause(int ms, Yield yield) override {
    Paused += ms;
    SystemClock::Pause(ms, yield);
  }
};

/// Any message but those that were asked for is a failure here.
class NoMessages : public Prompts {
 public:
  bool Quiet = false;
  Answer MsgBox(const QString& text, Buttons buttons, Icon /*icon*/,
                const QString& /*title*/) override {
    if (!Quiet) Fail(text);
    return buttons == Buttons::Ok ? Answer::Ok : Answer::Cancel;
  }
  std::optional<QString> InputBox(const QString& /*prompt*/, const QString& /*preset*/,
                                  const QString& /*title*/) override {
    return std::nullopt;
  }
};

class NoReport : public TransferReport {
 public:
  void Title(const QString& /*text*/) override {}
  void Label1(const QString& /*text*/) override {}
  void Label2(const QString& /*text*/) override {}
  void Progress(int /*percent*/) override {}
};

void LoadPress(CamProgram& program) {
  if (!LoadCamFile(program, Sample("press.CAM"))) Fail(QStringLiteral("no sample"));
}

/// The programmer as a process of its own, so that its work is not counted as the tool's.
class SimulatorProcess {
 public:
  SimulatorProcess(const QString& folder, int baud) {
    process_.setWorkingDirectory(folder);
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QString program =
        QCoreApplication::applicationDirPath() + QStringLiteral("/bench-programmer");
    process_.start(program, {QString::number(baud)});
    if (!process_.waitForReadyRead(10'000)) Fail(QStringLiteral("the simulator does not start"));
  }
  ~SimulatorProcess() {
    process_.terminate();
    process_.waitForFinished();
  }
  SimulatorProcess(const SimulatorProcess&) = delete;
  SimulatorProcess& operator=(const SimulatorProcess&) = delete;

 private:
  QProcess process_;
};

double ProcessorSeconds() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// The tool's side of a real port.
struct Tool {
  Tool(const QString& path, int baud) : folder(path) {
    settings.BaudRate = baud;
    settings.PortNumber = 1;
    texts.Read(QStringLiteral(NIRA_SOURCE_FOLDER "/lang/p32qx_EN.SCR"));
  }

  TransferEnd RunJob(const Job& job) { return TransferJobs(comm, report).Run(job); }

  /// A message job as the menu runs it, but for the choice of the file.
  TransferEnd RunMessages(const char* code, const QString& file) {
    WorkFile into(file);
    const TransferEnd end = RunJob({code, file, &into});
    return SerialLink(comm).ClosePort() ? end : TransferEnd::PortError;
  }

  WorkingFolder folder;
  CamProgram program;
  Globals settings;
  MessageTable texts;
  FileWriter writer;
  NoMessages prompts;
  NoReport report;
  CountingClock clock;
  SystemClock portsOwn;  // what a port waits for is no pause of the protocol
  PortNames names{folder};
  QtSerialControl port{names, texts, portsOwn};
  CountingPort counted{port};
  Comm comm{counted, clock, program, settings, texts, writer, folder, prompts};
};

void Measure(const char* what, Tool& tool, const std::function<TransferEnd()>& exchange) {
  tool.counted.Sent = 0;
  tool.counted.Received = 0;
  tool.clock.Paused = 0;
  const double processorBefore = ProcessorSeconds();
  QElapsedTimer timer;
  timer.start();
  if (exchange() != TransferEnd::Done) Fail(QLatin1String(what) + QStringLiteral(" failed"));
  const double took = static_cast<double>(timer.nsecsElapsed()) / 1e9;
  const double processor = (ProcessorSeconds() - processorBefore) / took;
  const auto bytes = static_cast<double>(tool.counted.Sent + tool.counted.Received);
  const double least =
      bytes * 10 / tool.settings.BaudRate + static_cast<double>(tool.clock.Paused) / 1000;
  const double ratio = took / least;
  const bool held = ratio <= mostRatio && processor < mostProcessor;
  allHeld = allHeld && held;
  QTextStream(stdout) << QString::asprintf(
      "  %-18s %6d out %6d in %6.3f s paused %8.3f s took %8.3f s least  ratio %.4f  cpu %.2f "
      "%%%s\n",
      what, static_cast<int>(tool.counted.Sent), static_cast<int>(tool.counted.Received),
      static_cast<double>(tool.clock.Paused) / 1000, took, least, ratio, processor * 100,
      held ? "" : "  MISSED");
}

/// The frames of the work file of a reception, END among them.
int LinesOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return 0;
  return static_cast<int>(file.readAll().count('\n'));
}

void MeasureAt(int baud) {
  const QTemporaryDir folder;
  if (!folder.isValid()) Fail(folder.errorString());
  const SimulatorProcess simulator(folder.path(), baud);
  QTextStream(stdout) << "press.CAM and press_IT.MSG at " << baud << " baud\n";
  Tool tool(folder.path(), baud);
  LoadPress(tool.program);
  const std::vector<std::string> functions = FunctionsRecords(tool.program);
  const CamProgram sent = tool.program;
  Measure("send sizes", tool, [&] {
    return SizeTransfer(tool.comm).Tr_Siz([&](const Job& job) { return tool.RunJob(job); });
  });
  tool.program.ResetProgram();
  tool.program.IsSaved = true;
  Measure("receive sizes", tool, [&] {
    return SizeTransfer(tool.comm).Rc_Siz([&](const Job& job) { return tool.RunJob(job); });
  });
  for (int size = 1; size <= sent.NumSizes(); ++size) {
    for (int cam = 0; cam < sent.NumCams(); ++cam) {
      if (sent.CamMap(size, cam) != tool.program.CamMap(size, cam)) Fail(QStringLiteral("lost"));
    }
  }
  Measure("send messages", tool,
          [&] { return tool.RunMessages(Job::SendMessages, Sample("press_IT.MSG")); });
  const QString received = QDir(folder.path()).filePath(QStringLiteral("received.MSG"));
  Measure("receive messages", tool,
          [&] { return tool.RunMessages(Job::ReceiveMessages, received); });
  if (LinesOf(received) != 256) Fail(QStringLiteral("messages are missing"));
}

/// What 10,000 frames with a kind of fault in one of twenty came to.
struct Faulty {
  int jobs = 0;
  std::int64_t frames = 0;
  std::map<TransferEnd, int> ends;
  int whole = 0;  ///< jobs after which both sides hold the same
  double virtualHours = 0;
};

/// Runs a job again and again on virtual time until so many frames have gone over the line.
class FaultyRuns {
 public:
  FaultyRuns(const char* code, const QString& kind, const CamProgram& sample, const QString& folder)
      : code_(code), kind_(kind), sample_(sample), working_(folder) {}

  Faulty Run() {
    constexpr int enough = 10'000;
    while (result_.frames < enough) RunOnce(++result_.jobs);
    return result_;
  }

 private:
  bool Sends() const { return code_ == QLatin1String(Job::SendSizes); }

  void RunOnce(int seed) {
    Faults faults;
    const QString word = QStringLiteral("random=%1,").arg(seed) + kind_;
    if (const QString reason = faults.Add(word); !reason.isEmpty()) Fail(reason);
    ProgrammerState state(sample_.NumCams(), sample_.NumSizes(), CamProgram::MaxMessages);
    if (!Sends()) state.Load(sample_);
    Programmer device(std::move(state), std::move(faults));
    if (Sends()) {
      device.Finished = [this](const Programmer::Job& job) { result_.frames += job.frames; };
    }
    SimulatedSerial serial(device);
    const auto program = std::make_unique<CamProgram>(sample_);
    if (!Sends()) program->ResetProgram();
    Globals settings;
    NoMessages prompts;
    prompts.Quiet = true;
    NoReport report;
    FileWriter writer;
    MessageTable texts;
    Comm comm{serial, serial, *program, settings, texts, writer, working_, prompts};
    WorkFile into(working_.Find(QString::fromLatin1(WorkFile::Sizes)));
    TransferEnd end = TransferJobs(comm, report).Run({code_, {}, &into});
    const bool came = end == TransferEnd::Done && !Sends();
    if (came && SizeImport(*program).Import(into.Content().toStdString()))
      end = TransferEnd::BadFile;
    SerialLink(comm).ClosePort();
    ++result_.ends[end];
    // Frames to the programmer are counted there; those from it cost an acknowledgement each.
    if (!Sends()) result_.frames += serial.BytesSent();
    if (end == TransferEnd::Done && SameRows(device.State, *program)) ++result_.whole;
    result_.virtualHours += static_cast<double>(serial.Now()) / 3.6e6;
  }

  static bool SameRows(const ProgrammerState& state, const CamProgram& program) {
    for (int size = 1; size <= program.NumSizes(); ++size) {
      for (int cam = 0; cam < program.NumCams(); ++cam) {
        if (state.Row(size, cam) != program.CamMap(size, cam)) return false;
      }
    }
    return true;
  }

  const char* code_;
  QString kind_;
  const CamProgram& sample_;
  WorkingFolder working_;
  Faulty result_;
};

/// Repeats are what the protocol has against a refused frame and against noise before the answer;
/// only a job that ended `Done` may be relied on, and then it must be whole.
void MeasureFaults(const char* code, const char* kind, bool recoverable) {
  const QTemporaryDir folder;
  CamProgram sample;
  LoadPress(sample);
  const Faulty result = FaultyRuns(code, QLatin1String(kind), sample, folder.path()).Run();
  const auto ended = [&result](TransferEnd end) {
    const auto found = result.ends.find(end);
    return found == result.ends.end() ? 0 : found->second;
  };
  const int done = ended(TransferEnd::Done);
  const bool held = recoverable ? result.whole == result.jobs : result.whole == done;
  allHeld = allHeld && held;
  QTextStream(stdout) << QString::asprintf(
      "  %s %-12s %6d frames in %4d jobs: %4d done, %4d of them whole, %4d timed out, %3d bad "
      "file; %.2f h on the line%s\n",
      code, kind, static_cast<int>(result.frames), result.jobs, done, result.whole,
      ended(TransferEnd::TimedOut), ended(TransferEnd::BadFile), result.virtualHours,
      held ? "" : "  MISSED");
}

void MeasureAllFaults() {
  QTextStream(stdout) << "10,000 frames, one in twenty with a fault, on virtual time\n";
  for (const char* kind : {"nak", "noise", "double-ack", "lost-ack", "late", "bad-checksum"}) {
    const QLatin1String name(kind);
    const bool repeated = name == QLatin1String("nak") || name == QLatin1String("noise") ||
                          name == QLatin1String("bad-checksum");
    MeasureFaults(Job::SendSizes, kind, repeated);
    MeasureFaults(Job::ReceiveSizes, kind, name == QLatin1String("nak"));
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  try {
    MeasureAllFaults();
    MeasureAt(9600);
    MeasureAt(19200);
  } catch (const std::runtime_error& error) {
    QTextStream(stderr) << error.what() << '\n';
    return 1;
  }
  return allHeld ? 0 : 1;
}
