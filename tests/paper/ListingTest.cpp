// SPDX-License-Identifier: Apache-2.0
#include "ListingPainter.h"
#include "ground/Text.h"
#include "listing/Listing.h"
#include "support/PaintRecorder.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

/// The sizes of a program on paper.
class ListingTest : public QObject {
  Q_OBJECT

 private:
  CamProgram program_;
  MessageTable texts_;

  /// "NNN-NNN": a phase as it is printed.
  static bool IsPhase(const QString& word) {
    static const QRegularExpression phase(u"^\\d{3}-\\d{3}$"_qs);
    return phase.match(word.trimmed()).hasMatch();
  }

  /// The phases of the printed sizes in their order, as the program has them.
  QStringList Expected(const ListingOptions& options) const {
    QStringList phases;
    for (int size = options.FirstSize; size <= options.LastSize; ++size) {
      for (int cam = 0; cam < program_.NumCams(); ++cam) {
        for (const QString& line : PhaseList::Of(program_.CamMap(size, cam)).Lines()) {
          phases.append(OnField(line) + u'-' + OffField(line));
        }
      }
    }
    return phases;
  }

 private Q_SLOTS:
  void init() {
    QVERIFY(texts_.Read(QStringLiteral(NIRA_SOURCE_FOLDER "/lang/p32qx_IT.SCR")));
    program_.SetLimits(22, 32, 255);
    program_.ResetProgram();
  }

  void Pages_data() {
    QTest::addColumn<int>("cams");
    QTest::addColumn<int>("phases");
    QTest::addColumn<bool>("pagePerSize");
    QTest::addColumn<bool>("diagram");
    QTest::addColumn<int>("pages");  // of the sizes 1 to 4 on A4
    QTest::newRow("usual, flowing") << 32 << 2 << false << true << 4;
    QTest::newRow("no diagram, flowing") << 16 << 2 << false << false << 2;
    QTest::newRow("most phases, own pages") << 32 << 180 << true << true << 56;
    QTest::newRow("most phases, flowing") << 32 << 180 << false << true << 50;
  }

  /// Every phase stands on the pages exactly once and in order, every bar of the diagram once, and
  /// nothing leaves the margins, on both papers.
  void Pages() {
    QFETCH(int, cams);
    QFETCH(int, phases);
    QFETCH(bool, pagePerSize);
    QFETCH(bool, diagram);
    program_.SetLimits(22, cams, 255);
    for (int size = 1; size <= 4; ++size) {
      for (int cam = 0; cam < cams; ++cam) {
        program_.SetCamText(cam, QString(30, u'W'));
        for (int i = 0; i < phases; ++i) program_.SetPhase(size, cam, 2 * i, 2 * i + 1);
      }
    }
    const ListingOptions options{1, 4, true, diagram, pagePerSize};
    const Listing listing(program_, texts_, QString(300, u'x'), QDateTime(), options);
    ListingPainter painter(listing);
    for (const QSizeF paper : {QSizeF(5950, 8420), QSizeF(6120, 7920)}) {
      const int pages = painter.LayOut(paper);
      if (paper.width() == 5950) QTEST(pages, "pages");
      QStringList printed;
      int bars = 0;
      for (int page = 1; page <= pages; ++page) {
        const PaintRecorder recorder(painter, paper, page);
        bool named = false;  // the cam whose phases come first on this page
        for (const QString& word : recorder.Words()) {
          const auto cam = phases > 0 ? printed.size() / phases % cams : 0;
          named = named || word == ZeroFilled(cam + 1, 2);
          if (!IsPhase(word)) continue;
          QVERIFY2(named, qPrintable(u"page %1"_qs.arg(page)));
          printed.append(word.trimmed());
        }
        bars += int(recorder.Bars().size());
        QVERIFY(recorder.Words().contains(u"Pagina %1 / %2"_qs.arg(page).arg(pages)));
        QVERIFY(!recorder.Words().contains(QString(21, u'W')));
        const QRectF inside(395, 395, paper.width() - 790, paper.height() - 790);
        QVERIFY2(inside.contains(recorder.Ink()), qPrintable(u"page %1"_qs.arg(page)));
      }
      QCOMPARE(printed, Expected(options));
      QCOMPARE(bars, diagram ? 4 * cams * phases : 0);
    }
  }

