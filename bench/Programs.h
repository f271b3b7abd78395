// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"

/// Programs that the measurements share.
namespace nira_bench {

/// `phases` runs in every cam of every size, 180 at most: no program has more.
inline nira::CamProgram Program(int sizes, int cams, int phases) {
  nira::CamProgram program;
  program.SetLimits(sizes, cams, nira::CamProgram::MaxMessages);
  program.ResetProgram();
  const int pitch = nira::CamProgram::Degrees / phases;
  for (int size = 1; size <= sizes; ++size) {
    for (int cam = 0; cam < cams; ++cam) {
      for (int i = 0; i < phases; ++i) {
        program.SetPhase(size, cam, i * pitch, i * pitch + (pitch + 1) / 2);
      }
    }
  }
  return program;
}

inline nira::CamProgram FullProgram(int sizes, int cams) {
  return Program(sizes, cams, nira::CamProgram::Degrees / 2);
}

inline nira::CamProgram UsualProgram(int sizes, int cams) {
  return Program(sizes, cams, 3);
}

}  // namespace nira_bench
