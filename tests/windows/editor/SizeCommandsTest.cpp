// SPDX-License-Identifier: Apache-2.0
#include "support/WindowFixture.h"

namespace nira {

using namespace Qt::StringLiterals;

/// The Sizes menu, from the question to what is on the screen.
class SizeCommandsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Numbers_data() {
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("label");
    const auto row = [](const char* item, const char* answer, const QString& told,
                        const char* content = "2.5: 10-20", const char* label = "F02 C05") {
      QTest::addRow("%s %s", item, answer)
          << QString(item) << QString(answer) << told << QString(content) << QString(label);
    };
    const QString select = u"SELEZIONE FORMATO - ATTUALE: 2 / 22|"_qs;
    const QString noSize = select + u"Exclamation Ok: NUMERO DI FORMATO NON VALIDO"_qs;
    row("s_sel", "7.6", select, "2.5: 10-20", "F08 C05");
    for (const char* bad : {"23", "(cancel)", "4294967298"}) {
      row("s_sel", bad, noSize, "2.5: 10-20", "F01 C05");
    }
    const QString copy = u"COPIA NEL FORMATO N. ? - ATTUALE: 2 / 22|"_qs;
    row("O_Copy", " 22 ", copy, "2.5: 10-20; 22.5: 10-20");
    row("O_Copy", "3abc", copy + u"None Ok: FORMATO DI DESTINAZIONE NON VALIDO"_qs);
    const QString cam = u"COPIA NELLA CAMMA N. ? - ATTUALE: 5 / 32|"_qs;
    row("O_CopyC", "32abc", cam, "2.5: 10-20; 2.32: 10-20");
    row("O_CopyC", "33", cam + u"None Ok: NUMERO DI CAMMA NON VALIDO"_qs);
    const QString shift = u"GRADI DI SPOSTAMENTO (+/-) DELLA CAMMA N. 5|"_qs;
    row("o_Shc", "-20", shift, "2.5: 350-360");
  }

  void Numbers() {
    QFETCH(QString, item);
    QFETCH(QString, answer);
    QFETCH(QString, told);
    WindowFixture f;
    QVERIFY(f.StartWith({}, 4));
    f.Step(true);
    f.program.SetRow(2, 4, RowOf(u"10-20"_qs));
    const bool cancels = answer == u"(cancel)"_qs;
    f.prompts.ExpectInput(cancels ? std::nullopt : std::optional(answer));
    if (!told.endsWith(u'|')) f.prompts.Expect();
    f.Choose(qPrintable(item));
    QCOMPARE(f.prompts.inputs.at(0).prompt + u'|' + f.prompts.Shown().join(u'|'), told);
    QTEST(ContentOf(f.program), "content");
    QTEST(f.Text("SizeCam"), "label");
    QVERIFY(f.program.IsSaved);
  }

