// SPDX-License-Identifier: Apache-2.0
// The texts the editor's view shows about the unit rather than a field: the
// header's title and chips, the presence verdict, the tab titles and the
// network confirmation's title and message.
#pragma once

#include <optional>

#include <QObject>
#include <QString>
#include <QStringList>

#include "Device.h"
#include "EditorSettings.h"

class EditorHeader : public QObject {
    Q_OBJECT

    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    Q_PROPERTY(bool online READ online NOTIFY changed FINAL)
    Q_PROPERTY(QString onlineText READ onlineText NOTIFY changed FINAL)
    Q_PROPERTY(QString channelChip READ channelChip NOTIFY changed FINAL)
    Q_PROPERTY(QString firmwareChip READ firmwareChip NOTIFY changed FINAL)
    Q_PROPERTY(QString confirmTitle READ confirmTitle NOTIFY changed FINAL)
    Q_PROPERTY(QString confirmMessage READ confirmMessage NOTIFY changed FINAL)
    Q_PROPERTY(QStringList tabTitles READ tabTitles CONSTANT FINAL)

public:
    explicit EditorHeader(QObject* parent = nullptr);

    // `unit` is the unit at `ip` as last heard, or none; `online` the
    // client's presence verdict for it.
    void update(const std::optional<Device>& unit, bool online, const QString& ip, const EditorFields& fields);

    QString title() const { return shown_.title; }
    bool online() const { return shown_.online; }
    QString onlineText() const;
    QString channelChip() const { return shown_.channelChip; }
    QString firmwareChip() const { return shown_.firmwareChip; }
    QString confirmTitle() const;
    QString confirmMessage() const;
    // "New: IP …, mask …, gateway …." and the warning that follows it: the
    // confirmation's words, also for a restore that changes addresses.
    static QString newNetworkSettings(const QString& ipAddr, const QString& netmask, const QString& gateway);
    static QString networkChangeWarning();
    // Tally, Communication, Network, Details, History: the order of the tab bar.
    QStringList tabTitles() const;

signals:
    void changed();

private:
    struct Shown {
        QString title;
        bool online = false;
        QString channelChip;
        QString firmwareChip;
        QString ip;
        QString ipAddr;
        QString netmask;
        QString gateway;

        bool operator==(const Shown&) const = default;
    };

    Shown shown_;
};
