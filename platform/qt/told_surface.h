// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessibleWidget>
#include <vector>

#include "platform/told.h"

class SurfaceView;
class ToldPart;

/// What readers of the screen find on a surface: the things that are seen there, then the native
/// controls. It is made when one of them asks for it, and not before.
class ToldSurface : public QAccessibleWidget {
public:
    explicit ToldSurface(SurfaceView&);
    ~ToldSurface() override;

    /// Brings the list up to what is seen now and says what has changed.
    void update();

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface*) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

private:
    void removeMissing(const std::vector<Told>& now);
    ToldPart* take(const Told&);
    ToldPart* ringed() const;
    void moveFocus();

    SurfaceView& view_;
    std::vector<ToldPart*> parts_;  ///< as last told, in their order; Qt's to delete
    ToldPart* focused_ = nullptr;   ///< as last told
};

/// Has surfaces told in this way, and their windows as windows. Once, before there are any.
void tellSurfaces();
