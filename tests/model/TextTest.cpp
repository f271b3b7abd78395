#include "model/Text.h"

#include <QTest>

#include <limits>

namespace nira {

/// Numbers in texts and the code page of everything outside the program.
class TextTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Numbers_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint64>("value");
    const auto row = [](const QByteArray& text, qint64 value) {
      QTest::addRow("<%s>", text.left(40).constData()) << text << value;
    };
    row("", 0);
    row("    ", 0);
    row(" 7.6", 8);
    row("0.5", 0);
    row("1.5", 2);
    row("2.5", 2);
    row("3.5", 4);
    row("-0.5", 0);
    row("-1.5", -2);
    row("-2.5", -2);
    row("2.50001", 3);
    row(". 5 ", 0);
    row(". 12", 0);
    row(".", 0);
    row("5.", 5);
    row("1 2", 12);
    row("- 5", -5);
    row("-", 0);
    row("+", 0);
    row("+3", 3);
    row("+-3", 0);
    row("--3", 0);
    row("5-3", 5);
    row("1.2.3", 1);
    row("3abc", 3);
    row("abc3", 0);
    row("1e3", 1);
    row("0x1F", 0);
    row("&H1F", 0);
    row("inf", 0);
    row("nan", 0);
    row("1,9", 1);
    row("\t5", 0);
    row("5\t6", 5);
    row("\xA0"
        "5",
        0);
    row(QByteArray("1\0002", 3), 1);
    row("0012", 12);
    row("2147483648", 2147483648);
    row(QByteArray("0.") + QByteArray(400, '0') + '1', 0);
    row(QByteArray("-0.") + QByteArray(400, '0') + '1', 0);
    row(QByteArray(400, '0') + "7", 7);
  }

  void Numbers() {
    QFETCH(QByteArray, text);
    QTEST(qint64(NumericValue(text.toStdString())), "value");
    QTEST(qint64(NumericValue(FromBytes(text.toStdString()))), "value");
  }

  void NumbersBeyondAnyField() {
    for (const int digits : {30, 400}) {
      const std::string text(static_cast<std::size_t>(digits), '9');
      QVERIFY(NumericValue(text) > std::numeric_limits<std::int32_t>::max());
      QVERIFY(NumericValue('-' + text) < std::numeric_limits<std::int32_t>::min());
    }
  }

  void ZeroFills() {
    QCOMPARE(ZeroFill(5, 3), std::string("005"));
    QCOMPARE(ZeroFill(1234, 3), std::string("234"));
    QCOMPARE(ZeroFill(0, 2), std::string("00"));
    QCOMPARE(ZeroFill(-5, 3), std::string("0-5"));
    QCOMPARE(ZeroFilled(7, 3), QStringLiteral("007"));
  }

  void EveryCodeSurvives() {
    std::string all;
    for (int code = 0; code < 256; ++code) {
      const std::string one(1, static_cast<char>(code));
      QCOMPARE(FromBytes(one).size(), 1);
      QVERIFY(ToBytes(FromBytes(one)) == one);
      all += one;
    }
    QCOMPARE(FromBytes(all).size(), 256);
    QVERIFY(ToBytes(FromBytes(all)) == all);
    QCOMPARE(FromBytes("\x80 \xE8 \x9F"), QStringLiteral("\u20AC \u00E8 \u0178"));
  }

  void CharactersWithoutACode_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("foreign");
    QTest::newRow("none") << QStringLiteral("\u20AC\u00E8") << QString();
    QTest::newRow("Cyrillic") << QStringLiteral("ab\u0416c") << QStringLiteral("\u0416");
    QTest::newRow("wide digit") << QStringLiteral("\uFF11") << QStringLiteral("\uFF11");
    QTest::newRow("C1 of a used code") << QStringLiteral("\u0080") << QStringLiteral("\u0080");
    QTest::newRow("mark") << QStringLiteral("\uFEFFa") << QStringLiteral("\uFEFF");
    QTest::newRow("pair") << QStringLiteral("a\U0001F600b") << QStringLiteral("\U0001F600");
    QTest::newRow("half a pair") << QString(QChar(0xD83D)) << QString(QChar(0xD83D));
    QTest::newRow("decomposed") << QStringLiteral("e\u0300") << QStringLiteral("\u0300");
  }

  void CharactersWithoutACode() {
    QFETCH(QString, text);
    QFETCH(QString, foreign);
    QCOMPARE(ForeignCharacter(text), foreign);
    QCOMPARE(ToBytes(text).has_value(), foreign.isEmpty());
  }

  void BlanksAreCode32Only() {
    QCOMPARE(TrimLeft(QStringLiteral("  a ")), QStringLiteral("a "));
    QCOMPARE(TrimLeft(QStringLiteral("\t\u00A0 ")), QStringLiteral("\t\u00A0 "));
    QCOMPARE(TrimLeft(QStringLiteral("   ")), QString());
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::TextTest)
#include "TextTest.moc"
