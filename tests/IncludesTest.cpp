// SPDX-License-Identifier: Apache-2.0
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

namespace nira {

namespace {

const QString sources = QStringLiteral(NIRA_SOURCE_FOLDER "/src/");

/// Who may know whom: a room, and the rooms whose headers it may include beside its own.
const QMap<QString, QString>& Allowed() {
  static const QString core = QStringLiteral(
      "core/ground core/model core/files core/messages core/line core/sizes core/listing ");
  static const QString shared = core + QStringLiteral("paper windows/controls ");
  static const QMap<QString, QString> allowed = {
      {QStringLiteral("core/ground"), {}},
      {QStringLiteral("core/model"), QStringLiteral("core/ground")},
      {QStringLiteral("core/files"), QStringLiteral("core/ground core/model")},
      {QStringLiteral("core/messages"), QStringLiteral("core/ground core/model core/files")},
      {QStringLiteral("core/sizes"), QStringLiteral("core/ground core/model core/files")},
      {QStringLiteral("core/listing"), QStringLiteral("core/ground core/model core/files")},
      {QStringLiteral("core/line"),
       QStringLiteral("core/ground core/model core/files core/messages")},
      {QStringLiteral("paper"), core},
      {QStringLiteral("simulator"), core},
      {QStringLiteral("windows/controls"), core},
      {QStringLiteral("windows/dialogs"), shared},
      {QStringLiteral("windows/functions"), shared},
      {QStringLiteral("windows/line"), shared + QStringLiteral("windows/dialogs")},
      {QStringLiteral("windows/printing"), shared + QStringLiteral("windows/dialogs")},
      {QStringLiteral("windows/messages"),
       shared + QStringLiteral("windows/dialogs windows/printing")},
      {QStringLiteral("windows/editor"),
       shared + QStringLiteral("windows/dialogs windows/functions windows/line windows/messages "
                               "windows/printing")},
      {QStringLiteral("kplctl"), core + QStringLiteral("paper simulator")},
      {QStringLiteral("nira-kpl"),
       core + QStringLiteral("windows/controls windows/dialogs windows/editor")},
  };
  return allowed;
}

QString RoomOf(const QString& path) {
  return path.left(path.lastIndexOf(u'/'));
}

/// What a source includes of this project, as paths below src/.
QStringList IncludesOf(const QString& path) {
  QFile file(sources + path);
  if (!file.open(QIODevice::ReadOnly)) return {QStringLiteral("unreadable")};
  static const QRegularExpression line(QStringLiteral("^#include \"([^\"]+)\""),
                                       QRegularExpression::MultilineOption);
  QStringList found;
  for (auto all = line.globalMatch(QString::fromUtf8(file.readAll())); all.hasNext();) {
    const QString name = all.next().captured(1);
    if (name.endsWith(QStringLiteral(".moc"))) continue;
    for (const char* root : {"core/", "paper/", "simulator/", "windows/", "kplctl/"}) {
      if (QFile::exists(sources + QLatin1String(root) + name))
        found.append(QLatin1String(root) + name);
    }
  }
  return found;
}

QStringList AllSources() {
  QStringList paths;
  QDirIterator files(sources, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) paths.append(files.next().mid(sources.size()));
  return paths;
}

}  // namespace

/// The table of who may know whom, held against the includes. That a library sees no headers but of
/// what it links is held by the compiler already.
class IncludesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void RoomsKnowWhomTheyMay() {
    QSet<QString> rooms;
    for (const QString& path : AllSources()) {
      const QString room = RoomOf(path);
      QVERIFY2(Allowed().contains(room), qPrintable(path));
      rooms.insert(room);
      const QStringList may = Allowed().value(room).split(u' ');
      for (const QString& header : IncludesOf(path)) {
        const QString other = RoomOf(header);
        QVERIFY2(other == room || may.contains(other), qPrintable(path + u" -> " + header));
      }
    }
    QCOMPARE(rooms.size(), Allowed().size());
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::IncludesTest)
#include "IncludesTest.moc"
