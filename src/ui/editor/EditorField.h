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
#include "EditorSettings.h"

// What all fields of one editor read and write: the values being edited and
// the unit's latest reported configuration.
struct EditorStore {
    EditorFields fields;
    Vorn::Config live;
};

class EditorField : public QObject {
    Q_OBJECT

    Q_PROPERTY(QString key READ key CONSTANT)
    Q_PROPERTY(bool dirty READ dirty NOTIFY changed)
    Q_PROPERTY(bool valid READ valid NOTIFY changed)
    Q_PROPERTY(bool touched READ touched NOTIFY changed)
    // The units edited together hold different values and the user has not
    // set one: the field shows "Mixed" instead of its value.
    Q_PROPERTY(bool mixed READ mixed NOTIFY changed)

public:
    // `key` names a row of the editable-key table.
    EditorField(std::string_view key, EditorStore& store, QObject* parent);

    // The field's row of the editable-key table.
    const Settings::EditableKey& row() const { return row_; }
    std::string_view unitKey() const { return row_.key; }
    QString key() const { return QString::fromLatin1(unitKey().data(), static_cast<qsizetype>(unitKey().size())); }
    bool dirty() const { return dirty_; }
    bool valid() const;
    bool touched() const { return touched_; }
    bool mixed() const { return mixed_ && !touched_; }
    // Whether the loaded units disagree on this field; set on each load.
    void setMixed(bool mixed) { mixed_ = mixed; }
    // Puts this field's value into `fields`: one unit's fields take the user's edit.
    virtual void copyTo(EditorFields& fields) const = 0;

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
    // The user's value for `member`: when it differs from the one held, the
    // field counts as touched and tells the editor.
    template <typename Value>
    void edit(Value EditorFields::*member, Value value)
    {
        // Any value set on a mixed field is a choice for every unit.
        const bool differs = store_.fields.*member != value || mixed();
        store_.fields.*member = std::move(value);
        if (differs)
            noteEdit();
    }

    EditorStore& store_;

private:
    void noteEdit();
    QVariantList snapshot() const;

    const Settings::EditableKey& row_;
    bool dirty_ = false;
    bool touched_ = false;
    bool mixed_ = false;
    QVariantList announced_;
};

// A field typed as text: addresses, port, channel, password.
class TextField : public EditorField {
    Q_OBJECT

    Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)

public:
    TextField(std::string_view key, EditorStore& store, QObject* parent);

    QString text() const { return QString::fromStdString(store_.fields.*member_); }
    void setText(const QString& text);

protected:
    QVariantList shown() const override { return {text()}; }
    std::string written() const override { return store_.fields.*member_; }
    void copyTo(EditorFields& fields) const override { fields.*member_ = store_.fields.*member_; }

private:
    std::string EditorFields::*member_;
};

// A field holding an integer.
class NumberField : public EditorField {
    Q_OBJECT

    Q_PROPERTY(qint64 value READ value WRITE setValue NOTIFY changed)

public:
    NumberField(std::string_view key, EditorStore& store, QObject* parent);

    qint64 value() const { return store_.fields.*member_; }
    void setValue(qint64 value);

protected:
    QVariantList shown() const override { return {value()}; }
    std::string written() const override;
    void copyTo(EditorFields& fields) const override { fields.*member_ = store_.fields.*member_; }

private:
    std::int64_t EditorFields::*member_;
};

// An integer chosen from a fixed list whose rows are the values 0, 1, ...
class ChoiceField : public NumberField {
    Q_OBJECT

    Q_PROPERTY(QStringList options READ options CONSTANT)
    // The picker row of the value, -1 when no row holds it.
    Q_PROPERTY(int index READ index NOTIFY changed)

public:
    ChoiceField(std::string_view key, QStringList options, EditorStore& store, QObject* parent);

    QStringList options() const { return options_; }
    int index() const;

protected:
    QVariantList shown() const override { return {value(), index()}; }

private:
    QStringList options_;
};

// An integer moved one step at a time inside the type range; a reported
// value outside the range loads as it is and steps back into it.
class StepperField : public NumberField {
    Q_OBJECT

    // "type 3", "gpio 0": the stepper's caption.
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(bool canIncrease READ canIncrease NOTIFY changed)
    Q_PROPERTY(bool canDecrease READ canDecrease NOTIFY changed)
    // The range, for the views that describe it (a screen reader reads it).
    Q_PROPERTY(qint64 minimum READ minimum CONSTANT)
    Q_PROPERTY(qint64 maximum READ maximum CONSTANT)

public:
    // The type steppers' range.
    static constexpr std::int64_t kMinimum = Settings::kTypeMinimum;
    static constexpr std::int64_t kMaximum = Settings::kTypeMaximum;

    // `caption` holds %1 for the value: "type %1".
    StepperField(std::string_view key, QString caption, EditorStore& store, QObject* parent);

    QString title() const;
    static qint64 minimum() { return kMinimum; }
    static qint64 maximum() { return kMaximum; }
    bool canIncrease() const { return stepped(value(), 1) != value(); }
    bool canDecrease() const { return stepped(value(), -1) != value(); }
    // One press: `delta` is +1 or -1.
    Q_INVOKABLE void step(int delta);

    // One step: the value moves by `delta` and lands inside the range (a
    // reported 12 steps down to 9); a step away from the range, or past its
    // end, leaves the value as it is.
    static std::int64_t stepped(std::int64_t value, int delta);

protected:
    QVariantList shown() const override { return {value(), title(), canIncrease(), canDecrease()}; }

private:
    QString caption_;
};

// An on/off field.
class SwitchField : public EditorField {
    Q_OBJECT

    Q_PROPERTY(bool checked READ checked WRITE setChecked NOTIFY changed)

public:
    SwitchField(std::string_view key, EditorStore& store, QObject* parent);

    bool checked() const { return store_.fields.*member_; }
    void setChecked(bool checked);

protected:
    QVariantList shown() const override { return {checked()}; }
    std::string written() const override;
    void copyTo(EditorFields& fields) const override { fields.*member_ = store_.fields.*member_; }

private:
    bool EditorFields::*member_;
};
