#pragma once

#include "bareNotice.h"
#include "model/Ntc.h"

namespace bare {

// The record as the floor writes it; it points into the record.
[[nodiscard]] Notice noticeOf(const Ntc& ntc);

// Updates of one notice after the other, each a transaction of its own, on a database that stays open.
class Updates
{
public:
    explicit Updates(const std::string& database);
    ~Updates();
    Updates(const Updates&) = delete;
    Updates& operator=(const Updates&) = delete;

    void update(int key, const Notice& notice, bool withTarget);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

// The floors of an update and of a delete: open, the statements that do it for the notice, close. Both act on
// a whole table at once where they can.
void updateNotice(const std::string& database, int key, const Notice& notice, bool withTarget);
void deleteNotice(const std::string& database, int key);

} // namespace bare
