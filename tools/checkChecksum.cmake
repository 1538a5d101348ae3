# cmake -D FILE=path -D EXPECTED=sha256 -P checkChecksum.cmake: fails when the file has another checksum.
file(SHA256 ${FILE} found)
if(NOT found STREQUAL EXPECTED)
  message(FATAL_ERROR "${FILE} has the checksum ${found}, not ${EXPECTED}")
endif()
