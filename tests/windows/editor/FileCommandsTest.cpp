// SPDX-License-Identifier: Apache-2.0
#include "editor/FileCommands.h"
#include "support/WindowFixture.h"

#include <QTest>

#include <tuple>

namespace nira {

namespace {

const QString notSaved = QStringLiteral("IL PROGRAMMA DI CAMME NON E' STATO SALVATO !");
const QString cannotWrite = QStringLiteral("Critical Ok: IMPOSSIBILE SCRIVERE IL FILE\n");

/// A small program in memory, from a file that exists; size 2 and cam 5 selected.
bool Begin(WindowFixture& f) {
  f.settings.CurrentFile = f.Path(u"old.CAM"_qs);
  if (!WriteBytes(f.settings.CurrentFile, "old") || !f.StartWith(u"100-110"_qs, 4)) return false;
  f.program.SetCamText(4, u"TEXT"_qs);
  f.program.TakeAsSaved();
  f.Step(true);
  return true;
}

const QString content = QStringLiteral("1.5: 100-110; 5 = TEXT");

void Go(WindowFixture& f, const QString& way) {
  if (way == u"drop"_qs) {
    f.Drop({QUrl::fromLocalFile(f.Path(u"press.CAM"_qs)), QUrl::fromLocalFile(u"/other"_qs)});
  } else {
    way.endsWith(u"_Fil"_qs, Qt::CaseInsensitive) ? f.Click(way) : f.Choose(qPrintable(way));
  }
}

}  // namespace

/// New, Open, Save, Save As, recent and dropped files, and quitting.
class FileCommandsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Open_data() {
    QTest::addColumn<QByteArray>("bytes");  // of the file; "/" a folder
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("after");  // "=" as before
    QTest::addColumn<bool>("current");   // the opened file is the current one
    const auto row = [](const char* name, const QByteArray& bytes, const QString& shown,
                        const char* after, bool current = false) {
      QTest::newRow(name) << bytes << shown << QString::fromLatin1(after) << current;
    };
    const QByteArray head = PlainHead().replace(" 2 - 1 ", " 32 - 22 ");
    const QByteArray other = PlainHead().replace(" 2 - 1 ", " 32 - 9 ");
    const QByteArray block(" FORMATO N. 02\r\nC 03\"ONE\"\r\n 350 010\r\n");
    row("folder", "/", u"Critical Ok: IMPOSSIBILE LEGGERE IL FILE\n%1\n"_qs, "=");
    row("good", head + block + "END\r\n", {}, "2.3: 0-10 350-360; 3 = ONE", true);
    row("bad phase", head + block + " 360 000\r\nEND\r\n",
        u"Exclamation Ok:  360 000 FILE O FORMATO NON VALIDO !"_qs, "2.3: 0-10 350-360; 3 = ONE");
    row("declined", other + block + "END\r\n", u"None OkCancel: 9 BAD TOTAL FORMATS 22"_qs, "");
    row("more sizes",
        PlainHead().replace(" 2 - 1 ", " 32 - 23 ") + block + " FORMATO N. 23\r\nEND\r\n",
        u"None OkCancel: 23 BAD TOTAL FORMATS 22"_qs, "2.3: 0-10 350-360; 3 = ONE");
  }

