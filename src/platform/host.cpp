#include "platform/host.h"

namespace platform {

namespace {

Host* currentHost = nullptr;

} // namespace

Host& host()
{
    if (currentHost == nullptr)
        raise(errObjectNotSet);
    return *currentHost;
}

void setHost(Host* newHost)
{
    currentHost = newHost;
}

void showMessage(const std::string& text)
{
    host().msgBox(text, Buttons::Ok, Icon::None, "");
}

void showFailure(const RuntimeError& failure)
{
    host().setPointer(pointerDefault);
    showMessage(errorMessage(failure));
}

} // namespace platform
