// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/SerialControl.h"

#include <QStringList>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace nira {

/// A serial control on virtual time with a scripted device at its other end. Time passes in pauses
/// and waits alone, so that a test takes none. As on a line, output is held while the device does
/// not hold CTS under RTS/CTS, and what the input buffer has no room for is lost.
class ScriptedSerial : public SerialControl, public Clock {
 public:
  /// Called with each output; answers with `Send`.
  std::function<void(const QByteArray&)> Device = [](const QByteArray&) {};

  /// Lets bytes arrive so many milliseconds from now.
  void Send(const QByteArray& bytes, int afterMs = 0) { due_.emplace(now_ + afterMs, bytes); }

  /// The port is gone at the n-th operation (from 0) from now on; it can be opened again.
  void GoneAfter(int operations) { left_ = operations; }

  QByteArray Written;                  ///< all output
  QStringList Log;                     ///< what was asked of the port, reading and waiting left out
  bool Holding = true;                 ///< the CTS line
  std::optional<SerialError> Refusal;  ///< what opening raises
  bool Gone = false;                   ///< `GoneAfter` has struck
  QString Holder;                      ///< another program that reads the port

  std::int64_t Now() const override { return now_; }
  void Pause(int ms, Yield) override {
    Log.append(QStringLiteral("pause %1").arg(ms));
    PassTo(now_ + ms);
  }

  int CommPort() const override { return port_; }
  void CommPort(int number) override { port_ = number; }
  void InBufferSize(int bytes) override {
    Log.append(QStringLiteral("buffer %1").arg(bytes));
    room_ = 2 * bytes;  // as much again is read ahead
  }
  bool PortOpen() const override { return open_; }
  QString OtherHolder() const override { return Holder; }
  void PortOpen(bool open) override {
    Log.append(open ? QStringLiteral("open %1").arg(port_) : QStringLiteral("close"));
    if (open && Refusal) throw SerialError(*Refusal);
    if (!open) Step();
    open_ = open;
    input_.clear();
    if (!std::exchange(held_, {}).isEmpty()) throw SerialError(8020, QStringLiteral("not taken"));
  }
  QString Settings() const override { return settings_; }
  void Settings(const QString& settings) override {
    Ask(settings);
    settings_ = settings;
  }
  void InputLen(int characters) override {
    inputLen_ = characters;
    Log.append(QStringLiteral("length %1").arg(characters));
  }
  void Handshaking(int handshake) override {
    Ask(QStringLiteral("handshake %1").arg(handshake));
    handshake_ = handshake;
  }
  bool CTSHolding() override {
    Step();
    return Holding;
  }
  int InBufferCount() override {
    Step();
    Arrive();
    return static_cast<int>(input_.size());
  }
  void DiscardInput() override {
    Ask(QStringLiteral("discard input"));
    Arrive();
    input_.clear();
  }
  void DiscardOutput() override {
    Ask(QStringLiteral("discard output"));
    held_.clear();
  }
  QByteArray Input() override {
    Step();
    Arrive();
    const qsizetype count = inputLen_ == AllInput ? input_.size() : inputLen_;
    const QByteArray bytes = input_.left(count);
    input_.remove(0, count);
    return bytes;
  }
  void Output(const QByteArray& bytes) override {
    Ask(QStringLiteral("out ") + QString::fromLatin1(bytes.toHex(' ')));
    if (handshake_ == HandshakeRts && !Holding) {
      held_ += bytes;
      return;
    }
    Written += bytes;
    Device(bytes);
  }
  bool WaitForInput(std::int64_t deadline, Yield) override {
    Step();
    Arrive();
    while (input_.isEmpty() && !due_.empty() && due_.begin()->first <= deadline) {
      PassTo(due_.begin()->first);
    }
    if (input_.isEmpty()) now_ = std::max(now_, deadline);
    return !input_.isEmpty();
  }

 private:
  void Step() {
    if (open_ && left_ && (*left_)-- == 0) {
      left_.reset();
      due_.clear();
      held_.clear();
      open_ = false;
      Gone = true;
    }
    if (!open_) throw SerialError(SerialError::InputOutput, QStringLiteral("gone"));
  }
  void Ask(const QString& what) {
    Step();
    Log.append(what);
  }
  void PassTo(std::int64_t time) {
    now_ = std::max(now_, time);
    Arrive();
  }
  void Arrive() {
    while (!due_.empty() && due_.begin()->first <= now_) {
      if (open_) input_ += due_.begin()->second.left(std::max<qsizetype>(room_ - input_.size(), 0));
      due_.erase(due_.begin());
    }
  }

  std::multimap<std::int64_t, QByteArray> due_;  // in the order of their times
  std::int64_t now_ = 1000;
  QByteArray input_;
  QByteArray held_;  // output that waits for CTS
  qsizetype room_ = 1024;
  int handshake_ = HandshakeNone;
  std::optional<int> left_;
  bool open_ = false;
  int port_ = 0;
  int inputLen_ = AllInput;
  QString settings_;
};

}  // namespace nira
