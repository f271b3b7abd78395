// SPDX-License-Identifier: Apache-2.0
#include "printing/PrnSize.h"
#include "support/Tables.h"
#include "support/WindowFixture.h"

#include <QComboBox>
#include <QPrinter>
#include <QSpinBox>

namespace nira {

using namespace Qt::StringLiterals;

/// The print window, from the menu to the file.
class PrnSizeTest : public QObject {
  Q_OBJECT

 private:
  static constexpr const char* proposed = "press.pdf";

  /// A program of 22 sizes on a machine without a printer.
  static bool Begin(WindowFixture& f) { return f.Start(f.Sample(u"press.CAM"_qs)); }

  static void ClickOn(const PrnSize* window, const QString& name) {
    auto* button = window->findChild<QAbstractButton*>(name);
    QVERIFY2(button, qPrintable(name));
    // The indicator: the caption may be narrower than the control.
    const bool push = qobject_cast<QPushButton*>(button) != nullptr;
    QTest::mouseClick(button, Qt::LeftButton, {},
                      push ? button->rect().center() : QPoint(8, button->height() / 2));
  }

 private Q_SLOTS:
  /// What is clicked, what is typed into the boxes for the first and the last size, and the pages.
  void WritesPdf_data() {
    TextTable({"clicks", "typed", "pages"},
              {{"current", "", "", "2"},
               {"all", "OpTut", "", "23"},
               {"range backwards", "", "TDa 7 TA 3", "6"},
               {"beyond the last size", "", "TA 99", "10"},
               {"no functions, no diagram, flowing", "OpTut OpSeg ChkFun ChkDia", "", "11"}});
  }

  void WritesPdf() {
    QFETCH(QString, clicks);
    QFETCH(QString, typed);
    QFETCH(QString, pages);
    WindowFixture f;
    QVERIFY(Begin(f));
    f.dialog.Expect(f.Path(u"out"_qs));
    QString shown;
    WhenOpens<PrnSize>([&](PrnSize* window) {
      window->activateWindow();
      QTRY_COMPARE(QApplication::activeWindow(), static_cast<QWidget*>(window));
      for (const QString& click : clicks.split(u' ', Qt::SkipEmptyParts)) ClickOn(window, click);
      const QStringList words = typed.split(u' ', Qt::SkipEmptyParts);
      for (qsizetype i = 0; i < words.size(); i += 2) {
        auto* box = window->findChild<QSpinBox*>(words[i]);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, words[i + 1]);
        QTest::keyClick(box, Qt::Key_Return);  // ends the number and does not print
      }
      ClickOn(window, u"tPDF"_qs);  // at once, though a box that is turned is followed later
      QVERIFY(window->findChild<QLabel*>(u"Note"_qs)->toolTip().endsWith(f.Path(u"out.pdf"_qs)));
      shown = window->findChild<QLabel*>(u"Pag"_qs)->text();
      ClickOn(window, u"tCHI"_qs);
    });
    f.Choose("Pr_size");
    QCOMPARE(shown, u"1 / "_qs + pages);
    QVERIFY(f.dialog.shown.constFirst().endsWith(f.Path(QString::fromLatin1(proposed))));
    const QByteArray pdf = ReadBytes(f.Path(u"out.pdf"_qs));
    QVERIFY(pdf.startsWith("%PDF-"));
    QCOMPARE(pdf.count("/Type /Page\n"), pages.toInt());
  }

  /// The preview holds the page that is shown and no other, however many there are.
  void Leafing() {
    WindowFixture f;
    QVERIFY(Begin(f));
    WhenOpens<PrnSize>([](PrnSize* window) {
      ClickOn(window, u"OpTut"_qs);
      const auto* preview = window->findChild<QPrintPreviewWidget*>(u"Preview"_qs);
      const auto* next = window->findChild<QToolButton*>(u"PagNext"_qs);
      for (int page = 1; page < 23; ++page) {
        ClickOn(window, u"PagNext"_qs);
        QCOMPARE(preview->pageCount(), 1);
      }
      QVERIFY(!next->isEnabled());
      auto* box = window->findChild<QSpinBox*>(u"TA"_qs);
      QTest::keyClick(box, Qt::Key_Up);
      QTest::keyClick(box, Qt::Key_Up);
      auto* pending = window->findChild<QTimer*>(u"Pending"_qs);
      QVERIFY(pending->isActive());
      pending->start(0);
      QTRY_COMPARE(window->findChild<QLabel*>(u"Pag"_qs)->text(), u"1 / 4"_qs);
      window->close();
    });
    f.Choose("Pr_size");
  }

