// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// The way of Linux and of systems like it.

#include "platform/qt/file_replacement.h"

#include <unistd.h>

#include <QFile>
#include <cstdio>

bool bringToDisk(const QFile& file) {
    return fsync(file.handle()) == 0;
}

bool takePlace(const QString& file, const QString& place) {
    return std::rename(QFile::encodeName(file).constData(), QFile::encodeName(place).constData()) ==
           0;
}
