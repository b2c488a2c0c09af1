// The state of the device editor: the fields of the selected unit as the user
// edits them, compared with the unit's latest reply, and the writes that send
// the differences. Every derived value is a read-only property that announces
// itself only when it really changed, whether by an edit, a reply or the clock.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>

#include "EditorSettings.h"
#include "EditorView.h"
#include "SaveVerdict.h"
#include "VornClient.h"

class DeviceEditor : public QObject {
    Q_OBJECT
    QML_ELEMENT

    // Set from outside. A new client or another unit reloads the fields.
    Q_PROPERTY(VornClient* client READ client WRITE setClient NOTIFY clientChanged)
    Q_PROPERTY(QString ip READ ip WRITE setIp NOTIFY ipChanged)

    // The fields, loaded by load() and edited by the tabs.
    Q_PROPERTY(QString atemIp READ atemIp WRITE setAtemIp NOTIFY atemIpChanged)
    Q_PROPERTY(QString atemPort READ atemPort WRITE setAtemPort NOTIFY atemPortChanged)
    Q_PROPERTY(QString channel READ channel WRITE setChannel NOTIFY channelChanged)
    Q_PROPERTY(qint64 band READ band WRITE setBand NOTIFY bandChanged)
    Q_PROPERTY(qint64 model READ model WRITE setModel NOTIFY modelChanged)
    Q_PROPERTY(qint64 extTally READ extTally WRITE setExtTally NOTIFY extTallyChanged)
    Q_PROPERTY(qint64 tallyType READ tallyType WRITE setTallyType NOTIFY tallyTypeChanged)
    Q_PROPERTY(qint64 gpioType READ gpioType WRITE setGpioType NOTIFY gpioTypeChanged)
    Q_PROPERTY(QString loadedFor READ loadedFor NOTIFY loadedForChanged)
    Q_PROPERTY(QString ipAddr READ ipAddr WRITE setIpAddr NOTIFY ipAddrChanged)
    Q_PROPERTY(QString netmask READ netmask WRITE setNetmask NOTIFY netmaskChanged)
    Q_PROPERTY(QString gateway READ gateway WRITE setGateway NOTIFY gatewayChanged)
    Q_PROPERTY(bool showNetConfirm READ showNetConfirm WRITE setShowNetConfirm NOTIFY showNetConfirmChanged)
    Q_PROPERTY(DetailTab tab READ tab WRITE setTab NOTIFY tabChanged)
    Q_PROPERTY(qint64 scene READ scene WRITE setScene NOTIFY sceneChanged)
    Q_PROPERTY(qint64 suppress READ suppress WRITE setSuppress NOTIFY suppressChanged)
    Q_PROPERTY(bool wire2 READ wire2 WRITE setWire2 NOTIFY wire2Changed)
    Q_PROPERTY(QString password READ password WRITE setPassword NOTIFY passwordChanged)

    // The unit's latest reply and what follows from it.
    Q_PROPERTY(QVariantMap live READ live NOTIFY liveChanged)
    Q_PROPERTY(bool online READ online NOTIFY onlineChanged)
    Q_PROPERTY(bool dirty READ dirty NOTIFY dirtyChanged)
    Q_PROPERTY(bool netValid READ netValid NOTIFY netValidChanged)
    Q_PROPERTY(bool netDirty READ netDirty NOTIFY netDirtyChanged)
    Q_PROPERTY(bool netWarning READ netWarning NOTIFY netWarningChanged)
    Q_PROPERTY(bool canApplyNetwork READ canApplyNetwork NOTIFY canApplyNetworkChanged)
    // Save is available while dirty and nothing is refused; `refusal` says why not.
    Q_PROPERTY(bool canSave READ canSave NOTIFY canSaveChanged)
    Q_PROPERTY(QString refusal READ refusal NOTIFY refusalChanged)
    // What became of the last save or apply, until the next edit, save or reload.
    Q_PROPERTY(SaveVerdict* verdict READ verdict CONSTANT)

    // The header.
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    Q_PROPERTY(QString onlineText READ onlineText NOTIFY onlineTextChanged)
    Q_PROPERTY(QString switcherLabel READ switcherLabel NOTIFY switcherLabelChanged)
    Q_PROPERTY(QString channelChip READ channelChip NOTIFY channelChipChanged)
    Q_PROPERTY(QString firmwareChip READ firmwareChip NOTIFY firmwareChipChanged)

