// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/told_surface.h"

#include <algorithm>

#include "platform/qt/form_window.h"
#include "platform/qt/surface_view.h"
#include "platform/qt/told_part.h"

namespace {

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    if (auto* view = dynamic_cast<SurfaceView*>(object)) return new ToldSurface(*view);
    if (auto* window = dynamic_cast<FormWindow*>(object))
        return new QAccessibleWidget(window, QAccessible::Window);
    return nullptr;
}

void forget(ToldPart* part) {
    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(part));
}

int countOf(const std::vector<ToldPart*>& parts) {
    return static_cast<int>(parts.size());
}

}  // namespace

ToldSurface::ToldSurface(SurfaceView& view)
    : QAccessibleWidget(&view, QAccessible::List, view.name()), view_(view) {
    for (const Told& told : view_.told()) parts_.push_back(take(told));
    view_.tellChanges([this] { update(); });
}

ToldSurface::~ToldSurface() {
    for (ToldPart* part : parts_) forget(part);
}

ToldPart* ToldSurface::take(const Told& told) {
    auto* part = new ToldPart(view_, told);
    QAccessible::registerAccessibleInterface(part);
    return part;
}

void ToldSurface::removeMissing(const std::vector<Told>& now) {
    std::erase_if(parts_, [&](ToldPart* part) {
        if (std::ranges::any_of(now, [&](const Told& told) { return part->isOf(told); }))
            return false;
        part->notify(QAccessible::ObjectDestroyed);
        if (part == focused_) focused_ = nullptr;
        forget(part);
        return true;
    });
}

void ToldSurface::update() {
    const std::vector<Told> now = view_.told();
    removeMissing(now);
    std::vector<ToldPart*> before = std::move(parts_);
    parts_.clear();
    std::vector<ToldPart*> fresh;
    for (const Told& told : now) {
        const auto same =
            std::ranges::find_if(before, [&](auto* part) { return part->isOf(told); });
        parts_.push_back(same != before.end() ? *same : take(told));
        if (same == before.end()) fresh.push_back(parts_.back());
    }
    for (ToldPart* part : fresh) part->notify(QAccessible::ObjectCreated);
    for (std::size_t i = 0; i < now.size(); ++i) parts_[i]->change(now[i]);
    moveFocus();
}

/// Where the ring stands there is the focus of the keys.
ToldPart* ToldSurface::ringed() const {
    const auto found =
        std::ranges::find_if(parts_, [](const ToldPart* part) { return part->isRinged(); });
    return found == parts_.end() ? nullptr : *found;
}

void ToldSurface::moveFocus() {
    ToldPart* const now = ringed();
    if (now == focused_) return;
    focused_ = now;
    if (now) now->notify(QAccessible::Focus);
}

QAccessibleInterface* ToldSurface::focusChild() const {
    ToldPart* const part = ringed();
    return part ? part : QAccessibleWidget::focusChild();
}

int ToldSurface::childCount() const {
    return countOf(parts_) + QAccessibleWidget::childCount();
}

QAccessibleInterface* ToldSurface::child(int index) const {
    const int own = countOf(parts_);
    if (index < own) return index < 0 ? nullptr : parts_[static_cast<std::size_t>(index)];
    return QAccessibleWidget::child(index - own);
}

int ToldSurface::indexOfChild(const QAccessibleInterface* child) const {
    const auto found = std::ranges::find(parts_, child);
    if (found != parts_.end()) return static_cast<int>(found - parts_.begin());
    const int index = QAccessibleWidget::indexOfChild(child);
    return index < 0 ? index : index + countOf(parts_);
}

QAccessibleInterface* ToldSurface::childAt(int x, int y) const {
    if (QAccessibleInterface* native = QAccessibleWidget::childAt(x, y)) return native;
    for (ToldPart* part : parts_)
        if (part->rect().contains(x, y)) return part;
    return nullptr;
}

void tellSurfaces() {
    QAccessible::installFactory(makeInterface);
}
