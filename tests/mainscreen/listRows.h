#pragma once

#include "mainscreen/dataSource.h"
#include "support/workingDatabase.h"

// Rows for tests of the list: a table of its own in a working database, read through the data source.
class ListRows
{
public:
    // Row n from 1 on: key n, administration "ADM" and n, frequency n and a half, no site.
    explicit ListRows(int count)
    {
        m_work.execute("CREATE TABLE listed (veldakey INTEGER, adm TEXT, freq_assgn DOUBLE, site_name TEXT)");
        m_work.execute("WITH RECURSIVE number(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM number WHERE n < " +
                       std::to_string(count) +
                       ") INSERT INTO listed SELECT n, 'ADM' || n, n + 0.5, NULL FROM number " +
                       "WHERE n <= " + std::to_string(count));
    }

    [[nodiscard]] const WorkingDatabase& work() const { return m_work; }

    [[nodiscard]] std::shared_ptr<const dao::RowSnapshot> read() const
    {
        mainscreen::DataSource source;
        source.DatabaseName = m_work.path();
        source.ReadOnly = true;
        source.RecordSource = "SELECT veldakey, adm, freq_assgn, site_name FROM listed";
        source.Refresh(false);
        return source.rows();
    }

private:
    WorkingDatabase m_work;
};
