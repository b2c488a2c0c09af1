// SPDX-License-Identifier: Apache-2.0
#include "LinkSlot.h"

#include "ClientLink.h"

LinkSlot::LinkSlot(QObject* parent) : QObject(parent) {}

LinkSlot::~LinkSlot() = default;

bool LinkSlot::useClient(VornClient* client)
{
    if (client == client_)
        return false;
    client_ = client;
    auto own = client ? std::make_unique<ClientLink>(client) : nullptr;
    EditorLink* link = own.get();
    replace(std::move(own), link);
    return true;
}

void LinkSlot::useLink(EditorLink* link)
{
    replace(nullptr, link);
}

void LinkSlot::replace(std::unique_ptr<EditorLink> own, EditorLink* link)
{
    emit aboutToSwitch();
    if (link_)
        disconnect(link_, nullptr, this, nullptr);
    link_ = link;
    own_ = std::move(own);
    if (link_)
        connect(link_, &EditorLink::changed, this, &LinkSlot::changed);
    emit switched();
}
