#include "TestKit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTimer>

#include "PresenceClock.h"

UnitProbe::UnitProbe(std::uint16_t port, const char* address, QObject* parent)
    : QObject(parent), unit_(port, address)
{
}

QVariantList UnitProbe::receiveDiscovers(int count, int patienceMs)
{
    QVariantList sequences;
    for (const auto& datagram : unit_.receive(static_cast<std::size_t>(count), std::chrono::milliseconds(patienceMs)))
        sequences.append(ClientTest::sequenceOf(datagram));
    return sequences;
}

int UnitProbe::totalAfter(int windowMs)
{
    return static_cast<int>(unit_.receiveWithin(std::chrono::milliseconds(windowMs)).size());
}

VornClient* TestKit::makeClient()
{
    return new VornClient(ClientTest::freeUdpPort(), "127.0.0.3", this);
}

void TestKit::startWithoutRepeats(VornClient* client)
{
    client->start();
    // The client's own children: its discovery timer is the only repeating one.
    for (QTimer* timer : client->findChildren<QTimer*>(Qt::FindDirectChildrenOnly)) {
        if (!timer->isSingleShot())
            timer->stop();
    }
}

SimulatedUnits* TestKit::startSimulator(VornClient* client, const QVariantList& units)
{
    return new SimulatedUnits(client->broadcastAddress(), client->socket().port(), units, this);
}

UnitProbe* TestKit::makeProbe(VornClient* client, const QString& address)
{
    return new UnitProbe(client->socket().port(), qPrintable(address), this);
}

void TestKit::ingest(VornClient* client, const QString& ip, const QVariantMap& config)
{
    Vorn::Reply reply{ip.toStdString(), Vorn::kCmdReport, {}};
    for (auto it = config.cbegin(); it != config.cend(); ++it)
        reply.config.emplace(it.key().toStdString(), it.value().toString().toStdString());
    client->ingest(std::move(reply));
}

void TestKit::setNow(VornClient* client, const QDateTime& now)
{
    const auto instant = toTimePoint(now);
    client->clock()->setNowFunction([instant] { return instant; });
    client->clock()->tick();
}

QStringList TestKit::writeKeys() const
{
    QStringList keys;
    for (const auto key : Vorn::kWriteKeys)
        keys.append(QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size())));
    return keys;
}

QString TestKit::clipboardText() const
{
    return QGuiApplication::clipboard()->text();
}

int TestKit::seq(VornClient* client) const
{
    return client->seq();
}

void TestKit::setSeq(VornClient* client, int seq)
{
    client->setSeq(static_cast<std::uint16_t>(seq));
}
