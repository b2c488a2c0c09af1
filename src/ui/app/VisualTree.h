// SPDX-License-Identifier: Apache-2.0
// Finding an item by objectName in the visual tree. Views such as the split
// view move their items away from their object parents, so findChild misses them.
#pragma once

class QQuickItem;
class QString;

// The first item named `name` at or below `root`, depth first, or null.
QQuickItem* findVisualItem(QQuickItem* root, const QString& name);
