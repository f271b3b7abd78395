// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace nira {

/// Which frame of a job, and which of all since the device was switched on.
struct FrameNumber {
  int inJob = 0;
  std::uint64_t overall = 0;
};

/// What a simulated programmer does wrong, on request. Each fault is a word:
///
///   no-answer[=N]    dead from frame N on, or from the start: nothing is kept, nothing answered
///   late=MS[@N]      answers MS milliseconds late, every time or at frame N alone
///   nak=N            refuses frame N, whole as it is
///   lost-ack=N       takes frame N, but its ACK is lost; of a frame that it sends, it hears no ACK
///   double-ack=N     acknowledges frame N twice; of a frame that it sends, it hears two ACKs
///   bad-checksum=N   sends frame N with a wrong checksum
///   noise=N          three bytes of noise go before its answer to frame N, or before that frame
///   model=C,S,M      its identity names C cams, S sizes and M messages
///   unplug[=N]       its adapter is pulled out when frame N is due, or at its first command
///   no-cts[=N]       no CTS from frame N on, or from the start
///   random=SEED[,WORD...]  late, nak, lost-ack, double-ack, bad-checksum and noise, or the named
///                    ones of them, each at one frame in twenty, drawn from the seed
///
/// Frames count from 1 in every job, repeats included: those that arrive when the programmer
/// receives (a HEX line and a message line are frames too), those that it sends when it sends. The
/// answer to a command itself, as to the identity query, is frame 0.
class Faults {
 public:
  enum class Kind { NoAnswer, Late, Nak, LostAck, DoubledAck, BadChecksum, Noise, Unplug, NoCts };

  static constexpr int OneIn = 20;  ///< of the random faults

  /// Adds the fault that the word asks for; returns what is wrong with it, empty when nothing.
  QString Add(const QString& word);

  bool Strikes(Kind kind, FrameNumber frame) const;

  /// Milliseconds by which the answer to a frame, or the frame, is late.
  int Delay(FrameNumber frame) const;

  /// Cams, sizes and messages of another model.
  using Counts = std::array<int, 3>;
  const std::optional<Counts>& OtherModel() const { return otherModel_; }

 private:
  struct Fault {
    Kind kind;
    int first;  // frames, both included
    int last;
    int delay;  // milliseconds, of `Late`
    bool Meets(FrameNumber frame) const { return frame.inJob >= first && frame.inJob <= last; }
  };

  bool AddFrame(Kind kind, bool onwards, const QString& argument);
  bool AddLate(const QString& argument);
  bool AddModel(const QString& argument);
  bool AddRandom(const QString& argument);
  std::uint64_t Draw(Kind kind, FrameNumber frame) const;
  bool IsDrawn(Kind kind, FrameNumber frame) const;

  std::vector<Fault> faults_;
  std::optional<Counts> otherModel_;
  std::uint64_t seed_ = 0;
  std::vector<Kind> random_;  // kinds that are drawn
};

}  // namespace nira
