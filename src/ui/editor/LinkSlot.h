// SPDX-License-Identifier: Apache-2.0
// The one holder of the EditorLink an object of the editor talks through: a
// ClientLink of its own over the window's client, or a link given from
// outside (tests). It keeps the link's connection and announces a switch of
// link and every change the link reports, so its owner connects once.
#pragma once

#include <memory>

#include <QObject>
#include <QPointer>

#include "EditorLink.h"
#include "VornClient.h"

class LinkSlot : public QObject {
    Q_OBJECT

public:
    explicit LinkSlot(QObject* parent = nullptr);
    ~LinkSlot() override;

    VornClient* client() const { return client_; }
    EditorLink* link() const { return link_; }

    // A link of its own over `client` (none for null); false when it was the client already.
    bool useClient(VornClient* client);
    // `link` instead, which outlives the owner or is replaced first.
    void useLink(EditorLink* link);

signals:
    // The link is about to be replaced: let go of what came from it.
    void aboutToSwitch();
    // Another link (or none) is in place.
    void switched();
    // The link heard a reply or a presence tick.
    void changed();

private:
    void replace(std::unique_ptr<EditorLink> own, EditorLink* link);

    QPointer<VornClient> client_;
    std::unique_ptr<EditorLink> own_;
    QPointer<EditorLink> link_;
};
