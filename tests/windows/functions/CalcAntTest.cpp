// SPDX-License-Identifier: Apache-2.0
#include "functions/CalcAnt.h"
#include "functions/ShiftArrow.h"
#include "support/Tables.h"
#include "support/WindowFixture.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

/// The calculator over cam 5 of size 2, with the shipped Italian texts.
struct Calculator {
  Calculator(const QString& runs, int advance) {
    texts.Read(QStringLiteral(NIRA_SOURCE_FOLDER "/lang/p32qx_IT.SCR"));
    program.SelectSize(2);
    program.SelectCam(4);
    program.SetRow(2, 4, RowOf(runs));
    FunctionsBlock block;
    block.CamFunc[4] = static_cast<std::uint8_t>(advance);
    program.SetFunctions(block);
    window.emplace(program, texts, nullptr);
    window->show();
  }

  bool Drawn() {
    return QTest::qWaitFor([this] { return !Bar(u"Barra"_qs)->Shown().runs.empty(); });
  }
  QScrollBar* Scroll(const char* name) {
    return window->findChild<QScrollBar*>(QLatin1String(name));
  }
  CamBar* Bar(const QString& name) { return window->findChild<CamBar*>(name); }
  QString Text(const char* name) { return window->findChild<QLabel*>(QLatin1String(name))->text(); }
  /// "advance: degrees, turns".
  QString Result() { return Text("LAntImp") + u": " + Text("LAntRis") + u", " + Text("LGirAnt"); }
  QString Runs(const QString& bar) {
    QStringList runs;
    for (const Run& run : Bar(bar)->Shown().runs) {
      runs.append(QString::number(run.on) + u'-' + QString::number(run.off));
    }
    return runs.join(u' ');
  }

  CamProgram program;
  MessageTable texts;
  std::optional<CalcAnt> window;
};

}  // namespace

class CalcAntTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  /// The timer makes the first drawing, from what the bars say.
  void Opens() {
    for (const int advance : {0, 200, 255}) {
      Calculator c(u"100-110"_qs, advance);
      QCOMPARE(c.Text("Label14"), u"F02 C05"_qs);
      QVERIFY(c.Drawn());
      const int inForce = std::min(advance, 210);
      QCOMPARE(c.Result(), u"%1: %2, 0"_qs.arg(inForce).arg(advance > 0));
      QCOMPARE(c.Runs(u"Barra"_qs), advance > 0 ? u"99-109"_qs : u"100-110"_qs);
      QCOMPARE(c.Runs(u"BarraProg"_qs), u"100-110"_qs);
      QCOMPARE(c.Text("LRPM") + c.Text("LAntDes"), u"11"_qs);
    }
  }

  /// Speed, time and, unless it is not touched, the wanted angle.
  void Settings_data() {
    TextTable({"set", "result", "shifted"},
              {{"60 degrees", "1000 10", "10: 60, 0", "40-50 290-320"},
               {"whole turns", "4000 210", "210: 0, 14", "0-20 350-360 100-110"},
               {"wanted", "1000 0 90", "15: 90, 0", "10-20 260-290"},
               {"steps down to what fits", "100 7 360", "210: 126, 0", "224-254 334-344"}});
  }

  void Settings() {
    QFETCH(QString, set);
    Calculator c(u"0-20 100-110 350-360"_qs, 0);
    QVERIFY(c.Drawn());
    const QStringList values = set.split(u' ');
    c.Scroll("ScrollRPM")->setValue(values.at(0).toInt());
    c.Scroll("ScrollAnt")->setValue(values.at(1).toInt());
    if (values.size() > 2) c.Scroll("ScrAntRis")->setValue(values.at(2).toInt());
    QTEST(c.Result(), "result");
    QTEST(c.Runs(u"Barra"_qs), "shifted");
    QCOMPARE(c.Runs(u"BarraProg"_qs), u"0-20 350-360 100-110"_qs);
    if (set.endsWith(u"360"_qs)) QCOMPARE(c.Scroll("ScrAntRis")->value(), 126);
  }

  /// The speed changes what the time means, not the wanted angle; nothing reaches the program.
  void Keys() {
    Calculator c(u"100-110"_qs, 200);
    QVERIFY(c.Drawn());
    const std::uint64_t revision = c.program.Revision();
    QScrollBar* speed = c.Scroll("ScrollRPM");
    QCOMPARE(QTest::qWaitForWindowActive(&*c.window), true);
    QCOMPARE(QApplication::focusWidget(), speed);
    QTest::keyClick(speed, Qt::Key_PageUp);
    QCOMPARE(c.Result(), u"200: 121, 0"_qs);
    QTest::keyClick(speed, Qt::Key_End);
    QTest::keyClick(c.Scroll("ScrAntRis"), Qt::Key_PageUp);
    QCOMPARE(c.Result(), u"0: 0, 0"_qs);  // 11 degrees take less than a millisecond
    QTest::keyClick(c.Scroll("ScrAntRis"), Qt::Key_Escape);
    QVERIFY(!c.window->isVisible());
    QCOMPARE(c.program.Revision(), revision);
  }

  /// Beside each bar its value can be typed; the arrow tells the shift. A wanted angle that is
  /// typed again counts at the speed of now, and what is no value of the bar stays, marked.
  void Typed_data() {
    TextTable({"typed", "result", "arrow", "note"},
              {{"time", "TRPM 1000 TAntImp 10", "10: 60, 0", "\u221260\u00b0", ""},
               {"wanted again", "TRPM 1000 TAntDes 90 TRPM 500 TAntDes 90", "30: 90, 0",
                "\u221290\u00b0", ""},
               {"too high", "TRPM 1000 TAntImp 10 TRPM 4001", "10: 60, 0", "\u221260\u00b0",
                "R.P.M.: 4001 non ammesso, da 1 a 4000"},
               {"empty, then right", "TAntDes , TAntDes 1", "167: 1, 0", "\u22121\u00b0", ""}});
  }

  void Typed() {
    QFETCH(QString, typed);
    Calculator c(u"100-110"_qs, 0);
    QVERIFY(c.Drawn());
    const QStringList words = typed.split(u' ');
    QLineEdit* box = nullptr;
    for (qsizetype i = 0; i < words.size(); i += 2) {
      box = c.window->findChild<QLineEdit*>(words.at(i));
      box->setFocus();
      box->selectAll();
      QTest::keyClick(box, Qt::Key_Delete);
      QTest::keyClicks(box, words.at(i + 1));
      QTest::keyClick(box, i == 0 ? Qt::Key_Tab : Qt::Key_Return);
    }
    QTEST(c.Result(), "result");
    QTEST(c.window->findChild<ShiftArrow*>()->Words(), "arrow");
    QTEST(c.Text("Note"), "note");
    QCOMPARE(box->text(), words.constLast());
  }
};

}  // namespace nira

QTEST_MAIN(nira::CalcAntTest)
#include "CalcAntTest.moc"
