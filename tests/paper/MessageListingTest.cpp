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
  int marks_ = 0;  // where the display's second row begins, on all pages
  QDateTime date_{QDate(2026, 11, 21), QTime(14, 5)};

  /// What stands on the pages below the heading, without blanks: inside the margins and nothing
  /// over another.
  QString Printed(int points, QPageSize::PageSizeId paper) {
    MessageListing listing(program_, texts_, u"press.MSG"_qs, date_,
                           QFont(u"DejaVu Sans"_qs, points));
    const QSizeF size = QPageSize(paper).size(QPageSize::Point) * 10;
    const int pages = listing.LayOut(size);
    QString printed;
    for (int page = 1; page <= pages; ++page) {
      const PaintRecorder recorder(listing, size, page);
      const bool inside = QRectF({}, size).adjusted(100, 100, -100, -100).contains(recorder.Ink());
      if (!inside) return u"outside the margins"_qs;
      if (!recorder.Overlap().isEmpty()) return recorder.Overlap();
      if (!recorder.WordsBelow(90).isEmpty()) return u"letters below 9 points"_qs;
      QStringList words = recorder.Words();
      if (!u"MESSAGES: press.MSG"_qs.startsWith(words.takeFirst().section(u'\u2026', 0, 0)))
        return {};
      words.removeAll(u"2026-11-21 14:05"_qs);
      words.removeAll(u"Page %1 / %2"_qs.arg(page).arg(pages));
      marks_ += recorder.Uprights();
      printed += words.join(QString()).remove(u' ');
    }
    return printed;
  }

 private Q_SLOTS:
  /// Every number and every character of every message in their order.
  void Everything() {
    program_.SetLimits(22, 32, 255);
    for (const auto& [points, paper, length] : {std::tuple(9, QPageSize::A4, 40),
                                                {200, QPageSize::A6, 20},
                                                {1, QPageSize::Letter, 900}}) {
      QString expected;
      for (int number = 1; number <= 255; ++number) {
        QString text = u"%1 PRESSIONE OLIO BASSA "_qs.arg(number);
        while (text.size() < length) text += u"W x"_qs;
        program_.SetMessageText(number, number % 50 == 0 ? QString() : text.left(length));
        expected += ZeroFilled(number, 3) + program_.MessageText(number);
      }
      marks_ = 0;
      QCOMPARE(Printed(points, paper), expected.remove(u' '));
      if (length <= 40) QCOMPARE(marks_, length > 20 ? 250 : 0);
    }
  }

  /// It goes on in the next column or page, with its number again.
  void LongerThanAPage() {
    program_.SetLimits(22, 32, 2);
    QString expected;
    for (const int number : {1, 2}) {
      QString text;
      for (QChar letter = u'A'; letter <= u'Z'; letter = QChar(letter.unicode() + 1)) {
        text += QString(number * 9, letter) + u' ';
      }
      program_.SetMessageText(number, text);
      expected += text;
    }
    QString printed = Printed(36, QPageSize::A6);
    QVERIFY2(printed.count(u"001"_qs) > 1 && printed.count(u"002"_qs) > 2, qPrintable(printed));
    QCOMPARE(printed.remove(u"001"_qs).remove(u"002"_qs), expected.remove(u' '));
  }
};

}  // namespace nira

QTEST_MAIN(nira::MessageListingTest)
#include "MessageListingTest.moc"
