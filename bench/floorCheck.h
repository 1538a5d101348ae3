#pragma once

// A floor counts only if it does the same work: floor and product load files of every shape, list them and
// write them out again, and every row, every key and every byte must be the same. Throws std::runtime_error
// otherwise.
void checkFloors();
