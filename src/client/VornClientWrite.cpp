// SPDX-License-Identifier: Apache-2.0
// The configuration write: the whole configuration goes out, twice, and the
// unit is asked again shortly after so its own answer updates the table.
#include <algorithm>
#include <vector>

#include <QStringList>
#include <QTimer>

#include "ConfigConversion.h"
#include "FleetValues.h"
#include "Ipv4.h"
#include "TranslatedMessage.h"
#include "ValueSafety.h"
#include "VornClient.h"

namespace {

// "Key=Value" pieces sorted as text, joined by one blank.
QString changesText(const Vorn::Config& changes)
{
    std::vector<std::string> pieces;
    pieces.reserve(changes.size());
    for (const auto& [key, value] : changes)
        pieces.push_back(key + '=' + value);
    std::sort(pieces.begin(), pieces.end());
    QStringList text;
    for (const auto& piece : pieces)
        text.append(QString::fromStdString(piece));
    return text.join(u' ');
}

}  // namespace

void VornClient::write(const QString& ip, const QVariantMap& changes)
{
    writeChanges(ip.toStdString(), toConfig(changes));
}

void VornClient::writeChanges(const std::string& ip, const Vorn::Config& changes)
{
    // Text that is not an address is no unit: nothing goes out.
    if (!Settings::Ipv4::parse(ip)) {
        addLog(tr("write refused \u2192 %1: not an IPv4 address").arg(QString::fromStdString(ip)));
        return;
    }
    // No optimistic update: the table changes only when the unit answers.
    const int row = indexOf(ip);
    const Vorn::Config full =
        Settings::overlay(row >= 0 ? devices_[static_cast<std::size_t>(row)]->config : Vorn::Config{}, changes);

    // The last gate before the codec: a line break would become a line of its own.
    if (const auto refused = Settings::writeRefusal(changes, full)) {
        addLog(tr("write refused \u2192 %1: %2")
                   .arg(QString::fromStdString(ip), translatedText(*refused)));
        return;
    }

    // The second copy is the only guard against a lost datagram.
    const Vorn::Bytes datagram = Vorn::writePacket(nextSeq(), full);
    const unsigned heardOn = interfaceFor(ip);
    socket_.sendVia(datagram, ip, heardOn);
    socket_.sendVia(datagram, ip, heardOn);

    addLog(tr("write \u2192 %1: %2").arg(QString::fromStdString(ip), changesText(changes)));

    QTimer::singleShot(kRequeryDelayMs, this, [this, ip] { discoverTo(ip); });
}
