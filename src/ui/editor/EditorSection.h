// SPDX-License-Identifier: Apache-2.0
// One section of the editor (tally, communication, network): its fields, its
// part of the comparison with the unit's live configuration, and whether it
// differs (dirty) and may be sent (valid). The section makes one field for
// every row of the editable-key table that names it, of the type the row
// asks for; QML reaches a field by its key: section.textField("AtemIp").
#pragma once

#include <string_view>
#include <vector>

#include <QObject>
#include <QString>

#include "EditorField.h"

class EditorSection : public QObject {
    Q_OBJECT

    Q_PROPERTY(bool dirty READ dirty NOTIFY changed FINAL)
    Q_PROPERTY(bool valid READ valid NOTIFY changed FINAL)

public:
    // The fields in table order.
    const std::vector<EditorField*>& fields() const { return fields_; }
    // The field of `key`, or null when this section has none.
    EditorField* field(std::string_view key) const;
    // The field of `key` as the type its row makes, or null.
    template <typename Field>
    Field* fieldAs(std::string_view key) const
    {
        return qobject_cast<Field*>(field(key));
    }

    // The field of `key` by the control that shows it; null when the key's
    // row makes another kind of field or names another section.
    Q_INVOKABLE TextField* textField(const QString& key) const;
    Q_INVOKABLE NumberField* numberField(const QString& key) const;
    Q_INVOKABLE ChoiceField* choiceField(const QString& key) const;
    Q_INVOKABLE StepperField* stepperField(const QString& key) const;
    Q_INVOKABLE SwitchField* switchField(const QString& key) const;

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

    EditorStore& store_;

private:
    template <typename Field>
    Field* typedField(const QString& key) const;

    Settings::Section section_;
    std::vector<EditorField*> fields_;
    std::vector<KeyComparison> keys_;
    bool dirty_ = false;
    bool valid_ = true;
    QVariantList announced_;
};
