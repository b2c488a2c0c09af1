// SPDX-License-Identifier: Apache-2.0
// What the Tally and Communication panels edit: those two sections over one
// store of values, and the one LinkSlot the editor reaches the client
// through. The editor of one unit and the editor of several units are such
// editors; the panels take this type, so their bindings compile.
#pragma once

#include <QObject>

#include "CommunicationSection.h"
#include "EditorLink.h"
#include "LinkSlot.h"
#include "TallySection.h"
#include "VornClient.h"

class SectionEditor : public QObject {
    Q_OBJECT

    // Set from outside; each new client loads the fields.
    Q_PROPERTY(VornClient* client READ client WRITE setClient NOTIFY clientChanged FINAL)
    Q_PROPERTY(TallySection* tally READ tally CONSTANT FINAL)
    Q_PROPERTY(CommunicationSection* communication READ communication CONSTANT FINAL)

public:
    VornClient* client() const { return links_.client(); }
    // Talks to `client` through a ClientLink of its own.
    void setClient(VornClient* client);
    // Talks to `link` instead, which outlives the editor or is replaced first.
    void setLink(EditorLink* link);

    TallySection* tally() { return &tally_; }
    CommunicationSection* communication() { return &communication_; }

signals:
    void clientChanged();

protected:
    explicit SectionEditor(QObject* parent);
    // Another client or link is in place: the fields load from it.
    virtual void linkReplaced() = 0;

    LinkSlot links_;
    EditorStore store_;
    TallySection tally_{store_, this};
    CommunicationSection communication_{store_, this};
};
