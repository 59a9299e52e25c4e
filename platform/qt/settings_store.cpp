// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/settings_store.h"

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

}  // namespace

SettingsStore::SettingsStore(const std::string& programFolder)
    : delivered_(programFolder + "/config.crv") {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (!QFileInfo(QString::fromStdString(programFolder)).isWritable())
        own_ = folder.toStdString() + "/velarda/config.crv";
}

std::string SettingsStore::read() const {
    if (!own_.empty())
        if (const auto text = contents(own_)) return *text;
    return contents(delivered_).value_or(std::string{});
}

bool SettingsStore::write(const std::string& text) const {
    const QString path = QString::fromStdString(own_.empty() ? delivered_ : own_);
    if (!QDir().mkpath(QFileInfo(path).path())) return false;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    file.write(text.data(), static_cast<qint64>(text.size()));
    return file.commit();
}
