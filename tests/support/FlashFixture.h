// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "../samples/HexText.h"
#include "line/FlashUpdate.h"
#include "support/CommFixture.h"

namespace nira {

/// A line of a firmware file with the bytes of `data`.
inline QByteArray HexOf(const QByteArray& data, std::size_t offset = 0, std::size_t type = 0) {
  return QByteArray::fromStdString(HexText(offset, type, HexBytes(data.begin(), data.end())));
}

/// Prompts that let something happen while a box stands.
class WatchedPrompts : public ScriptedPrompts {
 public:
  std::function<void(const QString& text)> WhileShown = [](const QString&) {};

  Answer MsgBox(const QString& text, Buttons buttons, Icon icon, const QString& title) override {
    WhileShown(text);
    return ScriptedPrompts::MsgBox(text, buttons, icon, title);
  }
};

/// Keeps what an update shows, "Ready" and the like before what is no line of text.
class KeptFlash : public FlashReport {
 public:
  void Show(FlashLine line, const QString& text) override {
    Shown.append(text);
    if (line == FlashLine::Message) Message = text;
  }
  void Ready(bool ready) override {
    Shown.append(ready ? QStringLiteral("Ready") : QStringLiteral("Not ready"));
  }
  void Refused(int times) override {
    Shown.append(QStringLiteral("Refused ") + QString::number(times));
    if (times > 0) ++RefusedInAll;
  }
  void Progress(int percent) override { Shown.append(QString::number(percent) + u'%'); }

  QStringList Shown;
  QString Message;
  int RefusedInAll = 0;
};

/// A firmware file, and a programmer that takes it over a scripted line.
struct FlashFixture : CommFixture {
  FlashFixture() { settings.PortNumber = 3; }

  QString File(const QByteArray& bytes) const {
    const QString path = Path(QStringLiteral("new.abs"));
    if (!WriteBytes(path, bytes)) QTest::qFail("cannot write", __FILE__, __LINE__);
    return path;
  }

  /// Every line and the command are acknowledged; `Sent` has the lines.
  void TakeAll() {
    serial.Device = [this](const QByteArray& out) {
      serial.Send("\x06", 30);
      Sent.append(out.chopped(1));
    };
  }

  WatchedPrompts asked;
  KeptFlash shown;
  QByteArrayList Sent;
  Comm flash{serial, serial, program, settings, texts, writer, working, asked};
};

}  // namespace nira
