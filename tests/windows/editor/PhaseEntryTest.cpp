// SPDX-License-Identifier: Apache-2.0
#include "support/Tables.h"
#include "support/WindowFixture.h"

#include <QInputMethodEvent>
#include <QRegularExpression>
#include <QTest>

#include <tuple>

namespace nira {

namespace {

void Paste(WindowFixture& f, const QString& way, const QString& box, const QString& clip) {
  if (way == u"Ctrl+V"_qs) f.Press(Qt::Key_V, Qt::ControlModifier);
  if (way != u"composed"_qs) return;
  QInputMethodEvent event;  // as an input method brings it
  event.setCommitString(clip);
  QApplication::sendEvent(f.Find(box), &event);
}

}  // namespace

/// Entering, changing and deleting phases in the two boxes.
class PhaseEntryTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Typing_data() {
    TextTable({"keys", "before", "boxes", "after", "lines"},
              {{"first", "10\r20\r", "", " 020", "10-20", "F001 010 020"},
               {"no digits", "a.-\r", "100-110", "000 110", "100-110", "F001 100 110"},
               {"across", "\r1e\r", "100-110", "100 010", "0-10 100-360", "F001 100 010"},
               {"of two", "350\r10\r", "20-30", "020 010", "0-10 20-30 350-360",
                "F001 350 010|F002 020 030"},
               {"deletes", "100\t100\t", "90-120 200-210", "090 100", "200-210", "F001 200 210"},
               {"shorter", "15\r\r", "10-20 40-50", "010 020", "15-20 40-50",
                "F001 015 020|F002 040 050"},
               {"nothing typed since it was entered anew", "\r\r\r", "", " 000", "", ""}});
  }

  void Typing() {
    QFETCH(QString, before);
    QFETCH(QString, keys);
    WindowFixture f;
    QVERIFY(f.StartWith(before, 4));
    f.Enter(keys);
    QTEST(f.Boxes(), "boxes");
    QTEST(f.Runs(1, 4), "after");
    QTEST(f.Lines(), "lines");
    QCOMPARE(f.Text("Tot_fasi").toInt(), f.Lines().count(u'F'));
    const auto left = keys.count(QRegularExpression(u"[\r\t]"_qs));
    QCOMPARE(f.Item("o_Undo")->isEnabled(), left >= 2);
    QCOMPARE(f.Focus(), left % 2 == 0 ? u"GRADION"_qs : u"GRADIOFF"_qs);
    QVERIFY(!f.program.IsSaved);
  }

  /// However a text comes in: as typed, a character that is no digit is a zero.
  void Pasting() {
    using Row = std::tuple<QString, const char*, const char*>;
    for (const QString& way : {u"Ctrl+V"_qs, u"composed"_qs}) {
      for (const auto& [clip, on, off] :
           {Row{u"12345"_qs, "123", "123"}, Row{u"-5,x"_qs, "050", "050"},
            Row{u"77\n88"_qs, "077", "077"}, Row{u"\u0663\U0001F600\u00E8"_qs, "000", "000"},
            Row{u"#"_qs, "00#", "00#"}, Row{QString(), "100", "110"}}) {
        WindowFixture f;
        QVERIFY(f.StartWith(u"100-110"_qs));
        QApplication::clipboard()->setText(clip);
        f.Enter({});
        Paste(f, way, u"GRADION"_qs, clip);
        f.Type(u"\r"_qs);
        QCOMPARE(f.Box("GRADION"), QString(on));
        Paste(f, way, u"GRADIOFF"_qs, clip);
        QCOMPARE(f.program.CurrentCam(), clip == u"#"_qs ? 31 : 0);
        f.Type(u"\r"_qs);
        QCOMPARE(f.Box("GRADIOFF"), QString(off));
      }
    }
  }

