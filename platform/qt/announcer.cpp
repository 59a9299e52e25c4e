// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/announcer.h"

#include <QAccessibleInterface>
#include <QPointer>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <deque>
#include <utility>

/// The status bar, or a sentence on it, which has its words for a name.
class SpokenLine : public QAccessibleInterface {
public:
    explicit SpokenLine(SpokenLine* bar = nullptr, QString words = {})
        : bar_(bar), words_(std::move(words)) {}
    ~SpokenLine() override {
        for (SpokenLine* sentence : sentences_) forget(sentence);
    }

    /// More than a reader falls behind, even when all the rules are said at once.
    static constexpr std::size_t mostKept = 64;

    void standOn(QWidget& widget) { widget_ = &widget; }
    void take(SpokenLine* sentence) {
        sentences_.push_back(sentence);
        if (sentences_.size() <= mostKept) return;
        forget(sentences_.front());
        sentences_.pop_front();
    }
    static void forget(SpokenLine* line) {
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(line));
    }

    bool isValid() const override { return true; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override {
        const QWidget* widget = bar_ ? bar_->widget_.get() : widget_.get();
        return widget ? widget->window()->windowHandle() : nullptr;
    }
    QRect rect() const override { return {}; }
    QAccessibleInterface* parent() const override {
        return bar_ ? bar_ : QAccessible::queryAccessibleInterface(widget_);
    }
    QAccessibleInterface* child(int index) const override {
        return index < childCount() ? sentences_[static_cast<std::size_t>(index)] : nullptr;
    }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return static_cast<int>(sentences_.size()); }
    int indexOfChild(const QAccessibleInterface* line) const override {
        const auto found = std::find(sentences_.begin(), sentences_.end(), line);
        return found == sentences_.end() ? -1 : static_cast<int>(found - sentences_.begin());
    }
    QString text(QAccessible::Text what) const override {
        return what == QAccessible::Name ? words_ : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QAccessible::Role role() const override {
        return bar_ ? QAccessible::Notification : QAccessible::StatusBar;
    }
    QAccessible::State state() const override { return {}; }

private:
    SpokenLine* bar_;
    QString words_;
    QPointer<QWidget> widget_;           ///< of the bar
    std::deque<SpokenLine*> sentences_;  ///< of the bar, the latest ones
};

Announcer::~Announcer() {
    if (bar_) SpokenLine::forget(bar_);
}

void Announcer::announce(const QString& words) {
    auto* sentence = new SpokenLine(bar_, words);
    QAccessible::registerAccessibleInterface(sentence);
    bar_->take(sentence);
    QAccessibleEvent event(sentence, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
}

void Announcer::say(QWidget& from) {
    if (waiting_.empty()) return;
    if (!bar_) {
        bar_ = new SpokenLine;
        QAccessible::registerAccessibleInterface(bar_);
    }
    bar_->standOn(from);
    for (const QString& words : std::exchange(waiting_, {})) announce(words);
}
