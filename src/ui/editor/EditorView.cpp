#include "EditorView.h"

#include <algorithm>

#include <QCoreApplication>
#include <QVariantMap>

#include "EditorOptions.h"
#include "EditorRules.h"
#include "SettingKeys.h"
#include "SwitcherCatalog.h"

namespace {

QString qtext(const std::string& text)
{
    return QString::fromStdString(text);
}

QString chipOf(const Vorn::Config& live, std::string_view key, const QString& prefix, const QString& missing)
{
    const auto entry = live.find(key);
    return entry != live.end() ? prefix + qtext(entry->second) : missing;
}

QVariantList detailRows(const Vorn::Config& live)
{
    QVariantList rows;
    for (const auto key : SettingKeys::kDetailKeys) {
        const auto entry = live.find(key);
        if (entry == live.end())
            continue;
        rows.append(QVariantMap{{QStringLiteral("key"), qtext(entry->first)},
                                {QStringLiteral("value"), qtext(entry->second)}});
    }
    return rows;
}

QString confirmMessageOf(const EditorFields& fields)
{
    return QStringLiteral("New: IP ") + qtext(fields.ipAddr) + QStringLiteral(", mask ") + qtext(fields.netmask)
        + QStringLiteral(", gateway ") + qtext(fields.gateway)
        + QStringLiteral(".\n\nIf the IP changes, the unit reappears in the list under its new address. "
                         "A wrong value can strip it off-network (serial DB9 recovery).");
}

}  // namespace

EditorView presentEditor(const EditorFields& fields, const std::optional<Device>& unit, bool online,
                         const QString& ip)
{
    using namespace SettingKeys;
    EditorView view;
    if (unit)
        view.live = unit->config;
    const Vorn::Config& live = view.live;

    view.online = unit && online;
    view.dirty = anyDiffers(compareSettings(fields, live));
    view.netValid = networkValid(fields);
    view.netDirty = anyDiffers(compareNetwork(fields, live));
    view.netWarning = view.netDirty && !view.netValid;
    if (const auto refused = sendRefusal(fields, live))
        view.refusal = QCoreApplication::translate("DeviceEditor", "Cannot send: %1").arg(qtext(*refused));
    view.canSave = view.dirty && view.refusal.isEmpty();
    view.canApplyNetwork = view.netDirty && view.netValid && view.refusal.isEmpty();

    view.title = unit ? unit->title() : ip;
    view.onlineText = view.online ? QStringLiteral("Online") : QStringLiteral("Offline");
    view.switcherLabel = qtext(SwitcherCatalog::label(fields.band, fields.model));
    view.channelChip = chipOf(live, kChannel, QStringLiteral("Ch "), QStringLiteral("Ch \u2013"));
    view.firmwareChip = chipOf(live, kVersion, QStringLiteral("fw "), QString());

    view.switcherSelection = qtext(EditorRules::switcherTag(fields.band, fields.model));
    view.switcherEntries = EditorOptions::switcherEntries(fields.band, fields.model);
    view.switcherIndex = EditorOptions::switcherIndex(fields.band, fields.model);
    view.extTallyIndex = EditorOptions::optionIndex(fields.extTally, EditorOptions::tallyBankOptions().size());
    view.sceneIndex = EditorOptions::optionIndex(fields.scene, EditorOptions::sceneOptions().size());
    view.suppressIndex = EditorOptions::optionIndex(fields.suppress, EditorOptions::suppressOptions().size());

    view.tallyTypeTitle = QStringLiteral("type ") + qtext(EditorRules::integerText(fields.tallyType));
    view.gpioTypeTitle = QStringLiteral("gpio ") + qtext(EditorRules::integerText(fields.gpioType));
    view.canIncreaseTallyType = steppedType(fields.tallyType, 1) != fields.tallyType;
    view.canDecreaseTallyType = steppedType(fields.tallyType, -1) != fields.tallyType;
    view.canIncreaseGpioType = steppedType(fields.gpioType, 1) != fields.gpioType;
    view.canDecreaseGpioType = steppedType(fields.gpioType, -1) != fields.gpioType;

    view.confirmTitle = QStringLiteral("Apply network settings to ") + ip + QStringLiteral("?");
    view.confirmMessage = confirmMessageOf(fields);
    view.details = detailRows(live);
    return view;
}

std::int64_t steppedType(std::int64_t value, int delta)
{
    const bool upward = delta > 0;
    const bool blocked = upward ? value >= kTypeMaximum : value <= kTypeMinimum;
    if (delta == 0 || blocked)
        return value;
    // Clamping first keeps the sum clear of the 64-bit limits.
    const std::int64_t start = std::clamp(value, kTypeMinimum - 1, kTypeMaximum + 1);
    return std::clamp<std::int64_t>(start + delta, kTypeMinimum, kTypeMaximum);
}
