// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"
#include "Printable.h"
#include "ProgramTransfer.h"
#include "line/FlashUpdate.h"

namespace nira {

namespace {

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

  void Ready(bool ready) override { NotReady = !ready; }  // a question tells it at once

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

  bool NotReady = false;  ///< when it was looked at last: the programmer did not hold CTS

 private:
  Console& console_;
  QString file_;
  QString testing_;
  int told_ = 0;
};

}  // namespace

int SendFirmware(LineSession& session, const QString& file) {
  session.Settings.BaudRate = FlashUpdate::Baud;
  FlashConsole report(session.Terminal());
  auto reason = session.Run(
      [&session, &report, &file] { return FlashUpdate(session.Line(), report, file).Run(); });
  report.Flush();
  if (!reason) return Console::Good;
  if (report.NotReady) reason = QString::fromLatin1(NotReadyReason);
  session.Terminal().Err << Printable(file) << ": NOT sent: " << Printable(*reason) << Qt::endl;
  return Console::Failed;
}

namespace {

int RunFlash(Console& console, const Arguments& arguments) {
  return OnLine(console, arguments, [&arguments](LineSession& session) {
    return SendFirmware(session, arguments.Words.first());
  });
}

}  // namespace

Command FlashCommand() {
  return {.name = "flash",
          .synopsis = "FILE.abs [--port N|DEVICE] [--trace FILE] [--yes]",
          .summary = "test a firmware file and send it to the programmer",
          .options = {PortOption, TraceOption},
          .run = RunFlash,
          .fault = LineFault};
}

}  // namespace nira
