// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "platform/told.h"

// What a reader of the screen finds on each form, in the order of reading. Only what is seen is
// told: a card is there when its picture is. Fit Form::teller.

/// The lamps, the hands, the cards on the table, piles and deck, the title and the mascots.
std::vector<Told> toldOfTable(const Runtime&);

/// The labels with what they stand for, and the cards of the primiera.
std::vector<Told> toldOfSheet(const Runtime&);
