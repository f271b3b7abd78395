#include "editor/FileCommands.h"
#include "support/WindowFixture.h"

#include <QTest>
#include <QWindow>

namespace nira {

namespace {

const QString notSaved = QStringLiteral("IL PROGRAMMA DI CAMME NON E' STATO SALVATO !");
const QString cannotWrite = QStringLiteral("Critical Ok: IMPOSSIBILE SCRIVERE IL FILE\n");

/// A small program in memory, from a file that exists; size 2 and cam 5 selected.
bool Begin(WindowFixture& f) {
  f.settings.CurrentFile = f.Path(u"old.CAM"_qs);
  if (!WriteBytes(f.settings.CurrentFile, "old") || !f.StartWith(u"100-110"_qs, 4)) return false;
  f.program.SetCamText(4, u"TEXT"_qs);
  f.Step(true);
  return true;
}

const QString content = QStringLiteral("1.5: 100-110; 5 = TEXT");

/// The ways in which another program comes into memory.
void WayRows() {
  QTest::addColumn<QString>("way");
  for (const char* way :
       {"f_newp", "New_Fil", "f_New", "f_open", "OP_FIL", "F_Mnu_oldF_1", "drop"}) {
    QTest::newRow(way) << QString::fromLatin1(way);
  }
}

bool Opens(const QString& way) {
  return !way.contains(u"new"_qs, Qt::CaseInsensitive);
}

void Go(WindowFixture& f, const QString& way) {
  if (way == u"drop"_qs) {
    f.Drop({QUrl::fromLocalFile(f.Path(u"press.CAM"_qs)), QUrl::fromLocalFile(u"/other"_qs)});
  } else if (way == u"New_Fil"_qs || way == u"OP_FIL"_qs) {
    f.Click(way);
  } else {
    f.Choose(way.toLatin1().constData());
  }
}

/// Options with a recently used file.
void WithRecent(const WindowFixture& f, const QStringList& paths) {
  f.Options(QFile::encodeName(u"\"p32qx_IT.SCR\",1,9600\r\n"_qs + paths.join(u"\r\n"_qs)));
}

}  // namespace

/// New, Open, Save, Save As, recent and dropped files, and quitting.
class FileCommandsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Open_data() {
    QTest::addColumn<QByteArray>("bytes");  // of the file; "-" none, "/" a folder, "?" Cancel
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
    row("Cancel", "?", {}, "=");
    row("gone", "-", {}, "=");
    row("folder", "/", u"Critical Ok: IMPOSSIBILE LEGGERE IL FILE\n%1\n"_qs, "=");
    row("good", head + block + "END\r\n", {}, "2.3: 0-10 350-360; 3 = ONE", true);
    row("empty", "", u"Exclamation Ok:  FILE O FORMATO NON VALIDO !"_qs, "");
    row("no cam file", "<html>\n", u"Exclamation Ok: <html> FILE O FORMATO NON VALIDO !"_qs, "");
    row("bad phase", head + block + " 360 000\r\nEND\r\n",
        u"Exclamation Ok:  360 000 FILE O FORMATO NON VALIDO !"_qs, "2.3: 0-10 350-360; 3 = ONE");
    row("wrong cams", PlainHead(), u"Critical Ok: 2 WRONG NUMBER OF CAMS 32"_qs, "");
    row("declined", other + block + "END\r\n", u"None OkCancel: 9 BAD TOTAL FORMATS 22"_qs, "");
    row("taken", other + block + "END\r\n", u"None OkCancel: 9 BAD TOTAL FORMATS 22"_qs,
        "2.3: 0-10 350-360; 3 = ONE", true);
  }

