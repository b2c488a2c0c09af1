// SPDX-License-Identifier: Apache-2.0
// Which EditorLink an object of the editor talks through: a ClientLink of
// its own over the window's client, or a link given from outside (tests).
#pragma once

#include <memory>

#include <QPointer>

#include "EditorLink.h"
#include "VornClient.h"

class LinkSlot {
public:
    VornClient* client() const { return client_; }
    EditorLink* link() const { return link_; }

    // A link of its own over `client` (none for null); false when it was the client already.
    bool useClient(VornClient* client);
    // `link` instead, which outlives the owner or is replaced first.
    void useLink(EditorLink* link);

private:
    QPointer<VornClient> client_;
    std::unique_ptr<EditorLink> own_;
    QPointer<EditorLink> link_;
};
