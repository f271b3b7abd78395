// SPDX-License-Identifier: Apache-2.0
// A reply to the identity query.

#include "Fuzz.h"
#include "line/Identity.h"
#include "line/Wire.h"
#include "model/CamProgram.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace nira;
  const std::string_view reply = nira_fuzz::Bytes(data, size);
  ShownAnswer(reply);
  IdentityFields(reply);
  if (const auto model = ModelOf(reply)) {
    CamProgram program;
    program.SetLimits(model->Sizes, model->Cams, model->Messages);
  }
  return 0;
}
