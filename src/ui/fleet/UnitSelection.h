// SPDX-License-Identifier: Apache-2.0
// Which units of the sidebar list are selected, as the user's clicks and keys
// set it: a plain click selects one unit, Ctrl+click toggles one, Shift+click
// selects the range from the last clicked unit, select-all takes every listed
// unit and Shift+Up/Down extends the range by a row. Kept by a
// QItemSelectionModel on the list's model, so it follows rows as units are
// added and moved; read back as the units' addresses.
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
    Q_PROPERTY(QAbstractItemModel* model READ model WRITE setModel NOTIFY modelChanged)
    Q_PROPERTY(int count READ count NOTIFY changed)
    // The selected units' addresses in list order.
    Q_PROPERTY(QStringList addresses READ addresses NOTIFY changed)
    // The unit a single-unit view shows: the only selected unit, else the last
    // one clicked or reached by a key while it is selected, else the first
    // selected, else "".
    Q_PROPERTY(QString primary READ primary NOTIFY changed)
    // Steps on every change, for bindings that call contains().
    Q_PROPERTY(int revision READ revision NOTIFY changed)

public:
    explicit UnitSelection(QObject* parent = nullptr);

    QAbstractItemModel* model() const { return model_; }
    void setModel(QAbstractItemModel* model);

    int count() const { return static_cast<int>(addresses_.size()); }
    QStringList addresses() const { return addresses_; }
    QString primary() const;
    int revision() const { return revision_; }

    // A click on `row` with the keyboard modifiers held (Qt::KeyboardModifiers).
    Q_INVOKABLE void click(int row, int modifiers);
    Q_INVOKABLE void selectAll();
    // Moves the end of the range by `step` rows (Shift+Up is -1), keeping its start.
    Q_INVOKABLE void extend(int step);
    Q_INVOKABLE void clear();
    Q_INVOKABLE bool contains(const QString& address) const { return selected_.contains(address); }

signals:
    void modelChanged();
    void changed();

private:
    QModelIndex rowIndex(int row) const;
    void selectRange(const QModelIndex& from, const QModelIndex& to);
    QStringList selectedAddresses() const;
    // Takes the selection as it is now and announces it.
    void collect();
    // After rows were listed: announces only if the selected addresses changed.
    void followListing();

    QItemSelectionModel selection_;
    QAbstractItemModel* model_ = nullptr;
    QPersistentModelIndex anchor_;
    QStringList addresses_;
    QSet<QString> selected_;
    int revision_ = 0;
};
