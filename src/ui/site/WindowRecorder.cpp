// SPDX-License-Identifier: Apache-2.0
#include "WindowRecorder.h"

#include "WriteOrigin.h"

namespace WindowRecorder {

namespace {

Site::SiteRecorder* shared = nullptr;

Site::Verdict verdictOf(SaveVerdict::Kind kind)
{
    switch (kind) {
    case SaveVerdict::Kind::NotConfirmed: return Site::Verdict::NotConfirmed;
    case SaveVerdict::Kind::NoAnswer: return Site::Verdict::NoAnswer;
    case SaveVerdict::Kind::Moved: return Site::Verdict::Moved;
    default: return Site::Verdict::Confirmed;
    }
}

}  // namespace

void use(Site::SiteRecorder* recorder)
{
    shared = recorder;
}

Site::SiteRecorder* current()
{
    return shared;
}

void recordWrite(const SaveVerdict& verdict, const std::string& serial, const std::string& address)
{
    if (!shared)
        return;
    Site::WriteRecord write;
    write.sentAt = verdict.writtenAt();
    write.program = "vornlink";
    write.host = Site::hostName();
    write.user = Site::userName();
    write.serial = serial;
    write.address = address;
    write.sent = verdict.written();
    write.verdict = verdictOf(verdict.kind());
    if (write.verdict == Site::Verdict::NotConfirmed)
        write.unconfirmedKeys = verdict.unconfirmedKeys();
    shared->wrote(std::move(write));
}

}  // namespace WindowRecorder