    // The pickers and steppers.
    Q_PROPERTY(QString switcherSelection READ switcherSelection WRITE setSwitcherSelection
                   NOTIFY switcherSelectionChanged)
    Q_PROPERTY(QVariantList switcherEntries READ switcherEntries NOTIFY switcherEntriesChanged)
    Q_PROPERTY(int switcherIndex READ switcherIndex NOTIFY switcherIndexChanged)
    Q_PROPERTY(QStringList tallyBankOptions READ tallyBankOptions CONSTANT)
    Q_PROPERTY(int extTallyIndex READ extTallyIndex NOTIFY extTallyIndexChanged)
    Q_PROPERTY(QStringList sceneOptions READ sceneOptions CONSTANT)
    Q_PROPERTY(int sceneIndex READ sceneIndex NOTIFY sceneIndexChanged)
    Q_PROPERTY(QStringList suppressOptions READ suppressOptions CONSTANT)
    Q_PROPERTY(int suppressIndex READ suppressIndex NOTIFY suppressIndexChanged)
    Q_PROPERTY(QString tallyTypeTitle READ tallyTypeTitle NOTIFY tallyTypeTitleChanged)
    Q_PROPERTY(QString gpioTypeTitle READ gpioTypeTitle NOTIFY gpioTypeTitleChanged)
    Q_PROPERTY(bool canIncreaseTallyType READ canIncreaseTallyType NOTIFY canIncreaseTallyTypeChanged)
    Q_PROPERTY(bool canDecreaseTallyType READ canDecreaseTallyType NOTIFY canDecreaseTallyTypeChanged)
    Q_PROPERTY(bool canIncreaseGpioType READ canIncreaseGpioType NOTIFY canIncreaseGpioTypeChanged)
    Q_PROPERTY(bool canDecreaseGpioType READ canDecreaseGpioType NOTIFY canDecreaseGpioTypeChanged)

    // The network confirmation and the Details grid.
    Q_PROPERTY(QString confirmTitle READ confirmTitle NOTIFY confirmTitleChanged)
    Q_PROPERTY(QString confirmMessage READ confirmMessage NOTIFY confirmMessageChanged)
    Q_PROPERTY(QVariantList details READ details NOTIFY detailsChanged)
    Q_PROPERTY(QStringList tabTitles READ tabTitles CONSTANT)

public:
    // The tabs in the order the tab bar shows them.
    enum class DetailTab { Tally, Intercom, Network, Details };
    Q_ENUM(DetailTab)

    explicit DeviceEditor(QObject* parent = nullptr);

    // Copies the unit's live configuration into every field.
    Q_INVOKABLE void load();
    // Writes the differing keys of the tally and communication tabs, if any.
    Q_INVOKABLE void save();
    // Writes the differing network keys, if all three are valid and any differs.
    Q_INVOKABLE void applyNetwork();
    // The unit's scene level (1) and suppression level (0), or their defaults.
    Q_INVOKABLE qint64 sceneDefault() const;
    Q_INVOKABLE qint64 suppressDefault() const;
    // One press of a type stepper: `delta` is +1 or -1.
    Q_INVOKABLE void stepTallyType(int delta);
    Q_INVOKABLE void stepGpioType(int delta);

    static QString tabTitle(DetailTab tab);

    VornClient* client() const { return client_; }
    void setClient(VornClient* client);
    QString ip() const { return ip_; }
    void setIp(const QString& ip);

    QString atemIp() const { return text(state_.fields.atemIp); }
    void setAtemIp(const QString& value);
    QString atemPort() const { return text(state_.fields.atemPort); }
    void setAtemPort(const QString& value);
    QString channel() const { return text(state_.fields.channel); }
    void setChannel(const QString& value);
    qint64 band() const { return state_.fields.band; }
    void setBand(qint64 value);
    qint64 model() const { return state_.fields.model; }
    void setModel(qint64 value);
    qint64 extTally() const { return state_.fields.extTally; }
    void setExtTally(qint64 value);
    qint64 tallyType() const { return state_.fields.tallyType; }
    void setTallyType(qint64 value);
    qint64 gpioType() const { return state_.fields.gpioType; }
    void setGpioType(qint64 value);
    QString loadedFor() const { return state_.loadedFor; }
    QString ipAddr() const { return text(state_.fields.ipAddr); }
    void setIpAddr(const QString& value);
    QString netmask() const { return text(state_.fields.netmask); }
    void setNetmask(const QString& value);
    QString gateway() const { return text(state_.fields.gateway); }
    void setGateway(const QString& value);
    bool showNetConfirm() const { return state_.showNetConfirm; }
    void setShowNetConfirm(bool value);
    DetailTab tab() const { return state_.tab; }
    void setTab(DetailTab value);
    qint64 scene() const { return state_.fields.scene; }
    void setScene(qint64 value);
    qint64 suppress() const { return state_.fields.suppress; }
    void setSuppress(qint64 value);
    bool wire2() const { return state_.fields.wire2; }
    void setWire2(bool value);
    QString password() const { return text(state_.fields.password); }
    void setPassword(const QString& value);

