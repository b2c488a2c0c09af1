// SPDX-License-Identifier: Apache-2.0
// The Communication tab's fields: intercom channel, call password, scene and
// silence-suppression levels, and the Wire2 switch.
#pragma once

#include "EditorSection.h"

class CommunicationSection : public EditorSection {
    Q_OBJECT

public:
    CommunicationSection(EditorStore& store, QObject* parent);
};
