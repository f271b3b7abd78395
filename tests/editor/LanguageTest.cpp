#include "support/WindowFixture.h"

#include <QTest>

namespace nira {

namespace {

constexpr int goesOn = 42;  // exit status of a program that the test itself ended

}  // namespace

/// A change of language while a program is in memory.
class LanguageTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void English() {
    WindowFixture f;
    f.Options("\"p32qx_IT.SCR\",3,19200\r\n/a.CAM\r\n/b.CAM\r\n");
    QVERIFY(f.StartWith(u"100-110"_qs, 4));
    f.program.SetLimits(44, 16, 100);
    f.settings.CurrentFile = f.Path(u"mine.CAM"_qs);
    f.Step(true);
    f.Enter(u"200\r210\r220"_qs);  // the last stands uncommitted
    const QString script = f.Path(u"p32qx_EN.SCR"_qs);
    f.dialog.Expect(script);
    f.Choose("o_Setlng");
    QVERIFY(f.prompts.boxes.empty());
    QCOMPARE(f.dialog.shown.join(u'|'),
             u"open; SELECT LANGUAGE; "
             "File Script Lang. (*.Scr)|*.scr|All Files (*.*)|*.*; 0; "_qs);
    QCOMPARE(ReadBytes(f.OptionsPath()), QFile::encodeName(u'"' + script + u"\",3,19200\r\n"_qs));
    QCOMPARE(ContentOf(f.program), u"1.5: 100-110; 2.5: 200-210"_qs);
    QCOMPARE(f.program.NumSizes(), 44);
    QCOMPARE(f.program.NumCams(), 16);
    QCOMPARE(f.program.NumMessages(), 100);
    QCOMPARE(f.settings.CurrentFile, f.Path(u"mine.CAM"_qs));
    QCOMPARE(f.settings.PortNumber, 3);
    QVERIFY(!f.program.IsSaved);
    QVERIFY(f.Item("o_Undo")->isEnabled());
    QCOMPARE(f.Text("SizeCam"), u"S02 C05"_qs);
    QCOMPARE(f.Text("t_fasi"), u"PHASES"_qs);
    QCOMPARE(f.Text("StatusChanged"), u"changed"_qs);
    QCOMPARE(f.Text("StatusModel"), u"16 cams  44 sizes  100 messages"_qs);
    QCOMPARE(f.window->windowTitle(), u"NIRA-KPL CAM PROGRAMMER QX16-44F  100-Msg  mine.CAM"_qs);
    QCOMPARE(f.Find(u"GoPrCam"_qs)->toolTip(), u"Program Cam"_qs);
    QCOMPARE(f.Find(u"Azz_Form"_qs)->toolTip(), u"Erase Size"_qs);
    QCOMPARE(f.Item("f_open")->text(), u"&Open"_qs);
    QVERIFY(f.Find(u"GRADION"_qs)->isVisible());
    QVERIFY(f.window->findChild<QAction*>(u"F_Mnu_oldF_1"_qs) == nullptr);
    f.program.IsSaved = false;  // every window reads its texts anew
    f.prompts.Expect(Answer::Cancel);
    f.window->close();
    QCOMPARE(f.prompts.Shown().join(u'|'),
             u"Exclamation YesNoCancel: THE CAM PROGRAM HAS NOT BEEN SAVED !"_qs);
  }

  /// Choices that change nothing; a program that was worked on is never lost over a script.
  void Refused_data() {
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("shown");
    QTest::newRow("Cancel") << QString() << QString();
    QTest::newRow("gone") << u"gone.SCR"_qs << u"Critical Ok: FILE ERROR"_qs;
    QTest::newRow("a quote in its name") << u"a\"b.SCR"_qs << u"Critical Ok: FILE ERROR"_qs;
    QTest::newRow("cannot be read") << u"folder.SCR"_qs << u"Critical Ok: FILE ERROR"_qs;
  }

  void Refused() {
    QFETCH(QString, chosen);
    WindowFixture f;
    const QByteArray options("\"p32qx_IT.SCR\",1,9600\r\n/a.CAM\r\n");
    f.Options(options);
    QVERIFY(f.StartWith(u"100-110"_qs, 4));
    f.Enter(u"200\r210\r"_qs);
    QVERIFY(QFile::copy(f.Path(u"p32qx_EN.SCR"_qs), f.Path(u"a\"b.SCR"_qs)));
    QVERIFY(QDir().mkpath(f.Path(u"folder.SCR"_qs)));
    if (chosen.isEmpty()) {
      f.dialog.ExpectCancel();
    } else {
      f.dialog.Expect(f.Path(chosen));
      f.prompts.AnswerEverything(true);
    }
    QTimer::singleShot(0, &*f.window, [&f] {
      f.Choose("o_Setlng");
      QTimer::singleShot(0, [] { QApplication::exit(goesOn); });
    });
    QVERIFY2(QApplication::exec() == goesOn, "the program ended, and with it the operator's work");
    QTEST(f.prompts.Shown().join(u'|'), "shown");
    QCOMPARE(ReadBytes(f.OptionsPath()), options);
    QCOMPARE(f.settings.ScriptFile, u"p32qx_IT.SCR"_qs);
    QCOMPARE(f.Text("SizeCam"), u"F01 C05"_qs);
    QCOMPARE(f.Item("F_Mnu_oldF_1")->text(), u"&1 /a.CAM"_qs);
    QCOMPARE(ContentOf(f.program), u"1.5: 100-110 200-210"_qs);
  }

  /// The choice holds for this run where it cannot be written down.
  void OptionsCannotBeWritten() {
    WindowFixture f;
    QVERIFY(f.Start());
    QVERIFY(QFile::remove(f.OptionsPath()) && QDir().mkpath(f.OptionsPath()));
    f.dialog.Expect(f.Path(u"p32qx_EN.SCR"_qs));
    f.prompts.Expect();
    f.Choose("o_Setlng");
    QVERIFY(f.prompts.Shown().last().startsWith(
        u"Critical Ok: IMPOSSIBILE SCRIVERE IL FILE\nKlmQx_opt.def\n"_qs));
    QCOMPARE(f.Text("SizeCam"), u"S01 C02"_qs);
  }

  /// A script of fewer texts leaves captions empty, and a change back brings them again.
  void PoorScript() {
    WindowFixture f;
    QVERIFY(f.Start());
    QVERIFY(WriteBytes(f.Path(u"poor.SCR"_qs), "\"\r\n\r\n"));
    f.dialog.Expect(f.Path(u"poor.SCR"_qs));
    f.Choose("o_Setlng");
    QCOMPARE(f.Text("SizeCam"), u"01 02"_qs);
    QCOMPARE(f.Find(u"GoPrCam"_qs)->toolTip(), QString());
    f.Enter(u"10\r20\r"_qs);
    QCOMPARE(f.Lines(), u"F001 010 020"_qs);
    f.dialog.Expect(f.Path(u"p32qx_IT.SCR"_qs));
    f.Choose("o_Setlng");
    QCOMPARE(f.Text("SizeCam"), u"F01 C02"_qs);
  }
};

}  // namespace nira

QTEST_MAIN(nira::LanguageTest)
#include "LanguageTest.moc"
