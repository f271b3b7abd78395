// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "LineSession.h"

namespace nira {

// What `identify`, `send`, `receive` and `flash` do once the line stands. Each returns the exit
// status.

int IdentifyProgrammer(LineSession& session);
int SendProgram(LineSession& session, const Arguments& arguments);
int ReceiveProgram(LineSession& session, const Arguments& arguments);
int SendFirmware(LineSession& session, const QString& file);

}  // namespace nira
