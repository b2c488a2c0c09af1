// The ranges of the settings the editor steps, for the views that describe
// them (a screen reader reads a stepper's range).
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "EditableKeys.h"

class SettingRanges : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    // TallyType and TallyGpioType.
    Q_PROPERTY(int typeMinimum READ typeMinimum CONSTANT)
    Q_PROPERTY(int typeMaximum READ typeMaximum CONSTANT)

public:
    using QObject::QObject;

    static int typeMinimum() { return static_cast<int>(Settings::kTypeMinimum); }
    static int typeMaximum() { return static_cast<int>(Settings::kTypeMaximum); }
};
