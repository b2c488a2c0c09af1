// SPDX-License-Identifier: Apache-2.0
#include "NetworkSection.h"

NetworkSection::NetworkSection(EditorStore& store, QObject* parent) : EditorSection(store, parent) {}

std::vector<KeyComparison> NetworkSection::coreComparison() const
{
    const auto all = compareNetwork(store_.fields, store_.live);
    return {all.begin(), all.end()};
}
