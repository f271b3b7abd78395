// SPDX-License-Identifier: Apache-2.0
#include "ground/Text.h"

#include <QTest>

namespace nira {

/// Numbers in texts and the code page of everything outside the program.
class TextTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Numbers_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint64>("value");
    const char* const rows =
        "=0| 7.6=8|0.5=0|1.5=2|2.5=2|-0.5=0|-1.5=-2|-2.5=-2|2.50001=3|. 5 =0|.=0|5.=5|1 2=12|"
        "- 5=-5|-=0|+3=3|+-3=0|5-3=5|1.2.3=1|3abc=3|abc3=0|1e3=1|0x1F=0|&H1F=0|inf=0|nan=0|1,9=1|"
        "\t5=0|5\t6=5|\xA0"
        "5=0|0012=12|2147483648=2147483648";
    for (const QByteArray& row : QByteArray(rows).split('|')) {
      const QByteArrayList parts = row.split('=');
      QTest::addRow("<%s>", parts[0].constData()) << parts[0] << parts[1].toLongLong();
    }
    QTest::newRow("NUL") << QByteArray("1\0002", 3) << qint64(1);
    QTest::newRow("zeros") << QByteArray(400, '0') + "7" << qint64(7);
    QTest::newRow("tiny") << "-0." + QByteArray(400, '0') + '1' << qint64(0);
  }

  void Numbers() {
    QFETCH(QByteArray, text);
    QTEST(qint64(NumericValue(text.toStdString())), "value");
    QTEST(qint64(NumericValue(FromBytes(text.toStdString()))), "value");
  }

  void EveryCodeSurvives() {
    std::string all;
    for (int code = 0; code < 256; ++code) all.push_back(static_cast<char>(code));
    QCOMPARE(FromBytes(all).size(), 256);
    QVERIFY(ToBytes(FromBytes(all)) == all);
    QCOMPARE(FromBytes("\x80 \xE8 \x9F"), u"\u20AC \u00E8 \u0178"_qs);
  }

  void CharactersWithoutACode() {
    for (const QString& foreign : {u"\u0416"_qs, u"\uFF11"_qs, u"\u0080"_qs, u"\uFEFF"_qs,
                                   u"\U0001F600"_qs, QString(QChar(0xD83D)), u"\u0300"_qs}) {
      const QString text = u"e\u20AC" + foreign;
      QCOMPARE(UntypableCharacter(text), foreign);
      QVERIFY(!ToBytes(text).has_value());
    }
    QCOMPARE(UntypableCharacter(u"a\tb\n\u0416"_qs), u"\u2409"_qs);
    const auto found = FirstUntypable(u"a\U0001F600b\x7F"_qs);
    QVERIFY(found && found->At == 1 && found->Length == 2);
    QCOMPARE(UntypableCharacter(u"\u0081\x7F"_qs), u"\u2421"_qs);
    QCOMPARE(UntypableCharacter(u"a \"b\" \u20AC"_qs), QString());
  }

  void FillsAndTrims() {
    QCOMPARE(ZeroFill(5, 3) + ZeroFill(1234, 3) + ZeroFill(-5, 3), std::string("0052340-5"));
    QCOMPARE(TrimLeft(u"  a "_qs), u"a "_qs);
    QCOMPARE(TrimLeft(u"\t\u00A0 "_qs), u"\t\u00A0 "_qs);
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::TextTest)
#include "TextTest.moc"