  void Open() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, after);
    QFETCH(QString, shown);
    QFETCH(bool, current);
    WindowFixture f;
    QVERIFY(Begin(f));
    const QString path = f.Path(u"new.CAM"_qs);
    if (bytes == "/") {
      QVERIFY(QDir().mkpath(path));
    } else if (bytes != "-" && bytes != "?") {
      QVERIFY(WriteBytes(path, bytes));
    }
    if (bytes == "?") {
      f.dialog.ExpectCancel();
    } else {
      f.dialog.Expect(path);
    }
    if (!shown.isEmpty()) {
      f.prompts.Expect(QByteArray(QTest::currentDataTag()) == "declined" ? Answer::Cancel
                                                                         : Answer::Ok);
    }
    f.Click(u"OP_FIL"_qs);
    if (shown.contains(u'%')) {  // what follows is the system's own reason
      QVERIFY(f.prompts.Shown().join(u'|').startsWith(shown.arg(path)));
    } else {
      QCOMPARE(f.prompts.Shown().join(u'|'), shown);
    }
    QCOMPARE(f.dialog.shown.join(u'|'),
             u"open; APRI File di Camma; "
             "File di Camma (*.Cam)|*.cam|Tutti i File (*.*)|*.*; 4097; "_qs);
    const bool same = after == u"="_qs;
    QCOMPARE(ContentOf(f.program), same ? content : after);
    QCOMPARE(f.Text("SizeCam"), same ? u"F02 C05"_qs : u"F01 C01"_qs);
    QVERIFY(f.program.IsSaved);
    QCOMPARE(f.settings.CurrentFile, same ? f.Path(u"old.CAM"_qs) : current ? path : QString());
    if (!same) {
      QCOMPARE(f.window->windowTitle(),
               u"PROGRAMMATORE DI CAMME C 32 - 22  [%1]"_qs.arg(f.settings.CurrentFile));
      QCOMPARE(f.Text("StatusChanged"), u"salvato"_qs);
      QVERIFY(QApplication::overrideCursor() == nullptr);
    }
    QCOMPARE(f.window->findChild<QAction*>(u"F_Mnu_oldF_1"_qs) != nullptr, current);
  }

  void Question_data() { WayRows(); }

  void Question() {
    QFETCH(QString, way);
    WindowFixture f;
    const QString press = f.Sample(u"press.CAM"_qs);
    WithRecent(f, {press});
    QVERIFY(Begin(f));
    f.Step(false);
    f.Enter(u"200\r210\r"_qs);
    const QString mine = u"1.5: 100-110 200-210; 5 = TEXT"_qs;
    f.prompts.Expect(Answer::Cancel);
    Go(f, way);
    QCOMPARE(f.prompts.Shown().join(u'|'), u"Exclamation OkCancel: "_qs + notSaved);
    QCOMPARE(ContentOf(f.program), mine);
    QVERIFY(!f.program.IsSaved);
    QCOMPARE(f.settings.CurrentFile, f.Path(u"old.CAM"_qs));
    QVERIFY(f.Item("o_Undo")->isEnabled());
    QVERIFY(f.dialog.shown.isEmpty());

    f.prompts.Expect(Answer::Ok);
    const bool chooses = way == u"f_open"_qs || way == u"OP_FIL"_qs;
    if (chooses) f.dialog.ExpectCancel();
    if (chooses) Go(f, way);
    if (chooses) QCOMPARE(ContentOf(f.program), mine);  // agreed, then cancelled after all
    if (chooses) f.prompts.Expect(Answer::Ok);
    if (chooses) f.dialog.Expect(press);
    Go(f, way);
    QCOMPARE(ContentOf(f.program).contains(u"FEED GRIPPER"_qs), Opens(way));
    QVERIFY(!ContentOf(f.program).contains(u"TEXT"_qs));
    QCOMPARE(f.settings.CurrentFile, Opens(way) ? press : f.Path(u"old.CAM"_qs));
    QVERIFY(f.program.IsSaved);
    QVERIFY(!f.Item("o_Undo")->isEnabled());
    QCOMPARE(f.Text("SizeCam"), u"F01 C01"_qs);
    QCOMPARE(f.Text("LDefC_0"), Opens(way) ? u"FEED GRIPPER"_qs : QString());
    QCOMPARE(f.Lines(), Opens(way) ? u"F001 268 092"_qs : QString());
    const auto boxes = f.prompts.boxes.size();
    if (chooses) f.dialog.Expect(press);
    Go(f, way);
    QCOMPARE(f.prompts.boxes.size(), boxes);  // nothing is unsaved now
  }

  void Save() {
    WindowFixture f;
    QVERIFY(Begin(f));
    f.program.IsSaved = false;
    const QString path = f.settings.CurrentFile;
    f.Choose("f_S");
    const QByteArray first = ReadBytes(path);
    QVERIFY(first.startsWith("FUNZIONI  32 - 22 \r\nANTICIPI OFF\r\n"));
    QVERIFY(first.contains("C 05\"TEXT\"\r\n 100 110\r\n"));
    QVERIFY(!f.program.IsSaved);  // saving alone does not say so
    QCOMPARE(ReadBytes(path + u".bak"_qs), QByteArray("old"));
    f.Enter(u"200\r210\r"_qs);
    f.Click(u"Sv_Fil"_qs);
    QVERIFY(ReadBytes(path) != first);
    QCOMPARE(ReadBytes(path + u".bak"_qs), QByteArray("old"));
    QVERIFY(f.prompts.boxes.empty() && f.dialog.shown.isEmpty());
    QVERIFY(QFile::remove(path));
    f.dialog.Expect(f.Path(u"again"_qs));  // the current file is gone: as Save As
    f.Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(f.settings.CurrentFile, f.Path(u"again.CAM"_qs));
    QVERIFY(f.program.IsSaved);
  }

  void SaveAs_data() {
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("chosen");  // "?" Cancel
    QTest::addColumn<QString>("stored");  // empty: nothing
    QTest::addColumn<int>("answer");      // to the question before overwriting, -1 none
    const auto row = [](const char* name, const char* current, const char* chosen,
                        const char* stored, int answer = -1) {
      QTest::newRow(name) << QString::fromLatin1(current) << QString::fromLatin1(chosen)
                          << QString::fromLatin1(stored) << answer;
    };
    row("no extension", "old.CAM", "prog", "prog.CAM");
    row("small extension", "old.CAM", "prog.cam", "prog.CAM");
    row("as forced", "", "prog.CAM", "prog.CAM");
    row("exists, the dialog has asked", "", "there.CAM", "there.CAM");
    row("two dots", "old.CAM", "a.b.txt", "a.CAM");
    row("dot in the folder", "old.CAM", "my.dir/prog", "my.CAM");
    row("exists, Yes", "old.CAM", "there", "there.CAM", int(Answer::Yes));
    row("exists, No", "old.CAM", "there.txt", "", int(Answer::No));
    row("Cancel with a preset", "old.CAM", "?", "old.CAM");
    row("Cancel with a small preset", "small.cam", "?", "small.CAM");
    row("Cancel without a preset", "", "?", "");
  }

  void SaveAs() {
    QFETCH(QString, current);
    QFETCH(QString, chosen);
    QFETCH(QString, stored);
    QFETCH(int, answer);
    WindowFixture f;
    QVERIFY(Begin(f));
    QVERIFY(WriteBytes(f.Path(u"there.CAM"_qs), "there"));
    QVERIFY(QDir().mkpath(f.Path(u"my.dir"_qs)));
    const QString before = current.isEmpty() ? QString() : f.Path(current);
    f.settings.CurrentFile = before;
    f.program.IsSaved = false;
    if (chosen == u"?"_qs) {
      f.dialog.ExpectCancel();
    } else {
      f.dialog.Expect(f.Path(chosen));
    }
    if (answer >= 0) f.prompts.Expect(static_cast<Answer>(answer));
    f.Choose("f_save");
    QCOMPARE(f.dialog.shown.join(u'|'),
             u"save; SALVA File di Camma con Nome; "
             "Cam Files (*.Cam)|*.cam|Tutti i File (*.*)|*.*; 2050; "_qs +
                 before);
    QCOMPARE(f.program.IsSaved, !stored.isEmpty());
    QCOMPARE(f.settings.CurrentFile, stored.isEmpty() ? before : f.Path(stored));
    if (!stored.isEmpty()) QVERIFY(ReadBytes(f.Path(stored)).contains("C 05\"TEXT\""));
    if (stored != u"there.CAM"_qs)
      QCOMPARE(ReadBytes(f.Path(u"there.CAM"_qs)), QByteArray("there"));
    QCOMPARE(f.prompts.Shown().join(u'|'),
             answer < 0 ? QString()
                        : u"Exclamation YesNo: IL FILE ESISTE GIA'. SOSTITUIRLO ?\n"_qs +
                              f.Path(u"there.CAM"_qs));
    QCOMPARE(f.Text("StatusChanged"), stored.isEmpty() ? u"modificato"_qs : u"salvato"_qs);
  }

  void ForcedNames() {
    QCOMPARE(ForcedName(QString()), QString());
    QCOMPARE(ForcedName(u".x"_qs), u".CAM"_qs);
    QCOMPARE(ForcedName(QString(200, u'x')), QString(200, u'x') + u".CAM"_qs);
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
    f.prompts.Expect();
    f.dialog.Expect(f.Path(u"gone/new.CAM"_qs));
    f.Choose("f_save");
    QVERIFY(f.prompts.Shown().last().startsWith(cannotWrite + f.Path(u"gone/new.CAM\n"_qs)));
    QCOMPARE(f.settings.CurrentFile, path);
    QVERIFY(!f.program.IsSaved);
    QCOMPARE(f.Text("StatusChanged"), u"modificato"_qs);
    f.prompts.Expect(Answer::Yes);
    f.prompts.Expect();
    f.window->close();  // could not save: the program goes on
    QVERIFY(f.window->isVisible());
    QCOMPARE(ReadBytes(path), QByteArray("old"));
  }

  void Quit_data() {
    QTest::addColumn<bool>("saved");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("current");
    QTest::addColumn<bool>("ends");
    QTest::newRow("nothing unsaved") << true << -1 << u"old.CAM"_qs << true;
    QTest::newRow("Yes") << false << int(Answer::Yes) << u"old.CAM"_qs << true;
    QTest::newRow("Yes, no name given") << false << int(Answer::Yes) << QString() << false;
    QTest::newRow("No") << false << int(Answer::No) << u"old.CAM"_qs << true;
    QTest::newRow("Cancel") << false << int(Answer::Cancel) << u"old.CAM"_qs << false;
  }

  void Quit() {
    QFETCH(bool, saved);
    QFETCH(int, answer);
    QFETCH(QString, current);
    QFETCH(bool, ends);
    WindowFixture f;
    WithRecent(f, {u"/a.CAM"_qs});
    QVERIFY(Begin(f));
    if (current.isEmpty()) f.settings.CurrentFile.clear();
    f.program.IsSaved = saved;
    if (answer >= 0) f.prompts.Expect(static_cast<Answer>(answer));
    if (current.isEmpty()) f.dialog.ExpectCancel();
    f.Choose("F_quit");
    QCOMPARE(f.window->isVisible(), !ends);
    QCOMPARE(f.prompts.Shown().join(u'|'),
             answer < 0 ? QString() : u"Exclamation YesNoCancel: "_qs + notSaved);
    QCOMPARE(ReadBytes(f.OptionsPath()), QByteArray("\"p32qx_IT.SCR\",1,9600\r\n"));
    const bool written = answer == int(Answer::Yes) && !current.isEmpty();
    QCOMPARE(ReadBytes(f.Path(u"old.CAM"_qs)) != "old", written);
  }

  /// In a running program: one question, and the program ends.
  void QuitEndsTheProgram() {
    WindowFixture f;
    QVERIFY(Begin(f));
    f.program.IsSaved = false;
    f.prompts.Expect(Answer::No);
    QTimer::singleShot(0, &*f.window, &QWidget::close);
    QCOMPARE(QApplication::exec(), 0);
    QCOMPARE(f.prompts.boxes.size(), std::size_t{1});
  }

  void OptionsCannotBeWritten() {
    WindowFixture f;
    QVERIFY(Begin(f));
    QVERIFY(QFile::remove(f.OptionsPath()) && QDir().mkpath(f.OptionsPath()));
    f.program.IsSaved = false;
    f.prompts.Expect();
    f.prompts.Expect(Answer::No);
    f.window->close();
    QVERIFY(f.prompts.Shown().first().startsWith(cannotWrite + u"KlmQx_opt.def\n"_qs));
    QVERIFY(!f.window->isVisible());
  }

  void Recent() {
    WindowFixture f;
    const auto captions = [&f] {
      QStringList names;
      for (int i = 1; auto* item = f.window->findChild<QAction*>(u"F_Mnu_oldF_%1"_qs.arg(i)); ++i) {
        names.append(item->text().left(3) + QFileInfo(item->data().toString()).fileName());
      }
      return names.join(u'|');
    };
    QStringList paths;
    for (const char* name : {"a.CAM", "b&b.CAM", "gone.CAM", "bad.CAM", "e.CAM"}) {
      paths.append(f.Path(QString::fromLatin1(name)));
      if (paths.size() != 3) QFile::copy(f.Sample(u"press.CAM"_qs), paths.last());
    }
    QVERIFY(WriteBytes(paths.at(3), "x"));
    WithRecent(f, paths);
    QVERIFY(Begin(f));
    f.Choose("F_Mnu_oldF_2");
    QCOMPARE(f.settings.CurrentFile, paths.at(1));
    QCOMPARE(f.Text("LDefC_0"), u"FEED GRIPPER"_qs);
    QCOMPARE(captions(), u"&1 b&b.CAM|&2 a.CAM|&3 gone.CAM|&4 bad.CAM|&5 e.CAM"_qs);
    f.Choose("F_Mnu_oldF_3");  // gone: the program is emptied, the name kept for Save
    QCOMPARE(f.settings.CurrentFile, paths.at(2));
    QCOMPARE(ContentOf(f.program), QString());
    QVERIFY(f.window->statusBar()->currentMessage().contains(paths.at(2)));
    f.prompts.Expect();
    f.Choose("F_Mnu_oldF_4");
    QCOMPARE(f.prompts.Shown().last(), u"Exclamation Ok: x FILE O FORMATO NON VALIDO !"_qs);
    QCOMPARE(f.settings.CurrentFile, QString());
    f.dialog.Expect(f.Path(u"press.CAM"_qs));
    f.Choose("f_open");
    QCOMPARE(captions(), u"&1 press.CAM|&2 b&b.CAM|&3 a.CAM|&4 gone.CAM|&5 bad.CAM"_qs);
    f.Choose("F_Mnu_oldF_1");
    QCOMPARE(captions(), u"&1 press.CAM|&2 b&b.CAM|&3 a.CAM|&4 gone.CAM|&5 bad.CAM"_qs);
    f.Drop({QUrl::fromLocalFile(paths.at(4))});
    QCOMPARE(captions(), u"&1 e.CAM|&2 press.CAM|&3 b&b.CAM|&4 a.CAM|&5 gone.CAM"_qs);
    f.Drop({QUrl(u"http://localhost/x.CAM"_qs)});  // no file of this machine
    QCOMPARE(f.settings.CurrentFile, paths.at(4));
    WindowFixture empty;
    WithRecent(empty, {QString(), QString()});
    QVERIFY(empty.Start());
    empty.Choose("F_Mnu_oldF_1");
    QCOMPARE(empty.settings.CurrentFile, QString());
  }

  /// What cannot be read is told, and Save asks for a name instead of writing there.
  void UnreadableFile_data() {
    QTest::addColumn<QString>("way");
    for (const char* way : {"drop", "recent", "start"}) {
      QTest::newRow(way) << QString::fromLatin1(way);
    }
  }

  void UnreadableFile() {
    QFETCH(QString, way);
    WindowFixture f;
    const QString folder = f.Path(u"press.CAM"_qs);
    QVERIFY(QDir().mkpath(folder));
    WithRecent(f, {folder});
    f.prompts.Expect();
    QVERIFY(f.Start(way == u"start"_qs ? folder : QString()));
    if (way == u"drop"_qs) Go(f, way);
    if (way == u"recent"_qs) f.Choose("F_Mnu_oldF_1");
    QVERIFY(f.prompts.Shown().join(u'|').startsWith(
        u"Critical Ok: IMPOSSIBILE LEGGERE IL FILE\n"_qs + folder));
    QCOMPARE(f.settings.CurrentFile, QString());
    f.dialog.Expect(f.Path(u"new"_qs));
    f.Click(u"Sv_Fil"_qs);
    QCOMPARE(f.settings.CurrentFile, f.Path(u"new.CAM"_qs));
  }

  /// A title shows the name as it is, also where it looks like a placeholder.
  void TitleOfAnyName() {
    WindowFixture f;
    const QString path = f.Path(u"a[*]b & c.CAM"_qs);
    QVERIFY(QFile::copy(f.Sample(u"press.CAM"_qs), path));
    QVERIFY(f.Start(path));
    QVERIFY(f.window->windowHandle()->title().endsWith(u"  a[*]b & c.CAM"_qs));
  }

  /// An operator's first real job, with keys and mouse.
  void FirstJob() {
    WindowFixture f;
    const QString path = f.Sample(u"press.CAM"_qs);
    const QByteArray original = ReadBytes(path);
    QVERIFY(f.Start());
    f.dialog.Expect(path);
    f.Click(u"OP_FIL"_qs);
    QVERIFY(f.program.Functions().AdvanceLast == 15);
    f.ClickLine(0);  // FEED GRIPPER: a later end
    f.Press(Qt::Key_Tab);
    f.Type(u"\r95\r"_qs);
    f.DoubleClick(u"LabCam_8"_qs);  // a phase more, one moved, one deleted
    f.Type(u"10\r20\r"_qs);
    f.ClickLine(1);
    f.Click(u"GRADIOFF"_qs);
    f.Type(u"260\r"_qs);
    f.ClickLine(2);
    f.Click(u"GRADION"_qs);
    f.Type(u"290\t290\t"_qs);
    f.Press(Qt::Key_PageDown);
    f.Click(u"GoPrCam"_qs);
    f.Type(u"340\r350"_qs);
    f.Step(true);  // commits; and one in another size
    f.Press(Qt::Key_End);
    f.Choose("o_MODC");
    f.Type(u"355\r5\r"_qs);
    const QString now = ContentOf(f.program);
    QVERIFY(now.startsWith(u"1.1: 0-95 268-360; "_qs));
    QVERIFY(now.contains(u"; 1.9: 10-20 238-260; 1.10: 0-12 340-350 354-360; "_qs));
    QCOMPARE(f.Lines().left(12), u"F001 355 005"_qs);
    f.Press(Qt::Key_S, Qt::ControlModifier);
    f.prompts.Expect(Answer::No);  // saving alone is no answer to the question
    f.Choose("F_quit");
    QVERIFY(!f.window->isVisible());
    QCOMPARE(ReadBytes(path + u".bak"_qs), original);

    WindowFixture again;
    QVERIFY(again.Start(path));
    QCOMPARE(ContentOf(again.program), now);
    QCOMPARE(again.program.Functions(), f.program.Functions());
    QCOMPARE(again.Lines(), u"F001 268 095"_qs);
    again.Click(u"Sv_Fil"_qs);
    QCOMPARE(ReadBytes(path), ReadBytes(path + u".bak"_qs));  // nothing more changes
  }
};

}  // namespace nira

QTEST_MAIN(nira::FileCommandsTest)
#include "FileCommandsTest.moc"
