// SPDX-License-Identifier: Apache-2.0
// A message file, as a program's and as one to send; what was read is the same once written.

#include "Fuzz.h"
#include "files/LineReader.h"
#include "messages/MessageFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace nira;
  const std::string_view bytes = nira_fuzz::Bytes(data, size);
  LineReader toSend(bytes);
  LookThrough(toSend);
  LineReader lines(bytes);
  const auto file = ReadMsgFile(lines, CamProgram::MaxMessages);
  if (!file) return 0;
  CamProgram program;
  MergeMessages(program, *file);
  ReplaceMessages(program, *file);
  const std::string written = WriteMessageLines(program);
  LineReader again{std::string_view(written)};
  const auto back = ReadMsgFile(again, CamProgram::MaxMessages);
  if (!back) return 0;  // a text of more characters than a line is taken with
  ReplaceMessages(program, *back);
  nira_fuzz::Hold(WriteMessageLines(program) == written);
  return 0;
}
