// SPDX-License-Identifier: Apache-2.0
// One section of the editor (tally, communication, network): its fields, its
// part of the comparison with the unit's live configuration, and whether it
// differs (dirty) and may be sent (valid). A section declares each field once
// with EDITOR_FIELD; the field is then a QML property of the section, a C++
// member and an entry of fields(). The key's row in the editable-key table
// says which section it belongs to and how it loads and compares.
#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include <QObject>

#include "EditorField.h"

// Declares a field of the section: EDITOR_FIELD(TextField, channel, SettingKeys::kChannel).
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

    // The keys of this section as the settings core compared them at the
    // last refresh, in table order.
    const std::vector<KeyComparison>& comparison() const { return keys_; }
    bool dirty() const { return dirty_; }
    bool valid() const { return valid_; }

    // Compares the section's keys with the store once: every field and the
    // section announce what changed.
    void refresh();
    // After a load nothing is touched.
    void untouch();

signals:
    void changed();
    // A field was set to another value by the user.
    void edited();

protected:
    EditorSection(Settings::Section section, EditorStore& store, QObject* parent);
    // What the section shows besides dirty and valid, for change announcement.
    virtual QVariantList shown() const { return {}; }

    template <typename Field, typename... Args>
    Field* add(Args&&... args)
    {
        auto* field = new Field(std::forward<Args>(args)..., store_, this);
        // The key's row names the section it is edited in.
        if (field->row().section != section_)
            throw std::logic_error("a field in the wrong section: " + std::string(field->unitKey()));
        fields_.push_back(field);
        connect(field, &EditorField::edited, this, &EditorSection::edited);
        return field;
    }

    EditorStore& store_;

private:
    Settings::Section section_;
    std::vector<EditorField*> fields_;
    std::vector<KeyComparison> keys_;
    bool dirty_ = false;
    bool valid_ = true;
    QVariantList announced_;
};
