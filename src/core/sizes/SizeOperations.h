// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/CamFile.h"
#include "model/CamProgram.h"

#include <string_view>

namespace nira {

// What the Sizes menu and kplctl both do to whole sizes (from 1) and cams (from 0). An index
// outside the program raises `IndexError` and changes nothing.

/// Characters that the description of a cam may have.
inline constexpr qsizetype LongestDescription = 20;

/// Every cam of `from` into `to`, whose old content is overwritten.
void CopySize(CamProgram& program, int from, int to);

/// The row of a cam into another cam of the same size.
void CopyCam(CamProgram& program, int size, int from, int to);

/// All degrees of a cam OFF.
void EraseCam(CamProgram& program, int size, int cam);

/// Moves the whole row `degrees` later in the cycle (earlier when negative), around 359/0.
void ShiftCam(CamProgram& program, int size, int cam, int degrees);

/// A shift as it is typed, of any length, by the numeric value rule: -359..359.
int ShiftOf(std::string_view text);

/// Reads the size `number` (0..99) of a cam file into `into`: its phases and the descriptions of
/// its block, whole or not at all. The functions block and the other sizes stay.
Result<LoadedFile> ImportSize(CamProgram& program, const QString& path, int number, int into);

}  // namespace nira
