#include "db/GridNavig.h"

#include "model/session.h"

namespace GridNavig {

namespace {

bool stepTo(std::int32_t& index, std::int32_t step)
{
    for (auto place = index + step; place >= 0 && place < session::keyCount; place += step) {
        if (session::keyAt(place) != session::deletedKey) {
            index = place;
            return true;
        }
    }
    return false;
}

} // namespace

bool nextNoticeIndex(std::int32_t& index)
{
    return stepTo(index, 1);
}

bool prevNoticeIndex(std::int32_t& index)
{
    return stepTo(index, -1);
}

} // namespace GridNavig
