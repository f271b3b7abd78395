// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/Comm.h"

namespace nira {

class UserSettings;
class clsCommonDialog;

/// The one running instance: what every exchange works with, and what its windows need beside it.
/// Made in `main`, handed down by reference; a test makes its own.
struct Instance : Comm {
  clsCommonDialog& Dialog;
  UserSettings& User;
};

}  // namespace nira
