// SPDX-License-Identifier: Apache-2.0
#include "model/FunctionFields.h"
#include "support/CamFileFixture.h"
#include "support/Kplctl.h"
#include "support/Rows.h"
#include "support/Tables.h"

#include <QProcess>
#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

/// A cam file in a folder of its own, and what an edit of it prints and leaves.
struct EditFixture : CamFileFixture, Ran {
  explicit EditFixture(int cams = 32) : CamFileFixture(3, cams) {
    program.SetRow(1, 0, RowOf(u"10-20 100-110"_qs));
    program.SetRow(2, 1, RowOf(u"0-5 350-360"_qs));
    program.SetCamText(1, u"FEED"_qs);
    SaveCamFile(program, Path("in.cam"), writer);
    input = ReadBytes(Path("in.cam"));
  }

  /// kplctl edit in.cam -o out.cam and more, where @ stands for the fixture's folder.
  void Edit(const QString& more, const char* output = "out.cam") {
    QStringList arguments = {u"edit"_qs, Path("in.cam"), u"-o"_qs, Path(output)};
    arguments += QProcess::splitCommand(QString(more).replace(u'@', folder.path()));
    Run(arguments);
  }

  void Run(const QStringList& arguments) { static_cast<Ran&>(*this) = Kplctl(arguments); }

  /// What the written file holds.
  const CamProgram& Written() {
    const int cams = program.NumCams();
    program = CamProgram();
    program.SetLimits(3, cams, 255);
    if (!LoadCamFile(program, Path("out.cam"))) QTest::qFail("not read", __FILE__, __LINE__);
    return program;
  }

  bool WroteNothing() const {
    return ReadBytes(Path("in.cam")) == input && !QFile::exists(Path("out.cam"));
  }

  QByteArray input;
};

/// The fields that are not 0: "AdvanceOn 1, CamFunc 2 12".
QString FieldsOf(const FunctionsBlock& block) {
  QStringList fields;
  for (const FunctionField& field : FunctionFields()) {
    for (int cam = 0; cam < (field.IsPerCam() ? FunctionsBlock::MaxCams : 1); ++cam) {
      if (field.Value(block, cam) == 0) continue;
      const QString index = field.IsPerCam() ? QString(u' ' + QString::number(cam + 1)) : QString();
      fields.append(QLatin1String(field.name) + index + u' ' +
                    QString::number(field.Value(block, cam)));
    }
  }
  return fields.join(u", "_qs);
}

}  // namespace

