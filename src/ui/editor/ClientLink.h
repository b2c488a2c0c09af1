// SPDX-License-Identifier: Apache-2.0
// The editor's link to the window's VornClient: reads and writes go straight
// to the client; its replies and clock ticks become `changed`.
#pragma once

#include <QPointer>

#include "EditorLink.h"
#include "VornClient.h"

class ClientLink : public EditorLink {
    Q_OBJECT

public:
    explicit ClientLink(VornClient* client, QObject* parent = nullptr);

    std::optional<Device> unit(const std::string& ip) const override;
    bool isOnline(const Device& unit) const override;
    WallClock::time_point now() const override;
    void write(const std::string& ip, const Vorn::Config& changes) override;

private:
    QPointer<VornClient> client_;
};
