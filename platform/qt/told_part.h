// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessibleInterface>

#include "platform/told.h"

class SurfaceView;

/// One thing on a surface: its name, its place on the screen and, of a card, the press.
class ToldPart : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    ToldPart(SurfaceView&, Told);

    const Told& told() const { return told_; }
    bool isOf(const Told& other) const;
    /// The keys would press it.
    bool isRinged() const;
    /// Takes a new name, place and mark, and says what has changed.
    void change(const Told&);
    /// Says that something has happened to it.
    void notify(QAccessible::Event);

    bool isValid() const override { return true; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QRect rect() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    SurfaceView& view_;
    Told told_;
};
