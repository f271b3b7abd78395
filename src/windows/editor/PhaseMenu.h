// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace nira {

class MainMenu;
class PhaseEntry;

/// Adds the entries that act on the phases of the selected cam, as a menu `Phase` of its own.
void AddPhaseMenu(MainMenu& menu, PhaseEntry& entry);

}  // namespace nira
