// SPDX-License-Identifier: Apache-2.0
// client_driver: runs one VornClient with the program's defaults (port 23457,
// limited broadcast) through a scripted scenario and prints what it saw as
// JSON lines on standard output. The LAN tests run it inside the console
// namespace of a private LAN; it must never run on a real network.
//
//   client_driver --netns NAME --run-ms MS [--snapshot-at MS]... [--hold-port]
//                 [--write-at MS --write-ip IP --set KEY=VALUE...]
//                 [--query-at MS --query-ip IP] [--remember IP]...
//                 [--scan-at MS --scan CIDR|A-B]
//
// --remember gives the client remembered units before it starts; --scan
// queues a unicast discover to each address of the block, as the window's
// "Scan addresses…" does.
// Lines: {"event":"started","status":...} after start(); {"event":"table",
// "atMs":...,"devices":[{"ip","title","config","heardOn","interfaceName",
// "interfaceSubnet","wrongSubnet","addressConflict","serialsSeen"}...],
// "networks":[{"name","address","prefixLength","units"}...]} at each snapshot
// and at the end; then {"event":"end","status":...,"log":[...]}.
#include <netinet/in.h>
#include <sys/socket.h>

#include <sys/stat.h>

#include <cstdio>
#include <cstring>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

#include "AddressBlock.h"
#include "ConfigConversion.h"
#include "VornClient.h"

namespace {

struct Scenario {
    QString netns;
    int runMs = 0;
    QList<int> snapshotsMs;
    bool holdPort = false;
    int writeAtMs = -1;
    QString writeIp;
    QVariantMap changes;
    int queryAtMs = -1;
    QString queryIp;
    std::vector<std::string> remembered;
    int scanAtMs = -1;
    QString scanBlock;
};

Scenario parseArguments(const QStringList& arguments)
{
    Scenario scenario;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString& name = arguments[i];
        const QString value = i + 1 < arguments.size() ? arguments[i + 1] : QString();
        if (name == u"--hold-port") {
            scenario.holdPort = true;
            continue;
        }
        ++i;
        if (name == u"--netns")
            scenario.netns = value;
        else if (name == u"--run-ms")
            scenario.runMs = value.toInt();
        else if (name == u"--snapshot-at")
            scenario.snapshotsMs.append(value.toInt());
        else if (name == u"--write-at")
            scenario.writeAtMs = value.toInt();
        else if (name == u"--write-ip")
            scenario.writeIp = value;
        else if (name == u"--query-at")
            scenario.queryAtMs = value.toInt();
        else if (name == u"--query-ip")
            scenario.queryIp = value;
        else if (name == u"--remember")
            scenario.remembered.push_back(value.toStdString());
        else if (name == u"--scan-at")
            scenario.scanAtMs = value.toInt();
        else if (name == u"--scan")
            scenario.scanBlock = value;
        else if (name == u"--set")
            scenario.changes.insert(value.section(u'=', 0, 0), value.section(u'=', 1));
        else
            qFatal("client_driver: unknown argument %s", qPrintable(name));
    }
    return scenario;
}

// The driver broadcasts for real, so it runs only inside the named network
// namespace it is told about ("ip netns exec NAME" keeps it in /run/netns).
bool insideNamedNamespace(const QString& name)
{
    struct stat own = {};
    struct stat named = {};
    const QByteArray path = QByteArrayLiteral("/run/netns/") + name.toLocal8Bit();
    if (name.isEmpty() || name.contains(u'/') || ::stat("/proc/self/ns/net", &own) != 0 ||
        ::stat(path.constData(), &named) != 0)
        return false;
    return own.st_ino == named.st_ino && own.st_dev == named.st_dev;
}

// Another program holding the device port exclusively (no SO_REUSEADDR).
int holdDevicePort()
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM, 0);
    sockaddr_in local;
    std::memset(&local, 0, sizeof local);
    local.sin_family = AF_INET;
    local.sin_addr.s_addr = htonl(INADDR_ANY);
    local.sin_port = htons(Vorn::kPort);
    if (::bind(fd, reinterpret_cast<const sockaddr*>(&local), sizeof local) != 0)
        qFatal("client_driver: cannot hold the device port");
    return fd;
}

void printLine(const QJsonObject& object)
{
    std::fputs(QJsonDocument(object).toJson(QJsonDocument::Compact).append('\n').constData(), stdout);
    std::fflush(stdout);
}

void printTable(const VornClient& client, qint64 atMs)
{
    QJsonArray devices;
    for (const Device& device : client.devices()) {
        QJsonObject entry = QJsonObject::fromVariantMap(client.deviceData(QString::fromStdString(device.ip)));
        entry.remove("lastSeen");
        devices.append(entry);
    }
    printLine({{"event", "table"},
               {"atMs", atMs},
               {"devices", devices},
               {"networks", QJsonArray::fromVariantList(client.networks())}});
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const Scenario scenario = parseArguments(app.arguments());
    if (!insideNamedNamespace(scenario.netns)) {
        std::fputs("client_driver: not inside the network namespace given by --netns\n", stderr);
        return 2;
    }
    if (scenario.holdPort)
        holdDevicePort();

    VornClient client;
    client.setRemembered(scenario.remembered);
    QElapsedTimer elapsed;
    elapsed.start();
    client.start();
    printLine({{"event", "started"}, {"status", client.status()}});

    for (const int atMs : scenario.snapshotsMs)
        QTimer::singleShot(atMs, Qt::PreciseTimer, &app, [&] { printTable(client, elapsed.elapsed()); });
    if (scenario.writeAtMs >= 0)
        QTimer::singleShot(scenario.writeAtMs, Qt::PreciseTimer, &app, [&] { client.write(scenario.writeIp, scenario.changes); });
    if (scenario.queryAtMs >= 0)
        QTimer::singleShot(scenario.queryAtMs, Qt::PreciseTimer, &app, [&] { client.sendDiscover(scenario.queryIp); });
    if (scenario.scanAtMs >= 0) {
        const auto block = Settings::parseAddressBlock(scenario.scanBlock.toStdString());
        if (!std::holds_alternative<Settings::AddressBlock>(block))
            qFatal("client_driver: %s is no address block", qPrintable(scenario.scanBlock));
        std::vector<std::string> addresses;
        for (const auto address : std::get<Settings::AddressBlock>(block).addresses())
            addresses.push_back(address.toString());
        QTimer::singleShot(scenario.scanAtMs, Qt::PreciseTimer, &app, [&client, addresses] { client.queueDiscovers(addresses); });
    }
    QTimer::singleShot(scenario.runMs, Qt::PreciseTimer, &app, [&] {
        printTable(client, elapsed.elapsed());
        printLine({{"event", "end"}, {"status", client.status()}, {"log", QJsonArray::fromStringList(client.log())}});
        app.quit();
    });
    return app.exec();
}
