// SPDX-License-Identifier: Apache-2.0
#include "editor/SizeStrip.h"
#include "support/Tables.h"
#include "support/WindowFixture.h"

namespace nira {

using namespace Qt::StringLiterals;

/// The Sizes menu, from the question to what is on the screen.
class SizeCommandsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Numbers_data() {
    TextTable({"item", "answer", "told", "content", "label", "note"},
              {{"select", "s_sel", "7.6", "SELEZIONE FORMATO - ATTUALE: 2 / 22|", "2.5: 10-20",
                "F08 C05", ""},
               {"no such size", "s_sel", "23",
                "SELEZIONE FORMATO - ATTUALE: 2 / 22|"
                "Exclamation Ok: NUMERO DI FORMATO NON VALIDO",
                "2.5: 10-20", "F01 C05", ""},
               {"cancelled", "s_sel", "(cancel)",
                "SELEZIONE FORMATO - ATTUALE: 2 / 22|"
                "Exclamation Ok: NUMERO DI FORMATO NON VALIDO",
                "2.5: 10-20", "F01 C05", ""},
               {"copy", "O_Copy", " 22 ", "COPIA NEL FORMATO N. ? - ATTUALE: 2 / 22|",
                "2.5: 10-20; 22.5: 10-20", "F02 C05", "Formato 2 copiato nel formato 22"},
               {"copy to no size", "O_Copy", "3abc",
                "COPIA NEL FORMATO N. ? - ATTUALE: 2 / 22|"
                "None Ok: FORMATO DI DESTINAZIONE NON VALIDO",
                "2.5: 10-20", "F02 C05", ""},
               {"copy the cam", "O_CopyC", "32abc", "COPIA NELLA CAMMA N. ? - ATTUALE: 5 / 32|",
                "2.5: 10-20; 2.32: 10-20", "F02 C05", "Camma 5 copiata nella camma 32"},
               {"shift", "o_Shc", "-20", "GRADI DI SPOSTAMENTO (+/-) DELLA CAMMA N. 5|",
                "2.5: 350-360", "F02 C05", "Camma 5 spostata di -20 gradi"}});
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
    QTEST(f.Text("StatusNote"), "note");
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
    QCOMPARE(f.prompts.Shown().constLast(), u"Question NoYes: AZZERARE IL FORMATO N. 1 ?"_qs);
    QCOMPARE(ContentOf(f.program), QString());
    QCOMPARE(f.Text("StatusNote"),
             u"Formato 1 azzerato, il disegno segue alla prossima selezione"_qs);
    WindowFixture::OtherWindow();
    f.Activate();
    QCOMPARE(f.Lines(), u"F001 010 020|F002 100 110"_qs);
    f.Press(Qt::Key_PageDown);
    QCOMPARE(f.Lines(), QString());
  }

