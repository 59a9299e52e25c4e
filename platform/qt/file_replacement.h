// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

class QFile;
class QString;

// How one file takes the place of another. Each system has its own way.

/// Brings what has been written to an open file to the disk; false when that fails.
bool bringToDisk(const QFile&);

/// Gives `file` the name `place`, whose owner, if there is one, is gone from then on. At no moment
/// is there none of the two. False leaves both as they are. May wait, for less than a second, for
/// another program to let go of them.
bool takePlace(const QString& file, const QString& place);
