#pragma once

#include <string>

// The notice in hand.
namespace currentNotice {

// Empties the session's notice, adm included, and reads the one of currentVeldaKey into it. What fails is
// shown where reading a notice shows it; 91 is thrown when the database can't be opened.
void read(const std::string& database);

} // namespace currentNotice
