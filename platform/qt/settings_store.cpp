// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/settings_store.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <optional>

namespace {

constexpr qint64 mostBytes = 4096;  ///< far beyond three numbers

std::optional<std::string> contents(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) return std::nullopt;
    return file.read(mostBytes).toStdString();
}

bool later(const std::string& path, const std::string& other) {
    const auto written = [](const std::string& file) {
        return QFileInfo(QString::fromStdString(file)).lastModified();
    };
    return written(path) > written(other);
}

bool replace(const std::string& path, const std::string& text) {
    const QString name = QString::fromStdString(path);
    if (!QDir().mkpath(QFileInfo(name).path())) return false;
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly)) return false;
    file.write(text.data(), static_cast<qint64>(text.size()));
    return file.commit();
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
