// SPDX-License-Identifier: Apache-2.0
#include "SiteStore.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <algorithm>
#include <atomic>

#include "ConfigText.h"
#include "SettingKeys.h"
#include "SiteHistory.h"
#include "SiteSchema.h"
#include "PostgresServer.h"
#include "SqliteFile.h"
#include "WriteTransaction.h"

namespace Site {
namespace {

std::int64_t msOf(Time time)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count();
}

Time timeOf(const QVariant& ms)
{
    return Time(std::chrono::milliseconds(ms.toLongLong()));
}

QString text(const std::string& value)
{
    return QString::fromStdString(value);
}

std::string text(const QVariant& value)
{
    return value.toString().toStdString();
}

std::string firmwareOf(const Vorn::Config& config)
{
    const auto version = config.find(SettingKeys::kVersion);
    return version == config.end() ? std::string() : version->second;
}

QString nextConnectionName()
{
    static std::atomic<int> counter{0};
    return QStringLiteral("vorn-site-%1").arg(++counter);
}

RememberedUnit unitOf(const QSqlQuery& query)
{
    return {text(query.value(0)), text(query.value(1)), text(query.value(2)), text(query.value(3)),
            text(query.value(4)), timeOf(query.value(5)), timeOf(query.value(6))};
}

constexpr auto kUnitColumns = "unit_key, serial, address, interface, firmware, first_seen_ms, last_seen_ms";

constexpr auto kWriteColumns = "unit_key, sent_ms, program, host, os_user, address, sent, verdict, unconfirmed";

// The writes a query selected as kWriteColumns, in its order.
std::vector<WriteRecord> writesOf(QSqlQuery& query)
{
    std::vector<WriteRecord> writes;
    while (query.next()) {
        const std::string key = text(query.value(0));
        writes.push_back({timeOf(query.value(1)), text(query.value(2)), text(query.value(3)), text(query.value(4)),
                          key.starts_with("serial:") ? key.substr(7) : std::string(), text(query.value(5)),
                          configFromText(text(query.value(6))),
                          verdictFromText(text(query.value(7))).value_or(Verdict::NoAnswer),
                          keyListFromText(text(query.value(8)))});
    }
    return writes;
}

// What tells one write from another: where it went, when, and who sent it.
std::string identityOf(const WriteRecord& write)
{
    return unitKey(write.serial, write.address) + '\n' + std::to_string(msOf(write.sentAt)) + '\n' + write.program
        + '\n' + write.host + '\n' + write.user;
}

}  // namespace

std::unique_ptr<SiteStore> SiteStore::open(const QString& path, Time now)
{
    std::unique_ptr<SiteStore> store(new SiteStore);
    store->path_ = path;
    store->connection_ = nextConnectionName();
    store->newsFrom_ = now;
    if (Postgres::isServerUri(path)) {
        store->connectServer(now);
        return store;
    }
    // A damaged file is moved aside once and a fresh one started in its place.
    for (int attempt = 0; attempt < 2; ++attempt) {
        auto opened = Sqlite::openFile(path, store->connection_, false);
        QSqlError error;
        std::optional<int> version;
        if (!opened.damaged && opened.problem.isEmpty()) {
            version = Schema::versionOf(opened.db, error);
            opened.damaged = !version && Sqlite::isDamage(error);
            if (!version && !opened.damaged)
                opened.problem = error.text();
        }
        if (opened.damaged && attempt == 0) {
            opened.db = {};
            QSqlDatabase::removeDatabase(store->connection_);
            store->damagedAside_ = Sqlite::moveAside(path, now);
            if (!store->damagedAside_) {
                store->setUnavailable(QStringLiteral("the site file ") + path + QStringLiteral(" is damaged and cannot be moved aside"));
                return store;
            }
            continue;
        }
        if (opened.damaged || !opened.problem.isEmpty()) {
            store->setUnavailable(opened.damaged ? QStringLiteral("the site file ") + path + QStringLiteral(" is damaged")
                                                 : opened.problem);
            return store;
        }
        if (*version > Schema::latestVersion()) {
            opened.db.close();
            opened.db = {};
            QSqlDatabase::removeDatabase(store->connection_);
            auto reader = Sqlite::openFile(path, store->connection_, true);
            if (!reader.problem.isEmpty() || reader.damaged) {
                store->setUnavailable(reader.problem);
                return store;
            }
            store->state_ = StoreState::NewerSchema;
            store->problem_ = QStringLiteral("This site file is from a newer VornLink; changes are not remembered");
            return store;
        }
        if (!Schema::migrate(opened.db, error)) {
            store->setUnavailable(error.text());
            return store;
        }
        store->state_ = StoreState::Ready;
        store->problem_.clear();
        store->pruneActivity(now);
        return store;
    }
    return store;
}

