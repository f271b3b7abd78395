#include "app/Commands.h"
#include "app/Printable.h"
#include "comm/FlashUpdate.h"
#include "comm/PortNames.h"
#include "comm/QtSerialControl.h"
#include "comm/SystemClock.h"

#include <QDir>
#include <QHash>

namespace nira {

namespace {

constexpr int lastPort = 256;

/// The line to the programmer at a port of the current folder, and all that an exchange needs.
struct FlashLink {
  FlashLink(Console& console, int port)
      : serial(names, console.Texts, clock), comm{serial,   clock,         program,
                                                  settings, console.Texts, console.Writer,
                                                  folder,   console.Ask} {
    settings.PortNumber = port;
  }

  WorkingFolder folder{QDir::currentPath()};
  PortNames names{folder};
  SystemClock clock;
  CamProgram program;
  Globals settings;
  QtSerialControl serial;
  Comm comm;
};

/// Prints the lines of an update as they become final, and how far it is.
class FlashConsole : public FlashReport {
 public:
  explicit FlashConsole(Console& console) : console_(console) {}

  void Show(FlashLine line, const QString& text) override {
    if (line == FlashLine::Program || line == FlashLine::Message) Flush();
    const bool passing = line == FlashLine::File || line == FlashLine::Testing;
    if (passing) {
      (line == FlashLine::File ? file_ : testing_) = text;
    } else if (line != FlashLine::Transmit) {
      console_.Out << Printable(text) << Qt::endl;
    }
  }

  void Ready(bool /*ready*/) override {}  // a question tells when it is not

  /// A programmer that refuses for ever is told ever more seldom.
  void Refused(int times) override {
    const bool round = times == 1 || times == 10 || (times > 0 && times % 100 == 0);
    if (round) {
      console_.Err << console_.Texts.Text(TextNumber::FlashRefused) << times << Qt::endl;
    }
  }

  void Progress(int percent) override {
    constexpr int step = 10;
    if (percent / step == told_ / step) return;
    told_ = percent;
    console_.Err << percent << " %" << Qt::endl;
  }

  /// Prints how far the test has come, once.
  void Flush() {
    for (QString* text : {&file_, &testing_}) {
      if (!text->isEmpty()) console_.Out << Printable(*text) << Qt::endl;
      text->clear();
    }
  }

 private:
  Console& console_;
  QString file_;
  QString testing_;
  int told_ = 0;
};

QString FlashFault(const Arguments& arguments) {
  return arguments.OutOfRange("port", lastPort);
}

int RunFlash(Console& console, const Arguments& arguments) {
  FlashLink link(console, arguments.Number("port").value_or(Globals::DefaultPort));
  FlashConsole report(console);
  const TransferEnd end = FlashUpdate(link.comm, report, arguments.Words.first()).Run();
  report.Flush();
  return end == TransferEnd::Done ? Console::Good : Console::Failed;
}

}  // namespace

Command FlashCommand() {
  return {.name = "flash",
          .synopsis = "FILE.abs [--yes] [--port N]",
          .summary = "test a firmware file and send it to the programmer",
          .options = {{"port", Option::Kind::Number, "N", "serial port, otherwise 1"}},
          .run = RunFlash,
          .fault = FlashFault};
}

}  // namespace nira
