// SPDX-License-Identifier: Apache-2.0
#include "LinkSlot.h"

#include "ClientLink.h"

bool LinkSlot::useClient(VornClient* client)
{
    if (client == client_)
        return false;
    client_ = client;
    own_ = client ? std::make_unique<ClientLink>(client) : nullptr;
    link_ = own_.get();
    return true;
}

void LinkSlot::useLink(EditorLink* link)
{
    link_ = link;
    own_.reset();
}
