// SPDX-License-Identifier: Apache-2.0
#include "EditorHeader.h"

#include "SettingKeys.h"

namespace {

QString qtext(const std::string& text)
{
    return QString::fromStdString(text);
}

// `shown` with the unit's value of `key` for %1, or `missing` when it does not report the key.
QString chipOf(const Vorn::Config& live, std::string_view key, const QString& shown, const QString& missing)
{
    const auto entry = live.find(key);
    return entry != live.end() ? shown.arg(qtext(entry->second)) : missing;
}

}  // namespace

EditorHeader::EditorHeader(QObject* parent) : QObject(parent)
{
    update(std::nullopt, false, {}, {});
}

void EditorHeader::update(const std::optional<Device>& unit, bool online, const QString& ip,
                          const EditorFields& fields)
{
    const Vorn::Config live = unit ? unit->config : Vorn::Config{};
    Shown now;
    now.title = unit ? unit->title() : ip;
    now.online = unit && online;
    now.channelChip = chipOf(live, SettingKeys::kChannel, tr("Ch %1"), tr("Ch \u2013"));
    now.firmwareChip = chipOf(live, SettingKeys::kVersion, tr("fw %1"), QString());
    now.ip = ip;
    now.ipAddr = qtext(fields.text(SettingKeys::kIPAddress));
    now.netmask = qtext(fields.text(SettingKeys::kNetmask));
    now.gateway = qtext(fields.text(SettingKeys::kGateway));
    if (now == shown_)
        return;
    shown_ = std::move(now);
    emit changed();
}

QString EditorHeader::onlineText() const
{
    return shown_.online ? tr("Online") : tr("Offline");
}

QString EditorHeader::confirmTitle() const
{
    return tr("Apply network settings to %1?").arg(shown_.ip);
}

QString EditorHeader::confirmMessage() const
{
    return newNetworkSettings(shown_.ipAddr, shown_.netmask, shown_.gateway) + QStringLiteral("\n\n") + networkChangeWarning();
}

QString EditorHeader::newNetworkSettings(const QString& ipAddr, const QString& netmask, const QString& gateway)
{
    return tr("New: IP %1, mask %2, gateway %3.").arg(ipAddr, netmask, gateway);
}

QString EditorHeader::networkChangeWarning()
{
    return tr("If the IP changes, the unit reappears in the list under its new address. A wrong value can strip it "
              "off-network (serial DB9 recovery).");
}

QStringList EditorHeader::tabTitles() const
{
    return {tr("Tally"), tr("Communication"), tr("Network"), tr("Details"), tr("History")};
}
