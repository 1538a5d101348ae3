#include "jet/byteView.h"

#include <string>

namespace jet {

void raiseDamage(std::uint32_t page, std::string_view what)
{
    throw Error(Fault::Damaged,
                "The file is damaged on page " + std::to_string(page) + ": " + std::string(what) + ".");
}

} // namespace jet
