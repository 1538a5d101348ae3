#pragma once

#include "mainscreen/qtHost.h"
#include "play/transcript.h"

namespace play {

// The program's own host, which also prints what it does.
class PlayHost : public mainscreen::QtHost
{
public:
    explicit PlayHost(Transcript& transcript) : m_transcript(transcript) {}

    void beep() override { m_transcript.line("beep"); }
    void setPointer(int newPointer) override
    {
        if (newPointer != pointer())
            m_transcript.line("pointer " + std::to_string(newPointer));
        QtHost::setPointer(newPointer);
    }

private:
    Transcript& m_transcript;
};

} // namespace play
