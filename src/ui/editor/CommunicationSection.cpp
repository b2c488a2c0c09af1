// SPDX-License-Identifier: Apache-2.0
#include "CommunicationSection.h"

CommunicationSection::CommunicationSection(EditorStore& store, QObject* parent)
    : EditorSection(Settings::Section::Communication, store, parent)
{
}
