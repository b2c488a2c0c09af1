// SPDX-License-Identifier: Apache-2.0
// The device list model under QAbstractItemModelTester, fed through ingest
// and a hand-driven clock; no network traffic.
#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include "ClientTestKit.h"
#include "DeviceListModel.h"

using namespace ClientTest;
using namespace std::chrono_literals;

class DeviceListModelTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<VornClient> client;
    std::unique_ptr<ManualTime> time;
    std::unique_ptr<DeviceListModel> model;
    std::unique_ptr<QAbstractItemModelTester> tester;

    void ingest(const std::string& ip, Vorn::Config config = {})
    {
        client->ingest(Vorn::Reply{ip, Vorn::kCmdReport, std::move(config)});
    }
    QVariant role(int row, DeviceListModel::Role role) const { return model->index(row).data(role); }

private slots:
    void init()
    {
        client = loopbackClient();
        time = std::make_unique<ManualTime>(client->clock());
        model = std::make_unique<DeviceListModel>();
        tester = std::make_unique<QAbstractItemModelTester>(model.get(),
                                                            QAbstractItemModelTester::FailureReportingMode::QtTest);
        model->setClient(client.get());
    }

    void cleanup()
    {
        tester.reset();
        model.reset();
        client.reset();
    }

    void rolesCarryIpTitleLastSeenOnlineAndConfig()
    {
        ingest("10.0.0.9", {{"Serial", "KT400ABC123"}, {"Channel", "3"}});
        const auto names = model->roleNames();
        for (const char* name : {"ip", "title", "lastSeen", "online", "config"})
            QVERIFY(names.values().contains(name));
        QCOMPARE(role(0, DeviceListModel::IpRole).toString(), QStringLiteral("10.0.0.9"));
        QCOMPARE(role(0, DeviceListModel::TitleRole).toString(), QStringLiteral("KT400 \u00B7ABC123"));
        QCOMPARE(role(0, DeviceListModel::LastSeenRole).toDateTime(), toDateTime(time->now()));
        QCOMPARE(role(0, DeviceListModel::OnlineRole).toBool(), true);
        QCOMPARE(role(0, DeviceListModel::ConfigRole).toMap().value("Channel").toString(), QStringLiteral("3"));
    }

    void newUnitIsARowInsertAtItsSortedPlace()
    {
        ingest("10.0.0.9");
        ingest("192.168.1.20");
        QSignalSpy inserted(model.get(), &QAbstractItemModel::rowsInserted);
        QSignalSpy reset(model.get(), &QAbstractItemModel::modelReset);

        ingest("10.0.0.10");
        ingest("192.168.1.100");

        QCOMPARE(inserted.count(), 2);
        QCOMPARE(inserted.at(0).at(1).toInt(), 0);
        QCOMPARE(inserted.at(0).at(2).toInt(), 0);
        QCOMPARE(inserted.at(1).at(1).toInt(), 2);
        QCOMPARE(reset.count(), 0);
        QCOMPARE(model->rowCount(), 4);
        QCOMPARE(role(2, DeviceListModel::IpRole).toString(), QStringLiteral("192.168.1.100"));
    }

    void refreshedUnitIsADataChangedOfItsRowOnly()
    {
        ingest("10.0.0.1");
        ingest("10.0.0.2", {{"Channel", "1"}});
        ingest("10.0.0.3");
        QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
        QSignalSpy inserted(model.get(), &QAbstractItemModel::rowsInserted);
        QSignalSpy reset(model.get(), &QAbstractItemModel::modelReset);

        ingest("10.0.0.2", {{"Channel", "2"}});

        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toModelIndex().row(), 1);
        QCOMPARE(changed.at(0).at(1).toModelIndex().row(), 1);
        QCOMPARE(inserted.count(), 0);
        QCOMPARE(reset.count(), 0);
        QCOMPARE(role(1, DeviceListModel::ConfigRole).toMap().value("Channel").toString(), QStringLiteral("2"));
    }

    void onlineWhileYoungerThan15Seconds()
    {
        ingest("10.0.0.1");
        time->advance(14999ms);
        QCOMPARE(role(0, DeviceListModel::OnlineRole).toBool(), true);
        time->advance(1ms);
        QCOMPARE(role(0, DeviceListModel::OnlineRole).toBool(), false);
    }

    void futureLastSeenCountsAsPresent()
    {
        ingest("10.0.0.1");
        time->advance(-1h);
        QCOMPARE(role(0, DeviceListModel::OnlineRole).toBool(), true);
    }

    void tickAnnouncesOnlyRowsWhosePresenceLapsed()
    {
        ingest("10.0.0.1");
        ingest("10.0.0.2");
        time->advance(5s);
        ingest("10.0.0.3");
        ingest("10.0.0.4");
        QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);

        time->advance(9s);
        client->clock()->tick();
        QCOMPARE(changed.count(), 0);

        time->advance(1s);
        client->clock()->tick();
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toModelIndex().row(), 0);
        QCOMPARE(changed.at(0).at(1).toModelIndex().row(), 1);
        QCOMPARE(changed.at(0).at(2).value<QList<int>>(), QList<int>{DeviceListModel::OnlineRole});
        QCOMPARE(role(0, DeviceListModel::OnlineRole).toBool(), false);
        QCOMPARE(role(2, DeviceListModel::OnlineRole).toBool(), true);

        client->clock()->tick();
        QCOMPARE(changed.count(), 1);
    }

    void refreshedUnitComesBackOnline()
    {
        ingest("10.0.0.1");
        time->advance(20s);
        client->clock()->tick();
        QCOMPARE(role(0, DeviceListModel::OnlineRole).toBool(), false);
        QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
        ingest("10.0.0.1");
        QCOMPARE(changed.count(), 1);
        QCOMPARE(role(0, DeviceListModel::OnlineRole).toBool(), true);
        client->clock()->tick();
        QCOMPARE(changed.count(), 1);
    }

    void clockTicksOncePerSecond()
    {
        const auto* timer = client->clock()->findChild<QTimer*>();
        QVERIFY(timer);
        QVERIFY(timer->isActive());
        QCOMPARE(timer->interval(), 1000);
    }

    void clientChangeIsTheOnlyReset()
    {
        ingest("10.0.0.1");
        QSignalSpy reset(model.get(), &QAbstractItemModel::modelReset);
        QSignalSpy clientChanged(model.get(), &DeviceListModel::clientChanged);
        auto other = loopbackClient();
        other->ingest(Vorn::Reply{"10.0.0.7", Vorn::kCmdReport, {}});
        other->ingest(Vorn::Reply{"10.0.0.8", Vorn::kCmdReport, {}});
        model->setClient(other.get());
        QCOMPARE(reset.count(), 1);
        QCOMPARE(clientChanged.count(), 1);
        QCOMPARE(model->rowCount(), 2);
        ingest("10.0.0.2");
        QCOMPARE(model->rowCount(), 2);
        model->setClient(other.get());
        QCOMPARE(clientChanged.count(), 1);
        other.reset();
        QCOMPARE(model->rowCount(), 0);
        QCOMPARE(clientChanged.count(), 2);
    }

    void staysConsistentThroughManyInsertsAndRefreshes()
    {
        for (int i = 0; i < 300; ++i) {
            ingest("10.232." + std::to_string((i * 37) % 11) + "." + std::to_string((i * 13) % 29));
            if (i % 50 == 0) {
                time->advance(7s);
                client->clock()->tick();
            }
        }
        QCOMPARE(model->rowCount(), client->deviceCount());
        for (int row = 0; row < model->rowCount(); ++row)
            QCOMPARE(role(row, DeviceListModel::IpRole).toString().toStdString(),
                     client->devices()[static_cast<std::size_t>(row)].ip);
    }
};

QTEST_GUILESS_MAIN(DeviceListModelTest)
#include "DeviceListModelTest.moc"
