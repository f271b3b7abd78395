// SPDX-License-Identifier: Apache-2.0
#include "dialogs/About.h"
#include "dialogs/QtPrompts.h"
#include "support/WindowFixture.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>

#include <tuple>

namespace nira {

/// The boxes and dialogs that every window uses.
class DialogsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void AboutBox() {
    WindowFixture f;
    QVERIFY(f.Start());
    QApplication::setApplicationVersion(u"1.2.3"_qs);
    QStringList texts;
    WhenOpens<About>([&texts](About* about) {
      for (const QLabel* label : about->findChildren<QLabel*>()) texts.append(label->text());
      QTest::keyClick(about, Qt::Key_Escape);
    });
    f.Choose("info");
    QVERIFY2(texts.contains(u"Versione 1.2.3"_qs), qPrintable(texts.join(u'|')));
  }

  /// From the about box or with F1: every heading leads to its place, and words are found.
  void ManualWindow() {
    WindowFixture f;
    QVERIFY(f.Start());
    WhenOpens<About>([](About* about) {
      QTest::mouseClick(about->findChild<QPushButton*>(u"ManualButton"_qs), Qt::LeftButton);
    });
    f.Choose("info");
    auto* manual = f.Find(u"Manual"_qs);
    QVERIFY(manual->isVisible() && !manual->isModal());
    const auto* page = manual->findChild<QTextBrowser*>();
    const auto* headings = manual->findChild<QListWidget*>();
    QVERIFY(headings->count() > 10 && !headings->item(0)->text().isEmpty());
    const QPoint last = headings->visualItemRect(headings->item(headings->count() - 1)).center();
    QTest::mouseClick(headings->viewport(), Qt::LeftButton, {}, last);
    QVERIFY(page->verticalScrollBar()->value() > 0);
    manual->close();
    f.Press(Qt::Key_F1);
    QVERIFY(manual->isVisible());
    auto* words = manual->findChild<QLineEdit*>();
    QTest::keyClick(manual, Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(words, u"pageup"_qs);
    QTest::keyClick(words, Qt::Key_Return);  // behind the last heading: from the beginning on
    QCOMPARE(page->textCursor().selectedText(), u"PageUp"_qs);
    QFile text(u":/manual/manual.md"_qs);
    QVERIFY(text.open(QIODevice::ReadOnly));
    static const QRegularExpression picture(u"\\]\\(([^)]+\\.png)\\)"_qs);
    for (auto all = picture.globalMatch(QString::fromUtf8(text.readAll())); all.hasNext();) {
      const QString name = all.next().captured(1);
      QVERIFY2(QFile::exists(u":/manual/"_qs + name), qPrintable(name));
    }
  }

  void SystemInformation() {
    WindowFixture f;
    QVERIFY(f.Start());
    About about(f.texts, f.prompts, nullptr);
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
  }

  void FileDialogs() {
    QTemporaryDir temporary;
    const QString path = temporary.filePath(u"x.CAM"_qs);
    QVERIFY(WriteBytes(path, "x"));
    clsCommonDialog dialog;
    dialog.Flags = clsCommonDialog::FileMustExist;
    dialog.InitDir = temporary.path();
    WhenOpens<QFileDialog>([&](QFileDialog* box) {
      QCOMPARE(box->fileMode(), QFileDialog::ExistingFile);
      QCOMPARE(box->directory().absolutePath(), QDir(temporary.path()).absolutePath());
      box->reject();
    });
    QVERIFY(!dialog.ShowOpen(nullptr));
    dialog.Flags = clsCommonDialog::OverwritePrompt;
    dialog.FileName = path;
    WhenOpens<QFileDialog>([&](QFileDialog* box) {
      QVERIFY(!box->testOption(QFileDialog::DontConfirmOverwrite));
      QCOMPARE(box->findChild<QLineEdit*>()->text(), u"x.CAM"_qs);
      box->reject();
    });
    QVERIFY(!dialog.ShowSave(nullptr));
    QCOMPARE(dialog.FileName, path);  // the preset comes back
    dialog.Flags = clsCommonDialog::OverwritePrompt + clsCommonDialog::PathMustExist;
    dialog.FolderNotFound = u"GONE: "_qs;
    QString told;
    WhenOpens<QFileDialog>([&told](QFileDialog* box) {
      auto* edit = box->findChild<QLineEdit*>();
      QVERIFY(QTest::qWaitForWindowActive(box));
      WhenOpens<QMessageBox>([&told](QMessageBox* message) {
        told = message->text();
        message->accept();
      });
      for (const QString& name : {u"x.y/new"_qs, u"new"_qs}) {  // the first: no such folder
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, name);
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(edit->text(), name);
        QCOMPARE(box->isVisible(), name != u"new"_qs);
      }
      if (box->isVisible()) box->reject();
    });
    QVERIFY(dialog.ShowSave(nullptr));
    QCOMPARE(dialog.FileTitle(), u"new"_qs);
    QCOMPARE(told, u"GONE: "_qs + temporary.filePath(u"x.y"_qs));
  }

