// SPDX-License-Identifier: Apache-2.0
// The History tab's list: the editor's unit's stored configuration versions,
// newest first, each with its time, its cause and its key changes. The store
// is read on its own thread and the rows arrive later; the list reads again
// when the unit or its reported configuration changes. It also records the
// editor's own writes with their verdict, so that a save from this window is
// named as such, and "Restore this version…" puts a version into the editor
// as unsaved changes, as an import does.
#pragma once

#include <QAbstractListModel>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <vector>

#include "DeviceEditor.h"
#include "SiteRecorder.h"
#include "SiteTypes.h"

class UnitHistory : public QAbstractListModel {
    Q_OBJECT

    Q_PROPERTY(DeviceEditor* editor READ editor WRITE setEditor NOTIFY editorChanged)
    // CallMagic values are shown instead of "••••".
    Q_PROPERTY(bool showPasswords READ showPasswords WRITE setShowPasswords NOTIFY showPasswordsChanged)
    // Whether there is a store to read at all (not with --no-site).
    Q_PROPERTY(bool remembering READ remembering CONSTANT)
    Q_PROPERTY(int count READ count NOTIFY loaded)
    // When the store first and last heard the unit, as the Details tab shows
    // them; "" while it holds nothing of the unit.
    Q_PROPERTY(QString firstSeen READ firstSeen NOTIFY loaded)
    Q_PROPERTY(QString lastSeen READ lastSeen NOTIFY loaded)

public:
    enum Role { TimeRole = Qt::UserRole + 1, CauseRole, ChangesRole };

    explicit UnitHistory(QObject* parent = nullptr);
    ~UnitHistory() override;

    // Every list reads again: another workstation stored something.
    static void storeChangedElsewhere();
    // "confirmed", "not confirmed: Channel, …", as the list says a write's verdict.
    static QString verdictText(const Site::WriteRecord& write);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    DeviceEditor* editor() const { return editor_; }
    void setEditor(DeviceEditor* editor);
    bool showPasswords() const { return showPasswords_; }
    void setShowPasswords(bool show);
    bool remembering() const { return recorder_ != nullptr; }
    int count() const { return rowCount(); }
    QString firstSeen() const;
    QString lastSeen() const;

    // Reads the unit's history again.
    Q_INVOKABLE void reload();
    // Puts the version at `row` into the editor's fields as unsaved changes.
    Q_INVOKABLE void restore(int row);

signals:
    void editorChanged();
    void showPasswordsChanged();
    // New rows arrived from the store.
    void loaded();

private:
    void recordVerdict();
    void take(std::uint64_t generation, std::optional<Site::RememberedUnit> unit,
              std::vector<Site::HistoryEntry> entries);
    QString causeText(const Site::HistoryEntry& entry) const;
    QStringList changeLines(const Site::HistoryEntry& entry) const;

    Site::SiteRecorder* recorder_;
    QPointer<DeviceEditor> editor_;
    bool showPasswords_ = false;
    std::optional<Site::RememberedUnit> unit_;
    std::vector<Site::HistoryEntry> entries_;
    // Answers to an older reading (another unit) are dropped.
    std::uint64_t generation_ = 0;
    QTimer reloadSoon_;
};
