#include "dialogs/About.h"
#include "dialogs/QtPrompts.h"
#include "dialogs/ThemedIcon.h"
#include "support/WindowFixture.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace nira {

/// The boxes and dialogs that every window uses.
class DialogsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void AboutBox() {
    WindowFixture f;
    QVERIFY(f.Start());
    QApplication::setApplicationVersion(u"1.2.3"_qs);
    QStringList labels;
    QString title;
    QString button;
    bool named = true;
    WhenOpens<About>([&](About* about) {
      title = about->windowTitle();
      for (const QLabel* label : about->findChildren<QLabel*>()) labels.append(label->text());
      button = about->findChild<QPushButton*>(u"SystemInformation"_qs)->text();
      for (const QPushButton* other : about->findChildren<QPushButton*>()) {
        named = named && !other->text().isEmpty();
      }
      QTest::keyClick(about, Qt::Key_Escape);
    });
    f.Choose("info");
    QCOMPARE(title, u"Informazioni su NIRA-KPL"_qs);
    QVERIFY(labels.contains(u"NIRA-KPL"_qs));
    QVERIFY(labels.contains(u"Versione 1.2.3"_qs));
    QVERIFY(labels.contains(u"Configurazione dei programmatori elettronici di camme"_qs));
    QCOMPARE(button, u"Informazioni sul &Sistema..."_qs);
    QVERIFY(named);
    QVERIFY(f.prompts.boxes.empty());
  }

  void SystemInformation() {
    WindowFixture f;
    QVERIFY(f.Start());
    About about(f.texts, f.prompts, nullptr);
    QVERIFY(!About::SystemTools().isEmpty());
    f.prompts.Expect();
    about.ShowSystemInformation({f.Path(u"gone"_qs), u"no-such-tool-at-all"_qs});
    QCOMPARE(f.prompts.Shown().join(u'|'),
             u"Information Ok: NESSUNO STRUMENTO DI INFORMAZIONI SUL SISTEMA"_qs);
#ifndef Q_OS_WIN
    const QString started = f.Path(u"started"_qs);
    QStringList tools{f.Path(u"gone"_qs)};
    for (const char* name : {"first", "second"}) {
      tools.append(f.Path(QString::fromLatin1(name)));
      QVERIFY(WriteBytes(tools.last(),
                         QFile::encodeName(u"#!/bin/sh\necho $0 >> '"_qs + started + u"'\n"_qs)));
      QFile::setPermissions(tools.last(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    about.ShowSystemInformation(tools);
    QTRY_COMPARE(ReadBytes(started), QFile::encodeName(tools.at(1)) + '\n');
    QCOMPARE(f.prompts.boxes.size(), std::size_t{1});
#endif
  }

  void Filters() {
    QCOMPARE(NameFilters(u"Cam Files (*.Cam)|*.cam|Tutti (*.*)|*.*"_qs),
             QStringList({u"Cam Files (*.Cam) (*.cam *.CAM)"_qs, u"Tutti (*.*) (*)"_qs}));
    QCOMPARE(NameFilters(QString()), QStringList());
    QCOMPARE(NameFilters(u"label alone"_qs), QStringList());
    QCOMPARE(NameFilters(u"a|*.a|b"_qs), QStringList(u"a (*.a *.A)"_qs));
  }

  void FileDialogs() {
    QTemporaryDir temporary;
    const QString path = temporary.filePath(u"x.CAM"_qs);
    QVERIFY(WriteBytes(path, "x"));
    clsCommonDialog dialog;
    dialog.DialogTitle = u"TITLE"_qs;
    dialog.Filter = u"Cam (*.Cam)|*.cam|All (*.*)|*.*"_qs;
    dialog.Flags = clsCommonDialog::FileMustExist + 1;
    dialog.InitDir = temporary.path();
    WhenOpens<QFileDialog>([&](QFileDialog* box) {
      QCOMPARE(box->windowTitle(), u"TITLE"_qs);
      QCOMPARE(box->acceptMode(), QFileDialog::AcceptOpen);
      QCOMPARE(box->fileMode(), QFileDialog::ExistingFile);
      QCOMPARE(box->directory().absolutePath(), QDir(temporary.path()).absolutePath());
      box->reject();
    });
    QVERIFY(!dialog.ShowOpen(nullptr));
    QCOMPARE(dialog.FileName, QString());
    QCOMPARE(dialog.FileTitle(), QString());

    const auto type = [](const QString& name) {
      return [name](QFileDialog* box) {
        auto* edit = box->findChild<QLineEdit*>();
        QVERIFY(QTest::qWaitForWindowActive(box));
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, name);
        QTest::keyClick(edit, Qt::Key_Return);
        if (box->isVisible()) box->reject();
      };
    };
    WhenOpens<QFileDialog>(type(u"x.CAM"_qs));
    QVERIFY(dialog.ShowOpen(nullptr));
    QCOMPARE(QFileInfo(dialog.FileName).canonicalFilePath(), QFileInfo(path).canonicalFilePath());
    QCOMPARE(dialog.FileTitle(), u"x.CAM"_qs);

    dialog.Flags = clsCommonDialog::OverwritePrompt + clsCommonDialog::PathMustExist;
    dialog.FileName = path;
    WhenOpens<QFileDialog>([&](QFileDialog* box) {
      QCOMPARE(box->acceptMode(), QFileDialog::AcceptSave);
      QVERIFY(!box->testOption(QFileDialog::DontConfirmOverwrite));
      QCOMPARE(box->findChild<QLineEdit*>()->text(), u"x.CAM"_qs);
      box->reject();
    });
    QVERIFY(!dialog.ShowSave(nullptr));
    QCOMPARE(dialog.FileName, path);  // the preset comes back
    WhenOpens<QFileDialog>(type(u"new"_qs));
    QVERIFY(dialog.ShowSave(nullptr));
    QCOMPARE(dialog.FileTitle(), u"new"_qs);
  }

  void MessageBoxes_data() {
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("press");
    QTest::addColumn<int>("answer");
    const auto row = [](const char* name, Buttons buttons, QMessageBox::StandardButton press,
                        Answer answer) {
      QTest::newRow(name) << int(buttons) << int(press) << int(answer);
    };
    row("OK", Buttons::Ok, QMessageBox::Ok, Answer::Ok);
    row("OK of two", Buttons::OkCancel, QMessageBox::Ok, Answer::Ok);
    row("Cancel of two", Buttons::OkCancel, QMessageBox::Cancel, Answer::Cancel);
    row("closed", Buttons::OkCancel, QMessageBox::NoButton, Answer::Cancel);
    row("Yes", Buttons::YesNo, QMessageBox::Yes, Answer::Yes);
    row("No", Buttons::YesNoCancel, QMessageBox::No, Answer::No);
    row("Escape of three", Buttons::YesNoCancel, QMessageBox::NoButton, Answer::Cancel);
    row("Retry", Buttons::RetryCancel, QMessageBox::Retry, Answer::Retry);
  }

  void MessageBoxes() {
    QFETCH(int, buttons);
    QFETCH(int, press);
    QString text;
    QString title;
    Qt::TextFormat format = Qt::AutoText;
    WhenOpens<QMessageBox>([&](QMessageBox* box) {
      text = box->text();
      title = box->windowTitle();
      format = box->textFormat();
      if (press == QMessageBox::NoButton) {
        QTest::keyClick(box, Qt::Key_Escape);
      } else {
        box->button(static_cast<QMessageBox::StandardButton>(press))->click();
      }
    });
    const Answer answer = QtPrompts().MsgBox(u"<b>A</b>\r B\x01"_qs, static_cast<Buttons>(buttons),
                                             Icon::Exclamation, {});
    QTEST(int(answer), "answer");
    QCOMPARE(text, u"<b>A</b>\n B\uFFFD"_qs);
    QCOMPARE(title, u"NIRA-KPL"_qs);
    QCOMPARE(format, Qt::PlainText);
  }

  void InputBoxes() {
    const auto labelOf = [](QInputDialog* box) { return box->findChild<QLabel*>(); };
    bool plain = false;
    QString preset;
    WhenOpens<QInputDialog>([&](QInputDialog* box) {
      plain =
          labelOf(box)->textFormat() == Qt::PlainText || !Qt::mightBeRichText(labelOf(box)->text());
      preset = box->textValue();
      box->setTextValue(u"new"_qs);
      box->accept();
    });
    const auto answer = QtPrompts().InputBox(u"<b>A</b>"_qs, u"old"_qs);
    QVERIFY(answer.has_value());
    QCOMPARE(*answer, u"new"_qs);
    QCOMPARE(preset, u"old"_qs);
    WhenOpens<QInputDialog>([](QInputDialog* box) { box->reject(); });
    QVERIFY(!QtPrompts().InputBox(u"A"_qs, u"old"_qs).has_value());
    QVERIFY2(plain, "the prompt is taken as markup");
  }

  void Icons() {
    QPalette light;
    light.setColor(QPalette::WindowText, Qt::black);
    QPalette dark;
    dark.setColor(QPalette::WindowText, Qt::white);
    for (const char* name : {"new", "open", "save", "size", "erase", "cam", "nira-kpl"}) {
      const QString picture = QString::fromLatin1(name);
      for (const int side : {16, 48}) {
        const QImage onLight = ThemedIcon(picture, light).pixmap(side, side).toImage();
        const QImage onDark = ThemedIcon(picture, dark).pixmap(side, side).toImage();
        QImage empty = onLight;
        empty.fill(Qt::transparent);
        QCOMPARE(onLight.width(), side);
        QVERIFY2(onLight != empty && onDark != empty, name);
        if (picture != u"nira-kpl"_qs) QVERIFY2(onLight != onDark, name);
      }
    }
    QVERIFY(ThemedIcon(u"no such picture"_qs, light).isNull());
    WindowFixture f;
    QVERIFY(f.Start());
    const auto icon = [&f] {
      return f.Find<QToolButton>(u"OP_FIL"_qs)->icon().pixmap(24, 24).toImage();
    };
    const QImage before = icon();
    QPalette palette = f.window->palette();
    palette.setColor(QPalette::WindowText, QColor(10, 200, 10));
    f.window->setPalette(palette);
    QVERIFY(icon() != before);
  }
};

}  // namespace nira

QTEST_MAIN(nira::DialogsTest)
#include "DialogsTest.moc"
