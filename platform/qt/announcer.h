// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <vector>

class QWidget;
class SpokenLine;

/// Says sentences to a reader of the screen, in their order. Each is a notification of its own on a
/// status bar that is not drawn, and comes to be seen there: a reader speaks such at once, without
/// the word "notification" and without being stopped by the next one. It asks for the words when it
/// gets round to it, and may be behind.
class Announcer {
public:
    Announcer() = default;
    ~Announcer();
    Announcer(const Announcer&) = delete;
    Announcer& operator=(const Announcer&) = delete;

    void add(const std::string& sentence) { waiting_.push_back(QString::fromStdString(sentence)); }
    /// Says what has been added, as from this widget.
    void say(QWidget& from);

private:
    void announce(const QString& words);

    std::vector<QString> waiting_;
    SpokenLine* bar_ = nullptr;  ///< Qt's to delete; made for the first sentence
};
