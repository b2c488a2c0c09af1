// SPDX-License-Identifier: Apache-2.0
#include "UnitHistory.h"

#include <QCoreApplication>
#include <QDateTime>

#include "EditableKeys.h"
#include "SiteHistory.h"
#include "WindowRecorder.h"

namespace {

// Every list there is, to read again when another workstation changed the store.
std::vector<UnitHistory*> lists;

QString text(const std::string& value)
{
    return QString::fromStdString(value);
}

QString timeText(Site::Time time)
{
    return QDateTime::fromMSecsSinceEpoch(
               std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count())
        .toLocalTime()
        .toString(UnitHistory::tr("yyyy-MM-dd HH:mm:ss", "the time of a configuration version"));
}

}  // namespace

UnitHistory::UnitHistory(QObject* parent) : QAbstractListModel(parent), recorder_(WindowRecorder::current())
{
    // After the event at hand: the reply that changed the unit is handed to
    // the store first, and a burst of replies reads once.
    reloadSoon_.setSingleShot(true);
    reloadSoon_.setInterval(0);
    connect(&reloadSoon_, &QTimer::timeout, this, &UnitHistory::reload);
    lists.push_back(this);
}

UnitHistory::~UnitHistory()
{
    std::erase(lists, this);
}

void UnitHistory::storeChangedElsewhere()
{
    for (auto* list : lists)
        list->reloadSoon_.start();
}

int UnitHistory::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

QVariant UnitHistory::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const auto& entry = entries_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case TimeRole: return timeText(entry.at);
    case CauseRole: return causeText(entry);
    case ChangesRole: return changeLines(entry);
    default: return {};
    }
}

QHash<int, QByteArray> UnitHistory::roleNames() const
{
    return {{TimeRole, "time"}, {CauseRole, "cause"}, {ChangesRole, "changes"}};
}

void UnitHistory::setEditor(DeviceEditor* editor)
{
    if (editor_ == editor)
        return;
    if (editor_)
        disconnect(editor_, nullptr, this, nullptr);
    editor_ = editor;
    if (editor_) {
        connect(editor_, &DeviceEditor::ipChanged, &reloadSoon_, qOverload<>(&QTimer::start));
        connect(editor_, &DeviceEditor::liveChanged, &reloadSoon_, qOverload<>(&QTimer::start));
        connect(editor_->verdict(), &SaveVerdict::settled, this, &UnitHistory::recordVerdict);
    }
    emit editorChanged();
    reloadSoon_.start();
}

void UnitHistory::setShowPasswords(bool show)
{
    if (showPasswords_ == show)
        return;
    showPasswords_ = show;
    emit showPasswordsChanged();
    if (!entries_.empty())
        emit dataChanged(index(0), index(rowCount() - 1), {ChangesRole});
}

void UnitHistory::reload()
{
    const std::uint64_t generation = ++generation_;
    if (!recorder_ || !editor_ || editor_->ip().isEmpty()) {
        take(generation, std::nullopt, {});
        return;
    }
    const std::string serial = Site::serialOf(editor_->liveConfig());
    const std::string name = serial.empty() ? editor_->ip().toStdString() : serial;
    QPointer<UnitHistory> self(this);
    recorder_->run([self, generation, name](Site::SiteStore& store) {
        const auto unit = store.findUnit(name);
        auto entries = unit ? store.history(unit->key) : std::vector<Site::HistoryEntry>{};
        // Back on the window's thread; the list may be gone by then.
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [self, generation, unit, entries = std::move(entries)]() mutable {
                if (self)
                    self->take(generation, std::move(unit), std::move(entries));
            },
            Qt::QueuedConnection);
    });
}

QString UnitHistory::firstSeen() const
{
    return unit_ ? timeText(unit_->firstSeen) : QString();
}

QString UnitHistory::lastSeen() const
{
    return unit_ ? timeText(unit_->lastSeen) : QString();
}

void UnitHistory::take(std::uint64_t generation, std::optional<Site::RememberedUnit> unit,
                       std::vector<Site::HistoryEntry> entries)
{
    if (generation != generation_)
        return;
    beginResetModel();
    unit_ = std::move(unit);
    entries_ = std::move(entries);
    endResetModel();
    emit loaded();
}

void UnitHistory::restore(int row)
{
    if (!editor_ || row < 0 || row >= rowCount())
        return;
    editor_->takeValues(entries_[static_cast<std::size_t>(row)].config);
}

void UnitHistory::recordVerdict()
{
    if (!editor_)
        return;
    WindowRecorder::recordWrite(*editor_->verdict(), Site::serialOf(editor_->liveConfig()), editor_->ip().toStdString());
    reloadSoon_.start();
}

QString UnitHistory::verdictText(const Site::WriteRecord& write)
{
    switch (write.verdict) {
    case Site::Verdict::Confirmed: return tr("confirmed");
    case Site::Verdict::NoAnswer: return tr("no answer");
    case Site::Verdict::Moved: return tr("moved");
    case Site::Verdict::NotConfirmed: break;
    }
    QStringList keys;
    for (const auto& key : write.unconfirmedKeys)
        keys << text(key);
    return tr("not confirmed: %1").arg(keys.join(QStringLiteral(", ")));
}

QString UnitHistory::causeText(const Site::HistoryEntry& entry) const
{
    // On a shared site the computer that heard a version tells where to look.
    const QString heardOn = text(entry.host);
    if (entry.cause == Site::Cause::FirstSeen)
        return heardOn.isEmpty() ? tr("First seen") : tr("First seen on %1").arg(heardOn);
    if (!entry.write) {
        return heardOn.isEmpty() ? tr("Changed outside VornLink")
                                 : tr("Changed outside VornLink · heard on %1").arg(heardOn);
    }
    const auto& write = *entry.write;
    const QString verdict = verdictText(write);
    const QString user = text(write.user);
    const QString host = text(write.host);
    if (write.program == "vornlink")
        return tr("Saved from VornLink by %1 on %2 · %3").arg(user, host, verdict);
    return tr("Set by %1 by %2 on %3 · %4").arg(text(write.program), user, host, verdict);
}

QStringList UnitHistory::changeLines(const Site::HistoryEntry& entry) const
{
    QStringList lines;
    for (const auto& change : entry.changes) {
        const bool hidden = Settings::isSecret(change.key) && !showPasswords_;
        const auto shown = [hidden](const std::string& value) {
            if (value.empty())
                return QStringLiteral("—");
            return hidden ? QStringLiteral("••••") : text(value);
        };
        lines << tr("%1: %2 → %3").arg(text(change.key), shown(change.from), shown(change.to));
    }
    return lines;
}
