// SPDX-License-Identifier: Apache-2.0
#include "SectionEditor.h"

SectionEditor::SectionEditor(QObject* parent) : QObject(parent) {}

void SectionEditor::setClient(VornClient* client)
{
    VornClient* before = links_.client();
    if (!links_.useClient(client))
        return;
    // A client that goes away reads as none.
    if (before)
        disconnect(before, &QObject::destroyed, this, &SectionEditor::clientChanged);
    if (client)
        connect(client, &QObject::destroyed, this, &SectionEditor::clientChanged);
    emit clientChanged();
    linkReplaced();
}

void SectionEditor::setLink(EditorLink* link)
{
    links_.useLink(link);
    linkReplaced();
}
