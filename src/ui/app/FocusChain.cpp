// SPDX-License-Identifier: Apache-2.0
#include "FocusChain.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickWindow>

namespace {

void collect(QQuickItem* item, QList<QQuickItem*>& items)
{
    if (!item->isVisible() || !item->isEnabled())
        return;
    if (item->activeFocusOnTab())
        items.append(item);
    for (QQuickItem* child : item->childItems())
        collect(child, items);
}

}  // namespace

FocusChain::FocusChain(QObject* parent)
    : QObject(parent)
{
    // Tab reaches the window before any item sees it; the filter looks only
    // at key presses sent to a window.
    QGuiApplication::instance()->installEventFilter(this);
}

QList<QObject*> FocusChain::groups() const
{
    QList<QObject*> groups;
    for (const QPointer<QObject>& group : groups_)
        groups.append(group.data());
    return groups;
}

void FocusChain::setGroups(const QList<QObject*>& groups)
{
    QList<QPointer<QObject>> next(groups.cbegin(), groups.cend());
    if (next == groups_)
        return;
    groups_ = std::move(next);
    emit groupsChanged();
}

QList<QQuickItem*> FocusChain::items() const
{
    QList<QQuickItem*> items;
    for (const QPointer<QObject>& group : groups_)
        if (auto* item = qobject_cast<QQuickItem*>(group.data()))
            collect(item, items);
    return items;
}

bool FocusChain::step(QQuickItem* current, bool forward)
{
    const QList<QQuickItem*> chain = items();
    qsizetype at = chain.indexOf(current);
    for (qsizetype i = 0; at < 0 && i < chain.size(); ++i)
        if (chain.at(i)->isAncestorOf(current))
            at = i;
    if (at < 0)
        return false;
    const qsizetype next = (at + (forward ? 1 : chain.size() - 1)) % chain.size();
    chain.at(next)->forceActiveFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

bool FocusChain::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    auto* window = qobject_cast<QQuickWindow*>(watched);
    if (window == nullptr || window->activeFocusItem() == nullptr)
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    const bool backtab = key->key() == Qt::Key_Backtab
                      || (key->key() == Qt::Key_Tab && (key->modifiers() & Qt::ShiftModifier));
    if (key->key() != Qt::Key_Tab && !backtab)
        return false;
    return step(window->activeFocusItem(), !backtab);
}
