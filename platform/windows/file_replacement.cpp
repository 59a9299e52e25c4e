// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/file_replacement.h"

#include <io.h>
#include <windows.h>

#include <QDir>
#include <QFile>
#include <string>

namespace {

constexpr int mostTries = 20;
constexpr DWORD pause = 20;  ///< milliseconds

std::wstring nativeName(const QString& file) {
    return QDir::toNativeSeparators(file).toStdWString();
}

/// Who looks for viruses, keeps copies or reads the settings of a second game holds a file for a
/// moment.
bool isHeldByAnother(DWORD error) {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
}

}  // namespace

bool bringToDisk(const QFile& file) {
    return _commit(file.handle()) == 0;
}

bool takePlace(const QString& file, const QString& place) {
    const std::wstring from = nativeName(file), to = nativeName(place);
    constexpr DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    for (int tries = 1; !MoveFileExW(from.c_str(), to.c_str(), how); ++tries) {
        if (tries == mostTries || !isHeldByAnother(GetLastError())) return false;
        Sleep(pause);
    }
    return true;
}
