// SPDX-License-Identifier: Apache-2.0
#include "CommunicationSection.h"

CommunicationSection::CommunicationSection(EditorStore& store, QObject* parent) : EditorSection(store, parent) {}

qint64 CommunicationSection::sceneDefault() const
{
    return ::sceneDefault(store_.live);
}

qint64 CommunicationSection::suppressDefault() const
{
    return ::suppressDefault(store_.live);
}

std::vector<KeyComparison> CommunicationSection::coreComparison() const
{
    const auto all = compareSettings(store_.fields, store_.live);
    return {all.begin(), all.end()};
}