  void Untyped() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"100-110 200-210"_qs));
    f.ClickLine(1);
    f.Click(u"GRADION"_qs);
    f.Type(u"15"_qs);
    f.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(f.Boxes(), u"015 210"_qs);
    QCOMPARE(f.Find<DegreeBox>(u"GRADIOFF"_qs)->selectedText(), u"210"_qs);
    QVERIFY(!f.Item("o_Undo")->isEnabled());  // entering is no leaving
    f.Type(u"15"_qs);
    f.Click(u"GRADION"_qs);  // deletes what is at degree 15: nothing
    QCOMPARE(f.Runs(1, 0), u"100-110 200-210"_qs);
    QCOMPARE(f.Boxes(), u"200 015"_qs);  // the ON text is the list's, the OFF text the last one
  }

  void Steps() {
    using Row = std::tuple<char, int, int>;
    for (const auto& [key, from, to] :
         {Row{'!', 5, 4}, Row{'!', 30, 29}, Row{'!', 31, 31}, Row{'!', 0, 0}, Row{'"', 5, 6},
          Row{'"', 31, 31}, Row{'"', 30, 31}, Row{'"', 0, 0}, Row{'#', 5, 31}, Row{'$', 5, 0}}) {
      const QString code(QLatin1Char{key});
      WindowFixture f;
      QVERIFY(f.StartWith(u"100-110"_qs, from));
      const QString label = f.Text("SizeCam");
      f.Enter(u"200\r"_qs + code);
      QCOMPARE(f.program.CurrentCam(), to);
      QCOMPARE(f.Text("SizeCam"), label);
      QCOMPARE(f.Lines(), u"F001 100 110"_qs);  // nothing is drawn before the commit
      f.Type(u"\r"_qs);
      QCOMPARE(f.Box("GRADIOFF"), u"00"_qs + code);
      QCOMPARE(f.Runs(1, to), to == from ? u"100-110 200-360"_qs : u"200-360"_qs);
      QCOMPARE(f.Runs(1, from), to == from ? u"100-110 200-360"_qs : u"100-110"_qs);
      QCOMPARE(f.Text("SizeCam"), u"F01 C%1"_qs.arg(to + 1, 2, 10, QChar(u'0')));
      QVERIFY(f.Lines().contains(u"200 000"_qs));
      f.Type(code);  // in the ON box it is a character
      QCOMPARE(f.program.CurrentCam(), to);
      QCOMPARE(f.Box("GRADION"), code);
    }
  }

  void PhaseListAndBoxes() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"0-10 100-110 200-210 350-360"_qs));
    QCOMPARE(f.Lines(), u"F001 350 010|F002 100 110|F003 200 210"_qs);
    f.ClickLine(1);
    QCOMPARE(f.Boxes(), u"100 110"_qs);
    f.Press(Qt::Key_Up);
    QCOMPARE(f.Boxes(), u"350 010"_qs);
    f.Click(u"GRADION"_qs);
    f.Type(u"5"_qs);
    f.ClickLine(0);  // the line that is selected already
    QCOMPARE(f.Boxes(), u"350 010"_qs);
  }

  void Opens() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"100-110 200-210"_qs, 3));
    f.DoubleClick(u"LabCam_3"_qs);
    QCOMPARE(f.Boxes(), u"100 110"_qs);
    QCOMPARE(f.Focus(), u"GRADION"_qs);
    QCOMPARE(f.Find<DegreeBox>(u"GRADION"_qs)->selectedText(), u"100"_qs);
    QVERIFY(!f.program.IsSaved);
    f.Press(Qt::Key_Home);
    f.Choose("o_MODC");
    QCOMPARE(f.Boxes(), u" "_qs);  // nothing to load
    f.Type(u"\r10\r"_qs);
    QCOMPARE(f.Runs(1, 0), u"0-10"_qs);
  }

  /// With the second of three phases selected in the list.
  void Keys_data() {
    TextTable({"keys", "runs", "boxes", "focus"},
              {{"moves", "Ctrl+Right Ctrl+Right Ctrl+Left", "101-111", "101 111", "Fase"},
               {"ON end", "Alt+Left Alt+Left", "98-110", "098 110", "Fase"},
               {"a correction in four keys", "1 0 5 Ctrl+Return", "105-110", "100 110", "GRADION"},
               {"new", "Ins 3 0 0 Return 3 1 0 Return", "100-110 300-310", " 310", "GRADION"},
               {"none selected", "Del 5 0 Return 6 0 Return", "50-60", " 060", "GRADION"},
               {"arrows in a box", "1 0 Shift+Left 7 Alt+Left", "100-110", "17 110", "GRADION"},
               {"typing taken back", "1 0 5 Return 1 2 Esc Esc", "100-110", "100 110", "Fase"},
               {"undo from a box", "1 0 5 Ctrl+Return Ctrl+Z", "100-110", "100 110", "GRADION"},
               {"undo of a deletion", "Del Ctrl+Z", "100-110", "100 110", "Fase"},
               {"other size", "Ctrl+PgDown Ctrl+PgUp Del", "100-110", "100 110", "Fase"}});
  }

  void Keys() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"0-10 100-110 200-210 350-360"_qs, 4));
    f.ClickLine(1);
    QFETCH(QString, keys);
    for (const QString& name : keys.split(u' ')) {
      const QKeyCombination key = QKeySequence(name)[0];
      f.Press(key.key(), key.keyboardModifiers(), name.size() == 1 ? name : QString());
    }
    QFETCH(QString, runs);
    const CamRow row = RowOf(u"0-10 200-210 350-360 "_qs + runs);
    QCOMPARE(f.Runs(1, 4), RunsOf(row));
    QTEST(f.Boxes(), "boxes");
    QTEST(f.Focus(), "focus");
    f.Find(u"Fase"_qs)->setFocus();
    f.ClickLine(0);
    f.Press(Qt::Key_Delete);  // both halves
    QVERIFY(!f.Runs(1, 4).contains(u"0-10 "_qs) && !f.Runs(1, 4).contains(u"360"_qs));
    f.Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(f.Runs(1, 4), RunsOf(row));
  }

  /// A panel that is too low lets its buttons go.
  void Panel() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"100-110"_qs, 4));
    f.window->resize(f.window->width(), 560);
    QTRY_VERIFY(!f.Find(u"KeyHints"_qs)->isVisible());
    f.window->resize(f.window->width(), 1000);
    QTRY_VERIFY(f.Find(u"KeyHints"_qs)->isVisible());
    QVERIFY(!f.Find(u"DelPhaseButton"_qs)->isEnabled());
    f.ClickLine(0);
    f.Click(u"DelPhaseButton"_qs);
    QCOMPARE(f.Lines(), QString());
    QCOMPARE(f.Find(u"UndoButton"_qs)->accessibleName(), u"Undo riga di F01 C05"_qs);
  }

  void KeysSelectCams() {
    WindowFixture f;
    QVERIFY(f.Start());
    QStringList seen;
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_PageDown,
                              Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_End}) {
      f.Press(key);
      seen.append(f.Text("SizeCam").right(3));
    }
    QCOMPARE(seen.join(u' '), u"C01 C32 C31 C32 C01 C02 C32"_qs);
    f.Enter(u"5"_qs);  // from within a box, but not with modifiers
    f.Press(Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(f.program.CurrentCam(), 31);
    f.Press(Qt::Key_Home, Qt::KeypadModifier);
    QCOMPARE(f.program.CurrentCam(), 0);
  }
};

}  // namespace nira

QTEST_MAIN(nira::PhaseEntryTest)
#include "PhaseEntryTest.moc"
