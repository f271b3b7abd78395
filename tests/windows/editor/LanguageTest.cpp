// SPDX-License-Identifier: Apache-2.0
#include "dialogs/QtPrompts.h"
#include "support/WindowFixture.h"

#include <QLibraryInfo>
#include <QMessageBox>
#include <QTest>

namespace nira {

namespace {

/// The buttons of a box of Qt's, from left to right.
QString ButtonsOfABox() {
  QStringList buttons;
  WhenOpens<QMessageBox>([&](QMessageBox* box) {
    for (const auto kind : {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}) {
      buttons.append(box->button(kind)->text().remove(u'&'));
    }
    box->done(QMessageBox::Cancel);
  });
  QtPrompts().MsgBox(u"?"_qs, Buttons::YesNoCancel, Icon::None, {});
  return buttons.join(u' ');
}

}  // namespace

/// A change of language while a program is in memory.
class LanguageTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void English() {
    WindowFixture f;
    f.Options("\"p32qx_IT.SCR\",3,19200\r\n/a.CAM\r\n/b.CAM\r\n");
    QVERIFY(f.StartWith(u"100-110"_qs, 4));
    const QDir words(QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    const bool translated = words.exists(u"qtbase_it.qm"_qs);
    QCOMPARE(ButtonsOfABox(), translated ? u"Sì No Annulla"_qs : u"Yes No Cancel"_qs);
    f.program.SetLimits(44, 16, 100);
    f.settings.CurrentFile = f.Path(u"mine.CAM"_qs);
    f.Step(true);
    f.Enter(u"200\r210\r220"_qs);  // the last stands uncommitted
    const QString script = f.Path(u"p32qx_EN.SCR"_qs);
    f.dialog.Expect(script);
    f.serial.Log.clear();
    f.Choose("o_Setlng");
    QVERIFY(f.prompts.boxes.empty());
    QVERIFY(f.serial.Log.contains(u"open 3"_qs) && f.serial.Written.isEmpty());
    QCOMPARE(ReadBytes(f.OptionsPath()), QFile::encodeName(u'"' + script + u"\",3,19200\r\n"_qs));
    QCOMPARE(ContentOf(f.program), u"1.5: 100-110; 2.5: 200-210"_qs);
    QVERIFY(f.Item("o_Undo")->isEnabled());
    QCOMPARE(ButtonsOfABox(), u"Yes No Cancel"_qs);
    QCOMPARE(f.Text("SizeCam"), u"S02 C05"_qs);
    QCOMPARE(f.window->windowTitle(), u"NIRA-KPL CAM PROGRAMMER QX16-44F  100-Msg  mine.CAM"_qs);
    QVERIFY(f.Find(u"GRADION"_qs)->isVisible());
    QVERIFY(f.window->findChild<QAction*>(u"F_Mnu_oldF_1"_qs) == nullptr);
    f.program.IsSaved = false;  // every window reads its texts anew
    f.prompts.Expect(Answer::Cancel);
    f.window->close();
    QVERIFY(f.prompts.Shown().constLast().contains(u"THE CAM PROGRAM HAS NOT BEEN SAVED !"_qs));
  }

  /// Choices that change nothing; a program that was worked on is never lost over a script.
  void Refused_data() {
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a quote in its name") << u"a\"b.SCR"_qs << u"Critical Ok: FILE ERROR"_qs;
    QTest::newRow("cannot be read") << u"folder.SCR"_qs << u"Critical Ok: FILE ERROR"_qs;
    QTest::newRow("lacks texts")
        << u"short.SCR"_qs
        << u"Exclamation NoYes: %1 TESTI MANCANO NEL FILE DELLA LINGUA E SONO IN INGLESE\n"
           "USARE QUESTA LINGUA ?"_qs.arg(MessageTable().Missing() - 1);
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
    f.dialog.Expect(f.Path(chosen));
    const bool asked = chosen.startsWith(u's');
    QVERIFY(WriteBytes(f.Path(u"short.SCR"_qs), "A\"\r\n"));
    f.prompts.Expect(asked ? Answer::No : Answer::Ok);
    QTimer::singleShot(0, &*f.window, [&f] {
      f.Choose("o_Setlng");
      QTimer::singleShot(0, [] { QApplication::exit(42); });
    });
    QVERIFY2(QApplication::exec() == 42, "the program ended, and with it the operator's work");
    QTEST(f.prompts.Shown().join(u'|'), "shown");
    QCOMPARE(ReadBytes(f.OptionsPath()), options);
    QCOMPARE(f.settings.ScriptFile, u"p32qx_IT.SCR"_qs);
    QCOMPARE(f.Text("SizeCam"), u"F01 C05"_qs);
    QCOMPARE(f.Item("F_Mnu_oldF_1")->text(), u"&1 /a.CAM"_qs);
    QCOMPARE(ContentOf(f.program), u"1.5: 100-110 200-210"_qs);
  }
};

}  // namespace nira

QTEST_MAIN(nira::LanguageTest)
#include "LanguageTest.moc"
