// Makes a database file from a schema: makeMaster SCHEMA DATABASE
#include "dao/databaseFile.h"
#include "platform/runtimeError.h"

#include <fstream>
#include <iostream>
#include <sstream>

int main(int count, char** arguments)
try {
    if (count != 3) {
        std::cerr << "usage: makeMaster SCHEMA DATABASE\n";
        return 2;
    }
    const std::ifstream schema(arguments[1]);
    std::ostringstream script;
    script << schema.rdbuf();
    if (!schema) {
        std::cerr << "can't read " << arguments[1] << '\n';
        return 1;
    }
    dao::createDatabaseFile(arguments[2], script.str());
    return 0;
} catch (const platform::RuntimeError& failure) {
    std::cerr << platform::errorMessage(failure) << '\n';
    return 1;
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
