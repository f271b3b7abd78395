// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/SerialLink.h"
#include "line/TransferJobs.h"
#include "line/WorkFile.h"
#include "support/CamFileFixture.h"
#include "support/Rows.h"
#include "support/ScriptedSerial.h"

#include <QTemporaryDir>

#include <deque>

namespace nira {

/// A frame as the programmer puts it on the line.
inline QByteArray Frame(const QByteArray& record) {
  char sum = 0;
  for (const char c : record) sum = static_cast<char>(sum ^ c);
  sum = static_cast<char>(sum ^ 3);
  if (static_cast<unsigned char>(sum) < 32) sum = static_cast<char>(sum + 32);
  return '\x02' + record + '\x03' + sum;
}

inline QByteArray Frames(const QByteArrayList& records) {
  QByteArray frames;
  for (const QByteArray& record : records) frames += Frame(record);
  return frames;
}

/// Keeps what a job shows, "title|1 label|2 label|50".
class KeptReport : public TransferReport {
 public:
  void Title(const QString& text) override { Shown.append(text); }
  void Label1(const QString& text) override { Shown.append(u"1 " + text); }
  void Label2(const QString& text) override { Shown.append(u"2 " + text); }
  void Progress(int percent) override { Shown.append(QString::number(percent)); }

  QStringList Shown;
};

/// A program, a scripted line to a programmer and all that an exchange needs, in a folder of its
/// own, with the English texts.
struct CommFixture {
  CommFixture() { texts.Read(QStringLiteral(NIRA_SOURCE_FOLDER "/lang/p32qx_EN.SCR")); }

  QString Path(const QString& name) const { return folder.filePath(name); }
  QByteArray WorkBytes() const { return ReadBytes(Path(QStringLiteral("_._"))); }

  /// Answers every frame with ACK, the identity query with this reply.
  void Acknowledge(const QByteArray& identity = {}) {
    serial.Device = [this, identity](const QByteArray& out) {
      if (out.startsWith('\x02')) serial.Send("\x06");
      if (out.startsWith("?M")) serial.Send(identity, 5);
    };
  }

  /// Sends the bytes, one piece after the command and each following one after an ACK.
  void Play(const QByteArrayList& pieces, const QByteArray& identity = {}) {
    auto left = std::make_shared<std::deque<QByteArray>>(pieces.begin(), pieces.end());
    serial.Device = [this, left, identity](const QByteArray& out) {
      if (out.startsWith("?M")) {
        serial.Send(identity, 5);
      } else if (!left->empty()) {
        serial.Send(left->front(), 60);
        left->pop_front();
      }
    };
  }

  /// Runs a job as the monitor does, with a file of the folder.
  TransferEnd Run(const char* code, const QString& file = QStringLiteral("_._")) {
    WorkFile into(Path(file));
    return TransferJobs(comm, report).Run({code, Path(file), &into});
  }

  QTemporaryDir folder;
  CamProgram program;
  Globals settings;
  MessageTable texts;
  FileWriter writer;
  WorkingFolder working{folder.path()};
  ScriptedPrompts prompts;
  ScriptedSerial serial;
  KeptReport report;
  Comm comm{serial, serial, program, settings, texts, writer, working, prompts};
};

}  // namespace nira

Q_DECLARE_METATYPE(nira::TransferEnd)
