// SPDX-License-Identifier: Apache-2.0
#include "model/Differences.h"

#include "ground/Text.h"
#include "model/FunctionFields.h"
#include "model/FunctionRules.h"

#include <algorithm>
#include <map>

namespace nira {

namespace {

QString ModelText(const CamProgram& program) {
  return QStringLiteral("%1-%2-%3")
      .arg(program.NumCams())
      .arg(program.NumSizes())
      .arg(program.NumMessages());
}

/// The row of a cam, an empty one where the program has no such size or cam.
const CamRow& RowOf(const CamProgram& program, int size, int cam) {
  static constexpr CamRow nothing{};
  const bool there = size <= program.NumSizes() && cam < program.NumCams();
  return there ? program.CamMap(size, cam) : nothing;
}

/// Whether a field of the block has any effect on a programmer of so many cams.
bool Works(const FunctionField& field, const CamProgram& program, int cam) {
  const FunctionsBlock& block = program.Functions();
  const QLatin1String name(field.name);
  if (field.of32Cams && !HasGroups(program.NumCams())) return false;
  if (field.IsPerCam()) return block.AdvanceOn != 0 && cam <= program.LastAdvance();
  if (name == QLatin1String("AdvanceLast")) return block.AdvanceOn != 0;
  if (name == QLatin1String("Delay17to20") || name == QLatin1String("Delay21to24")) {
    return block.DelayOn != 0;
  }
  if (name == QLatin1String("Ratio25to32")) return block.Ratio25On != 0;
  if (name == QLatin1String("Ratio17to24")) return block.Ratio17On != 0;
  return true;
}

int ValueOf(const FunctionField& field, const CamProgram& program, int cam) {
  FunctionsBlock block = program.Functions();
  block.AdvanceLast = static_cast<std::int16_t>(program.LastAdvance());
  return field.Value(block, cam);
}

/// Which stretch of the cycle without a gap each degree lies in, when both rows are laid over one
/// another; a stretch goes across 359/0 where there is no gap.
std::array<int, CamProgram::Degrees> Stretches(const CamRow& here, const CamRow& there) {
  std::array<int, CamProgram::Degrees> stretch{};
  const auto on = [&](std::size_t degree) { return here[degree] == 1 || there[degree] == 1; };
  int number = 0;
  for (std::size_t degree = 0; degree < here.size(); ++degree) {
    if (!on(degree)) ++number;
    stretch[degree] = number;
  }
  const int last = stretch.back();
  if (on(0) && on(here.size() - 1)) {
    std::replace(stretch.begin(), stretch.end(), last, stretch.front());
  }
  return stretch;
}

class Comparison {
 public:
  Comparison(const CamProgram& here, const CamProgram& there)
      : here_(here),
        there_(there),
        cams_(std::max(here.NumCams(), there.NumCams())),
        sizes_(std::max(here.NumSizes(), there.NumSizes())) {}

  std::vector<Difference> Run();

 private:
  void CompareModels();
  void CompareFunctions();
  void CompareField(const FunctionField& field, int cam);
  void CompareDescriptions();
  void CompareRows(int size, int cam);

  const CamProgram& here_;
  const CamProgram& there_;
  const int cams_;
  const int sizes_;
  std::vector<Difference> found_;
};

std::vector<Difference> Comparison::Run() {
  CompareModels();
  CompareFunctions();
  CompareDescriptions();
  for (int size = 1; size <= sizes_; ++size) {
    for (int cam = 0; cam < cams_; ++cam) CompareRows(size, cam);
  }
  return std::move(found_);
}

void Comparison::CompareModels() {
  const QString here = ModelText(here_);
  const QString there = ModelText(there_);
  if (here == there) return;
  found_.push_back({.kind = Difference::Kind::Model, .here = here, .there = there});
}

void Comparison::CompareFunctions() {
  for (const FunctionField& field : FunctionFields()) {
    if (field.IsPerCam()) {
      for (int cam = 0; cam < cams_; ++cam) CompareField(field, cam);
    } else {
      CompareField(field, -1);
    }
  }
}

void Comparison::CompareField(const FunctionField& field, int cam) {
  const int index = std::max(cam, 0);
  const bool works = Works(field, here_, index) || Works(field, there_, index);
  const int here = ValueOf(field, here_, index);
  const int there = ValueOf(field, there_, index);
  if (!works || here == there) return;
  found_.push_back({.kind = Difference::Kind::Function,
                    .cam = cam,
                    .field = &field,
                    .here = QString::number(here),
                    .there = QString::number(there)});
}

void Comparison::CompareDescriptions() {
  const auto text = [](const CamProgram& program, int cam) {
    const QString shown = cam < program.NumCams() ? program.CamText(cam) : QString();
    return TrimLeft(shown).isEmpty() ? QString() : shown;
  };
  for (int cam = 0; cam < cams_; ++cam) {
    const QString here = text(here_, cam);
    const QString there = text(there_, cam);
    if (here == there) continue;
    found_.push_back(
        {.kind = Difference::Kind::Description, .cam = cam, .here = here, .there = there});
  }
}

void Comparison::CompareRows(int size, int cam) {
  const CamRow& here = RowOf(here_, size, cam);
  const CamRow& there = RowOf(there_, size, cam);
  if (here == there) return;
  const std::vector<Phase> left = PhaseList::Of(here).phases;
  const std::vector<Phase> right = PhaseList::Of(there).phases;
  const auto stretch = Stretches(here, there);
  std::map<int, Difference> differences;
  const auto add = [&](const std::vector<Phase>& phases, const std::vector<Phase>& others,
                       auto member) {
    for (const Phase& phase : phases) {
      if (std::find(others.begin(), others.end(), phase) != others.end()) continue;
      Difference& found = differences[stretch[static_cast<std::size_t>(phase.on)]];
      (found.*member).push_back(phase);
    }
  };
  add(left, right, &Difference::phasesHere);
  add(right, left, &Difference::phasesThere);
  for (auto& [place, found] : differences) {
    found.size = size;
    found.cam = cam;
    found_.push_back(std::move(found));
  }
}

}  // namespace

std::vector<Difference> DifferencesOf(const CamProgram& here, const CamProgram& there) {
  return Comparison(here, there).Run();
}

}  // namespace nira