    QVariantMap live() const;
    bool online() const { return shown_.view.online; }
    bool dirty() const { return shown_.view.dirty; }
    bool netValid() const { return shown_.view.netValid; }
    bool netDirty() const { return shown_.view.netDirty; }
    bool netWarning() const { return shown_.view.netWarning; }
    bool canApplyNetwork() const { return shown_.view.canApplyNetwork; }
    bool canSave() const { return shown_.view.canSave; }
    QString refusal() const { return shown_.view.refusal; }
    SaveVerdict* verdict() { return &verdict_; }

    QString title() const { return shown_.view.title; }
    QString onlineText() const { return shown_.view.onlineText; }
    QString switcherLabel() const { return shown_.view.switcherLabel; }
    QString channelChip() const { return shown_.view.channelChip; }
    QString firmwareChip() const { return shown_.view.firmwareChip; }

    QString switcherSelection() const { return shown_.view.switcherSelection; }
    void setSwitcherSelection(const QString& tag);
    QVariantList switcherEntries() const { return shown_.view.switcherEntries; }
    int switcherIndex() const { return shown_.view.switcherIndex; }
    QStringList tallyBankOptions() const;
    int extTallyIndex() const { return shown_.view.extTallyIndex; }
    QStringList sceneOptions() const;
    int sceneIndex() const { return shown_.view.sceneIndex; }
    QStringList suppressOptions() const;
    int suppressIndex() const { return shown_.view.suppressIndex; }
    QString tallyTypeTitle() const { return shown_.view.tallyTypeTitle; }
    QString gpioTypeTitle() const { return shown_.view.gpioTypeTitle; }
    bool canIncreaseTallyType() const { return shown_.view.canIncreaseTallyType; }
    bool canDecreaseTallyType() const { return shown_.view.canDecreaseTallyType; }
    bool canIncreaseGpioType() const { return shown_.view.canIncreaseGpioType; }
    bool canDecreaseGpioType() const { return shown_.view.canDecreaseGpioType; }

    QString confirmTitle() const { return shown_.view.confirmTitle; }
    QString confirmMessage() const { return shown_.view.confirmMessage; }
    QVariantList details() const { return shown_.view.details; }
    QStringList tabTitles() const;

signals:
    void clientChanged();
    void ipChanged();
    void atemIpChanged();
    void atemPortChanged();
    void channelChanged();
    void bandChanged();
    void modelChanged();
    void extTallyChanged();
    void tallyTypeChanged();
    void gpioTypeChanged();
    void loadedForChanged();
    void ipAddrChanged();
    void netmaskChanged();
    void gatewayChanged();
    void showNetConfirmChanged();
    void tabChanged();
    void sceneChanged();
    void suppressChanged();
    void wire2Changed();
    void passwordChanged();
    void liveChanged();
    void onlineChanged();
    void dirtyChanged();
    void netValidChanged();
    void netDirtyChanged();
    void netWarningChanged();
    void canApplyNetworkChanged();
    void canSaveChanged();
    void refusalChanged();
    void titleChanged();
    void onlineTextChanged();
    void switcherLabelChanged();
    void channelChipChanged();
    void firmwareChipChanged();
    void switcherSelectionChanged();
    void switcherEntriesChanged();
    void switcherIndexChanged();
    void extTallyIndexChanged();
    void sceneIndexChanged();
    void suppressIndexChanged();
    void tallyTypeTitleChanged();
    void gpioTypeTitleChanged();
    void canIncreaseTallyTypeChanged();
    void canDecreaseTallyTypeChanged();
    void canIncreaseGpioTypeChanged();
    void canDecreaseGpioTypeChanged();
    void confirmTitleChanged();
    void confirmMessageChanged();
    void detailsChanged();

private:
    // What the user and the view own; the unit's side lives in the client.
    struct State {
        EditorFields fields;
        QString loadedFor;
        bool showNetConfirm = false;
        DetailTab tab = DetailTab::Tally;
    };
    // The state and its derived values as last announced.
    struct Snapshot {
        State state;
        EditorView view;
    };

    static QString text(const std::string& value) { return QString::fromStdString(value); }

    std::optional<Device> unit() const;
    Vorn::Config liveConfig() const;
    Snapshot snapshot() const;
    // Announces every property whose value differs from the last announcement.
    void announce();
    void announceState(const State& before, const State& now);
    void announceView(const EditorView& before, const EditorView& now);
    void write(const Vorn::Config& changes);
    void setText(std::string EditorFields::*field, const QString& value);
    void setInteger(std::int64_t EditorFields::*field, qint64 value);
    template <typename Value>
    void edit(Value& field, const Value& value);

    QPointer<VornClient> client_;
    QString ip_;
    State state_;
    Snapshot shown_;
    SaveVerdict verdict_;
};
