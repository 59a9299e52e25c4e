// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

/// Where the settings file lives: beside the program while it can be written there, and otherwise
/// in the user's own configuration folder, with the one beside the program for the first values.
/// Where both can be written, the one written last counts.
class SettingsStore {
public:
    explicit SettingsStore(const std::string& programFolder);

    /// The file's text, empty when there is none or it cannot be read. A file of any size and
    /// content does no harm: only its beginning is read.
    std::string read() const;
    /// Replaces the file; on any failure the old one stays whole. False when it could not.
    bool write(const std::string& text) const;

private:
    std::string besideProgram_, own_;
    bool writable_;  ///< the program's folder, as far as its permissions tell
};
