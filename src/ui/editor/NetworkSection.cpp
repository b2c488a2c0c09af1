// SPDX-License-Identifier: Apache-2.0
#include "NetworkSection.h"

NetworkSection::NetworkSection(EditorStore& store, QObject* parent)
    : EditorSection(Settings::Section::Network, store, parent)
{
}
