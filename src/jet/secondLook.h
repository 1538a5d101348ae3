#pragma once

#include "jet/jetFile.h"

namespace jet {

// Runs `read`; when that finds damage, forgets what was read before and runs it once more: another program
// may just have been writing.
template <class Read, class Forget>
auto withSecondLook(Read read, Forget forget)
{
    try {
        return read();
    } catch (const Error& error) {
        if (error.fault() != Fault::Damaged)
            throw;
    }
    forget();
    return read();
}

} // namespace jet