  void Open() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, after);
    QFETCH(QString, shown);
    QFETCH(bool, current);
    WindowFixture f;
    QVERIFY(Begin(f));
    const QString path = f.Path(u"new.CAM"_qs);
    QVERIFY(bytes == "/" ? QDir().mkpath(path) : WriteBytes(path, bytes));
    f.dialog.Expect(path);
    const bool declined = QByteArray(QTest::currentDataTag()) == "declined";
    if (!shown.isEmpty()) f.prompts.Expect(declined ? Answer::Cancel : Answer::Ok);
    f.Click(u"OP_FIL"_qs);
    const QString told = f.prompts.Shown().join(u'|');  // ends in the system's own reason
    QVERIFY2(shown.contains(u'%') ? told.startsWith(shown.arg(path)) : told == shown,
             qPrintable(told));
    const bool same = after == u"="_qs;
    QCOMPARE(ContentOf(f.program), same ? content : after);
    QCOMPARE(f.Text("SizeCam"), same ? u"F02 C05"_qs : u"F01 C01"_qs);
    QVERIFY(f.program.IsSaved);
    QCOMPARE(f.settings.CurrentFile, same ? f.Path(u"old.CAM"_qs) : current ? path : QString());
    if (!same) {
      QCOMPARE(f.window->windowTitle(),
               u"PROGRAMMATORE DI CAMME C 32 - 22  [%1]"_qs.arg(f.settings.CurrentFile));
    }
    const bool left = QByteArray(QTest::currentDataTag()) == "more sizes";
    QCOMPARE(f.Text("StatusNote"), left      ? u"FORMATI DEL FILE NON CARICATI: 1"_qs
                                   : current ? u"File aperto: "_qs + path
                                             : QString());
  }

  /// The ways in which another program comes into memory.
  void Question_data() { NameRows("way", {"New_Fil", "f_New", "OP_FIL", "F_Mnu_oldF_1", "drop"}); }

  /// Any work counts, also what leaves `IsSaved` alone; and Save after New has no file to go to.
  void Question() {
    QFETCH(QString, way);
    WindowFixture f;
    const QString press = f.Sample(u"press.CAM"_qs);
    f.Recent({press});
    QVERIFY(Begin(f));
    f.Step(false);
    f.prompts.ExpectInput(u"20"_qs);
    f.Choose("o_Shc");
    QVERIFY(f.program.IsSaved);
    f.prompts.Expect(Answer::Cancel);
    Go(f, way);
    QCOMPARE(f.prompts.Shown().join(u'|'), u"Exclamation CancelOk: "_qs + notSaved);
    QVERIFY(f.dialog.shown.isEmpty());
    const bool chooses = way == u"OP_FIL"_qs;
    QCOMPARE(ContentOf(f.program), u"1.5: 120-130; 5 = TEXT"_qs);
    QCOMPARE(f.settings.CurrentFile, f.Path(u"old.CAM"_qs));

    const bool opens = !way.contains(u"new"_qs, Qt::CaseInsensitive);
    f.prompts.Expect(Answer::Ok);
    for (int i = 0; i < 2; ++i) {  // the second time nothing is unsaved
      if (chooses) f.dialog.Expect(press);
      Go(f, way);
      QCOMPARE(ContentOf(f.program).contains(u"FEED GRIPPER"_qs), opens);
      QCOMPARE(f.settings.CurrentFile, opens ? press : QString());
      QCOMPARE(f.Text("StatusChanged"), opens ? u"salvato"_qs : u"senza file"_qs);
      QVERIFY(f.program.IsSaved && !f.Item("o_Undo")->isEnabled());
    }
    if (!opens) f.dialog.ExpectCancel();
    f.Click(u"Sv_Fil"_qs);
    QCOMPARE(ReadBytes(f.Path(u"old.CAM"_qs)), QByteArray("old"));
  }

  void Save() {
    WindowFixture f;
    QVERIFY(Begin(f));
    f.program.IsSaved = false;
    const QString path = f.settings.CurrentFile;
    f.Choose("f_S");
    const QByteArray first = ReadBytes(path);
    QVERIFY(first.contains("C 05\"TEXT\"\r\n 100 110\r\n"));
    QVERIFY(!f.program.IsSaved);  // saving alone does not say so
    QCOMPARE(ReadBytes(path + u".bak"_qs), QByteArray("old"));
    QVERIFY(QFile::remove(path));
    f.dialog.Expect(f.Path(u"again"_qs));  // the current file is gone: as Save As
    f.Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(f.settings.CurrentFile, f.Path(u"again.CAM"_qs));
    QVERIFY(f.program.IsSaved);
  }

  void SaveAs() {
    // Preset and typed name (none: Cancel), what is stored, the answer before overwriting.
    using Row = std::tuple<QString, std::optional<QString>, QString, std::optional<Answer>>;
    for (const auto& [preset, typed, stored, answer] :
         {Row{u"old.CAM"_qs, u"prog"_qs, u"prog.CAM"_qs, {}},
          Row{u"old.CAM"_qs, u"there"_qs, u"there.CAM"_qs, Answer::Yes},
          Row{u"old.CAM"_qs, u"there.txt"_qs, {}, Answer::No},
          Row{u"old.CAM"_qs, {}, u"old.CAM"_qs, {}}}) {
      WindowFixture f;
      QVERIFY(Begin(f));
      const QString there = f.Path(u"there.CAM"_qs);
      QVERIFY(WriteBytes(there, "there"));
      const QString before = f.Path(preset);
      f.settings.CurrentFile = before;
      f.program.IsSaved = false;
      typed ? f.dialog.Expect(f.Path(*typed)) : f.dialog.ExpectCancel();
      if (answer) f.prompts.Expect(*answer);
      f.Choose("f_save");
      QCOMPARE(f.dialog.shown.join(u'|'),
               u"save; SALVA File di Camma con Nome; "
               "Cam Files (*.Cam)|*.cam|Tutti i File (*.*)|*.*; 2050; "_qs +
                   before);
      QCOMPARE(f.program.IsSaved, !stored.isEmpty());
      QCOMPARE(f.Text("StatusNote").startsWith(u"Annullato, salvato"_qs), !typed);
      QCOMPARE(f.settings.CurrentFile, stored.isEmpty() ? before : f.Path(stored));
      if (!stored.isEmpty()) QVERIFY(ReadBytes(f.Path(stored)).contains("C 05\"TEXT\""));
      QCOMPARE(ReadBytes(there) != "there", answer == Answer::Yes);
      QCOMPARE(f.prompts.Shown().join(u'|'),
               answer ? u"Exclamation NoYes: IL FILE ESISTE GIA'. SOSTITUIRLO ?\n"_qs + there
                      : QString());
    }
  }

  void ForcedNames() {
    QCOMPARE(ForcedName(u"my.dir/prog"_qs), u"my.CAM"_qs);
    QCOMPARE(ForcedName(QString()), QString());
    QCOMPARE(ForcedName(QString(197, u'x') + u".cam"_qs), QString(197, u'x') + u".cam"_qs);
  }

  /// A save that fails says so and leaves everything as it was.
  void FailedWrites() {
    WindowFixture f;
    QVERIFY(Begin(f));
    const QString path = f.settings.CurrentFile;
    f.program.IsSaved = false;
    QVERIFY(QDir().mkpath(path + u".bak/x"_qs));  // what stands there cannot be kept
    f.prompts.Expect();
    f.Choose("f_S");
    QVERIFY(f.prompts.Shown().last().startsWith(cannotWrite + path + u'\n'));
    QCOMPARE(ReadBytes(path), QByteArray("old"));
    f.prompts.Expect(Answer::Yes);
    f.prompts.Expect();
    f.window->close();  // could not save: the program goes on
    QVERIFY(f.window->isVisible());
  }

  void Quit() {
    const QString asked = u"Exclamation YesNoCancel: "_qs + notSaved +
                          u"\nSI: SALVA E CHIUDE - NO: CHIUDE SENZA SALVARE"_qs;
    const QString held = asked + u"\nIL FILE CONTIENE GIA' QUESTO PROGRAMMA"_qs;
    using Row = std::tuple<std::optional<Answer>, bool, QString, bool>;  // has a file; told; ends
    for (const auto& [answer, hasFile, told, ends] :
         {Row{{}, true, {}, true}, Row{Answer::Yes, true, held, true},
          Row{Answer::Yes, false, asked, false}, Row{Answer::No, true, held, true},
          Row{Answer::Cancel, true, asked, false}}) {
      WindowFixture f;
      QVERIFY(Begin(f));
      if (!hasFile) {
        f.settings.CurrentFile.clear();
        f.dialog.ExpectCancel();
      }
      f.program.IsSaved = !answer;
      if (answer) f.prompts.Expect(*answer);
      if (answer == Answer::Cancel) f.program.SetCamText(0, u"MORE"_qs);
      f.Choose("F_quit");
      QCOMPARE(f.window->isVisible(), !ends);
      QCOMPARE(f.prompts.Shown().join(u'|'), told);
      QCOMPARE(ReadBytes(f.Path(u"old.CAM"_qs)) != "old", ends && answer == Answer::Yes);
    }
  }

  void Recent() {
    WindowFixture f;
    const auto captions = [&f] {
      QStringList names;
      for (int i = 1; auto* item = f.window->findChild<QAction*>(u"F_Mnu_oldF_%1"_qs.arg(i)); ++i) {
        names.append(QFileInfo(item->data().toString()).baseName());
      }
      return names.join(u' ');
    };
    QStringList paths;
    for (const char* name : {"a.CAM", "b&b.CAM", "gone.CAM", "bad.CAM", "e.CAM"}) {
      paths.append(f.Path(QString::fromLatin1(name)));
      if (paths.size() != 3) QFile::copy(f.Sample(u"press.CAM"_qs), paths.last());
    }
    f.Recent(paths);
    QVERIFY(Begin(f));
    f.Choose("F_Mnu_oldF_2");
    f.Choose("F_Mnu_oldF_3");  // gone: the program is emptied, and no file holds it
    QCOMPARE(f.settings.CurrentFile, QString());
    QCOMPARE(ContentOf(f.program), QString());
    QVERIFY(f.Text("StatusNote").contains(paths.at(2)));
    QCOMPARE(f.Item("F_Mnu_oldF_1")->text(), u"&1 "_qs + f.Path(u"b&&b.CAM"_qs));
    f.Drop({QUrl::fromLocalFile(paths.at(4))});
    QCOMPARE(captions(), u"e b&b a gone bad"_qs);
  }

  /// What cannot be read is told, and nothing is lost over it.
  void UnreadableFile() {
    WindowFixture f;
    const QString folder = f.Path(u"press.CAM"_qs);
    QVERIFY(QDir().mkpath(folder));
    f.Recent({folder});
    QVERIFY(Begin(f));
    f.program.IsSaved = false;
    for (const QString& way : {u"drop"_qs, u"F_Mnu_oldF_1"_qs}) {
      f.prompts.Expect();
      Go(f, way);
      QCOMPARE(ContentOf(f.program), content);
      QCOMPARE(f.settings.CurrentFile, f.Path(u"old.CAM"_qs));
    }
    for (const QString& told : f.prompts.Shown()) {
      QVERIFY(told.startsWith(u"Critical Ok: IMPOSSIBILE LEGGERE IL FILE\n"_qs + folder));
    }
  }

  /// The closing of a dialog activates the window before the command goes on or after it has ended.
  void Titles() {
    WindowFixture f;
    f.Recent({f.Path(u"gone.CAM"_qs)});
    QVERIFY(Begin(f));
    const QString title = u"NIRA-KPL PROGRAMMATORE DI CAMME QX32-22F  255-Msg  "_qs;
    f.dialog.during = [&f] {
      WindowFixture::OtherWindow();
      f.Activate();
    };
    f.dialog.Expect(f.Path(u"new"_qs));
    f.Choose("f_save");
    QCOMPARE(f.window->windowTitle(), title + u"new.CAM"_qs);
    std::unique_ptr<QWidget> other;
    f.dialog.during = [&other] { other = WindowFixture::OtherWindow(); };
    const QString press = f.Sample(u"press.CAM"_qs);
    f.dialog.Expect(press);
    f.Click(u"OP_FIL"_qs);
    other.reset();
    f.Activate();
    QCOMPARE(f.window->windowTitle(), u"PROGRAMMATORE DI CAMME C 32 - 22  [%1]"_qs.arg(press));
    WindowFixture::OtherWindow();
    f.Activate();
    QCOMPARE(f.window->windowTitle(), title + u"press.CAM"_qs);
    f.Choose("F_Mnu_oldF_2");  // is gone
    QCOMPARE(f.window->windowTitle(), title);
  }
};

}  // namespace nira

QTEST_MAIN(nira::FileCommandsTest)
#include "FileCommandsTest.moc"