void SiteStore::connectServer(Time now)
{
    server_ = true;
    dropConnection();
    // Brings the server's store up to date; the problem, or empty. Every
    // handle on the connection is gone when it returns.
    const auto prepare = [this]() -> QString {
        auto opened = Postgres::openServer(path_, connection_);
        if (!opened.problem.isEmpty()) {
            if (opened.unreachable) {
                state_ = StoreState::Unreachable;
                return opened.problem;
            }
            return QStringLiteral("the site server refused the connection: ") + opened.problem;
        }
        QSqlError error;
        const auto version = Schema::versionOf(opened.db, error);
        if (!version)
            return error.text();
        if (*version > Schema::latestVersion()) {
            state_ = StoreState::NewerSchema;
            return QStringLiteral("The site server holds the store of a newer VornLink; changes are not remembered");
        }
        if (!Schema::migrate(opened.db, error) || !Postgres::listen(opened.db, error))
            return error.text();
        state_ = StoreState::Ready;
        return {};
    };
    state_ = StoreState::Unavailable;
    problem_ = prepare();
    if (state_ == StoreState::Unreachable)
        dropConnection();
    else if (state_ == StoreState::Unavailable)
        setUnavailable(problem_);
    else if (state_ == StoreState::Ready)
        pruneActivity(now);
}

bool SiteStore::reconnect(Time now)
{
    if (state_ != StoreState::Unreachable)
        return state_ == StoreState::Ready;
    connectServer(now);
    return state_ == StoreState::Ready;
}

void SiteStore::dropConnection()
{
    if (QSqlDatabase::contains(connection_)) {
        QSqlDatabase::database(connection_, false).close();
        QSqlDatabase::removeDatabase(connection_);
    }
}

bool SiteStore::changedElsewhere()
{
    return server_ && canRead() && Postgres::changedElsewhere(QSqlDatabase::database(connection_, false));
}

bool SiteStore::noteLostServer()
{
    if (!server_ || !Postgres::connectionLost(QSqlDatabase::database(connection_, false)))
        return false;
    state_ = StoreState::Unreachable;
    known_.clear();
    // Closed only: the caller still holds the connection; reconnect() makes it anew.
    QSqlDatabase::database(connection_, false).close();
    return true;
}

SiteStore::~SiteStore()
{
    dropConnection();
}

std::optional<QString> SiteStore::takeDamagedNotice()
{
    return std::exchange(damagedAside_, std::nullopt);
}

void SiteStore::setUnavailable(const QString& problem)
{
    state_ = StoreState::Unavailable;
    problem_ = problem;
    known_.clear();
    dropConnection();
}

bool SiteStore::failed(const QSqlQuery& query)
{
    problem_ = query.lastError().text();
    return false;
}

std::optional<SiteStore::Known> SiteStore::loadKnown(const std::string& key)
{
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    query.prepare(QStringLiteral("SELECT u.address, u.interface, u.last_seen_ms, v.config FROM units u"
                                 " JOIN config_versions v ON v.unit_key = u.unit_key"
                                 " WHERE u.unit_key = ? ORDER BY v.seen_ms DESC LIMIT 1"));
    query.addBindValue(text(key));
    if (!query.exec() || !query.next())
        return std::nullopt;
    return Known{text(query.value(3)), text(query.value(0)), text(query.value(1)), query.value(2).toLongLong()};
}

