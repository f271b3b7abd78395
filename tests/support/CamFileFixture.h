// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/CamFile.h"
#include "files/FileWriter.h"
#include "files/MessageTable.h"
#include "line/FaultText.h"
#include "model/CamProgram.h"
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

/// A file of 3 cams and 2 sizes with everything on.
inline QByteArray FullFile() {
  return "FUNZIONI  3 - 2 \r\nANTICIPI ON    2 \r\n"
         "ANTICIPO CAMS  01 ms   5 \r\nANTICIPO CAMS  02 ms   210 \r\n"
         "RITARDI ON\r\nRITARDO CAMS 17-20   ms. 12 \r\nRITARDO CAMS 21-24   ms. 100 \r\n"
         "RAPPORTI  ON \r\nRAPPORTO CAMS 25-32 =  4 \r\n"
         "FORMATO IN USCITA    2 \r\nSFASAMENTO ENCODER  -5 \r\nSENSO DI ROTAZIONE   1 \r\n"
         "LIMITE DI VELOCITA'   120 \r\n"
         " FORMATO N. 01\r\nC 01\" \"\x80 \xE8 \"\r\n 010 020\r\n 350 005\r\n"
         " FORMATO N. 02\r\nC 01\" \"\x80 \xE8 \"\r\n 000 010\r\nC 03\r\n 359 000\r\nEND\r\n";
}

/// A cam program, a folder of its own for its files, and the built-in texts.
struct CamFileFixture {
  explicit CamFileFixture(int sizes = 1, int cams = 2) { program.SetLimits(sizes, cams, 255); }

  QString Path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

  /// Loads the bytes as a file; what it is refused for is in `fault`.
  Result<LoadedFile> Load(const QByteArray& bytes, OtherSizes other = OtherSizes::Refuse) {
    const QString path = Path("in.cam");
    if (!WriteBytes(path, bytes)) QTest::qFail("cannot write", __FILE__, __LINE__);
    auto result = LoadCamFile(program, path, other);
    fault = result ? Fault() : result.Why();
    return result;
  }
  bool Loads(const QByteArray& bytes) { return bool(Load(bytes)); }

  QTemporaryDir folder;
  CamProgram program;
  MessageTable texts;
  FileWriter writer;
  Fault fault;
};

}  // namespace nira
