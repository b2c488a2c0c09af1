// SPDX-License-Identifier: Apache-2.0
// Runner of the QML tests: the window's module and the test kit, in the
// same Basic style the program uses.
#include <QQmlEngine>
#include <QQuickStyle>
#include <QtQml/QQmlExtensionPlugin>
#include <QtQuickTest/quicktest.h>

Q_IMPORT_QML_PLUGIN(VornLinkPlugin)
Q_IMPORT_QML_PLUGIN(TestKitPlugin)

class Setup : public QObject {
    Q_OBJECT

public slots:
    void applicationAvailable() { QQuickStyle::setStyle(QStringLiteral("Basic")); }
    // The modules' qmldir files live in the resources.
    void qmlEngineAvailable(QQmlEngine* engine) { engine->addImportPath(QStringLiteral("qrc:/")); }
};

QUICK_TEST_MAIN_WITH_SETUP(ui_tests, Setup)

#include "QuickTestMain.moc"
