#include "platform/host.h"

#include "support/fakeHost.h"

#include <gtest/gtest.h>
#include <map>

namespace {

using platform::RuntimeError;

TEST(Host, isFailure91BeforeThereIsOne)
{
    platform::setHost(nullptr);
    try {
        platform::showMessage("to nobody");
        FAIL() << "nobody was told";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.number, 91);
        EXPECT_EQ(failure.description(), "Object variable or With block variable not set");
    }
    EXPECT_THROW(static_cast<void>(platform::host()), RuntimeError);
}

// A host that keeps what a box looked like.
class WatchingHost : public FakeHost
{
public:
    platform::Answer msgBox(const std::string& text, platform::Buttons buttons, platform::Icon icon,
                            const std::string& title) override
    {
        lastButtons = buttons;
        lastIcon = icon;
        lastTitle = title;
        pointersBefore = pointers;
        return FakeHost::msgBox(text, buttons, icon, title);
    }

    platform::Buttons lastButtons = platform::Buttons::YesNo;
    platform::Icon lastIcon = platform::Icon::Critical;
    std::string lastTitle = "none yet";
    std::vector<int> pointersBefore;
};

TEST(Host, showsAPlainMessageWithAnOkButtonAndNoTitle)
{
    WatchingHost host;
    platform::showMessage("Index created");
    EXPECT_EQ(host.messages, std::vector<std::string>{"Index created"});
    EXPECT_EQ(host.lastButtons, platform::Buttons::Ok);
    EXPECT_EQ(host.lastIcon, platform::Icon::None);
    EXPECT_EQ(host.lastTitle, "");
    EXPECT_TRUE(host.pointers.empty());
}

TEST(Host, restoresThePointerBeforeItShowsAFailure)
{
    WatchingHost host;
    platform::showFailure(RuntimeError(3021, "No current record."));
    EXPECT_EQ(host.messages, std::vector<std::string>{"Error 3021 : No current record."});
    EXPECT_EQ(host.pointersBefore, std::vector<int>{platform::pointerDefault});
    EXPECT_EQ(host.lastIcon, platform::Icon::None);
    EXPECT_EQ(host.lastTitle, "");
}

TEST(RuntimeErrors, haveTheirFixedDescriptions)
{
    const std::map<platform::ErrorNumber, std::string> descriptions = {
        {platform::errInvalidCall, "Invalid procedure call or argument"},
        {platform::errOverflow, "Overflow"},
        {platform::errOutOfMemory, "Out of memory"},
        {platform::errSubscript, "Subscript out of range"},
        {platform::errTypeMismatch, "Type mismatch"},
        {platform::errBadFileNumber, "Bad file name or number"},
        {platform::errFileNotFound, "File not found"},
        {platform::errFileAlreadyOpen, "File already open"},
        {platform::errDeviceIo, "Device I/O error"},
        {platform::errDiskFull, "Disk full"},
        {platform::errInputPastEnd, "Input past end of file"},
        {platform::errPermissionDenied, "Permission denied"},
        {platform::errPathFileAccess, "Path/File access error"},
        {platform::errPathNotFound, "Path not found"},
        {platform::errObjectNotSet, "Object variable or With block variable not set"},
        {platform::errObjectRequired, "Object required"},
    };
    for (const auto& [number, description] : descriptions) {
        EXPECT_EQ(platform::errorDescription(number), description);
        try {
            platform::raise(number);
        } catch (const RuntimeError& failure) {
            EXPECT_EQ(failure.number, number);
            EXPECT_EQ(platform::errorMessage(failure),
                      "Error " + std::to_string(number) + " : " + description);
        }
    }
}

TEST(RuntimeErrors, areShownAsNumberAndDescription)
{
    EXPECT_EQ(platform::errorMessage(RuntimeError(53, "File not found")), "Error 53 : File not found");
}

} // namespace
