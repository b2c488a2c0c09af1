// SPDX-License-Identifier: Apache-2.0
// What became of the editor's last write: after "Save changes" or "Apply" it
// waits for the unit's first reply that left after the re-query and compares
// the keys written with the values reported; for a new address it waits for
// the first reply under that address. No reply within four seconds of the
// write is a verdict of its own. Time and replies come through the editor's
// link, so tests move time by hand; the editor calls judge() on every reply
// and clock tick.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include "EditorLink.h"
#include "VornClient.h"
#include "WriteCheck.h"

class SaveVerdict : public QObject {
    Q_OBJECT

    Q_PROPERTY(Kind kind READ kind NOTIFY changed FINAL)
    // The header chip's text, "" while there is nothing to say.
    Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
    // One line per written key the unit did not confirm: written vs reported.
    Q_PROPERTY(QStringList details READ details NOTIFY changed FINAL)
    // The unit's new address after a move, else "".
    Q_PROPERTY(QString movedTo READ movedTo NOTIFY changed FINAL)

public:
    enum class Kind { None, Waiting, Confirmed, NotConfirmed, NoAnswer, Moved };
    Q_ENUM(Kind)

    // A reply counts only once the re-query after the write can have been answered.
    static constexpr std::chrono::milliseconds kFirstCountedReply{VornClient::kRequeryDelayMs};
    // Without a counted reply by then, the unit did not answer.
    static constexpr std::chrono::seconds kAnswerDeadline{4};

    explicit SaveVerdict(QObject* parent = nullptr);

    void setLink(EditorLink* link);
    // Starts waiting for the verdict on `written`, just sent to the unit at `ip`.
    void track(const std::string& ip, const Vorn::Config& written);
    // Settles a waiting verdict when the unit's counted reply is in or the
    // deadline has passed; otherwise does nothing.
    void judge();
    // Forgets the verdict: the user edited, reloaded or chose another unit.
    void clear();

    Kind kind() const { return kind_; }
    QString text() const;
    QStringList details() const;
    QString movedTo() const;
    // The settled write: what was sent, when, and the keys not confirmed.
    const Vorn::Config& written() const { return written_; }
    WallClock::time_point writtenAt() const { return writtenAt_; }
    std::vector<std::string> unconfirmedKeys() const;

signals:
    void changed();
    // A write got its verdict (once per write).
    void settled();

private:
    void settle(const std::optional<Vorn::Config>& reply);

    QPointer<EditorLink> link_;
    Kind kind_ = Kind::None;
    std::string awaitedIp_;  // the unit's address, or its new one after a move
    bool move_ = false;
    Vorn::Config written_;
    WallClock::time_point writtenAt_{};
    std::vector<Settings::KeyCheck> checks_;
};
