#pragma once

#include "jet/rowReader.h"

namespace jet {

struct Rows::State
{
    State(const Table& table, const PageFile& file) : reader(table, file) {}

    RowReader reader;
};

} // namespace jet
