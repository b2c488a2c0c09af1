// SPDX-License-Identifier: Apache-2.0
#include "TestKit.h"

#include <QClipboard>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QTimer>

#include <net/if.h>

#include "Ipv4.h"
#include "PresenceClock.h"
#include "WindowRecorder.h"

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

void TestKit::rememberSite(VornClient* client, const QUrl& file)
{
    closeSite();
    site_ = std::make_unique<VornLink::WindowSite>(*client, file.isLocalFile() ? file.toLocalFile() : file.toString());
    WindowRecorder::use(&site_->recorder());
    // The remembered units are read on the store's thread; a test starts from them listed.
    QEventLoop listing;
    connect(site_.get(), &VornLink::WindowSite::rememberedListed, &listing, &QEventLoop::quit);
    QTimer::singleShot(10000, &listing, &QEventLoop::quit);
    listing.exec();
}

void TestKit::closeSite()
{
    WindowRecorder::use(nullptr);
    site_.reset();
}

void TestKit::showEarlierActivity()
{
    if (site_)
        site_->showEarlierActivity();
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

SimulatedUnits* TestKit::startSimulatorAt(VornClient* client, const QString& address, const QVariantList& units)
{
    return new SimulatedUnits(address, client->socket().port(), units, this);
}

QUrl TestKit::silentSiteServer() const
{
    return QUrl(QStringLiteral("postgresql://desk@/site?host=") + scratch_.path());
}

QUrl TestKit::scratchFile(const QString& name)
{
    return QUrl::fromLocalFile(scratch_.filePath(name));
}

bool TestKit::writeTextFile(const QUrl& url, const QString& text) const
{
    QFile file(url.toLocalFile());
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(text.toUtf8()) >= 0;
}

QString TestKit::readTextFile(const QUrl& url) const
{
    QFile file(url.toLocalFile());
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString TestKit::shotPath(const QString& name) const
{
    QDir().mkpath(QStringLiteral(VORN_SHOT_DIR));
    return QDir(QStringLiteral(VORN_SHOT_DIR)).filePath(name);
}

UnitProbe* TestKit::makeProbe(VornClient* client, const QString& address)
{
    return new UnitProbe(client->socket().port(), qPrintable(address), this);
}

namespace {

Vorn::Reply reportFrom(const QString& ip, const QVariantMap& config)
{
    Vorn::Reply reply{ip.toStdString(), Vorn::kCmdReport, {}};
    for (auto it = config.cbegin(); it != config.cend(); ++it)
        reply.config.emplace(it.key().toStdString(), it.value().toString().toStdString());
    return reply;
}

std::uint32_t hostOrderAddress(const QString& dotted)
{
    const auto address = Settings::Ipv4::parse(dotted.toStdString());
    if (!address)
        qFatal("TestKit: '%s' is no IPv4 address", qPrintable(dotted));
    return address->value();
}

}  // namespace

void TestKit::ingest(VornClient* client, const QString& ip, const QVariantMap& config)
{
    client->ingest(reportFrom(ip, config));
}

void TestKit::ingestBurst(VornClient* client, const QString& prefix, int count)
{
    std::vector<HeardReply> burst;
    for (int i = 0; i < count; ++i)
        burst.emplace_back(reportFrom(QStringLiteral("%1.%2.%3").arg(prefix).arg(i / 250).arg(i % 250 + 1), {}));
    client->ingestAll(std::move(burst));
}

void TestKit::setNetworks(VornClient* client, const QVariantList& networks)
{
    std::vector<Vorn::InterfaceAddress> entries;
    for (const QVariant& network : networks) {
        const QVariantMap entry = network.toMap();
        const unsigned index = entry.value(QStringLiteral("index")).toUInt();
        if (index < 9000)
            qFatal("TestKit: made-up interface indexes start at 9000, not %u", index);
        entries.push_back({entry.value(QStringLiteral("name")).toString().toStdString(), index,
                           hostOrderAddress(entry.value(QStringLiteral("address")).toString()),
                           entry.value(QStringLiteral("prefixLength")).toInt(), IFF_UP | IFF_RUNNING | IFF_BROADCAST});
    }
    client->setInterfaceReader([entries] { return entries; });
}

void TestKit::ingestHeardOn(VornClient* client, const QString& ip, const QVariantMap& config, int index,
                            const QString& localAddress)
{
    client->ingest(reportFrom(ip, config), Vorn::Arrival{static_cast<unsigned>(index), hostOrderAddress(localAddress)});
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
