// SPDX-License-Identifier: Apache-2.0
#include "SiteNotice.h"

#include "UnitHistory.h"

SiteNotice::SiteNotice(QObject* parent) : QObject(parent)
{
    timer_.setInterval(1000);
    connect(&timer_, &QTimer::timeout, this, &SiteNotice::refresh);
    timer_.start();
    refresh();
}

void SiteNotice::refresh()
{
    const auto* recorder = UnitHistory::usedRecorder();
    QString text;
    if (recorder && recorder->state() == Site::StoreState::Unreachable)
        text = tr("Site server unreachable: %1").arg(recorder->problem());
    if (text == text_)
        return;
    text_ = text;
    emit textChanged();
}
