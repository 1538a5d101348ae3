#include "platform/userName.h"

#include <cstdlib>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <pwd.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

class UserName : public testing::Test
{
protected:
    void TearDown() override { platform::setHostUserName(std::nullopt); }
};

TEST_F(UserName, canBeGivenAndTakenBack)
{
    const auto own = platform::hostUserName();
    platform::setHostUserName("somebody else");
    EXPECT_EQ(platform::hostUserName(), "somebody else");
    platform::setHostUserName("");
    EXPECT_EQ(platform::hostUserName(), "");
    platform::setHostUserName(std::nullopt);
    EXPECT_EQ(platform::hostUserName(), own);
}

#ifndef _WIN32

TEST_F(UserName, isThatOfTheAccountWhateverTheEnvironmentSays)
{
    // In a process of its own, for the name is asked for once in the life of one.
    const pid_t child = fork();
    if (child == 0) {
        setenv("USER", "mallory", 1);
        setenv("LOGNAME", "mallory", 1);
        _exit(platform::hostUserName() == "mallory" ? 1 : 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    const passwd* const account = getpwuid(geteuid());
    ASSERT_NE(account, nullptr);
    EXPECT_EQ(platform::hostUserName(), account->pw_name);
}

#endif

} // namespace
