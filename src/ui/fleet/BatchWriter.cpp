// SPDX-License-Identifier: Apache-2.0
#include "BatchWriter.h"

#include <algorithm>

#include "FleetValues.h"
#include "TranslatedMessage.h"
#include "ValueSafety.h"
#include "WindowRecorder.h"

BatchWriter::BatchWriter(QObject* parent) : QAbstractListModel(parent)
{
    connect(&links_, &LinkSlot::aboutToSwitch, this, &BatchWriter::clear);
    // The verdicts settle on replies and on the deadline, as a single save's does.
    connect(&links_, &LinkSlot::changed, this, &BatchWriter::judgeAll);
}

BatchWriter::~BatchWriter() = default;

void BatchWriter::setClient(VornClient* client)
{
    if (links_.useClient(client))
        emit clientChanged();
}

void BatchWriter::setLink(EditorLink* link)
{
    links_.useLink(link);
}

void BatchWriter::write(const std::vector<UnitWrite>& units)
{
    EditorLink* link = links_.link();
    if (!link)
        return;
    beginResetModel();
    rows_.clear();
    rows_.reserve(units.size());
    for (const auto& unit : units) {
        Row row;
        row.address = QString::fromStdString(unit.address);
        const auto device = link->unit(unit.address);
        row.title = device ? device->title() : row.address;
        row.serial = device ? Site::serialOf(device->config) : std::string();
        row.changes = unit.changes;
        // The client would refuse it too, silently; the list says why.
        const Vorn::Config live = device ? device->config : Vorn::Config{};
        if (auto refused = Settings::writeRefusal(unit.changes, Settings::overlay(live, unit.changes)))
            row.refused = translatedText(*refused);
        row.verdict = std::make_unique<SaveVerdict>();
        row.verdict->setLink(link);
        rows_.push_back(std::move(row));
    }
    endResetModel();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        Row& row = rows_[i];
        const int at = static_cast<int>(i);
        connect(row.verdict.get(), &SaveVerdict::changed, this, [this, at] {
            emit dataChanged(index(at), index(at));
            emit progressChanged();
        });
        // Into the unit's history, as a save from the editor goes.
        connect(row.verdict.get(), &SaveVerdict::settled, this, [this, at] {
            const Row& settled = rows_[static_cast<std::size_t>(at)];
            WindowRecorder::recordWrite(*settled.verdict, settled.serial, settled.address.toStdString());
        });
        if (row.changes.empty() || !row.refused.isEmpty())
            continue;
        const std::string address = row.address.toStdString();
        link->write(address, row.changes);
        row.verdict->track(address, row.changes);
    }
    emit progressChanged();
}

void BatchWriter::clear()
{
    if (rows_.empty())
        return;
    beginResetModel();
    rows_.clear();
    endResetModel();
    emit progressChanged();
}

void BatchWriter::judgeAll()
{
    for (auto& row : rows_)
        row.verdict->judge();
}

int BatchWriter::waiting() const
{
    return static_cast<int>(std::count_if(rows_.begin(), rows_.end(), [](const Row& row) {
        return row.verdict->kind() == SaveVerdict::Kind::Waiting;
    }));
}

int BatchWriter::confirmed() const
{
    return static_cast<int>(std::count_if(rows_.begin(), rows_.end(), [](const Row& row) {
        return row.verdict->kind() == SaveVerdict::Kind::Confirmed;
    }));
}

int BatchWriter::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant BatchWriter::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    const SaveVerdict& verdict = *row.verdict;
    switch (role) {
    case AddressRole:
        return row.address;
    case Qt::DisplayRole:
    case TitleRole:
        return row.title;
    case KindRole:
        return static_cast<int>(verdict.kind());
    case VerdictRole:
        if (verdict.kind() == SaveVerdict::Kind::Waiting)
            return tr("Waiting for the unit\u2026");
        if (!row.refused.isEmpty())
            return tr("Not written: %1").arg(row.refused);
        if (verdict.kind() == SaveVerdict::Kind::None)
            return tr("Nothing to change");
        return verdict.text();
    case DetailsRole:
        return verdict.details();
    default:
        return {};
    }
}

QHash<int, QByteArray> BatchWriter::roleNames() const
{
    return {{AddressRole, "address"}, {TitleRole, "title"},    {KindRole, "kind"},
            {VerdictRole, "verdict"}, {DetailsRole, "details"}};
}
