// SPDX-License-Identifier: Apache-2.0
// The Network tab's fields: the unit's own address, mask and gateway, written
// only by their own apply, and only while all three are dotted quads.
#pragma once

#include "EditorSection.h"

class NetworkSection : public EditorSection {
    Q_OBJECT

    // Changed, but not all three are dotted quads: "invalid IPv4".
    Q_PROPERTY(bool warning READ warning NOTIFY changed FINAL)

public:
    NetworkSection(EditorStore& store, QObject* parent);

    bool warning() const { return dirty() && !valid(); }
};
