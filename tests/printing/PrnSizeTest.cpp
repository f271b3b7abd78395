#include "printing/PrnSize.h"
#include "support/WindowFixture.h"

#include <QComboBox>
#include <QPrinter>

namespace nira {

using namespace Qt::StringLiterals;

/// The print window, from the menu to the file.
class PrnSizeTest : public QObject {
  Q_OBJECT

 private:
  static constexpr const char* proposed = "press.pdf";

  /// A program of 22 sizes on a machine without a printer.
  static bool Begin(WindowFixture& f) {
    f.dialog.Printer().setOutputFormat(QPrinter::PdfFormat);
    return f.Start(f.Sample(u"press.CAM"_qs));
  }

  static void ClickOn(const PrnSize* window, const QString& name) {
    auto* button = window->findChild<QAbstractButton*>(name);
    QVERIFY2(button, qPrintable(name));
    // The indicator: the caption may be narrower than the control.
    const bool push = qobject_cast<QPushButton*>(button) != nullptr;
    QTest::mouseClick(button, Qt::LeftButton, {},
                      push ? button->rect().center() : QPoint(8, button->height() / 2));
  }

 private Q_SLOTS:
  void WritesPdf_data() {
    QTest::addColumn<QString>("clicks");
    QTest::addColumn<QString>("typed");  // into the box for the last size
    QTest::addColumn<QString>("shown");  // by the number of the page
    QTest::addColumn<int>("pages");
    QTest::newRow("current") << u""_qs << u""_qs << u"1 / 1"_qs << 1;
    QTest::newRow("all") << u"OpTut"_qs << u""_qs << u"1 / 22"_qs << 22;
    QTest::newRow("range by its number") << u""_qs << u"4"_qs << u"1 / 4"_qs << 4;
    QTest::newRow("beyond the last size") << u""_qs << u"99"_qs << u"1 / 9"_qs << 9;
    QTest::newRow("letters") << u"OpInt"_qs << u"ab"_qs << u"1 / 1"_qs << 1;
    QTest::newRow("no functions, no diagram, flowing")
        << u"OpTut OpSeg ChkFun ChkDia"_qs << u""_qs << u"1 / 11"_qs << 11;
  }

  void WritesPdf() {
    QFETCH(QString, clicks);
    QFETCH(QString, typed);
    WindowFixture f;
    QVERIFY(Begin(f));
    f.dialog.Expect(f.Path(u"out"_qs));
    QString shown;
    WhenOpens<PrnSize>([&](PrnSize* window) {
      window->activateWindow();
      QTRY_COMPARE(QApplication::activeWindow(), static_cast<QWidget*>(window));
      for (const QString& click : clicks.split(u' ', Qt::SkipEmptyParts)) ClickOn(window, click);
      if (!typed.isEmpty()) {
        auto* box = window->findChild<QSpinBox*>(u"TA"_qs);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, typed);
        QTest::keyClick(box, Qt::Key_Tab);
      }
      shown = window->findChild<QLabel*>(u"Pag"_qs)->text();
      ClickOn(window, u"tPDF"_qs);
      ClickOn(window, u"tCHI"_qs);
    });
    f.Choose("Pr_size");
    QTEST(shown, "shown");
    QVERIFY(f.dialog.shown.constFirst().endsWith(f.Path(QString::fromLatin1(proposed))));
    const QByteArray pdf = ReadBytes(f.Path(u"out.pdf"_qs));
    QVERIFY(pdf.startsWith("%PDF-"));
    QTEST(int(pdf.count("/Type /Page\n")), "pages");
  }

  void PaperIsTakenOver() {
    WindowFixture f;
    QVERIFY(Begin(f));
    f.dialog.Expect(f.Path(u"out.pdf"_qs));
    WhenOpens<PrnSize>([](PrnSize* window) {
      auto* paper = window->findChild<QComboBox*>(u"CmbCar"_qs);
      QTest::keyClick(paper, Qt::Key_L);
      ClickOn(window, u"tPDF"_qs);
      window->close();
    });
    f.Choose("Pr_size");
    QVERIFY(ReadBytes(f.Path(u"out.pdf"_qs)).contains("612.000000 792.000000"));
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
      f.dialog.ExpectCancel();
      ClickOn(window, u"tPDF"_qs);
      f.dialog.Expect(f.Path(u"kept"_qs));
      f.prompts.Expect(Answer::No);
      ClickOn(window, u"tPDF"_qs);
      QTest::keyClick(window, Qt::Key_Escape);
    });
    f.Choose("Pr_size");
    QCOMPARE(ReadBytes(f.Path(u"kept.pdf"_qs)), QByteArray("old"));
    f.prompts.Expect();
    f.Choose("f_SelPr");
    const QString none = u"Exclamation Ok: NESSUNA STAMPANTE: SI PUO' SCRIVERE UN FILE PDF"_qs;
    const QStringList shown = f.prompts.Shown();
    QCOMPARE(shown.size(), 4);
    QCOMPARE(shown.at(0), none);
    QVERIFY(shown.at(1).startsWith(u"Critical Ok: IMPOSSIBILE SCRIVERE IL FILE\n"_qs + missing));
    QCOMPARE(shown.at(2), u"Exclamation YesNo: IL FILE ESISTE GIA'. SOSTITUIRLO ?\n"_qs +
                              f.Path(u"kept.pdf"_qs));
    QCOMPARE(shown.at(3), none);
  }
};

}  // namespace nira

QTEST_MAIN(nira::PrnSizeTest)
#include "PrnSizeTest.moc"
