#include "files/CamLines.h"
#include "support/CamFileFixture.h"
#include "support/Rows.h"

#include <QTest>

#include <memory>

namespace nira {

namespace {

QByteArray GoodFile() {
  return "FUNZIONI  3 - 2 \r\n"
         "ANTICIPI ON    2 \r\n"
         "ANTICIPO CAMS  01 ms   5 \r\n"
         "ANTICIPO CAMS  02 ms   210 \r\n"
         "RITARDI ON\r\n"
         "RITARDO CAMS 17-20   ms. 12 \r\n"
         "RITARDO CAMS 21-24   ms. 100 \r\n"
         "RAPPORTI  ON \r\n"
         "RAPPORTO CAMS 25-32 =  4 \r\n"
         "FORMATO IN USCITA    2 \r\n"
         "SFASAMENTO ENCODER  -5 \r\n"
         "SENSO DI ROTAZIONE   1 \r\n"
         "LIMITE DI VELOCITA'   120 \r\n"
         " FORMATO N. 01\r\n"
         "C 01\"Pressa \xE8\"\r\n"
         " 010 020\r\n"
         " 350 005\r\n"
         "C 03\"\x80\"\r\n"
         " 100 200\r\n"
         " FORMATO N. 02\r\n"
         "C 01\"Pressa \xE8\"\r\n"
         " 000 010\r\n"
         "C 02\r\n"
         " 359 000\r\n"
         "END\r\n";
}

/// Why the program cannot be used any more; empty when it can.
QString Fault(const CamProgram& program) {
  if (program.NumSizes() != 2 || program.NumCams() != 3) return QStringLiteral("limits");
  if (program.CurrentSize() < 1 || program.CurrentSize() > 2) return QStringLiteral("size");
  if (program.CurrentCam() < 0 || program.CurrentCam() > 2) return QStringLiteral("cam");
  const int last = program.Functions().AdvanceLast;
  if (last < 0 || last > 2) return QStringLiteral("AdvanceLast");
  return ContentOf(program).contains(QStringLiteral("cell")) ? QStringLiteral("cell") : QString();
}

}  // namespace

/// Broken cam files in every state: a message or none, and a program that is still usable.
class CamFileMutationTest : public QObject {
  Q_OBJECT

 private:
  /// Opens the bytes as the main window does, checks the program, and opens the good file again.
  void Try(const QByteArray& bytes, const QByteArray& name) {
    const char* const what = name.constData();
    fixture_->prompts.boxes.clear();
    fixture_->prompts.AnswerEverything(++tries_ % 2 == 0);
    fixture_->program.ResetProgram();
    const LoadResult result = fixture_->Load(bytes);
    const auto boxes = fixture_->prompts.boxes.size();
    QVERIFY2(Fault(fixture_->program).isEmpty(), what);
    QVERIFY2(result.outcome != LoadResult::Outcome::Missing, what);
    QVERIFY2(result.Refused() ? boxes >= 1 && boxes <= 2 : boxes <= 1, what);
    QVERIFY2(result.Refused() == (result.line > 0), what);
    QVERIFY2(result.line <= bytes.count('\n') + 1, what);
    const QByteArray rewritten = QByteArray::fromStdString(WriteCamFile(fixture_->program));
    QVERIFY2(rewritten.endsWith("END\r\n"), what);
    fixture_->program.ResetProgram();
    fixture_->file.LoadCamFile(good_);
    QVERIFY2(WriteCamFile(fixture_->program) == GoodFile().toStdString(), what);
  }

 private Q_SLOTS:
  void init() {
    fixture_ = std::make_unique<CamFileFixture>(2, 3);
    good_ = fixture_->Path("good.cam");
    QVERIFY(WriteBytes(good_, GoodFile()));
  }
  void cleanup() { fixture_.reset(); }

  void TheGoodFileItself() {
    QCOMPARE(fixture_->Load(GoodFile()).outcome, LoadResult::Outcome::Loaded);
    QCOMPARE(QByteArray::fromStdString(WriteCamFile(fixture_->program)), GoodFile());
  }

  void CutAtEveryByte() {
    const QByteArray good = GoodFile();
    for (qsizetype length = 0; length < good.size() && !QTest::currentTestFailed(); ++length) {
      Try(good.left(length), "cut at " + QByteArray::number(length));
      Try(good.mid(length), "from " + QByteArray::number(length));
    }
  }

  void EveryLineChanged() {
    const QByteArray good = GoodFile();
    const QByteArrayList lines = good.split('\n');
    const QByteArrayList others = {"",
                                   "\r",
                                   " ",
                                   "C",
                                   "C 04\r",
                                   "C 99\"\r",
                                   "\"",
                                   "END\r",
                                   " FORMATO N. 99\r",
                                   " FORMATO N. \r",
                                   " 360 360\r",
                                   " -01 -01\r",
                                   "FUNZIONI\r",
                                   "FUNZIONI 99 -99\r",
                                   "ANTICIPI ON 9999\r",
                                   QByteArray(70000, ' '),
                                   QByteArray(3, '\0'),
                                   "\xFF\xFE"};
    for (qsizetype i = 0; i < lines.size() && !QTest::currentTestFailed(); ++i) {
      const QByteArray name = "line " + QByteArray::number(i + 1);
      QByteArrayList changed = lines;
      changed.removeAt(i);
      Try(changed.join('\n'), name + " removed");
      changed = lines;
      changed.insert(i, lines[i]);
      Try(changed.join('\n'), name + " doubled");
      for (const QByteArray& other : others) {
        changed = lines;
        changed[i] = other;
        Try(changed.join('\n'), name + " is " + other.left(20));
      }
      for (const auto& [from, to] :
           {std::pair{"\r", ""}, {" ", ""}, {"0", "9"}, {"1", "-"}, {" ", "\t"}}) {
        changed[i] = QByteArray(lines[i]).replace(from, to);
        Try(changed.join('\n'), name + " without " + from);
      }
    }
  }

  /// NUL and every code from 0x80 to 0xFF, in turn, in every place.
  void EveryByteReplaced() {
    for (qsizetype place = 0; place < GoodFile().size() && !QTest::currentTestFailed(); ++place) {
      for (int k = 0; k <= 8; ++k) {
        QByteArray bytes = GoodFile();
        const auto code = k == 0 ? 0 : 0x80 + (place + 16 * k) % 128;
        bytes[place] = static_cast<char>(code);
        Try(bytes, "byte " + QByteArray::number(place) + " is " + QByteArray::number(code));
      }
    }
  }

 private:
  std::unique_ptr<CamFileFixture> fixture_;
  QString good_;
  int tries_ = 0;
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::CamFileMutationTest)
#include "CamFileMutationTest.moc"
