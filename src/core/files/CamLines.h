// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"

#include <array>
#include <string>

namespace nira {

/// The lines of one cam of one size (bytes as on file and wire), ended by an empty one: a cam
/// line, at most 180 phase lines and the empty line.
using LineBuffer = std::array<std::string, CamProgram::Degrees / 2 + 1 + 1>;

/// The lines of one cam (index from 0) of one size (from 1): the cam line, a line per phase, the
/// empty line; only the empty line when the cam has no phase. While the port is open, which means
/// that the lines go to the programmer, size 1 alone carries descriptions.
LineBuffer BuildCamLines(const CamProgram& program, int size, int cam, bool portOpen);

/// Appends the size line and the lines of every cam with phases, as the cam file holds them.
void WriteSizeBlock(const CamProgram& program, int size, std::string& file);

/// Appends the header line and the functions block, as the cam file holds them.
void WriteFunctionsBlock(const CamProgram& program, std::string& file);

/// The whole cam file.
std::string WriteCamFile(const CamProgram& program);

}  // namespace nira
