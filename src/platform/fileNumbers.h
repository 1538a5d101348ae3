#pragma once

#include <string>
#include <string_view>

// Text files by number. Text is Windows-1252 in the file and UTF-8 here. Every routine throws RuntimeError:
// 52 for a number that is not open or open the other way, 53, 55 (number already in use), 57, 61, 62, 75, 76.
namespace platform {

void openForInput(int number, const std::string& path);
// Empties an existing file.
void openForOutput(int number, const std::string& path);
void openForAppend(int number, const std::string& path);

// The next item: leading blanks are skipped; it ends at the first comma or line end (CR LF, CR or LF), both
// taken along. An item that begins with a double quote ends at the next one, or with the file, and the quotes
// are not part of it; behind a closing quote, blanks and then one comma or line end belong to the item. At
// the end of the file: 62.
[[nodiscard]] std::string inputItem(int number);
// The same into a string that the caller keeps.
void inputItem(int number, std::string& item);

// One line without its end (CR LF, CR or LF), which is taken along; commas and quotes are plain. At the end
// of the file: 62.
[[nodiscard]] std::string inputLine(int number);

[[nodiscard]] bool endOfFile(int number);

// The text and CR LF. What was printed may stand in a buffer until the file is closed.
void printLine(int number, std::string_view text);

// Closes the file; nothing for a number that is not open.
void closeFile(int number);
void closeAllFiles();

// Reads nothing; throws what openForInput throws when the file can't be opened for reading.
void testReadable(const std::string& path);

} // namespace platform
