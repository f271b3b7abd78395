// SPDX-License-Identifier: Apache-2.0
#include "model/SizeUse.h"

#include "model/PhaseList.h"

#include <algorithm>
#include <utility>

namespace nira {

namespace {

SizeUse::Count CountOf(const CamProgram& program, int size) {
  SizeUse::Count count;
  for (int cam = 0; cam < program.NumCams(); ++cam) {
    const int phases = CountPhases(program.CamMap(size, cam));
    count.phases += phases;
    if (phases > 0) ++count.cams;
  }
  return count;
}

}  // namespace

void SizeUse::Follow(const CamProgram& program) {
  // Revision 0 is a size that never had a phase.
  if (numCams_ != program.NumCams()) counts_.clear();
  numCams_ = program.NumCams();
  counts_.resize(static_cast<std::size_t>(program.NumSizes()));
  for (int size = 1; size <= program.NumSizes(); ++size) {
    Counted& counted = counts_[static_cast<std::size_t>(size - 1)];
    const std::uint64_t revision = program.Revision(size);
    if (std::exchange(counted.revision, revision) != revision) {
      counted.count = CountOf(program, size);
    }
  }
}

int SizeUse::Used() const {
  return static_cast<int>(std::count_if(counts_.begin(), counts_.end(), [](const Counted& counted) {
    return counted.count.phases > 0;
  }));
}

}  // namespace nira
