// SPDX-License-Identifier: Apache-2.0
#include "SaveVerdict.h"

#include "SettingKeys.h"
#include "TranslatedMessage.h"

SaveVerdict::SaveVerdict(QObject* parent) : QObject(parent) {}

void SaveVerdict::setLink(EditorLink* link)
{
    link_ = link;
    clear();
}

void SaveVerdict::track(const std::string& ip, const Vorn::Config& written)
{
    if (!link_)
        return;
    written_ = written;
    writtenAt_ = link_->now();
    const auto address = written.find(std::string(SettingKeys::kIPAddress));
    move_ = address != written.end() && address->second != ip;
    awaitedIp_ = move_ ? address->second : ip;
    checks_.clear();
    kind_ = Kind::Waiting;
    emit changed();
}

void SaveVerdict::clear()
{
    if (kind_ == Kind::None)
        return;
    kind_ = Kind::None;
    checks_.clear();
    written_.clear();
    awaitedIp_.clear();
    move_ = false;
    emit changed();
}

void SaveVerdict::judge()
{
    if (kind_ != Kind::Waiting || !link_)
        return;
    if (link_->now() - writtenAt_ >= kAnswerDeadline) {
        settle(std::nullopt);
        return;
    }
    const auto unit = link_->unit(awaitedIp_);
    // A reply already on its way before the unit applied the write says nothing.
    if (unit && unit->lastSeen >= writtenAt_ + kFirstCountedReply)
        settle(unit->config);
}

void SaveVerdict::settle(const std::optional<Vorn::Config>& reply)
{
    checks_ = Settings::checkWrite(written_, reply);
    if (!reply)
        kind_ = Kind::NoAnswer;
    else if (move_)
        kind_ = Kind::Moved;
    else
        kind_ = Settings::allConfirmed(checks_) ? Kind::Confirmed : Kind::NotConfirmed;
    emit changed();
    emit settled();
}

std::vector<std::string> SaveVerdict::unconfirmedKeys() const
{
    std::vector<std::string> keys;
    for (const auto& check : checks_)
        if (check.outcome != Settings::KeyOutcome::Confirmed)
            keys.push_back(check.key);
    return keys;
}

QString SaveVerdict::text() const
{
    switch (kind_) {
    case Kind::None:
    case Kind::Waiting:
        return {};
    case Kind::Confirmed:
        return tr("Saved · confirmed");
    case Kind::NotConfirmed: {
        QStringList keys;
        for (const auto& check : checks_)
            if (check.outcome != Settings::KeyOutcome::Confirmed)
                keys << QString::fromStdString(check.key);
        return tr("Not confirmed: %1").arg(keys.join(QStringLiteral(", ")));
    }
    case Kind::NoAnswer:
        return tr("No answer after saving");
    case Kind::Moved:
        return tr("Moved to %1").arg(movedTo());
    }
    return {};
}

QStringList SaveVerdict::details() const
{
    QStringList lines;
    if (kind_ == Kind::Moved)
        return lines;
    for (const auto& check : checks_)
        if (check.outcome != Settings::KeyOutcome::Confirmed)
            lines << translatedText(Settings::describeCheck(check));
    return lines;
}

QString SaveVerdict::movedTo() const
{
    return kind_ == Kind::Moved ? QString::fromStdString(awaitedIp_) : QString();
}
