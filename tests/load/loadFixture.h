#pragma once

#include "load/readNtcAndWriteToDB.h"
#include "platform/fileNumbers.h"
#include "platform/hostFormat.h"
#include "platform/userName.h"
#include "support/noticeDatabase.h"

// A working database that notice files are loaded into, on a fixed day, in a fixed place, by a fixed user.
class LoadFixture : public NoticeDatabase
{
protected:
    LoadFixture()
    {
        database->Close();
        platform::setClock(platform::LocalTime{2026, 3, 9, 14, 5, 7});
        platform::setHostLocale("de_DE.UTF-8");
        platform::setHostUserName("operator");
        session::notice = Ntc();
        session::notice.d_rcv = "01.03.2026";
    }
    ~LoadFixture() override
    {
        platform::closeAllFiles();
        platform::setClock(std::nullopt);
        platform::setHostLocale("");
        platform::setHostUserName(std::nullopt);
        session::db.reset();
        session::ws.reset();
    }

    // Loads a file of these lines into the working database.
    void load(const std::string& text)
    {
        session::electFileName = work.folder().write("notices.txt", text);
        readNtcAndWriteToDB::openElectFile(session::notice);
        readNtcAndWriteToDB::loadElectFile(session::notice, work.path());
    }

    [[nodiscard]] static std::string head(const std::string& adm = "XYZ")
    {
        return "<HEAD>\r\nt_adm=" + adm + "\r\n</HEAD>\r\n";
    }

    // A notice of these lines.
    [[nodiscard]] static std::string notice(const std::string& lines)
    {
        return "<NOTICE>\r\n" + lines + "</NOTICE>\r\n";
    }

    // A complete assignment, but for what is put behind it.
    [[nodiscard]] static std::string assignment(const std::string& more = "")
    {
        return notice("t_notice_type=T12\r\nt_action=ADD\r\nt_freq_assgn=151.3375\r\nt_stn_cls=FB\r\n"
                      "t_emi_cls=F3E--\r\nt_bdwdth_cde=8K00\r\nt_op_hh_fr=00:00\r\nt_op_hh_to=24:00\r\n"
                      "t_long=+0123045\r\nt_lat=-081512\r\n" +
                      more);
    }

    using Texts = std::vector<std::string>;
};