  /// The erased phases stay on the screen until the next refresh, whatever happens to the window.
  void EraseSizeShowsLater() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20 100-110"_qs, 4));
    f.prompts.Expect(Answer::No);
    f.Click(u"Azz_Form"_qs);
    QCOMPARE(ContentOf(f.program), u"1.5: 10-20 100-110"_qs);
    f.prompts.Expect(Answer::Yes);
    f.Click(u"Azz_Form"_qs);
    QCOMPARE(f.prompts.Shown().constLast(), u"Question YesNo: AZZERARE IL FORMATO N. 1 ?"_qs);
    QCOMPARE(ContentOf(f.program), QString());
    const QString lines = u"F001 010 020|F002 100 110"_qs;
    f.window->resize(f.window->size() + QSize(40, 40));
    WindowFixture::OtherWindow();
    f.Activate();
    QCOMPARE(f.Lines(), lines);
    QCOMPARE(f.Find<CamBar>(u"Barra_4"_qs)->Shown().runs.size(), std::size_t(2));
    f.Press(Qt::Key_PageDown);
    QCOMPARE(f.Lines(), QString());
    QVERIFY(f.Find<CamBar>(u"Barra_4"_qs)->Shown().runs.empty());
  }

  void EraseCamAndUndo() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 4));
    f.Enter(u"100\r110\r"_qs);
    f.prompts.Expect(Answer::Yes);
    f.Choose("O_ClC");
    QCOMPARE(f.prompts.Shown().constLast(), u"Question YesNo: AZZERARE LA CAMMA N. 5 ?"_qs);
    QCOMPARE(f.Lines(), QString());
    f.Choose("o_Undo");  // the row from before the last entry, not from before the erasing
    QCOMPARE(f.Lines(), u"F001 010 020"_qs);
  }

  void Import() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 4));
    const QString press = f.Sample(u"press.CAM"_qs);
    f.dialog.ExpectCancel();
    f.Choose("S_Imp");
    f.dialog.Expect(press);
    f.prompts.ExpectInput(u"23"_qs);
    f.prompts.Expect();
    f.Choose("S_Imp");
    QCOMPARE(f.prompts.inputs.at(0).prompt, u"IMPORTA IL FORMATO N. ? 1 - 22"_qs);
    QCOMPARE(f.prompts.Shown().constLast(), u"Exclamation Ok: NUMERO DI FORMATO NON VALIDO"_qs);
    QCOMPARE(ContentOf(f.program), u"1.5: 10-20"_qs);
    QVERIFY(f.program.IsSaved);
    f.dialog.Expect(press);
    f.prompts.ExpectInput(u"1"_qs);
    f.Choose("S_Imp");
    QVERIFY(!f.program.IsSaved);
    QCOMPARE(f.Text("LDefC_0"), u"FEED GRIPPER"_qs);
    QCOMPARE(f.Runs(1, 4), u"37-74"_qs);
    const QByteArray bytes = ReadBytes(press);
    QVERIFY(WriteBytes(press, bytes.left(bytes.lastIndexOf("END"))));
    f.dialog.Expect(press);
    f.prompts.ExpectInput(u"22"_qs);
    f.Choose("S_Imp");
    QCOMPARE(f.window->statusBar()->currentMessage(),
             u"MANCA LA RIGA END, FILE FORSE INCOMPLETO: "_qs + press);
  }

  void Descriptions_data() {
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("text");
    const QString longTold = u"Information Ok: MASSIMO 20 CARATTERI"_qs;
    const QString eraseTold = u"Question OkCancel: CANCELLARE LA DESCRIZIONE DELLA CAMMA ?"_qs;
    QTest::newRow("new") << QStringList{u"BLOW OFF"_qs} << QString() << u"BLOW OFF"_qs;
    QTest::newRow("too long") << QStringList{QString(21, u'A'), u"B"_qs} << longTold << u"B"_qs;
    QTest::newRow("refused") << QStringList{u"A\u007F"_qs, u"A"_qs}
                             << u"Exclamation Ok: CARATTERE NON AMMESSO: \u2421"_qs << u"A"_qs;
    QTest::newRow("emptied") << QStringList{u""_qs} << eraseTold << QString();
    QTest::newRow("emptied, Cancel") << QStringList{u""_qs} << eraseTold << u"OLD"_qs;
  }

  void Descriptions() {
    QFETCH(QStringList, answers);
    QFETCH(QString, told);
    const bool cancels = QByteArray(QTest::currentDataTag()).endsWith("Cancel");
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 6));
    f.program.SetCamText(4, u"OLD"_qs);
    for (const QString& answer : answers) f.prompts.ExpectInput(answer);
    if (!told.isEmpty()) f.prompts.Expect(cancels ? Answer::Cancel : Answer::Ok);
    f.DoubleClick(u"LDefC_4"_qs);
    QCOMPARE(f.prompts.inputs.at(0).prompt, u"DESCRIZIONE CAMMA N.5"_qs);
    QCOMPARE(f.prompts.inputs.at(0).preset, u"OLD"_qs);
    if (answers.size() > 1) QCOMPARE(f.prompts.inputs.at(1).preset, answers.at(0).left(20));
    QCOMPARE(f.prompts.Shown().join(u'|'), told);
    QTEST(f.program.CamText(4), "text");
    QVERIFY(f.program.IsSaved);
  }

  void Model_data() {
    QTest::addColumn<int>("cams");
    QTest::addColumn<int>("sizes");
    QTest::addColumn<QString>("clicks");
    QTest::addColumn<QString>("opened");
    QTest::addColumn<QString>("status");
    const auto row = [](int cams, int sizes, const char* clicks, const char* opened,
                        const char* status) {
      QTest::addRow("%d %d %s", cams, sizes, clicks)
          << cams << sizes << QString(clicks) << QString(opened) << QString(status);
    };
    row(16, 99, "", "QX16 99 FORMATI", "16 camme  99 formati  255 messaggi");
    row(32, 45, "", "QX32 22 FORMATI", "32 camme  22 formati  255 messaggi");  // not in the table
    row(32, 22, "O_QX_0 O_F_1", "QX32 22 FORMATI", "16 camme  99 formati  255 messaggi");
  }

  void Model() {
    QFETCH(QString, clicks);
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 4));
    QFETCH(int, cams);
    QFETCH(int, sizes);
    f.program.SetLimits(sizes, cams, 255);
    f.Enter(u"30\r40\r"_qs);
    QString opened;
    f.chooseModel = [&](Carprg* window) {
      for (const auto* option : window->findChildren<QRadioButton*>()) {
        if (option->isChecked()) opened += u' ' + option->text();
      }
      QTest::keyClick(window, Qt::Key_Escape);
      QVERIFY(window->isVisible());
      for (const QString& click : clicks.split(u' ', Qt::SkipEmptyParts)) {
        window->findChild<QRadioButton*>(click)->click();
      }
    };
    f.prompts.Expect(Answer::Ok);
    f.Choose("f_New");
    QTEST(opened.mid(1), "opened");
    QTEST(f.Text("StatusModel"), "status");
    QCOMPARE(ContentOf(f.program), QString());
    QVERIFY(f.program.IsSaved);
    QVERIFY(!f.Item("o_Undo")->isEnabled());
    QCOMPARE(f.Find(u"LabCam_16"_qs)->isVisible(), f.program.NumCams() == 32);
  }
};

}  // namespace nira

QTEST_MAIN(nira::SizeCommandsTest)
#include "SizeCommandsTest.moc"
