// SPDX-License-Identifier: Apache-2.0
// The order in which Tab and Shift+Tab walk the window, given as groups of
// items: the groups in the order listed, and within a group its focusable
// items (visible, enabled, taking focus on Tab) in the order of the item
// tree, the order Qt Quick itself walks. While the focus is outside every
// group (a dialog, a pop-up list), Qt Quick's own order applies.
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

class FocusChain : public QObject {
    Q_OBJECT
    QML_ELEMENT
    // Null entries are allowed and skipped (a part that is not shown yet).
    Q_PROPERTY(QList<QObject*> groups READ groups WRITE setGroups NOTIFY groupsChanged)

public:
    explicit FocusChain(QObject* parent = nullptr);

    QList<QObject*> groups() const;
    void setGroups(const QList<QObject*>& groups);

    // The items Tab visits now, first to last.
    Q_INVOKABLE QList<QQuickItem*> items() const;

signals:
    void groupsChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Moves the focus one step from `current`; false when `current` lies in no group.
    bool step(QQuickItem* current, bool forward);

    QList<QPointer<QObject>> groups_;
};
