// SPDX-License-Identifier: Apache-2.0
#include "messages/AlMsg.h"
#include "messages/ModMsg.h"
#include "messages/PrnMsg.h"
#include "support/WindowFixture.h"

#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

const QString prefix = u"NIRA-KPL -  PROGRAMMATORE DI CAMME QX32 -  "_qs;

/// The message window over an instance with the Italian texts, and what a person does with it.
struct MessageWindow : WindowFixture {
  explicit MessageWindow(MessageLink link = {}) {
    texts.Read(Path(u"p32qx_IT.SCR"_qs));
    Reopen(std::move(link));
  }

  void Reopen(MessageLink link = {}) {
    messages = std::make_unique<AlMsg>(instance, std::move(link), nullptr);
    messages->show();
    if (!QTest::qWaitForWindowActive(messages.get())) qFatal("no message window");
  }

  template <typename Control>
  Control* Named(const QString& name) const {
    auto* control = messages->findChild<Control*>(name);
    if (control == nullptr) qFatal("no control %s", qPrintable(name));
    return control;
  }
  QListWidget* List() const { return Named<QListWidget>(u"LstAlr"_qs); }
  QString Selected() const { return List()->currentItem()->text(); }
  QString Display() const {
    return Named<QLabel>(u"Upper"_qs)->text() + u'/' + Named<QLabel>(u"Lower"_qs)->text();
  }

  /// Chooses a menu entry or clicks a button.
  void Do(const QString& name) const {
    messages->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(messages.get()));
    if (auto* button = messages->findChild<QPushButton*>(name)) {
      QTest::mouseClick(button, Qt::LeftButton);
      return;
    }
    auto* bar = messages->findChild<QMenuBar*>();
    QAction* top = bar->actions().constFirst();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(top).center());
    QTest::mouseClick(top->menu(), Qt::LeftButton, {},
                      top->menu()->actionGeometry(Named<QAction>(name)).center());
    if (top->menu()->isVisible()) top->menu()->close();  // the entry is disabled
  }

  /// Opens the selected message and acts on its window.
  void Modify(const std::function<void(ModMsg*)>& act) const {
    bool opened = false;
    WhenOpens<ModMsg>([&](ModMsg* open) {
      opened = true;
      act(open);
    });
    const QPoint place = List()->visualItemRect(List()->currentItem()).center();
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {}, place);
    QVERIFY(opened);
  }

  QString OpenSample(const QString& name) {
    const QString path = Sample(name);
    dialog.Expect(path);
    Do(u"f_Open"_qs);
    return path;
  }

  std::unique_ptr<AlMsg> messages;
};

QString Preview(const ModMsg* window) {
  return window->findChild<QLabel*>(u"row1"_qs)->text() + u'/' +
         window->findChild<QLabel*>(u"row2"_qs)->text();
}

void Press(const ModMsg* window, const char* button) {
  QTest::mouseClick(window->findChild<QPushButton*>(QString::fromLatin1(button)), Qt::LeftButton);
}

}  // namespace

