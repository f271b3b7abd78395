#pragma once

#include "files/CamFile.h"
#include "support/ScriptedPrompts.h"

#include <QFile>
#include <QTemporaryDir>

namespace nira {

inline bool WriteBytes(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

inline QByteArray ReadBytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not there)");
}

/// The functions block of a file of 2 cams and 1 size with everything off, its first 8 lines.
inline QByteArray PlainHead() {
  return "FUNZIONI  2 - 1 \r\nANTICIPI OFF\r\nRITARDI OFF\r\nRAPPORTI OFF\r\n"
         "FORMATO IN USCITA    0 \r\nSFASAMENTO ENCODER   0 \r\nSENSO DI ROTAZIONE   0 \r\n"
         "LIMITE DI VELOCITA'   0 \r\n";
}

/// A cam program and all that reads and writes it, in a folder of its own. Text 10 is " BAD!".
struct CamFileFixture {
  explicit CamFileFixture(int sizes = 1, int cams = 2) {
    program.SetLimits(sizes, cams, 255);
    texts.Parse(
        "\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\" BAD!\"\r\n");
  }

  QString Path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

  LoadResult Load(const QByteArray& bytes) {
    const QString path = Path("in.cam");
    if (!WriteBytes(path, bytes)) QTest::qFail("cannot write", __FILE__, __LINE__);
    return file.LoadCamFile(path);
  }

  QTemporaryDir folder;
  CamProgram program;
  Globals globals;
  ScriptedPrompts prompts;
  MessageTable texts;
  FileWriter writer;
  CamFile file{program, globals, prompts, texts, writer};
};

}  // namespace nira
