// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

/// The texts of the panels. A paragraph is a line; a tab parts the columns of the values table.
namespace panelText {

std::string english();
std::string italian();
std::string information();

}  // namespace panelText
