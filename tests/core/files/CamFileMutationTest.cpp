// SPDX-License-Identifier: Apache-2.0
#include "files/CamLines.h"
#include "support/CamFileFixture.h"
#include "support/Rows.h"

#include <QTest>

namespace nira {

/// Broken cam files in every state: a message or none, and a program that is still usable.
class CamFileMutationTest : public QObject {
  Q_OBJECT

 private:
  /// Opens the bytes as the main window does, checks the program, and opens the good file again.
  void Try(const QByteArray& bytes, const QByteArray& name) {
    const char* const what = name.constData();
    CamProgram& program = fixture_.program;
    program.ResetProgram();
    const bool loaded =
        bool(fixture_.Load(bytes, ++tries_ % 2 == 0 ? OtherSizes::Take : OtherSizes::Refuse));
    const Fault& fault = fixture_.fault;
    const int last = program.Functions().AdvanceLast;
    QVERIFY2(program.NumSizes() == 2 && program.NumCams() == 3 && last >= 0 && last <= 2, what);
    QVERIFY2(program.CurrentSize() >= 1 && program.CurrentSize() <= 2, what);
    QVERIFY2(program.CurrentCam() >= 0 && program.CurrentCam() <= 2, what);
    QVERIFY2(!ContentOf(program).contains(u"cell"_qs), what);
    QVERIFY2(fault.What != Fault::Kind::Missing, what);
    QVERIFY2(loaded == (fault.Line == 0), what);
    QVERIFY2(fault.Line <= bytes.count('\n') + 1, what);
    program.ResetProgram();
    QVERIFY2(LoadCamFile(program, good_), what);
    QVERIFY2(WriteCamFile(program) == FullFile().toStdString(), what);
  }

 private Q_SLOTS:
  void initTestCase() { QVERIFY(WriteBytes(good_, FullFile())); }

  void CutAtEveryByte() {
    const QByteArray good = FullFile();
    for (qsizetype length = 0; length < good.size() && !QTest::currentTestFailed(); ++length) {
      Try(good.left(length), "cut at " + QByteArray::number(length));
      Try(good.mid(length), "from " + QByteArray::number(length));
    }
  }

  void EveryLineChanged() {
    const QByteArrayList lines = FullFile().split('\n');
    QByteArrayList others = QByteArray(
                                "| |C 04\r|C 99\"\r|\"|END\r| FORMATO N. 99\r| 360 360\r|"
                                "FUNZIONI|FUNZIONI 99 -99\r|ANTICIPI ON 9999\r|\xFF")
                                .split('|');
    others.append(QByteArray(70000, ' '));
    for (qsizetype i = 0; i < lines.size() && !QTest::currentTestFailed(); ++i) {
      const QByteArray name = "line " + QByteArray::number(i + 1);
      QByteArrayList changed = lines;
      changed.removeAt(i);
      Try(changed.join('\n'), name + " removed");
      changed = lines;
      changed.insert(i, lines[i]);
      Try(changed.join('\n'), name + " doubled");
      changed = lines;
      for (const QByteArray& other : others) {
        changed[i] = other;
        Try(changed.join('\n'), name + " is " + other.left(20));
      }
      for (const auto& [from, to] : {std::pair{"\r", ""}, {" ", ""}, {"0", "9"}, {"1", "-"}}) {
        changed[i] = QByteArray(lines[i]).replace(from, to);
        Try(changed.join('\n'), name + " without " + from);
      }
    }
  }

  /// NUL and every code from 0x80 to 0xFF, in turn, in every place.
  void EveryByteReplaced() {
    for (qsizetype place = 0; place < FullFile().size() && !QTest::currentTestFailed(); ++place) {
      for (int k = 0; k <= 8; ++k) {
        QByteArray bytes = FullFile();
        const auto code = k == 0 ? 0 : 0x80 + (place + 16 * k) % 128;
        bytes[place] = static_cast<char>(code);
        Try(bytes, "byte " + QByteArray::number(place) + " is " + QByteArray::number(code));
      }
    }
  }

 private:
  CamFileFixture fixture_{2, 3};
  QString good_ = fixture_.Path("good.cam");
  int tries_ = 0;
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::CamFileMutationTest)
#include "CamFileMutationTest.moc"
