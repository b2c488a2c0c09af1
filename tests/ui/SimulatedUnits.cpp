// SPDX-License-Identifier: Apache-2.0
#include "SimulatedUnits.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>

#include "FakeUnit.h"
#include "VornProtocol.h"

namespace {

QVariantMap decode(const QJsonObject& line)
{
    const QByteArray bytes = QByteArray::fromHex(line.value(QStringLiteral("bytes")).toString().toLatin1());
    const Vorn::Bytes datagram(bytes.begin(), bytes.end());
    QVariantMap entry{{QStringLiteral("dst"), line.value(QStringLiteral("dst")).toString()},
                      {QStringLiteral("hex"), QString::fromLatin1(bytes.toHex())},
                      {QStringLiteral("cmd"), -1},
                      {QStringLiteral("seq"), -1}};
    const auto parsed = Vorn::parse(datagram);
    if (!parsed)
        return entry;
    QVariantMap config;
    for (const auto& [key, value] : parsed->config)
        config.insert(QString::fromStdString(key), QString::fromStdString(value));
    entry.insert(QStringLiteral("cmd"), parsed->cmd ? int(*parsed->cmd) : -1);
    entry.insert(QStringLiteral("seq"), ClientTest::sequenceOf(datagram));
    entry.insert(QStringLiteral("config"), config);
    return entry;
}

}  // namespace

SimulatedUnits::SimulatedUnits(const QString& bindAddress, quint16 port, const QVariantList& units, QObject* parent)
    : QObject(parent)
{
    const QString unitsFile = dir_.filePath(QStringLiteral("units.json"));
    const QString readyFile = dir_.filePath(QStringLiteral("ready"));
    QFile file(unitsFile);
    if (!dir_.isValid() || !file.open(QIODevice::WriteOnly))
        return;
    file.write(QJsonDocument::fromVariant(units).toJson());
    file.close();

    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QStringLiteral(VORN_SIM_PATH),
                   {QStringLiteral("--bind"), bindAddress, QStringLiteral("--port"), QString::number(port),
                    QStringLiteral("--units"), unitsFile, QStringLiteral("--log"),
                    dir_.filePath(QStringLiteral("log.jsonl")), QStringLiteral("--ready-file"), readyFile});
    if (!process_.waitForStarted(5000))
        return;
    const QDeadlineTimer patience(5000);
    while (!QFile::exists(readyFile) && !patience.hasExpired() && process_.state() == QProcess::Running)
        QThread::msleep(10);
    listening_ = QFile::exists(readyFile) && process_.state() == QProcess::Running;
}

SimulatedUnits::~SimulatedUnits()
{
    stop();
}

bool SimulatedUnits::isListening() const
{
    return listening_;
}

QVariantList SimulatedUnits::datagrams() const
{
    QVariantList entries;
    QFile log(dir_.filePath(QStringLiteral("log.jsonl")));
    if (!log.open(QIODevice::ReadOnly))
        return entries;
    // The simulator writes whole lines; a line still being written is skipped.
    for (const QByteArray& line : log.readAll().split('\n')) {
        const QJsonDocument document = QJsonDocument::fromJson(line);
        if (document.isObject())
            entries.append(decode(document.object()));
    }
    return entries;
}

QVariantList SimulatedUnits::writes() const
{
    QVariantList writes;
    for (const QVariant& entry : datagrams()) {
        if (entry.toMap().value(QStringLiteral("cmd")).toInt() == Vorn::kCmdWrite)
            writes.append(entry);
    }
    return writes;
}

void SimulatedUnits::stop()
{
    if (process_.state() == QProcess::NotRunning)
        return;
    process_.terminate();
    if (!process_.waitForFinished(3000)) {
        process_.kill();
        process_.waitForFinished(3000);
    }
}
