// SPDX-License-Identifier: Apache-2.0
// One editable field of the editor: the unit's key it writes, its value in
// the shared EditorFields, whether it differs from the unit's live value
// (dirty), whether it may be sent as it is (valid) and whether the user
// changed it since the last load (touched). In the editor of several units a
// field whose units disagree is mixed until the user sets it. Every field announces `changed`
// only when something it shows really changed.
#pragma once

#include <string_view>
#include <utility>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include "EditableKeys.h"
#include "EditorFields.h"
#include "EditorSettings.h"

// What all fields of one editor read and write: the values being edited and
// the unit's latest reported configuration.
struct EditorStore {
    EditorFields fields;
    Vorn::Config live;
};

class EditorField : public QObject {
    Q_OBJECT

    Q_PROPERTY(QString key READ key CONSTANT FINAL)
    Q_PROPERTY(bool dirty READ dirty NOTIFY changed FINAL)
    Q_PROPERTY(bool valid READ valid NOTIFY changed FINAL)
    Q_PROPERTY(bool touched READ touched NOTIFY changed FINAL)
    // The units edited together hold different values and the user has not
    // set one: the field shows "Mixed" instead of its value.
    Q_PROPERTY(bool mixed READ mixed NOTIFY changed FINAL)

public:
    // `key` names a row of the editable-key table.
    EditorField(std::string_view key, EditorStore& store, QObject* parent);

    // The field's row of the editable-key table.
    const Settings::EditableKey& row() const { return Settings::kEditableKeys[index_]; }
    std::string_view unitKey() const { return row().key; }
    QString key() const { return QString::fromLatin1(unitKey().data(), static_cast<qsizetype>(unitKey().size())); }
    bool dirty() const { return dirty_; }
    bool valid() const;
    bool touched() const { return touched_; }
    bool mixed() const { return mixed_ && !touched_; }
    // Whether the loaded units disagree on this field; set on each load.
    void setMixed(bool mixed) { mixed_ = mixed; }
    // Puts this field's value into `fields`: one unit's fields take the user's edit.
    void copyTo(EditorFields& fields) const { fields.at(index_) = held(); }

    // Takes the comparison's verdict for this key and announces what changed.
    void refresh(bool dirty);
    // After a load nothing is touched.
    void untouch();

signals:
    void changed();
    // The user set a value that differs from the one held.
    void edited();

protected:
    // Everything the field shows besides dirty, valid and touched.
    virtual QVariantList shown() const = 0;
    // The value as it would be written; checked by the settings core's rules.
    virtual std::string written() const = 0;
    // The value held for this field's key.
    const FieldValue& held() const { return store_.fields.at(index_); }
    // The user's value: when it differs from the one held, the field counts
    // as touched and tells the editor.
    void edit(FieldValue value);

    EditorStore& store_;

private:
    QVariantList snapshot() const;

    // The row's place in the table, and the value's in the store.
    std::size_t index_;
    bool dirty_ = false;
    bool touched_ = false;
    bool mixed_ = false;
    QVariantList announced_;
};

// A field typed as text: addresses, port, channel, password.
class TextField : public EditorField {
    Q_OBJECT

    Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed FINAL)

public:
    TextField(std::string_view key, EditorStore& store, QObject* parent);

    QString text() const { return QString::fromStdString(std::get<std::string>(held())); }
    void setText(const QString& text);

protected:
    QVariantList shown() const override { return {text()}; }
    std::string written() const override { return std::get<std::string>(held()); }
};

// A field holding an integer.
class NumberField : public EditorField {
    Q_OBJECT

    Q_PROPERTY(qint64 value READ value WRITE setValue NOTIFY changed FINAL)

public:
    NumberField(std::string_view key, EditorStore& store, QObject* parent);

    qint64 value() const { return std::get<std::int64_t>(held()); }
    void setValue(qint64 value);

protected:
    QVariantList shown() const override { return {value()}; }
    std::string written() const override;
};

// An integer chosen from its row's list of options, whose rows are the values 0, 1, ...
class ChoiceField : public NumberField {
    Q_OBJECT

    // The options' texts, translated.
    Q_PROPERTY(QStringList options READ options CONSTANT FINAL)
    // The picker row of the value, -1 when no row holds it.
    Q_PROPERTY(int index READ index NOTIFY changed FINAL)

public:
    ChoiceField(std::string_view key, EditorStore& store, QObject* parent);

    QStringList options() const { return options_; }
    int index() const;

protected:
    QVariantList shown() const override { return {value(), index()}; }

private:
    QStringList options_;
};

// An integer moved one step at a time inside its row's range; a reported
// value outside the range loads as it is and steps back into it.
class StepperField : public NumberField {
    Q_OBJECT

    // "type 3", "gpio 0": the row's caption with the value.
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    Q_PROPERTY(bool canIncrease READ canIncrease NOTIFY changed FINAL)
    Q_PROPERTY(bool canDecrease READ canDecrease NOTIFY changed FINAL)
    // The range, for the views that describe it (a screen reader reads it);
    // ints, since a stepper's range is small and QML compiles ints, not qint64.
    Q_PROPERTY(int minimum READ minimum CONSTANT FINAL)
    Q_PROPERTY(int maximum READ maximum CONSTANT FINAL)

public:
    StepperField(std::string_view key, EditorStore& store, QObject* parent);

    QString title() const;
    int minimum() const { return static_cast<int>(row().minimum); }
    int maximum() const { return static_cast<int>(row().maximum); }
    bool canIncrease() const { return stepped(value(), 1) != value(); }
    bool canDecrease() const { return stepped(value(), -1) != value(); }
    // One press: `delta` is +1 or -1.
    Q_INVOKABLE void step(int delta);

    // One step: the value moves by `delta` and lands inside the range (a
    // reported 12 steps down to 9); a step away from the range, or past its
    // end, leaves the value as it is.
    std::int64_t stepped(std::int64_t value, int delta) const;

protected:
    QVariantList shown() const override { return {value(), title(), canIncrease(), canDecrease()}; }
};

// An on/off field.
class SwitchField : public EditorField {
    Q_OBJECT

    Q_PROPERTY(bool checked READ checked WRITE setChecked NOTIFY changed FINAL)

public:
    SwitchField(std::string_view key, EditorStore& store, QObject* parent);

    bool checked() const { return std::get<bool>(held()); }
    void setChecked(bool checked);

protected:
    QVariantList shown() const override { return {checked()}; }
    std::string written() const override;
};
