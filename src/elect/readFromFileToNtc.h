#pragma once

#include "model/Ntc.h"

#include <string>
#include <string_view>

// The reader of electronic notice files: turns the items of file number 1 into the notice record. It skips
// what it does not know and checks no value; only the bounds of the record (RuntimeError 9), the end of the
// file inside a section (62) and a tab or "=" behind position 32767 of an item (6) stop it.
namespace readFromFileToNtc {

// The item last read. A section routine is entered with it on the first item behind the opening tag and
// leaves it on the closing tag.
extern std::string currentLine;

[[nodiscard]] std::string readLine();
std::string tabsToBlanks(std::string& text);
// Moves on: currentLine takes the next item, its tabs turned to blanks.
void advance();
// False without "=", key and value then left alone.
[[nodiscard]] bool splitKeyValue(std::string& key, std::string& value);

// Parts of a coordinate by position, unchecked.
[[nodiscard]] std::string longDeg(std::string_view value);
[[nodiscard]] std::string longMin(std::string_view value);
[[nodiscard]] std::string longSec(std::string_view value);
[[nodiscard]] std::string longEw(std::string_view value);
[[nodiscard]] std::string latDeg(std::string_view value);
[[nodiscard]] std::string latMin(std::string_view value);
[[nodiscard]] std::string latSec(std::string_view value);
[[nodiscard]] std::string latNs(std::string_view value);
[[nodiscard]] std::string timeFromFile(std::string_view value); // "hh:mm" to "hhmm"
[[nodiscard]] std::string padOpAgcy(std::string_view value);    // to three characters, an empty one stays

void readCoordFromFile(NtcCoord& coord);
void readRotFromFile(NtcRot& rot);
void readPointFromFile(NtcGeoPt& point);
void readStationFromFile(NtcRx& rx);
void readAntennaFromFile(NtcAntenna& antenna);
// Closes the gaps of a notice that acts on a target, in both directions.
void fillNtcFromTarget(Ntc& ntc);
void readNtcFromFile(Ntc& ntc);
void readHeadFromFile(Ntc& ntc);

} // namespace readFromFileToNtc
