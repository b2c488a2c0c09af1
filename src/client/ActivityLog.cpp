// SPDX-License-Identifier: Apache-2.0
#include "ActivityLog.h"

#include <utility>

ActivityLog::ActivityLog(qsizetype limit, QObject* parent) : QAbstractListModel(parent), limit_(limit) {}

int ActivityLog::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant ActivityLog::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    if (role == LineRole || role == Qt::DisplayRole)
        return lines_.at(index.row());
    return {};
}

QHash<int, QByteArray> ActivityLog::roleNames() const
{
    return {{LineRole, "line"}};
}

void ActivityLog::append(const QString& line)
{
    held_.append(line);
    if (held_.size() > limit_)
        held_.remove(0, held_.size() - limit_);
    if (holds_ == 0)
        announce();
}

void ActivityLog::insertEarlier(QStringList earlier)
{
    const qsizetype room = limit_ - lines_.size() - held_.size();
    if (room <= 0 || earlier.isEmpty())
        return;
    if (earlier.size() > room)
        earlier.remove(0, earlier.size() - room);
    beginInsertRows({}, 0, static_cast<int>(earlier.size()) - 1);
    lines_ = earlier + lines_;
    endInsertRows();
    emit countChanged();
    emit changed();
}

void ActivityLog::hold()
{
    ++holds_;
}

void ActivityLog::release()
{
    if (holds_ > 0 && --holds_ == 0 && !held_.isEmpty())
        announce();
}

QStringList ActivityLog::lines() const
{
    QStringList all = lines_ + held_;
    if (all.size() > limit_)
        all.remove(0, all.size() - limit_);
    return all;
}

QString ActivityLog::text() const
{
    return lines().join(u'\n');
}

// One removal of the oldest lines that no longer fit and one insertion of the
// new ones; a batch that alone fills the log replaces it in one reset.
void ActivityLog::announce()
{
    const QStringList incoming = std::exchange(held_, {});
    const int countBefore = count();
    if (incoming.size() >= limit_) {
        beginResetModel();
        lines_ = incoming;
        endResetModel();
    } else {
        const qsizetype overflow = lines_.size() + incoming.size() - limit_;
        if (overflow > 0) {
            beginRemoveRows({}, 0, static_cast<int>(overflow - 1));
            lines_.remove(0, overflow);
            endRemoveRows();
        }
        beginInsertRows({}, count(), count() + static_cast<int>(incoming.size()) - 1);
        lines_.append(incoming);
        endInsertRows();
    }
    if (count() != countBefore)
        emit countChanged();
    emit changed();
}
