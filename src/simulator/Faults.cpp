// SPDX-License-Identifier: Apache-2.0
#include "Faults.h"

#include <algorithm>
#include <limits>

namespace nira {

namespace {

constexpr int everyFrame = std::numeric_limits<int>::max();
constexpr int maxLateness = 600'000;        // ms
constexpr int maxDrawnLateness = 4'000;     // ms: some answers in time, some after the longest wait
constexpr std::uint64_t kindsOfASeed = 16;  // room for all kinds between the draws of two seeds

struct FaultWord {
  const char* word;
  Faults::Kind kind;
  bool onwards;  // from the frame on; the frame alone otherwise
  bool passing;  // a job can survive it, and it may be drawn at random
};

constexpr FaultWord faultWords[] = {
    {"no-answer", Faults::Kind::NoAnswer, true, false},
    {"late", Faults::Kind::Late, false, true},
    {"nak", Faults::Kind::Nak, false, true},
    {"lost-ack", Faults::Kind::LostAck, false, true},
    {"double-ack", Faults::Kind::DoubledAck, false, true},
    {"bad-checksum", Faults::Kind::BadChecksum, false, true},
    {"noise", Faults::Kind::Noise, false, true},
    {"unplug", Faults::Kind::Unplug, true, false},
    {"no-cts", Faults::Kind::NoCts, true, false},
};

/// A whole number of 0 to `most`.
std::optional<int> WholeNumber(const QString& text, int most) {
  bool good = false;
  const int number = text.toInt(&good);
  return good && number >= 0 && number <= most ? std::optional(number) : std::nullopt;
}

/// Spreads a number over 64 bits; neighbours come out unrelated.
std::uint64_t Mix(std::uint64_t x) {
  x += 0x9E3779B97F4A7C15U;
  x = (x ^ (x >> 30U)) * 0xBF58476D1CE4E5B9U;
  x = (x ^ (x >> 27U)) * 0x94D049BB133111EBU;
  return x ^ (x >> 31U);
}

}  // namespace

QString Faults::Add(const QString& word) {
  const QString name = word.section(u'=', 0, 0);
  const QString argument = word.section(u'=', 1);
  bool good = false;
  if (name == QStringLiteral("late")) {
    good = AddLate(argument);
  } else if (name == QStringLiteral("model")) {
    good = AddModel(argument);
  } else if (name == QStringLiteral("random")) {
    good = AddRandom(argument);
  } else {
    for (const FaultWord& known : faultWords) {
      if (name == QLatin1String(known.word)) good = AddFrame(known.kind, known.onwards, argument);
    }
  }
  return good ? QString() : QString(QStringLiteral("no such fault: ") + word);
}

bool Faults::AddFrame(Kind kind, bool onwards, const QString& argument) {
  const bool fromTheStart = onwards && argument.isEmpty();
  const auto frame = fromTheStart ? std::optional(0) : WholeNumber(argument, everyFrame);
  if (!frame) return false;
  faults_.push_back({kind, *frame, onwards ? everyFrame : *frame, 0});
  return true;
}

bool Faults::AddLate(const QString& argument) {
  const auto delay = WholeNumber(argument.section(u'@', 0, 0), maxLateness);
  if (!delay) return false;
  if (!argument.contains(u'@')) {
    faults_.push_back({Kind::Late, 0, everyFrame, *delay});
    return true;
  }
  const auto frame = WholeNumber(argument.section(u'@', 1), everyFrame);
  if (!frame) return false;
  faults_.push_back({Kind::Late, *frame, *frame, *delay});
  return true;
}

bool Faults::AddModel(const QString& argument) {
  const QStringList numbers = argument.split(u',');
  Counts counts{};
  if (numbers.size() != static_cast<qsizetype>(counts.size())) return false;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    const auto number = WholeNumber(numbers.at(static_cast<qsizetype>(i)), i < 2 ? 99 : 999);
    if (!number) return false;
    counts[i] = *number;
  }
  otherModel_ = counts;
  return true;
}

bool Faults::AddRandom(const QString& argument) {
  QStringList words = argument.split(u',');
  const auto seed = WholeNumber(words.takeFirst(), everyFrame);
  if (!seed) return false;
  std::vector<Kind> kindsMeant;
  for (const FaultWord& known : faultWords) {
    if (!known.passing) continue;
    const bool named = words.removeAll(QLatin1String(known.word)) > 0;
    if (named || !argument.contains(u',')) kindsMeant.push_back(known.kind);
  }
  if (!words.isEmpty()) return false;
  seed_ = static_cast<std::uint64_t>(*seed);
  random_ = std::move(kindsMeant);
  return true;
}

std::uint64_t Faults::Draw(Kind kind, FrameNumber frame) const {
  return Mix(Mix(seed_ * kindsOfASeed + static_cast<std::uint64_t>(kind)) + frame.overall);
}

bool Faults::IsDrawn(Kind kind, FrameNumber frame) const {
  const bool isMeant = std::find(random_.begin(), random_.end(), kind) != random_.end();
  return isMeant && Draw(kind, frame) % OneIn == 0;
}

bool Faults::Strikes(Kind kind, FrameNumber frame) const {
  for (const Fault& fault : faults_) {
    if (fault.kind == kind && fault.Meets(frame)) return true;
  }
  return IsDrawn(kind, frame);
}

int Faults::Delay(FrameNumber frame) const {
  int delay = 0;
  for (const Fault& fault : faults_) {
    if (fault.kind == Kind::Late && fault.Meets(frame)) delay += fault.delay;
  }
  if (IsDrawn(Kind::Late, frame)) {
    delay += static_cast<int>(Draw(Kind::Late, frame) / OneIn % maxDrawnLateness);
  }
  return delay;
}

}  // namespace nira
