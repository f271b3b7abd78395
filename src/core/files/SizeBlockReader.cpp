// SPDX-License-Identifier: Apache-2.0
#include "files/SizeBlockReader.h"

#include "files/CamWords.h"
#include "ground/Text.h"
#include "model/PhaseList.h"

#include <algorithm>

namespace nira {

namespace {

/// A number from a file as an index; what 32 bits cannot hold stays outside every model.
int Index(std::string_view text) {
  return static_cast<int>(std::clamp<std::int64_t>(NumericValue(text), -1000000, 1000000));
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int PlainDegree(std::string_view line, std::size_t position) {
  return (line[position] - '0') * 100 + (line[position + 1] - '0') * 10 +
         (line[position + 2] - '0');
}

/// Characters of " 350 010", the form in which phases are written.
constexpr std::size_t plainLength = 8;

/// Length of the phase line in that form at the start of `bytes`, its end included; 0 when there
/// is none.
std::size_t PlainPhaseBytes(std::string_view bytes) {
  if (bytes.size() < plainLength + 2 || bytes[0] != ' ' || bytes[4] != ' ') return 0;
  for (const std::size_t i : {1U, 2U, 3U, 5U, 6U, 7U}) {
    if (!IsDigit(bytes[i])) return 0;
  }
  if (bytes[plainLength] == '\n') return plainLength + 1;
  return bytes[plainLength] == '\r' && bytes[plainLength + 1] == '\n' ? plainLength + 2 : 0;
}

}  // namespace

SizeBlockReader::Stop SizeBlockReader::ReadSizeBlock(int size) {
  return Read(size, false);
}

SizeBlockReader::Stop SizeBlockReader::SkipSizeBlock() {
  return Read(0, true);
}

SizeBlockReader::Stop SizeBlockReader::Read(int size, bool skip) {
  while (true) {
    const std::string_view waiting = lines_.Waiting();
    const std::size_t plain = PlainPhaseBytes(waiting);
    if (plain > 0) lines_.TakeLine(plain);
    std::optional<std::string_view> line =
        plain > 0 ? waiting.substr(0, plainLength) : lines_.Next();
    if (line && line->empty() && !lines_.AtEnd()) line = lines_.Next();
    if (!line) return Stop::EndOfFile;
    line_ = *line;
    try {
      if (plain > 0) {
        if (!skip) program_.SetPhase(size, cam_, PlainDegree(*line, 1), PlainDegree(*line, 5));
        continue;
      }
      if (lines_.Overlong()) throw IndexError("line length");
      const char first = line->empty() ? '\0' : line->front();
      if (first == 'C') {
        if (!skip) TakeCamLine(*line);
      } else if (line->find(SizeWords) != std::string_view::npos || *line == EndWord) {
        return Stop::SizeOrEnd;
      } else if (first == ' ' && !skip) {
        TakePhaseLine(*line, size);
      }
    } catch (const std::logic_error&) {  // an index, or a description, that the model refuses
      return Stop::BadLine;
    }
  }
}

void SizeBlockReader::TakeCamLine(std::string_view line) {
  cam_ = Index(line.substr(std::min<std::size_t>(2, line.size()), 2)) - 1;
  const std::size_t quote = line.find('"');
  if (quote == std::string_view::npos) return;
  std::string_view text = line.substr(quote + 1);
  if (!text.empty()) text.remove_suffix(1);
  program_.SetCamText(cam_, FromBytes(text));
}

void SizeBlockReader::TakePhaseLine(std::string_view line, int size) {
  constexpr std::size_t width = PhaseList::EntryWidth + 1;
  program_.SetPhase(size, cam_, Index(line.substr(0, width)), Index(Tail(line, width)));
}

}  // namespace nira
