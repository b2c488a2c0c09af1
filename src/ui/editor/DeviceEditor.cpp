#include "DeviceEditor.h"

#include "ConfigConversion.h"
#include "EditorOptions.h"
#include "EditorRules.h"

DeviceEditor::DeviceEditor(QObject* parent) : QObject(parent), verdict_(this)
{
    shown_ = snapshot();
}

void DeviceEditor::setClient(VornClient* client)
{
    if (client == client_)
        return;
    if (client_) {
        disconnect(client_, nullptr, this, nullptr);
        disconnect(client_->clock(), nullptr, this, nullptr);
    }
    client_ = client;
    if (client_) {
        // A reply changes the live configuration but never the fields.
        connect(client_, &VornClient::deviceAdded, this, &DeviceEditor::announce);
        connect(client_, &VornClient::devicesUpdated, this, &DeviceEditor::announce);
        connect(client_->clock(), &PresenceClock::ticked, this, &DeviceEditor::announce);
        connect(client_, &QObject::destroyed, this, [this] {
            emit clientChanged();
            announce();
        });
    }
    verdict_.setClient(client);
    emit clientChanged();
    load();
}

void DeviceEditor::setIp(const QString& ip)
{
    if (ip == ip_)
        return;
    ip_ = ip;
    emit ipChanged();
    // Another unit: its fields replace the edits of the previous one.
    load();
}

void DeviceEditor::load()
{
    state_.fields = loadFields(liveConfig());
    state_.loadedFor = ip_;
    verdict_.clear();
    announce();
}

void DeviceEditor::save()
{
    const Vorn::Config live = liveConfig();
    if (sendRefusal(state_.fields, live))
        return;
    write(changesOf(compareSettings(state_.fields, live)));
}

void DeviceEditor::applyNetwork()
{
    const Vorn::Config live = liveConfig();
    if (!networkValid(state_.fields) || sendRefusal(state_.fields, live))
        return;
    write(changesOf(compareNetwork(state_.fields, live)));
}

void DeviceEditor::write(const Vorn::Config& changes)
{
    // The fields stay as they are: the unit's next reply clears "dirty".
    if (changes.empty() || !client_)
        return;
    client_->writeChanges(ip_.toStdString(), changes);
    verdict_.track(ip_.toStdString(), changes);
}

qint64 DeviceEditor::sceneDefault() const
{
    return ::sceneDefault(liveConfig());
}

qint64 DeviceEditor::suppressDefault() const
{
    return ::suppressDefault(liveConfig());
}

void DeviceEditor::stepTallyType(int delta)
{
    setTallyType(steppedType(state_.fields.tallyType, delta));
}

void DeviceEditor::stepGpioType(int delta)
{
    setGpioType(steppedType(state_.fields.gpioType, delta));
}

QString DeviceEditor::tabTitle(DetailTab tab)
{
    switch (tab) {
    case DetailTab::Tally:
        return QStringLiteral("Tally");
    case DetailTab::Intercom:
        return QStringLiteral("Communication");
    case DetailTab::Network:
        return QStringLiteral("Network");
    case DetailTab::Details:
        return QStringLiteral("Details");
    }
    qFatal("DeviceEditor::tabTitle: unknown tab %d", static_cast<int>(tab));
}

QStringList DeviceEditor::tabTitles() const
{
    return {tabTitle(DetailTab::Tally), tabTitle(DetailTab::Intercom), tabTitle(DetailTab::Network),
            tabTitle(DetailTab::Details)};
}

QStringList DeviceEditor::tallyBankOptions() const
{
    return EditorOptions::tallyBankOptions();
}

QStringList DeviceEditor::sceneOptions() const
{
    return EditorOptions::sceneOptions();
}

QStringList DeviceEditor::suppressOptions() const
{
    return EditorOptions::suppressOptions();
}

QVariantMap DeviceEditor::live() const
{
    return toVariantMap(shown_.view.live);
}

std::optional<Device> DeviceEditor::unit() const
{
    if (!client_)
        return std::nullopt;
    return client_->device(ip_.toStdString());
}

Vorn::Config DeviceEditor::liveConfig() const
{
    const auto found = unit();
    return found ? found->config : Vorn::Config{};
}

DeviceEditor::Snapshot DeviceEditor::snapshot() const
{
    const auto found = unit();
    const bool online = found && client_->isOnline(*found);
    return {state_, presentEditor(state_.fields, found, online, ip_)};
}

void DeviceEditor::setText(std::string EditorFields::*field, const QString& value)
{
    edit(state_.fields.*field, value.toStdString());
}

void DeviceEditor::setInteger(std::int64_t EditorFields::*field, qint64 value)
{
    edit(state_.fields.*field, std::int64_t{value});
}

template <typename Value>
void DeviceEditor::edit(Value& field, const Value& value)
{
    // An edit that changes a field ends the verdict of the last save.
    if (field != value)
        verdict_.clear();
    field = value;
    announce();
}

void DeviceEditor::setAtemIp(const QString& value) { setText(&EditorFields::atemIp, value); }
void DeviceEditor::setAtemPort(const QString& value) { setText(&EditorFields::atemPort, value); }
void DeviceEditor::setChannel(const QString& value) { setText(&EditorFields::channel, value); }
void DeviceEditor::setBand(qint64 value) { setInteger(&EditorFields::band, value); }
void DeviceEditor::setModel(qint64 value) { setInteger(&EditorFields::model, value); }
void DeviceEditor::setExtTally(qint64 value) { setInteger(&EditorFields::extTally, value); }
void DeviceEditor::setTallyType(qint64 value) { setInteger(&EditorFields::tallyType, value); }
void DeviceEditor::setGpioType(qint64 value) { setInteger(&EditorFields::gpioType, value); }
void DeviceEditor::setIpAddr(const QString& value) { setText(&EditorFields::ipAddr, value); }
void DeviceEditor::setNetmask(const QString& value) { setText(&EditorFields::netmask, value); }
void DeviceEditor::setGateway(const QString& value) { setText(&EditorFields::gateway, value); }
void DeviceEditor::setScene(qint64 value) { setInteger(&EditorFields::scene, value); }
void DeviceEditor::setSuppress(qint64 value) { setInteger(&EditorFields::suppress, value); }
void DeviceEditor::setPassword(const QString& value) { setText(&EditorFields::password, value); }

void DeviceEditor::setWire2(bool value)
{
    edit(state_.fields.wire2, value);
}

void DeviceEditor::setShowNetConfirm(bool value)
{
    state_.showNetConfirm = value;
    announce();
}

void DeviceEditor::setTab(DetailTab value)
{
    state_.tab = value;
    announce();
}

void DeviceEditor::setSwitcherSelection(const QString& tag)
{
    // A tag that does not hold exactly two integers leaves both numbers alone.
    const auto numbers = EditorRules::parseSwitcherTag(tag.toStdString());
    if (!numbers)
        return;
    if (state_.fields.band != numbers->first || state_.fields.model != numbers->second)
        verdict_.clear();
    state_.fields.band = numbers->first;
    state_.fields.model = numbers->second;
    announce();
}
