// SPDX-License-Identifier: Apache-2.0
#include "VisualTree.h"

#include <QQuickItem>

QQuickItem* findVisualItem(QQuickItem* root, const QString& name)
{
    if (root->objectName() == name)
        return root;
    for (QQuickItem* child : root->childItems()) {
        if (QQuickItem* found = findVisualItem(child, name))
            return found;
    }
    return nullptr;
}
