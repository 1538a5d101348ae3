#pragma once

#include "mainscreen/qtHost.h"
#include "play/stage.h"

namespace play {

// The program's own host, which also prints what it does. Its paper is a PDF that is thrown away.
class PlayHost : public mainscreen::QtHost
{
public:
    explicit PlayHost(Stage& stage) : m_stage(stage) {}

    void beep() override;
    void setPointer(int newPointer) override;
    void print(const platform::Picture& picture) override;

protected:
    void workOffPainting() override;

private:
    Stage& m_stage;
};

} // namespace play
