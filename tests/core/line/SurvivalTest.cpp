// SPDX-License-Identifier: Apache-2.0
#include "SimulatedSerial.h"
#include "files/CamLines.h"
#include "line/SizeTransfer.h"
#include "line/Survival.h"
#include "model/FunctionFields.h"
#include "support/CommFixture.h"
#include "support/DeviceFixture.h"
#include "support/ScriptedPrompts.h"
#include "support/Tables.h"

#include <random>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

QString Words(const std::vector<Phase>& phases) {
  QStringList words;
  for (const Phase& phase : phases) words.append(u"%1-%2"_qs.arg(phase.on).arg(phase.off));
  return words.join(u' ');
}

/// "1.2 0-360 > ; SpeedLimit 1000 > 0"
QString Words(const std::vector<Difference>& differences) {
  QStringList words;
  for (const Difference& d : differences) {
    QString place = d.field != nullptr ? QString(QLatin1String(d.field->name)) : QString();
    if (d.size > 0) place += QString::number(d.size) + u'.';
    if (d.cam >= 0) place += QString::number(d.cam + 1);
    words.append(place + u' ' + d.here + Words(d.phasesHere) + u" > " + d.there +
                 Words(d.phasesThere));
  }
  return words.join(u"; "_qs);
}

/// Sets up what a row of the table says: "FIELD VALUE", "SIZE.CAM RUNS" or "CAM TEXT".
void Apply(CamProgram& program, const QString& what) {
  FunctionsBlock block = program.Functions();
  for (const QString& part : what.split(u"; "_qs)) {
    const QString first = part.section(u' ', 0, 0);
    const QString rest = part.section(u' ', 1);
    const QString name = first.section(u'/', 0, 0);
    if (const FunctionField* field = FindFunctionField(name)) {
      field->Store(block, rest.toInt(), first.section(u'/', 1).toInt());
    } else if (first.contains(u'.')) {
      program.SetRow(first.section(u'.', 0, 0).toInt(), first.section(u'.', 1).toInt() - 1,
                     RowOf(rest));
    } else {
      program.SetCamText(first.toInt() - 1, rest);
    }
  }
  program.SetFunctions(block);
}

CamProgram RandomProgram(std::mt19937& random) {
  const auto pick = [&random](int count) { return static_cast<int>(random() % unsigned(count)); };
  CamProgram program;
  program.SetLimits(22, 32, 255);
  for (int cam = 0; cam < 32; ++cam) {
    if (pick(2) == 0) program.SetCamText(cam, u"CAM %1"_qs.arg(pick(99)));
    for (int size = 1; size <= 22; ++size) {
      CamRow row{};
      std::uint8_t on = 0;
      const int change = 8 << pick(6);
      for (auto& cell : row) cell = on ^= pick(change) == 0;
      program.SetRow(size, cam, row);
    }
  }
  FunctionsBlock block{1, 1, 1, 0, 5, 9, 3, 0, 2, 17, 1, 1200, 31, {}};
  for (auto& advance : block.CamFunc) advance = static_cast<std::uint8_t>(pick(211));
  program.SetFunctions(block);
  return program;
}

/// Sends the program to a simulated programmer and reads it back.
CamProgram SentAndReceived(const CamProgram& sent) {
  Programmer device{ProgrammerState()};
  SimulatedSerial serial(device);
  CommFixture f;
  f.prompts.AnswerEverything(true);
  CamProgram program = sent;
  Comm comm{serial, serial, program, f.settings, f.texts, f.writer, f.working, f.prompts};
  const auto monitor = [&](const Job& job) { return TransferJobs(comm, f.report).Run(job); };
  if (SizeTransfer(comm).Tr_Siz(monitor) != TransferEnd::Done) qFatal("not sent");
  program.ResetProgram();
  if (SizeTransfer(comm).Rc_Siz(monitor) != TransferEnd::Done) qFatal("not received");
  return program;
}

}  // namespace

/// What of a program its file and the programmer give back.
class SurvivalTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Losses_data() {
    TextTable(
        {"program", "inFile", "onLine"},
        {
            {"nothing", "1.1 10-20; 1 GRIPPER", "", ""},
            {"all round", "3.2 0-360", "3.2 0-360 > ", "3.2 0-360 > "},
            {"behind a wrap", "1.1 0-5 6-9 350-360", "1.1 6-9 > ", "1.1 6-9 > "},
            {"short delay", "DelayOn 1; Delay17to20 5; Delay21to24 12", "Delay17to20 5 > 0", ""},
            {"speed limit", "SpeedLimit 1500", "SpeedLimit 1500 > 500", ""},
            {"advance of cam 1", "AdvanceOn 1; AdvanceLast 1; CamFunc/0 7; CamFunc/1 88",
             "CamFunc1 7 > 0", ""},
            {"ratio 17-24", "Ratio17On 1; Ratio17to24 4", "Ratio17On 1 > 0; Ratio17to24 4 > 0",
             "Ratio17to24 4 > 0"},
            {"no phase", "2 ARM", "2 ARM > ", "2 ARM > "},
            {"phase in size 2", "2 ARM; 2.2 10-20", "", "2 ARM > "},
            {"function that is off", "Delay17to20 5; Ratio25to32 3", "", ""},
        });
  }

  void Losses() {
    QFETCH(QString, program);
    QFETCH(QString, inFile);
    QFETCH(QString, onLine);
    CamProgram p;
    Apply(p, program);
    QCOMPARE(Words(LostInFile(p)), inFile);
    QCOMPARE(Words(LostOnLine(p)), onLine);
  }

  /// The third file of a program is the last new one, and the programmer gives back what was
  /// foretold.
  void RandomPrograms() {
    std::mt19937 random(20261122);
    for (int round = 0; round < 12; ++round) {
      const CamProgram program = RandomProgram(random);
      const CamProgram third = ThroughFile(ThroughFile(program));
      QCOMPARE(WriteCamFile(ThroughFile(third)), WriteCamFile(third));
      if (round > 1) continue;  // a transfer takes longer
      QCOMPARE(Words(DifferencesOf(ThroughLine(program), SentAndReceived(program))), QString());
    }
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::SurvivalTest)
#include "SurvivalTest.moc"
