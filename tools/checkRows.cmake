# cmake -D PROGRAM=makeReference -D FOLDER=path -D EXPECTED=sha256 -P checkRows.cmake: fails when the rows of the
# reference set in the folder have another checksum.
execute_process(COMMAND ${PROGRAM} --dump ${FOLDER} OUTPUT_FILE ${FOLDER}/rows.txt COMMAND_ERROR_IS_FATAL ANY)
set(FILE ${FOLDER}/rows.txt)
include(${CMAKE_CURRENT_LIST_DIR}/checkChecksum.cmake)
