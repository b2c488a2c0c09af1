// SPDX-License-Identifier: Apache-2.0
// Tells QML whether its optional diagnostics are wanted, so that their work
// (walking every row of the sidebar) is skipped when nobody reads them.
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

class Diagnostics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    // QT_LOGGING_RULES "vornlink.sidebar.info=true": report the sidebar's rows.
    Q_PROPERTY(bool sidebarRows READ sidebarRows CONSTANT)

public:
    using QObject::QObject;

    bool sidebarRows() const;
};
