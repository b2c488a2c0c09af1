// SPDX-License-Identifier: Apache-2.0
#include "UnitSelection.h"

#include <algorithm>

#include "DeviceListModel.h"

UnitSelection::UnitSelection(QObject* parent) : QObject(parent)
{
    connect(&selection_, &QItemSelectionModel::selectionChanged, this, &UnitSelection::collect);
    connect(&selection_, &QItemSelectionModel::currentChanged, this, &UnitSelection::collect);
    connect(&selection_, &QItemSelectionModel::modelChanged, this, &UnitSelection::modelChanged);
}

void UnitSelection::setModel(QAbstractItemModel* model)
{
    if (model == model_)
        return;
    if (model_)
        disconnect(model_, nullptr, this, nullptr);
    model_ = model;
    selection_.setModel(model);
    anchor_ = QPersistentModelIndex();
    if (model) {
        // A unit's row moves when another is listed or forgotten before it; its address does not.
        connect(model, &QAbstractItemModel::rowsInserted, this, &UnitSelection::followListing);
        connect(model, &QAbstractItemModel::rowsRemoved, this, &UnitSelection::followListing);
        connect(model, &QAbstractItemModel::modelReset, this, &UnitSelection::followListing);
    }
    collect();
    followListing();
}

QModelIndex UnitSelection::rowIndex(int row) const
{
    const auto* model = selection_.model();
    if (!model || row < 0 || row >= model->rowCount())
        return {};
    return model->index(row, 0);
}

void UnitSelection::click(int row, int modifiers)
{
    const QModelIndex index = rowIndex(row);
    if (!index.isValid())
        return;
    const auto held = Qt::KeyboardModifiers(modifiers);
    if (held.testFlag(Qt::ShiftModifier) && anchor_.isValid()) {
        selectRange(anchor_, index);
        selection_.setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        return;
    }
    if (held.testFlag(Qt::ControlModifier)) {
        anchor_ = index;
        selection_.setCurrentIndex(index, QItemSelectionModel::Toggle);
    } else {
        selectAlone(index);
    }
}

void UnitSelection::selectAlone(const QModelIndex& index)
{
    anchor_ = index;
    selection_.setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
}

QModelIndex UnitSelection::rowOf(const QString& address) const
{
    const auto* model = selection_.model();
    if (!model || address.isEmpty())
        return {};
    const QModelIndexList found =
        model->match(model->index(0, 0), DeviceListModel::IpRole, address, 1, Qt::MatchExactly);
    return found.isEmpty() ? QModelIndex() : found.front();
}

void UnitSelection::show(const QString& address)
{
    const QModelIndex index = rowOf(address);
    if (index.isValid()) {
        pending_.clear();
        selectAlone(index);
        return;
    }
    // Not listed yet (a queried address): nothing selected, the address current.
    pending_ = address;
    anchor_ = QPersistentModelIndex();
    selection_.clear();
    collect();
}

void UnitSelection::selectAll()
{
    const auto* model = selection_.model();
    if (!model || model->rowCount() == 0)
        return;
    if (!anchor_.isValid())
        anchor_ = rowIndex(0);
    selectRange(rowIndex(0), rowIndex(model->rowCount() - 1));
}

void UnitSelection::extend(int step)
{
    const auto* model = selection_.model();
    if (!model || model->rowCount() == 0)
        return;
    QModelIndex current = selection_.currentIndex();
    if (!current.isValid())
        current = anchor_.isValid() ? QModelIndex(anchor_) : rowIndex(0);
    if (!anchor_.isValid())
        anchor_ = current;
    const int row = std::clamp(current.row() + step, 0, model->rowCount() - 1);
    const QModelIndex end = rowIndex(row);
    selectRange(anchor_, end);
    selection_.setCurrentIndex(end, QItemSelectionModel::NoUpdate);
}

void UnitSelection::clear()
{
    pending_.clear();
    anchor_ = QPersistentModelIndex();
    selection_.clear();
    collect();
}

void UnitSelection::selectRange(const QModelIndex& from, const QModelIndex& to)
{
    const QModelIndex top = from.row() <= to.row() ? from : to;
    const QModelIndex bottom = from.row() <= to.row() ? to : from;
    selection_.select(QItemSelection(top, bottom), QItemSelectionModel::ClearAndSelect);
}

QString UnitSelection::primary() const
{
    if (addresses_.size() == 1)
        return addresses_.front();
    if (addresses_.isEmpty())
        return {};
    // Ctrl+click can leave the current row unselected.
    const QModelIndex current = selection_.currentIndex();
    return current.isValid() && selection_.isSelected(current) ? current.data(DeviceListModel::IpRole).toString()
                                                               : addresses_.front();
}

QStringList UnitSelection::selectedAddresses() const
{
    QStringList addresses;
    QModelIndexList rows = selection_.selectedRows();
    std::sort(rows.begin(), rows.end(), [](const QModelIndex& a, const QModelIndex& b) { return a.row() < b.row(); });
    for (const QModelIndex& row : rows)
        addresses << row.data(DeviceListModel::IpRole).toString();
    return addresses;
}

void UnitSelection::collect()
{
    addresses_ = selectedAddresses();
    selected_ = QSet<QString>(addresses_.begin(), addresses_.end());
    if (!addresses_.isEmpty())
        pending_.clear();
    ++revision_;
    emit changed();
    const QString current = addresses_.isEmpty() ? pending_ : primary();
    if (current == current_)
        return;
    current_ = current;
    emit currentChanged();
}

void UnitSelection::followListing()
{
    // The address shown before it was listed: its row, now that it is.
    if (!pending_.isEmpty()) {
        const QModelIndex index = rowOf(pending_);
        if (index.isValid()) {
            selectAlone(index);
            return;
        }
    }
    // Every arrival lists a row; the selected addresses rarely change with it,
    // and announcing them would re-run every row's binding per arrival.
    if (selectedAddresses() != addresses_)
        collect();
}