bool SiteStore::recordSighting(const Sighting& sighting)
{
    const std::string key = unitKey(serialOf(sighting.config), sighting.address);
    const std::string config = configText(sighting.config);
    const std::int64_t heardMs = msOf(sighting.heardAt);
    auto cached = known_.find(key);
    // Another program may have stored a change since; ask the file before adding one.
    if (cached == known_.end() || cached->second.configText != config) {
        if (auto stored = loadKnown(key))
            cached = known_.insert_or_assign(key, *stored).first;
        else
            cached = known_.end();
    }
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    if (cached == known_.end()) {
        wrote_ = true;
        query.prepare(QStringLiteral("INSERT INTO units (unit_key, serial, address, interface, firmware,"
                                     " first_seen_ms, last_seen_ms) VALUES (?, ?, ?, ?, ?, ?, ?)"));
        for (const auto& value : {key, serialOf(sighting.config), sighting.address, sighting.interface,
                                  firmwareOf(sighting.config)})
            query.addBindValue(text(value));
        query.addBindValue(QVariant::fromValue<qint64>(heardMs));
        query.addBindValue(QVariant::fromValue<qint64>(heardMs));
        if (!query.exec())
            return failed(query);
    } else {
        Known& known = cached->second;
        const bool changed = known.configText != config;
        const bool moved = known.address != sighting.address || known.interface != sighting.interface;
        const bool due = heardMs - known.lastSeenStoredMs
            >= std::chrono::duration_cast<std::chrono::milliseconds>(kLastSeenInterval).count();
        if (!changed && !moved && !due)
            return true;
        wrote_ = true;
        query.prepare(QStringLiteral("UPDATE units SET address = ?, interface = ?, firmware = ?,"
                                     " last_seen_ms = ? WHERE unit_key = ?"));
        query.addBindValue(text(sighting.address));
        query.addBindValue(text(sighting.interface));
        query.addBindValue(text(firmwareOf(sighting.config)));
        query.addBindValue(QVariant::fromValue<qint64>(heardMs));
        query.addBindValue(text(key));
        if (!query.exec())
            return failed(query);
        if (!changed) {
            known.address = sighting.address;
            known.interface = sighting.interface;
            known.lastSeenStoredMs = heardMs;
            return true;
        }
    }
    query.prepare(QStringLiteral("INSERT INTO config_versions (unit_key, seen_ms, address, config, host)"
                                 " VALUES (?, ?, ?, ?, ?)"));
    query.addBindValue(text(key));
    query.addBindValue(QVariant::fromValue<qint64>(heardMs));
    query.addBindValue(text(sighting.address));
    query.addBindValue(text(config));
    query.addBindValue(text(sighting.host.value_or(host_)));
    if (!query.exec())
        return failed(query);
    known_.insert_or_assign(key, Known{config, sighting.address, sighting.interface, heardMs});
    return true;
}

