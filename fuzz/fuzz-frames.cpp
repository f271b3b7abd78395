// SPDX-License-Identifier: Apache-2.0
// What a programmer, or something else, sends while a program or messages are received: whole jobs
// on virtual time, until the port goes. The first byte chooses the job, a byte 0xFF stands between
// what comes after the command and after each answer.

#include "Fuzz.h"
#include "support/CommFixture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace nira;
  if (size == 0) return 0;
  CommFixture f;
  f.prompts.AnswerEverything(false);
  const QByteArray bytes(reinterpret_cast<const char*>(data) + 1, static_cast<int>(size) - 1);
  f.Play(bytes.split('\xFF'));
  f.serial.GoneAfter(2000 + 4 * static_cast<int>(size));
  f.Run(data[0] % 2 == 0 ? "?FR" : "?AR");
  nira_fuzz::Hold(f.WorkBytes().size() <= WorkFile::MostBytes);
  return 0;
}
