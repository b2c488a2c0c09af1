// SPDX-License-Identifier: Apache-2.0
// The device editor as QML sees it: each DeviceDetailView makes its own
// DeviceEditor and binds every control to a field of one of its sections.
// Compiled into the QML module, which registers these foreign types.
#pragma once

#include <QtQml/qqml.h>
#include <QtQml/qqmlregistration.h>

#include "DeviceEditor.h"

struct DeviceEditorForeign {
    Q_GADGET
    QML_FOREIGN(DeviceEditor)
    QML_NAMED_ELEMENT(DeviceEditor)
};

// What the Tally and Communication panels take: a DeviceEditor or a MultiEditor.
struct SectionEditorForeign {
    Q_GADGET
    QML_FOREIGN(SectionEditor)
    QML_NAMED_ELEMENT(SectionEditor)
    QML_UNCREATABLE("SectionEditor is a DeviceEditor or a MultiEditor")
};

// The verdict of the last save, read through DeviceEditor.verdict.
struct SaveVerdictForeign {
    Q_GADGET
    QML_FOREIGN(SaveVerdict)
    QML_NAMED_ELEMENT(SaveVerdict)
    QML_UNCREATABLE("SaveVerdict belongs to a DeviceEditor")
};

// The header's texts, read through DeviceEditor.header.
struct EditorHeaderForeign {
    Q_GADGET
    QML_FOREIGN(EditorHeader)
    QML_NAMED_ELEMENT(EditorHeader)
    QML_UNCREATABLE("EditorHeader belongs to a DeviceEditor")
};

// The sections, read through DeviceEditor.tally, .communication and .network.
struct EditorSectionForeign {
    Q_GADGET
    QML_FOREIGN(EditorSection)
    QML_NAMED_ELEMENT(EditorSection)
    QML_UNCREATABLE("A section belongs to a DeviceEditor")
};

struct TallySectionForeign {
    Q_GADGET
    QML_FOREIGN(TallySection)
    QML_NAMED_ELEMENT(TallySection)
    QML_UNCREATABLE("A section belongs to a DeviceEditor")
};

struct CommunicationSectionForeign {
    Q_GADGET
    QML_FOREIGN(CommunicationSection)
    QML_NAMED_ELEMENT(CommunicationSection)
    QML_UNCREATABLE("A section belongs to a DeviceEditor")
};

struct NetworkSectionForeign {
    Q_GADGET
    QML_FOREIGN(NetworkSection)
    QML_NAMED_ELEMENT(NetworkSection)
    QML_UNCREATABLE("A section belongs to a DeviceEditor")
};

// The fields, read through a section: section.textField("Channel").text, .dirty, ...
struct EditorFieldForeign {
    Q_GADGET
    QML_FOREIGN(EditorField)
    QML_NAMED_ELEMENT(EditorField)
    QML_UNCREATABLE("A field belongs to an editor section")
};

struct TextFieldForeign {
    Q_GADGET
    QML_FOREIGN(TextField)
    QML_NAMED_ELEMENT(TextEditorField)
    QML_UNCREATABLE("A field belongs to an editor section")
};

struct NumberFieldForeign {
    Q_GADGET
    QML_FOREIGN(NumberField)
    QML_NAMED_ELEMENT(NumberEditorField)
    QML_UNCREATABLE("A field belongs to an editor section")
};

struct ChoiceFieldForeign {
    Q_GADGET
    QML_FOREIGN(ChoiceField)
    QML_NAMED_ELEMENT(ChoiceEditorField)
    QML_UNCREATABLE("A field belongs to an editor section")
};

struct StepperFieldForeign {
    Q_GADGET
    QML_FOREIGN(StepperField)
    QML_NAMED_ELEMENT(StepperEditorField)
    QML_UNCREATABLE("A field belongs to an editor section")
};

struct SwitchFieldForeign {
    Q_GADGET
    QML_FOREIGN(SwitchField)
    QML_NAMED_ELEMENT(SwitchEditorField)
    QML_UNCREATABLE("A field belongs to an editor section")
};
