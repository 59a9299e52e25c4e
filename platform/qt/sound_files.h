// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// The file that a path names, whatever the case of the letters of its name within its folder; an
/// exact match comes first. Empty when there is no such file or it holds nothing.
QString findSoundFile(const QString& path);

/// What a file holds; empty when it cannot be read or is larger than any sound of the game.
QByteArray readSoundFile(const QString& path);

/// How long a MIDI file plays, in seconds. Nothing unless the file is sound in every part and
/// plays for between half a second and an hour: a synthesizer that plays anything else over and
/// over may never come back from it.
std::optional<double> melodySeconds(const QByteArray& file);

/// Whether a WAVE file says of itself what can be believed: its chunks are whole up to the sound,
/// and that is no longer than any of the game.
bool plausibleWave(const QByteArray& file);

/// The General MIDI sound font to play melodies with: the first one that exists of those that the
/// environment variable SDL_SOUNDFONTS lists (paths between colons or semicolons), then of the list
/// given, which may be null, then of those in the system's usual folders. Empty when there is none.
QString findSoundFont(const char* listed);
