// SPDX-License-Identifier: Apache-2.0
#include "Device.h"

#include <QCoreApplication>

#include "Graphemes.h"
#include "SettingKeys.h"

namespace {

constexpr int kSerialTailLength = 6;

std::size_t combine(std::size_t seed, std::size_t value)
{
    // The mixing step of boost::hash_combine, widened to 64 bits.
    return seed ^ (value + 0x9e3779b97f4a7c15ULL + (seed << 6) + (seed >> 2));
}

}  // namespace

QString Device::title() const
{
    const auto serialEntry = config.find(SettingKeys::kSerial);
    if (serialEntry != config.end()) {
        const QString serial = QString::fromStdString(serialEntry->second);
        const qsizetype tailStart = startOfLastCharacters(serial, kSerialTailLength);
        if (tailStart >= 0)
            return QCoreApplication::translate("Device", "KT400 \u00B7%1").arg(serial.mid(tailStart));
    }
    return QString::fromStdString(ip);
}

std::size_t hashValue(const Device& device, std::size_t seed)
{
    const std::hash<std::string> text;
    seed = combine(seed, text(device.ip));
    // The map is ordered, so equal configurations are walked in the same order.
    for (const auto& [key, value] : device.config) {
        seed = combine(seed, text(key));
        seed = combine(seed, text(value));
    }
    seed = combine(seed, std::hash<WallClock::rep>()(device.lastSeen.time_since_epoch().count()));
    seed = combine(seed, device.heardOn.interfaceIndex);
    seed = combine(seed, device.heardOn.localAddress);
    return combine(seed, device.remembered ? 1U : 0U);
}