/// kplctl edit: the menu's work on a file, and kplctl functions.
class EditCommandTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  /// Each operation reaches what the menu does too.
  void Operations() {
    EditFixture f;
    QVERIFY(WriteBytes(f.Path("cut.cam"), f.input.left(f.input.indexOf(" FORMATO N. 03"))));
    f.Edit(
        u"copy-size 1 3 erase-size 1 import-size @/cut.cam 2 1 copy-cam 3 1 32 shift-cam 3 32 -20 "
        "erase-cam 2 2 set-phase 3 1 15 15 describe 1 \"--yes ARM\""_qs);
    QCOMPARE(f.status, 0);
    QCOMPARE(f.err, f.Path("cut.cam") + u": it has no line END: its end may be missing\n"_qs);
    QCOMPARE(ContentOf(f.Written()),
             u"1.2: 0-5 350-360; 3.1: 100-110; 3.32: 80-90 350-360; 1 = --yes ARM; 2 = FEED"_qs);
    QCOMPARE(ReadBytes(f.Path("in.cam")), f.input);
  }

  void Functions() {
    for (const auto& [settings, fields] :
         {std::pair(u"AdvanceOn 1|AdvanceLast 31|CamFunc 32 210|CamFunc 2 5"_qs,
                    u"AdvanceOn 1, AdvanceLast 31, CamFunc 2 5, CamFunc 32 210"_qs),
          {u"DelayOn 1|Delay17to20 10|Delay21to24 210"_qs,
           u"DelayOn 1, Delay17to20 10, Delay21to24 210"_qs},
          {u"AdvanceOn 1|AdvanceLast 23|Ratio25to32 9|Ratio25On 1"_qs,
           u"AdvanceOn 1, AdvanceLast 23, Ratio25On 1, Ratio25to32 9"_qs},
          {u"SpeedLimit 4000|CamFunc 1 9|SpeedLimit 7|CamFunc 1 0"_qs, u"SpeedLimit 7"_qs}}) {
      EditFixture f;
      f.Edit(QString(u"|"_qs + settings).replace(u"|"_qs, u" set-function "_qs));
      QCOMPARE(f.err, QString());
      QCOMPARE(FieldsOf(f.Written().Functions()), fields);
    }
  }

  /// Fields that the file had count too; what it had wrong is left alone.
  void FunctionsOfTheFile() {
    EditFixture f;
    f.input.replace("ANTICIPI OFF", "ANTICIPI ON    1 \r\nANTICIPO CAMS  01 ms   7 ");
    f.input.replace("RITARDI OFF", "RITARDI ON\r\nX ms. 30 \r\nX ms. 5 ");
    QVERIFY(WriteBytes(f.Path("in.cam"), f.input));
    f.Edit(u"set-function SpeedLimit 12 set-function Delay17to20 40"_qs);
    QCOMPARE(
        FieldsOf(f.Written().Functions()),
        u"AdvanceOn 1, AdvanceLast 1, CamFunc 2 7, DelayOn 1, Delay17to20 40, SpeedLimit 12"_qs);
    f.Edit(u"--yes set-function AdvanceOn 0"_qs);
    QCOMPARE(FieldsOf(f.Written().Functions()), u"DelayOn 1, Delay17to20 30"_qs);
    QCOMPARE(f.program.Functions().AdvanceLast, 0);
  }

  void Refused_data() {
    QTest::addColumn<QString>("reason");
    const auto row = [](const QByteArray& operations, const QByteArray& reason) {
      QTest::newRow(operations.constData()) << QString::fromUtf8(reason);
    };
    const auto outside = [](const QByteArray& limits) -> QByteArray {
      return "VALUE OUT OF RANGE: " + limits;
    };
    row("set-phase 4 1 10 20", "INVALID SIZE NUMBER");
    row("set-phase 1 0 10 20", "CAM NOT AVAILABLE IN THIS MODEL");
    row("set-phase 1 1 10 360", outside("0-359"));
    row("copy-size 1 4294967298", "INVALID TARGET SIZE");
    row("import-size @/in.cam 0 1", "@/in.cam: it has no size of this number");
    row("import-size @/bad.cam 1 1", "@/bad.cam:10: \" 400 010\" INVALID FILE OR SIZE !");
    row("copy-cam 1 1 33", "INVALID CAM NUMBER");
    row("describe 1 ABCDEFGHIJKLMNOPQRSTU", "20 CHARACTERS AT MOST");
    row("describe 1 \"A\nB\"", "CHARACTER NOT ALLOWED: \u240A");
    row("set-function CamFunc 33 1", "CAM NOT AVAILABLE IN THIS MODEL");
    row("set-function CamFunc 2 211", outside("0-210"));
    row("set-function EncoderShift -5", outside("0-999"));
    row("set-function AdvanceLast 5", outside("AdvanceLast 0-0, and it is 5 (AdvanceOn is 0)"));
    const auto then = [](const char* setting) -> QByteArray {
      return QByteArray("set-function AdvanceOn 1 set-function AdvanceLast 24 ") + setting;
    };
    row(then("set-function DelayOn 1"), outside("AdvanceLast 0-15, and it is 24 (DelayOn is 1)"));
    row("set-function Ratio17On 1 set-function DelayOn 1",
        "DelayOn and Ratio17On exclude each other");
    const auto back = [](const char* value) -> QByteArray {
      return QByteArray("it would come back from the file as ") + value;
    };
    row(then("set-function CamFunc 1 20"),
        back("0: a cam file does not keep the advance of cam 1"));
    row(then("set-function CamFunc 26 20"),
        back("0: AdvanceLast is 24: advances are kept for cams 2 to 25 only"));
    row("set-function DelayOn 1 set-function Delay17to20 9",
        back("1: a cam file does not keep delays of one digit"));
    row("set-function Ratio17On 1", back("0: a cam file does not keep the ratio of cams 17 to 24"));
    row("set-function SpeedLimit 1005",
        back("5: a cam file keeps three digits of the speed limit"));
  }

  /// Also behind a good operation: nothing is written, and the message names the bad one.
  void Refused() {
    QFETCH(QString, reason);
    EditFixture f;
    const QByteArray head = f.input.left(f.input.indexOf(" FORMATO N. "));
    QVERIFY(WriteBytes(f.Path("bad.cam"), head + " FORMATO N. 01\r\n 400 010\r\n"));
    f.Edit(u"erase-size 2 "_qs + QTest::currentDataTag());
    QVERIFY2(f.err.startsWith(u"kplctl: operation "_qs), qPrintable(f.err));
    QVERIFY2(f.err.endsWith(u": "_qs + reason.replace(u'@', f.folder.path()) + u'\n'),
             qPrintable(f.err));
    QCOMPARE(f.status, 1);
    QVERIFY(f.WroteNothing());
  }

  void WhichOperation() {
    EditFixture f;
    f.Edit(u"erase-size 1 describe 33 \"HOT PUNCH\" erase-size 9"_qs);
    QCOMPARE(
        f.err,
        u"kplctl: operation 2, describe 33 \"HOT PUNCH\": CAM NOT AVAILABLE IN THIS MODEL\n"_qs);
    EditFixture settled;
    settled.Edit(u"set-function SpeedLimit 7 set-function SpeedLimit 1005 erase-size 1"_qs);
    QVERIFY(settled.err.startsWith(u"kplctl: operation 2, set-function SpeedLimit 1005: "_qs));
  }

  void ModelsOfFewerCams() {
    EditFixture f(16);
    f.Edit(u"set-function DelayOn 1"_qs);
    QVERIFY(f.err.endsWith(u"only a programmer of 32 cams has delays and ratios\n"_qs));
    QCOMPARE(f.status, 1);
  }

  /// Found before anything is read: the input file is not even there.
  void WrongUsage() {
    for (const char* line :
         {"edit in.cam -o out.cam", "edit in.cam erase-size 1", "edit in.cam -o out.cam erase",
          "edit in.cam -o out.cam erase-size", "edit in.cam -o out.cam erase-size 1 2",
          "edit in.cam -o out.cam shift-cam 1 1 -2x",
          "edit in.cam -o out.cam set-function Nothing 1",
          "edit in.cam -o out.cam set-function CamFunc 5",
          "edit --size 1 in.cam -o out.cam erase-size 1", "edit in.cam erase-size 1 -o",
          "edit in.cam --output= erase-size 1", "functions a.cam b.cam", "list a.cam --yes=1",
          "list a.cam --size x", "identify --baud 4800", "identify --port 0"}) {
      EditFixture f;
      f.Run(QString(line).split(u' '));
      QVERIFY2(f.status == 2 && f.out.isEmpty(), line);
      QVERIFY2(f.err.startsWith(u"kplctl: "_qs) && f.err.endsWith(u" --help tells more\n"_qs) &&
                   f.err.count(u'\n') == 2,
               line);
    }
  }

  void OptionsAnywhere() {
    EditFixture f;
    f.Run(
        {u"--yes"_qs, u"edit"_qs, u"--"_qs, f.Path("in.cam"), u"describe"_qs, u"2"_qs, QString()});
    QCOMPARE(f.status, 2);
    f.Run({u"edit"_qs, f.Path("in.cam"), u"describe"_qs, u"2"_qs, QString(),
           u"--output="_qs + f.Path("out.cam"), u"erase-cam"_qs, u"1"_qs, u"1"_qs});
    QCOMPARE(f.status, 0);
    QCOMPARE(ContentOf(f.Written()), u"2.2: 0-5 350-360"_qs);
  }

  void Replacing() {
    EditFixture f;
    QVERIFY(WriteBytes(f.Path("out.cam"), "old"));
    f.Edit(u"erase-size 1"_qs);
    QCOMPARE(f.status, 1);
    QVERIFY(f.err.startsWith(u"THE FILE ALREADY EXISTS. REPLACE IT ? "_qs));
    QCOMPARE(ReadBytes(f.Path("out.cam")), QByteArray("old"));
    f.Edit(u"erase-size 1"_qs, "in.cam");  // its own file is not asked about
    QCOMPARE(f.status, 0);
    QVERIFY(ReadBytes(f.Path("in.cam")) != f.input);
  }

  /// What the menu takes and the file then loses is written and told.
  void NotKeptByTheFile() {
    EditFixture f;
    f.Edit(u"describe 5 ARM set-phase 2 2 6 9"_qs);
    QCOMPARE(f.status, 0);
    const QString file = f.Path("out.cam");
    const QString told = file + u": description of cam 5: \"ARM\" now, none from the file\n" +
                         file + u": size 2, cam 2: 006-009 now, nothing from the file\n";
    QCOMPARE(f.err, told);
    f.Run({u"check"_qs, u"--survive"_qs, Sample("press.CAM")});
    QCOMPARE(f.status, 1);
    QVERIFY(f.out.contains(u"cam 13: \"BLOW OFF DIE 3\" now, none in the programmer\n"_qs));
  }

  void FunctionsCommand() {
    EditFixture f;
    QVERIFY(WriteBytes(f.Path("in.cam"), FullFile()));
    f.Run({u"functions"_qs, f.Path("in.cam")});
    QCOMPARE(f.status, 0);
    const QStringList lines = f.out.split(u'\n');
    for (const char* line : {"AdvanceLast       2      last cam with an advance, counted from 0",
                             "CamFunc 1         0 ms   advance of the cam; no cam file keeps it",
                             "CamFunc 3       210 ms   advance of the cam",
                             "Ratio25to32       4 1/n  ratio of cams 25 to 32, its n",
                             "EncoderShift     -5      phase shift of the encoder"}) {
      QVERIFY2(lines.contains(QString(line)), line);
    }
    QCOMPARE(lines.filter(u"CamFunc"_qs).size(), 3);
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::EditCommandTest)
#include "EditCommandTest.moc"
