// What a program takes from its surroundings when it starts, and what it leaves there.
#include "support/temporaryFolder.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QProcess>

#include <filesystem>

namespace {

// The test program beside this one, with a home of its own.
class ProgramStart : public testing::Test
{
protected:
    std::string run(const QStringList& arguments = {})
    {
        QProcess program;
        auto surroundings = QProcessEnvironment::systemEnvironment();
        surroundings.insert("HOME", QString::fromStdString(home.file("user")));
        surroundings.insert("XDG_CONFIG_HOME", QString::fromStdString(home.file("settings")));
        surroundings.insert("XDG_CONFIG_DIRS", QString::fromStdString(home.file("system")));
        surroundings.insert("XDG_CACHE_HOME", QString::fromStdString(home.file("cache")));
        program.setProcessEnvironment(surroundings);
        program.start(QCoreApplication::applicationDirPath() + "/telling_program",
                      QStringList{file} + arguments);
        EXPECT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
        return program.readAllStandardOutput().toStdString();
    }

    TemporaryFolder home, files;
    QString file = QString::fromStdString(files.write("a.txt", "text"));
};

} // namespace

TEST_F(ProgramStart, HeedsNoArgument)
{
    const auto told = run();
    ASSERT_NE(told.find("platform offscreen\n"), std::string::npos) << told;
    const QStringList rows[] = {
        {"-style", "windows"}, {"-style=windows"}, {"--style", "windows"},  {"-platform", "minimal"},
        {"-stylesheet", file}, {"-reverse"},       {"-session", "one_two"}, {"-qwindowtitle", "x"},
    };
    for (const auto& arguments : rows)
        EXPECT_EQ(run(arguments), told) << arguments.join(' ').toStdString();
}

TEST_F(ProgramStart, LeavesNoSettings)
{
    EXPECT_NE(run().find("picked " + file.toStdString()), std::string::npos);
    for (const char* folder : {"settings", "system", "user"})
        EXPECT_FALSE(std::filesystem::exists(home.file(folder))) << folder;
}

TEST_F(ProgramStart, ReadsNoSettings)
{
    const auto told = run();
    ASSERT_NE(told.find("details 1\n"), std::string::npos) << told;
    for (const char* folder : {"settings", "system"}) {
        std::filesystem::create_directories(home.file(folder));
        home.write(std::string(folder) + "/QtProject.conf", "[FileDialog]\nviewMode=List\n");
        EXPECT_EQ(run(), told) << folder;
    }
}
