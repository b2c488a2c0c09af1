// SPDX-License-Identifier: Apache-2.0
// What the editor needs from the client, and no more: the unit at an address
// as last heard, whether it counts as present, the time, and a way to write
// changes. `changed` fires on every merged reply and every presence tick.
// The window passes its VornClient through ClientLink; tests pass a fake
// that records the writes instead of sending them.
#pragma once

#include <optional>
#include <string>

#include <QObject>

#include "Device.h"

class EditorLink : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    // The unit at `ip` with its live configuration and when it was heard, or none.
    virtual std::optional<Device> unit(const std::string& ip) const = 0;
    // The client's presence verdict for `unit`.
    virtual bool isOnline(const Device& unit) const = 0;
    virtual WallClock::time_point now() const = 0;
    // Sends the unit's last reported configuration overlaid with `changes`.
    virtual void write(const std::string& ip, const Vorn::Config& changes) = 0;

signals:
    void changed();
};
