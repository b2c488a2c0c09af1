// SPDX-License-Identifier: Apache-2.0
// The fleet types as QML makes them: the sidebar's selection, the batch
// writer with its verdicts, the editor of several units, the restore review,
// the export of all units and the scan of an address block; one unit's export
// and import.
// Subclasses, because a foreign registration does not make a type creatable.
#pragma once

#include <QtQml/qqmlregistration.h>

#include "AddressScan.h"
#include "BackupExport.h"
#include "BatchWriter.h"
#include "MultiEditor.h"
#include "RestoreReview.h"
#include "UnitSelection.h"
#include "UnitTransfer.h"

class QmlUnitSelection : public UnitSelection {
    Q_OBJECT
    QML_NAMED_ELEMENT(UnitSelection)

public:
    using UnitSelection::UnitSelection;
};

class QmlBatchWriter : public BatchWriter {
    Q_OBJECT
    QML_NAMED_ELEMENT(BatchWriter)

public:
    using BatchWriter::BatchWriter;
};

class QmlRestoreReview : public RestoreReview {
    Q_OBJECT
    QML_NAMED_ELEMENT(RestoreReview)

public:
    using RestoreReview::RestoreReview;
};

class QmlBackupExport : public BackupExport {
    Q_OBJECT
    QML_NAMED_ELEMENT(BackupExport)

public:
    using BackupExport::BackupExport;
};

class QmlMultiEditor : public MultiEditor {
    Q_OBJECT
    QML_NAMED_ELEMENT(MultiEditor)

public:
    using MultiEditor::MultiEditor;
};

class QmlUnitTransfer : public UnitTransfer {
    Q_OBJECT
    QML_NAMED_ELEMENT(UnitTransfer)

public:
    using UnitTransfer::UnitTransfer;
};

class QmlAddressScan : public AddressScan {
    Q_OBJECT
    QML_NAMED_ELEMENT(AddressScan)

public:
    using AddressScan::AddressScan;
};
