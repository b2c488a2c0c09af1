// SPDX-License-Identifier: Apache-2.0
#include "RestoreReview.h"

#include <algorithm>

#include "BackupExport.h"
#include "BatchWriter.h"
#include "TranslatedMessage.h"
#include "EditableKeys.h"
#include "EditorHeader.h"
#include "EditorRules.h"
#include "FleetUnits.h"
#include "FleetValues.h"
#include "SettingKeys.h"

namespace {

QStringList qlines(const std::vector<std::string>& lines)
{
    QStringList list;
    for (const auto& line : lines)
        list << QString::fromStdString(line);
    return list;
}

// The unit's own address settings are among the keys to write.
bool touchesNetwork(const Settings::RestoreItem& item)
{
    return std::any_of(item.changes.begin(), item.changes.end(),
                       [](const auto& change) { return Settings::isNetworkKey(change.first); });
}

}  // namespace

RestoreReview::RestoreReview(QObject* parent) : QAbstractListModel(parent) {}

void RestoreReview::setClient(VornClient* client)
{
    if (client == client_)
        return;
    if (client_)
        disconnect(client_, nullptr, this, nullptr);
    client_ = client;
    if (client_) {
        // A unit that answers while the review is open is compared afresh.
        connect(client_, &VornClient::deviceAdded, this, &RestoreReview::replan);
        connect(client_, &VornClient::devicesUpdated, this, &RestoreReview::replan);
    }
    replan();
    emit clientChanged();
}

bool RestoreReview::open(const QUrl& file)
{
    const QString path = localPath(file);
    auto read = Settings::readBackupFile(path.toStdString());
    beginResetModel();
    fileName_ = path;
    if (const auto* problem = std::get_if<Settings::BackupError>(&read)) {
        error_ = translatedText(problem->message);
        backup_ = {};
    } else {
        error_.clear();
        backup_ = std::get<Settings::Backup>(std::move(read));
    }
    checked_.assign(backup_.units.size(), true);
    otherAllowed_.assign(backup_.units.size(), false);
    plan();
    endResetModel();
    emit planChanged();
    emit loaded();
    return error_.isEmpty();
}

void RestoreReview::plan()
{
    live_ = client_ ? liveUnitsOf(*client_) : std::vector<Settings::LiveUnit>{};
    plan_ = Settings::planRestore(backup_, live_, includeNetwork_);
}

void RestoreReview::replan()
{
    // Without a file there is nothing to compare; replies come all the time.
    if (backup_.units.empty())
        return;
    // One row per unit of the file whatever the live units: rows only change.
    plan();
    if (!plan_.empty())
        emit dataChanged(index(0), index(rowCount() - 1));
    emit planChanged();
}

void RestoreReview::setIncludeNetwork(bool include)
{
    if (include == includeNetwork_)
        return;
    includeNetwork_ = include;
    emit includeNetworkChanged();
    replan();
}

void RestoreReview::setChecked(int row, bool checked)
{
    if (row < 0 || row >= rowCount() || checked_[static_cast<std::size_t>(row)] == checked)
        return;
    checked_[static_cast<std::size_t>(row)] = checked;
    emit dataChanged(index(row), index(row), {CheckedRole});
    emit planChanged();
}

void RestoreReview::setOtherAllowed(int row, bool allowed)
{
    if (row < 0 || row >= rowCount() || otherAllowed_[static_cast<std::size_t>(row)] == allowed)
        return;
    otherAllowed_[static_cast<std::size_t>(row)] = allowed;
    emit dataChanged(index(row), index(row), {CheckableRole, CheckedRole, OtherAllowedRole});
    emit planChanged();
}

bool RestoreReview::checkable(std::size_t row) const
{
    const auto& item = plan_[row];
    // Another unit's settings never land on a unit without the user's word.
    const bool allowed = item.match.by != Settings::MatchedBy::OtherSerial || otherAllowed_[row];
    return item.match.live && !item.changes.empty() && !item.sharesTarget && allowed;
}

int RestoreReview::checkedCount() const
{
    int count = 0;
    for (std::size_t row = 0; row < plan_.size(); ++row)
        count += writes(row) ? 1 : 0;
    return count;
}

