// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dialogs/clsCommonDialog.h"
#include "line/Comm.h"

namespace nira {

/// The one running instance: what every exchange works with, and what its windows need beside it.
/// Made in `main`, handed down by reference; a test makes its own.
struct Instance : Comm {
  clsCommonDialog& Dialog;
};

}  // namespace nira
