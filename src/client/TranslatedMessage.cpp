// SPDX-License-Identifier: Apache-2.0
#include "TranslatedMessage.h"

#include <QCoreApplication>

QString translatedText(const Settings::Message& message)
{
    return QString::fromStdString(Settings::render(message, [](const std::string& context, const std::string& text) {
        return QCoreApplication::translate(context.c_str(), text.c_str()).toStdString();
    }));
}