  /// On small paper too nothing stands on anything else and nothing is smaller than 7 points, what
  /// is not of the diagram 9; every function line is there once, every cam beside its bar.
  void OtherPapers() {
    FunctionsBlock functions;
    functions.AdvanceOn = functions.DelayOn = functions.Ratio25On = 1;
    functions.AdvanceLast = 31;
    functions.CamFunc.fill(210);
    functions.Delay17to20 = functions.Delay21to24 = 210;
    program_.SetFunctions(functions);
    for (int cam = 0; cam < 32; ++cam) program_.SetPhase(1, cam, 10 * cam, 10 * cam + 5);
    program_.SetCamText(0, QString(20, u'W'));
    const Listing listing(program_, texts_, u"a.cam"_qs, QDateTime::currentDateTime(), {});
    ListingPainter painter(listing);
    QVERIFY(painter.LayOut(QSizeF(0, 0)) < 500);  // too small for anything: it still ends
    for (const auto paper : {QPageSize::A4, QPageSize::A5, QPageSize::A6}) {
      const QSizeF size = QPageSize(paper).size(QPageSize::Point) * 10;
      for (const QSizeF& way : {size, size.transposed()}) {
        const int pages = painter.LayOut(way);
        QStringList words;
        QStringList diagram;
        for (int page = 1; page <= pages; ++page) {
          const PaintRecorder recorder(painter, way, page);
          QCOMPARE(recorder.Overlap(), QString());
          QCOMPARE(recorder.WordsBelow(70), QStringList());
          diagram += recorder.WordsBelow(90).filter(u" "_qs);
          QVERIFY(QRectF({}, way).adjusted(200, 200, -200, -200).contains(recorder.Ink()));
          words += recorder.Words();
        }
        for (const QString& line : listing.FunctionLines()) QCOMPARE(words.count(line), 1);
        QCOMPARE(diagram.size(), 32);  // each cam beside its bar, in whichever part
        QCOMPARE(diagram.constFirst(), u"01 "_qs + program_.CamText(0));
      }
    }
  }

  /// A bar begins and ends where its degrees stand on the scale; one that goes on over 359/0 is
  /// drawn in two parts.
  void BarsStandOnTheScale() {
    program_.SetPhase(3, 5, 350, 10);
    program_.SetPhase(3, 5, 90, 180);
    const ListingOptions options{3, 3, false, true, true};
    const Listing listing(program_, texts_, {}, QDateTime(), options);
    ListingPainter painter(listing);
    painter.LayOut(QSizeF(5950, 8420));
    const PaintRecorder recorder(painter, QSizeF(5950, 8420), 1);
    QList<int> degrees;
    const double left = recorder.PlaceOf(u"0"_qs).center().x();
    const double degree = (recorder.PlaceOf(u"360"_qs).center().x() - left) / 360;
    for (const QRectF& bar : recorder.Bars()) {
      degrees << qRound((bar.left() - left) / degree) << qRound((bar.right() - left) / degree);
    }
    QCOMPARE(degrees, (QList<int>{0, 10, 350, 360, 90, 180}));
    QVERIFY(recorder.Words().contains(u"350-010"_qs));
    QVERIFY(recorder.Words().contains(u"FORMATO N. 03"_qs));
    QVERIFY(recorder.Words().contains(u"File: (nessun file)"_qs));
  }

  /// In the words of the file, but cam 1 has its advance, cams 17-24 their ratio, and a cam in a
  /// group no advance. A programmer of 24 cams has no groups.
  void FunctionsAsTheWindowCountsThem() {
    FunctionsBlock functions;
    functions.AdvanceOn = functions.Ratio17On = 1;
    functions.AdvanceLast = 16;
    functions.CamFunc[0] = 12;
    functions.CamFunc[1] = functions.CamFunc[16] = 210;
    functions.Ratio17to24 = 4;
    functions.SpeedLimit = 640;
    program_.SetFunctions(functions);
    const Listing listing(program_, texts_, {}, QDateTime(), {});
    QStringList lines = listing.FunctionLines();
    QCOMPARE(lines.mid(0, 3).join(u'|'),
             u"ANTICIPI ON     17|ANTICIPO CAMS  01 ms    12|ANTICIPO CAMS  02 ms   210"_qs);
    QCOMPARE(lines.mid(16).join(u'|'),
             u"ANTICIPO CAMS  16 ms     0|RITARDI OFF|RAPPORTI  ON|RAPPORTO CAMS 17-24 =    4|"
             "FORMATO IN USCITA      0|SFASAMENTO ENCODER     0|SENSO DI ROTAZIONE     0|"
             "LIMITE DI VELOCITA'   640"_qs);
    program_.SetLimits(22, 24, 255);
    lines = listing.FunctionLines();
    QCOMPARE(lines.mid(17, 3).join(u'|'),
             u"ANTICIPO CAMS  17 ms   210|RITARDI OFF|RAPPORTI OFF"_qs);
  }
};

}  // namespace nira

QTEST_MAIN(nira::ListingTest)
#include "ListingTest.moc"
