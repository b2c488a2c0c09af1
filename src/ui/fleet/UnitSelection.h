// SPDX-License-Identifier: Apache-2.0
// The one owner of which units the window shows: the selected units of the
// sidebar list and the current unit, the one the single-unit views show. The
// user's clicks and keys set it: a plain click selects one unit, Ctrl+click
// toggles one, Shift+click selects the range from the last clicked unit,
// select-all takes every listed unit and Shift+Up/Down extends the range by a
// row; "Add by IP", "Show" after a move and the remembered last unit show one
// address, which need not be listed yet. Kept by a QItemSelectionModel on the
// list's model, so it follows rows as units are added and moved; read back as
// the units' addresses.
#pragma once

#include <QAbstractItemModel>
#include <QItemSelectionModel>
#include <QObject>
#include <QPersistentModelIndex>
#include <QSet>
#include <QString>
#include <QStringList>

class UnitSelection : public QObject {
    Q_OBJECT
    Q_PROPERTY(QAbstractItemModel* model READ model WRITE setModel NOTIFY modelChanged FINAL)
    Q_PROPERTY(int count READ count NOTIFY changed FINAL)
    // The selected units' addresses in list order.
    Q_PROPERTY(QStringList addresses READ addresses NOTIFY changed FINAL)
    // The unit a single-unit view shows: the only selected unit, else the last
    // one clicked or reached by a key while it is selected, else the first
    // selected; with none selected, the address last shown that is not listed
    // yet, else "".
    Q_PROPERTY(QString current READ current NOTIFY currentChanged FINAL)
    // Steps on every change, for bindings that call contains().
    Q_PROPERTY(int revision READ revision NOTIFY changed FINAL)

public:
    explicit UnitSelection(QObject* parent = nullptr);

    QAbstractItemModel* model() const { return model_; }
    void setModel(QAbstractItemModel* model);

    int count() const { return static_cast<int>(addresses_.size()); }
    QStringList addresses() const { return addresses_; }
    QString current() const { return current_; }
    int revision() const { return revision_; }

    // A click on `row` with the keyboard modifiers held (Qt::KeyboardModifiers).
    Q_INVOKABLE void click(int row, int modifiers);
    Q_INVOKABLE void selectAll();
    // Moves the end of the range by `step` rows (Shift+Up is -1), keeping its start.
    Q_INVOKABLE void extend(int step);
    Q_INVOKABLE void clear();
    // Shows the unit at `address` alone: its row selected when it is listed;
    // otherwise nothing selected, and the row is selected once it is listed.
    // An empty address clears.
    Q_INVOKABLE void show(const QString& address);
    Q_INVOKABLE bool contains(const QString& address) const { return selected_.contains(address); }

signals:
    void modelChanged();
    void changed();
    void currentChanged();

private:
    QModelIndex rowIndex(int row) const;
    void selectRange(const QModelIndex& from, const QModelIndex& to);
    QStringList selectedAddresses() const;
    QString primary() const;
    // The listed row of `address`, or an invalid index.
    QModelIndex rowOf(const QString& address) const;
    // Selects `index` alone and starts a range there.
    void selectAlone(const QModelIndex& index);
    // Takes the selection as it is now and announces it.
    void collect();
    // After rows were listed: announces only if the selected addresses changed.
    void followListing();

    QItemSelectionModel selection_;
    QAbstractItemModel* model_ = nullptr;
    QPersistentModelIndex anchor_;
    QStringList addresses_;
    QSet<QString> selected_;
    // Shown but not listed yet.
    QString pending_;
    QString current_;
    int revision_ = 0;
};