  /// The paper that the printer has, and the one that is chosen here; the title says when the
  /// program differs from its file.
  void PaperIsTakenOver() {
    const QPageSize own(QSizeF(500, 700), QPageSize::Point);
    for (const auto& [loaded, key, box] :
         {std::tuple(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {}), "L",
                     "612.000000 792.000000"),
          {QPageLayout(own, QPageLayout::Landscape, {}), "", "700.000000 500.000000"}}) {
      WindowFixture f;
      QVERIFY(Begin(f));
      f.dialog.Printer().setPageLayout(loaded);
      const bool changed = loaded.pageSize() == own;
      if (changed) f.program.SetCamText(0, u"X"_qs);
      f.dialog.Expect(f.Path(u"out.pdf"_qs));
      WhenOpens<PrnSize>([key = QString(key)](PrnSize* window) {
        QTest::keyClicks(window->findChild<QComboBox*>(u"CmbCar"_qs), key);
        ClickOn(window, u"tPDF"_qs);
        window->close();
      });
      f.Choose("Pr_size");
      const QByteArray pdf = ReadBytes(f.Path(u"out.pdf"_qs));
      QVERIFY(pdf.contains(box));
      QCOMPARE(pdf.simplified().replace('\0', "").contains("press.CAM \\(modificato"), changed);
    }
  }

  /// No two captions of the window answer to the same key.
  void Mnemonics() {
    WindowFixture f;
    for (const QString& script : {u"p32qx_IT.SCR"_qs, u"p32qx_EN.SCR"_qs}) {
      QVERIFY(f.texts.Read(f.Path(script)));
      const PrnSize window(f.instance);
      QStringList keys;
      for (const auto* button : window.findChildren<QAbstractButton*>()) {
        const QString key = QKeySequence::mnemonic(button->text()).toString();
        if (key.isEmpty()) continue;
        QVERIFY2(!keys.contains(key), qPrintable(key + u' ' + button->text()));
        keys.append(key);
      }
      QCOMPARE(keys.size(), 10);
    }
  }

  /// What cannot be done is said, and what stood there stays.
  void Refusals() {
    WindowFixture f;
    QVERIFY(Begin(f));
    QVERIFY(WriteBytes(f.Path(u"kept.pdf"_qs), "old"));
    const QString missing = f.Path(u"no folder/out.pdf"_qs);
    WhenOpens<PrnSize>([&](PrnSize* window) {
      f.prompts.Expect();
      ClickOn(window, u"tPRN"_qs);
      f.dialog.Expect(missing);
      f.prompts.Expect();
      ClickOn(window, u"tPDF"_qs);
      f.dialog.Expect(f.Path(u"kept"_qs));
      f.prompts.Expect(Answer::No);
      ClickOn(window, u"tPDF"_qs);
      f.settings.CurrentFile = f.Path(u"kept.pdf"_qs);
      f.dialog.Expect(f.settings.CurrentFile);
      f.prompts.Expect();
      ClickOn(window, u"tPDF"_qs);
      QTest::keyClick(window, Qt::Key_Escape);
    });
    f.Choose("Pr_size");
    QCOMPARE(ReadBytes(f.Path(u"kept.pdf"_qs)), QByteArray("old"));
    const QString none = u"Exclamation Ok: NESSUNA STAMPANTE: SI PUO' SCRIVERE UN FILE PDF"_qs;
    const QStringList shown = f.prompts.Shown();
    QCOMPARE(shown.size(), 4);
    QCOMPARE(shown.at(0), none);
    QVERIFY(shown.at(1).startsWith(u"Critical Ok: IMPOSSIBILE SCRIVERE IL FILE\n"_qs + missing));
    QCOMPARE(shown.at(2), u"Exclamation NoYes: IL FILE ESISTE GIA'. SOSTITUIRLO ?\n"_qs +
                              f.Path(u"kept.pdf"_qs));
    QCOMPARE(shown.at(3), u"Critical Ok: IMPOSSIBILE SCRIVERE IL FILE\n"_qs +
                              f.Path(u"kept.pdf"_qs) + u"\nE' IL FILE DI CAMMA APERTO"_qs);
  }
};

}  // namespace nira

QTEST_MAIN(nira::PrnSizeTest)
#include "PrnSizeTest.moc"
