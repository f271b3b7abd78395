// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"
#include "Simulation.h"

namespace nira {

namespace {

int RunSimulate(Console& console, const Arguments& arguments) {
  SimulateOptions options;
  options.cams = arguments.Number("cams");
  options.sizes = arguments.Number("sizes");
  options.messages = arguments.Number("messages");
  options.program = arguments.Text("program");
  options.firmware = arguments.Text("firmware");
  options.faults = arguments.Texts("fault");
  if (arguments.Has("link")) options.link = arguments.Text("link");
  options.baud = arguments.Number("baud");
  return Simulate(options, console.Out, console.Err);
}

QString FaultWords() {
  return QStringLiteral(
      "Faults, of which several can be given (--fault WORD --fault WORD):\n"
      "  no-answer[=N]           dead from frame N on, or from the start\n"
      "  late=MS[@N]             answers MS milliseconds late, always or at frame N alone\n"
      "  nak=N                   refuses frame N\n"
      "  lost-ack=N              the acknowledgement of frame N gets lost\n"
      "  double-ack=N            the acknowledgement of frame N comes twice\n"
      "  bad-checksum=N          sends frame N with a wrong checksum\n"
      "  noise=N                 three bytes of noise before its answer to frame N\n"
      "  model=CAMS,SIZES,MSGS   names another model in its identity\n"
      "  unplug[=N]              the adapter is pulled out at frame N, or at the first command\n"
      "  random=SEED[,WORD...]   the passing ones, or the named ones, one frame in twenty each\n"
      "Frames count from 1 in every job, repeats included; the answer to a command is frame 0.\n");
}

}  // namespace

Command SimulateCommand() {
  using enum Option::Kind;
  return {
      .name = "simulate",
      .synopsis = "[--program FILE.cam] [--fault WORD]... [--link com1]",
      .summary = "be a programmer on a simulated serial line, until interrupted",
      .fewest = 0,
      .most = 0,
      .options = {{"cams", Number, "N", "cams of the model, otherwise those of the program or 32"},
                  {"sizes", Number, "N", "sizes, otherwise those of the program or 22"},
                  {"messages", Number, "N", "alarm messages, otherwise 255"},
                  {"program", Text, "FILE.cam", "the program that it holds, otherwise none"},
                  {"firmware", Text, "FILE.abs", "compare a firmware that arrives with this"},
                  {"fault", Text, "WORD", "do something wrong (see above)"},
                  {"link", Text, "PATH",
                   "link to the line, which the tool takes for its port; otherwise com1"},
                  {"baud", Number, "N", "speed of the line, otherwise the one that the tool sets"}},
      .run = RunSimulate,
      .details = FaultWords};
}

}  // namespace nira
