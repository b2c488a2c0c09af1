// SPDX-License-Identifier: Apache-2.0
// One section of the editor (tally, communication, network): its fields, its
// part of the comparison with the unit's live configuration, and whether it
// differs (dirty) and may be sent (valid). A section declares each field once
// with EDITOR_FIELD; the field is then a QML property of the section, a C++
// member and an entry of fields().
#pragma once

#include <span>
#include <vector>

#include <QObject>

#include "EditorField.h"

// Declares a field of the section: EDITOR_FIELD(TextField, channel, key, &EditorFields::channel).
// The arguments after the name are those of the field's constructor before the store.
#define EDITOR_FIELD(Type, name, ...)                  \
    Q_PROPERTY(Type* name READ name##Field CONSTANT)   \
                                                       \
public:                                                \
    Type* name##Field() const { return name; }         \
    Type* const name = add<Type>(__VA_ARGS__);

class EditorSection : public QObject {
    Q_OBJECT

    Q_PROPERTY(bool dirty READ dirty NOTIFY changed)
    Q_PROPERTY(bool valid READ valid NOTIFY changed)

public:
    const std::vector<EditorField*>& fields() const { return fields_; }

    // The keys of this section as the settings core compares them, in its order.
    std::vector<KeyComparison> comparison() const;
    bool dirty() const { return dirty_; }
    bool valid() const { return valid_; }

    // Re-reads the store: every field and the section announce what changed.
    void refresh();
    // After a load nothing is touched.
    void untouch();

signals:
    void changed();
    // A field was set to another value by the user.
    void edited();

protected:
    EditorSection(EditorStore& store, QObject* parent);

    // The settings core's comparison this section takes its keys from.
    virtual std::vector<KeyComparison> coreComparison() const = 0;
    // What the section shows besides dirty and valid, for change announcement.
    virtual QVariantList shown() const { return {}; }

    template <typename Field, typename... Args>
    Field* add(Args&&... args)
    {
        auto* field = new Field(std::forward<Args>(args)..., store_, this);
        fields_.push_back(field);
        connect(field, &EditorField::edited, this, &EditorSection::edited);
        return field;
    }

    EditorStore& store_;

private:
    std::vector<EditorField*> fields_;
    bool dirty_ = false;
    bool valid_ = true;
    QVariantList announced_;
};
