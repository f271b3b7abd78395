// SPDX-License-Identifier: Apache-2.0
#include "MessageListing.h"
#include "ground/Text.h"
#include "support/PaintRecorder.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

/// The alarm messages on paper.
class MessageListingTest : public QObject {
  Q_OBJECT

 private:
  CamProgram program_;
  MessageTable texts_;
  QDateTime date_{QDate(2026, 11, 21), QTime(14, 5)};

 private Q_SLOTS:
  void Everything_data() {
    QTest::addColumn<int>("points");
    QTest::addColumn<QPageSize::PageSizeId>("paper");
    QTest::addColumn<int>("length");
    QTest::newRow("as usual") << 9 << QPageSize::A4 << 40;
    QTest::newRow("nothing to print") << 9 << QPageSize::A4 << 0;
    QTest::newRow("large") << 36 << QPageSize::A4 << 40;
    QTest::newRow("too large, small paper") << 200 << QPageSize::A6 << 20;
    QTest::newRow("too small, long text") << 1 << QPageSize::Letter << 900;
  }

  /// Every number and every character of every message in their order, inside the margins and none
  /// over another. (A message that is longer than a page has its number again on the next.)
  void Everything() {
    QFETCH(int, points);
    QFETCH(QPageSize::PageSizeId, paper);
    QFETCH(int, length);
    program_.SetLimits(22, 32, 255);
    for (int number = 1; number <= 255; ++number) {
      QString text = u"%1 PRESSIONE OLIO BASSA "_qs.arg(number);
      while (text.size() < length) text += u"W x"_qs;
      program_.SetMessageText(number, number % 50 == 0 ? QString() : text.left(length));
    }
    MessageListing listing(program_, texts_, u"press.MSG"_qs, date_,
                           QFont(u"DejaVu Sans"_qs, points));
    const QSizeF size = QPageSize(paper).size(QPageSize::Point) * 10;
    const int pages = listing.LayOut(size);
    QString printed;
    for (int page = 1; page <= pages; ++page) {
      const PaintRecorder recorder(listing, size, page);
      QVERIFY2(QRectF({}, size).adjusted(100, 100, -100, -100).contains(recorder.Ink()),
               "outside the margins");
      QCOMPARE(recorder.Overlap(), QString());
      QStringList words = recorder.Words();
      QVERIFY(u"MESSAGES: press.MSG"_qs.startsWith(words.first().section(u'\u2026', 0, 0)));
      words.removeFirst();
      words.removeAll(u"2026-11-21 14:05"_qs);
      words.removeAll(u"%1 / %2"_qs.arg(page).arg(pages));
      printed += words.join(QString());
    }
    QString expected;
    for (int number = 1; number <= 255; ++number) {
      expected += ZeroFilled(number, 3) + program_.MessageText(number);
    }
    QCOMPARE(printed.remove(u' '), expected.remove(u' '));
  }
};

}  // namespace nira

QTEST_MAIN(nira::MessageListingTest)
#include "MessageListingTest.moc"
