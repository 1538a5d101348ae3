// The program without a window as a process: what it prints, how it ends, what it leaves.
#ifndef _WIN32

#include "dao/dao.h"
#include "platform/paths.h"
#include "support/temporaryFolder.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace {

namespace fs = std::filesystem;

struct Outcome
{
    int status = -1;
    std::string output; // of both kinds
};

class Demo : public testing::Test
{
protected:
    Outcome run(const std::string& noticeFile)
    {
        Outcome outcome;
        const auto command = program + " " + noticeFile + " " + folder.file("demo") + " 2>&1";
        auto* const pipe = popen(command.c_str(), "r");
        std::array<char, 4096> chunk{};
        while (std::fgets(chunk.data(), static_cast<int>(chunk.size()), pipe) != nullptr)
            outcome.output += chunk.data();
        const int ended = pclose(pipe);
        outcome.status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
        return outcome;
    }

    static std::string notices(int count)
    {
        std::string text = "<HEAD>\r\nt_adm=XYZ\r\n</HEAD>\r\n";
        for (int number = 0; number < count; ++number)
            text += "<NOTICE>\r\nt_action=ADD\r\n</NOTICE>\r\n";
        return text;
    }

    TemporaryFolder folder;
    std::string program = platform::programDirectory() + "/zeph_rvis_demo";
};

} // namespace

TEST_F(Demo, TakesTheSampleThroughAndTellsItsPotentialTargets)
{
    const auto [status, output] = run(ZEPH_DATA_DIR "/samples/sample12.txt");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(output, "Loading sample12.txt\n"
                      "Notice No: 5 is a potential target to the notice no : 1\n"
                      "Notice No: 8 is a potential target to the notice no : 2\n"
                      "Notice No: 11 is a potential target to the notice no : 4\n"
                      "WORKING DATABASE : sample12.mdb\n"
                      "12 record(s)\n"
                      "The file : sample12.upd has been created\n");
    std::vector<std::string> left;
    for (const auto& entry : fs::directory_iterator(folder.path() / "demo"))
        left.push_back(entry.path().filename().string());
    std::sort(left.begin(), left.end());
    EXPECT_EQ(left, (std::vector<std::string>{"sample12.mdb", "sample12.txt", "sample12.upd"}));
}

TEST_F(Demo, ATruncatedFileEndsItWithTheReportAndEveryEarlierNoticeStored)
{
    const auto file = folder.write("cut.txt", notices(3) + "<NOTICE>\r\nt_action=ADD\r\n");
    const auto [status, output] = run(file);
    EXPECT_EQ(status, 3);
    EXPECT_NE(output.find("run-time error 62: Input past end of file\n"), std::string::npos) << output;
    const auto left = dao::DBEngine::OpenDatabase(folder.file("demo/cut.mdb"), false, true);
    const auto rows = left->OpenRecordset("SELECT veldakey FROM kvr_velda", dao::dbOpenDynaset);
    rows->MoveLast();
    EXPECT_EQ(rows->RecordCount(), 3);
}

TEST_F(Demo, OneCallSignTooManyEndsItWithTheReport)
{
    std::string lines;
    for (int number = 0; number < 7; ++number)
        lines += "t_call_sign=A\r\n";
    const auto [status, output] =
        run(folder.write("bound.txt", notices(1) + "<NOTICE>\r\n" + lines + "</NOTICE>\r\n"));
    EXPECT_EQ(status, 3);
    EXPECT_NE(output.find("run-time error 9: Subscript out of range\n"), std::string::npos) << output;
}

TEST_F(Demo, WithoutTheMasterTheMessagesAreToldAndTheEndIsUncaught)
{
    fs::create_directory(folder.path() / "elsewhere");
    fs::copy_file(program, folder.path() / "elsewhere" / "demo");
    program = folder.file("elsewhere/demo");
    const auto [status, output] = run(folder.write("one.txt", notices(1)));
    EXPECT_EQ(status, 3);
    EXPECT_EQ(
        output.find(
            "Loading one.txt\nError 53 : File not found\nError 3024 : Could not find file 'one.mdb'.\n"),
        0U)
        << output;
    EXPECT_NE(output.find("run-time error 91: "), std::string::npos) << output;
}

TEST_F(Demo, AFileThatIsMissingOrHasNoDotInItsNameEndsItWithAReport)
{
    EXPECT_EQ(run(folder.file("nothing.txt")).status, 3);
    const auto [status, output] = run(folder.write("nodot", notices(1)));
    EXPECT_EQ(status, 3);
    EXPECT_NE(output.find("run-time error 5: "), std::string::npos) << output;
}

#endif
