// SPDX-License-Identifier: Apache-2.0
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

const QString sources = QStringLiteral(NIRA_SOURCE_FOLDER "/src/");

/// Who may know whom: a room, and the rooms whose headers it may include beside its own.
QStringList KnownTo(const QString& room) {
  const QString core =
      u"core/ground core/model core/files core/messages core/line core/sizes core/listing "_qs;
  const QString shared = core + u"paper windows/controls "_qs;
  const QString windows = shared + u"windows/dialogs "_qs;
  const QMap<QString, QString> table = {
      {u"core/ground"_qs, {}},
      {u"core/model"_qs, u"core/ground"_qs},
      {u"core/files"_qs, u"core/ground core/model"_qs},
      {u"core/messages"_qs, u"core/ground core/model core/files"_qs},
      {u"core/sizes"_qs, u"core/ground core/model core/files"_qs},
      {u"core/listing"_qs, u"core/ground core/model core/files"_qs},
      {u"core/line"_qs, u"core/ground core/model core/files core/messages"_qs},
      {u"paper"_qs, core},
      {u"simulator"_qs, core},
      {u"windows/controls"_qs, core},
      {u"windows/dialogs"_qs, shared},
      {u"windows/functions"_qs, windows},
      {u"windows/line"_qs, windows},
      {u"windows/printing"_qs, windows},
      {u"windows/messages"_qs, windows + u"windows/printing"_qs},
      {u"windows/editor"_qs,
       windows + u"windows/functions windows/line windows/messages windows/printing"_qs},
      {u"kplctl"_qs, core + u"paper simulator"_qs},
      {u"nira-kpl"_qs, core + u"windows/controls windows/dialogs windows/editor"_qs},
  };
  return table.value(room, u"nobody"_qs).split(u' ');
}

QString RoomOf(const QString& path) {
  return path.left(path.lastIndexOf(u'/'));
}

}  // namespace

/// The rules of the house, held against the includes. That a library sees no headers but of what it
/// links is held by the compiler already.
class IncludesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void RoomsKnowWhomTheyMay() {
    int found = 0;
    QDirIterator files(sources, {u"*.h"_qs, u"*.cpp"_qs}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
      QFile file(files.next());
      QVERIFY(file.open(QIODevice::ReadOnly));
      const QString room = RoomOf(file.fileName().mid(sources.size()));
      static const QRegularExpression line(u"^#include \"([^\"]+)\""_qs,
                                           QRegularExpression::MultilineOption);
      for (auto all = line.globalMatch(QString::fromUtf8(file.readAll())); all.hasNext();) {
        const QString header = all.next().captured(1);
        for (const char* wall : {"core/", "paper/", "simulator/", "windows/", "kplctl/"}) {
          const QString path = QLatin1String(wall) + header;
          if (!QFile::exists(sources + path) || RoomOf(path) == room) continue;
          ++found;
          QVERIFY2(KnownTo(room).contains(RoomOf(path)),
                   qPrintable(file.fileName() + u" -> " + path));
          // Readers return, rooms tell: only the exchanges on the line ask and know texts.
          const bool reader = !path.startsWith(u"core/line"_qs) && room.startsWith(u"core/"_qs) &&
                              room != u"core/line"_qs && room != u"core/listing"_qs;
          const bool tells =
              header.endsWith(u"/Prompts.h"_qs) || header.endsWith(u"/TextNumbers.h"_qs);
          QVERIFY2(!reader || !tells, qPrintable(file.fileName() + u" -> " + path));
        }
      }
    }
    QVERIFY(found > 100);
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::IncludesTest)
#include "IncludesTest.moc"
