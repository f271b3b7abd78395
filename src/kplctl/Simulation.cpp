// SPDX-License-Identifier: Apache-2.0
#include "Simulation.h"

#include "CamFileAccess.h"
#include "ConsolePrompts.h"
#include "Interrupt.h"
#include "Printable.h"
#include "PtyLink.h"
#include "files/LineReader.h"

#include <QEventLoop>

#include <algorithm>

namespace nira {

namespace {

constexpr int goodStatus = 0;
constexpr int failedStatus = 1;

/// The numbers of a model, from the options or from the program that it holds.
struct Model {
  std::int64_t cams = 32;
  std::int64_t sizes = 22;
  std::int64_t messages = CamProgram::MaxMessages;
};

/// What is wrong with a number of the model; empty when nothing.
QString Impossible(std::int64_t number, const char* what, int most) {
  if (number >= 1 && number <= most) return {};
  return QString::number(number) + u' ' + QLatin1String(what) + QStringLiteral(": 1 to ") +
         QString::number(most) + QStringLiteral(" are possible");
}

QString CheckModel(const Model& model) {
  QString reason = Impossible(model.cams, "cams", CamProgram::MaxCams);
  if (reason.isEmpty()) reason = Impossible(model.sizes, "sizes", CamProgram::MaxSizes);
  if (reason.isEmpty()) reason = Impossible(model.messages, "messages", CamProgram::MaxMessages);
  return reason;
}

/// A run of the simulator, from its options to the interrupt.
class Simulation {
 public:
  Simulation(const SimulateOptions& options, QTextStream& out, QTextStream& err)
      : options_(options), out_(out), err_(err) {}

  int Run();

 private:
  QString Prepare();
  QString ReadModel(Model& model) const;
  QString ReadProgram(ProgrammerState& state);
  void Follow(PtyLink& link, QEventLoop& loop);
  void TellJob(const Programmer::Job& job);
  QString FirmwareText() const;
  void Tell(const QString& text);
  int Fail(const QString& reason);

  const SimulateOptions& options_;
  QTextStream& out_;
  QTextStream& err_;
  std::optional<FirmwareImage> expected_;
  std::optional<Programmer> programmer_;
  int status_ = goodStatus;
};

void Simulation::Tell(const QString& text) {
  out_ << Printable(text) << '\n';
  out_.flush();
}

QString Simulation::ReadModel(Model& model) const {
  if (!options_.program.isEmpty()) {
    LineReader lines(options_.program);
    if (!lines.IsOpen()) {
      return QString(options_.program + QStringLiteral(": ") + FaultWords(*lines.Failure()));
    }
    const CamFileCounts counts = CountsOfHeader(lines.Next().value_or(std::string_view()));
    model.cams = counts.cams;
    model.sizes = counts.sizes;
  }
  if (options_.cams) model.cams = *options_.cams;
  if (options_.sizes) model.sizes = *options_.sizes;
  if (options_.messages) model.messages = *options_.messages;
  return CheckModel(model);
}

QString Simulation::ReadProgram(ProgrammerState& state) {
  if (options_.program.isEmpty()) return {};
  CamProgram program;
  program.SetLimits(state.Sizes(), state.Cams(), state.Messages());
  if (!LoadCamFile(program, options_.program, OtherSizes::Take)) {
    return QString(options_.program + QStringLiteral(": cannot be loaded"));
  }
  state.Load(program);
  return {};
}

/// Makes the programmer that the options ask for; returns what is in the way.
QString Simulation::Prepare() {
  Faults faults;
  for (const QString& word : options_.faults) {
    if (word.startsWith(QStringLiteral("no-cts"))) {
      return QString(word + QStringLiteral(": a simulated line has no CTS wire"));
    }
    const QString reason = faults.Add(word);
    if (!reason.isEmpty()) return reason;
  }
  if (options_.baud && *options_.baud <= 0) return QStringLiteral("no speed of a line");
  if (!options_.firmware.isEmpty()) {
    expected_ = FirmwareImage::OfFile(options_.firmware);
    if (!expected_) return QString(options_.firmware + QStringLiteral(": no good HEX file"));
  }
  Model model;
  QString reason = ReadModel(model);
  if (!reason.isEmpty()) return reason;
  ProgrammerState state(static_cast<int>(model.cams), static_cast<int>(model.sizes),
                        static_cast<int>(model.messages));
  reason = ReadProgram(state);
  programmer_.emplace(std::move(state), std::move(faults));
  return reason;
}

int Simulation::Run() {
  const QString reason = Prepare();
  if (!reason.isEmpty()) return Fail(reason);
  PtyLink link(*programmer_, options_.link);
  if (options_.baud) link.FixBaud(*options_.baud);
  const QString obstacle = link.Open();
  if (!obstacle.isEmpty()) return Fail(obstacle);
  QEventLoop loop;
  const Interrupt interrupt;
  QObject::connect(&interrupt, &Interrupt::Caught, &loop, &QEventLoop::quit);
  Follow(link, loop);
  const ProgrammerState& state = programmer_->State;
  Tell(QStringLiteral("simulated programmer of %1 cams, %2 sizes and %3 messages on %4 (%5); "
                      "Ctrl+C ends it")
           .arg(state.Cams())
           .arg(state.Sizes())
           .arg(state.Messages())
           .arg(options_.link, link.Device()));
  loop.exec();
  link.Close();
  return status_;
}

int Simulation::Fail(const QString& reason) {
  err_ << "kplctl: " << Printable(reason) << '\n';
  err_.flush();
  return failedStatus;
}

void Simulation::Follow(PtyLink& link, QEventLoop& loop) {
  programmer_->Finished = [this](const Programmer::Job& job) { TellJob(job); };
  QObject::connect(&link, &PtyLink::Unplugged, &loop,
                   [this] { Tell(QStringLiteral("adapter pulled out")); });
  QObject::connect(&link, &PtyLink::PluggedIn, &loop,
                   [this] { Tell(QStringLiteral("adapter plugged in again")); });
  QObject::connect(&link, &PtyLink::Failed, &loop, [this, &loop](const QString& reason) {
    status_ = Fail(reason);
    loop.quit();
  });
}

void Simulation::TellJob(const Programmer::Job& job) {
  const QString frames = QString::number(job.frames);
  if (job.command == "?M") {
    Tell(QStringLiteral("asked for its identity"));
  } else if (job.command == "?FW") {
    Tell(QStringLiteral("received a program in %1 frames").arg(frames));
  } else if (job.command == "?FR") {
    Tell(QStringLiteral("sent its program in %1 frames").arg(frames));
  } else if (job.command == "?AW") {
    Tell(QStringLiteral("received messages in %1 lines").arg(frames));
  } else if (job.command == "?AR") {
    Tell(QStringLiteral("sent its messages in %1 frames").arg(frames));
  } else {
    Tell(QStringLiteral("received a firmware in %1 lines").arg(frames) + FirmwareText());
  }
}

/// How large the firmware is, and whether it is the one that was expected.
QString Simulation::FirmwareText() const {
  const FirmwareImage& image = programmer_->State.Firmware;
  QString text = QStringLiteral(", %1 bytes").arg(image.Bytes());
  if (image.Refused() > 0) text += QStringLiteral(", no room for %1 more").arg(image.Refused());
  if (!expected_) return text;
  text += image.SameBytes(*expected_) ? QStringLiteral(", the same as ")
                                      : QStringLiteral(", NOT the same as ");
  return text + options_.firmware;
}

}  // namespace

int Simulate(const SimulateOptions& options, QTextStream& out, QTextStream& err) {
  return Simulation(options, out, err).Run();
}

}  // namespace nira