  /// A cell a size, from any of which a click gets there; the keys of the cams hold on it, too.
  void Strip() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20 350-360 0-5"_qs, 4));
    f.window->resize(1024, 768);
    auto* strip = f.Find<SizeStrip>(u"SizeStrip"_qs);
    const auto click = [&](int size) {
      QTest::mouseClick(strip, Qt::LeftButton, {}, strip->Cell(size).center());
    };
    f.Enter(u"\r30"_qs);  // an entry that is left ends first
    click(22);
    QCOMPARE(f.Text("SizeCam"), u"F22 C05"_qs);
    QCOMPARE(f.Runs(1, 4), u"0-30 350-360"_qs);
    QCOMPARE(strip->accessibleName(), u"Formati in uso 1 / 22; Formato 22: nessuna fase"_qs);
    strip->setFocus();
    f.Press(Qt::Key_End);
    QCOMPARE(f.Text("SizeCam"), u"F22 C32"_qs);
    click(1);
    QCOMPARE(strip->accessibleName(), u"Formati in uso 1 / 22; Formato 1: camme 1, fasi 1"_qs);
    f.Press(Qt::Key_Right);
    QCOMPARE(f.Text("SizeCam"), u"F02 C32"_qs);
    f.program.SetLimits(99, 16, 255);
    f.Press(Qt::Key_End);
    for (int size = 99; size > 0; --size) {
      click(size);
      QCOMPARE(f.program.CurrentSize(), size);
      QVERIFY(strip->Cell(size).width() >= 4 && strip->rect().contains(strip->Cell(size)));
    }
  }

  void EraseCamAndUndo() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 4));
    f.Enter(u"100\r110\r"_qs);
    f.prompts.Expect(Answer::Yes);
    f.Choose("O_ClC");
    QCOMPARE(f.prompts.Shown().constLast(), u"Question NoYes: AZZERARE LA CAMMA N. 5 ?"_qs);
    QCOMPARE(f.Lines(), QString());
    f.Choose("o_Undo");  // the row from before the last entry, not from before the erasing
    QCOMPARE(f.Lines(), u"F001 010 020"_qs);
  }

  void Import() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 4));
    const QString press = f.Sample(u"press.CAM"_qs);
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
    QCOMPARE(f.Text("StatusNote"), u"MANCA LA RIGA END, FILE FORSE INCOMPLETO: "_qs + press);
  }

  /// The model in memory is the one that is offered; the one that is chosen comes empty.
  void Model() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 4));
    f.program.SetLimits(45, 32, 255);  // is not among the models
    f.Enter(u"30\r40\r"_qs);
    QString opened;
    f.chooseModel = [&](Carprg* window) {
      for (const auto* option : window->findChildren<QRadioButton*>()) {
        if (option->isChecked()) opened += u' ' + option->text();
      }
      for (const char* click : {"O_QX_0", "O_F_1"}) {
        window->findChild<QRadioButton*>(QString::fromLatin1(click))->click();
      }
    };
    f.prompts.Expect(Answer::Ok);
    f.Choose("f_New");
    QCOMPARE(opened, u" QX32 22 FORMATI"_qs);
    QCOMPARE(f.Text("StatusModel"), u"16 camme  99 formati  255 messaggi"_qs);
    QCOMPARE(ContentOf(f.program), QString());
    QVERIFY(f.program.IsSaved && !f.Item("o_Undo")->isEnabled());
    QVERIFY(!f.Find(u"LabCam_16"_qs)->isVisible());
  }

  void Descriptions_data() {
    TextTable({"answers", "told", "text"},
              {{"too long", "AAAAAAAAAAAAAAAAAAAAA|B", "Information Ok: MASSIMO 20 CARATTERI", "B"},
               {"refused", "A\x7f|A", "Exclamation Ok: CARATTERE NON AMMESSO: \u2421", "A"},
               {"emptied", "", "Question CancelOk: CANCELLARE LA DESCRIZIONE DELLA CAMMA ?", ""},
               {"emptied, Cancel", "", "Question CancelOk: CANCELLARE LA DESCRIZIONE DELLA CAMMA ?",
                "OLD"}});
  }

  void Descriptions() {
    QFETCH(QString, answers);
    QFETCH(QString, told);
    const bool cancels = QByteArray(QTest::currentDataTag()).endsWith("Cancel");
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 6));
    f.program.SetCamText(4, u"OLD"_qs);
    for (const QString& answer : answers.split(u'|')) f.prompts.ExpectInput(answer);
    f.prompts.Expect(cancels ? Answer::Cancel : Answer::Ok);
    f.DoubleClick(u"LDefC_4"_qs);
    QCOMPARE(f.prompts.inputs.at(0).prompt, u"DESCRIZIONE CAMMA N.5"_qs);
    QCOMPARE(f.prompts.inputs.at(0).preset, u"OLD"_qs);
    if (!answers.isEmpty())
      QCOMPARE(f.prompts.inputs.at(1).preset, answers.section(u'|', 0, 0).left(20));
    QCOMPARE(f.prompts.Shown().join(u'|'), told);
    QTEST(f.program.CamText(4), "text");
    QVERIFY(f.program.IsSaved);
  }
};

}  // namespace nira

QTEST_MAIN(nira::SizeCommandsTest)
#include "SizeCommandsTest.moc"