  /// The printer dialog offers what the program does, and only its OK counts.
  void PrinterDialog() {
    clsCommonDialog dialog;
    for (const bool confirmed : {false, true}) {
      WhenOpens<QPrintDialog>([confirmed](QPrintDialog* box) {
        QCOMPARE(box->options() & (QPrintDialog::PrintToFile | QPrintDialog::PrintPageRange),
                 QPrintDialog::PrintDialogOptions());
        box->printer()->setPageOrientation(QPageLayout::Landscape);
        const auto* confirm = box->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
        QCOMPARE(confirm->text(), u"OK"_qs);  // it prints nothing
        box->done(confirmed ? QDialog::Accepted : QDialog::Rejected);
      });
      QCOMPARE(dialog.ShowPrinter(nullptr), confirmed);
      const bool landscape = dialog.Printer().pageLayout().orientation() == QPageLayout::Landscape;
      QCOMPARE(landscape, confirmed);
    }
  }

  void MessageBoxes() {
    using Row = std::tuple<Buttons, Answer, Answer>;  // the answers of the return and escape keys
    for (const auto& [buttons, byReturn, byEscape] :
         {Row{Buttons::Ok, Answer::Ok, Answer::Ok},
          Row{Buttons::OkCancel, Answer::Ok, Answer::Cancel},
          Row{Buttons::CancelOk, Answer::Cancel, Answer::Cancel},
          Row{Buttons::YesNo, Answer::Yes, Answer::No}, Row{Buttons::NoYes, Answer::No, Answer::No},
          Row{Buttons::YesNoCancel, Answer::Yes, Answer::Cancel},
          Row{Buttons::CancelYesNo, Answer::Cancel, Answer::Cancel},
          Row{Buttons::RetryCancel, Answer::Retry, Answer::Cancel}}) {
      for (const auto& [key, answer] :
           {std::pair{Qt::Key_Return, byReturn}, {Qt::Key_Escape, byEscape}}) {
        QString shown;
        WhenOpens<QMessageBox>([&shown, key = key](QMessageBox* box) {
          if (box->textFormat() == Qt::PlainText) shown = box->windowTitle() + u'|' + box->text();
          QVERIFY(!box->windowIcon().isNull());
          QTest::keyClick(box, key);
        });
        QCOMPARE(QtPrompts().MsgBox(u"<b>A</b>\r B\x01"_qs, buttons, Icon::Exclamation, {}),
                 answer);
        QCOMPARE(shown, u"NIRA-KPL|<b>A</b>\n B\uFFFD"_qs);
      }
    }
  }

  void InputBoxes() {
    WhenOpens<QInputDialog>([](QInputDialog* box) {
      const auto* label = box->findChild<QLabel*>();
      QVERIFY(label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text()));
      QCOMPARE(box->windowTitle(), u"SEARCH"_qs);
      box->setTextValue(box->textValue() + u" new"_qs);
      box->accept();
    });
    const auto answer = QtPrompts().InputBox(u"<b>A</b>"_qs, u"old"_qs, u"SEARCH"_qs);
    QCOMPARE(answer.value_or(u"-"_qs), u"old new"_qs);
    WhenOpens<QInputDialog>([](QInputDialog* box) {  // an answer that was refused is marked
      const auto* text = box->findChild<QLineEdit*>();
      QTRY_COMPARE(text->selectedText(), u"\u007F"_qs);
      box->reject();
    });
    QVERIFY(!QtPrompts().InputBox(u"A"_qs, u"o\u007Fld"_qs, {}).has_value());
  }
};

}  // namespace nira

QTEST_MAIN(nira::DialogsTest)
#include "DialogsTest.moc"
