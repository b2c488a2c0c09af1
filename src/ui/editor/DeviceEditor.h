// SPDX-License-Identifier: Apache-2.0
// The device editor of one selected unit: three sections of fields (tally,
// communication, network) over one store of values, the header's texts, and
// the writes that send what differs from the unit's latest reply. It loads
// the fields once per selection (and on Reload), never on a reply: a reply
// changes the live configuration, so dirtiness, chips and Details follow it
// while what the user typed stays. It reaches the client only through an
// EditorLink.
#pragma once

#include <array>

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QVariantMap>

#include "EditorHeader.h"
#include "NetworkSection.h"
#include "SaveVerdict.h"
#include "SectionEditor.h"

class DeviceEditor : public SectionEditor {
    Q_OBJECT

    // Set from outside with the client. Once both are set, each new client
    // or unit loads the fields.
    Q_PROPERTY(QString ip READ ip WRITE setIp NOTIFY ipChanged FINAL)
    // The unit the fields were last loaded from.
    Q_PROPERTY(QString loadedFor READ loadedFor NOTIFY loadedForChanged FINAL)

    Q_PROPERTY(NetworkSection* network READ network CONSTANT FINAL)
    Q_PROPERTY(EditorHeader* header READ header CONSTANT FINAL)
    // What became of the last save or apply, until the next edit, save or reload.
    Q_PROPERTY(SaveVerdict* verdict READ verdict CONSTANT FINAL)

    // The unit's latest reply, and the Details grid's rows {key, value} of it.
    Q_PROPERTY(QVariantMap live READ live NOTIFY liveChanged FINAL)
    Q_PROPERTY(QVariantList details READ details NOTIFY liveChanged FINAL)

    // "Save changes" covers the tally and communication sections. It is
    // available while they differ and nothing is refused; `refusal` says why not.
    Q_PROPERTY(bool dirty READ dirty NOTIFY dirtyChanged FINAL)
    Q_PROPERTY(bool canSave READ canSave NOTIFY canSaveChanged FINAL)
    Q_PROPERTY(QString refusal READ refusal NOTIFY refusalChanged FINAL)
    Q_PROPERTY(bool canApplyNetwork READ canApplyNetwork NOTIFY canApplyNetworkChanged FINAL)

public:
    explicit DeviceEditor(QObject* parent = nullptr);
    ~DeviceEditor() override;

    // Copies the unit's live configuration into every field.
    Q_INVOKABLE void load();
    // Writes the differing keys of the tally and communication sections, if any.
    Q_INVOKABLE void save();
    // Writes the differing network keys, if all three are valid and any differs.
    Q_INVOKABLE void applyNetwork();
    // Puts `values` (a unit's configuration from elsewhere, such as a backup
    // file) into every field, over the unit's live one: unsaved changes the
    // user reviews and sends with Save changes, or Apply for the network.
    void takeValues(const Vorn::Config& values);

    QString ip() const { return ip_; }
    void setIp(const QString& ip);
    QString loadedFor() const { return loadedFor_; }

    NetworkSection* network() { return &network_; }
    EditorHeader* header() { return &header_; }
    SaveVerdict* verdict() { return &verdict_; }

    QVariantMap live() const;
    const Vorn::Config& liveConfig() const { return store_.live; }
    QVariantList details() const;
    bool dirty() const { return sending_.dirty; }
    bool canSave() const { return sending_.canSave; }
    QString refusal() const { return sending_.refusal; }
    bool canApplyNetwork() const { return sending_.canApplyNetwork; }

signals:
    void ipChanged();
    void loadedForChanged();
    void liveChanged();
    void dirtyChanged();
    void canSaveChanged();
    void refusalChanged();
    void canApplyNetworkChanged();
    // The fields were loaded from the unit (once per selection, and on Reload).
    void loaded();

private:
    struct Sending {
        bool dirty = false;
        QString refusal;
        bool canSave = false;
        bool canApplyNetwork = false;
    };

    void linkReplaced() override { loadWhenReady(); }
    void loadWhenReady();
    // Re-reads the unit and announces whatever changed; replies and clock ticks come here.
    void refresh() { update(nullptr, false); }
    // The same after the fields were replaced (a load): every section compares again.
    void refreshAll() { update(nullptr, true); }
    // Each section compares its keys once per change: when the unit's values
    // moved, when its own fields were edited, or when all fields were replaced.
    void update(const EditorSection* edited, bool fieldsReplaced);
    void onEdited(const EditorSection* section);
    std::array<EditorSection*, 3> sections() { return {&tally_, &communication_, &network_}; }
    void write(const Vorn::Config& changes);

    QString ip_;
    QString loadedFor_;
    NetworkSection network_{store_, this};
    EditorHeader header_;
    SaveVerdict verdict_;
    Sending sending_;
};