/// The message editor through its controls.
class AlMsgTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  /// No two captions of the window share their mnemonic, in either language.
  void Mnemonics() {
    for (const char* script : {"p32qx_IT.SCR", "p32qx_EN.SCR"}) {
      MessageWindow f;
      QVERIFY(f.texts.Read(f.Path(QString::fromLatin1(script))));
      f.Reopen();
      const QAction* top = f.messages->findChild<QMenuBar*>()->actions().constFirst();
      QStringList keys;
      for (const auto* button : f.messages->findChildren<QPushButton*>()) {
        keys.append(button->text().section(u'&', 1).left(1).toUpper());
      }
      keys.append(top->text().section(u'&', 1).left(1).toUpper());
      QCOMPARE(QSet<QString>(keys.begin(), keys.end()).size(), keys.size());
    }
  }

  void Open() {
    MessageWindow f;
    f.settings.MsgSaved = false;
    const QString path = f.OpenSample(u"press_EN.MSG"_qs);
    QCOMPARE(f.settings.MsgFile, path);
    QVERIFY(f.settings.MsgSaved);
    QCOMPARE(f.messages->windowTitle(), prefix + path);
    QCOMPARE(f.Display(), u"EMERGENCY STOP      /FRONT DESK"_qs);
    for (const QString& bad : {f.Path(u"gone.MSG"_qs), f.folder.path()}) {  // and the old ones stay
      f.dialog.Expect(bad);
      f.prompts.Expect();
      f.Reopen();
      f.Do(u"f_Open"_qs);
      QVERIFY(f.dialog.shown.constLast().endsWith(u"; "_qs + path));  // the last one is offered
      f.Do(u"f_Last"_qs);
      QCOMPARE(f.messages->windowTitle(), prefix + path);
      QCOMPARE(f.Display(), u"EMERGENCY STOP      /FRONT DESK"_qs);
    }
  }

  /// What is opened in spite of all, and what of it is left out.
  void OpenedInPart() {
    MessageWindow f;
    QString note;
    for (const int messages : {255, 180}) {
      f.program.SetLimits(22, 32, messages);
      f.Reopen();
      f.OpenSample(u"press_IT.MSG"_qs);
      note += f.Named<QLabel>(u"Note"_qs)->text() + u'|';
    }
    QVERIFY(WriteBytes(f.Path(u"a.txt"_qs), "FUNZIONI 32-22 \r\nEND\r\n"));
    f.dialog.Expect(f.Path(u"a.txt"_qs));
    f.Do(u"f_Open"_qs);
    note += f.Named<QLabel>(u"Note"_qs)->text();
    QCOMPARE(note,
             u"|IL FILE HA PIU' MESSAGGI DEL PROGRAMMATORE, NON LETTI: 181-255"
             u"|IL FILE NON SEMBRA UN FILE MESSAGGI"_qs);
    QVERIFY(!HoldsMessages(f.program));
  }

  void Save() {
    MessageWindow f;
    const QString path = f.OpenSample(u"press_IT.MSG"_qs);
    f.program.SetMessageText(1, u"CHANGED"_qs);
    f.settings.MsgSaved = false;
    for (const Answer answer : {Answer::No, Answer::Yes}) {
      f.prompts.Expect(answer);
      f.Do(u"f_Save"_qs);
      QCOMPARE(ReadBytes(path).startsWith("N. 001 \"CHANGED\"\r\n"), answer == Answer::Yes);
      QCOMPARE(f.settings.MsgSaved, answer == Answer::Yes);
    }
    f.settings.CurrentFile = path;  // a cam file is open under this name
    f.prompts.Expect();
    f.Do(u"f_Save"_qs);
    QCOMPARE(f.prompts.boxes.back().text.section(u'\n', 0, 1),
             u"IMPOSSIBILE SCRIVERE IL FILE\n"_qs + path);
    f.prompts.boxes.pop_back();
    const QString question = u"Exclamation YesNo: SOVRASCRIVERE FILE press_IT.MSG"_qs;
    QCOMPARE(f.prompts.Shown(), QStringList({question, question}));
  }

  void SaveAs() {
    MessageWindow f;
    QVERIFY(f.folder.mkpath(u"v1.2"_qs));
    QString path;
    for (const auto& [typed, stored] :
         {std::pair("a.txt", "a.txt"), {"a", "a.MSG"}, {"v1.2/a", "v1.2/a.MSG"}}) {
      path = f.Path(QString::fromLatin1(stored));
      f.settings.MsgSaved = false;
      f.dialog.Expect(f.Path(QString::fromLatin1(typed)));
      f.Do(u"SVA"_qs);
      QCOMPARE(f.messages->windowTitle(), prefix + path);
      QCOMPARE(ReadBytes(path).count('\n'), 255);
      QVERIFY(f.settings.MsgSaved);
    }
    f.dialog.Expect(f.Path(u"gone/b"_qs));  // what could not be written is not the file
    f.prompts.Expect();
    f.Do(u"SVA"_qs);
    f.dialog.ExpectCancel();
    f.Do(u"SVA"_qs);
    QCOMPARE(f.settings.MsgFile, path);
  }

  /// By text and by number, from message 7 on; an answer that leads nowhere leaves it selected.
  void Search() {
    MessageWindow f;
    f.OpenSample(u"press_IT.MSG"_qs);
    for (const QString& row :
         u"t_Searc|FRENO|53 t_Searc|freno|7 t_Searc||7 S_num|254|254 S_num|255|7 S_num|0|7 "
         "S_num|-1|7 S_num|abc|7 S_num||7 S_num|4294967297|7"_qs.split(u' ')) {
      const QStringList parts = row.split(u'|');
      f.List()->setCurrentRow(6);
      f.prompts.ExpectInput(parts.at(1));
      const bool quiet = parts.at(2) != u"7"_qs || row == u"t_Searc||7"_qs;
      if (!quiet) f.prompts.Expect();
      f.Do(parts.at(0));
      QCOMPARE(f.List()->currentRow() + 1, parts.at(2).toInt());
    }
    f.prompts.ExpectInput(u"FRENO"_qs);
    f.Do(u"t_Searc"_qs);
    for (const int number : {57, 58, 64, 82, 247, 53}) {
      QCOMPARE(f.Named<QLabel>(u"Note"_qs)->text(), QString());
      QTest::keyClick(f.List(), Qt::Key_F3);
      QCOMPARE(f.List()->currentRow() + 1, number);
    }
    QCOMPARE(f.Named<QLabel>(u"Note"_qs)->text(), u"RICERCA RIPRESA DALL'INIZIO"_qs);
    QCOMPARE(f.prompts.boxes.front().text, u"TESTO NON TROVATO"_qs);
    QCOMPARE(f.prompts.boxes.back().text, u"4294967297 = NUMERO NON VALIDO"_qs);
  }

  void TypedNumbers() {
    MessageWindow f;
    QTest::keyClick(f.List(), Qt::Key_PageDown);
    const QStringList rows =
        u"255:255 007:7 1:1 2:12 3:123 4:4 9:49 6:6 A:6 6:6 0:60"_qs.split(u' ');
    for (const QString& row : rows) {
      QTest::keyClicks(f.List(), row.section(u':', 0, 0));
      QCOMPARE(f.List()->currentRow() + 1, row.section(u':', 1).toInt());
    }
    auto* pause = f.List()->findChild<QTimer*>(u"Pause"_qs);
    pause->setInterval(0);  // as if it had passed
    QTRY_VERIFY(!pause->isActive());
    QTest::keyClicks(f.List(), u"3"_qs);
    QCOMPARE(f.List()->currentRow() + 1, 3);
  }

  void Modify() {
    MessageWindow f;
    f.OpenSample(u"press_IT.MSG"_qs);
    QTest::keyClicks(f.List(), u"62"_qs);
    const int place = f.List()->verticalScrollBar()->value();
    f.Modify([](ModMsg* window) {
      auto* text = window->findChild<QLineEdit*>(u"Text1"_qs);
      QCOMPARE(Preview(window), u"VALVOLA DOPPIA      / FRIZIONE: CANALE B"_qs);
      QTest::keyClicks(text, u"12345"_qs);  // 38 characters were there
      QCOMPARE(Preview(window), u"VALVOLA DOPPIA      /FRIZIONE: CANALE B12"_qs);
      Press(window, "kcl");
    });
    QVERIFY(f.settings.MsgSaved);
    f.Modify([](ModMsg* window) {
      QTest::keyClicks(window->findChild<QLineEdit*>(u"Text1"_qs), u"!"_qs);
      Press(window, "kok");
    });
    QVERIFY(!f.settings.MsgSaved);
    QCOMPARE(f.Selected(), u"062 VALVOLA DOPPIA      FRIZIONE: CANALE B!"_qs);
    QCOMPARE(f.List()->verticalScrollBar()->value(), place);
  }

  /// What cannot be shown is named and marked, and what was typed stays.
  void ForeignText() {
    MessageWindow f;
    f.program.SetMessageText(1, QString(60, u'A'));
    QApplication::clipboard()->setText(u"B\u0416C\x03"_qs);
    f.Modify([&f](ModMsg* window) {
      auto* text = window->findChild<QLineEdit*>(u"Text1"_qs);
      QCOMPARE(text->text(), QString(40, u'A'));
      QTest::keyClick(text, Qt::Key_A, Qt::ControlModifier);
      QTest::keyClick(text, Qt::Key_V, Qt::ControlModifier);
      for (const QString& bad : {u"\u0416"_qs, u"\u2403"_qs}) {
        f.prompts.Expect();
        Press(window, "kok");
        QCOMPARE(f.prompts.Shown().constLast(),
                 u"Exclamation Ok: CARATTERE NON AMMESSO: "_qs + bad);
        QVERIFY(window->isVisible());
        QCOMPARE(f.program.MessageText(1), QString(60, u'A'));
        QTest::keyClick(text, Qt::Key_Backspace);
      }
      Press(window, "kok");
    });
    QCOMPARE(f.Selected(), u"001 BC"_qs);
    f.program.SetMessageText(1, u" "_qs);  // as it comes from a file: the first key replaces it
    f.Modify([](ModMsg* window) {
      QTest::keyClicks(window->findChild<QLineEdit*>(u"Text1"_qs), u"X"_qs);
      Press(window, "kok");
    });
    QCOMPARE(f.program.MessageText(1), u"X"_qs);
  }

  /// What is in no file is thrown away after a question only.
  void New() {
    MessageWindow f;
    const QString path = f.OpenSample(u"press_IT.MSG"_qs);
    QTest::keyClicks(f.List(), u"100"_qs);
    f.settings.MsgSaved = false;
    for (const char* name : {"f_New", "f_Open"}) {
      f.prompts.Expect(Answer::Cancel);
      f.Do(QString::fromLatin1(name));
      QCOMPARE(f.prompts.Shown().constLast(),
               u"Exclamation CancelOk: I MESSAGGI NON SONO STATI SALVATI !"_qs);
      QCOMPARE(f.Selected(), u"100 LUBRIFICAZIONE      DISTRIBUTORE 1 FERMO"_qs);
    }
    f.settings.MsgSaved = true;
    f.Do(u"f_New"_qs);
    QCOMPARE(f.Selected(), u"100 "_qs);
    QVERIFY(!f.settings.MsgSaved);
    QCOMPARE(f.messages->windowTitle(), prefix + path);
  }

  void Exit() {
    MessageWindow f;
    for (const Answer answer : {Answer::Cancel, Answer::No, Answer::Yes}) {
      f.settings.MsgSaved = false;
      f.prompts.Expect(answer);
      answer == Answer::No ? QTest::keyClick(f.List(), Qt::Key_Escape) : f.Do(u"tEX"_qs);
      QCOMPARE(f.messages->isVisible(), answer != Answer::Yes);
    }
    QCOMPARE(f.prompts.Shown().constLast(),
             u"Exclamation CancelYesNo: IL FILE NON E' STATO SALVATO\rVUOI USCIRE ?"_qs);
  }

  /// The list shows what the exchange left, and at most as many messages as the programmer has.
  void Receive() {
    MessageWindow f;
    f.OpenSample(u"press_IT.MSG"_qs);
    f.Reopen({{}, [&f] {
                f.program.SetLimits(22, 32, 180);
                f.program.SetMessageText(1, u"NEW"_qs);
                f.settings.MsgSaved = false;
              }});
    QVERIFY(!f.Named<QPushButton>(u"Tr_M"_qs)->isEnabled());
    QTest::keyClicks(f.List(), u"200"_qs);
    f.Do(u"Rc_M"_qs);
    QCOMPARE(f.List()->count(), 180);
    QCOMPARE(f.List()->item(0)->text(), u"001 NEW"_qs);
    QCOMPARE(f.List()->currentRow(), 179);
    f.prompts.Expect(Answer::Cancel);  // nor does a reception throw anything away
    f.Do(u"Rc_M"_qs);
  }

  void Font() {
    MessageWindow f;
    f.dialog.font = QFont(u"Courier & Co"_qs, 14);
    f.Do(u"SEL_FNT"_qs);
    f.Reopen();
    QCOMPARE(f.Named<QAction>(u"SEL_FNT"_qs)->text(), u"Ca&rattere... (Courier && Co)"_qs);
    QVERIFY(f.settings.MsgFont.contains(u",14,"_qs));
  }

  /// From the menu to a PDF.
  void Printing() {
    MessageWindow f;
    f.OpenSample(u"press_IT.MSG"_qs);
    const QString pdf = f.Path("list.pdf");
    QString seen;
    WhenOpens<PrnMsg>([&](PrnMsg* open) {
      const auto press = [open](const QString& name) {
        QTest::mouseClick(open->findChild<QAbstractButton*>(name), Qt::LeftButton);
      };
      f.dialog.Expect(pdf);
      press(u"tPDF"_qs);
      seen = open->findChild<QLabel*>(u"Note"_qs)->text();
      press(u"tCHI"_qs);
    });
    f.Do(u"Pr_msg"_qs);
    QVERIFY2(seen.endsWith(pdf), qPrintable(seen));
    QVERIFY(ReadBytes(pdf).startsWith("%PDF"));
  }
};

}  // namespace nira

QTEST_MAIN(nira::AlMsgTest)
#include "AlMsgTest.moc"
