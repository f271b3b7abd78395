// SPDX-License-Identifier: Apache-2.0
#include "FunctionEdits.h"

#include "line/Survival.h"
#include "model/FunctionRules.h"

#include <algorithm>

namespace nira {

namespace {

/// Which flag sets the limit of `AdvanceLast`.
QString LimitingFlag(const FunctionsBlock& block) {
  if (block.AdvanceOn != 1) return QStringLiteral("AdvanceOn is 0");
  if (block.DelayOn == 1) return QStringLiteral("DelayOn is 1");
  if (block.Ratio17On == 1) return QStringLiteral("Ratio17On is 1");
  return QStringLiteral("Ratio25On is 1");
}

QString AdvanceLoss(const FunctionsBlock& block, int cam) {
  if (cam == 0) return QStringLiteral("a cam file does not keep the advance of cam 1");
  if (block.AdvanceOn != 1) return QStringLiteral("advances are kept only with AdvanceOn 1");
  return QStringLiteral("AdvanceLast is %1: advances are kept for cams 2 to %2 only")
      .arg(block.AdvanceLast)
      .arg(block.AdvanceLast + 1);
}

QString DelayLoss(const FunctionsBlock& block) {
  return block.DelayOn != 1 ? QStringLiteral("delays are kept only with DelayOn 1")
                            : QStringLiteral("a cam file does not keep delays of one digit");
}

/// Why a cam file loses the value of a field; empty when no cause is known.
QString CauseOfLoss(const FunctionField& field, const FunctionsBlock& block, int cam) {
  const QLatin1String name(field.name);
  if (field.IsPerCam()) return AdvanceLoss(block, cam);
  if (name.startsWith(QLatin1String("Delay"))) return DelayLoss(block);
  if (name.startsWith(QLatin1String("Ratio17"))) {
    return QStringLiteral("a cam file does not keep the ratio of cams 17 to 24");
  }
  if (name == QLatin1String("Ratio25to32")) {
    return QStringLiteral("the ratio is kept only with Ratio25On 1");
  }
  if (name == QLatin1String("SpeedLimit")) {
    return QStringLiteral("a cam file keeps three digits of the speed limit");
  }
  return {};
}

}  // namespace

Fault FunctionEdits::Setting::Refused(const QString& reason) const {
  return {.Text = operation.Named() + QStringLiteral(": ") + reason};
}

QString FunctionEdits::Range(const QString& range) const {
  return texts_.Text(TextNumber::OutOfRange) + range;
}

Refusal FunctionEdits::Set(const EditOperation& operation) {
  const FunctionField* field = FindFunctionField(operation.arguments.first());
  const std::int64_t value = operation.Wide(operation.arguments.size() - 1);
  const int largest = field->Largest(program_);
  if (value < 0 || value > largest) {
    return Fault{.Text = Range(QStringLiteral("0-") + QString::number(largest))};
  }
  if (field->of32Cams && value != 0 && !HasGroups(program_.NumCams())) {
    return Fault{.Text = QStringLiteral("only a programmer of 32 cams has delays and ratios")};
  }
  const Setting setting{field, field->IsPerCam() ? operation.Number(1) - 1 : 0, operation};
  FunctionsBlock block = program_.Functions();
  field->Store(block, static_cast<int>(value), setting.cam);
  program_.SetFunctions(block);
  Keep(setting);
  return std::nullopt;
}

/// The last value of a field counts, and its operation answers for it.
void FunctionEdits::Keep(const Setting& setting) {
  std::erase_if(settings_, [&setting](const Setting& other) {
    return other.field == setting.field && other.cam == setting.cam;
  });
  settings_.push_back(setting);
}

const FunctionEdits::Setting* FunctionEdits::Find(const char* name) const {
  return LastOf({name});
}

/// The last operation that set one of the fields; null when none did.
const FunctionEdits::Setting* FunctionEdits::LastOf(
    std::initializer_list<const char*> names) const {
  const auto isNamed = [&names](const Setting& setting) {
    return std::any_of(names.begin(), names.end(), [&setting](const char* name) {
      return QLatin1String(name) == QLatin1String(setting.field->name);
    });
  };
  const auto found = std::find_if(settings_.rbegin(), settings_.rend(), isNamed);
  return found == settings_.rend() ? nullptr : &*found;
}

Refusal FunctionEdits::Settle() {
  if (settings_.empty()) return std::nullopt;
  FunctionsBlock block = program_.Functions();
  if (block.AdvanceOn == 0 && Find("AdvanceOn") != nullptr && Find("AdvanceLast") == nullptr) {
    block.AdvanceLast = 0;  // as unticking the advances does
    program_.SetFunctions(block);
  }
  if (auto refused = Contradiction()) return refused;
  return Lost();
}

/// What the set fields contradict, in each other or in what the file had. What the file alone
/// contradicts itself in stays as it is.
Refusal FunctionEdits::Contradiction() const {
  const FunctionsBlock& block = program_.Functions();
  const Setting* group = LastOf({"DelayOn", "Ratio17On"});
  if (group != nullptr && block.DelayOn == 1 && block.Ratio17On == 1) {
    return group->Refused(QStringLiteral("DelayOn and Ratio17On exclude each other"));
  }
  const Setting* last = Find("AdvanceLast");
  if (last == nullptr) last = LastOf({"AdvanceOn", "DelayOn", "Ratio17On", "Ratio25On"});
  const int most = LastAdvanceAllowed(EnabledIn(block, program_.NumCams()), program_.NumCams());
  if (last == nullptr || block.AdvanceLast <= most) return std::nullopt;
  return last->Refused(Range(QStringLiteral("AdvanceLast 0-%1, and it is %2 (%3)")
                                 .arg(most)
                                 .arg(QString::number(block.AdvanceLast), LimitingFlag(block))));
}

/// Writes the program as a cam file, reads it back and compares what was set.
Refusal FunctionEdits::Lost() const {
  const FunctionsBlock& block = program_.Functions();
  const FunctionsBlock back = ThroughFile(program_).Functions();
  for (const Setting& setting : settings_) {
    const int kept = setting.field->Value(back, setting.cam);
    if (kept == setting.field->Value(block, setting.cam)) continue;
    const QString cause = CauseOfLoss(*setting.field, block, setting.cam);
    return setting.Refused(QStringLiteral("it would come back from the file as ") +
                           QString::number(kept) +
                           (cause.isEmpty() ? QString() : QString(QStringLiteral(": ") + cause)));
  }
  return std::nullopt;
}

}  // namespace nira
