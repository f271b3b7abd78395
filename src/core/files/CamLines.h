// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"

#include <string>

namespace nira {

/// Fills `LineBuffer` with the lines of one cam (index from 0) of one size (from 1): the cam line,
/// a line per phase, the empty line; only the empty line when the cam has no phase. While the port
/// is open, which means that the lines go to the programmer, size 1 alone carries descriptions.
void BuildCamLines(CamProgram& program, int size, int cam, bool portOpen);

/// Appends the size line and the lines of every cam with phases, as the cam file holds them.
void WriteSizeBlock(CamProgram& program, int size, std::string& file);

/// Appends the header line and the functions block, as the cam file holds them.
void WriteFunctionsBlock(const CamProgram& program, std::string& file);

/// The whole cam file.
std::string WriteCamFile(CamProgram& program);

}  // namespace nira
