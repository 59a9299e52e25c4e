// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/settings_store.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <optional>

#include "platform/qt/file_replacement.h"

namespace {

constexpr qint64 longestFile = 4096;  ///< far beyond three numbers

std::optional<std::string> contents(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) return std::nullopt;
    return file.read(longestFile).toStdString();
}

bool later(const std::string& path, const std::string& other) {
    const auto written = [](const std::string& file) {
        return QFileInfo(QString::fromStdString(file)).lastModified();
    };
    return written(path) > written(other);
}

/// The new text is whole and on the disk before it takes the old one's place, so neither a full
/// disk nor a kill leaves half of it. What a killed writer leaves has one name and goes at the next
/// time.
bool replace(const std::string& path, const std::string& text) {
    const QFileInfo old(QString::fromStdString(path));
    if (!QDir().mkpath(old.path()) || (old.exists() && !old.isWritable())) return false;
    const QString place = old.exists() ? old.canonicalFilePath() : old.filePath();
    QFile file(place + QStringLiteral(".new"));
    file.remove();
    if (!file.open(QIODevice::NewOnly | QIODevice::Unbuffered)) return false;
    if (old.exists()) file.setPermissions(old.permissions());
    const auto size = static_cast<qint64>(text.size());
    const bool whole = file.write(text.data(), size) == size && bringToDisk(file);
    file.close();
    const bool done = whole && takePlace(file.fileName(), place);
    if (!done) file.remove();
    return done;
}

}  // namespace

SettingsStore::SettingsStore(const std::string& programFolder)
    : besideProgram_(programFolder + "/config.crv"),
      writable_(QFileInfo(QString::fromStdString(programFolder)).isWritable()) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    own_ = folder.toStdString() + "/velarda/config.crv";
}

std::string SettingsStore::read() const {
    const auto own = contents(own_), beside = contents(besideProgram_);
    if (!own || (writable_ && beside && !later(own_, besideProgram_)))
        return beside.value_or(std::string{});
    return *own;
}

bool SettingsStore::write(const std::string& text) const {
    return (writable_ && replace(besideProgram_, text)) || replace(own_, text);
}