bool SiteStore::recordWrite(const WriteRecord& write)
{
    wrote_ = true;
    ownWrites_.insert(identityOf(write));
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    query.prepare(QStringLiteral("INSERT INTO writes (unit_key, sent_ms, program, host, os_user, address, sent,"
                                 " verdict, unconfirmed) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    query.addBindValue(text(unitKey(write.serial, write.address)));
    query.addBindValue(QVariant::fromValue<qint64>(msOf(write.sentAt)));
    for (const auto& value : {write.program, write.host, write.user, write.address, configText(write.sent),
                              verdictText(write.verdict), keyListText(write.unconfirmedKeys)})
        query.addBindValue(text(value));
    return query.exec() || failed(query);
}

bool SiteStore::record(const std::vector<Sighting>& sightings, const std::vector<WriteRecord>& writes,
                       const std::vector<ActivityEntry>& activity)
{
    if (!canRecord())
        return false;
    std::span<const Sighting> rest(sightings);
    while (rest.size() > kSightingsPerTransaction) {
        if (!recordInOne(rest.first(kSightingsPerTransaction), {}, {}))
            return false;
        rest = rest.subspan(kSightingsPerTransaction);
    }
    return recordInOne(rest, writes, activity);
}

bool SiteStore::recordInOne(std::span<const Sighting> sightings, const std::vector<WriteRecord>& writes,
                            const std::vector<ActivityEntry>& activity)
{
    auto db = QSqlDatabase::database(connection_, false);
    QSqlError error;
    if (!beginWrite(db, error)) {
        problem_ = error.text();
        noteLostServer();
        return false;
    }
    bool ok = true;
    wrote_ = !activity.empty();
    for (const auto& sighting : sightings)
        ok = ok && recordSighting(sighting);
    for (const auto& write : writes)
        ok = ok && recordWrite(write);
    if (ok && !activity.empty()) {
        QSqlQuery query(db);
        query.prepare(QStringLiteral("INSERT INTO activity (at_ms, message) VALUES (?, ?)"));
        for (const auto& entry : activity) {
            query.addBindValue(QVariant::fromValue<qint64>(msOf(entry.at)));
            query.addBindValue(text(entry.message));
            if (!query.exec()) {
                ok = failed(query);
                break;
            }
        }
    }
    if (ok && wrote_ && server_ && !Postgres::announceChange(db, error)) {
        problem_ = error.text();
        ok = false;
    }
    if (ok && db.commit()) {
        problem_.clear();
        return true;
    }
    if (ok)
        problem_ = db.lastError().text();
    db.rollback();
    known_.clear();  // it may hold what was rolled back
    noteLostServer();
    return false;
}

std::vector<RememberedUnit> SiteStore::units()
{
    std::vector<RememberedUnit> list;
    if (!canRead())
        return list;
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    if (!query.exec(QStringLiteral("SELECT %1 FROM units ORDER BY address, unit_key").arg(kUnitColumns)))
        return list;
    while (query.next())
        list.push_back(unitOf(query));
    return list;
}

std::map<std::string, Vorn::Config> SiteStore::latestConfigurations()
{
    std::map<std::string, Vorn::Config> latest;
    if (!canRead())
        return latest;
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    if (!query.exec(QStringLiteral("SELECT v.unit_key, v.config FROM config_versions v JOIN (SELECT unit_key,"
                                   " MAX(seen_ms) AS newest FROM config_versions GROUP BY unit_key) n"
                                   " ON v.unit_key = n.unit_key AND v.seen_ms = n.newest")))
        return latest;
    while (query.next())
        latest.insert_or_assign(text(query.value(0)), configFromText(text(query.value(1))));
    return latest;
}

std::optional<RememberedUnit> SiteStore::findUnit(const std::string& name)
{
    if (!canRead())
        return std::nullopt;
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    query.prepare(QStringLiteral("SELECT %1 FROM units WHERE serial = ? OR (address = ? AND serial <> ?)"
                                 " ORDER BY CASE WHEN serial = ? THEN 0 ELSE 1 END, last_seen_ms DESC")
                      .arg(kUnitColumns));
    for (int i = 0; i < 4; ++i)
        query.addBindValue(text(name));
    if (!query.exec() || !query.next()) {
        // An address whose units all report serials: the one seen there last.
        query.prepare(QStringLiteral("SELECT %1 FROM units WHERE address = ? ORDER BY last_seen_ms DESC")
                          .arg(kUnitColumns));
        query.addBindValue(text(name));
        if (!query.exec() || !query.next())
            return std::nullopt;
    }
    return unitOf(query);
}

std::vector<StoredVersion> SiteStore::versions(const std::string& unitKey)
{
    std::vector<StoredVersion> versions;
    if (!canRead())
        return versions;
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    query.prepare(QStringLiteral(
        "SELECT seen_ms, config, address, host FROM config_versions WHERE unit_key = ? ORDER BY seen_ms"));
    query.addBindValue(text(unitKey));
    if (query.exec()) {
        while (query.next())
            versions.push_back({timeOf(query.value(0)), configFromText(text(query.value(1))), text(query.value(2)),
                                text(query.value(3))});
    }
    return versions;
}

std::vector<WriteRecord> SiteStore::writes(const std::string& unitKey)
{
    std::vector<WriteRecord> writes;
    if (!canRead())
        return writes;
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    query.prepare(QStringLiteral("SELECT %1 FROM writes WHERE unit_key = ? ORDER BY sent_ms").arg(kWriteColumns));
    query.addBindValue(text(unitKey));
    if (query.exec())
        writes = writesOf(query);
    return writes;
}

std::vector<WriteRecord> SiteStore::newWritesElsewhere()
{
    std::vector<WriteRecord> writes;
    if (!canRead())
        return writes;
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    query.prepare(QStringLiteral("SELECT %1 FROM writes WHERE sent_ms >= ? ORDER BY sent_ms").arg(kWriteColumns));
    query.addBindValue(QVariant::fromValue<qint64>(msOf(newsFrom_ - kNewsLookBack)));
    if (query.exec())
        writes = writesOf(query);
    // Each write once, and none of this store's own.
    std::erase_if(writes, [this](const WriteRecord& write) {
        const std::string identity = identityOf(write);
        return ownWrites_.contains(identity) || !toldWrites_.insert(identity).second;
    });
    // Not past this computer's clock: a workstation whose clock runs ahead
    // would hide the others' writes.
    for (const auto& write : writes)
        newsFrom_ = std::max(newsFrom_, std::min(write.sentAt, Clock::now()));
    return writes;
}

std::vector<HistoryEntry> SiteStore::history(const std::string& unitKey)
{
    if (!canRead())
        return {};
    return buildHistory(versions(unitKey), writes(unitKey));
}

std::vector<std::string> SiteStore::writtenUnitKeys()
{
    std::vector<std::string> keys;
    if (!canRead())
        return keys;
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    if (query.exec(QStringLiteral("SELECT DISTINCT unit_key FROM writes ORDER BY unit_key"))) {
        while (query.next())
            keys.push_back(text(query.value(0)));
    }
    return keys;
}

bool SiteStore::holdsNothing()
{
    return units().empty() && writtenUnitKeys().empty() && activity(Time{}).empty();
}

std::vector<ActivityEntry> SiteStore::activity(Time since)
{
    std::vector<ActivityEntry> entries;
    if (!canRead())
        return entries;
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    query.prepare(QStringLiteral("SELECT at_ms, message FROM activity WHERE at_ms >= ? ORDER BY at_ms"));
    query.addBindValue(QVariant::fromValue<qint64>(msOf(since)));
    if (query.exec()) {
        while (query.next())
            entries.push_back({timeOf(query.value(0)), text(query.value(1))});
    }
    return entries;
}

std::vector<ActivityEntry> SiteStore::activityBefore(Time before, std::size_t count)
{
    std::vector<ActivityEntry> entries;
    if (state_ == StoreState::Unavailable || count == 0)
        return entries;
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    query.prepare(QStringLiteral("SELECT at_ms, message FROM activity WHERE at_ms < ? ORDER BY at_ms DESC LIMIT ?"));
    query.addBindValue(QVariant::fromValue<qint64>(msOf(before)));
    query.addBindValue(QVariant::fromValue<qint64>(static_cast<qint64>(count)));
    if (query.exec()) {
        while (query.next())
            entries.push_back({timeOf(query.value(0)), text(query.value(1))});
    }
    std::reverse(entries.begin(), entries.end());
    return entries;
}

bool SiteStore::forget(const std::string& unitKey)
{
    if (!canRecord())
        return false;
    auto db = QSqlDatabase::database(connection_, false);
    QSqlError error;
    if (!beginWrite(db, error)) {
        problem_ = error.text();
        noteLostServer();
        return false;
    }
    QSqlQuery query(db);
    int removedUnits = 0;
    bool ok = true;
    for (const auto* table : {"writes", "config_versions", "units"}) {
        query.prepare(QStringLiteral("DELETE FROM %1 WHERE unit_key = ?").arg(QLatin1String(table)));
        query.addBindValue(text(unitKey));
        ok = ok && query.exec();
        if (ok && std::string_view(table) == "units")
            removedUnits = query.numRowsAffected();
    }
    QString failure = ok ? QString() : query.lastError().text();
    if (ok && server_ && !Postgres::announceChange(db, error)) {
        ok = false;
        failure = error.text();
    }
    if (!ok || !db.commit()) {
        problem_ = ok ? db.lastError().text() : failure;
        db.rollback();
        noteLostServer();
        return false;
    }
    known_.erase(unitKey);
    return removedUnits > 0;
}

int SiteStore::pruneActivity(Time now)
{
    if (!canRecord())
        return 0;
    QSqlQuery query(QSqlDatabase::database(connection_, false));
    query.prepare(QStringLiteral("DELETE FROM activity WHERE at_ms < ?"));
    query.addBindValue(QVariant::fromValue<qint64>(msOf(now - kActivityKept)));
    return query.exec() ? query.numRowsAffected() : 0;
}

}  // namespace Site
