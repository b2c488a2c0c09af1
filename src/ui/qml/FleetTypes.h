// The fleet types as QML makes them: the sidebar's selection, the batch
// writer with its verdicts, the restore review and the export of all units.
// Subclasses, because a foreign registration does not make a type creatable.
#pragma once

#include <QtQml/qqmlregistration.h>

#include "BackupExport.h"
#include "BatchWriter.h"
#include "RestoreReview.h"
#include "UnitSelection.h"

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
