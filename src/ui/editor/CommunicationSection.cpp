// SPDX-License-Identifier: Apache-2.0
#include "CommunicationSection.h"

CommunicationSection::CommunicationSection(EditorStore& store, QObject* parent)
    : EditorSection(Settings::Section::Communication, store, parent)
{
}

qint64 CommunicationSection::sceneDefault() const
{
    return ::sceneDefault(store_.live);
}

qint64 CommunicationSection::suppressDefault() const
{
    return ::suppressDefault(store_.live);
}
