// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Command.h"

namespace nira {

/// The options that every command takes.
const std::vector<Option>& CommonOptions();

/// What kplctl does: all its commands in short.
QString Usage();

/// What one command does.
QString UsageOf(const Command& command);

}  // namespace nira
