// SPDX-License-Identifier: Apache-2.0
#include "files/CamLines.h"

#include "files/CamWords.h"
#include "ground/Text.h"
#include "model/PhaseList.h"

namespace nira {

namespace {

constexpr const char* lineEnd = "\r\n";

/// A number item: a blank or the minus sign before it, a blank after it.
std::string Num(int number) {
  return (number < 0 ? "" : " ") + std::to_string(number) + " ";
}

void PutDegree(std::string& line, std::size_t position, int degree) {
  line[position] = static_cast<char>('0' + degree / 100);
  line[position + 1] = static_cast<char>('0' + degree / 10 % 10);
  line[position + 2] = static_cast<char>('0' + degree % 10);
}

/// " 350 010": it fits a string's own storage, so that no phase costs an allocation.
void PhaseFileLine(std::string& line, int on, int off) {
  line.assign(8, ' ');
  PutDegree(line, 1, on);
  PutDegree(line, 5, off);
}

std::string CamLine(const CamProgram& program, int cam, bool withText) {
  std::string line = "C " + ZeroFill(cam + 1, 2);
  const QString& text = program.CamText(cam);
  if (withText && !TrimLeft(text).isEmpty()) line += '"' + ToBytes(text).value() + '"';
  return line;
}

void AddLine(std::string& file, std::string_view line) {
  file += line;
  file += lineEnd;
}

}  // namespace

LineBuffer BuildCamLines(const CamProgram& program, int size, int cam, bool portOpen) {
  const CamRow& row = program.CamMap(size, cam);
  LineBuffer lines;
  const auto isOn = [&row](int d) { return row[static_cast<std::size_t>(d)] == 1; };
  const bool throughEnd = isOn(CamProgram::Degrees - 1);

  int begin = 0;  // after the part of a phase that comes from 359
  while (throughEnd && begin < CamProgram::Degrees && isOn(begin)) ++begin;

  std::size_t phases = 0;
  int on = -1;  // of the phase that is open, -1 when none is
  for (int d = begin; d < CamProgram::Degrees; ++d) {
    if (on < 0 && isOn(d)) {
      on = d;
    } else if (on >= 0 && !isOn(d)) {
      PhaseFileLine(lines[++phases], on, d);
      on = -1;
    }
  }
  if (throughEnd && on >= 0) PhaseFileLine(lines[++phases], on, begin);

  if (phases > 0) lines[0] = CamLine(program, cam, !portOpen || size == 1);
  return lines;
}

void WriteSizeBlock(const CamProgram& program, int size, std::string& file) {
  AddLine(file, std::string(1, ' ').append(SizeWords) + ZeroFill(size, 2));
  for (int cam = 0; cam < program.NumCams(); ++cam) {
    for (const std::string& line : BuildCamLines(program, size, cam, false)) {
      if (line.empty()) break;
      AddLine(file, line);
    }
  }
}

void WriteFunctionsBlock(const CamProgram& program, std::string& file) {
  const FunctionsBlock& f = program.Functions();
  AddLine(file, std::string(FunctionsWord) + " " + Num(program.NumCams()) + "-" +
                    Num(program.NumSizes()));
  if (f.AdvanceOn == 1) {
    AddLine(file, "ANTICIPI ON   " + Num(program.LastAdvance()));
    for (int i = 1; i <= program.LastAdvance(); ++i) {
      AddLine(file, "ANTICIPO CAMS  " + ZeroFill(i, 2) + " ms  " +
                        Num(f.CamFunc[static_cast<std::size_t>(i)]));
    }
  } else {
    AddLine(file, "ANTICIPI OFF");
  }
  if (f.DelayOn == 1) {
    AddLine(file, "RITARDI ON");
    AddLine(file, "RITARDO CAMS 17-20   ms." + Num(f.Delay17to20));
    AddLine(file, "RITARDO CAMS 21-24   ms." + Num(f.Delay21to24));
  } else {
    AddLine(file, "RITARDI OFF");
  }
  if (f.Ratio25On == 1) {
    AddLine(file, "RAPPORTI  ON ");
    AddLine(file, "RAPPORTO CAMS 25-32 = " + Num(f.Ratio25to32));
  } else {
    AddLine(file, "RAPPORTI OFF");
  }
  AddLine(file, "FORMATO IN USCITA   " + Num(f.OutputSize));
  AddLine(file, "SFASAMENTO ENCODER  " + Num(f.EncoderShift));
  AddLine(file, "SENSO DI ROTAZIONE  " + Num(f.RotationSense));
  AddLine(file, "LIMITE DI VELOCITA'  " + Num(f.SpeedLimit));
}

std::string WriteCamFile(const CamProgram& program) {
  std::string file;
  WriteFunctionsBlock(program, file);
  for (int size = 1; size <= program.NumSizes(); ++size) WriteSizeBlock(program, size, file);
  AddLine(file, EndWord);
  return file;
}

}  // namespace nira
