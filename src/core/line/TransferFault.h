// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Result.h"
#include "line/Comm.h"

namespace nira {

/// Tells the operator what stopped an exchange; returns the end that it came to.
TransferEnd TellFault(Comm& comm, const Fault& fault);

}  // namespace nira
