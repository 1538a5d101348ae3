#pragma once

#include "dao/dao.h"
#include "dao/jetCache.h"
#include "dao/jetCorrections.h"
#include "dao/jetSamples.h"
#include "dao/writtenJetFile.h"
#include "platform/paths.h"
#include "support/engineText.h"
#include "support/failures.h"

#include <gtest/gtest.h>

// Old files in a folder of the test's own, which the cache lies in too.
class JetFixture : public testing::Test
{
protected:
    JetFixture() { platform::setUserCacheDirectory(cacheFolder()); }
    ~JetFixture() override
    {
        platform::setUserCacheDirectory({});
        dao::setCacheLimit(dao::usualCacheLimit);
        dao::setConversionWatcher({});
        dao::setCorrectionWatcher({});
    }
    JetFixture(const JetFixture&) = delete;
    JetFixture& operator=(const JetFixture&) = delete;

    [[nodiscard]] std::filesystem::path cacheFolder() const { return folder.path() / "cache"; }
    [[nodiscard]] bool cacheIsEmpty() const
    {
        return !std::filesystem::exists(cacheFolder()) || std::filesystem::is_empty(cacheFolder());
    }

    static dao::Ref<dao::Database> open(const std::string& path, bool readOnly = false)
    {
        return dao::DBEngine::OpenDatabase(path, false, readOnly);
    }

    static std::string text(const dao::Ref<dao::Database>& database, const std::string& query)
    {
        return engineText(database->OpenRecordset(query, dao::dbOpenDynaset));
    }

    // Sets a text column of the first row that a query gives.
    static void edit(const dao::Ref<dao::Database>& database, const std::string& query, const char* column,
                     const dao::Value& value)
    {
        const auto rows = database->OpenRecordset(query, dao::dbOpenDynaset);
        rows->Edit();
        rows->setCollect(column, value);
        rows->Update(dao::dbUpdateRegular, false);
    }

    TemporaryFolder folder;
};