bool RestoreReview::writesNetwork() const
{
    for (std::size_t row = 0; row < plan_.size(); ++row)
        if (writes(row) && touchesNetwork(plan_[row]))
            return true;
    return false;
}

QString RestoreReview::networkTitle() const
{
    int units = 0;
    for (std::size_t row = 0; row < plan_.size(); ++row)
        units += writes(row) && touchesNetwork(plan_[row]) ? 1 : 0;
    return tr("Apply network settings to %n unit(s)?", nullptr, units);
}

QString RestoreReview::networkMessage() const
{
    // The single unit's confirmation, once per unit whose address settings
    // change, then its warning once for all.
    QStringList lines;
    for (std::size_t row = 0; row < plan_.size(); ++row) {
        const auto& item = plan_[row];
        if (!writes(row) || !touchesNetwork(item))
            continue;
        const Vorn::Config after = Settings::overlay(live_[*item.match.live].config, item.changes);
        const auto text = [&](std::string_view key) {
            return QString::fromStdString(EditorRules::liveText(after, key));
        };
        lines << tr("%1 \u2014 %2")
                     .arg(QString::fromStdString(item.liveAddress),
                          EditorHeader::newNetworkSettings(text(SettingKeys::kIPAddress), text(SettingKeys::kNetmask),
                                                           text(SettingKeys::kGateway)));
    }
    return lines.join(u'\n') + QStringLiteral("\n\n") + EditorHeader::networkChangeWarning();
}

void RestoreReview::restore(BatchWriter* writer)
{
    if (!writer)
        return;
    replan();
    std::vector<BatchWriter::UnitWrite> units;
    for (std::size_t row = 0; row < plan_.size(); ++row) {
        if (writes(row))
            units.push_back({plan_[row].liveAddress, plan_[row].changes});
    }
    writer->write(units);
}

int RestoreReview::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(plan_.size());
}

QVariant RestoreReview::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const Settings::RestoreItem& item = plan_[row];
    const Settings::BackupUnit& unit = backup_.units[item.fileUnit];
    const Vorn::Config& live = item.match.live ? live_[*item.match.live].config : Vorn::Config{};
    switch (role) {
    case SerialRole:
        return QString::fromStdString(unit.serial);
    case Qt::DisplayRole:
    case FileAddressRole:
        return QString::fromStdString(unit.address);
    case FoundRole:
        return item.match.live.has_value();
    case MatchRole: {
        if (!item.match.live)
            return tr("not found");
        if (item.match.by == Settings::MatchedBy::OtherSerial)
            return tr("Another unit answers at %1 (serial %2)")
                .arg(QString::fromStdString(item.liveAddress), QString::fromStdString(Settings::reportedSerial(live)));
        QString text = item.match.by == Settings::MatchedBy::Serial ? tr("matched by serial")
                                                                    : tr("matched by address");
        if (item.liveAddress != unit.address)
            text = tr("%1, now at %2").arg(text, QString::fromStdString(item.liveAddress));
        if (item.sharesTarget)
            text = tr("%1 (an earlier unit of the file matched it too)").arg(text);
        return text;
    }
    case DifferencesRole:
        return qlines(Settings::differenceLines(item.changes, live));
    case HeldBackRole:
        return qlines(Settings::differenceLines(item.heldBack, live));
    case CheckableRole:
        return checkable(row);
    case CheckedRole:
        return writes(row);
    case OtherUnitRole:
        return item.match.by == Settings::MatchedBy::OtherSerial;
    case OtherAllowedRole:
        return bool(otherAllowed_[row]);
    default:
        return {};
    }
}

QHash<int, QByteArray> RestoreReview::roleNames() const
{
    return {{SerialRole, "serial"},           {FileAddressRole, "fileAddress"}, {FoundRole, "found"},
            {MatchRole, "match"},             {DifferencesRole, "differences"}, {HeldBackRole, "heldBack"},
            {CheckableRole, "checkable"},     {CheckedRole, "checked"},         {OtherUnitRole, "otherUnit"},
            {OtherAllowedRole, "otherAllowed"}};
}
