#include "files/CamLines.h"
#include "model/Text.h"
#include "support/CamFileFixture.h"
#include "support/Rows.h"

#include <QTest>

namespace nira {

/// The lines of a cam file as they are written, byte by byte.
class CamLinesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void SmallProgram() {
    CamFileFixture f;
    f.program.SetPhase(1, 0, 10, 20);
    f.program.SetPhase(1, 0, 350, 5);
    QCOMPARE(QByteArray::fromStdString(WriteCamFile(f.program)),
             PlainHead() + " FORMATO N. 01\r\nC 01\r\n 010 020\r\n 350 005\r\nEND\r\n");
  }

  void EverythingOn() {
    CamFileFixture f(2, 3);
    f.program.SetFunctions({1, 1, 1, 1, 12, 100, 4, 5, 2, -5, 1, 1000, 2, {9, 5, 210}});
    f.program.SetRow(1, 0, RowOf(QStringLiteral("0-5 10-20 350-360")));
    f.program.SetRow(2, 0, RowOf(QStringLiteral("0-10")));
    f.program.SetRow(2, 2, RowOf(QStringLiteral("359-360")));
    f.program.SetCamText(0, QStringLiteral(" \"\u20AC \u00E8 "));
    f.program.SetCamText(1, QStringLiteral("of no phase"));
    f.program.SetCamText(2, QStringLiteral("   "));
    QCOMPARE(QByteArray::fromStdString(WriteCamFile(f.program)),
             QByteArray("FUNZIONI  3 - 2 \r\n"
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
                        "LIMITE DI VELOCITA'   1000 \r\n"
                        " FORMATO N. 01\r\n"
                        "C 01\" \"\x80 \xE8 \"\r\n"
                        " 010 020\r\n"
                        " 350 005\r\n"
                        " FORMATO N. 02\r\n"
                        "C 01\" \"\x80 \xE8 \"\r\n"
                        " 000 010\r\n"
                        "C 03\r\n"
                        " 359 000\r\n"
                        "END\r\n"));
  }

  void AFlagIsOnOnlyAsOne() {
    CamFileFixture f;
    f.program.SetFunctions({2, 255, 2, 1, 12, 100, 4, 5, 0, 0, 0, 0, 1, {}});
    QVERIFY(QByteArray::fromStdString(WriteCamFile(f.program)).startsWith(PlainHead()));
  }

  void WalkThroughARow_data() {
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("lines");
    const auto row = [](const char* name, const char* runs, const char* lines) {
      QTest::newRow(name) << QString::fromLatin1(runs) << QString::fromLatin1(lines);
    };
    row("empty", "", "");
    row("full is lost", "0-360", "");
    row("at degree 0", "0-1", "C 02| 000 001");
    row("at degree 359", "359-360", "C 02| 359 000");
    row("to the end", "350-360", "C 02| 350 000");
    row("wrap comes last", "0-10 20-30 350-360", "C 02| 020 030| 350 010");
    row("all but 0", "1-360", "C 02| 001 000");
    row("all but 359", "0-359", "C 02| 000 359");
    row("all but 358", "0-358 359-360", "C 02| 359 358");
  }

  void WalkThroughARow() {
    QFETCH(QString, row);
    CamFileFixture f;
    f.program.LineBuffer.fill("old");
    f.program.SetRow(1, 1, RowOf(row));
    BuildCamLines(f.program, 1, 1, false);
    QStringList lines;
    for (const std::string& line : f.program.LineBuffer) {
      if (line.empty()) break;
      lines.append(QString::fromStdString(line));
    }
    QTEST(lines.join(u'|'), "lines");
  }

  void MostPhasesFillTheBuffer() {
    CamFileFixture f;
    for (const std::size_t first : {0U, 1U}) {
      f.program.LineBuffer.fill("old");
      CamRow row{};
      for (std::size_t d = first; d < row.size(); d += 2) row[d] = 1;
      f.program.SetRow(1, 1, row);
      BuildCamLines(f.program, 1, 1, false);
      QCOMPARE(f.program.LineBuffer[0], std::string("C 02"));
      QCOMPARE(f.program.LineBuffer[1], std::string(first == 0 ? " 000 001" : " 001 002"));
      QCOMPARE(f.program.LineBuffer[180], std::string(first == 0 ? " 358 359" : " 359 000"));
      QCOMPARE(f.program.LineBuffer[181], std::string());
    }
  }

  /// To the programmer, which is when the port is open, descriptions go with size 1 alone.
  void DescriptionAndOpenPort() {
    CamFileFixture f(2, 2);
    f.program.SetPhase(1, 0, 10, 20);
    f.program.SetPhase(2, 0, 10, 20);
    f.program.SetCamText(0, QStringLiteral("Pressa"));
    const auto camLine = [&f](int size, bool portOpen) {
      BuildCamLines(f.program, size, 0, portOpen);
      return f.program.LineBuffer[0];
    };
    QCOMPARE(camLine(1, false), std::string("C 01\"Pressa\""));
    QCOMPARE(camLine(2, false), std::string("C 01\"Pressa\""));
    QCOMPARE(camLine(1, true), std::string("C 01\"Pressa\""));
    QCOMPARE(camLine(2, true), std::string("C 01"));
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::CamLinesTest)
#include "CamLinesTest.moc"
